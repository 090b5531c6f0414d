#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "reference/conductivity.hpp"
#include "reference/conductivity_2016.hpp"
#include "reference/viscosity.hpp"
#include "reference/viscosity_2017.hpp"
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

// Check values printed by Vesovic et al. (1990), appendix IV, where the critical enhancement, for
// which they used another equation of state, does not count: their own internal heat capacity.
TEST(Transport, PublishedConductivities) {
  using namespace conductivity_parts;
  const struct {
    double temp, dens, cond;
  } cases[] = {
      {220.0, 2.440, 10.90}, {300.0, 1.773, 16.77}, {800.0, 0.662, 56.65}, {800.0, 407.908, 78.48}};
  for (const auto& c : cases) {
    const double cond = dilute(c.temp, internal_heat_1990(c.temp)) + excess(c.dens);
    EXPECT_NEAR(1e3 * cond, c.cond, 0.005001) << c.temp << " " << c.dens;
  }
}

// Values for verification printed by Laesecke and Muzny (2017), mPa s, and for the model of Huber
// et al. (2016), the last with the newer and with the older viscosity in the critical enhancement.
TEST(Transport, PublishedValuesOfTheNewerModels) {
  const struct {
    double temp, dens, visc, half_digit;
  } viscosities[] = {{100.0, 0.0, 0.0053757, 5e-8},  {2000.0, 0.0, 0.066079, 5e-7},
                     {10000.0, 0.0, 0.17620, 5e-6},  {220.0, 3.0, 0.011104, 5e-7},
                     {225.0, 1150.0, 0.22218, 5e-6}, {300.0, 65.0, 0.015563, 5e-7},
                     {300.0, 1400.0, 0.50594, 5e-6}, {700.0, 100.0, 0.033112, 5e-7},
                     {700.0, 1200.0, 0.22980, 5e-6}};
  for (const auto& c : viscosities) {
    EXPECT_NEAR(1e-3 * viscosity_2017(c.temp, c.dens), c.visc, c.half_digit)
        << c.temp << " " << c.dens;
  }
  const struct {
    double temp, dens, visc, cond;  // the viscosity counts in the enhancement only
  } conductivities[] = {{250.0, 0.0, viscosity_2017(250.0, 0.0), 12.99},
                        {250.0, 2.0, viscosity_2017(250.0, 2.0), 13.05},
                        {250.0, 1058.0, viscosity_2017(250.0, 1058.0), 140.00},
                        {310.0, 400.0, viscosity_2017(310.0, 400.0), 73.04},
                        {310.0, 400.0, viscosity(310.0, 400.0), 72.28}};
  for (const auto& c : conductivities) {
    EXPECT_NEAR(1e3 * conductivity_2016(c.temp, c.dens, c.visc), c.cond, 0.005001)
        << c.temp << " " << c.dens << ", viscosity " << c.visc;
  }
}

TEST(Transport, EnhancementEndsAtTheReferenceTemperature) {
  const auto enhancement = [](const double temp, const double dens) {
    using namespace conductivity_parts;
    return conductivity_parts::enhancement(crossover_1990, temp, dens, viscosity(temp, dens));
  };
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
