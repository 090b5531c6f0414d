#pragma once
// Properties of a single-phase state from the derivatives of its Helmholtz energy, for one state or
// for several in lanes.

#include "numbers/platform.hpp"

#include "eos/helmholtz.hpp"

namespace co2_properties {

/// Pressure, kPa.
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real pressure(const Derivatives<Real>& d,
                                                       const Real& dens) noexcept {
  return dens * d.pv;
}

/// Specific internal energy, kJ/kg.
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real internal_energy(const Derivatives<Real>& d,
                                                              const Real& temp) noexcept {
  return d.a - temp * d.a_t;
}

/// Specific enthalpy, kJ/kg.
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real enthalpy(const Derivatives<Real>& d,
                                                       const Real& temp) noexcept {
  return internal_energy(d, temp) + d.pv;
}

/// Specific entropy, kJ/(kg K).
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real entropy(const Derivatives<Real>& d) noexcept {
  return -d.a_t;
}

/// Isochoric heat capacity, kJ/(kg K).
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real isochoric_heat_capacity(const Derivatives<Real>& d,
                                                                      const Real& temp) noexcept {
  return -(temp * d.a_tt);
}

/// Determinant of which both other second derivatives are made, kJ2/(kg2 K2): (dp/dT)^2 / rho^2 -
/// a_TT dp/drho, positive in a stable fluid and there without cancellation.
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real stability(const Derivatives<Real>& d) noexcept {
  return d.pv_t * d.pv_t - d.a_tt * d.dpdd;
}

/// Isobaric heat capacity, kJ/(kg K).
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real isobaric_heat_capacity(const Derivatives<Real>& d,
                                                                     const Real& temp) noexcept {
  return temp * stability(d) / d.dpdd;
}

/// Square of the speed of sound, m2/s2. Negative only where elements are extrapolated.
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real speed_of_sound_squared(
    const Derivatives<Real>& d) noexcept {
  constexpr double j_per_kj = 1000.0;
  return -j_per_kj * stability(d) / d.a_tt;
}

/// (dp/dT) at constant density, kPa/K.
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real dpdt(const Derivatives<Real>& d,
                                                   const Real& dens) noexcept {
  return dens * d.pv_t;
}

/// (dh/drho) at constant T, kJ m3/kg2.
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real dhdd(const Derivatives<Real>& d, const Real& temp,
                                                   const Real& dens) noexcept {
  return (d.dpdd - temp * d.pv_t) / dens;
}

/// (dh/dT) at constant density, kJ/(kg K).
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real dhdt(const Derivatives<Real>& d,
                                                   const Real& temp) noexcept {
  return d.pv_t - temp * d.a_tt;
}

/// (ds/drho) at constant T, kJ m3/(kg2 K).
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real dsdd(const Derivatives<Real>& d,
                                                   const Real& dens) noexcept {
  return -(d.pv_t / dens);
}

/// (ds/dT) at constant density, kJ/(kg K2).
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real dsdt(const Derivatives<Real>& d) noexcept {
  return -d.a_tt;
}

}  // namespace co2_properties
