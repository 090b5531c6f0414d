#include "numbers/platform.hpp"

#include "fits/cp.hpp"

#include "fits/patch.hpp"

namespace co2_properties {

void calculate_cp(const double& dens, const double& temp, double& cp) noexcept {
  cp = evaluate_fit_at(cp_fit, temp, dens);
}

}  // namespace co2_properties
