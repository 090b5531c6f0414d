#pragma once
// States to measure with: random but repeatable, by region, in random or in smooth order.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "api/co2_properties.hpp"

namespace co2_properties::bench {

enum class Region : std::int64_t {
  gas,
  liquid,
  supercritical,
  compressor_inlet,
  two_phase,
  domain
};

/// What the library says of one state; inputs of all four entries.
struct State {
  double temp, dens, pres, enth, entr;
};

/// `count` states of a region that `co2_td` accepts: uniform in temperature and density over the
/// box of the region. The compressor inlet of supercritical cycles is 302..319 K, 7350..8480 kPa.
inline std::vector<State> states(const Region region, const std::size_t count, const bool smooth) {
  struct Range {
    double temp_lo, temp_hi, dens_lo, dens_hi;
  };
  constexpr Range ranges[] = {{240, 500, 0.1, 200}, {240, 303, 620, 1150}, {304.2, 1500, 1, 900},
                              {302, 319, 150, 780}, {240, 304, 30, 1100},  {240, 1500, 0.1, 1150}};
  const Range& range = ranges[static_cast<std::size_t>(region)];
  std::mt19937_64 engine(11);
  std::uniform_real_distribution<double> temps(range.temp_lo, range.temp_hi);
  std::uniform_real_distribution<double> densities(range.dens_lo, range.dens_hi);
  std::vector<State> result;
  while (result.size() < count) {
    State s{temps(engine), densities(engine), 0.0, 0.0, 0.0};
    double qual = 0.0;
    std::int32_t ierr = 0;
    co2_td(s.temp, s.dens, ierr,
           {.pres = &s.pres, .qual = &qual, .enth = &s.enth, .entr = &s.entr});
    const bool two_phase = s.temp < 304.1282 && qual > 0.0 && qual < 1.0;
    const bool wanted = region == Region::domain || two_phase == (region == Region::two_phase);
    const bool in_box = region != Region::compressor_inlet || (s.pres > 7350.0 && s.pres < 8480.0);
    if (ierr == 0 && wanted && in_box) result.push_back(s);
  }
  if (smooth) {
    std::sort(result.begin(), result.end(),
              [](const State& a, const State& b) { return a.dens < b.dens; });
  }
  return result;
}

}  // namespace co2_properties::bench
