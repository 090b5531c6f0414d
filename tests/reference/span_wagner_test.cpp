#include "reference/span_wagner.hpp"

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
// hold both roundings: p cancels in the cold liquid, and where dp/drho nearly vanishes it is known
// to 1e-8 only, and cp with it.
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
    ASSERT_GE(data["T"].size(), 500U);
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

TEST(SpanWagner, ZeroPointsAreExactAtTheCriticalPoint) {
  const auto at = properties<long double>(t_crit, d_crit);
  EXPECT_LT(std::fabs(at.h - h_crit), 1e-14L);
  EXPECT_LT(std::fabs(at.s - s_crit), 1e-16L);
  EXPECT_NEAR(static_cast<double>(at.p), 7377.29837, 5e-6);
}

// Central differences of fourth order in long double: a_t, a_d from a, the second derivatives from
// the first. The step is relative to the distance over which the equation bends.
TEST(SpanWagner, DerivativesMatchDifferenceQuotients) {
  struct Case {
    const char* why;
    long double temp, dens, step_temp, step_dens;
  };
  const Case cases[] = {
      {"dilute gas: ideal part alone", 700.0L, 0.01L, 0.3L, 1e-6L},
      {"cold liquid: high powers of delta", 240.0L, 1200.0L, 0.02L, 0.1L},
      {"hot and dense: non-analytic terms cut off", 1400.0L, 600.0L, 0.3L, 0.1L},
      {"all terms, theta > 0", 301.0L, 700.0L, 0.003L, 0.03L},
      {"all terms, theta < 0", 306.0L, 430.0L, 0.003L, 0.03L},
      {"close to the critical point", 304.2L, 466.0L, 1e-4L, 1e-3L},
      {"on the critical isotherm", t_crit, 400.0L, 1e-3L, 1e-2L},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.why);
    auto at_temp = [&](int k) { return helmholtz<long double>(c.temp + k * c.step_temp, c.dens); };
    auto at_dens = [&](int k) { return helmholtz<long double>(c.temp, c.dens + k * c.step_dens); };
    using Member = long double Helmholtz<long double>::*;
    auto quotient = [](auto at, Member f, long double step) {
      return (8 * (at(1).*f - at(-1).*f) - (at(2).*f - at(-2).*f)) / (12 * step);
    };
    using H = Helmholtz<long double>;
    const H here = at_temp(0);
    const struct {
      Member derivative;
      long double quotient;
    } pairs[] = {
        {&H::a_t, quotient(at_temp, &H::a, c.step_temp)},
        {&H::a_d, quotient(at_dens, &H::a, c.step_dens)},
        {&H::a_tt, quotient(at_temp, &H::a_t, c.step_temp)},
        {&H::a_dd, quotient(at_dens, &H::a_d, c.step_dens)},
        {&H::a_td, quotient(at_dens, &H::a_t, c.step_dens)},
        {&H::a_td, quotient(at_temp, &H::a_d, c.step_temp)},
    };
    for (const auto& pair : pairs) {
      const long double ratio = pair.quotient / (here.*pair.derivative);
      EXPECT_LT(std::fabs(ratio - 1), 2.5e-12L) << "pair " << &pair - pairs;
    }
  }
}

// The non-analytic terms hold roots and powers of delta - 1 and of their distance function, which
// vanish on the critical isochore and at the critical point.
TEST(SpanWagner, CriticalIsochoreIsReachedContinuously) {
  const struct {
    const char* why;
    double temp;
  } cases[] = {{"below", 290.0}, {"near, above", 304.2}, {"above", 350.0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const auto on = helmholtz(c.temp, d_crit);
    for (const double dens : {std::nextafter(d_crit, 0.0), std::nextafter(d_crit, 1e3)}) {
      const auto beside = helmholtz(c.temp, dens);
      EXPECT_NEAR(beside.a_d / on.a_d, 1.0, 1e-13);
      EXPECT_NEAR(beside.a_tt / on.a_tt, 1.0, 1e-12);
      EXPECT_NEAR(beside.a_dd / on.a_dd, 1.0, 1e-12);
      EXPECT_NEAR(beside.a_td / on.a_td, 1.0, 1e-12);
    }
  }
  const auto critical = properties(t_crit, d_crit);
  EXPECT_TRUE(std::isfinite(critical.cv) && std::isfinite(critical.dpdd));
  EXPECT_GT(properties(t_crit + 1e-9, d_crit).cv, 10.0) << "cv rises without bound";
}

}  // namespace
}  // namespace co2_properties::reference
