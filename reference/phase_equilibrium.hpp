#pragma once

#include <cmath>
#include <limits>

#include "reference/elementary.hpp"
#include "reference/span_wagner.hpp"

/// Vapour-liquid equilibrium and density at given (temp, pres) of the Span-Wagner equation, for
/// sampling. Where nothing is said, a bad input or a failed iteration gives NaN.
namespace co2_properties::reference {

/// Triple-point temperature, K (Span & Wagner 1996): the lower end of the saturation line.
inline constexpr double t_triple = 216.592;

/// Upper end of the density searches, kg/m3: above every fluid state up to 800 MPa.
inline constexpr double d_search_max = 1700.0;

/// Saturation state: pres in kPa, dens_liq and dens_vap in kg/m3, slope = dp_sat/dT in kPa/K.
template <class Real>
struct Saturation {
  Real temp, pres, dens_liq, dens_vap, slope;
};

/// Auxiliary equations (3.13) to (3.15) of Span & Wagner (1996), as start values: from 240 K the
/// pressure is within 5e-5, the densities within 1e-4 below 303 K and within 0.7 % close to t_crit.
/// slope stays zero.
template <class Real>
Saturation<Real> auxiliary_saturation(Real temp) {
  using elementary::exp;
  using elementary::pow;
  using elementary::sqrt;
  const Real x = Real(1) - temp / Real(t_crit);
  const Real root = sqrt(x);
  const Real leading = pow(x, Real(0.34L));
  const Real log_pres = Real(t_crit) / temp * x *
                        (Real(-7.0602087L) + Real(1.9391218L) * root - Real(1.6463597L) * x -
                         Real(3.2995634L) * x * x * x);
  const Real log_liq = Real(1.9245108L) * leading - Real(0.62385555L) * root -
                       Real(0.32731127L) * pow(x, Real(5) / Real(3)) +
                       Real(0.39245142L) * pow(x, Real(11) / Real(6));
  const Real log_vap = -Real(1.7074879L) * leading - Real(0.82274670L) * root -
                       Real(4.6008549L) * x - Real(10.111178L) * pow(x, Real(7) / Real(3)) -
                       Real(29.742252L) * pow(x, Real(14) / Real(3));
  return {temp, Real(7377.3L) * exp(log_pres), Real(d_crit) * exp(log_liq),
          Real(d_crit) * exp(log_vap), Real(0)};
}

namespace phase_equilibrium {

/// One side of the equilibrium at fixed temp: Helmholtz energy, pres, entropy and dp/drho at dens.
template <class Real>
struct Side {
  Real dens, a, pres, entr, dpdd;
};

template <class Real>
Side<Real> side(Real temp, Real dens) {
  const Helmholtz<Real> at = helmholtz(temp, dens);
  return {dens, at.a, dens * dens * at.a_d, -at.a_t, dens * (Real(2) * at.a_d + dens * at.a_dd)};
}

/// First mechanically stable state on the way from the critical density outwards through dens.
/// Close to the critical point the auxiliary densities may lie between the spinodals.
template <class Real>
Side<Real> stable_start(Real temp, Real dens) {
  constexpr int tries = 60;
  Side<Real> at = side(temp, dens);
  for (int k = 0; k < tries && !(at.dpdd > Real(0)); ++k) {
    at = side(temp, Real(d_crit) + Real(1.25L) * (at.dens - Real(d_crit)));
  }
  return at;
}

/// State after a Newton step, halved until it stays stable and on its side of the critical density.
template <class Real>
Side<Real> guarded_step(Real temp, const Side<Real>& from, Real step) {
  constexpr int halvings = 40;
  Side<Real> at = from;
  for (int k = 0; k < halvings; ++k, step /= Real(2)) {
    const Real dens = from.dens + step;
    const bool same_side = dens > Real(0) && (dens > Real(d_crit)) == (from.dens > Real(d_crit));
    if (!same_side) continue;
    at = side(temp, dens);
    if (at.dpdd > Real(0)) return at;
  }
  return from;
}

}  // namespace phase_equilibrium

/// Saturation state by Newton's method on equal pressure and equal Gibbs energy.
/// \param temp  K, t_triple to t_crit - 1e-6
/// \return NaN at and above t_crit, and where the two pressures do not agree to 1e-9 in the end (in
/// double closer than 1e-6 K to t_crit)
/// The densities converge to the rounding of the pressure over dp/drho: in long double 1e-16
/// relative at 240 K, 1e-13 at t_crit - 0.01 K, 1e-8 at t_crit - 1e-6 K; in double 2000 times that.
template <class Real>
Saturation<Real> saturation(Real temp) {
  using elementary::fabs;
  using phase_equilibrium::Side;
  constexpr int max_steps = 100;
  constexpr int settled = 8;
  constexpr Real eps = std::numeric_limits<Real>::epsilon();
  constexpr Real nan = std::numeric_limits<Real>::quiet_NaN();
  const Saturation<Real> failed{temp, nan, nan, nan, nan};
  if (!(temp < Real(t_crit))) return failed;
  const Saturation<Real> start = auxiliary_saturation(temp);
  Side<Real> liq = phase_equilibrium::stable_start(temp, start.dens_liq);
  Side<Real> vap = phase_equilibrium::stable_start(temp, start.dens_vap);
  Real last = Real(1);
  for (int k = 0; k < max_steps; ++k) {
    // At fixed temp dg = dp / rho, so both linearised conditions give one common pressure, that of
    // the chord between the two states (equal areas).
    const Real pres = (liq.a - vap.a) / (Real(1) / vap.dens - Real(1) / liq.dens);
    const Real step_liq = (pres - liq.pres) / liq.dpdd;
    const Real step_vap = (pres - vap.pres) / vap.dpdd;
    const Real size = fabs(step_liq) / liq.dens + fabs(step_vap) / vap.dens;
    if (size <= Real(4) * eps || (k > settled && size < Real(1e-4L) && size >= last)) break;
    last = size;
    liq = phase_equilibrium::guarded_step(temp, liq, step_liq);
    vap = phase_equilibrium::guarded_step(temp, vap, step_vap);
  }
  if (!(fabs(liq.pres - vap.pres) < Real(1e-9L) * vap.pres)) return failed;
  const Real slope = (vap.entr - liq.entr) / (Real(1) / vap.dens - Real(1) / liq.dens);
  return {temp, vap.pres, liq.dens, vap.dens, slope};
}

/// Saturation state at given pressure by Newton's method in temp with the Clapeyron slope.
/// \param pres  kPa, from the triple-point pressure (518) up to the pressure at t_crit - 1e-6 K;
/// the result is NaN above that
template <class Real>
Saturation<Real> saturation_at_pressure(Real pres) {
  using elementary::fabs;
  using elementary::log;
  constexpr int max_steps = 50;
  constexpr Real top = Real(t_crit) - Real(1e-6L);
  constexpr Real eps = std::numeric_limits<Real>::epsilon();
  // The logarithm of the vapour pressure is nearly linear in 1 / T.
  Real temp = Real(t_crit) / (Real(1) - log(pres / Real(7377.3L)) / Real(7));
  if (temp > top) temp = top;
  Saturation<Real> at = saturation(temp);
  Real last = Real(t_crit);
  for (int k = 0; k < max_steps; ++k) {
    const Real step = (pres - at.pres) / at.slope;
    if (!(fabs(step) < last)) break;
    last = fabs(step);
    const Real next = temp + step;
    temp = next < top ? next : (temp + top) / Real(2);
    at = saturation(temp);
    if (last <= Real(2) * eps * temp) break;
  }
  constexpr Real nan = std::numeric_limits<Real>::quiet_NaN();
  if (!(fabs(pres - at.pres) < Real(1e-9L) * pres)) return {nan, pres, nan, nan, nan};
  return at;
}

/// Density in [low, high] with pressure pres, by Newton's method kept inside a shrinking bracket.
/// The pressure must rise with density over the bracket. A pres beyond the pressures at its ends
/// gives the nearer end.
/// \param start  first guess, kg/m3; one outside the bracket is replaced by the middle
template <class Real>
Real density_between(Real temp, Real pres, Real low, Real high, Real start) {
  using elementary::fabs;
  constexpr int max_steps = 200;
  constexpr Real eps = std::numeric_limits<Real>::epsilon();
  Real dens = start;
  for (int k = 0; k < max_steps; ++k) {
    if (!(dens > low && dens < high)) dens = low + (high - low) / Real(2);
    const auto at = phase_equilibrium::side(temp, dens);
    (at.pres < pres ? low : high) = dens;
    const Real step = (pres - at.pres) / at.dpdd;
    dens += step;
    if (fabs(step) <= Real(2) * eps * dens || high - low <= eps * high) break;
  }
  if (dens < low) return low;
  return dens > high ? high : dens;
}

/// Which single-phase density a (temp, pres) pair means.
enum class Phase { liquid, vapour, supercritical };

/// Density of the liquid or vapour at the temperature of sat, kg/m3: for sampling an isotherm below
/// t_crit with one equilibrium calculation.
/// \param pres  kPa, > 0, up to 800000; a liquid below, or a vapour above the saturation pressure
///              gives the saturated density
template <class Real>
Real density(const Saturation<Real>& sat, Real pres, Phase phase) {
  if (phase == Phase::vapour) {
    const Real ideal = pres / (Real(gas_constant) * sat.temp);
    return density_between(sat.temp, pres, Real(0), sat.dens_vap, ideal);
  }
  const auto at = phase_equilibrium::side(sat.temp, sat.dens_liq);
  const Real start = sat.dens_liq + (pres - sat.pres) / at.dpdd;
  return density_between(sat.temp, pres, sat.dens_liq, Real(d_search_max), start);
}

/// Density of a single-phase state, kg/m3.
/// \param temp   K, from t_triple; supercritical needs temp >= t_crit, the other two the range of
///               saturation()
/// \param pres   kPa, as above
template <class Real>
Real density(Real temp, Real pres, Phase phase) {
  if (phase != Phase::supercritical) return density(saturation(temp), pres, phase);
  const Real ideal = pres / (Real(gas_constant) * temp);
  return density_between(temp, pres, Real(0), Real(d_search_max), ideal);
}

/// The same with the phase taken from temp and the saturation pressure; at that pressure the
/// liquid.
template <class Real>
Real density(Real temp, Real pres) {
  if (!(temp < Real(t_crit))) return density(temp, pres, Phase::supercritical);
  const Saturation<Real> sat = saturation(temp);
  return density(sat, pres, pres < sat.pres ? Phase::vapour : Phase::liquid);
}

}  // namespace co2_properties::reference
