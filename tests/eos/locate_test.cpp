#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "eos/helmholtz.hpp"
#include "eos/locate_td.hpp"
#include "eos/locate_tp.hpp"
#include "eos/pressure_locator.hpp"
#include "eos/properties.hpp"
#include "saturation/sat_density.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/plain_search.hpp"

namespace co2_properties {
namespace {

using test::infinity;
using test::next_above;
using test::next_below;
using test::not_a_number;

constexpr double critical_edge = 467.6000012817399;

using Locate = std::int32_t (*)(const double&, const double&) noexcept;
struct Locator {
  const char* name;
  Region region;
  Locate from_td, from_tp;
  const PressureTiling* tiling;
  double temp_lo, temp_hi;
  std::int32_t first, last;
};
const Locator regions[] = {
    {"vapour", Region::vapour, vap_index_from_td, vap_index_from_tp, &vapour_tp_tiling, temp_min,
     t_crit, 1, 93},
    {"liquid", Region::liquid, liq_index_from_td, liq_index_from_tp, &liquid_tp_tiling, temp_min,
     t_crit, 94, 222},
    {"supercritical", Region::supercritical, sc_index_from_td, sc_index_from_tp,
     &supercritical_tp_tiling, t_crit, temp_max, 223, 649}};

// Edges that two elements share are sums of origin and width that may round apart.
constexpr double slack = 1e-9;

bool holds(const Element& cell, const double temp, const double dens) {
  return temp > cell.temp0 - slack && temp < cell.temp0 + cell.temp_width + slack &&
         dens > cell.dens0 - slack && dens < cell.dens0 + cell.dens_width + slack;
}

// Samples inside every element, and on both sides of its edges: the element found must hold them.
TEST(LocateTd, FindsTheElementThatHoldsTheState) {
  std::mt19937_64 engine(3);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (const Locator& region : regions) {
    for (std::int32_t e = region.first; e <= region.last; ++e) {
      const Element& cell = element(e);
      for (int sample = 0; sample < 200; ++sample) {
        const double temp = cell.temp0 + (0.001 + 0.998 * unit(engine)) * cell.temp_width;
        const double dens = cell.dens0 + (0.001 + 0.998 * unit(engine)) * cell.dens_width;
        ASSERT_EQ(region.from_td(temp, dens), e) << region.name << ' ' << temp << ' ' << dens;
      }
      const double temp = cell.temp0 + 0.5 * cell.temp_width;
      const double dens = cell.dens0 + 0.5 * cell.dens_width;
      EXPECT_EQ(region.from_td(cell.temp0, dens), e) << "closed at the lower temperature";
      // The stored critical edge belongs to the element below.
      const double edge = cell.dens0 == critical_edge ? next_above(critical_edge) : cell.dens0;
      EXPECT_EQ(region.from_td(temp, edge), e) << "closed at the lower density";
      EXPECT_EQ(region.from_td(cell.temp0, edge), e) << "closed at the corner";
      // No gap to the element below: a step down leads to one that ends there, or the region ends.
      const double below = next_below(cell.dens0);
      const Element& neighbour = element(region.from_td(temp, below));
      EXPECT_TRUE(holds(neighbour, temp, below) || &neighbour == &cell || region.first == 94)
          << region.name << ' ' << e;
    }
  }
}

TEST(LocateTd, KnownStates) {
  struct Case {
    std::size_t region;
    double temp, dens;
    std::int32_t e;
    const char* why;
  };
  const Case cases[] = {
      {0, 240.0, 0.0035287466, 1, "first element"},
      {0, 240.0, 15.0, 2, "an edge belongs to the element above"},
      {0, 240.0, 0.001, 1, "density clamped from below"},
      {0, 240.0, 1300.0, 3, "density clamped from above"},
      {0, 300.0, 0.001, 19, "density clamped from below"},
      {0, 300.0, 1300.0, 93, "density clamped from above"},
      {1, 240.0, 1300.0, 97, "density clamped from above"},
      {1, 300.0, 1300.0, 222, "density clamped from above"},
      {2, 304.1282, 467.6, 259, "critical point"},
      {2, 300.0, 0.001, 223, "temperature clamped from below"},
      {2, 300.0, 1300.0, 411, "temperature and density clamped"},
      {2, 1600.0, 0.001, 645, "temperature clamped from above"},
      {2, 1600.0, 1300.0, 649, "temperature and density clamped"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(regions[c.region].from_td(c.temp, c.dens), c.e) << c.why << ' ' << c.temp;
  }
}

TEST(Locate, AnyInputStaysInItsRegion) {
  constexpr double odd[] = {0.0,      -0.0,      5e-324,       -1.0,  1e308, -1e308,
                            infinity, -infinity, not_a_number, 467.6, 7377.3};
  std::mt19937_64 engine(4);
  const auto check = [&](const double temp, const double other) {
    for (const Locator& region : regions) {
      for (const auto locate : {region.from_td, region.from_tp}) {
        const std::int32_t e = locate(temp, other);
        EXPECT_TRUE(e >= region.first && e <= region.last)
            << region.name << ' ' << temp << ' ' << other << ": " << e;
      }
    }
  };
  for (const double temp : odd) {
    for (const double other : odd) check(temp, other);
  }
  for (int sample = 0; sample < 20000; ++sample) {
    check(std::bit_cast<double>(engine()), std::bit_cast<double>(engine()));
  }
}

// ---- From temperature and pressure ------------------------------------------------------------

// Known curves of the coldest vapour elements and of the last one.
constexpr IsochoreCurve known_curves[] = {
    {0.0, {-831.2290085287171, 9.969510067660366, -0.006699101388238917}},
    {0.0, {-192.9675781479849, 3.793719132589892, -0.001456063367197281}},
    {0.0, {-1455.773947456678, 17.67943077226615, -0.03842206577893682, 4.350467559560977e-5}},
    {0.0, {-177.8428011026979, 3.671474485988424, -0.00120904645649794}},
    {0.0, {-3635.98073953877, 39.19466821004941, -0.0986553029931417, 0.000111314390126785}},
    {0.0, {-44076.47189713393, 169.1844753180319}}};

TEST(LocateTp, KnownCurvesAndTheirTies) {
  struct Case {
    std::size_t curve;
    double temps[3];
    std::int32_t below;
  };
  const Case cases[] = {{0, {240.0, 245.0, 246.9}, 2},    {1, {240.0, 245.0, 246.9}, 1},
                        {2, {247.0, 250.0, 256.9}, 5},    {3, {247.0, 250.0, 256.9}, 4},
                        {4, {248.9115, 252.0, 256.9}, 6}, {5, {304.128, 304.12805, 304.1281}, 92}};
  for (const Case& c : cases) {
    for (const double temp : c.temps) {
      const double pres = evaluate_curve(known_curves[c.curve], temp);
      EXPECT_EQ(vap_index_from_tp(temp, pres), c.below + 1) << temp << " K, on the curve";
      EXPECT_EQ(vap_index_from_tp(temp, next_below(pres)), c.below) << temp << " K";
    }
  }
}

TEST(LocateTp, KnownStates) {
  struct Case {
    Locate locate;
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
      {vap_index_from_tp, start, evaluate_curve(known_curves[2], start), 6,
       "start temperature: no curve above P3"},
      {vap_index_from_tp, start, 1e5, 6, "start temperature: whatever the pressure"},
      {vap_index_from_tp, start, next_below(evaluate_curve(known_curves[2], start)), 5,
       "but P3 counts"},
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
  for (const Locator& region : regions) {
    for (std::int32_t e = region.first; e <= region.last; ++e) {
      const Element& cell = element(e);
      for (int sample = 0; sample < 300; ++sample) {
        const double temp = cell.temp0 + 0.9999 * unit(engine) * cell.temp_width;
        const double dens = cell.dens0 + margin + unit(engine) * (cell.dens_width - 2.0 * margin);
        if (region.last == 93 && dens > calc_sat_vap_dens(temp)) continue;
        if (region.first == 94 && dens < calc_sat_liq_dens(temp)) continue;
        const Derivatives<double> d = evaluate(cell, temp, dens);
        const double pres = pressure(d, dens);
        if (pres > 1e5 || d.dpdd * margin < resolution * pres) continue;
        ++checked;
        ASSERT_EQ(region.from_tp(temp, pres), e) << temp << " K " << dens << " kg/m3";
      }
    }
  }
  EXPECT_GT(checked, 100000);
}

/// What lanes of all regions side by side find; the state is the second one.
std::int32_t found_in_lanes(const Region region, const double temp, const double pres) {
  const Ints<Lanes4> number = {1, static_cast<std::int64_t>(region), 2, 0};
  const Lanes4 temps = {250.0, temp, 290.0, 700.0};
  std::int32_t found[lane_count<Lanes4>];
  pressure_locator.find<Lanes4>(number, temp_bins.find(temps), temps,
                                Lanes4{1000.0, pres, 9000.0, 5e4}, found);
  EXPECT_EQ(found[0], vap_index_from_tp(250.0, 1000.0));
  EXPECT_EQ(found[2], liq_index_from_tp(290.0, 9000.0));
  EXPECT_EQ(found[3], sc_index_from_tp(700.0, 5e4));
  return found[1];
}

// The index only shortens the search: against the search through all rows of the interval, at
// random states of every interval, closely around its curves and for inputs that are no state.
TEST(LocateTp, TheIndexDoesNotChangeTheResult) {
  std::mt19937_64 engine(13);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (const Locator& region : regions) {
    const PressureTiling& map = *region.tiling;
    const auto searched = [&](const double temp, const double pres) {
      const std::int32_t i = test::plain_interval(map.temp_edges, map.edge_count, temp);
      std::int32_t r = map.first[i];
      for (; r + 1 < map.first[i + 1]; ++r) {
        const IsochoreCurve& curve = map.curves[map.rows[r + 1].curve];
        const bool above = !(pres < evaluate_curve(curve, temp));
        if (region.last == 222 ? !(temp < curve.temp_start || above)
                               : !(temp > curve.temp_start && above))
          break;
      }
      return std::int32_t{map.rows[r].element};
    };
    const auto check = [&](const double temp, const double pres) {
      ASSERT_EQ(region.from_tp(temp, pres), searched(temp, pres))
          << region.name << std::hexfloat << ' ' << temp << " K " << pres << " kPa";
      if (temp < region.temp_lo || temp > region.temp_hi || std::isnan(temp)) return;
      ASSERT_EQ(found_in_lanes(region.region, temp, pres), searched(temp, pres))
          << region.name << std::hexfloat << ' ' << temp << " K " << pres << " kPa";
    };
    for (std::int32_t i = 0; i <= map.edge_count; ++i) {
      const double lo = i == 0 ? map.temp_edges[0] - 10.0 : map.temp_edges[i - 1];
      const double hi = i == map.edge_count ? lo + 300.0 : map.temp_edges[i];
      for (int sample = 0; sample < 2000; ++sample) {
        const double temp =
            sample < 20 ? (sample < 10 ? lo : next_below(hi)) : lo + unit(engine) * (hi - lo);
        check(temp, std::pow(10.0, 5.1 * unit(engine)));
        check(temp, 7377.3 + 200.0 * (unit(engine) - 0.5));
        const auto rows = static_cast<std::size_t>(map.first[i + 1] - map.first[i] - 1);
        if (rows == 0) continue;
        const std::size_t r = map.first[i] + 1 + engine() % rows;
        const IsochoreCurve& curve = map.curves[map.rows[r].curve];
        const double pres = evaluate_curve(curve, temp);
        for (const double p : {pres, next_below(pres), next_above(pres), pres * (1.0 + 1e-9),
                               pres * (1.0 - 1e-9), pres * (1.0 + 1e-6), pres * (1.0 - 1e-6)}) {
          check(temp, p);
        }
        for (const double start : {curve.temp_start, next_above(curve.temp_start)}) {
          if (start != 0.0) check(start, evaluate_curve(curve, start));
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
  for (const Locator& region : regions) {
    const PressureTiling& map = *region.tiling;
    for (std::int32_t i = 0; i <= map.edge_count; ++i) {
      const double temp = i < map.edge_count ? map.temp_edges[i] : region.temp_hi;
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

}  // namespace
}  // namespace co2_properties
