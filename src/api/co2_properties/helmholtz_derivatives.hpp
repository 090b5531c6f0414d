#pragma once
// What an element evaluates to.

#include "co2_properties/require_cpp20.hpp"

namespace co2_properties {

/// Specific Helmholtz energy a (kJ/kg) at one state and its derivatives with respect to temperature
/// (K) and density (kg/m3).
struct HelmholtzDerivatives {
  double a;     ///< a, kJ/kg
  double a_t;   ///< (da/dT) at constant density
  double a_d;   ///< (da/drho) at constant temperature
  double a_tt;  ///< second derivative in T
  double a_dd;  ///< second derivative in rho
  double a_td;  ///< mixed second derivative
};

}  // namespace co2_properties
