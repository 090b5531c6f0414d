#pragma once
// The temperature of a mixture that is given by two properties, for one state or for several in
// lanes.
//
// On a tie line, at one temperature, additive properties lie on a straight line: a mixture with the
// properties p and q is one at that temperature at which q lies on the chord between the phases in
// (p, q). The templates take the two as types, see eos/property_types.hpp; in both phases the
// pressure is that of the vapour, as in the outputs.

#include <cstdint>
#include <type_traits>

#include "cells/axis.hpp"
#include "co2_properties/limits.hpp"
#include "eos/property_types.hpp"
#include "numbers/polynomial.hpp"
#include "numbers/reverted_series.hpp"
#include "saturation/tie_line.hpp"

namespace co2_properties {

// ---- Start values ------------------------------------------------------------------------------

/// Both phases at one temperature.
struct alignas(64) SaturatedNode {
  double svol_liq, svol_vap;
  double inte_liq, inte_vap;
  double enth_liq, enth_vap;
  double entr_liq, entr_vap;
};
static_assert(sizeof(SaturatedNode) == 64);

inline constexpr std::int32_t saturated_node_count = 2048;

/// Temperature, K, of a place between nodes, which crowd towards the critical point.
template <class V>
[[nodiscard, gnu::always_inline]] constexpr V node_temperature(const V& place) noexcept {
  constexpr double step = 1.0 / saturated_node_count;
  const V left = 1.0 - step * place;
  return t_crit - (t_crit - temp_sat_min) * (left * left);
}

/// The saturation line from 240 K to 2e-5 K below the critical temperature. Written by `tablegen
/// saturated_nodes`.
extern const SaturatedNode saturated_nodes[saturated_node_count];
/// Pressure of the vapour there, kPa.
extern const double saturated_node_pressures[saturated_node_count];

/// The same for several places, and the ends of their tie lines in a property.
template <class V>
struct SaturatedNodes {
  V svol_liq, svol_vap, inte_liq, inte_vap, enth_liq, enth_vap, entr_liq, entr_vap;

  [[nodiscard, gnu::always_inline]] static inline SaturatedNodes at(const Ints<V>& index) noexcept {
    Rows<V> rows;
    for_each_lane<V>([&](const int k)
                         CO2_INLINE { rows[k] = &saturated_nodes[lane(index, k)].svol_liq; });
    const Four<V> low = load_four<V>(rows);
    const Four<V> high = load_four<V>(rows, 4);
    return {low.first,  low.second,  low.third,  low.fourth,
            high.first, high.second, high.third, high.fourth};
  }

