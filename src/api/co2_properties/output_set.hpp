#pragma once
// The nineteen results of a state, each of them optional.

#include "co2_properties/require_cpp20.hpp"

namespace co2_properties {

/// Where the results of a state go; a null pointer means that the result is not asked for: it is
/// then neither computed nor written. With designated initializers:
/// `co2_td(temp, dens, ierr, {.pres = &p, .enth = &h})`.
struct OutputSet {
  // outputs: begin, written by scripts/generate_outputs
  double* temp = nullptr;  ///< temperature, K
  double* pres = nullptr;  ///< pressure, kPa
  double* dens = nullptr;  ///< density, kg/m3
  double* svol = nullptr;  ///< specific volume, m3/kg
  /// Vapour mass fraction (998, 999: supercritical). Below the critical temperature the lever
  /// value, not clipped: below 0 in liquid, above 1 in vapour. At or above it 998 below the
  /// critical pressure, else 999.
  double* qual = nullptr;
  double* inte = nullptr;  ///< specific internal energy, kJ/kg
  /// Specific enthalpy, kJ/kg. 200 for saturated liquid at 273.15 K.
  double* enth = nullptr;
  /// Specific entropy, kJ/(kg K). 1 for saturated liquid at 273.15 K.
  double* entr = nullptr;
  double* cv = nullptr;    ///< isochoric heat capacity, kJ/(kg K)
  double* cp = nullptr;    ///< isobaric heat capacity, kJ/(kg K)
  double* ssnd = nullptr;  ///< speed of sound, m/s
  double* visc = nullptr;  ///< viscosity, uPa s
  double* cond = nullptr;  ///< thermal conductivity, W/(m K)
  double* dpdd = nullptr;  ///< dp/drho at constant temperature, kPa m3/kg
  double* dpdt = nullptr;  ///< dp/dT at constant density, kPa/K
  double* dhdd = nullptr;  ///< dh/drho at constant temperature, kJ m3/kg2
  double* dhdt = nullptr;  ///< dh/dT at constant density, kJ/(kg K)
  double* dsdd = nullptr;  ///< ds/drho at constant temperature, kJ m3/(kg2 K)
  double* dsdt = nullptr;  ///< ds/dT at constant density, kJ/(kg K2)
  // outputs: end
};

}  // namespace co2_properties
