#pragma once
// The tables of the five patch fits.

#include <vector>

#include "fits/patch.hpp"
#include "tablegen/emit/table.hpp"
#include "tablegen/fit/patch_property.hpp"
#include "tablegen/tilings/patch_tiling.hpp"

namespace co2_properties::tablegen {

/// How well one stored patch does at points that its fit did not use, relative to the reference.
struct PatchErrors {
  Real worst = 0.0L;           ///< outside the critical temperatures of the property
  Real worst_critical = 0.0L;  ///< at those, 1 mK around the critical point left out
  StatePoint where{};          ///< of the larger of the two
  Real mean_square = 0.0L;
  Real best = 0.0L;      ///< largest error of the better of two fits without pins and rounding
  Real rounding = 0.0L;  ///< largest difference between the patch in double and its unrounded fit
};

/// A fitted table before it is written.
struct PatchTable {
  PatchTiling tiling;
  std::vector<Patch> patches;
  std::vector<PatchErrors> errors;
};

/// Fits every cell of the tiling of a property.
[[nodiscard]] PatchTable fit_patch_table(const PatchProperty& property, PatchTiling tiling);

/// The digest of the inputs of a patch table, as it stands in its header.
[[nodiscard]] std::string patch_digest(const std::string& tiling_text);

/// Registry entries of the five tables.
[[nodiscard]] std::vector<Table> patch_tables();

}  // namespace co2_properties::tablegen
