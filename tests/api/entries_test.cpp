// What the entries have in common: the order of their tests, errors, subsets of the outputs,
// the forms of a call, odd inputs.

#include "tests/support/entries.hpp"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <random>
#include <vector>

#include "solvers/solve_caloric.hpp"

namespace co2_properties {
namespace {

using test::bits;
using test::Entry;
using test::infinity;
using test::next_above;
using test::next_below;
using test::not_a_number;
using test::ph;
using test::ps;
using test::px;
using test::Result;
using test::td;
using test::tp;
using test::tx;

// ---- Codes -------------------------------------------------------------------------------------

struct Checked {
  const Entry& entry;
  double first, second;
  std::int32_t code;  ///< less the base of the entry
  const char* why;
};

void expect_code(const Checked& c) {
  SCOPED_TRACE(testing::Message() << c.entry.name << ' ' << c.first << ", " << c.second << ": "
                                  << c.why);
  const Result r = c.entry(c.first, c.second);
  const std::int32_t sign = c.code < 0 ? -1 : 1;
  EXPECT_EQ(r.ierr, c.code == 0 ? 0 : sign * c.entry.base + c.code);
  test::expect_written(r);
}

TEST(Entries, CheckTheirInputsInOrder) {
  const double sat = calc_sat_pres(280.0);
  const double hottest = next_below(304.1282);
  const Checked cases[] = {
      {td, 300.0, next_below(0.0035287466), 3, "density below its limit"},
      {td, 1600.0, 0.001, 3, "density is tested before a temperature above"},
      {td, 200.0, -1.0, 3, "density is tested before a temperature below"},
      {td, 1500.0, 0.0035287466, 0, "all limits at once"},
      {td, next_above(1500.0), 10.0, 2, "beyond the highest temperature"},
      {td, 240.0, 10.0, 0, "lowest temperature"},
      {td, next_below(240.0), 10.0, 1, "below the lowest temperature"},
      {td, 240.0, 0.0035287466, 3, "vapour pressure below 1 kPa"},
      {td, 400.0, 0.01, 3, "supercritical pressure below 1 kPa"},
      {td, 300.0, 1250.0, 4, "liquid pressure above 100000 kPa"},
      {td, 1000.0, 600.0, 4, "supercritical pressure above 100000 kPa"},
      {td, 300.0, 400.0, -1, "two phases"},
      {td, not_a_number, 2.0, -1, "NaN passes the tests of temperature"},
      {td, 280.0, not_a_number, -1, "NaN passes the tests of density"},
      {td, 303.0, not_a_number, -1, "NaN passes the tests of density"},
      {td, 400.0, not_a_number, 0, "NaN passes the tests of density and pressure"},
      {td, not_a_number, not_a_number, -1, "NaN passes all tests"},

      {tp, 240.0, 100000.0, 0, "coldest and densest"},
      {tp, 1500.0, 1.0, 0, "hottest and thinnest"},
      {tp, 300.0, next_below(1.0), 3, "below the lowest pressure"},
      {tp, 300.0, next_above(100000.0), 4, "above the highest pressure"},
      {tp, 239.99, 0.5, 3, "pressure is tested before a temperature below"},
      {tp, 1501.0, 0.5, 3, "pressure is tested before a temperature above"},
      {tp, 239.99, 2e5, 4, "pressure is tested before a temperature below"},
      {tp, next_below(240.0), 5000.0, 1, "below the lowest temperature"},
      {tp, next_above(1500.0), 5000.0, 2, "above the highest temperature"},
      {tp, 280.0, sat, 5, "saturation"},
      {tp, 240.0, calc_sat_pres(240.0), 5, "cold end of the saturation line"},
      {tp, hottest, calc_sat_pres(hottest), 5, "its hot end"},
      {tp, 300.0, infinity, 4, "infinite inputs"},
      {tp, infinity, 5000.0, 2, "infinite inputs"},
      {tp, 280.0, not_a_number, 5, "NaN is neither below nor above saturation"},
      {tp, 304.1282, not_a_number, 7, "NaN is never met"},
      {tp, not_a_number, 5000.0, 7, "NaN is not below the critical temperature"},
      {tp, not_a_number, 0.5, 3, "pressure comes first"},
      {tp, not_a_number, not_a_number, 7, "NaN passes all tests"},

      {ph, 500.0, 400.0, -1, "the temperature of a mixture is not tested"},

      {tx, 240.0, 0.0, -1, "cold end of the saturation line, a mixture without vapour"},
      {tx, 304.1282, 1.0, -1, "the critical point, a mixture without liquid"},
      {tx, next_below(240.0), 0.5, 1, "below the lowest temperature"},
      {tx, next_above(304.1282), 0.5, 2, "above the critical temperature"},
      {tx, not_a_number, -1.0, 5, "temperature comes first"},
      {tx, 280.0, not_a_number, 5, "NaN is no quality"},
      {tx, 280.0, -5e-324, 6, "less than no vapour"},
      {tx, 280.0, next_above(1.0), 6, "more than all vapour"},
      {px, 1282.4835, 0.0, -1, "cold end of the saturation line"},
      {px, 7377.3, 1.0, -1, "the critical pressure"},
      {px, next_below(1282.4835), 0.5, 3, "below the saturation line"},
      {px, next_above(7377.3), 0.5, 4, "above the critical pressure"},
      {px, infinity, 2.0, 4, "pressure comes first"},
      {px, not_a_number, 0.5, 5, "NaN is no pressure"},
      {px, 3000.0, infinity, 6, "more than all vapour"},
  };
  for (const Checked& c : cases) expect_code(c);

  struct Caloric {
    double pres, enth, entr;
    std::int32_t code;
    const char* why;
  };
  const Caloric caloric[] = {
      {1.0, 600.0, 3.8, 0, "lowest pressure"},
      {100000.0, 600.0, 1.8, 0, "highest pressure"},
      {next_below(1.0), 600.0, 3.8, 3, "below the lowest pressure"},
      {next_above(100000.0), 600.0, 1.8, 4, "above the highest pressure"},
      {0.5, not_a_number, not_a_number, 3, "pressure comes first"},
      {2e5, -1e9, -1e9, 4, "pressure comes first"},
      {5000.0, 50.0, 0.3, 1, "liquid too cold"},
      {50000.0, 50.0, 0.3, 1, "liquid too cold above the critical pressure"},
      {500.0, 440.0, 2.16, 1, "vapour too cold"},
      {5000.0, 2000.0, 4.0, 2, "too hot"},
      {50000.0, 2000.0, 3.5, 2, "too hot above the critical pressure"},
      {5000.0, not_a_number, not_a_number, 5, "NaN is never met"},
      {not_a_number, 600.0, 2.5, 5, "NaN passes the tests of pressure"},
      {not_a_number, not_a_number, not_a_number, 5, "NaN passes all tests"},
      {5000.0, infinity, infinity, 5, "infinite inputs are never met"},
      {5000.0, -infinity, -infinity, 5, "infinite inputs are never met"},
      {50000.0, -infinity, -infinity, 5, "infinite inputs are never met"},
  };
  for (const Caloric& c : caloric) {
    expect_code({ph, c.pres, c.enth, c.code, c.why});
    expect_code({ps, c.pres, c.entr, c.code, c.why});
  }
}

// ---- Forms of a call ---------------------------------------------------------------------------

struct Given {
  const Entry& entry;
  double first, second;
  const char* why;
};
const Given given[] = {
    {td, 250.0, 20.0, "vapour"},
    {td, 302.0, 280.0, "vapour just below the dome"},
    {td, 270.0, 1000.0, "liquid"},
    {td, 302.0, 640.0, "liquid just above the dome"},
    {td, 260.0, 400.0, "two phases"},
    {td, 304.0, 470.0, "two phases near the critical point"},
    {td, 305.0, 450.0, "near-critical fits"},
    {td, 305.0, 360.0, "near-critical fits, cp from the element"},
    {td, 700.0, 100.0, "supercritical"},
    {td, 1600.0, 100.0, "an error"},
    {tp, 250.0, 900.0, "vapour"},
    {tp, 302.0, 6900.0, "vapour close to saturation"},
    {tp, 270.0, 20000.0, "liquid"},
    {tp, 302.0, 7200.0, "liquid close to saturation"},
    {tp, 305.0, 7500.0, "near-critical fits"},
    {tp, 309.0, 8200.0, "near-critical fits"},
    {tp, 700.0, 20000.0, "supercritical"},
    {tp, 1400.0, 1.5, "thin gas"},
    {tp, 1600.0, 100.0, "an error"},
    {ph, 900.0, 450.0, "vapour"},
    {ph, 20000.0, 180.0, "liquid"},
    {ph, 7500.0, 330.0, "near-critical fits"},
    {ph, 20000.0, 900.0, "supercritical"},
    {ph, 1.5, 1700.0, "thin gas"},
    {ph, 3000.0, 300.0, "two phases"},
    {ph, 5000.0, 3000.0, "an error"},
    {ps, 900.0, 2.0, "vapour"},
    {ps, 20000.0, 0.9, "liquid"},
    {ps, 7500.0, 1.43, "near-critical fits"},
    {ps, 20000.0, 2.6, "supercritical"},
    {ps, 1.5, 5.2, "thin gas"},
    {ps, 3000.0, 1.4, "two phases"},
    {ps, 5000.0, 4.0, "an error"},
    {tx, 260.0, 0.3, "two phases"},
    {px, 7300.0, 0.7, "two phases"},
    {px, 3000.0, 1.5, "an error"},
};

#define CO2_TEST_C_MEMBER(name) &co2_output_set::name
constexpr std::array c_members = {CO2_TEST_OUTPUTS(CO2_TEST_C_MEMBER)};

template <std::size_t... k>
void call_by_position(const Given& g, Result& cpp, Result& c, const test::Mask mask,
                      std::index_sequence<k...> /*all*/) {
  const OutputSet to_cpp = cpp.out.subset(mask);
  const OutputSet to_c = c.out.subset(mask);
  g.entry.by_position(g.first, g.second, cpp.ierr, to_cpp.*test::output_members[k]...);
  g.entry.c_by_position(&g.first, &g.second, &c.ierr, to_c.*test::output_members[k]...);
}

TEST(Entries, AnySubsetAndAnyFormGivesTheBitsOfTheFullCall) {
  std::mt19937_64 engine(1);
  for (const Given& g : given) {
    const Result full = g.entry(g.first, g.second);
    for (std::size_t i = 0; i <= 60; ++i) {
      const test::Mask mask =
          i < test::output_count ? 1U << i : static_cast<test::Mask>(engine()) & test::all_outputs;
      SCOPED_TRACE(testing::Message()
                   << g.entry.name << ' ' << g.why << ", outputs " << std::hex << mask);
      const bool warns = full.ierr >= 0 || (mask & g.entry.single_phase_only) != 0;
      Result forms[4];  // by set and by position, in C++ and C
      forms[0] = g.entry(g.first, g.second, mask);
      call_by_position(g, forms[1], forms[2], mask, test::all_slots);
      co2_output_set to_c = {};
      const OutputSet to_cpp = forms[3].out.subset(mask);
      for (std::size_t k = 0; k < test::output_count; ++k) {
        to_c.*c_members[k] = to_cpp.*test::output_members[k];
      }
      g.entry.c_by_set(&g.first, &g.second, &forms[3].ierr, &to_c);
      for (const Result& form : forms) {
        SCOPED_TRACE(testing::Message() << "form " << &form - forms);
        EXPECT_EQ(form.ierr, warns ? full.ierr : 0);
        test::expect_same(form.out, full.out, mask);
      }
    }
    double first = g.first;
    double second = g.second;
    double enth = 0.0;
    std::int32_t ierr = Result::unset;
    g.entry.by_set(first, second, ierr, {.temp = &second, .pres = &first, .enth = &enth});
    EXPECT_EQ(bits(first), bits(full[test::pres])) << g.why << ": outputs over the inputs";
    EXPECT_EQ(bits(second), bits(full[test::temp])) << g.why << ": outputs over the inputs";
    EXPECT_EQ(bits(enth), bits(full[test::enth])) << g.why << ": outputs over the inputs";
    EXPECT_EQ(g.entry(g.first, g.second, 0).ierr, full.ierr > 0 ? full.ierr : 0) << "no output";
  }
}

TEST(Entries, ShortCallsResolveToOneOverload) {
  const Result full = td(300.0, 50.0);
  std::int32_t ierr = Result::unset;
  double a = 0.0;
  double b = 0.0;
  co2_td(300.0, 50.0, ierr);
  EXPECT_EQ(ierr, 0);
  co2_td(300.0, 0.001, ierr);
  EXPECT_EQ(ierr, status::td_pres_below_min) << "the status needs no output";
  co2_td(300.0, 50.0, ierr, {.pres = &a});
  EXPECT_EQ(a, full[test::pres]) << "by name";
  co2_td(300.0, 50.0, ierr, nullptr, &b);
  EXPECT_EQ(b, full[test::pres]) << "by position";
  co2_td(300.0, 50.0, ierr, {});
  EXPECT_EQ(ierr, 0) << "nothing asked for";
}

// ---- Outputs -----------------------------------------------------------------------------------

TEST(Entries, OutputsAreThoseOfTheSolvedState) {
  for (const Given& g : given) {
    SCOPED_TRACE(testing::Message() << g.entry.name << ' ' << g.why);
    const Result r = g.entry(g.first, g.second);
    if (r.ierr != 0) continue;
    const CaloricTarget target = caloric_target(g.first, g.second);
    const bool by_temp = g.entry.inputs[0] == test::temp;
    EXPECT_NEAR(r[g.entry.inputs[0]], g.first, by_temp ? 0.0 : target.pres_tolerance);
    EXPECT_NEAR(r[g.entry.inputs[1]], g.second, target.caloric_tolerance);
    const Result by_td = td(r[test::temp], r[test::dens]);
    ASSERT_EQ(by_td.ierr, 0);
    test::expect_same(r.out, by_td.out);
  }
}

TEST(Entries, QualityOutsideTheDome) {
  struct Case {
    const Entry& entry;
    double first, second, low, high;
    const char* why;
  };
  const double sat = calc_sat_pres(280.0);
  const Case cases[] = {
      {td, 280.0, 50.0, 1.0, 10.0, "vapour: above 1"},
      {td, 280.0, 950.0, -10.0, 0.0, "liquid: below 0"},
      {td, 304.1282, 400.0, 998.0, 998.0, "the critical temperature has no lever value"},
      {td, 304.1282, 600.0, 999.0, 999.0, "the critical temperature has no lever value"},
      {td, 900.0, 5.0, 998.0, 998.0, "below the critical pressure"},
      {td, 900.0, 200.0, 999.0, 999.0, "above the critical pressure"},
      {td, 900.0, not_a_number, 999.0, 999.0, "a NaN pressure is not below the critical one"},
      {tp, 280.0, next_below(sat), 1.0 - 1e-9, 1.0 + 1e-6, "saturated vapour"},
      {tp, 280.0, next_above(sat), -1e-6, 1e-6, "saturated liquid"},
      {tp, 304.1282, 7000.0, 998.0, 998.0, "the mark goes by the given pressure"},
      {tp, 400.0, next_below(7377.3), 998.0, 998.0, "the mark goes by the given pressure"},
      {tp, 400.0, 7377.3, 999.0, 999.0, "the mark goes by the given pressure"},
      {ph, 7000.0, 500.0, 998.0, 998.0, "the mark goes by the given pressure"},
      {ph, next_below(7377.3), 400.0, 998.0, 998.0, "the mark goes by the given pressure"},
      {ph, 7377.3, 400.0, 999.0, 999.0, "the mark goes by the given pressure"},
      {ph, 3000.0, 450.0, 1.0, 10.0, "vapour"},
      {ph, 3000.0, 150.0, -10.0, 0.0, "liquid"},
      {ps, 7377.3, 1.7, 999.0, 999.0, "the mark goes by the given pressure"},
      {ps, 3000.0, 1.9, 1.0, 10.0, "vapour"},
      {ps, 3000.0, 0.8, -10.0, 0.0, "liquid"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message()
                 << c.entry.name << ' ' << c.first << ", " << c.second << ": " << c.why);
    const double qual = c.entry(c.first, c.second)[test::qual];
    EXPECT_TRUE(qual >= c.low && qual <= c.high) << qual;
  }
  EXPECT_TRUE(std::isnan(td(not_a_number, 200.0)[test::qual]));
}

// ---- Any bits ----------------------------------------------------------------------------------

// Half of the inputs are plausible, so that all paths are met.
TEST(Entries, AnyBitPatternIsAnswered) {
  struct Case {
    const Entry& entry;
    double lowest[2], highest[2];
    std::int32_t errors, warnings;  ///< the largest codes, less the base
  };
  const Case cases[] = {
      {td, {230.0, 0.0}, {1510.0, 1300.0}, 4, 1}, {tp, {230.0, 0.4}, {1510.0, 1.6e5}, 7, 0},
      {ph, {0.4, -400.0}, {1.6e5, 2400.0}, 5, 2}, {ps, {0.4, -1.0}, {1.6e5, 6.0}, 5, 2},
      {tx, {235.0, -0.1}, {306.0, 1.1}, 6, 1},    {px, {1000.0, -0.1}, {7500.0, 1.1}, 6, 1}};
  std::mt19937_64 engine(5);
  const auto draw = [&](const double lo, const double hi) {
    if (engine() % 2 == 0) return std::bit_cast<double>(engine());
    const double share = static_cast<double>(engine() % 65537) / 65536.0;
    return engine() % 2 == 0 ? lo + share * (hi - lo) : lo + share * share * share * (hi - lo);
  };
  for (const Case& c : cases) {
    for (int sample = 0; sample < 200000; ++sample) {
      const double first = draw(c.lowest[0], c.highest[0]);
      const double second = draw(c.lowest[1], c.highest[1]);
      const auto mask = static_cast<test::Mask>(engine()) & test::all_outputs;
      const Result r = c.entry(first, second, mask);
      const std::int32_t code = std::abs(r.ierr) - c.entry.base;
      const bool known = r.ierr == 0 || (code >= 1 && code <= (r.ierr > 0 ? c.errors : c.warnings));
      SCOPED_TRACE(testing::Message() << c.entry.name << ' ' << std::hexfloat << first << ", "
                                      << second << ": " << r.ierr);
      ASSERT_TRUE(known && r.ierr != status::tp_search_failed);
      test::expect_written(r, mask);
      if (testing::Test::HasFailure()) return;
    }
  }
}

}  // namespace
}  // namespace co2_properties
