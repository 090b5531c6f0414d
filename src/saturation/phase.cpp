#include "numbers/platform.hpp"

#include "saturation/phase.hpp"

#include "eos/helmholtz.hpp"
#include "eos/locate_td.hpp"

namespace co2_properties {

SaturatedPhase saturated_liquid(const double temp, const double dens) noexcept {
  const std::int32_t e = liq_index_from_td(temp, dens);
  return {e, dens, element_derivatives(e, temp, dens)};
}

SaturatedPhase saturated_vapour(const double temp, const double dens) noexcept {
  const std::int32_t e = vap_index_from_td(temp, dens);
  return {e, dens, element_derivatives(e, temp, dens)};
}

}  // namespace co2_properties
