#include <gtest/gtest.h>

#include <cmath>

#include "saturation/sat_density.hpp"
#include "saturation/sat_pressure.hpp"
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

}  // namespace
}  // namespace co2_properties
