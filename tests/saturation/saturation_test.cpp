#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "eos/element_locator.hpp"
#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "saturation/sat_density.hpp"
#include "saturation/sat_pressure.hpp"
#include "saturation/saturation_bounds.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/csv.hpp"
#include "tests/support/tolerance.hpp"

namespace co2_properties {
namespace {

using test::next_above;
using test::next_below;
using test::not_a_number;

using Density = double (*)(const double&) noexcept;

TEST(SatDensity, EndsOfTheLine) {
  struct Case {
    Density density;
    double temp, dens;
    const char* why;
  };
  const Case cases[] = {
      {calc_sat_liq_dens, 240.0, 1088.869234090836, "constant term of the first quintic"},
      {calc_sat_vap_dens, 240.0, 33.29513442212512, "constant term of the first quintic"},
      {calc_sat_liq_dens, 304.1282, 467.6, "critical density, not the end of the last cubic"},
      {calc_sat_vap_dens, 304.1282, 467.6, "critical density, not the end of the last cubic"},
  };
  for (const Case& c : cases) EXPECT_EQ(c.density(c.temp), c.dens) << c.why;
  EXPECT_NEAR(calc_sat_liq_dens(next_below(304.1282)), 473.62, 0.005) << "last liquid cubic";
  EXPECT_NEAR(calc_sat_vap_dens(next_below(304.1282)), 465.87, 0.005) << "last vapour cubic";
}

TEST(SatDensity, NanInGivesNanOut) {
  EXPECT_TRUE(std::isnan(calc_sat_liq_dens(not_a_number)));
  EXPECT_TRUE(std::isnan(calc_sat_vap_dens(not_a_number)));
}

// Each quintic must end where its neighbour starts: catches a wrong digit in any coefficient that
// matters.
TEST(SatDensity, QuinticsJoin) {
  for (const double edge : {255.0, 265.0, 275.0, 280.0, 285.0, 290.0, 293.0, 295.0, 296.0, 297.0,
                            298.0, 299.0, 299.5, 300.0, 300.5, 301.0}) {
    for (const Density density : {calc_sat_liq_dens, calc_sat_vap_dens}) {
      const double at = density(edge);
      EXPECT_NEAR(density(next_below(edge)), at, test::tolerance::rounding * at) << edge;
      EXPECT_NEAR(density(next_above(edge)), at, test::tolerance::rounding * at) << edge;
    }
  }
}

// On both sides of an end the cubics must give the node density, which is printed in their table.
// One step of temperature moves the density by up to 4e-11 kg/m3 there.
TEST(SatDensity, CubicsJoinAtTheirNodes) {
  struct Case {
    Density density;
    double temp, dens;
  };
  const Case cases[] = {
      {calc_sat_liq_dens, 302.2341055306648, 626.8419969213044},
      {calc_sat_liq_dens, 303.1129293775182, 594.9935977933915},
      {calc_sat_liq_dens, 303.6795284857335, 563.1451986654786},
      {calc_sat_liq_dens, 303.9936195043181, 531.2967995375657},
      {calc_sat_liq_dens, 304.1143631777277, 499.4484004096528},
      {calc_sat_vap_dens, 301.0, 286.148798474583},
      {calc_sat_vap_dens, 302.5164883654834, 322.4390390360144},
      {calc_sat_vap_dens, 303.43534193209916, 358.7292795974457},
      {calc_sat_vap_dens, 303.91610050434275, 395.0195201588771},
      {calc_sat_vap_dens, 304.10153012365777, 431.3097607203085},
  };
  for (const Case& c : cases) {
    for (const double temp : {next_below(c.temp), c.temp, next_above(c.temp)}) {
      EXPECT_NEAR(c.density(temp), c.dens, 1e-10) << temp;
    }
  }
}

TEST(SatTemp, PiecesJoinAndEndOnTheCriticalPoint) {
  for (const double edge : {2000.0, 3000.0, 4000.0, 5000.0, 6000.0, 6500.0, 7000.0}) {
    const double at = calc_sat_temp(edge);
    EXPECT_NEAR(calc_sat_temp(next_below(edge)), at, test::tolerance::rounding * at) << edge;
  }
  EXPECT_NEAR(calc_sat_temp(7377.3), 304.1282, test::tolerance::rounding * 304.0);
  EXPECT_GT(calc_sat_temp(7400.0), 304.1282) << "extrapolates, no clamp";
  EXPECT_TRUE(std::isnan(calc_sat_temp(not_a_number)));
}

// Reference states of Span & Wagner (1996), tests/data/README.md.
TEST(SatPressure, BothDirectionsFollowTheReference) {
  auto columns = test::read_csv(TEST_DATA_DIR "/sat.csv");
  test::WorstError worst_temp, worst_pres;
  for (std::size_t k = 0; k < columns["T"].size(); ++k) {
    const double temp = columns["T"][k];
    const double pres = columns["p_sat"][k];
    worst_temp.note(std::abs(calc_sat_temp(pres) - temp), pres, 0.0);
    worst_pres.note(std::abs(calc_sat_pres(temp) / pres - 1.0), temp, 0.0);
  }
  EXPECT_LT(worst_temp.error, test::tolerance::sat_temp_fit) << "at " << worst_temp.x << " kPa";
  EXPECT_LT(worst_pres.error, test::tolerance::sat_pres_fit) << "at " << worst_pres.x << " K";
  EXPECT_TRUE(std::isnan(calc_sat_pres(not_a_number)));
}

// ---- Bounds ------------------------------------------------------------------------------------

/// Some values even between the ends, some closer and closer to where bins crowd, and the ends of
/// their bins.
template <class Bins, class Check>
void for_bounded(const Bins& bins, const double lo, const double end, const Check& check) {
  std::mt19937_64 engine(5);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  const auto at = [&](const double value) {
    if (value >= lo && value < end) check(value);
  };
  for (int k = 0; k < 400000; ++k) {
    at(lo + (end - lo) * unit(engine));
    at(end - (end - lo) * std::exp(-20.0 * unit(engine)));
    const double away = (unit(engine) < 0.5 ? -1.0 : 1.0) * std::exp(25.0 * unit(engine) - 18.0);
    at(bins.center + away);
    // Bins start where the leading bits of the distance change.
    const double edge =
        std::ldexp(std::floor(std::ldexp(away, 5 - std::ilogb(away))), std::ilogb(away) - 5);
    at(bins.center + edge);
    at(next_below(bins.center + edge));
  }
  at(lo);
  at(next_below(end));
}

template <class Bound>
bool enclosed(const double vap, const double liq, const Bound& bound) {
  return vap >= bound.vap_lo && vap <= bound.vap_hi && liq >= bound.liq_lo && liq <= bound.liq_hi;
}

TEST(SaturationBounds, EncloseTheLineByTemperature) {
  int narrow = 0;
  for_bounded(temp_bins, temp_min, t_crit, [&](const double temp) {
    const auto bin = temp_bins.find(temp);
    const SaturatedDensityBounds& dens = saturated_density_bounds[bin];
    const SaturationPressureBounds& pres = saturation_pressure_bounds[bin];
    ASSERT_TRUE(enclosed(calc_sat_vap_dens(temp), calc_sat_liq_dens(temp), dens)) << temp;
    ASSERT_TRUE(calc_sat_pres(temp) >= pres.lo && calc_sat_pres(temp) <= pres.hi) << temp;
    narrow += dens.vap_hi - dens.vap_lo < 0.01 * (dens.liq_lo - dens.vap_hi) ? 1 : 0;
  });
  EXPECT_GT(narrow, 1000000);
}

TEST(SaturationBounds, EncloseTheLineByPressure) {
  int narrow = 0;
  for_bounded(pres_bins, 250.0, p_crit, [&](const double pres) {
    const double temp = calc_sat_temp(pres);
    const auto at = [&](const Region region, const double dens) {
      return evaluate(element(element_locator.find(region, temp, dens)), temp, dens);
    };
    const auto vap = at(Region::vapour, calc_sat_vap_dens(temp));
    const auto liq = at(Region::liquid, calc_sat_liq_dens(temp));
    const auto bin = pres_bins.find(pres);
    const SaturatedCaloricBounds& enth = saturated_enthalpy_bounds[bin];
    ASSERT_TRUE(enclosed(enthalpy(vap, temp), enthalpy(liq, temp), enth)) << pres;
    ASSERT_TRUE(enclosed(entropy(vap), entropy(liq), saturated_entropy_bounds[bin])) << pres;
    narrow += enth.vap_hi - enth.vap_lo < 0.02 * (enth.vap_lo - enth.liq_hi) ? 1 : 0;
  });
  EXPECT_GT(narrow, 700000);
}

// Off the line nothing is decided; a NaN falls into such a bin.
TEST(SaturationBounds, AreInfiniteOffTheLine) {
  for (const double temp : {0.0, 239.0 - 100.0, 304.2, 1500.0, not_a_number}) {
    EXPECT_EQ(saturated_density_bounds[temp_bins.find(temp)].vap_hi, test::infinity) << temp;
  }
  for (const double pres : {1.0, 7377.25, p_crit, 1e5, not_a_number}) {
    EXPECT_EQ(saturated_enthalpy_bounds[pres_bins.find(pres)].liq_hi, test::infinity) << pres;
    EXPECT_EQ(saturated_entropy_bounds[pres_bins.find(pres)].vap_lo, -test::infinity) << pres;
  }
}

}  // namespace
}  // namespace co2_properties
