#include "reference/phase_equilibrium.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "tests/support/csv.hpp"

namespace co2_properties::reference {
namespace {

using test::read_csv;
using test::WorstError;

const std::string data_dir = TEST_DATA_DIR;

// The data carry the zero points without the last digits of c1 and c2 (tests/data/README.md).
const long double h_shift = gas_constant * t_crit * (span_wagner::c2 - span_wagner::c2_usual);
const long double s_shift = gas_constant * (span_wagner::c1_usual - span_wagner::c1);

double relative(long double got, double expected) {
  return static_cast<double>(std::fabs(got / expected - 1));
}

// The densities of the data satisfy equal pressures to 6e-13, which dp/drho turns into 4e-12 of the
// density at their last temperature, 0.0082 K below critical.
TEST(PhaseEquilibrium, SaturationMatchesIndependentStates) {
  auto data = read_csv(data_dir + "/sat.csv");
  const char* columns[] = {"p_sat", "rho_l", "rho_v", "h_l", "h_v", "s_l", "s_v"};
  const double bounds[] = {5e-14, 1.2e-11, 9e-12, 4e-12, 3e-12, 3e-12, 2.2e-12};
  WorstError worst[7];
  for (std::size_t i = 0; i < data["T"].size(); ++i) {
    const double temp = data["T"][i];
    const auto sat = saturation<long double>(temp);
    const auto liq = properties(sat.temp, sat.dens_liq);
    const auto vap = properties(sat.temp, sat.dens_vap);
    const long double got[] = {sat.pres,        sat.dens_liq,    sat.dens_vap,   liq.h - h_shift,
                               vap.h - h_shift, liq.s - s_shift, vap.s - s_shift};
    for (int k = 0; k < 7; ++k) worst[k].note(relative(got[k], data[columns[k]][i]), temp, 0.0);
  }
  for (int k = 0; k < 7; ++k) {
    EXPECT_LT(worst[k].error, bounds[k]) << columns[k] << ", worst at T = " << worst[k].x;
  }
}

// The refrigeration reference state fixes h and s of the saturated liquid at 273.15 K.
TEST(PhaseEquilibrium, ReferenceState) {
  const double temp = 273.15;
  const auto liq = properties(temp, saturation(temp).dens_liq);
  EXPECT_NEAR(liq.h, 200.0, 2e-6);
  EXPECT_NEAR(liq.s, 1.0, 6e-9);
}

template <class Real>
void expect_equilibrium_up_to_critical(Real pres_bound) {
  Real wider = Real(d_crit);
  for (int k = 194; k >= -600; --k) {
    const Real temp = Real(t_crit) - std::pow(Real(10), Real(k) / 100);
    const auto sat = saturation(temp);
    const auto liq = properties(temp, sat.dens_liq);
    const auto vap = properties(temp, sat.dens_vap);
    SCOPED_TRACE(static_cast<double>(Real(t_crit) - temp));
    ASSERT_LT(std::fabs(liq.p - vap.p) / vap.p, pres_bound);
    ASSERT_LT(std::fabs((liq.h - vap.h) / temp - (liq.s - vap.s)), pres_bound / 100);
    ASSERT_TRUE(liq.dpdd > 0 && vap.dpdd > 0 && sat.dens_vap < Real(d_crit));
    ASSERT_LT(sat.dens_liq - sat.dens_vap, wider * 4) << "the phases approach each other";
    ASSERT_GT(sat.slope, Real(20));
    wider = (sat.dens_liq - sat.dens_vap) / 4;
    ASSERT_GT(wider, Real(0));
  }
}

TEST(PhaseEquilibrium, SolvesFromTheTriplePointToAMicrokelvinBelowCritical) {
  expect_equilibrium_up_to_critical<double>(1e-12);
  expect_equilibrium_up_to_critical<long double>(8e-16L);
  EXPECT_TRUE(std::isnan(saturation(t_crit).pres));
  EXPECT_TRUE(std::isnan(saturation(std::nan("")).pres));
  EXPECT_TRUE(std::isnan(saturation_at_pressure(7378.0).temp));
}

TEST(PhaseEquilibrium, SaturationAtPressureInverts) {
  for (const long double temp : {220.0L, 260.0L, 300.0L, 304.0L, 304.12L, 304.128L}) {
    const auto sat = saturation(temp);
    EXPECT_LT(std::fabs(saturation_at_pressure(sat.pres).temp / temp - 1), 1e-16L) << temp;
  }
}

// The listed densities come back from (T, p), to the rounding of p over dp/drho.
TEST(PhaseEquilibrium, DensityInvertsThePressure) {
  for (const char* name : {"/td_single.csv", "/td_critical.csv"}) {
    auto data = read_csv(data_dir + name);
    WorstError worst;
    for (std::size_t i = 0; i < data["T"].size(); ++i) {
      const double temp = data["T"][i], dens = data["rho"][i], pres = data["p"][i];
      const double amplified = pres / (dens * data["dpdrho_T"][i]);
      worst.note(relative(density(temp, pres), dens) / std::max(1.0, amplified), temp, dens);
    }
    EXPECT_LT(worst.error, 6e-14) << name << " " << worst.x << " " << worst.y;
  }
}

TEST(PhaseEquilibrium, DensityStaysInItsPhase) {
  const double temp = 280.0;
  const auto sat = saturation(temp);
  EXPECT_DOUBLE_EQ(density(temp, 0.9 * sat.pres, Phase::liquid), sat.dens_liq);
  EXPECT_DOUBLE_EQ(density(temp, 1.1 * sat.pres, Phase::vapour), sat.dens_vap);
  EXPECT_LT(density(temp, sat.pres * (1 - 1e-9)), sat.dens_vap);
  EXPECT_GT(density(temp, sat.pres * (1 + 1e-9)), sat.dens_liq);
  const double extremes[][2] = {{216.6, 8e5}, {240.0, 1e-3}, {t_crit, 7377.0}, {1500.0, 1e5}};
  for (const auto& [t, p] : extremes) {
    EXPECT_NEAR(properties(t, density(t, p)).p / p, 1.0, 2e-14) << t << " " << p;
  }
}

}  // namespace
}  // namespace co2_properties::reference
