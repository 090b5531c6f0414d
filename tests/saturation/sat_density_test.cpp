#include "saturation/sat_density.hpp"

#include <gtest/gtest.h>

#include <cmath>

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

// Reference states of Span & Wagner (1996), tests/data/README.md. The bounds are those that the
// header states.
TEST(SatDensity, FollowsTheReferenceWithinItsAccuracy) {
  auto columns = test::read_csv(TEST_DATA_DIR "/sat.csv");
  struct Range {
    double temp_below, liq_bound, vap_bound;
    test::WorstError liq, vap;
  };
  Range ranges[] = {{301.0, 1.4e-8, 1.8e-7, {}, {}},
                    {304.0, 2.2e-5, 6.3e-6, {}, {}},
                    {304.13, 4e-4, 5e-5, {}, {}}};
  for (std::size_t k = 0; k < columns["T"].size(); ++k) {
    const double temp = columns["T"][k];
    for (Range& range : ranges) {
      if (temp > range.temp_below) continue;
      range.liq.note(std::abs(calc_sat_liq_dens(temp) / columns["rho_l"][k] - 1.0), temp, 0.0);
      range.vap.note(std::abs(calc_sat_vap_dens(temp) / columns["rho_v"][k] - 1.0), temp, 0.0);
      break;
    }
  }
  for (const Range& range : ranges) {
    EXPECT_LT(range.liq.error, range.liq_bound) << "at " << range.liq.x;
    EXPECT_LT(range.vap.error, range.vap_bound) << "at " << range.vap.x;
    EXPECT_GT(range.liq.error, 0.0) << "no state up to " << range.temp_below;
  }
}

}  // namespace
}  // namespace co2_properties
