#pragma once
// How the Newton iterations follow a state from element to element.

#include <cstdint>

#include "co2_properties/limits.hpp"
#include "eos/element.hpp"
#include "eos/locate_td.hpp"

namespace co2_properties {

/// An iterate keeps its element up to this far outside the rectangle, K and kg/m3: an iteration
/// that settles on an edge does not switch between the two sides.
inline constexpr double element_margin = 0.01;

/// No iteration goes on from densities up to this one, kg/m3; no state is thinner than `dens_min`.
inline constexpr double thinnest_iterate = 1e-4;

/// Whether an offset from the lower edge of an element still belongs to it. True for NaN, which no
/// element suits better.
[[nodiscard]] inline bool keeps_element(const double offset, const double width) noexcept {
  return !(offset < -element_margin || offset > width + element_margin);
}

/// Whether a density is beyond its element, from an offset as above: only the densest states are,
/// whose elements reach beyond `pres_max`. For one state or for lanes.
template <class Real>
[[nodiscard, gnu::always_inline]] inline auto is_beyond(const Real& offset,
                                                        const Real& width) noexcept {
  return offset > width + element_margin;
}

/// Whether the element serves a state. Not one without a density, which has no logarithm: the
/// margin of the thinnest elements reaches below zero.
[[nodiscard]] inline bool serves(const Element& cell, const double temp,
                                 const double dens) noexcept {
  return keeps_element(temp - cell.temp0, cell.temp_width) &&
         keeps_element(dens - cell.dens0, cell.dens_width) && dens > thinnest_iterate;
}

/// Whether an iterate, K and kg/m3, may still lead to a state of the range. Farther out the
/// polynomials overflow. False for NaN.
[[nodiscard]] inline bool is_promising(const double temp, const double dens) noexcept {
  return temp > 100.0 && temp < 3000.0 && dens > thinnest_iterate && dens < 2000.0;
}

/// Element for an iterate of which only temperature, K, and density, kg/m3, are known: below the
/// critical temperature the critical density decides between vapour and liquid, since an iterate
/// may well lie inside the two-phase region.
[[nodiscard]] inline std::int32_t relocate(const double temp, const double dens) noexcept {
  if (temp >= t_crit) return find_cell(supercritical_map, temp, dens);
  return find_cell(dens > d_crit ? liquid_map : vapour_map, temp, dens);
}

}  // namespace co2_properties
