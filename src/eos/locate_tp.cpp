#include "numbers/platform.hpp"

#include "eos/locate_tp.hpp"

namespace co2_properties {
std::int32_t vap_index_from_tp(const double& temp, const double& pres) noexcept {
  return vapour_tp_map.find_element(temp, pres, [&](const IsochoreCurve& curve) noexcept {
    return temp > curve.temp_start && !(pres < evaluate_curve(curve, temp));
  });
}

std::int32_t liq_index_from_tp(const double& temp, const double& pres) noexcept {
  return liquid_tp_map.find_element(temp, pres, [&](const IsochoreCurve& curve) noexcept {
    return temp < curve.temp_start || !(pres < evaluate_curve(curve, temp));
  });
}

std::int32_t sc_index_from_tp(const double& temp, const double& pres) noexcept {
  return supercritical_tp_map.find_element(temp, pres, [&](const IsochoreCurve& curve) noexcept {
    return !(pres < evaluate_curve(curve, temp));
  });
}

}  // namespace co2_properties
