#pragma once
// What is peculiar to density and internal energy, enthalpy, entropy, pressure.

#include "api/entries/density.hpp"
#include "co2_properties/status.hpp"
#include "eos/property_types.hpp"

namespace co2_properties {

struct DuPair {
  static constexpr DensityCodes codes = {status::du_temp_below_min, status::du_temp_above_max,
                                         status::du_pres_below_min, status::du_pres_above_max,
                                         status::du_not_converged,  status::du_two_phase};
  using Property = InternalEnergy;
  static constexpr double least = 0.0;  // kJ/kg
  static constexpr double greatest = 2000.0;
};

struct DhPair {
  static constexpr DensityCodes codes = {status::dh_temp_below_min, status::dh_temp_above_max,
                                         status::dh_pres_below_min, status::dh_pres_above_max,
                                         status::dh_not_converged,  status::dh_two_phase};
  using Property = Enthalpy;
  static constexpr double least = 0.0;  // kJ/kg
  static constexpr double greatest = 2500.0;
};

struct DsPair {
  static constexpr DensityCodes codes = {status::ds_temp_below_min, status::ds_temp_above_max,
                                         status::ds_pres_below_min, status::ds_pres_above_max,
                                         status::ds_not_converged,  status::ds_two_phase};
  using Property = Entropy;
  static constexpr double least = 0.0;  // kJ/(kg K)
  static constexpr double greatest = 6.0;
};

struct DpPair {
  static constexpr DensityCodes codes = {status::dp_temp_below_min, status::dp_temp_above_max,
                                         status::dp_pres_below_min, status::dp_pres_above_max,
                                         status::dp_not_converged,  status::dp_two_phase};
  using Property = Pressure;
  static constexpr double least = 0.99 * pres_min;  // kPa
  static constexpr double greatest = 1.01 * pres_max;
};

}  // namespace co2_properties
