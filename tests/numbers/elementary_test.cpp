// Accuracy is measured by the program numbers_report.

#include "numbers/elementary.hpp"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <limits>

#include "numbers/logarithm.hpp"
#include "tests/support/bits.hpp"

namespace co2_properties {
namespace {

using test::infinity;
using test::not_a_number;

TEST(Logarithm, OfNumbersThatAreNotNormal) {
  using limits = std::numeric_limits<double>;
  struct Case {
    double x, log;
    const char* why;
  };
  const Case cases[] = {
      {1.0, 0.0, "exact"},
      {0.0, -infinity, "zero"},
      {-0.0, -infinity, "negative zero"},
      {infinity, infinity, "infinity"},
      {-1.0, not_a_number, "negative"},
      {-limits::denorm_min(), not_a_number, "negative and not normal"},
      {-infinity, not_a_number, "negative infinity"},
      {not_a_number, not_a_number, "NaN"},
      {limits::denorm_min(), -0x1.74385446d71c3p+9, "-1074 ln 2"},
      {0x1p-1023, -0x1.628b76e3a7b61p+9, "-1023 ln 2"},
      {limits::min(), -0x1.6232bdd7abcd2p+9, "-1022 ln 2: the smallest normal number"},
      {limits::max(), 0x1.62e42fefa39efp+9, "1024 ln 2 to rounding"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.why);
    const volatile double x = c.x;
    std::feclearexcept(FE_ALL_EXCEPT);
    const double log = logarithm(x);
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT & ~FE_INEXACT), 0);
    if (std::isnan(c.log)) {
      EXPECT_TRUE(std::isnan(log));
    } else {
      EXPECT_EQ(log, c.log);
      EXPECT_EQ(std::signbit(log), std::signbit(c.log));
    }
  }
}

TEST(CubeRoot, OfCubes) {
  for (int k = 1; k < 2000; ++k) {
    const double x = k * 0x1p-40;
    const double root = cube_root(x * x * x);
    EXPECT_NEAR(root, x, cube_root_error * (std::nextafter(x, infinity) - x)) << k;
  }
  EXPECT_TRUE(std::isnan(cube_root(not_a_number)));
}

}  // namespace
}  // namespace co2_properties
