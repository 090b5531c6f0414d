#include "numbers/platform.hpp"

#include "eos/locate_tp.hpp"

#include "eos/pressure_locator.hpp"

namespace co2_properties {

std::int32_t vap_index_from_tp(const double& temp, const double& pres) noexcept {
  return pressure_locator.find(Region::vapour, temp, pres);
}

std::int32_t liq_index_from_tp(const double& temp, const double& pres) noexcept {
  return pressure_locator.find(Region::liquid, temp, pres);
}

std::int32_t sc_index_from_tp(const double& temp, const double& pres) noexcept {
  return pressure_locator.find(Region::supercritical, temp, pres);
}

}  // namespace co2_properties
