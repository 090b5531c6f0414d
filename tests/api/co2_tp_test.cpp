#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "eos/properties.hpp"
#include "solvers/relocate.hpp"
#include "solvers/solve_density.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/entries.hpp"

namespace co2_properties {
namespace {

using test::next_below;

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
  int reached[17] = {};
  for (int sample = 0; sample < 100000; ++sample) {
    const double temp = in_temp(engine);
    const std::int32_t first = relocate(temp, in_dens(engine));
    const double pres = std::exp(in_log_pres(engine));
    const DensitySolution s = solve_density(first, temp, pres);
    SCOPED_TRACE(testing::Message() << first << ' ' << temp << " K " << pres << " kPa");
    ASSERT_TRUE(s.element >= 1 && s.element <= 649 && s.evaluations >= 1 && s.evaluations <= 16);
    ASSERT_EQ(s.converged, s.evaluations <= 14);
    ++reached[s.evaluations];
    if (!s.converged) continue;
    const Element& e = element(s.element);
    if (!keeps_element(s.dens - e.dens0, e.dens_width + 1e-4)) {
      ASSERT_EQ(s.element, relocate(temp, s.dens)) << "a density that no element covers";
      continue;
    }
    const Derivatives<double> d = evaluate(e, temp, s.dens);
    const double rounding = 1e-11 * std::abs(s.dens * d.dpdd);  // of stretched liquid
    ASSERT_NEAR(pressure(d, s.dens), pres, 1.1e-11 * pres + rounding);
  }
  // Or else the limits were not tried: met in the last evaluation that counts, in the one after it,
  // never.
  for (const int k : {14, 15, 16}) EXPECT_GT(reached[k], 100) << k;
}

}  // namespace
}  // namespace co2_properties
