#include "numbers/platform.hpp"

#include "api/entries/derivative_writer.hpp"

#include <cstddef>

#include "eos/element_locator.hpp"
#include "saturation/mixture_derivatives.hpp"

namespace co2_properties {
namespace {

using O = DerivativeSet;

/// Members of the set that are treated alike.
template <double* O::*... members>
struct Members {
  [[gnu::always_inline]] static inline bool wanted(const DerivativeSet& out) noexcept {
    return wants<members...>(out);
  }
  static void put_zeros(const DerivativeSet& out, const std::int32_t at) noexcept {
    for (double* const slot : {out.*members...}) {
      if (slot != nullptr) slot[at] = 0.0;
    }
  }
};
using OfTransport = Members<&O::dviscdd_t, &O::dviscdt_d, &O::dconddd_t, &O::dconddt_d>;
using OfSound = Members<&O::fundam, &O::dssnddd_t, &O::dssnddt_d>;
using OfSinglePhaseSound = Members<&O::dssnddd_t, &O::dssnddt_d>;
using OfQuality = Members<&O::dqualdd_t, &O::dqualdt_d>;
using Divergent = Members<&O::compr_t, &O::expan_p>;

void put(double* const slot, const std::int32_t at, const double value) noexcept {
  if (slot != nullptr) slot[at] = value;
}

[[gnu::always_inline]] inline StateDerivatives<double> phase_derivatives(
    const StateDerivatives<double>& of_element) noexcept {
  const bool near = near_critical_box.contains(of_element.temp, of_element.dens);
  return near ? near_critical_derivatives(of_element) : of_element;
}

[[gnu::always_inline]] inline StateDerivatives<double> saturated_derivatives(
    const SaturatedPhase<double>& phase, const double temp) noexcept {
  return phase_derivatives(state_derivatives(phase.d, temp, phase.dens));
}

// ---- Single phases -----------------------------------------------------------------------------

/// Of the element that holds a state.
Evaluation<double> third_derivatives(const Region region, const double temp,
                                     const double dens) noexcept {
  const Cells<double> cells = {&element(element_locator.find(region, temp, dens))};
  return expand_density(isotherm<double, Order::third>(cells, temp), dens, logarithm(dens));
}

/// Of the fit around the critical point, else of the element that holds the state.
SoundSpeedChange change_of_sound_speed(const double temp, const double dens) noexcept {
  if (near_critical_box.contains(temp, dens)) {
    const FitGradient w = fit_gradient(sound_speed_fit, temp, dens);
    return {2.0 * w.temp / w.value, 2.0 * w.dens / w.value};
  }
  const Region region = !(temp < t_crit) ? Region::supercritical
                        : dens > d_crit  ? Region::liquid
                                         : Region::vapour;
  return sound_speed_change(third_derivatives(region, temp, dens), dens);
}

void put_sound_derivatives(const DerivativeSet& out, const std::int32_t at,
                           const StateDerivatives<double>& d) noexcept {
  constexpr double j_per_kj = 1000.0;
  const SoundSpeedChange change = change_of_sound_speed(d.temp, d.dens);
  const double half_ssnd = 0.5 * root(j_per_kj * d.determinant() / d.cv);
  put(out.dssnddd_t, at, half_ssnd * change.dens);
  put(out.dssnddt_d, at, half_ssnd * change.temp);
  const double dtdd_s = d.temp * d.pv_t / (d.dens * d.cv);
  put(out.fundam, at, 1.0 + 0.5 * d.dens * (change.dens + change.temp * dtdd_s));
}

void put_transport_derivatives(const DerivativeSet& out, const std::int32_t at, const double temp,
                               const double dens) noexcept {
  const FitGradient visc = fit_gradient(viscosity_fit, temp, dens);
  put(out.dviscdd_t, at, visc.dens);
  put(out.dviscdt_d, at, visc.temp);
  const FitGradient cond = fit_gradient(conductivity_fit, temp, dens);
  put(out.dconddd_t, at, cond.dens);
  put(out.dconddt_d, at, cond.temp);
}

/// Of the lever value, in two phases or in one.
void put_quality_derivatives(const DerivativeSet& out, const std::int32_t at,
                             const Mixture<double>& m, const StateDerivatives<double>& liq,
                             const StateDerivatives<double>& vap) noexcept {
  const double slope = saturation_slope(m);
  const auto dvdt = [&](const StateDerivatives<double>& phase) {
    return (phase.pv_t - slope / phase.dens) / (phase.dens * phase.dpdd);
  };
  const double per_width = m.vap.dens * m.liq.dens / (m.liq.dens - m.vap.dens);
  const double dvdt_liq = dvdt(liq);
  put(out.dqualdd_t, at, -per_width / (m.dens * m.dens));
  put(out.dqualdt_d, at, -per_width * (dvdt_liq + m.qual * (dvdt(vap) - dvdt_liq)));
}

// ---- Mixtures ----------------------------------------------------------------------------------

/// By the fits of w, cv and cp around the critical point: the derivatives of
///   (dp/drho) = w^2 cv / cp,
/// and (d2p/dT2) = -rho^2 (dcv/drho) / T, since (dp/dT) would take the difference of large numbers.
StateChanges near_critical_changes(const StateDerivatives<double>& d) noexcept {
  const FitGradient w = fit_gradient(sound_speed_fit, d.temp, d.dens);
  const FitGradient cv = fit_gradient(cv_fit, d.temp, d.dens);
  const FitGradient cp = fit_gradient(cp_fit, d.temp, d.dens);
  const auto of_dpdd = [&](double FitGradient::*const by) {
    return d.dpdd * (2.0 * w.*by / w.value + cv.*by / cv.value - cp.*by / cp.value);
  };
  return {d,
          cv.temp,
          cv.dens,
          -(d.dens * d.dens * cv.dens / d.temp),
          of_dpdd(&FitGradient::temp),
          of_dpdd(&FitGradient::dens)};
}

/// Of the elements up to a temperature, K, beyond which the densities of both phases have all fits.
/// Up to there the elements of the saturated liquid give the fundamental derivative of mixtures to
/// 7e-3 and the fits, at their end, to 0.2; beyond it is 0.4 and 0.02.
StateChanges saturated_changes(const Region region, const double temp,
                               const SaturatedPhase<double>& phase) noexcept {
  constexpr double elements_end = 303.83;
  if (temp > elements_end) return near_critical_changes(saturated_derivatives(phase, temp));
  return state_changes(third_derivatives(region, temp, phase.dens), temp, phase.dens);
}

}  // namespace

void write_derivatives(const DerivativeSet& out, const std::int32_t at,
                       const Mixture<double>& m) noexcept {
  const StateDerivatives<double> liq = saturated_derivatives(m.liq, m.temp);
  const StateDerivatives<double> vap = saturated_derivatives(m.vap, m.temp);
  put_derivatives(out, at, mixture_derivatives(m, liq, vap));
  Divergent::put_zeros(out, at);
  if (!wants_more_derivatives(out)) return;
  OfTransport::put_zeros(out, at);
  OfSinglePhaseSound::put_zeros(out, at);
  if (m.liq.dens == m.vap.dens) {  // at the critical temperature, where they are infinite
    put(out.fundam, at, 0.0);
    OfQuality::put_zeros(out, at);
    return;
  }
  if (out.fundam != nullptr) {
    out.fundam[at] =
        mixture_fundamental_derivative(m, saturated_changes(Region::liquid, m.temp, m.liq),
                                       saturated_changes(Region::vapour, m.temp, m.vap));
  }
  put_quality_derivatives(out, at, m, liq, vap);
}

[[gnu::noinline]] StateDerivatives<double> near_critical_derivatives(
    const StateDerivatives<double>& of_element) noexcept {
  constexpr double kj_per_j = 1e-3;
  StateDerivatives<double> d = of_element;
  const double ssnd = evaluate_fit_at(sound_speed_fit, d.temp, d.dens);
  const double square = kj_per_j * (ssnd * ssnd);
  d.cv = evaluate_fit_at(cv_fit, d.temp, d.dens);
  if (d.dens > near_critical_box_for_cp.dens_lo) {
    d.dpdd = square * d.cv / evaluate_fit_at(cp_fit, d.temp, d.dens);
  }
  d.pv_t = root((square - d.dpdd) * d.cv / d.temp);
  return d;
}

bool wants_single_phase_derivatives(const DerivativeSet& out) noexcept {
  return Divergent::wanted(out) || OfTransport::wanted(out) || OfSinglePhaseSound::wanted(out);
}

bool wants_more_derivatives(const DerivativeSet& out) noexcept {
  return OfTransport::wanted(out) || OfSound::wanted(out) || OfQuality::wanted(out);
}

void put_more_derivatives(const DerivativeSet& out, const std::int32_t at,
                          const StateDerivatives<double>& d) noexcept {
  if (OfSound::wanted(out)) put_sound_derivatives(out, at, d);
  if (OfTransport::wanted(out)) put_transport_derivatives(out, at, d.temp, d.dens);
  if (!OfQuality::wanted(out)) return;
  if (d.temp < t_crit) {
    const Mixture<double> m =
        mixture_from_td(d.temp, d.dens, saturated_liquid(d.temp), saturated_vapour(d.temp));
    put_quality_derivatives(out, at, m, saturated_derivatives(m.liq, d.temp),
                            saturated_derivatives(m.vap, d.temp));
  } else {
    OfQuality::put_zeros(out, at);
  }
}

void write_derivatives(const DerivativeSet& out, const double temp, const double dens,
                       const double pv, const double cv, const double dpdd,
                       const double pv_t) noexcept {
  const StateDerivatives<double> d = phase_derivatives({temp, dens, pv, cv, dpdd, pv_t});
  put_derivatives(out, 0, d);
  put_single_derivatives(out, 0, d);
  if (wants_more_derivatives(out)) put_more_derivatives(out, 0, d);
}

void write_derivatives(const DerivativeSet& out, const std::int32_t at, const double* const lanes,
                       const std::int32_t count) noexcept {
  constexpr std::size_t numbers = sizeof(Mixture<double>) / sizeof(double);
  struct Numbers {
    double of[numbers];
  };
  const auto step = static_cast<std::size_t>(count);
  for (std::size_t k = 0; k < step; ++k) {
    Numbers one;
    for (std::size_t i = 0; i < numbers; ++i) one.of[i] = lanes[i * step + k];
    const auto m = bit_cast<Mixture<double>>(one);
    // A lane that does not count may be far from any mixture, and would raise exceptions.
    if (m.qual > -0.01 && m.qual < 1.01) {
      write_derivatives(out, at + static_cast<std::int32_t>(k), m);
    }
  }
}

}  // namespace co2_properties
