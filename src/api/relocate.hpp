#pragma once
// How the Newton iterations follow a state from element to element.

#include <cstdint>

#include "co2_properties/limits.hpp"
#include "eos/locate_td.hpp"

namespace co2_properties {

/// An iterate keeps its element up to this far outside the rectangle, K and kg/m3: an iteration
/// that settles on an edge does not switch between the two sides.
inline constexpr double element_margin = 0.01;

/// Whether an offset from the lower edge of an element still belongs to it. True for NaN, which no
/// element suits better.
[[nodiscard]] inline bool keeps_element(const double offset, const double width) noexcept {
  return !(offset < -element_margin || offset > width + element_margin);
}

/// Element for an iterate of which only temperature, K, and density, kg/m3, are known: below the
/// critical temperature the critical density decides between vapour and liquid, since an iterate
/// may well lie inside the two-phase region.
[[nodiscard]] inline std::int32_t relocate(const double temp, const double dens) noexcept {
  if (temp >= t_crit) return find_cell(supercritical_map, temp, dens);
  return find_cell(dens > d_crit ? liquid_map : vapour_map, temp, dens);
}

}  // namespace co2_properties