  struct Ends {
    V liq, vap;
  };
  [[nodiscard, gnu::always_inline]] inline Ends of(SpecificVolume /*unused*/) const noexcept {
    return {svol_liq, svol_vap};
  }
  [[nodiscard, gnu::always_inline]] inline Ends of(InternalEnergy /*unused*/) const noexcept {
    return {inte_liq, inte_vap};
  }
  [[nodiscard, gnu::always_inline]] inline Ends of(Enthalpy /*unused*/) const noexcept {
    return {enth_liq, enth_vap};
  }
  [[nodiscard, gnu::always_inline]] inline Ends of(Entropy /*unused*/) const noexcept {
    return {entr_liq, entr_vap};
  }
};

/// Values of a function at six nodes next to each other, the third and fourth around its zero.
template <class V>
struct ValuesAtNodes {
  V f0, f1, f2, f3, f4, f5;
};

/// Temperature, K, at which a function is zero, by the quintic through its values. Up to the
/// critical one, which lies one node beyond the last. \param at  the third of the nodes
template <class V>
[[nodiscard, gnu::always_inline]] inline V zero_among_nodes(const Ints<V>& at,
                                                            const ValuesAtNodes<V>& f) noexcept {
  // Divided differences of Newton's form with the nodes 0, 1, -1, 2, -2, 3 counted from `at`.
  const V d1 = f.f3 - f.f2;
  const V d2 = (1.0 / 2.0) * ((f.f3 + f.f1) - 2.0 * f.f2);
  const V d3 = (1.0 / 6.0) * ((f.f4 - f.f1) - 3.0 * d1);
  const V d4 = (1.0 / 24.0) * (((f.f4 + f.f0) - 4.0 * (f.f3 + f.f1)) + 6.0 * f.f2);
  const V d5 = (1.0 / 120.0) * (((f.f5 - f.f0) - 5.0 * (f.f4 - f.f1)) + 10.0 * d1);
  // Taylor series of the quintic where the straight line between the two nodes is zero.
  const V x = f.f2 / (f.f2 - f.f3);
  Expansion<V> e = {d5, {}, {}, {}};
  const auto next = [&](const V& distance, const V& difference) CO2_INLINE {
    e.third = e.third * distance + e.second;
    e.second = e.second * distance + e.first;
    e.first = e.first * distance + e.value;
    e.value = e.value * distance + difference;
  };
  next(x + 2.0, d4);
  next(x - 2.0, d3);
  next(x + 1.0, d2);
  next(x - 1.0, d1);
  next(x, f.f2);
  constexpr double integers = 0x1p52;  // from here on doubles are whole numbers, low bits first
  const V whole = from_bits<V>(__builtin_bit_cast(Bits<V>, at) | 0x4330000000000000U) - integers;
  const V place = whole + (x + reverted_step<V>(-e.value, e.first, e.second, e.third));
  constexpr double last = saturated_node_count;
  const V above = select<V>(place > 0.0, place, broadcast<V>(0.0));
  return node_temperature<V>(select<V>(above < last, above, broadcast<V>(last)));
}

/// Start value of the temperature, K, of a mixture: the two nodes between which it lies, and the
/// quintic through them and their neighbours. Off by some 1e-14 of it, so that nearly nine of ten
/// need no step, and by up to 2e-5 K, from entropy and enthalpy 2e-4 K, where elements meet between
/// the nodes.
template <class P, class Q, class V>
[[nodiscard, gnu::always_inline]] inline V tie_line_start(const V& p, const V& q) noexcept {
  using Nodes = SaturatedNodes<V>;
  // How far q lies above the chord, times the length of that in p.
  const auto excess = [&](const Nodes& n) CO2_INLINE -> V {
    const auto a = n.of(P());
    const auto b = n.of(Q());
    return (q - b.liq) * (a.vap - a.liq) - (p - a.liq) * (b.vap - b.liq);
  };
  // Beyond its ends a chord says nothing: there the mixture has become a single phase.
  const auto is_colder = [&](const Nodes& n) CO2_INLINE -> Mask<V> {
    const auto a = n.of(P());
    return ((p - a.liq) * (a.vap - p) > 0.0) & (excess(n) > 0.0);
  };
  // Quartered, by three nodes at a time, down to a few, between which a straight line leads to the
  // right two.
  constexpr std::int64_t few = 8;
  Ints<V> at{};
  for (std::int64_t width = saturated_node_count / 4; width >= few; width /= 4) {
    const Ints<V> first = width & minus_one<V>(is_colder(Nodes::at(at + width)));
    const Ints<V> second = width & minus_one<V>(is_colder(Nodes::at(at + 2 * width)));
    const Ints<V> third = width & minus_one<V>(is_colder(Nodes::at(at + 3 * width)));
    at += (first + second) + third;
  }
  constexpr std::int64_t last_few = saturated_node_count - 2 * few;
  at = at < last_few ? at : Ints<V>{} + last_few;
  const V left = excess(Nodes::at(at));
  const V share = left / (left - excess(Nodes::at(at + few)));
  at += place_between<V>(static_cast<double>(few) * share, 2.0 * few - 4.0).lower;
  at = at < 2 ? Ints<V>{} + 2 : at;
  // Where both phases still differ.
  constexpr auto hottest = node_temperature<double>(saturated_node_count - 1);
  const V temp = zero_among_nodes<V>(
      at, {excess(Nodes::at(at - 2)), excess(Nodes::at(at - 1)), excess(Nodes::at(at)),
           excess(Nodes::at(at + 1)), excess(Nodes::at(at + 2)), excess(Nodes::at(at + 3))});
  return select<V>(temp < hottest, temp, broadcast<V>(hottest));
}

/// Start value of the temperature, K, at which the vapour has a pressure, kPa, with the same
/// errors. Above that of the vapour at the critical temperature, 7377.2984 kPa, it is this
/// temperature.
template <class V>
[[nodiscard, gnu::always_inline]] inline V vapour_pressure_start(const V& pres) noexcept {
  constexpr double nodes = saturated_node_count;
  const V left = (t_crit - saturation_temperature<V>(pres)) * (1.0 / (t_crit - temp_sat_min));
  const V distance = root<V>(select<V>(left > 0.0, left, broadcast<V>(0.0)));
  Ints<V> at = place_between<V>(nodes - nodes * distance, nodes - 4.0).lower;
  at = at < 2 ? Ints<V>{} + 2 : at;
  Rows<V> rows;
  for_each_lane<V>([&](const int k)
                       CO2_INLINE { rows[k] = &saturated_node_pressures[lane(at, k) - 2]; });
  const Four<V> low = load_four<V>(rows);
  const Two<V> high = load_two<V>(rows, 4);
  return zero_among_nodes<V>(at, {low.first - pres, low.second - pres, low.third - pres,
                                  low.fourth - pres, high.first - pres, high.second - pres});
}

// ---- Solution ----------------------------------------------------------------------------------

/// What is missing of q at a temperature, and how much more of it one kelvin would bring.
template <class V>
struct TieLineMiss {
  V missing, slope;
};

/// \param temp      K, of
/// \param liq, vap  the phases
/// \param p, q      values of the two properties; that of p is met
///
/// The slope is that of q at constant p. Along the line pressure rises as Clapeyron has it, and
/// densities as that needs.
template <class P, class Q, class V>
[[nodiscard, gnu::always_inline]] inline TieLineMiss<V> miss_on_tie_line(
    const V& temp, const SaturatedPhase<V>& liq, const SaturatedPhase<V>& vap, const V& p,
    const V& q) noexcept {
  const V rise = (entropy(vap.d) - entropy(liq.d)) * (liq.dens * vap.dens) / (liq.dens - vap.dens);
  struct Along {
    V value, slope;
  };
  const auto along = [&](const SaturatedPhase<V>& phase, const auto property) CO2_INLINE -> Along {
    const auto f = decltype(property)::expand(Evaluation<V>{phase.d, {}}, temp, phase.dens);
    const V stretch = (rise - phase.dens * phase.d.pv_t) / (phase.dens * phase.d.dpdd);
    return {f.value, f.t + f.u * stretch};
  };
  const Along p_liq = along(liq, P());
  const Along p_vap = along(vap, P());
  const Along q_vap = along(vap, Q());
  const Along q_liq = std::is_same_v<Q, Pressure> ? q_vap : along(liq, Q());
  const V inverse = 1.0 / (p_vap.value - p_liq.value);
  const V share = (p - p_liq.value) * inverse;
  const V difference = q_vap.value - q_liq.value;
  const V chord = difference * inverse;
  const V of_liq = q_liq.slope - chord * p_liq.slope;
  const V of_vap = q_vap.slope - chord * p_vap.slope;
  return {(q - q_liq.value) - share * difference, of_liq + share * (of_vap - of_liq)};
}

/// A step towards the tie line of mixtures.
template <class V>
struct MixtureStep {
  V next;       ///< temperature, K
  Mask<V> met;  ///< whether the one before it is good enough
};

}  // namespace co2_properties
