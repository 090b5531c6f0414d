#pragma once
// The phase decision.

#include <cstdint>

#include "co2_properties/limits.hpp"
#include "eos/temperature_bins.hpp"
#include "numbers/lanes.hpp"
#include "saturation/curves.hpp"
#include "saturation/sat_density.hpp"
#include "saturation/sat_pressure.hpp"
#include "saturation/saturation_bounds.hpp"

namespace co2_properties {

// ---- Before a solution: from the inputs ---------------------------------------------------------

enum class Phase { vapour, liquid, two_phase };

/// Phase at a temperature, K, below the critical one, and a density, kg/m3. The densities of
/// saturation are evaluated only where the decision needs them: the vapour is never denser than
/// 467.61 kg/m3 and, above 301 K, the two lie between 286.14 and 658.70 kg/m3.
[[nodiscard]] inline Phase phase_from_td(const double temp, const double dens) noexcept {
  if (temp > 301.0) {
    if (dens < 286.0) return Phase::vapour;
    if (dens > 659.0) return Phase::liquid;
  }
  if (dens <= 468.0 && dens <= calc_sat_vap_dens(temp)) return Phase::vapour;
  return dens >= calc_sat_liq_dens(temp) ? Phase::liquid : Phase::two_phase;
}

/// Phase at a temperature, K, below the critical one, and a pressure, kPa; two phases on the
/// saturation line itself. The saturation pressure lies between 1282 and 7378 kPa and is evaluated
/// only where it decides.
[[nodiscard]] inline Phase phase_from_tp(const double temp, const double pres) noexcept {
  if (pres < 1282.0) return Phase::vapour;
  if (pres > 7378.0) return Phase::liquid;
  const double pres_sat = calc_sat_pres(temp);
  if (pres < pres_sat) return Phase::vapour;
  if (pres > pres_sat) return Phase::liquid;
  return Phase::two_phase;
}

/// What bounds of saturation tell of states, for one or for several in lanes: whether each surely
/// has a single phase, of which region, or surely two.
template <class V>
struct SurePhase {
  Mask<V> single;
  Mask<V> mixture;
  Ints<V> region;  ///< number of the `Region` of a single phase
};

/// Number of the region of a single phase.
template <class V>
[[nodiscard, gnu::always_inline]] inline Ints<V> region_of(const V& temp,
                                                           const Mask<V>& liquid) noexcept {
  return minus_one<V>(temp < t_crit) & (1 - minus_one<V>(liquid));
}

/// The bin of the bounds that holds the temperature, K, is `temp_bin`; the density is in kg/m3. No
/// state with a NaN is sure of its phase.
template <class V>
[[nodiscard, gnu::always_inline]] inline SurePhase<V> sure_phase_from_td(const Ints<V>& temp_bin,
                                                                         const V& temp,
                                                                         const V& dens) noexcept {
  Rows<V, float> rows;
  for_each_lane<V>([&](const int k) CO2_INLINE {
    rows[k] = &saturated_density_bounds[lane(temp_bin, k)].vap_lo;
  });
  const auto [vap_lo, vap_hi, liq_lo, liq_hi] = load_four<V>(rows);
  const Mask<V> liquid = dens > liq_hi;
  const Mask<V> single = (dens < vap_lo) | liquid;
  const Mask<V> mixture = (dens > vap_hi) & (dens < liq_lo) & (temp < t_crit);
  return {single, mixture, region_of(temp, liquid)};
}

/// The same for a pressure, kPa; the saturation line itself is never sure.
template <class V>
[[nodiscard, gnu::always_inline]] inline SurePhase<V> sure_phase_from_tp(const Ints<V>& temp_bin,
                                                                         const V& temp,
                                                                         const V& pres) noexcept {
  Rows<V, float> rows;
  for_each_lane<V>([&](const int k)
                       CO2_INLINE { rows[k] = &saturation_pressure_bounds[lane(temp_bin, k)].lo; });
  const auto [lo, hi] = load_two<V>(rows);
  const Mask<V> liquid = pres > hi;
  const Mask<V> single = (pres < lo) | liquid;
  return {single, Mask<V>{}, region_of(temp, liquid)};
}

/// The same for an entropy, kJ/(kg K), which is highest in vapour.
template <class V>
[[nodiscard, gnu::always_inline]] inline SurePhase<V> sure_phase_from_ts(const Ints<V>& temp_bin,
                                                                         const V& temp,
                                                                         const V& entr) noexcept {
  Rows<V, float> rows;
  for_each_lane<V>([&](const int k) CO2_INLINE {
    rows[k] = &saturated_entropy_bounds_by_temp[lane(temp_bin, k)].vap_lo;
  });
  const auto [vap_lo, vap_hi, liq_lo, liq_hi] = load_four<V>(rows);
  const Mask<V> liquid = entr < liq_lo;
  const Mask<V> single = (entr > vap_hi) | liquid;
  const Mask<V> mixture = (entr < vap_lo) & (entr > liq_hi) & (temp < t_crit);
  return {single, mixture, region_of(temp, liquid)};
}

/// The same for a caloric property at a pressure, without the region.
template <class V>
struct SureCaloricPhase {
  Mask<V> single;
  Mask<V> mixture;
};

/// \param bounds  of the property in bins of pressure
template <class V>
[[nodiscard, gnu::always_inline]] inline SureCaloricPhase<V> sure_phase_from_caloric(
    const SaturatedCaloricBounds* const bounds, const V& pres, const V& caloric) noexcept {
  const Ints<V> bin = pres_bins.find(pres);
  Rows<V, float> rows;
  for_each_lane<V>([&](const int k) CO2_INLINE { rows[k] = &bounds[lane(bin, k)].vap_lo; });
  const auto [vap_lo, vap_hi, liq_lo, liq_hi] = load_four<V>(rows);
  const Mask<V> single = (caloric > vap_hi) | (caloric < liq_lo);
  const Mask<V> mixture = (caloric < vap_lo) & (caloric > liq_hi);
  return {single, mixture};
}

/// The same for an enthalpy, kJ/kg, and an entropy, kJ/(kg K); mixtures may be colder than the
/// range.
template <class V>
[[nodiscard, gnu::always_inline]] inline SureCaloricPhase<V> sure_phase_from_hs(
    const V& enth, const V& entr) noexcept {
  const Ints<V> bin = entr_bins.find(entr);
  Rows<V, float> rows;
  for_each_lane<V>([&](const int k)
                       CO2_INLINE { rows[k] = &dome_enthalpy_bounds[lane(bin, k)].slope; });
  const auto [slope, lo, hi, unused] = load_four<V>(rows);
  const V height = enth - slope * entr;
  return {height > hi, height < lo};
}

// ---- After a solution ---------------------------------------------------------------------------
//
// Polynomials extrapolated from one side of the dome to the other may meet pressure and property
// too. Below the critical temperature the saturation temperature of the pressure tells them from
// states: liquid is colder, vapour hotter.

/// Whether that is certain without the saturation temperature, which curves down over pressure: it
/// lies below any tangent and, on the saturation line, above the chord.
template <class V>
[[nodiscard, gnu::always_inline]] inline Mask<V> surely_has_phase(const V& pres, const V& temp,
                                                                  const V& dens) noexcept {
  constexpr double chord = (t_crit - temp_sat_min) / (p_crit - pres_sat_min);
  const Mask<V> liq = (pres > p_crit + 1.0) | (temp < temp_sat_min + chord * (pres - pres_sat_min));
  const Mask<V> vap = temp > 278.5 + 0.0098 * (pres - 4000.0);
  return (temp >= t_crit) | ((dens > d_crit) & liq) | ((dens <= d_crit) & vap);
}

/// Whether a solution at `pres`, kPa, lies on its own side of the dome. This close to it the other
/// deciders, densities and saturation pressures, may differ; see docs/errors.md.
template <class V>
[[nodiscard, gnu::always_inline]] inline Mask<V> has_phase(const V& pres, const V& temp,
                                                           const V& dens) noexcept {
  const Mask<V> sure = surely_has_phase(pres, temp, dens);
  if (all(sure)) return sure;
  constexpr double undecided = 1e-4;  // K
  constexpr double highest = 7400.0;  // kPa, where the last piece still rises
  const V temp_sat =
      saturation_temperature<V>(select<V>(pres < highest, pres, broadcast<V>(highest)));
  const Mask<V> dense = dens > d_crit;
  return sure | (dense & (temp < temp_sat + undecided)) |
         (opposite(dense) & (temp > temp_sat - undecided));
}

}  // namespace co2_properties
