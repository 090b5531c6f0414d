#include "numbers/platform.hpp"

#include "fits/viscosity.hpp"

#include "fits/patch.hpp"

namespace co2_properties {

void calculate_visc(const double& dens, const double& temp, double& visc) noexcept {
  visc = evaluate_fit_at(viscosity_fit, temp, dens);
}

}  // namespace co2_properties
