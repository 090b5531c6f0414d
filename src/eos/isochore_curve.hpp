#pragma once
// Pressures along the density edges of the elements.

#include <cstdint>

#include "eos/element.hpp"

namespace co2_properties {

inline constexpr std::int32_t curve_terms = 6;

/// Pressure along one density edge of the elements, a polynomial in the temperature itself. It has
/// the lowest degree, 1 to 5, that separates the elements well enough: with each degree Horner's
/// rule in an unshifted variable loses digits, the more the narrower the curve's temperatures. All
/// curves are evaluated as quintics, since how long a loop would run is not predictable; leading
/// zeros do not change the result.
struct IsochoreCurve {
  double temp_start;  ///< K: where the isochore meets the saturation line, a single-precision
                      ///< value; 0 if it does not
  double coef[curve_terms];  ///< kPa K^-k
};

/// More than the rounding error of any curve at its temperatures, kPa.
inline constexpr double curve_rounding = 3e-4;

/// An element in the list of one temperature interval, and the curve of its lower density edge.
struct TpRow {
  std::uint16_t element;  ///< 1-based
  std::uint16_t curve;    ///< unused in the lowest row
};

[[nodiscard]] constexpr double evaluate_curve(const IsochoreCurve& curve,
                                              const double temp) noexcept {
  const double* c = curve.coef;
  return ((((c[5] * temp + c[4]) * temp + c[3]) * temp + c[2]) * temp + c[1]) * temp + c[0];
}

}  // namespace co2_properties
