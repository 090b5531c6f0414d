#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "api/relocate.hpp"
#include "api/solve_density.hpp"
#include "eos/properties.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/csv.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/tolerance.hpp"

namespace co2_properties {
namespace {

using test::infinity;
using test::next_below;
using test::not_a_number;

// The entry does not evaluate the saturation pressure where these bounds decide.
TEST(Tp, SaturationPressureLiesWithinTheBoundsThatAreTakenForGranted) {
  for (int k = 0; k <= 20000; ++k) {
    const double temp = 240.0 + (next_below(304.1282) - 240.0) * k / 20000;
    ASSERT_GT(calc_sat_pres(temp), 1282.0) << temp;
    ASSERT_LT(calc_sat_pres(temp), 7378.0) << temp;
  }
}

// ---- Solution ----------------------------------------------------------------------------------

// From any element at the temperature, near or far, the solver either meets the pressure in time or
// says so.
TEST(SolveDensity, MeetsThePressureOrSaysThatItDoesNot) {
  std::mt19937_64 engine(3);
  std::uniform_real_distribution<double> in_temp(240.0, 400.0);
  std::uniform_real_distribution<double> in_dens(0.0, 1300.0);
  std::uniform_real_distribution<double> in_log_pres(0.0, std::log(1e5));
  int late = 0;
  for (int sample = 0; sample < 100000; ++sample) {
    const double temp = in_temp(engine);
    const std::int32_t first = relocate(temp, in_dens(engine));
    const double pres = std::exp(in_log_pres(engine));
    const DensitySolution s = solve_density(first, temp, pres);
    SCOPED_TRACE(testing::Message() << first << ' ' << temp << " K " << pres << " kPa");
    ASSERT_GE(s.element, 1);
    ASSERT_LE(s.element, 649);
    ASSERT_GE(s.evaluations, 1);
    ASSERT_LE(s.evaluations, 16);
    ASSERT_EQ(s.converged, s.evaluations <= 14);
    if (!s.converged) {
      ++late;
      continue;
    }
    const Element& e = element(s.element);
    if (!keeps_element(s.dens - e.dens0, e.dens_width + 1e-4)) {
      ASSERT_EQ(s.element, relocate(temp, s.dens)) << "a density that no element covers";
      continue;
    }
    const HelmholtzDerivatives d = evaluate(e, temp, s.dens, 0.0);
    const double rounding = 1e-11 * std::abs(s.dens * dpdd(d, s.dens));  // of stretched liquid
    ASSERT_NEAR(pressure(d, s.dens), pres, 1.1e-11 * pres + rounding);
  }
  EXPECT_GT(late, 100) << "or else the limit was not tried";
}

TEST(SolveDensity, OddInputsEndAtTheLimit) {
  for (const double odd : {not_a_number, infinity, -infinity, 0.0, -1.0}) {
    const DensitySolution s = solve_density(300, 310.0, odd);
    EXPECT_FALSE(s.converged) << odd;
    EXPECT_EQ(s.evaluations, 16) << odd;
    EXPECT_FALSE(solve_density(300, odd, 5000.0).converged && odd != odd) << odd;
  }
}

// Isotherms are nearly flat and elements are 10 kg/m3 wide here. Iterates that stop within the
// margin of an element, past its edge, bring the density back to some 1e-6 only.
TEST(Tp, SolvesEveryStateAroundTheCriticalPoint) {
  std::mt19937_64 engine(5);
  std::uniform_real_distribution<double> in_temp(303.5, 305.0);
  std::uniform_real_distribution<double> in_dens(380.0, 560.0);
  std::uniform_real_distribution<double> in_exponent(-6.0, 0.0);
  test::WorstError dens_error;
  int off = 0;
  int solved = 0;
  while (solved < 200000) {
    // Half of the temperatures close in on the critical one, half of those densities on saturation.
    double temp = in_temp(engine);
    double dens = in_dens(engine);
    const double closeness = std::pow(10.0, in_exponent(engine));
    if (engine() % 2 == 0) {
      temp = t_crit - 0.1 * closeness;
      if (engine() % 2 == 0) dens = calc_sat_liq_dens(temp) * (1.0 + 0.01 * closeness);
    }
    std::int32_t ierr = 77;
    double pres = 0.0;
    double slope = 0.0;
    co2_td(temp, dens, ierr, {.pres = &pres, .dpdd = &slope});
    if (ierr != 0 || slope == 0.0 || (temp < t_crit && pres == calc_sat_pres(temp))) continue;
    ++solved;
    double found = 0.0;
    co2_tp(temp, pres, ierr, {.dens = &found});
    ASSERT_EQ(ierr, 0) << temp << " K " << dens << " kg/m3";
    // Saturated liquid may have a pressure below that of saturation, by the errors of the fits.
    const bool same_side = temp >= t_crit || (dens > d_crit) == (pres > calc_sat_pres(temp));
    if (!same_side || dens * slope < 1.0) continue;
    const double error = std::abs(found / dens - 1.0);
    dens_error.note(error, temp, dens);
    if (error > 1e-9) ++off;
  }
  EXPECT_LT(dens_error.error, 7.5e-7) << dens_error.x << " K " << dens_error.y;
  EXPECT_LT(off, 60);
}

// States of Span & Wagner (1996), tests/data/README.md, outside the box around the critical point.
TEST(Tp, DensityFollowsTheReference) {
  for (const char* file : {TEST_DATA_DIR "/td_single.csv", TEST_DATA_DIR "/td_critical.csv"}) {
    auto columns = test::read_csv(file);
    test::WorstError worst;
    for (std::size_t k = 0; k < columns["T"].size(); ++k) {
      const double temp = columns["T"][k];
      const double dens = columns["rho"][k];
      const bool box = temp > 302.9 && temp < 310.0 && dens > 350.0 && dens < 580.0;
      // In the last 0.001 % to saturation the phase may differ.
      if (box || std::abs(columns["p"][k] / calc_sat_pres(std::min(temp, 304.0)) - 1.0) < 1e-5) {
        continue;
      }
      std::int32_t ierr = 77;
      double found = 0.0;
      co2_tp(temp, columns["p"][k], ierr, {.dens = &found});
      ASSERT_EQ(ierr, 0) << temp << " K " << dens << " kg/m3";
      worst.note(std::abs(found / dens - 1.0), temp, dens);
    }
    EXPECT_LT(worst.error, 5e-7) << file << ": " << worst.x << " K " << worst.y;
  }
}

}  // namespace
}  // namespace co2_properties
