#include "numbers/platform.hpp"

#include "eos/locate_td.hpp"

namespace co2_properties {

std::int32_t vap_index_from_td(const double& temp, const double& dens) noexcept {
  return find_cell(vapour_map, temp, dens);
}

std::int32_t liq_index_from_td(const double& temp, const double& dens) noexcept {
  return find_cell(liquid_map, temp, dens);
}

std::int32_t sc_index_from_td(const double& temp, const double& dens) noexcept {
  return find_cell(supercritical_map, temp, dens);
}

}  // namespace co2_properties
