#include "numbers/platform.hpp"

#include "fits/conductivity.hpp"

#include "fits/patch.hpp"

namespace co2_properties {

void calculate_cond(const double& dens, const double& temp, double& cond) noexcept {
  cond = evaluate_fit_at(conductivity_fit, temp, dens);
}

}  // namespace co2_properties
