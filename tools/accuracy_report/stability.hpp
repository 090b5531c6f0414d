#pragma once
// Whether the pressure of every element rises with density.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "accuracy_report/text_table.hpp"

namespace co2_properties::accuracy {

/// Smallest dp/drho of a group of elements, as the dimensionless slope (rho / p) dp/drho.
struct SmallestSlope {
  const char* group;
  std::size_t elements = 0;
  std::size_t points = 0;
  std::size_t not_positive = 0;  ///< points with dp/drho <= 0, and where they lie
  double temp_lo = 0.0, temp_hi = 0.0;
  double dens_lo = 0.0, dens_hi = 0.0;
  double slope = 0.0;
  double temp = 0.0, dens = 0.0;
  std::int32_t element = 0;
};

/// Evaluates dp/drho on a grid over the whole rectangle of every supercritical element, its edges
/// included, and over the single-phase part of the others.
/// \param side         points per side and element; four times as many in elements of the critical
///                     box
/// \param on_isotherm  points per element along the critical isotherm and six isotherms just above
[[nodiscard]] std::vector<SmallestSlope> smallest_slopes(int side, int on_isotherm);

/// Passes if dp/drho is positive everywhere.
[[nodiscard]] Section stability_section();

}  // namespace co2_properties::accuracy
