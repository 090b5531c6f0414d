// Inputs at and far beyond the limits, with traps for floating-point exceptions where there are
// any.

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <limits>
#include <vector>

#include "api/co2_properties.hpp"
#include "tests/support/entries.hpp"
#include "tools/solver_report/traps.hpp"

namespace co2_properties {
namespace {

using solver_report::Traps;
using solver_report::unwanted_exceptions;

constexpr double largest = std::numeric_limits<double>::max();

struct Call {
  const test::Entry& entry;
  double first, second;
  std::int32_t ierr;
  const char* why;
};

const Call calls[] = {
    {test::td, 0x1.3a4d213ecca37p+10, 0x1.0e84c1772174cp+11, 104,
     "82 MPa and no speed of sound up there"},
    {test::td, 280.0, 1500.0, 104, "beyond the densest liquid"},
    {test::td, 280.0, largest, 104, "overflows the polynomials"},
    {test::td, 1500.0, largest, 104, "overflows the polynomials"},
    {test::tp, 239.0, largest, 204, "any pressure"},
    {test::tp, largest, 100.0, 202, "any temperature"},
    {test::ps, 50.0, 1.0, 401, "liquid that is boiling"},
    {test::ps, 62.2, 1.0, 401, "just below the end of the saturation line"},
    {test::ph, 17.93, 172.97, 301, "500 kg/m3 with a negative heat capacity"},
    {test::ph, 0x1.25ac3d86ae1d6p+16, -0x1.f38b4def0557cp+6, 301,
     "540 kg/m3 inside the dome, at 75 MPa"},
    {test::ps, 0x1.e0d02abfb5eb2p+2, 0x1.afadf19021d44p+2, 402, "NaN within the band of warnings"},
    {test::ph, 13.5, 156.15, 301, "the band of warnings, at 13 kPa"},
    {test::ph, 5.7, -1368.0, 301, "far below, from where the iteration ends above 1500 K"},
    {test::ph, 1167.7, 3681.0, 302, "far above"},
    {test::ph, 9989.0, 2669.5, 302, "far above, where the saturation line has long ended"},
    {test::ph, 11282.0, -721.0, 301, "far below, where the saturation line has long ended"},
    {test::ph, 100.0, largest, 302, "overflows the start values"},
    {test::ph, 100.0, -largest, 301, "overflows the start values"},
    {test::ps, 1e5, largest, 402, "overflows the start values"},
    {test::ps, 1e5, -largest, 401, "overflows the start values"},
    {test::ps, 0x1.0000000000003p+0, 0x1.53d98baa62afap+1, 401, "an iterate without a density"},
};

TEST(Limits, InputsBeyondThemGetTheirCodesAndRaiseNothing) {
  constexpr std::size_t count = 19;  // whole vectors and a rest
  for (const Call& c : calls) {
    SCOPED_TRACE(testing::Message() << c.first << ", " << c.second << ": " << c.why);
    test::Result r;
    std::vector<std::int32_t> codes(count, test::Result::unset);
    std::vector<double> ssnd(count);
    std::vector<double> qual(count);
    {
      const Traps traps(true);
      c.entry.by_set(c.first, c.second, r.ierr, r.out.subset(test::all_outputs));
      c.entry.batch({&c.first, count, 0}, {&c.second, count, 0}, codes,
                    {.qual = qual, .ssnd = ssnd});
      EXPECT_EQ(std::fetestexcept(unwanted_exceptions), 0);
    }
    EXPECT_EQ(r.ierr, c.ierr);
    EXPECT_EQ(codes, std::vector<std::int32_t>(count, c.ierr));
  }
}

// What is refused next to it must not take real states along.
TEST(Limits, ColdVapourAtLowPressureComesBack) {
  for (const double pres : {1.0, 17.93, 50.0, 62.2, 62.3, 1000.0, 1282.4}) {
    for (const double temp : {240.000001, 241.0, 260.0}) {
      SCOPED_TRACE(testing::Message() << pres << " kPa, " << temp << " K");
      double enth = 0.0;
      double entr = 0.0;
      double found = 0.0;
      std::int32_t ierr = 77;
      co2_tp(temp, pres, ierr, {.enth = &enth, .entr = &entr});
      co2_ph(pres, enth, ierr, {.temp = &found});
      EXPECT_EQ(ierr, 0);
      EXPECT_NEAR(found, temp, 1e-7);
      co2_ps(pres, entr, ierr, {.temp = &found});
      EXPECT_EQ(ierr, 0);
      EXPECT_NEAR(found, temp, 1e-7);
    }
  }
}

// From the isobar of 100 MPa on, through the rest of the densest elements and beyond them.
TEST(Limits, NoDensityBeyondThatOfTheHighestPressureIsAccepted) {
  for (double temp = temp_min; temp <= temp_max; temp += temp < 310.0 ? 0.05 : 1.0) {
    double highest = 0.0;
    std::int32_t ierr = 77;
    co2_tp(temp, pres_max, ierr, {.dens = &highest});
    for (double dens = highest * (1.0 + 1e-6); dens < 1e4; dens *= 1.01) {
      double pres = 0.0;
      co2_td(temp, dens, ierr, {.pres = &pres});
      ASSERT_EQ(ierr, status::td_pres_above_max) << temp << " K, " << dens << " kg/m3";
    }
  }
}

}  // namespace
}  // namespace co2_properties
