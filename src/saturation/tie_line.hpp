#pragma once
// Saturated liquid, saturated vapour and mixtures of them, for one state or for several in lanes.

#include <cstdint>

#include "eos/element_locator.hpp"
#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "saturation/curves.hpp"

namespace co2_properties {

/// Vapour mass fraction by the lever rule; not clipped, exactly 1 at `dens_vap`, 0 at `dens_liq`.
template <class V>
[[nodiscard, gnu::always_inline]] inline V lever_quality(const V& dens, const V& dens_liq,
                                                         const V& dens_vap) noexcept {
  return (dens_liq - dens) * dens_vap / ((dens_liq - dens_vap) * dens);
}

/// One end of a tie line.
template <class V>
struct SaturatedPhase {
  V dens;  ///< kg/m3
  Derivatives<V> d;
};

/// A saturated phase at a temperature, K, in the element of its region.
/// \param dens  its density, kg/m3
template <Region region, class V>
[[nodiscard, gnu::always_inline]] inline SaturatedPhase<V> saturated_phase(const V& temp,
                                                                           const V& dens) noexcept {
  std::int32_t e[lane_count<V>];
  element_locator.find<V>(Ints<V>{} + static_cast<std::int64_t>(region), temp_bins.find(temp), temp,
                          dens, e);
  Cells<V> cells;
  for_each_lane<V>([&](const int k) CO2_INLINE { cells[k] = &element(e[k]); });
  return {dens, evaluate<V>(cells, temp, dens)};
}

template <class V>
[[nodiscard, gnu::always_inline]] inline SaturatedPhase<V> saturated_liquid(
    const V& temp) noexcept {
  return saturated_phase<Region::liquid>(temp, saturated_liquid_density<V>(temp));
}

template <class V>
[[nodiscard, gnu::always_inline]] inline SaturatedPhase<V> saturated_vapour(
    const V& temp) noexcept {
  return saturated_phase<Region::vapour>(temp, saturated_vapour_density<V>(temp));
}

// ---- The saturation line -----------------------------------------------------------------------

/// Both phases at a saturation temperature, K.
template <class V>
struct TieLine {
  SaturatedPhase<V> liq;
  SaturatedPhase<V> vap;

  [[nodiscard, gnu::always_inline]] static inline TieLine at(const V& temp) noexcept {
    return {saturated_liquid<V>(temp), saturated_vapour<V>(temp)};
  }

  /// The pressure of saturation is that of the vapour, kPa.
  [[nodiscard, gnu::always_inline]] inline V pres() const noexcept {
    return pressure(vap.d, vap.dens);
  }
  /// Enthalpy of vaporization, kJ/kg; +0.0 at the critical temperature, where the elements of the
  /// regions disagree about the enthalpy of the one state by 2e-3 kJ/kg.
  [[nodiscard, gnu::always_inline]] inline V latent_heat(const V& temp) const noexcept {
    return select<V>(liq.dens > vap.dens, enthalpy(vap.d, temp) - enthalpy(liq.d, temp),
                     broadcast<V>(0.0));
  }
  /// Slope of the saturation line, kPa/K, by the equation of Clapeyron; at the critical
  /// temperature, where the phases are one, that of the critical isochore, which continues it.
  [[nodiscard, gnu::always_inline]] inline V slope() const noexcept {
    const V widening = liq.dens - vap.dens;
    const Mask<V> apart = widening > 0.0;
    const V of_phases = (entropy(vap.d) - entropy(liq.d)) * (vap.dens * liq.dens) /
                        select<V>(apart, widening, broadcast<V>(1.0));
    return select<V>(apart, of_phases, dpdt(vap.d, vap.dens));
  }
};

// ---- Mixtures ----------------------------------------------------------------------------------

/// A mixture.
template <class V>
struct Mixture {
  V temp;  ///< K
  V dens;  ///< kg/m3
  V qual;  ///< mass fraction of the vapour
  SaturatedPhase<V> liq;
  SaturatedPhase<V> vap;
};

/// The mixture with a temperature, K, below the critical one, and a density, kg/m3.
template <class V>
[[nodiscard, gnu::always_inline]] inline Mixture<V> mixture_from_td(
    const V& temp, const V& dens, const SaturatedPhase<V>& liq,
    const SaturatedPhase<V>& vap) noexcept {
  return {temp, dens, lever_quality(dens, liq.dens, vap.dens), liq, vap};
}

/// The mixture at a saturation temperature, K, with a vapour mass fraction.
template <class V>
[[nodiscard, gnu::always_inline]] inline Mixture<V> mixture_from_quality(
    const V& temp, const V& qual, const SaturatedPhase<V>& liq,
    const SaturatedPhase<V>& vap) noexcept {
  return {temp, vap.dens * liq.dens / (vap.dens + qual * (liq.dens - vap.dens)), qual, liq, vap};
}

/// The mixture at a saturation temperature, K, with a value of a caloric property (a type of
/// eos/property_types.hpp).
template <class Property, class V>
[[nodiscard, gnu::always_inline]] inline Mixture<V> mixture_from_caloric(
    const V& temp, const V& caloric, const SaturatedPhase<V>& liq,
    const SaturatedPhase<V>& vap) noexcept {
  const V of_liq = Property::value(liq.d, temp);
  const V of_vap = Property::value(vap.d, temp);
  return mixture_from_quality<V>(temp, (caloric - of_liq) / (of_vap - of_liq), liq, vap);
}

}  // namespace co2_properties
