#pragma once
// States to measure with: random but repeatable, by region, in random or in smooth order.

#include <algorithm>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "api/co2_properties.hpp"

namespace co2_properties::bench {

/// A box of temperature, K, and density, kg/m3, from which states are drawn evenly, and the
/// pressures, kPa, between which they are kept.
struct Region {
  const char* name;
  double temp_lo, temp_hi;
  double dens_lo, dens_hi;
  double pres_lo, pres_hi;
  bool two_phase;
};

inline constexpr Region domain = {"domain", temp_min, temp_max, 0.01,
                                  1250,     pres_min, pres_max, false};
inline constexpr Region two_phase = {"two-phase", temp_min, 304, 30, 1100, pres_min, 8000, true};
inline constexpr Region regions[] = {
    domain,
    {"gas", temp_min, 500, 0.1, 200, pres_min, pres_max, false},
    {"liquid", temp_min, 303, 620, 1250, pres_min, pres_max, false},
    {"supercritical", 304.2, temp_max, 1, 1100, pres_min, pres_max, false},
    {"compressor inlet", 302, 319, 150, 780, 7350, 8480, false},  // of supercritical cycles
    {"critical", 304.0, 304.3, 380, 560, 7300, 7500, false},
    two_phase,
};

/// What the library says of one state: the inputs of all four entries.
struct State {
  double temp, dens, pres, enth, entr;
};

/// More states than a branch predictor can learn by heart.
inline constexpr std::size_t state_count = 1 << 15;

/// `state_count` states of a region; in smooth order they follow the density. Drawn when a
/// benchmark first asks for them.
inline const std::vector<State>& draw_states(const Region& region, const bool smooth = false) {
  static std::map<std::pair<std::string, bool>, std::vector<State>> drawn;
  std::vector<State>& result = drawn[{region.name, smooth}];
  if (!result.empty()) return result;
  std::mt19937_64 engine(11);
  std::uniform_real_distribution<double> temps(region.temp_lo, region.temp_hi);
  std::uniform_real_distribution<double> densities(region.dens_lo, region.dens_hi);
  while (result.size() < state_count) {
    State s{temps(engine), densities(engine), 0.0, 0.0, 0.0};
    double cv = 0.0;
    std::int32_t ierr = 0;
    co2_td(s.temp, s.dens, ierr, {.pres = &s.pres, .enth = &s.enth, .entr = &s.entr, .cv = &cv});
    const bool in_region = ierr == (region.two_phase ? status::td_two_phase : status::success);
    if (in_region && s.pres > region.pres_lo && s.pres < region.pres_hi) result.push_back(s);
  }
  if (smooth) {
    std::sort(result.begin(), result.end(),
              [](const State& a, const State& b) { return a.dens < b.dens; });
  }
  return result;
}

/// One input of an entry.
inline std::vector<double> column(const std::vector<State>& states, double State::*const member) {
  std::vector<double> values;
  for (const State& s : states) values.push_back(s.*member);
  return values;
}

/// "subject/outputs/region/order"
inline std::string title(const std::string& subject, const std::string& outputs,
                         const Region& region, const bool smooth) {
  return subject + '/' + outputs + '/' + region.name + (smooth ? "/smooth" : "/shuffled");
}

}  // namespace co2_properties::bench
