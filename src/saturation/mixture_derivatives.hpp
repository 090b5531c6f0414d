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

/// \param e            of the element at the saturated density, with third derivatives
/// \param slope, bend  first and second derivative of the saturation pressure, kPa/K and kPa/K2
[[nodiscard]] inline SaturatedShare saturated_share(const Evaluation<double>& e, const double temp,
                                                    const double dens, const double slope,
                                                    const double bend) noexcept {
  const double svol = 1.0 / dens;
  const double excess = slope - dens * e.d.pv_t;
  const double stretch = excess / e.d.dpdd;  // drho/dT along the line
  const double excess_t = bend - dens * e.third.pv_tt - e.third.dpdd_t * stretch;
  const double dpdd_t = e.third.dpdd_t + e.third.dpdd_d * stretch;
  const double work = temp * svol * svol * excess * stretch;
  return {work - temp * e.d.a_tt,
          work * (1.0 / temp - 2.0 * svol * stretch + 2.0 * excess_t / excess - dpdd_t / e.d.dpdd) -
              (e.d.a_tt + temp * e.third.a_ttt) - temp * e.third.pv_tt * svol * stretch};
}

/// Fundamental derivative of gas dynamics of a mixture in equilibrium. (rho w)^2 = T p'^2 / cv
/// along isentropes, with p' the slope of the saturation line, on which dT/dv = -T p' / cv; cv is
/// linear in the volume at constant temperature, and what it rises by is T p''. \param liq, vap  of
/// the elements at the saturated densities, with third derivatives
[[nodiscard]] inline double mixture_fundamental_derivative(const Mixture<double>& m,
                                                           const Evaluation<double>& liq,
                                                           const Evaluation<double>& vap) noexcept {
  const double slope = saturation_slope(m);
  const double widening = 1.0 / m.vap.dens - 1.0 / m.liq.dens;
  const auto share = [&](const Evaluation<double>& e, const SaturatedPhase<double>& phase,
                         const double bend) {
    return saturated_share(e, m.temp, phase.dens, slope, bend);
  };
  const double bend = (share(vap, m.vap, 0.0).cv - share(liq, m.liq, 0.0).cv) / (m.temp * widening);
  const SaturatedShare of_liq = share(liq, m.liq, bend);
  const SaturatedShare of_vap = share(vap, m.vap, bend);
  const auto dvdt = [&](const Evaluation<double>& e, const double dens) {
    return (dens * e.d.pv_t - slope) / (dens * dens * e.d.dpdd);
  };
  const double dqdt =
      -(dvdt(liq, m.liq.dens) + m.qual * (dvdt(vap, m.vap.dens) - dvdt(liq, m.liq.dens))) /
      widening;
  const double cv = of_liq.cv + m.qual * (of_vap.cv - of_liq.cv);
  const double cv_t =
      of_liq.cv_t + m.qual * (of_vap.cv_t - of_liq.cv_t) + dqdt * (of_vap.cv - of_liq.cv);
  const double temp_share = 1.0 / m.temp + 2.0 * bend / slope - cv_t / cv;
  return 0.5 / m.dens * (temp_share * m.temp * slope + m.temp * bend) / cv;
}

}  // namespace co2_properties
