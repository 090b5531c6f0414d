#include "numbers/platform.hpp"

#include "solvers/from_sp.hpp"

#include <cmath>

#include "solvers/inverse_cell.hpp"

namespace co2_properties {

void temp_from_sp(const double& entr, const double& pres, double& temp,
                  std::int32_t& flag) noexcept {
  const InverseCell& cell = find_inverse_cell(temp_from_sp_fit, pres, entr);
  temp = evaluate_in_entropy(cell, pres, std::log(pres), entr);
  flag = cell.saturation_check;
}

void dens_from_sp(const double& entr, const double& pres, double& dens) noexcept {
  const InverseCell& cell = find_inverse_cell(dens_from_sp_fit, pres, entr);
  dens = evaluate_in_entropy(cell, pres, std::log(pres), entr);
}

}  // namespace co2_properties
