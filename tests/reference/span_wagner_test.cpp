#include "tablegen/reference/span_wagner.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/support/csv.hpp"

namespace co2_properties::reference {
namespace {

using test::read_csv;
using test::WorstError;

const std::string data_dir = TEST_DATA_DIR;

// The tables' zero points lie this far above those of the independent data (see c1 and c2).
const double h_shift =
    static_cast<double>(gas_constant * t_crit * (span_wagner::c2 - span_wagner::c2_usual));
const double s_shift =
    static_cast<double>(gas_constant * (span_wagner::c1_usual - span_wagner::c1));

struct ColumnCase {
  const char* column;
  double Properties<double>::*value;
  double shift;
  double bound_single, bound_critical;  // relative, at most three times the measured maxima
};

// An independent implementation of the same equation, 17 digits (tests/data/README.md). The bounds
// hold both roundings: p cancels in the cold liquid, and where dp/drho nearly vanishes it is known to
// 1e-8 only, and cp with it.
TEST(SpanWagner, MatchesIndependentStates) {
  const ColumnCase cases[] = {
      {"p", &Properties<double>::p, 0.0, 1e-12, 6e-14},
      {"u", &Properties<double>::u, h_shift, 3e-14, 5e-14},
      {"h", &Properties<double>::h, h_shift, 4e-14, 5e-14},
      {"s", &Properties<double>::s, s_shift, 5e-14, 5e-14},
      {"cv", &Properties<double>::cv, 0.0, 4e-13, 4e-12},
      {"cp", &Properties<double>::cp, 0.0, 8e-13, 1.5e-8},
      {"w", &Properties<double>::w, 0.0, 5e-13, 2e-12},
      {"dpdrho_T", &Properties<double>::dpdd, 0.0, 1.2e-12, 1.5e-8},
      {"dpdT_rho", &Properties<double>::dpdt, 0.0, 2.5e-13, 6e-13},
  };
  for (const bool critical : {false, true}) {
    auto data = read_csv(data_dir + (critical ? "/td_critical.csv" : "/td_single.csv"));
    ASSERT_GE(data["T"].size(), 500u);
    for (const ColumnCase& c : cases) {
      WorstError worst;
      for (std::size_t i = 0; i < data["T"].size(); ++i) {
        const double temp = data["T"][i], dens = data["rho"][i], expected = data[c.column][i];
        const double got = properties(temp, dens).*c.value - c.shift;
        worst.note(std::fabs(got / expected - 1.0), temp, dens);
      }
      EXPECT_LT(worst.error, critical ? c.bound_critical : c.bound_single)
          << c.column << (critical ? ", critical set" : "") << ", worst at T = " << worst.x
          << ", rho = " << worst.y;
      RecordProperty(std::string(c.column) + (critical ? "_critical" : ""),
                     std::to_string(worst.error * 1e15) + "e-15");
    }
  }
}

// The same near-critical states in both precisions: the rounding of double, free of other errors.
TEST(SpanWagner, DoubleAgreesWithLongDoubleNearTheCriticalPoint) {
  auto data = read_csv(data_dir + "/td_critical.csv");
  WorstError worst_cv, worst_dpdd;
  for (std::size_t i = 0; i < data["T"].size(); ++i) {
    const double temp = data["T"][i], dens = data["rho"][i];
    const auto fine = properties<long double>(temp, dens);
    const auto coarse = properties<double>(temp, dens);
    worst_cv.note(std::fabs(static_cast<double>(coarse.cv / fine.cv - 1.0L)), temp, dens);
    // dp/drho is a difference of terms of the size of R T.
    const long double unit = gas_constant * temp;
    worst_dpdd.note(std::fabs(static_cast<double>((coarse.dpdd - fine.dpdd) / unit)), temp, dens);
  }
  EXPECT_LT(worst_cv.error, 1e-12) << worst_cv.x << " " << worst_cv.y;
  EXPECT_LT(worst_dpdd.error, 1e-13) << worst_dpdd.x << " " << worst_dpdd.y;
}

TEST(SpanWagner, ZeroPointsAreExactAtTheCriticalPoint) {
  const auto at = properties<long double>(t_crit, d_crit);
  EXPECT_LT(std::fabs(at.h - h_crit), 1e-14L);
  EXPECT_LT(std::fabs(at.s - s_crit), 1e-16L);
  EXPECT_NEAR(static_cast<double>(at.p), 7377.29837, 5e-6);
}

}  // namespace
}  // namespace co2_properties::reference
