#include "saturation/sat_pressure.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/bits.hpp"
#include "tests/support/csv.hpp"
#include "tests/support/tolerance.hpp"

namespace co2_properties {
namespace {

using test::next_below;
using test::not_a_number;

TEST(SatTemp, PiecesStartAtTheirConstantTerms) {
  struct Case {
    double pres, temp;
  };
  const Case cases[] = {{1282.483498444739, 240.000002896017}, {2000.0, 253.6473135019189},
                        {3000.0, 267.5978595629647},           {4000.0, 278.44970946314},
                        {5000.0, 287.4338788231626},           {6000.0, 295.127856144321},
                        {6500.0, 298.5925333034346},           {7000.0, 301.8324691765599}};
  for (const Case& c : cases) EXPECT_EQ(calc_sat_temp(c.pres), c.temp) << c.pres;
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
