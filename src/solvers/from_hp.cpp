#include "numbers/platform.hpp"

#include "solvers/from_hp.hpp"

#include "solvers/inverse_cell.hpp"

namespace co2_properties {

void temp_from_hp(const double& enth, const double& pres, double& temp,
                  std::int32_t& flag) noexcept {
  const InverseCell& cell = find_inverse_cell(temp_from_hp_fit, pres, enth);
  temp = evaluate_in_enthalpy(cell, pres, enth);
  flag = cell.saturation_check;
}

void dens_from_hp(const double& enth, const double& pres, double& dens) noexcept {
  dens = evaluate_in_enthalpy(find_inverse_cell(dens_from_hp_fit, pres, enth), pres, enth);
}

}  // namespace co2_properties
