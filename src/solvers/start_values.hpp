#pragma once
// Start values of temperature, K, and density, kg/m3, together: as from_hp.hpp and from_sp.hpp.

#include <cmath>

#include "solvers/inverse_cell.hpp"

namespace co2_properties {

/// From enthalpy, kJ/kg, and pressure, kPa. \return whether the state may be two-phase
[[nodiscard]] inline bool start_from_hp(const double enth, const double pres, double& temp,
                                        double& dens) noexcept {
  const InverseCell& cell = find_inverse_cell(temp_from_hp_fit, pres, enth);
  temp = evaluate_in_enthalpy(cell, pres, enth);
  dens = evaluate_in_enthalpy(find_inverse_cell(dens_from_hp_fit, pres, enth), pres, enth);
  return cell.saturation_check != 0;
}

/// From entropy, kJ/(kg K), and pressure, kPa. \return whether the state may be two-phase
[[nodiscard]] inline bool start_from_sp(const double entr, const double pres, double& temp,
                                        double& dens) noexcept {
  const InverseCell& cell = find_inverse_cell(temp_from_sp_fit, pres, entr);
  const double log_pres = std::log(pres);
  temp = evaluate_in_entropy(cell, pres, log_pres, entr);
  dens = evaluate_in_entropy(find_inverse_cell(dens_from_sp_fit, pres, entr), pres, log_pres, entr);
  return cell.saturation_check != 0;
}

}  // namespace co2_properties
