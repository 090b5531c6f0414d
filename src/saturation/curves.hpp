#pragma once
// The saturation line: densities over temperature, temperature over pressure; for one state or for
// several in lanes.

#include <cstdint>

#include "cells/axis.hpp"
#include "co2_properties/limits.hpp"
#include "numbers/elementary.hpp"
#include "numbers/lanes.hpp"

namespace co2_properties {

// ---- Pieces ------------------------------------------------------------------------------------

/// Break points between pieces.
using PieceAxis = Axis<64, 3>;

/// Polynomial of degree five in x - origin; coef[k] belongs to power k.
struct alignas(64) Quintic {
  double origin;
  double coef[6];
  double unused = 0.0;
};

/// Depressed cubic for y = rho - dens_node - shift, whose constant term q is linear in T.
struct alignas(64) Cubic {
  double slope;  ///< q = slope * T - offset
  double offset;
  double c_cubed;    ///< discriminant q^2 - c^3; negative where a single real root is certain
  double c;          ///< carries the sign of c_cubed
  double shift;      ///< kg/m3
  double root_c;     ///< 1 / sqrt(c^3); where the discriminant can change its sign
  double amplitude;  ///< 2 sqrt(c); likewise
  double dens_node;  ///< kg/m3
};

// Saturated densities: up to `quintic_end` quintics in T, on the same intervals for both phases,
// above it cubics. A liquid cubic serves temperatures up to its end, a vapour cubic those below.
inline constexpr double quintic_end = 301.0;  // K, inclusive
inline constexpr std::int32_t dens_quintic_count = 16;
inline constexpr std::int32_t liquid_cubic_count = 6;
inline constexpr std::int32_t vapour_cubic_count = 5;
extern const PieceAxis dens_quintic_axis;
extern const Quintic liquid_quintics[dens_quintic_count];
extern const Quintic vapour_quintics[dens_quintic_count];
extern const double liquid_cubic_ends[liquid_cubic_count - 1];
extern const double vapour_cubic_ends[vapour_cubic_count - 1];
extern const Cubic liquid_cubics[liquid_cubic_count];
extern const Cubic vapour_cubics[vapour_cubic_count];

// Saturation temperature: quintics in p.
inline constexpr std::int32_t temp_quintic_count = 8;
extern const PieceAxis temp_quintic_axis;
extern const Quintic temp_quintics[temp_quintic_count];

// ---- Evaluation --------------------------------------------------------------------------------

/// A value, and its derivative in what it depends on.
template <class V>
struct WithSlope {
  V value, slope;
};

/// \param piece  of each value
template <class V>
[[nodiscard, gnu::always_inline]] inline WithSlope<V> evaluate_quintic(const Quintic* const pieces,
                                                                       const Ints<V>& piece,
                                                                       const V& x) noexcept {
  Rows<V> rows;
  for_each_lane<V>([&](const int k) CO2_INLINE { rows[k] = &pieces[lane(piece, k)].origin; });
  const Four<V> low = load_four<V>(rows);
  const Four<V> high = load_four<V>(rows, 4);
  const V d = x - low.first;
  const V v4 = high.third * d + high.second;
  const V v3 = v4 * d + high.first;
  const V v2 = v3 * d + low.fourth;
  const V v1 = v2 * d + low.third;
  const V f3 = high.third * d + v4;
  const V f2 = f3 * d + v3;
  const V f1 = f2 * d + v2;
  return {v1 * d + low.second, f1 * d + v1};
}

/// Root of y^3 - 3 c y + 2 q = 0, the only one or, of three, the largest; as a density, kg/m3.
template <class V>
[[nodiscard, gnu::always_inline]] inline V solve_cubic(const Cubic* const pieces,
                                                       const Ints<V>& piece,
                                                       const V& temp) noexcept {
  Rows<V> rows;
  for_each_lane<V>([&](const int k) CO2_INLINE { rows[k] = &pieces[lane(piece, k)].slope; });
  const Four<V> low = load_four<V>(rows);
  const Four<V> high = load_four<V>(rows, 4);
  const V& c = low.fourth;
  const V q = low.first * temp - low.second;
  const V discriminant = q * q - low.third;
  const Mask<V> one_root = q * q >= low.third;
  V y = broadcast<V>(0.0);
  // The lanes of the other kind get numbers that raise no exception.
  if (any(one_root)) {
    const V s = cube_root<V>(select<V>(
        one_root, absolute(q) + root<V>(select<V>(one_root, discriminant, y)), broadcast<V>(1.0)));
    const V sum = c / s + s;
    y = select<V>(q < 0.0, sum, -sum) + high.first;
  }
  if (!all(one_root)) {
    const V cosine = cosine_of_third<V>(select<V>(one_root, broadcast<V>(0.0), -high.second * q));
    y = select<V>(one_root, y, high.first + high.third * cosine);
  }
  return y + high.fourth;
}

/// Saturated liquid density, kg/m3.
/// \param temp  K; for what is above the critical temperature see `calc_sat_liq_dens`
template <class V>
[[nodiscard, gnu::always_inline]] inline V saturated_liquid_density(const V& temp) noexcept {
  const Mask<V> cold = temp <= quintic_end;
  V dens = broadcast<V>(d_crit);
  if (any(cold)) {
    dens = evaluate_quintic<V>(liquid_quintics, dens_quintic_axis.interval(temp), temp).value;
  }
  if (!all(cold)) {
    Ints<V> piece{};
    for (const double end : liquid_cubic_ends) piece -= minus_one<V>(temp > end);
    const V warm = select<V>(cold, broadcast<V>(302.0), temp);
    dens = select<V>(cold, dens, solve_cubic<V>(liquid_cubics, piece, warm));
    dens = select<V>(temp == t_crit, broadcast<V>(d_crit), dens);
  }
  return dens;
}

/// Saturated vapour density, kg/m3.
/// \param temp  K; for what is above the critical temperature see `calc_sat_vap_dens`
template <class V>
[[nodiscard, gnu::always_inline]] inline V saturated_vapour_density(const V& temp) noexcept {
  const Mask<V> cold = temp <= quintic_end;
  V dens = broadcast<V>(d_crit);
  if (any(cold)) {
    dens = evaluate_quintic<V>(vapour_quintics, dens_quintic_axis.interval(temp), temp).value;
  }
  if (!all(cold)) {
    // A NaN, which is below no end, belongs to the last piece.
    Ints<V> piece{};
    for (const double end : vapour_cubic_ends) piece += 1 + minus_one<V>(temp < end);
    const V warm = select<V>(cold, broadcast<V>(302.0), temp);
    dens = select<V>(cold, dens, solve_cubic<V>(vapour_cubics, piece, warm));
    dens = select<V>(temp == t_crit, broadcast<V>(d_crit), dens);
  }
  return dens;
}

/// Saturation temperature, K, over pressure, kPa; see `calc_sat_temp`.
template <class V>
[[nodiscard, gnu::always_inline]] inline WithSlope<V> saturation_temperature_curve(
    const V& pres) noexcept {
  return evaluate_quintic<V>(temp_quintics, temp_quintic_axis.interval(pres), pres);
}
template <class V>
[[nodiscard, gnu::always_inline]] inline V saturation_temperature(const V& pres) noexcept {
  return saturation_temperature_curve<V>(pres).value;
}

}  // namespace co2_properties
