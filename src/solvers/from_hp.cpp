#include "numbers/platform.hpp"

#include "solvers/from_hp.hpp"

#include "solvers/start_values.hpp"

namespace co2_properties {

void temp_from_hp(const double& enth, const double& pres, double& temp,
                  std::int32_t& flag) noexcept {
  const StartState<double> start = start_from_hp<double>(enth, pres);
  temp = start.temp;
  flag = static_cast<std::int32_t>(start.may_be_mixture);
}

void dens_from_hp(const double& enth, const double& pres, double& dens) noexcept {
  dens = start_from_hp<double>(enth, pres).dens;
}

}  // namespace co2_properties
