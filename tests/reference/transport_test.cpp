#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tablegen/reference/conductivity.hpp"
#include "tablegen/reference/viscosity.hpp"
#include "tests/support/csv.hpp"

namespace co2_properties::reference {
namespace {

// 400 independent evaluations of both correlations, 15 digits; the conductivity near the critical
// point inherits the rounding of cp and dp/drho.
TEST(Transport, MatchesIndependentStates) {
  auto data = test::read_csv(std::string(TEST_DATA_DIR) + "/transport.csv");
  test::WorstError worst_visc, worst_cond;
  for (std::size_t i = 0; i < data["T_K"].size(); ++i) {
    const double temp = data["T_K"][i], dens = data["rho_kgm3"][i];
    worst_visc.note(std::fabs(viscosity(temp, dens) / data["visc_uPas"][i] - 1), temp, dens);
    worst_cond.note(std::fabs(conductivity(temp, dens) / data["cond_WmK"][i] - 1), temp, dens);
  }
  EXPECT_LT(worst_visc.error, 1.2e-14) << worst_visc.x << " " << worst_visc.y;
  EXPECT_LT(worst_cond.error, 2e-12) << worst_cond.x << " " << worst_cond.y;
}

// Check values printed by Fenghour et al. (1998), without the critical enhancement.
TEST(Transport, PublishedViscosities) {
  const struct {
    double temp, dens, visc;
  } cases[] = {{220.0, 2.440, 11.06},    {300.0, 1.773, 15.02},    {800.0, 0.662, 35.09},
               {220.0, 1194.86, 269.37}, {300.0, 1029.27, 132.55}, {800.0, 407.828, 48.74}};
  for (const auto& c : cases) {
    EXPECT_NEAR(viscosity(c.temp, c.dens), c.visc, 0.005001) << c.temp << " " << c.dens;
  }
}

TEST(Transport, EnhancementEndsAtTheReferenceTemperature) {
  using conductivity_parts::enhancement;
  for (const double dens : {1.0, 200.0, d_crit, 900.0}) {
    const double before = enhancement(449.9, dens);
    EXPECT_GT(before, 0.0);
    EXPECT_LT(enhancement(449.9999999, dens), 2e-3 * before) << "continuous, like a square root";
    EXPECT_EQ(enhancement(450.0001, dens), 0.0);
  }
  EXPECT_GT(enhancement(t_crit + 0.01, d_crit), 0.3) << "diverges at the critical point";
  EXPECT_EQ(conductivity(300.0, 0.0), conductivity_parts::dilute(300.0));
}

}  // namespace
}  // namespace co2_properties::reference
