#include "brayton/recuperator.hpp"

#include <algorithm>

#include "brayton/fluid.hpp"
#include "brayton/search.hpp"

namespace brayton {

std::vector<Station> Recuperator::profile(const std::size_t intervals) const {
  std::vector<Station> stations(intervals + 1);
  for (std::size_t i = 0; i <= intervals; ++i) {
    const double passed = duty * static_cast<double>(i) / static_cast<double>(intervals);
    stations[i] = {passed, temp_from_ph(hot.pres, enth_hot_out() + passed / hot.flow),
                   temp_from_ph(cold.pres, cold.enth_in + passed / cold.flow)};
  }
  return stations;
}

double Recuperator::largest_duty() const {
  const State hot_as_cold = state_tp(temp_from_ph(cold.pres, cold.enth_in), hot.pres);
  const State cold_as_hot = state_tp(temp_from_ph(hot.pres, hot.enth_in), cold.pres);
  return std::min(hot.flow * (hot.enth_in - hot_as_cold.enth),
                  cold.flow * (cold_as_hot.enth - cold.enth_in));
}

Station find_pinch(const std::vector<Station>& profile) {
  return *std::min_element(profile.begin(), profile.end(), [](const Station& a, const Station& b) {
    return a.difference() < b.difference();
  });
}

double conductance(const std::vector<Station>& profile) {
  double sum = 0.0;
  for (std::size_t i = 1; i < profile.size(); ++i) {
    const double slice = profile[i].duty - profile[i - 1].duty;
    sum += 0.5 * slice * (1.0 / profile[i].difference() + 1.0 / profile[i - 1].difference());
  }
  return sum;
}

Recuperator recuperator_with_pinch(const Stream& hot, const Stream& cold, const double difference,
                                   const std::size_t intervals) {
  Recuperator exchanger{hot, cold, 0.0};
  const auto excess = [&](const double duty) {
    exchanger.duty = duty;
    return find_pinch(exchanger.profile(intervals)).difference() - difference;
  };
  if (excess(0.0) <= 0.0) {
    exchanger.duty = 0.0;
    return exchanger;
  }
  exchanger.duty = find_zero(excess, 0.0, exchanger.largest_duty(), 1e-9, 1e-9);
  return exchanger;
}

}  // namespace brayton
