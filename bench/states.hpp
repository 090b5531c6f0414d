#pragma once
// States to measure with: repeatable, by region, drawn at random or along a path.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <map>
#include <mutex>
#include <random>
#include <string>
#include <vector>

#include "api/co2_properties.hpp"
#include "fits/near_critical.hpp"

namespace co2_properties::bench {

/// A box of temperature, K, and density, kg/m3, from which states are drawn evenly, and the
/// pressures, kPa, between which they are kept.
struct Region {
  const char* name;
  double temp_lo, temp_hi;
  double dens_lo, dens_hi;
  double pres_lo = pres_min, pres_hi = pres_max;
  bool two_phase = false;
  bool smooth = false;
};

inline constexpr Region domain = {"domain", temp_min, temp_max, 0.01, 1250};
inline constexpr Region path = {.name = "path through the domain",
                                .temp_lo = domain.temp_lo,
                                .temp_hi = domain.temp_hi,
                                .dens_lo = domain.dens_lo,
                                .dens_hi = domain.dens_hi,
                                .smooth = true};
inline constexpr Region gas = {"gas", temp_min, 500, 0.1, 200};
inline constexpr Region liquid = {"liquid", temp_min, 303, 620, 1250};
inline constexpr Region supercritical = {"supercritical", 304.2, temp_max, 1, 1100};
/// Of the compressor of supercritical cycles.
inline constexpr Region inlet = {"compressor inlet", 302, 319, 150, 780, 7350, 8480};
/// Where cv, cp and the speed of sound come from fits of their own.
inline constexpr Region critical_box = {"critical box", near_critical_box.temp_lo,
                                        near_critical_box.temp_hi, near_critical_box.dens_lo,
                                        near_critical_box.dens_hi};
/// The heart of the box.
inline constexpr Region critical_point = {"critical point", 304.0, 304.3, 380, 560, 7300, 7500};
inline constexpr Region two_phase = {"two-phase", temp_min, 304, 30, 1100, pres_min, 8000, true};

/// What the library says of one state: the inputs of all entries.
struct State {
  double temp, dens, pres, inte, enth, entr;
};

/// More states than a branch predictor can learn by heart.
inline constexpr std::size_t state_count = 1 << 15;

/// One point after the other in the unit square: at random, or along a curve that fills the square
/// and on which an element serves fifty points in a row on average.
class Points {
 public:
  explicit Points(const bool smooth) : smooth_(smooth) {}
  struct Point {
    double x, y;
  };
  Point next() {
    if (!smooth_) {
      const double x = even_(engine_);
      return {x, even_(engine_)};
    }
    t_ += 1e-3;
    return {0.5 - 0.5 * std::cos(t_), 0.5 - 0.5 * std::cos(std::sqrt(2.0) * t_)};
  }

 private:
  bool smooth_;
  double t_ = 0.0;
  std::mt19937_64 engine_{11};
  std::uniform_real_distribution<double> even_{0.0, 1.0};
};

/// `state_count` states of a region, drawn when they are first asked for.
inline const std::vector<State>& draw_states(const Region& region) {
  static std::mutex drawing;
  static std::map<std::string, std::vector<State>> drawn;
  const std::lock_guard<std::mutex> lock(drawing);
  std::vector<State>& result = drawn[region.name];
  Points points(region.smooth);
  while (result.size() < state_count) {
    const auto [x, y] = points.next();
    State s{std::lerp(region.temp_lo, region.temp_hi, x),
            std::lerp(region.dens_lo, region.dens_hi, y),
            0.0,
            0.0,
            0.0,
            0.0};
    double cv = 0.0;
    std::int32_t ierr = 0;
    co2_td(s.temp, s.dens, ierr,
           {.pres = &s.pres, .inte = &s.inte, .enth = &s.enth, .entr = &s.entr, .cv = &cv});
    const bool in_region = ierr == (region.two_phase ? status::td_two_phase : status::success);
    if (in_region && s.pres > region.pres_lo && s.pres < region.pres_hi) result.push_back(s);
  }
  return result;
}

/// Says that each turn of the timed loop went through all states.
inline void count_states(benchmark::State& run) {
  run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(state_count));
}

/// One input of an entry.
inline std::vector<double> column(const Region& region, double State::*const member) {
  std::vector<double> values;
  for (const State& s : draw_states(region)) values.push_back(s.*member);
  return values;
}

}  // namespace co2_properties::bench
