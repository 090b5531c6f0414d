#pragma once
// Properties of a single-phase state from the derivatives of its Helmholtz energy.

#include <cmath>

#include "eos/helmholtz.hpp"

namespace co2_properties {

/// Pressure, kPa.
[[nodiscard]] inline double pressure(const HelmholtzDerivatives& d, const double dens) noexcept {
  return dens * dens * d.a_d;
}

/// Specific internal energy, kJ/kg.
[[nodiscard]] inline double internal_energy(const HelmholtzDerivatives& d,
                                            const double temp) noexcept {
  return d.a - temp * d.a_t;
}

/// Specific enthalpy, kJ/kg.
[[nodiscard]] inline double enthalpy(const HelmholtzDerivatives& d, const double temp,
                                     const double dens) noexcept {
  return d.a - temp * d.a_t + dens * d.a_d;
}

/// Specific entropy, kJ/(kg K).
[[nodiscard]] inline double entropy(const HelmholtzDerivatives& d) noexcept { return -d.a_t; }

/// Isochoric heat capacity, kJ/(kg K).
[[nodiscard]] inline double isochoric_heat_capacity(const HelmholtzDerivatives& d,
                                                    const double temp) noexcept {
  return -temp * d.a_tt;
}

/// Isobaric heat capacity, kJ/(kg K).
[[nodiscard]] inline double isobaric_heat_capacity(const HelmholtzDerivatives& d, const double temp,
                                                   const double dens) noexcept {
  return temp * (dens * d.a_td * d.a_td / (2.0 * d.a_d + dens * d.a_dd) - d.a_tt);
}

/// Speed of sound, m/s. NaN where the bracket is negative, which needs extrapolation.
[[nodiscard]] inline double speed_of_sound(const HelmholtzDerivatives& d,
                                           const double dens) noexcept {
  constexpr double j_per_kj = 1000.0;
  return std::sqrt(j_per_kj * dens * dens *
                   (d.a_dd - d.a_td * d.a_td / d.a_tt + 2.0 * d.a_d / dens));
}

/// (dp/drho) at constant T, kPa m3/kg.
[[nodiscard]] inline double dpdd(const HelmholtzDerivatives& d, const double dens) noexcept {
  return 2.0 * dens * d.a_d + dens * dens * d.a_dd;
}

/// (dp/dT) at constant density, kPa/K.
[[nodiscard]] inline double dpdt(const HelmholtzDerivatives& d, const double dens) noexcept {
  return dens * dens * d.a_td;
}

/// (dh/drho) at constant T, kJ m3/kg2.
[[nodiscard]] inline double dhdd(const HelmholtzDerivatives& d, const double temp,
                                 const double dens) noexcept {
  return 2.0 * d.a_d - temp * d.a_td + dens * d.a_dd;
}

/// (dh/dT) at constant density, kJ/(kg K).
[[nodiscard]] inline double dhdt(const HelmholtzDerivatives& d, const double temp,
                                 const double dens) noexcept {
  return dens * d.a_td - temp * d.a_tt;
}

/// (ds/drho) at constant T, kJ m3/(kg2 K).
[[nodiscard]] inline double dsdd(const HelmholtzDerivatives& d) noexcept { return -d.a_td; }

/// (ds/dT) at constant density, kJ/(kg K2).
[[nodiscard]] inline double dsdt(const HelmholtzDerivatives& d) noexcept { return -d.a_tt; }

}  // namespace co2_properties
