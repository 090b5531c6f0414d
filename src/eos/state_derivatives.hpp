#pragma once
// Derivatives of a state along any line, from those along its isotherm and its isochore; for one
// state or for several in lanes.

#include "eos/properties.hpp"

namespace co2_properties {

/// What all derivatives of first order of a state follow from. A mixture in equilibrium is a fluid
/// as any other here, with dp/drho = 0 at constant temperature.
template <class Real>
struct StateDerivatives {
  Real temp;  ///< K
  Real dens;  ///< kg/m3
  Real pv;    ///< p / rho, kJ/kg
  Real cv;    ///< kJ/(kg K)
  Real dpdd;  ///< (dp/drho) at constant T, kPa m3/kg
  Real pv_t;  ///< (dp/dT) at constant density over the density, kJ/(kg K)

  /// (dp, dh) over (dT, drho) is a matrix with this determinant, (dp, ds) one with its T-th part:
  /// cv w^2, kJ/(kg K) m2/s2 over 1000. Positive in one phase and in two, and made without
  /// cancellation.
  [[nodiscard, gnu::always_inline]] inline Real determinant() const noexcept {
    return cv * dpdd + temp * (pv_t * pv_t);
  }
};

/// Of a single phase.
template <class Real>
[[nodiscard, gnu::always_inline]] inline StateDerivatives<Real> state_derivatives(
    const Derivatives<Real>& d, const Real& temp, const Real& dens) noexcept {
  return {temp, dens, d.pv, isochoric_heat_capacity(d, temp), d.dpdd, d.pv_t};
}

/// How a single phase and its heat capacity and the derivatives of its pressure change: those that
/// end in _t with temperature, 1/K, at constant density, in _d with density, m3/kg, at constant
/// temperature.
struct StateChanges {
  StateDerivatives<double> d;
  double cv_t, cv_d;
  double dpdt_t;
  double dpdd_t, dpdd_d;
};

/// \param e  with third derivatives
[[nodiscard]] inline StateChanges state_changes(const Evaluation<double>& e, const double temp,
                                                const double dens) noexcept {
  return {state_derivatives(e.d, temp, dens),
          -(e.d.a_tt + temp * e.third.a_ttt),
          -(temp * e.third.pv_tt / dens),
          dens * e.third.pv_tt,
          e.third.dpdd_t,
          e.third.dpdd_d};
}

/// How the speed of sound w of a single phase changes: the logarithm of w^2 with temperature, 1/K,
/// at constant density, and with density, m3/kg, at constant temperature.
struct SoundSpeedChange {
  double temp, dens;
};

/// From w^2 = dp/drho - (dp/dT)^2 / (rho^2 a_TT).
/// \param e  with third derivatives
[[nodiscard]] inline SoundSpeedChange sound_speed_change(const Evaluation<double>& e,
                                                         const double dens) noexcept {
  const double ratio = e.d.pv_t / e.d.a_tt;
  const double square = e.d.dpdd - e.d.pv_t * ratio;
  const double pv_tu = e.third.dpdd_t - e.d.pv_t;  // rho d(pv_t)/drho
  return {(e.third.dpdd_t - ratio * (2.0 * e.third.pv_tt - ratio * e.third.a_ttt)) / square,
          (e.third.dpdd_d - ratio * (2.0 * pv_tu - ratio * e.third.pv_tt) / dens) / square};
}

}  // namespace co2_properties
