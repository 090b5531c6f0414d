#include "eos/locate_tp.hpp"

namespace co2_properties {
namespace {

/// The highest row of the temperature's interval whose lower edge is not above the state.
/// \param reaches  whether the state lies on or above a curve; true up to some row, false from
/// there
template <class Reaches>
std::int32_t find_element(const TpMap& map, const double temp, const Reaches& reaches) noexcept {
  const std::int32_t i = interval(map.temp, temp);
  const TpRow* row = map.rows + map.first[i];
  std::int32_t length = map.first[i + 1] - map.first[i] - 1;
  while (length > 0) {
    const std::int32_t half = (length + 1) / 2;
    row += static_cast<std::int32_t>(reaches(map.curves[row[half].curve])) * half;
    length -= half;
  }
  return row->element;
}

}  // namespace

std::int32_t vap_index_from_tp(const double& temp, const double& pres) noexcept {
  return find_element(vapour_tp_map, temp, [&](const IsochoreCurve& curve) noexcept {
    return temp > curve.temp_start && !(pres < evaluate_curve(curve, temp));
  });
}

std::int32_t liq_index_from_tp(const double& temp, const double& pres) noexcept {
  return find_element(liquid_tp_map, temp, [&](const IsochoreCurve& curve) noexcept {
    return temp < curve.temp_start || !(pres < evaluate_curve(curve, temp));
  });
}

std::int32_t sc_index_from_tp(const double& temp, const double& pres) noexcept {
  return find_element(supercritical_tp_map, temp, [&](const IsochoreCurve& curve) noexcept {
    return !(pres < evaluate_curve(curve, temp));
  });
}

}  // namespace co2_properties
