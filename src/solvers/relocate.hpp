#pragma once
// How iterations follow a state from element to element.

#include <cstdint>

#include "co2_properties/limits.hpp"
#include "eos/element.hpp"
#include "eos/element_locator.hpp"

namespace co2_properties {

/// An iterate keeps its element up to this far outside the rectangle, K and kg/m3: an iteration
/// that settles on an edge does not switch between the two sides.
inline constexpr double element_margin = 0.01;

/// No iteration goes on from densities up to this one, kg/m3; no state is thinner than `dens_min`.
inline constexpr double thinnest_iterate = 1e-4;

/// Whether an offset from the lower edge of an element still belongs to it. True for NaN, which no
/// element suits better.
template <class V>
[[nodiscard, gnu::always_inline]] inline Mask<V> keeps_element(const V& offset,
                                                               const V& width) noexcept {
  return opposite((offset < -element_margin) | (offset > width + element_margin));
}

/// Whether a density is beyond its element, from an offset as above: only the densest states are,
/// whose elements reach beyond `pres_max`.
template <class V>
[[nodiscard, gnu::always_inline]] inline Mask<V> is_beyond(const V& offset,
                                                           const V& width) noexcept {
  return offset > width + element_margin;
}

/// The rectangles of elements.
template <class V>
struct Rectangles {
  V dens0, temp0, dens_width, temp_width;

  [[nodiscard, gnu::always_inline]] static inline Rectangles of(const Cells<V>& cells) noexcept {
    Rows<V> rows;
    for_each_lane<V>([&](const int k) CO2_INLINE { rows[k] = &cells[k]->dens0; });
    const Four<V> row = load_four<V>(rows);
    return {row.first, row.second, row.third, row.fourth};
  }

  /// Whether they serve a state. Not one without a density, which has no logarithm: the margin of
  /// the thinnest elements reaches below zero.
  [[nodiscard, gnu::always_inline]] inline Mask<V> serve(const V& temp,
                                                         const V& dens) const noexcept {
    return keeps_element<V>(temp - temp0, temp_width) & keeps_density(dens);
  }
  [[nodiscard, gnu::always_inline]] inline Mask<V> keeps_density(const V& dens) const noexcept {
    return keeps_element<V>(dens - dens0, dens_width) & (dens > thinnest_iterate);
  }

  // A state to evaluate where there is none.
  [[nodiscard, gnu::always_inline]] inline V middle_temp() const noexcept {
    return temp0 + 0.5 * temp_width;
  }
  [[nodiscard, gnu::always_inline]] inline V middle_dens() const noexcept {
    return dens0 + 0.5 * dens_width;
  }
};

/// Whether an iterate, K and kg/m3, may still lead to a state of the range. Farther out the
/// polynomials overflow. False for NaN.
template <class V>
[[nodiscard, gnu::always_inline]] inline Mask<V> is_promising(const V& temp,
                                                              const V& dens) noexcept {
  return (temp > 100.0) & (temp < 3000.0) & (dens > thinnest_iterate) & (dens < 2000.0);
}

/// Element for an iterate of which only temperature, K, and density, kg/m3, are known: below the
/// critical temperature the critical density decides between vapour and liquid, since an iterate
/// may well lie inside the two-phase region.
template <class V>
[[gnu::always_inline]] inline void relocate(const V& temp, const V& dens,
                                            std::int32_t* const to) noexcept {
  const Ints<V> below = ~minus_one<V>(temp >= t_crit);
  const Ints<V> region = below & (1 - minus_one<V>(dens > d_crit));
  element_locator.find<V>(region, temp_bins.find(temp), temp, dens, to);
}
template <class V>
[[gnu::always_inline]] inline void relocate(const V& temp, const V& dens,
                                            Cells<V>& cells) noexcept {
  std::int32_t e[lane_count<V>];
  relocate<V>(temp, dens, e);
  for_each_lane<V>([&](const int k) CO2_INLINE { cells[k] = &element(e[k]); });
}
[[nodiscard]] inline std::int32_t relocate(const double temp, const double dens) noexcept {
  std::int32_t e = 0;
  relocate<double>(temp, dens, &e);
  return e;
}

/// An iterate.
template <class V>
struct Iterate {
  V temp, dens;    ///< K, kg/m3
  Mask<V> served;  ///< by its element; where not, the state is one that may be evaluated as well
};

/// Keeps the elements that serve the iterates, and finds others for the rest.
/// \param cells  one for each lane, any; on return those of the iterates
template <class V>
[[nodiscard, gnu::always_inline]] inline Iterate<V> follow(const V& temp, const V& dens,
                                                           Cells<V>& cells) noexcept {
  Rectangles<V> at = Rectangles<V>::of(cells);
  Mask<V> served = at.serve(temp, dens);
  if (all(served)) return {temp, dens, served};
  Cells<V> others;
  relocate<V>(temp, dens, others);
  for_each_lane<V>([&](const int k) CO2_INLINE {
    if (!lane(served, k)) cells[k] = others[k];
  });
  at = Rectangles<V>::of(cells);
  served = at.serve(temp, dens);
  return {select<V>(served, temp, at.middle_temp()), select<V>(served, dens, at.middle_dens()),
          served};
}

}  // namespace co2_properties
