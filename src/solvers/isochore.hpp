#pragma once
// Temperature at a given density from a second property, for one state or for several in lanes:
// start values, and the polynomial in temperature that a property is on an isochore of an element.
//
// Each property is taken in a form that stays regular down to vanishing density: energies as they
// are, s + R ln rho for the entropy, p / rho for the pressure.

#include <cstdint>
#include <type_traits>

#include "cells/axis.hpp"
#include "co2_properties/limits.hpp"
#include "eos/element.hpp"
#include "eos/property_types.hpp"
#include "numbers/polynomial.hpp"
#include "numbers/reverted_series.hpp"

namespace co2_properties {

// ---- Properties --------------------------------------------------------------------------------

/// Two coefficients of the polynomials in T - temp0 of a and p / rho on an isochore.
template <class V>
struct IsochoreTerm {
  V a, next_a;  ///< of the powers i and i + 1
  V pv;         ///< of the power i
};

/// What a property is on an isochore.
///   uses_logarithm                  in the regular form
///   uses_a, uses_pv                 what it is made of
///   reduced(value, dens, log_dens)  the regular form
///   summed(value, dens)             what the polynomials sum: p / rho, the others as they are
///   term<V>(i, temp0, t)            their coefficient of power i
///   places, middle                  nodes of the start values for each root of a unit, and the one
///                                   at the critical temperature
template <class Property>
struct OnIsochore;

template <>
struct OnIsochore<InternalEnergy> {
  static constexpr bool uses_logarithm = false;
  static constexpr bool uses_a = true;
  static constexpr bool uses_pv = false;
  static constexpr double places = 2.05;
  static constexpr double middle = 20.0;
  template <class V>
  [[nodiscard, gnu::always_inline]] static V reduced(const V& value, const V& /*dens*/,
                                                     const V& /*log_dens*/) noexcept {
    return value;
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static V summed(const V& value, const V& /*dens*/) noexcept {
    return value;
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static V term(const double i, const V& temp0,
                                                  const IsochoreTerm<V>& t) noexcept {
    return (1.0 - i) * t.a - ((i + 1.0) * temp0) * t.next_a;
  }
};

template <>
struct OnIsochore<Enthalpy> {
  static constexpr bool uses_logarithm = false;
  static constexpr bool uses_a = true;
  static constexpr bool uses_pv = true;
  static constexpr double places = 1.9;
  static constexpr double middle = 20.0;
  template <class V>
  [[nodiscard, gnu::always_inline]] static V reduced(const V& value, const V& /*dens*/,
                                                     const V& /*log_dens*/) noexcept {
    return value;
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static V summed(const V& value, const V& /*dens*/) noexcept {
    return value;
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static V term(const double i, const V& temp0,
                                                  const IsochoreTerm<V>& t) noexcept {
    return OnIsochore<InternalEnergy>::term(i, temp0, t) + t.pv;
  }
};

template <>
struct OnIsochore<Entropy> {
  static constexpr bool uses_logarithm = true;
  static constexpr bool uses_a = true;
  static constexpr bool uses_pv = false;
  static constexpr double places = 50.0;
  static constexpr double middle = 26.0;
  /// Specific gas constant, kJ/(kg K).
  static constexpr double gas_constant = 0.1889241;
  template <class V>
  [[nodiscard, gnu::always_inline]] static V reduced(const V& value, const V& /*dens*/,
                                                     const V& log_dens) noexcept {
    return value + gas_constant * log_dens;
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static V summed(const V& value, const V& /*dens*/) noexcept {
    return value;
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static V term(const double i, const V& /*temp0*/,
                                                  const IsochoreTerm<V>& t) noexcept {
    return (-1.0 - i) * t.next_a;
  }
};

template <>
struct OnIsochore<Pressure> {
  static constexpr bool uses_logarithm = false;
  static constexpr bool uses_a = false;
  static constexpr bool uses_pv = true;
  static constexpr double places = 3.6;
  static constexpr double middle = 26.0;
  template <class V>
  [[nodiscard, gnu::always_inline]] static V reduced(const V& value, const V& dens,
                                                     const V& /*log_dens*/) noexcept {
    return value / dens;
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static V summed(const V& value, const V& dens) noexcept {
    return value / dens;
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static V term(const double /*i*/, const V& /*temp0*/,
                                                  const IsochoreTerm<V>& t) noexcept {
    return t.pv;
  }
};

// ---- Start values and phase --------------------------------------------------------------------

/// Bins of density, kg/m3.
inline constexpr EqualBins<512> isochore_bins = {0.0, 0.4};
inline constexpr std::int32_t isochore_bin_count = decltype(isochore_bins)::count;

/// Regular form of a property on the isochores of a bin.
struct alignas(16) IsochoreBin {
  float at_crit;        ///< at the critical temperature, on the lower edge of the bin
  float slope;          ///< in density, of the chord over the bin
  float mixture_below;  ///< two phases below, down to the cold end of the saturation line
  float single_above;   ///< one phase above
};

/// Nodes of the start values: y is how far the regular form lies above its value at the critical
/// temperature, and a node tells by how much, K, temperature does for each unit of y. They stand
/// at even distances in the root of y, and of density. Where a node lies inside the two phases, or
/// outside of the range, temperature is extrapolated from the nearest state of its isochore.
inline constexpr std::int32_t isochore_heat_nodes = 96;
inline constexpr std::int32_t isochore_dens_nodes = 65;
inline constexpr double isochore_node_distance = 20.0;  // kg/m3

struct IsochoreStarts {
  IsochoreBin bins[isochore_bin_count];
  float gain[isochore_dens_nodes][isochore_heat_nodes];
};

/// Written by `tablegen isochores`.
extern const IsochoreStarts isochore_starts_inte;
extern const IsochoreStarts isochore_starts_enth;
extern const IsochoreStarts isochore_starts_entr;
extern const IsochoreStarts isochore_starts_pres;

template <class Property>
[[nodiscard, gnu::always_inline]] inline const IsochoreStarts& isochore_starts() noexcept {
  if constexpr (std::is_same_v<Property, InternalEnergy>) return isochore_starts_inte;
  if constexpr (std::is_same_v<Property, Enthalpy>) return isochore_starts_enth;
  if constexpr (std::is_same_v<Property, Entropy>) return isochore_starts_entr;
  if constexpr (std::is_same_v<Property, Pressure>) return isochore_starts_pres;
}

/// Start value of the temperature, and which phase is certain.
template <class V>
struct IsochoreStart {
  V temp;  ///< K, of a single phase
  Mask<V> single, mixture;
};

/// Off by some 1e-3 of the distance from the critical temperature.
/// \param dens  kg/m3; above 0
/// \param x     regular form of the property; finite
template <class Property, class V>
[[nodiscard, gnu::always_inline]] inline IsochoreStart<V> start_on_isochore(const V& dens,
                                                                            const V& x) noexcept {
  using On = OnIsochore<Property>;
  const IsochoreStarts& table = isochore_starts<Property>();
  const Ints<V> bin = isochore_bins.find(dens);
  Rows<V, float> rows;
  for_each_lane<V>([&](const int k) CO2_INLINE { rows[k] = &table.bins[lane(bin, k)].at_crit; });
  const auto [at_crit, slope, mixture_below, single_above] = load_four<V>(rows);
  const V y = x - (at_crit + slope * dens);
  const V distance = root<V>(absolute(y)) * On::places;
  const NodePlace<V> heat = place_between<V>(On::middle + select<V>(y < 0.0, -distance, distance),
                                             isochore_heat_nodes - 1);
  const NodePlace<V> at =
      place_between<V>(dens * (1.0 / isochore_node_distance), isochore_dens_nodes - 1.01);
  Rows<V, float> low;
  Rows<V, float> high;
  for_each_lane<V>([&](const int k) CO2_INLINE {
    const float(*const gain)[isochore_heat_nodes] = &table.gain[lane(at.lower, k)];
    low[k] = gain[0] + lane(heat.lower, k);
    high[k] = gain[1] + lane(heat.lower, k);
  });
  const Two<V> a = load_two<V>(low);
  const Two<V> b = load_two<V>(high);
  const V of_low = a.first + heat.share * (a.second - a.first);
  const V of_high = b.first + heat.share * (b.second - b.first);
  const V temp = t_crit + y * (of_low + at.share * (of_high - of_low));
  const Mask<V> single = x > single_above;
  const Mask<V> mixture = x < mixture_below;
  return {temp, single, mixture};
}

// ---- Polynomials -------------------------------------------------------------------------------

/// A property of an element along an isochore; see `OnIsochore::summed`.
template <class V>
struct IsochorePolynomial {
  V temp0;
  V c0, c1, c2, c3, c4, c5;  ///< factors of the powers of T - temp0

  /// One step of the reverted Taylor series towards a value of what is summed.
  [[nodiscard, gnu::always_inline]] inline V improved(const V& temp, const V& x) const noexcept {
    const auto c = [&](const std::int32_t k) CO2_INLINE {
      return k == 0 ? c0 : k == 1 ? c1 : k == 2 ? c2 : k == 3 ? c3 : k == 4 ? c4 : c5;
    };
    const Expansion<V> e = expand(c, temp - temp0);
    return temp + reverted_step<V>(x - e.value, e.first, e.second, e.third);
  }
};

/// Coefficients of the polynomials in temperature, all six of a row of an element summed.
/// \param weights  of the density functions, two by two; those of the first two hold a 1
template <class V>
[[nodiscard, gnu::always_inline]] inline V sum_of_row(const Rows<V>& rows, const std::int32_t at,
                                                      const Two<V>& low, const Two<V>& middle,
                                                      const Two<V>& high) noexcept {
  if constexpr (lane_count<V> == 1) {
    const Lanes2 sum = (load<Lanes2>(rows[0] + at) * Lanes2{low.first, low.second} +
                        load<Lanes2>(rows[0] + at + 2) * Lanes2{middle.first, middle.second}) +
                       load<Lanes2>(rows[0] + at + 4) * Lanes2{high.first, high.second};
    return sum[0] + sum[1];
  } else {
    const Four<V> f = load_four<V>(rows, at);
    const Two<V> g = load_two<V>(rows, at + 4);
    return ((f.first * low.first + f.third * middle.first) + g.first * high.first) +
           ((f.second * low.second + f.fourth * middle.second) + g.second * high.second);
  }
}

/// \param dens0, temp0    origins of the elements
/// \param dens, log_dens  kg/m3, and its logarithm
template <class Property, class V>
[[nodiscard, gnu::always_inline]] inline IsochorePolynomial<V> on_isochore(
    const Cells<V>& cells, const V& dens0, const V& temp0, const V& dens,
    const V& log_dens) noexcept {
  using On = OnIsochore<Property>;
  Rows<V> rows;
  for_each_lane<V>([&](const int k) CO2_INLINE { rows[k] = &cells[k]->coef[0][0]; });
  const V zero = broadcast<V>(0.0);
  const V one = broadcast<V>(1.0);
  const V d = dens - dens0;
  const V d2 = d * d;
  const V d3 = d2 * d;
  const Two<V> a_low = {log_dens, one};
  const Two<V> a_middle = {d, d2};
  const Two<V> a_high = {d3, d2 * d2};
  // rho times the derivatives of the density functions.
  const Two<V> pv_low = {one, zero};
  const Two<V> pv_middle = {dens, dens * (d + d)};
  const Two<V> pv_high = {dens * (3.0 * d2), dens * (4.0 * d3)};
  struct Row {
    V a, pv;
  };
  const auto row = [&](const std::int32_t i) CO2_INLINE -> Row {
    Row sums{};
    if constexpr (On::uses_a) sums.a = sum_of_row<V>(rows, dens_terms * i, a_low, a_middle, a_high);
    if constexpr (On::uses_pv) {
      sums.pv = sum_of_row<V>(rows, dens_terms * i, pv_low, pv_middle, pv_high);
    }
    return sums;
  };
  const Row r0 = row(0);
  const Row r1 = row(1);
  const Row r2 = row(2);
  const Row r3 = row(3);
  const Row r4 = row(4);
  const Row r5 = row(5);
  const auto term = [&](const double i, const Row& r, const V& next_a) CO2_INLINE {
    return On::template term<V>(i, temp0, {r.a, next_a, r.pv});
  };
  return {temp0,
          term(0.0, r0, r1.a),
          term(1.0, r1, r2.a),
          term(2.0, r2, r3.a),
          term(3.0, r3, r4.a),
          term(4.0, r4, r5.a),
          term(5.0, r5, zero)};
}

}  // namespace co2_properties
