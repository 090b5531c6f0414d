#pragma once
// The rectangles of a patch fit, as read from tablegen/tilings/<table>.txt.

#include <string>
#include <vector>

#include "tablegen/tilings/cell_grid.hpp"

namespace co2_properties::tablegen {

/// A coefficient a(i, j) of a patch that the fit must keep: power i of temp - temp0, j of
/// dens - dens0.
struct Pin {
  int i, j;
  double value;
};

struct PatchCell {
  Box box;       ///< x temperature, K; y density, kg/m3
  double temp0;  ///< origin of the polynomial
  double dens0;
  std::vector<Pin> pins;
};

/// The cells in file order; patch k of the table belongs to cell k.
using PatchTiling = std::vector<PatchCell>;

/// Reads the text form, whose rules stand at the top of each file.
/// \throws std::invalid_argument with the line number if a line is not understood or a pin does not
/// name exactly one patch
[[nodiscard]] PatchTiling read_patch_tiling(const std::string& text);

/// The map of a tiling; its values count the cells from 0.
/// \throws std::invalid_argument if the cells overlap or leave a gap
[[nodiscard]] CellGrid patch_grid(const PatchTiling& tiling);

}  // namespace co2_properties::tablegen
