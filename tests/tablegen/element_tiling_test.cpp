#include "tablegen/tilings/element_tiling.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "saturation/sat_density.hpp"

namespace co2_properties::tablegen {
namespace {

constexpr double t_crit = 304.1282;
constexpr double d_crit = 467.6000012817399;

const std::vector<ElementCell>& tiling() {
  static const std::vector<ElementCell> cells = [] {
    std::ifstream stream(std::string(TABLEGEN_TILINGS_DIR) + "/elements.txt");
    return parse_element_tiling(std::string{std::istreambuf_iterator<char>(stream), {}});
  }();
  return cells;
}

/// Elements of a region that hold a state.
int holders(const Region region, const double temp, const double dens) {
  return static_cast<int>(
      std::count_if(tiling().begin(), tiling().end(), [&](const ElementCell& c) {
        return c.region == region && temp >= c.temp_lo && temp < c.temp_hi && dens >= c.dens_lo &&
               dens < c.dens_hi;
      }));
}

/// Inner values between the edges of one axis of a region, and the edges themselves.
std::vector<double> probes(const Region region, const bool temperature) {
  std::set<double> edges;
  for (const ElementCell& c : tiling()) {
    if (c.region != region) continue;
    edges.insert({temperature ? c.temp_lo : c.dens_lo, temperature ? c.temp_hi : c.dens_hi});
  }
  std::vector<double> values(edges.begin(), edges.end());
  for (std::size_t k = values.size() - 1; k > 0; --k) {
    values.push_back((values[k - 1] + values[k]) / 2.0);
  }
  return values;
}

TEST(ElementTiling, TheTableHasTheseRectangles) {
  ASSERT_EQ(tiling().size(), static_cast<std::size_t>(element_count));
  for (std::size_t k = 0; k < tiling().size(); ++k) {
    const ElementCell& cell = tiling()[k];
    const Element& e = elements[k];
    EXPECT_EQ(e.temp0, cell.temp_lo) << k + 1;
    EXPECT_EQ(e.dens0, cell.dens_lo) << k + 1;
    EXPECT_NEAR(e.temp_width, cell.temp_hi - cell.temp_lo, 1e-12) << k + 1;
    EXPECT_NEAR(e.dens_width, cell.dens_hi - cell.dens_lo, 1e-12) << k + 1;
    EXPECT_FALSE(cell.temp_lo < t_crit && cell.temp_hi > t_crit) << k + 1;
    EXPECT_FALSE(cell.dens_lo < d_crit && cell.dens_hi > d_crit) << k + 1;
  }
  EXPECT_EQ(elements[92].temp_width, 0.0182);
  EXPECT_EQ(elements[92].dens_width, 7.6000012817399352);
  EXPECT_EQ(elements[0].dens_width, 14.99647125341955);
  EXPECT_EQ(elements[96].dens_width, 87.205154132693);
}

TEST(ElementTiling, BandsHaveTheirIndicesAndTops) {
  struct Band {
    Region region;
    double temp_lo, temp_hi, top;
    std::size_t first, last;
  };
  constexpr double floor = 0.003528746580451058;
  const Band bands[] = {
      {Region::vapour, 240, 247, 45, 1, 3},
      {Region::vapour, 247, 257, 60, 4, 7},
      {Region::vapour, 257, 275, 120, 8, 18},
      {Region::vapour, 275, t_crit, d_crit, 19, 93},
      {Region::liquid, 240, 254, 1257.205154132693, 94, 97},
      {Region::liquid, 254, 270, 1257.205154132693, 98, 110},
      {Region::supercritical, t_crit, 320, 1170, 223, 411},
      {Region::supercritical, 320, 340, 1100, 412, 466},
      {Region::supercritical, 340, 360, 1100, 467, 508},
      {Region::supercritical, 360, 380, 1030, 509, 540},
      {Region::supercritical, 380, 415, 980, 541, 565},
      {Region::supercritical, 415, 450, 980, 566, 582},
      {Region::supercritical, 450, 500, 895, 583, 596},
      {Region::supercritical, 500, 560, 800, 597, 606},
      {Region::supercritical, 560, 640, 700, 607, 615},
      {Region::supercritical, 640, 745, 700, 616, 624},
      {Region::supercritical, 745, 870, 600, 625, 632},
      {Region::supercritical, 870, 1030, d_crit, 633, 638},
      {Region::supercritical, 1030, 1250, d_crit, 639, 644},
      {Region::supercritical, 1250, 1500, 380, 645, 649},
  };
  for (const Band& band : bands) {
    SCOPED_TRACE(band.first);
    double top = 0.0;
    double bottom = 2000.0;
    for (std::size_t k = band.first; k <= band.last; ++k) {
      const ElementCell& c = tiling()[k - 1];
      EXPECT_EQ(c.region, band.region);
      EXPECT_TRUE(c.temp_lo >= band.temp_lo && c.temp_hi <= band.temp_hi) << k;
      top = std::max(top, c.dens_hi);
      bottom = std::min(bottom, c.dens_lo);
    }
    EXPECT_EQ(top, band.top);
    if (band.region != Region::liquid) {
      EXPECT_EQ(bottom, floor);
    }
  }
}

// At every temperature a region is covered from one end to the other, exactly once: vapour from the
// floor to saturation and beyond, liquid from before saturation to the top, the rest from the floor
// to the top.
TEST(ElementTiling, CoversEachRegionOnce) {
  for (const Region region : {Region::vapour, Region::liquid, Region::supercritical}) {
    const std::vector<double> densities = probes(region, false);
    for (const double temp : probes(region, true)) {
      double from = 2000.0;
      double to = 0.0;
      for (const ElementCell& c : tiling()) {
        if (c.region != region || temp < c.temp_lo || temp >= c.temp_hi) continue;
        from = std::min(from, c.dens_lo);
        to = std::max(to, c.dens_hi);
      }
      for (const double dens : densities) {
        const int expected = dens >= from && dens < to ? 1 : 0;
        ASSERT_EQ(holders(region, temp, dens), expected) << temp << ' ' << dens;
      }
    }
  }
}

TEST(ElementTiling, BothSaturatedStatesLieInsideAnElement) {
  constexpr int steps = 20000;
  for (int k = 0; k <= steps; ++k) {
    // Half of the temperatures crowd towards the critical one.
    const double s = static_cast<double>(k) / steps;
    const double temp =
        k % 2 == 0 ? 240.0 + s * 64.12819999 : t_crit - 64.0 * std::pow(s, 8) - 1e-12;
    if (temp < 240.0 || temp >= t_crit) continue;
    ASSERT_EQ(holders(Region::vapour, temp, calc_sat_vap_dens(temp)), 1) << temp;
    ASSERT_EQ(holders(Region::liquid, temp, calc_sat_liq_dens(temp)), 1) << temp;
  }
}

// Elements on both sides of a density edge give the same pressure along it.
TEST(ElementTiling, PressureIsContinuousInDensity) {
  constexpr int steps = 7;
  double worst = 0.0;
  for (std::size_t a = 0; a < tiling().size(); ++a) {
    for (std::size_t b = 0; b < tiling().size(); ++b) {
      const ElementCell& low = tiling()[a];
      const ElementCell& high = tiling()[b];
      const double from = std::max(low.temp_lo, high.temp_lo);
      const double to = std::min(low.temp_hi, high.temp_hi);
      if (low.region != high.region || low.dens_hi != high.dens_lo || !(from < to)) continue;
      for (int k = 0; k <= steps; ++k) {
        const double temp = from + (to - from) * k / steps;
        const double dens = high.dens_lo;
        const double log_dens = std::log(dens);
        const double below = pressure(evaluate(elements[a], temp, dens, log_dens), dens);
        const double above = pressure(evaluate(elements[b], temp, dens, log_dens), dens);
        worst = std::max(worst, std::abs(below / above - 1.0));
      }
    }
  }
  // Rounding alone, largest (4e-12) at the critical point; Newton iterations ask for 1e-11.
  EXPECT_LT(worst, 1e-11);
}

}  // namespace
}  // namespace co2_properties::tablegen
