#include "numbers/platform.hpp"

#include "eos/helmholtz.hpp"

#include <cmath>

namespace co2_properties {

HelmholtzDerivatives element_derivatives(const std::int32_t& e, const double& temp,
                                         const double& dens) noexcept {
  return evaluate(element(e), temp, dens, std::log(dens));
}

}  // namespace co2_properties
