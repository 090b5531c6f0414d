#pragma once
// Derivatives of mixtures of saturated liquid and vapour, whose phases stay in equilibrium.

#include "eos/state_derivatives.hpp"
#include "saturation/tie_line.hpp"

namespace co2_properties {

/// dp/dT along the saturation line, kPa/K.
template <class V>
[[nodiscard, gnu::always_inline]] inline V saturation_slope(const Mixture<V>& m) noexcept {
  return TieLine<V>{m.liq, m.vap}.slope();
}

/// What a saturated phase holds of the isochoric heat capacity of mixtures, kJ/(kg K): its own, and
/// what it takes to follow the saturation line.
/// \param slope  of the saturation line, kPa/K
template <class V>
[[nodiscard, gnu::always_inline]] inline V saturated_isochoric_heat_capacity(
    const StateDerivatives<V>& phase, const V& slope) noexcept {
  const V excess = slope - phase.dens * phase.pv_t;
  // The division does not wait for the slope.
  return phase.cv + (excess * excess) * (phase.temp / (phase.dens * phase.dens * phase.dpdd));
}

/// \param liq, vap  derivatives of the phases
template <class V>
[[nodiscard, gnu::always_inline]] inline StateDerivatives<V> mixture_derivatives(
    const Mixture<V>& m, const StateDerivatives<V>& liq, const StateDerivatives<V>& vap) noexcept {
  const V slope = saturation_slope(m);
  const V cv_liq = saturated_isochoric_heat_capacity(liq, slope);
  const V cv_vap = saturated_isochoric_heat_capacity(vap, slope);
  const V svol = 1.0 / m.dens;
  return {m.temp,
          m.dens,
          pressure(m.vap.d, m.vap.dens) * svol,
          cv_liq + m.qual * (cv_vap - cv_liq),
          broadcast<V>(0.0),
          slope * svol};
}

/// The share of a saturated phase in the isochoric heat capacity, and its derivative along the
/// saturation line, kJ/(kg K2).
struct SaturatedShare {
  double cv;
  double cv_t;
};

/// \param slope, bend  first and second derivative of the saturation pressure, kPa/K and kPa/K2
[[nodiscard]] inline SaturatedShare saturated_share(const StateChanges& phase, const double slope,
                                                    const double bend) noexcept {
  const StateDerivatives<double>& d = phase.d;
  const double svol = 1.0 / d.dens;
  const double excess = slope - d.dens * d.pv_t;
  const double stretch = excess / d.dpdd;  // drho/dT along the line
  const double excess_t = bend - phase.dpdt_t - phase.dpdd_t * stretch;
  const double dpdd_t = phase.dpdd_t + phase.dpdd_d * stretch;
  const double work = d.temp * svol * svol * stretch;
  return {d.cv + work * excess,
          phase.cv_t + phase.cv_d * stretch + 2.0 * work * excess_t +
              work * excess * (1.0 / d.temp - 2.0 * svol * stretch - dpdd_t / d.dpdd)};
}

/// Fundamental derivative of gas dynamics of a mixture in equilibrium. (rho w)^2 = T p'^2 / cv
/// along isentropes, with p' the slope of the saturation line, on which dT/dv = -T p' / cv; cv is
/// linear in the volume at constant temperature, and what it rises by is T p''. Not at the critical
/// temperature, where the phases have the same density.
[[nodiscard]] inline double mixture_fundamental_derivative(const Mixture<double>& m,
                                                           const StateChanges& liq,
                                                           const StateChanges& vap) noexcept {
  const double slope = saturation_slope(m);
  const double widening = 1.0 / m.vap.dens - 1.0 / m.liq.dens;
  const double bend = (saturated_share(vap, slope, 0.0).cv - saturated_share(liq, slope, 0.0).cv) /
                      (m.temp * widening);
  const SaturatedShare of_liq = saturated_share(liq, slope, bend);
  const SaturatedShare of_vap = saturated_share(vap, slope, bend);
  const auto dvdt = [&](const StateDerivatives<double>& d) {
    return (d.dens * d.pv_t - slope) / (d.dens * d.dens * d.dpdd);
  };
  const double dqdt = -(dvdt(liq.d) + m.qual * (dvdt(vap.d) - dvdt(liq.d))) / widening;
  const double cv = of_liq.cv + m.qual * (of_vap.cv - of_liq.cv);
  const double cv_t =
      of_liq.cv_t + m.qual * (of_vap.cv_t - of_liq.cv_t) + dqdt * (of_vap.cv - of_liq.cv);
  const double temp_share = 1.0 / m.temp + 2.0 * bend / slope - cv_t / cv;
  return 0.5 / m.dens * (temp_share * m.temp * slope + m.temp * bend) / cv;
}

}  // namespace co2_properties
