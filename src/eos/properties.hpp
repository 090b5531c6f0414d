#pragma once
// Properties of a single-phase state from the derivatives of its Helmholtz energy: of one state, or
// of several in lanes, see api/batch/lanes.hpp.

#include "numbers/platform.hpp"

#include <cmath>

#include "eos/helmholtz.hpp"

namespace co2_properties {

/// Pressure, kPa.
template <class Derivatives = HelmholtzDerivatives, class Real = double>
[[nodiscard, gnu::always_inline]] inline Real pressure(const Derivatives& d,
                                                       const Real& dens) noexcept {
  return dens * dens * d.a_d;
}

/// Specific internal energy, kJ/kg.
template <class Derivatives = HelmholtzDerivatives, class Real = double>
[[nodiscard, gnu::always_inline]] inline Real internal_energy(const Derivatives& d,
                                                              const Real& temp) noexcept {
  return d.a - temp * d.a_t;
}

/// Specific enthalpy, kJ/kg.
template <class Derivatives = HelmholtzDerivatives, class Real = double>
[[nodiscard, gnu::always_inline]] inline Real enthalpy(const Derivatives& d, const Real& temp,
                                                       const Real& dens) noexcept {
  return d.a - temp * d.a_t + dens * d.a_d;
}

/// Specific entropy, kJ/(kg K).
template <class Derivatives = HelmholtzDerivatives>
[[nodiscard, gnu::always_inline]] inline auto entropy(const Derivatives& d) noexcept {
  return -d.a_t;
}

/// Isochoric heat capacity, kJ/(kg K).
template <class Derivatives = HelmholtzDerivatives, class Real = double>
[[nodiscard, gnu::always_inline]] inline Real isochoric_heat_capacity(const Derivatives& d,
                                                                      const Real& temp) noexcept {
  return -temp * d.a_tt;
}

/// Isobaric heat capacity, kJ/(kg K).
template <class Derivatives = HelmholtzDerivatives, class Real = double>
[[nodiscard, gnu::always_inline]] inline Real isobaric_heat_capacity(const Derivatives& d,
                                                                     const Real& temp,
                                                                     const Real& dens) noexcept {
  return temp * (dens * d.a_td * d.a_td / (2.0 * d.a_d + dens * d.a_dd) - d.a_tt);
}

/// Square of the speed of sound, m2/s2.
template <class Derivatives = HelmholtzDerivatives, class Real = double>
[[nodiscard, gnu::always_inline]] inline Real speed_of_sound_squared(const Derivatives& d,
                                                                     const Real& dens) noexcept {
  constexpr double j_per_kj = 1000.0;
  return j_per_kj * dens * dens * (d.a_dd - d.a_td * d.a_td / d.a_tt + 2.0 * d.a_d / dens);
}

/// Speed of sound, m/s. NaN where the square is negative, which needs extrapolation.
[[nodiscard]] inline double speed_of_sound(const HelmholtzDerivatives& d,
                                           const double dens) noexcept {
  return std::sqrt(speed_of_sound_squared(d, dens));
}

/// (dp/drho) at constant T, kPa m3/kg.
template <class Derivatives = HelmholtzDerivatives, class Real = double>
[[nodiscard, gnu::always_inline]] inline Real dpdd(const Derivatives& d,
                                                   const Real& dens) noexcept {
  return 2.0 * dens * d.a_d + dens * dens * d.a_dd;
}

/// (dp/dT) at constant density, kPa/K.
template <class Derivatives = HelmholtzDerivatives, class Real = double>
[[nodiscard, gnu::always_inline]] inline Real dpdt(const Derivatives& d,
                                                   const Real& dens) noexcept {
  return dens * dens * d.a_td;
}

/// (dh/drho) at constant T, kJ m3/kg2.
template <class Derivatives = HelmholtzDerivatives, class Real = double>
[[nodiscard, gnu::always_inline]] inline Real dhdd(const Derivatives& d, const Real& temp,
                                                   const Real& dens) noexcept {
  return 2.0 * d.a_d - temp * d.a_td + dens * d.a_dd;
}

/// (dh/dT) at constant density, kJ/(kg K).
template <class Derivatives = HelmholtzDerivatives, class Real = double>
[[nodiscard, gnu::always_inline]] inline Real dhdt(const Derivatives& d, const Real& temp,
                                                   const Real& dens) noexcept {
  return dens * d.a_td - temp * d.a_tt;
}

/// (ds/drho) at constant T, kJ m3/(kg2 K).
template <class Derivatives = HelmholtzDerivatives>
[[nodiscard, gnu::always_inline]] inline auto dsdd(const Derivatives& d) noexcept {
  return -d.a_td;
}

/// (ds/dT) at constant density, kJ/(kg K2).
template <class Derivatives = HelmholtzDerivatives>
[[nodiscard, gnu::always_inline]] inline auto dsdt(const Derivatives& d) noexcept {
  return -d.a_tt;
}

}  // namespace co2_properties
