#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "api/co2_properties.hpp"
#include "api/relocate.hpp"
#include "api/solve_density.hpp"
#include "eos/properties.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/csv.hpp"
#include "tests/support/outputs.hpp"
#include "tests/support/tolerance.hpp"

namespace co2_properties {
namespace {

using test::bits;
using test::infinity;
using test::next_above;
using test::next_below;
using test::not_a_number;
using test::Outputs;

struct Result {
  std::int32_t ierr = 77;
  Outputs out;
};

Result full_call(const double temp, const double pres) {
  Result r;
  co2_tp(temp, pres, r.ierr, r.out.subset());
  return r;
}

TEST(Tp, ChecksItsInputsInOrder) {
  const double sat = calc_sat_pres(280.0);
  struct Case {
    double temp, pres;
    std::int32_t ierr;
    const char* why;
  };
  const Case cases[] = {
      {300.0, 1.0, 0, "lowest pressure"},
      {300.0, 100000.0, 0, "highest pressure"},
      {240.0, 100000.0, 0, "lowest temperature"},
      {1500.0, 1.0, 0, "highest temperature"},
      {300.0, next_below(1.0), 203, "below the lowest pressure"},
      {300.0, next_above(100000.0), 204, "above the highest pressure"},
      {239.99, 0.5, 203, "pressure is tested before a temperature below"},
      {1501.0, 0.5, 203, "pressure is tested before a temperature above"},
      {239.99, 2e5, 204, "pressure is tested before a temperature below"},
      {next_below(240.0), 5000.0, 201, "below the lowest temperature"},
      {next_above(1500.0), 5000.0, 202, "above the highest temperature"},
      {280.0, sat, 205, "saturation"},
      {280.0, next_below(sat), 0, "vapour"},
      {280.0, next_above(sat), 0, "liquid"},
      {240.0, calc_sat_pres(240.0), 205, "cold end of the saturation line"},
      {next_below(304.1282), calc_sat_pres(next_below(304.1282)), 205, "its hot end"},
      {300.0, -infinity, 203, "infinite inputs"},
      {300.0, infinity, 204, "infinite inputs"},
      {-infinity, 5000.0, 201, "infinite inputs"},
      {infinity, 5000.0, 202, "infinite inputs"},
      {280.0, not_a_number, 205, "NaN is neither below nor above saturation"},
      {304.1282, not_a_number, 207, "NaN is never met"},
      {not_a_number, 5000.0, 207, "NaN is not below the critical temperature"},
      {not_a_number, 0.5, 203, "pressure comes first"},
      {not_a_number, not_a_number, 207, "NaN passes all tests"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.temp << " K, " << c.pres << " kPa: " << c.why);
    const Result r = full_call(c.temp, c.pres);
    EXPECT_EQ(r.ierr, c.ierr);
    for (std::size_t k = 0; k < test::output_count; ++k) {
      EXPECT_NE(r.out.value[k], Outputs::canary) << test::output_names[k] << " not written";
      if (c.ierr > 0) {
        EXPECT_EQ(bits(r.out.value[k]), 0U) << test::output_names[k];
      }
    }
  }
  EXPECT_GT(full_call(280.0, next_below(sat)).out[test::qual], 1.0 - 1e-9);
  EXPECT_LT(full_call(280.0, next_above(sat)).out[test::qual], 1e-6);
}

// The entry does not evaluate the saturation pressure where these bounds decide.
TEST(Tp, SaturationPressureLiesWithinTheBoundsThatAreTakenForGranted) {
  for (int k = 0; k <= 20000; ++k) {
    const double temp = 240.0 + (next_below(304.1282) - 240.0) * k / 20000;
    ASSERT_GT(calc_sat_pres(temp), 1282.0) << temp;
    ASSERT_LT(calc_sat_pres(temp), 7378.0) << temp;
  }
}

// ---- Outputs -----------------------------------------------------------------------------------

struct State {
  double temp, pres;
  const char* why;
};
constexpr State states[] = {
    {250.0, 900.0, "vapour"},
    {302.0, 6900.0, "vapour close to saturation"},
    {270.0, 20000.0, "liquid"},
    {302.0, 7200.0, "liquid close to saturation"},
    {305.0, 7500.0, "near-critical fits"},
    {309.0, 8200.0, "near-critical fits"},
    {700.0, 20000.0, "supercritical"},
    {1400.0, 1.5, "thin gas"},
    {1600.0, 100.0, "an error"},
};

TEST(Tp, OutputsAreThoseOfTheSolvedDensity) {
  for (const State& s : states) {
    SCOPED_TRACE(s.why);
    const Result r = full_call(s.temp, s.pres);
    if (r.ierr != 0) continue;
    Result by_dens;
    co2_td(s.temp, r.out[test::dens], by_dens.ierr, by_dens.out.subset());
    ASSERT_EQ(by_dens.ierr, 0);
    for (std::size_t k = 0; k < test::output_count; ++k) {
      EXPECT_EQ(bits(r.out.value[k]), bits(by_dens.out.value[k])) << test::output_names[k];
    }
    EXPECT_NEAR(r.out[test::pres], s.pres, 1e-11 * s.pres);
  }
}

TEST(Tp, SupercriticalMarkGoesByTheGivenPressure) {
  EXPECT_EQ(full_call(304.1282, 7000.0).out[test::qual], 998.0);
  EXPECT_EQ(full_call(400.0, next_below(7377.3)).out[test::qual], 998.0);
  EXPECT_EQ(full_call(400.0, 7377.3).out[test::qual], 999.0);
}

TEST(Tp, AnySubsetAndAnyFormGivesTheBitsOfTheFullCall) {
  std::mt19937_64 engine(1);
  for (const State& s : states) {
    const Result full = full_call(s.temp, s.pres);
    for (int i = 0; i < 60; ++i) {
      const std::uint32_t mask = i < static_cast<int>(test::output_count)
                                     ? 1U << i
                                     : static_cast<std::uint32_t>(engine()) & test::all_outputs;
      SCOPED_TRACE(testing::Message() << s.why << ", outputs " << std::hex << mask);
      Result by_set;
      co2_tp(s.temp, s.pres, by_set.ierr, by_set.out.subset(mask));
      Result by_position;
      const OutputSet o = by_position.out.subset(mask);
      co2_tp(s.temp, s.pres, by_position.ierr, o.temp, o.pres, o.dens, o.svol, o.qual, o.inte,
             o.enth, o.entr, o.cv, o.cp, o.ssnd, o.visc, o.cond, o.dpdd, o.dpdt, o.dhdd, o.dhdt,
             o.dsdd, o.dsdt);
      EXPECT_EQ(by_set.ierr, full.ierr);
      EXPECT_EQ(by_position.ierr, full.ierr);
      for (std::size_t k = 0; k < test::output_count; ++k) {
        const double expected = (mask >> k & 1U) != 0 ? full.out.value[k] : Outputs::canary;
        EXPECT_EQ(bits(by_set.out.value[k]), bits(expected)) << test::output_names[k];
        EXPECT_EQ(bits(by_position.out.value[k]), bits(expected)) << test::output_names[k];
      }
    }
    double temp = s.temp;
    double pres = s.pres;
    std::int32_t ierr = 77;
    co2_tp(temp, pres, ierr, {.temp = &pres, .enth = &temp});
    EXPECT_EQ(bits(temp), bits(full.out[test::enth])) << s.why << ": an output over an input";
  }
  std::int32_t ierr = 77;
  co2_tp(300.0, 100.0, ierr);
  EXPECT_EQ(ierr, 0) << "no output at all";
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

// Over the whole domain except around the critical point, where isotherms are too flat for such a
// bound; `solver_report tp` counts what happens there.
TEST(Tp, BringsBackTheDensityOfTd) {
  std::mt19937_64 engine(4);
  std::uniform_real_distribution<double> in_temp(240.0, 1500.0);
  std::uniform_real_distribution<double> in_cold(240.0, 304.0);
  std::uniform_real_distribution<double> in_log_dens(std::log(0.0036), std::log(1250.0));
  std::uniform_real_distribution<double> in_dens(1.0, 1250.0);
  test::WorstError dens_error, pres_error;
  int solved = 0;
  while (solved < 100000) {
    const double temp = engine() % 2 == 0 ? in_temp(engine) : in_cold(engine);
    const double dens = engine() % 2 == 0 ? std::exp(in_log_dens(engine)) : in_dens(engine);
    std::int32_t ierr = 77;
    double pres = 0.0;
    double slope = 0.0;
    co2_td(temp, dens, ierr, {.pres = &pres, .dpdd = &slope});
    if (ierr != 0 || slope == 0.0) continue;  // two phases have no slope
    if (temp > 303.5 && temp < 305.0 && dens > 380.0 && dens < 560.0) continue;
    // Close to saturation the pressures of the two phases overlap by the errors of the fits.
    if (temp < 304.1282 && dens > 467.6 && pres < calc_sat_pres(temp) * (1.0 + 1e-5)) continue;
    ++solved;
    double found = 0.0;
    double found_pres = 0.0;
    co2_tp(temp, pres, ierr, {.pres = &found_pres, .dens = &found});
    ASSERT_EQ(ierr, 0) << temp << " K " << dens << " kg/m3";
    dens_error.note(std::abs(found / dens - 1.0), temp, dens);
    pres_error.note(std::abs(found_pres / pres - 1.0), temp, dens);
  }
  EXPECT_LT(dens_error.error, 1e-9) << dens_error.x << " K " << dens_error.y;
  EXPECT_LT(pres_error.error, 1e-11) << pres_error.x << " K " << pres_error.y;
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

TEST(Tp, AnyBitPatternIsAnswered) {
  std::mt19937_64 engine(5);
  std::uniform_real_distribution<double> in_temp(230.0, 1510.0);
  std::uniform_real_distribution<double> in_log_pres(-1.0, 12.0);
  for (int sample = 0; sample < 200000; ++sample) {
    const double temp = sample % 4 < 2 ? in_temp(engine) : std::bit_cast<double>(engine());
    const double pres =
        sample % 2 == 0 ? std::exp(in_log_pres(engine)) : std::bit_cast<double>(engine());
    const auto mask = static_cast<std::uint32_t>(engine()) & test::all_outputs;
    Result r;
    co2_tp(temp, pres, r.ierr, r.out.subset(mask));
    ASSERT_TRUE(r.ierr == 0 || (r.ierr >= 201 && r.ierr <= 207 && r.ierr != 206))
        << temp << ' ' << pres << ": " << r.ierr;
    for (std::size_t k = 0; k < test::output_count; ++k) {
      const bool present = (mask >> k & 1U) != 0;
      ASSERT_EQ(r.out.value[k] != Outputs::canary, present)
          << test::output_names[k] << " at " << temp << ' ' << pres;
      if (present && r.ierr > 0) {
        ASSERT_EQ(bits(r.out.value[k]), 0U);
      }
    }
  }
}

}  // namespace
}  // namespace co2_properties
