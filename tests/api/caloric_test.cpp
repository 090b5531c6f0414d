// co2_ph, co2_ps and co2_pu: one procedure for three properties, so that most claims are made of
// all. Round trips over the whole range are those of tools/solver_report, which
// tests/CMakeLists.txt runs.

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "api/entries/ph.hpp"
#include "api/entries/ps.hpp"
#include "api/entries/pu.hpp"
#include "eos/property_types.hpp"
#include "solvers/solve_caloric.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/tolerance.hpp"

namespace co2_properties {
namespace {

using test::bits;
using test::caloric_entries;
using test::Entry;
using test::next_above;
using test::next_below;
using test::not_a_number;
using test::Result;
using test::td;

/// The property that is an input of an entry.
double value(const Entry& entry, const Derivatives<double>& d, const double temp) {
  if (entry.inputs[1] == test::inte) return internal_energy(d, temp);
  return entry.inputs[1] == test::enth ? enthalpy(d, temp) : entropy(d);
}

bool is_mixture(const Result& r) { return bits(r[test::dpdd]) == 0U; }

// The temperature that decides is the one that was found. The elements are good for 0.001 K beyond
// the limits.
TEST(Caloric, TemperatureLimitsApplyToTheResult) {
  struct Case {
    double temp, dens;
    std::int32_t code;
    const char* why;
  };
  const Case cases[] = {
      {240.001, 1.0, 0, "vapour"},       {239.999, 1.0, 1, "vapour"},
      {240.001, 1200.0, 0, "liquid"},    {239.999, 1200.0, 1, "liquid"},
      {1499.999, 1.0, 0, "thin gas"},    {1500.001, 1.0, 2, "thin gas"},
      {1499.999, 250.0, 0, "dense gas"}, {1500.001, 250.0, 2, "dense gas"},
  };
  for (const Entry* const entry : caloric_entries) {
    for (const Case& c : cases) {
      SCOPED_TRACE(testing::Message() << entry->name << ' ' << c.temp << " K " << c.why);
      const Derivatives<double> d = evaluate(element(relocate(c.temp, c.dens)), c.temp, c.dens);
      const Result r = (*entry)(pressure(d, c.dens), value(*entry, d, c.temp));
      EXPECT_EQ(r.ierr, c.code == 0 ? 0 : entry->base + c.code);
      EXPECT_NEAR(r[test::temp], c.code == 0 ? c.temp : 0.0, 1e-6);
    }
  }
}

// What becomes of an iteration that was not done by its fourteenth evaluation.
TEST(Caloric, JudgesLateResults) {
  using enum Agreement;
  constexpr CaloricTarget target = {5000.0, -200.0, 5e-8, 2e-9};
  constexpr CaloricTarget small = {5000.0, 0.5, 5e-8, 1e-11};
  struct Case {
    const CaloricTarget& target;
    double temp, pres_residual, caloric_residual;
    Agreement expected;
    const char* why;
  };
  const Case cases[] = {
      {target, 310.0, -4.9e-7, 1.9e-7, close, "ten and a hundred times the tolerances"},
      {target, 310.0, 5.1e-7, 0.0, none, "pressure beyond ten times"},
      {target, 310.0, 0.0, -2.1e-7, none, "enthalpy beyond a hundred times"},
      {target, 239.9, 1.0, 0.0, none, "off: where it ended says nothing of the inputs"},
      {target, 1500.1, 0.0, 1.0, none, "off: where it ended says nothing of the inputs"},
      {target, 239.9, 0.0, 0.0, close, "the range of a good result is tested later"},
      {target, 304.0483, 0.49, 0.019, close, "loose results are accepted in the band"},
      {target, 304.2081, -0.49, -0.019, close, "at its other end"},
      {target, 304.1, 0.51, 0.0, loose, "pressure too loose"},
      {target, 304.1, 0.0, 0.021, loose, "enthalpy too loose"},
      {target, 304.1, 49.0, 1.9, loose, "a hundredth"},
      {target, 304.1, 51.0, 0.0, none, "pressure of another state"},
      {target, 304.1, 0.0, 2.1, none, "enthalpy of another state"},
      {small, 304.1, 0.0, 0.9e-4, close, "small enthalpies count as one"},
      {small, 304.1, 0.0, 1.1e-4, loose, "small enthalpies count as one"},
      {target, 304.0481, 0.49, 0.0, none, "just outside the band"},
      {target, 304.2083, 0.49, 0.0, none, "just outside the band"},
      {target, not_a_number, not_a_number, not_a_number, none, "NaN is no result"},
      {target, 310.0, not_a_number, 0.0, none, "NaN is no result"},
      {target, 310.0, 0.0, not_a_number, none, "NaN is no result"},
  };
  for (const Case& c : cases) {
    const CaloricSolution s = {300, c.temp, 400.0, {}, c.pres_residual, c.caloric_residual, 16};
    EXPECT_EQ(judge_agreement(s, c.target), c.expected) << c.why;
  }
}

/// Has the solver evaluate a target that element `expected` meets at once, from the element
/// `first`.
void expect_element(const std::int32_t first, const std::int32_t expected, const double temp,
                    const double dens) {
  const Derivatives<double> d = evaluate(element(expected), temp, dens);
  const CaloricTarget target = caloric_target(pressure(d, dens), enthalpy(d, temp));
  const CaloricSolution s = solve_caloric<Enthalpy>(target, first, temp, dens);
  EXPECT_TRUE(s.element == expected && s.evaluations == 1)
      << temp << " K " << dens << " kg/m3: element " << s.element << " for " << expected;
}

// Iterates keep their element up to 0.01 K or kg/m3 outside it, on all four sides.
TEST(Caloric, IteratesKeepTheirElementUpToTheMargin) {
  const std::int32_t e = sc_index_from_td(350.0, 320.0);
  const Element& cell = element(e);
  const double temp = cell.temp0 + 0.5 * cell.temp_width;
  const double dens = cell.dens0 + 0.5 * cell.dens_width;
  for (const double off : {0.0099, 0.0101}) {
    for (const double t : {cell.temp0 - off, cell.temp0 + cell.temp_width + off}) {
      expect_element(e, off < 0.01 ? e : relocate(t, dens), t, dens);
    }
    for (const double d : {cell.dens0 - off, cell.dens0 + cell.dens_width + off}) {
      expect_element(e, off < 0.01 ? e : relocate(temp, d), temp, d);
    }
  }
}

// From starts near and far the solver either meets the target in time or runs to its limit. What
// leaves there is evaluated once more, since the last step moved it.
TEST(Caloric, SolverMeetsTheTargetOrRunsToItsLimit) {
  std::mt19937_64 engine(3);
  std::uniform_real_distribution<double> in_temp(temp_min, temp_max);
  std::uniform_real_distribution<double> in_dens(1.0, 600.0);
  int late = 0;
  for (int sample = 0; sample < 50000; ++sample) {
    const double temp = in_temp(engine);
    const double dens = in_dens(engine);
    const Derivatives<double> d = evaluate(element(relocate(temp, dens)), temp, dens);
    // Every tenth target cannot be met: no rounding is as small.
    CaloricTarget target = caloric_target(pressure(d, dens), enthalpy(d, temp));
    if (sample % 10 == 0) target.pres_tolerance = 0.0;
    const auto first = static_cast<std::int32_t>(1 + engine() % 649);
    const CaloricSolution s =
        solve_caloric<Enthalpy>(target, first, in_temp(engine), in_dens(engine));
    ASSERT_TRUE(s.evaluations >= 1 && s.evaluations <= 16) << s.evaluations;
    if (s.evaluations < 16) {
      ASSERT_LT(std::abs(pressure(s.d, s.dens) - target.pres), target.pres_tolerance);
      ASSERT_LT(std::abs(enthalpy(s.d, s.temp) - target.caloric), target.caloric_tolerance);
    } else if (is_promising(s.temp, s.dens)) {
      ++late;
      const Derivatives<double> last = evaluate(element(s.element), s.temp, s.dens);
      ASSERT_EQ(bits(s.d.pv), bits(last.pv)) << s.temp << " K " << s.dens;
      ASSERT_TRUE(Rectangles<double>::of({&element(s.element)}).serve(s.temp, s.dens) ||
                  s.element == relocate(s.temp, s.dens));
    }
  }
  EXPECT_GT(late, 1000) << "or else the limit was not tried";
  EXPECT_EQ(caloric_target(2.0, -300.0).caloric_tolerance, 1e-11 * 300.0);
  EXPECT_EQ(caloric_target(2.0, -0.3).caloric_tolerance, 1e-11) << "zero is an arbitrary point";
}

// ---- Common road -------------------------------------------------------------------------------

// What its steps lead to is a result only if it meets both inputs: a last step that falls short by
// 1e-9 is refused.
template <class Pair>
void expect_refusals(const double temp, const double dens) {
  const Cells<double> cells = {&element(relocate(temp, dens))};
  const Derivatives<double> d = evaluate<double>(cells, temp, dens);
  const double pres = pressure(d, dens);
  const double caloric = Pair::Property::value(d, temp);
  const auto accepts = [&](const double t, const double rho, const double p, const double x) {
    return evaluate_caloric<Pair, double>(cells, {t, rho, true}, p, x).wanted;
  };
  constexpr double off = 1.0 + 1e-9;
  EXPECT_TRUE(accepts(temp, dens, pres, caloric)) << temp << ' ' << dens;
  EXPECT_FALSE(accepts(temp * off, dens, pres, caloric)) << temp << ' ' << dens;
  EXPECT_FALSE(accepts(temp, dens * off, pres, caloric)) << temp << ' ' << dens;
  EXPECT_FALSE(accepts(temp, dens, pres * off, caloric)) << temp << ' ' << dens;
  EXPECT_FALSE(accepts(temp, dens, pres, caloric * off)) << temp << ' ' << dens;
  EXPECT_FALSE((evaluate_caloric<Pair, double>(cells, {temp, dens, false}, pres, caloric).wanted));
  EXPECT_FALSE(accepts(not_a_number, dens, pres, caloric));
}

TEST(Caloric, CommonRoadRefusesWhatDoesNotMeetBothInputs) {
  struct Case {
    double temp, dens;
    const char* why;
  };
  for (const Case& c : {Case{300.0, 1.0, "gas"}, Case{250.0, 1100.0, "liquid"},
                        Case{304.2, 467.0, "isotherm nearly flat"}, Case{1200.0, 300.0, "hot"}}) {
    SCOPED_TRACE(c.why);
    expect_refusals<PhPair>(c.temp, c.dens);
    expect_refusals<PsPair>(c.temp, c.dens);
    expect_refusals<PuPair>(c.temp, c.dens);
  }
}

// ---- Two phases --------------------------------------------------------------------------------

struct Phases {
  double temp;
  Result liq, vap;
};

Phases phases_at(const double pres) {
  const double temp = calc_sat_temp(pres);
  return {temp, td(temp, calc_sat_liq_dens(temp)), td(temp, calc_sat_vap_dens(temp))};
}

constexpr double dome_pressures[] = {1290.0, 2000.0, 3500.0, 6500.0, 7200.0, 7370.0};

TEST(Caloric, MixtureLiesBetweenItsPhases) {
  for (const Entry* const entry : caloric_entries) {
    for (const double pres : dome_pressures) {
      const auto [temp, liq, vap] = phases_at(pres);
      const double x_liq = liq[entry->inputs[1]];
      const double x_vap = vap[entry->inputs[1]];
      for (const double fraction : {1e-6, 0.3, 0.9}) {
        SCOPED_TRACE(testing::Message() << entry->name << ' ' << pres << " kPa, " << fraction);
        const double x = x_liq + fraction * (x_vap - x_liq);
        const Result r = (*entry)(pres, x);
        const double qual = (x - x_liq) / (x_vap - x_liq);
        EXPECT_EQ(r.ierr, -entry->base - 1);
        EXPECT_EQ(bits(r[test::temp]), bits(temp));
        EXPECT_EQ(bits(r[test::pres]), bits(vap[test::pres])) << "not the given one";
        EXPECT_EQ(bits(r[test::qual]), bits(qual));
        EXPECT_EQ(bits(r[test::svol]), bits(1.0 / r[test::dens]));
        for (const test::Output k :
             {test::svol, test::inte, test::enth, test::entr, test::visc, test::cond}) {
          const bool has_none = entry != &test::ph && (k == test::visc || k == test::cond);
          EXPECT_NEAR(r[k], has_none ? 0.0 : liq[k] + qual * (vap[k] - liq[k]),
                      test::tolerance::rounding * (std::abs(liq[k]) + std::abs(vap[k])))
              << test::output_names[k];
        }
        for (const test::Output k : {test::cv, test::cp, test::ssnd, test::dpdd, test::dpdt,
                                     test::dhdd, test::dhdt, test::dsdd, test::dsdt}) {
          EXPECT_EQ(bits(r[k]), 0U) << test::output_names[k];
        }
      }
    }
  }
}

TEST(Caloric, SaturatedStatesAreSinglePhase) {
  for (const Entry* const entry : caloric_entries) {
    for (const double pres : dome_pressures) {
      const auto [temp, liq, vap] = phases_at(pres);
      const double x_liq = liq[entry->inputs[1]];
      const double x_vap = vap[entry->inputs[1]];
      struct Case {
        double x, dens;
        bool mixture;
        const char* why;
      };
      const Case cases[] = {{x_vap, vap[test::dens], false, "saturated vapour"},
                            {next_below(x_vap), vap[test::dens], true, "just inside"},
                            {next_above(x_vap), vap[test::dens], false, "just outside"},
                            {x_liq, liq[test::dens], false, "saturated liquid"},
                            {next_above(x_liq), liq[test::dens], true, "just inside"},
                            {next_below(x_liq), liq[test::dens], false, "just outside"}};
      for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << entry->name << ' ' << pres << " kPa: " << c.why);
        const Result r = (*entry)(pres, c.x);
        EXPECT_EQ(is_mixture(r), c.mixture);
        EXPECT_EQ(r.ierr, c.mixture ? -entry->base - 1 : 0);
        // The fits of saturation temperature and densities agree to 1e-5 up to here.
        if (pres <= 6500.0) {
          EXPECT_NEAR(r[test::dens], c.dens, 1e-4 * c.dens);
        }
      }
    }
  }
}

}  // namespace
}  // namespace co2_properties
