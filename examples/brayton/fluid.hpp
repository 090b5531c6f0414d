#pragma once
// States of carbon dioxide as the cycle needs them.

#include <stdexcept>

namespace brayton {

/// The library reported an error, or a result too loose for an energy balance; the text names the
/// call, the status and what it means.
struct StateError : std::runtime_error {
  using runtime_error::runtime_error;
};

struct State {
  double temp = 0.0;  ///< temperature, K
  double pres = 0.0;  ///< pressure, kPa
  double enth = 0.0;  ///< specific enthalpy, kJ/kg
  double entr = 0.0;  ///< specific entropy, kJ/(kg K)
  double dens = 0.0;  ///< density, kg/m3
  double cp = 0.0;    ///< isobaric heat capacity, kJ/(kg K); 0 in two phases
  double ssnd = 0.0;  ///< speed of sound, m/s; 0 in two phases
};

// All of these throw StateError.

[[nodiscard]] State state_tp(double temp, double pres);
[[nodiscard]] State state_ph(double pres, double enth);
[[nodiscard]] State state_ps(double pres, double entr);

/// Temperature, K, alone.
[[nodiscard]] double temp_from_ph(double pres, double enth);

/// Saturated liquid and vapour at a temperature up to the critical one, K.
[[nodiscard]] State saturated_liquid(double temp);
[[nodiscard]] State saturated_vapour(double temp);

}  // namespace brayton
