#include "numbers/platform.hpp"

#include "eos/locate_td.hpp"

#include "eos/element_locator.hpp"

namespace co2_properties {

std::int32_t vap_index_from_td(const double& temp, const double& dens) noexcept {
  return element_locator.find(Region::vapour, temp, dens);
}

std::int32_t liq_index_from_td(const double& temp, const double& dens) noexcept {
  return element_locator.find(Region::liquid, temp, dens);
}

std::int32_t sc_index_from_td(const double& temp, const double& dens) noexcept {
  return element_locator.find(Region::supercritical, temp, dens);
}

}  // namespace co2_properties
