#include "numbers/platform.hpp"

#include "eos/helmholtz.hpp"

namespace co2_properties {

HelmholtzDerivatives element_derivatives(const std::int32_t& e, const double& temp,
                                         const double& dens) noexcept {
  return plain(evaluate(element(e), temp, dens), dens);
}

}  // namespace co2_properties
