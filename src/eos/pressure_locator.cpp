#include "numbers/platform.hpp"

#include "eos/pressure_locator.hpp"

namespace co2_properties {
namespace {

/// Whether a state lies on or above a curve. Up to the start of a curve on the saturation line
/// all vapour is thinner, and all liquid denser.
[[nodiscard]] bool reaches(const IsochoreCurve& curve, const bool is_liquid, const double temp,
                           const double pres) noexcept {
  const bool above = !(pres < evaluate_curve(curve, temp));
  return is_liquid ? temp < curve.temp_start || above : temp > curve.temp_start && above;
}

}  // namespace

std::int32_t PressureLocator::resolve(const std::int64_t interval, const std::uint16_t entry,
                                      const bool is_liquid, const double temp,
                                      const double pres) const noexcept {
  const TpRow* const row = rows + first[interval];
  const auto above = [&](const std::int32_t k) {
    return static_cast<std::int32_t>(reaches(curves[row[k + 1].curve], is_liquid, temp, pres));
  };
  if (entry == PressureEntry::crowded) {
    std::int32_t count = 0;
    const std::int32_t all = first[interval + 1] - first[interval] - 1;
    while (count < all && above(count) != 0) ++count;
    return row[count].element;
  }
  const std::int32_t start = entry - PressureEntry::mixed;
  return row[start + above(start) + above(start + 1)].element;
}

}  // namespace co2_properties
