#include "eos/locate_tp.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "eos/helmholtz.hpp"
#include "eos/locate_td.hpp"
#include "eos/properties.hpp"
#include "saturation/sat_density.hpp"
#include "tests/support/bits.hpp"

namespace co2_properties {
namespace {

using test::infinity;
using test::next_above;
using test::next_below;
using test::not_a_number;

struct Region {
  const char* name;
  std::int32_t (*locate)(const double&, const double&) noexcept;
  const TpMap* map;
  std::int32_t first, last;
  double hottest;  // K
};
const Region regions[] = {
    {"vapour", vap_index_from_tp, &vapour_tp_map, 1, 93, 304.1282},
    {"liquid", liq_index_from_tp, &liquid_tp_map, 94, 222, 304.1282},
    {"supercritical", sc_index_from_tp, &supercritical_tp_map, 223, 649, 1500.0}};

// Known curves of the coldest vapour elements.
double p1(const double t) {
  return (9.969510067660366 - 0.006699101388238917 * t) * t - 831.2290085287171;
}
double p2(const double t) {
  return (3.793719132589892 - 0.001456063367197281 * t) * t - 192.9675781479849;
}
double p3(const double t) {
  return ((4.350467559560977e-5 * t - 0.03842206577893682) * t + 17.67943077226615) * t -
         1455.773947456678;
}
double p4(const double t) {
  return (3.671474485988424 - 0.00120904645649794 * t) * t - 177.8428011026979;
}
double p5(const double t) {
  return ((0.000111314390126785 * t - 0.0986553029931417) * t + 39.19466821004941) * t -
         3635.98073953877;
}
double p93(const double t) { return 169.1844753180319 * t - 44076.47189713393; }

TEST(LocateTp, KnownCurvesAndTheirTies) {
  struct Case {
    double (*curve)(double);
    double temp;
    std::int32_t below, above;
  };
  const Case cases[] = {
      {p1, 240.0, 2, 3},       {p1, 245.0, 2, 3},    {p1, 246.9, 2, 3}, {p2, 240.0, 1, 2},
      {p2, 246.9, 1, 2},       {p3, 247.0, 5, 6},    {p3, 256.9, 5, 6}, {p4, 247.0, 4, 5},
      {p4, 256.9, 4, 5},       {p5, 248.9115, 6, 7}, {p5, 256.9, 6, 7}, {p93, 304.128, 92, 93},
      {p93, 304.1281, 92, 93},
  };
  for (const Case& c : cases) {
    const double pres = c.curve(c.temp);
    EXPECT_EQ(vap_index_from_tp(c.temp, pres), c.above) << c.temp << " K, on the curve";
    EXPECT_EQ(vap_index_from_tp(c.temp, next_below(pres)), c.below) << c.temp << " K";
  }
}

TEST(LocateTp, KnownStates) {
  struct Case {
    std::int32_t (*locate)(const double&, const double&) noexcept;
    double temp, pres;
    std::int32_t e;
    const char* why;
  };
  const double start = 248.9114227294922;
  const double dens60_start = 257.7726745605469;
  const double hot_start = 304.1279602050781;
  const Case cases[] = {
      {vap_index_from_tp, next_below(247.0), 1e5, 3, "the band below"},
      {vap_index_from_tp, 247.0, 1e5, 6, "a temperature edge belongs to the band above"},
      {vap_index_from_tp, 257.0, 1.0, 8, "a temperature edge belongs to the band above"},
      {vap_index_from_tp, start, p3(start), 6, "start temperature: no curve above P3"},
      {vap_index_from_tp, start, 1e5, 6, "start temperature: whatever the pressure"},
      {vap_index_from_tp, start, next_below(p3(start)), 5, "but P3 counts"},
      {vap_index_from_tp, next_above(start), 1e5, 7, "just above the curve counts"},
      {vap_index_from_tp, dens60_start, 1e5, vap_index_from_td(dens60_start, 59.0), "60 kg/m3"},
      {vap_index_from_tp, next_above(dens60_start), 1e5, vap_index_from_td(dens60_start, 61.0),
       "just above it"},
      {vap_index_from_tp, hot_start, 1e5, 92, "start of 460 kg/m3"},
      {vap_index_from_tp, next_above(hot_start), 1e5, 93, "just above it"},
      {liq_index_from_tp, 240.0, 1e5, 97, "densest liquid"},
      {liq_index_from_tp, 240.0, 1300.0, 95, "saturated liquid, 1089 kg/m3"},
      {sc_index_from_tp, 304.1282, 1.0, 223, "thinnest"},
      {sc_index_from_tp, 1500.0, 1.0, 645, "hottest and thinnest"},
      {sc_index_from_tp, 1500.0, 1e5, 649, "hottest and densest"},
  };
  for (const Case& c : cases) EXPECT_EQ(c.locate(c.temp, c.pres), c.e) << c.why << ' ' << c.temp;
}

// Single-phase states of every element, away from its density edges by the margin of the solver.
TEST(LocateTp, FindsTheElementThatHoldsTheState) {
  constexpr double margin = 0.01;
  // Closer than this, relative, two pressures are one for the solver.
  constexpr double resolution = 1e-11;
  std::mt19937_64 engine(11);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  int checked = 0;
  for (const Region& region : regions) {
    for (std::int32_t e = region.first; e <= region.last; ++e) {
      const Element& cell = element(e);
      for (int sample = 0; sample < 300; ++sample) {
        const double temp = cell.temp0 + 0.9999 * unit(engine) * cell.temp_width;
        const double dens = cell.dens0 + margin + unit(engine) * (cell.dens_width - 2.0 * margin);
        if (region.last == 93 && dens > calc_sat_vap_dens(temp)) continue;
        if (region.first == 94 && dens < calc_sat_liq_dens(temp)) continue;
        const HelmholtzDerivatives d = evaluate(cell, temp, dens, 0.0);
        const double pres = pressure(d, dens);
        if (pres > 1e5 || dpdd(d, dens) * margin < resolution * pres) continue;
        ++checked;
        ASSERT_EQ(region.locate(temp, pres), e) << temp << " K " << dens << " kg/m3";
      }
    }
  }
  EXPECT_GT(checked, 100000);
}

// Where a curve starts, the vapour locator does not consult it yet and the liquid one does.
TEST(LocateTp, CurvesCountFromTheirStartTemperature) {
  int starts = 0;
  for (const Region& region : regions) {
    const TpMap& map = *region.map;
    for (std::int32_t i = 0; i <= map.temp.count; ++i) {
      for (std::int32_t r = map.first[i] + 1; r < map.first[i + 1]; ++r) {
        const IsochoreCurve& curve = map.curves[map.rows[r].curve];
        const double start = curve.temp_start;
        if (start == 0.0 || interval(map.temp, start) != i) continue;
        ++starts;
        EXPECT_EQ(start, static_cast<double>(static_cast<float>(start)));
        const std::int32_t below = map.rows[r - 1].element;
        const std::int32_t above = map.rows[r].element;
        if (region.last == 93) {
          EXPECT_EQ(vap_index_from_tp(start, infinity), below) << start;
          EXPECT_GE(vap_index_from_tp(next_above(start), infinity), above) << start;
        } else {
          EXPECT_EQ(liq_index_from_tp(start, 0.0), below) << start;
          EXPECT_EQ(liq_index_from_tp(next_below(start), 0.0), above) << start;
        }
      }
    }
  }
  EXPECT_GT(starts, 50);
}

// The index only shortens the search: against the search through all rows of the interval, at
// random states of every interval, closely around its curves and for inputs that are no state.
TEST(LocateTp, TheIndexDoesNotChangeTheResult) {
  std::mt19937_64 engine(13);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (const Region& region : regions) {
    const TpMap& map = *region.map;
    const auto searched = [&](const double temp, const double pres) {
      const std::int32_t i = interval(map.temp, temp);
      const TpRow* const row = map.rows + map.first[i];
      return row[search(map.first[i + 1] - map.first[i] - 1,
                        [&](const std::int32_t k) {
                          const IsochoreCurve& curve = map.curves[row[k + 1].curve];
                          const bool above = !(pres < evaluate_curve(curve, temp));
                          if (region.last == 93) return temp > curve.temp_start && above;
                          if (region.last == 222) return temp < curve.temp_start || above;
                          return above;
                        })]
          .element;
    };
    const auto check = [&](const double temp, const double pres) {
      ASSERT_EQ(region.locate(temp, pres), searched(temp, pres))
          << region.name << std::hexfloat << ' ' << temp << " K " << pres << " kPa";
    };
    for (std::int32_t i = 0; i <= map.temp.count; ++i) {
      const double lo = i == 0 ? map.temp.edges[0] - 10.0 : map.temp.edges[i - 1];
      const double hi = i == map.temp.count ? lo + 300.0 : map.temp.edges[i];
      for (int sample = 0; sample < 2000; ++sample) {
        const double temp =
            sample < 20 ? (sample < 10 ? lo : next_below(hi)) : lo + unit(engine) * (hi - lo);
        check(temp, std::pow(10.0, 5.1 * unit(engine)));
        check(temp, 7377.3 + 200.0 * (unit(engine) - 0.5));
        const auto rows = static_cast<std::size_t>(map.first[i + 1] - map.first[i] - 1);
        if (rows == 0) continue;
        const std::size_t r = map.first[i] + 1 + engine() % rows;
        const double pres = evaluate_curve(map.curves[map.rows[r].curve], temp);
        for (const double p : {pres, next_below(pres), next_above(pres), pres * (1.0 + 1e-9),
                               pres * (1.0 - 1e-9), pres * (1.0 + 1e-6), pres * (1.0 - 1e-6)}) {
          check(temp, p);
        }
      }
    }
    for (const double temp : {not_a_number, infinity, -infinity, 0.0, 240.0, 304.1282, 1500.0}) {
      for (const double pres : {not_a_number, infinity, -infinity, 0.0, 1.0, 7377.3, 1e5}) {
        check(temp, pres);
      }
    }
  }
}

// A bound for Horner's rule: power k takes part in at most 2 k + 1 roundings.
TEST(LocateTp, TheMarginOfTheIndexCoversTheRoundingOfTheCurves) {
  constexpr double unit_roundoff = 0x1p-53;
  for (const Region& region : regions) {
    const TpMap& map = *region.map;
    for (std::int32_t i = 0; i <= map.temp.count; ++i) {
      const double temp = i < map.temp.count ? map.temp.edges[i] : region.hottest;
      for (std::int32_t r = map.first[i] + 1; r < map.first[i + 1]; ++r) {
        double bound = 0.0;
        double power = 1.0;
        for (std::int32_t k = 0; k < curve_terms; ++k, power *= temp) {
          bound +=
              (2 * k + 1) * unit_roundoff * power * std::abs(map.curves[map.rows[r].curve].coef[k]);
        }
        EXPECT_LT(bound, curve_rounding) << region.name << ", interval " << i << ", row " << r;
      }
    }
  }
}

TEST(LocateTp, AnyInputStaysInItsRegion) {
  constexpr double odd[] = {0.0,    -0.0,     5e-324,    -1.0,         1e308,
                            -1e308, infinity, -infinity, not_a_number, 7377.3};
  std::mt19937_64 engine(12);
  for (const Region& region : regions) {
    const auto check = [&](const double temp, const double pres) {
      const std::int32_t e = region.locate(temp, pres);
      EXPECT_GE(e, region.first) << region.name << ' ' << temp << ' ' << pres;
      EXPECT_LE(e, region.last) << region.name << ' ' << temp << ' ' << pres;
    };
    for (const double temp : odd) {
      for (const double pres : odd) check(temp, pres);
    }
    for (int sample = 0; sample < 20000; ++sample) {
      check(std::bit_cast<double>(engine()), std::bit_cast<double>(engine()));
    }
  }
}

}  // namespace
}  // namespace co2_properties
