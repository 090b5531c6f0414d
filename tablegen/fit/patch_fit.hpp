#pragma once
// Fit of one property patch.

#include <vector>

#include "fits/patch.hpp"
#include "tablegen/fit/least_squares.hpp"
#include "tablegen/fit/patch_property.hpp"
#include "tablegen/fit/reach.hpp"
#include "tablegen/tilings/patch_tiling.hpp"

namespace co2_properties::tablegen {

/// A state with the value to be met there.
struct Sample {
  StatePoint at;
  Real value;
  Real scale;  ///< residuals are divided by this before they are compared
};

/// What a patch is fitted to.
struct CellSamples {
  std::vector<Sample> reachable;
  /// States in the two-phase region, with a weight that is too small to be felt by the others: they
  /// only keep the polynomial from running away where nobody should ask.
  std::vector<Sample> dome;
  /// Samples come so close to the critical point that no polynomial follows; a minimax would
  /// carry the error made there all over the cell.
  bool singular = false;
};

/// Samples of a cell: Chebyshev points, which crowd at the edges, over the reachable states and a
/// little beyond. Residuals are relative; where the property is singular at the critical point they
/// weigh less towards the critical temperature, because polynomials cannot follow there and the
/// error made there would otherwise spread over the cell. \throws std::logic_error if no state of
/// the cell can be reached
[[nodiscard]] CellSamples sample_cell(const PatchProperty& property, const PatchCell& cell);

/// Polynomial in scaled offsets, before it is stored: c(p, q) T_p(u) T_q(v) with the Chebyshev
/// polynomials, u and v in [-1, 1] over the hull of the samples, the finite edges of the cell and
/// its origin. (Were the hull that of the samples alone, those that fill only a corner far from the
/// origin would give stored coefficients that cancel.)
struct ScaledPatch {
  Real temp_mid, temp_half;
  Real dens_mid, dens_half;
  Vector coef;  ///< p * patch_terms + q

  [[nodiscard]] Real operator()(const StatePoint& at) const;
};

/// How a patch is fitted.
struct FitOptions {
  bool minimax;  ///< reweighted towards the least largest error, else least squares
  bool pins_on;  ///< whether the pins of the cell are kept
};

/// Fit to the samples. Pins hold to the rounding of long double.
[[nodiscard]] ScaledPatch fit_patch(const PatchCell& cell, const CellSamples& samples,
                                    const FitOptions& options);

/// The stored form: powers of the offsets from the origin of the cell, each coefficient rounded to
/// double, pins with the bits of their literal.
[[nodiscard]] Patch stored_patch(const PatchCell& cell, const ScaledPatch& fit);

}  // namespace co2_properties::tablegen
