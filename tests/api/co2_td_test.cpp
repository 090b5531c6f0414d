#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>
#include <vector>

#include "api/co2_properties.hpp"
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

Result full_call(const double temp, const double dens) {
  Result r;
  co2_td(temp, dens, r.ierr, r.out.subset());
  return r;
}

// ---- Checks ----

TEST(Td, ChecksItsInputsInOrder) {
  struct Case {
    double temp, dens;
    std::int32_t ierr;
    const char* why;
  };
  const Case cases[] = {
      {300.0, next_below(0.0035287466), 103, "density below its limit"},
      {1600.0, 0.001, 103, "density is tested before a temperature above"},
      {200.0, -1.0, 103, "density is tested before a temperature below"},
      {300.0, -0.0, 103, "no density"},
      {300.0, -infinity, 103, "no density"},
      {1500.0, 0.0035287466, 0, "all limits at once"},
      {1500.0, 200.0, 0, "highest temperature"},
      {next_above(1500.0), 10.0, 102, "beyond the highest temperature"},
      {infinity, 10.0, 102, "beyond the highest temperature"},
      {240.0, 10.0, 0, "lowest temperature"},
      {next_below(240.0), 10.0, 101, "below the lowest temperature"},
      {-infinity, 10.0, 101, "below the lowest temperature"},
      {240.0, 0.0035287466, 103, "vapour pressure below 1 kPa"},
      {400.0, 0.01, 103, "supercritical pressure below 1 kPa"},
      {300.0, 1250.0, 104, "liquid pressure above 100000 kPa"},
      {1000.0, 600.0, 104, "supercritical pressure above 100000 kPa"},
      {300.0, 400.0, -101, "two phases"},
      {not_a_number, 400.0, -101, "NaN passes the tests of temperature"},
      {not_a_number, 2.0, -101, "NaN passes the tests of temperature"},
      {not_a_number, 1200.0, -101, "NaN passes the tests of temperature"},
      {280.0, not_a_number, -101, "NaN passes the tests of density"},
      {303.0, not_a_number, -101, "NaN passes the tests of density"},
      {400.0, not_a_number, 0, "NaN passes the tests of density and pressure"},
      {not_a_number, not_a_number, -101, "NaN passes all tests"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.temp << " K, " << c.dens << " kg/m3: " << c.why);
    const Result r = full_call(c.temp, c.dens);
    EXPECT_EQ(r.ierr, c.ierr);
    for (std::size_t k = 0; k < test::output_count; ++k) {
      EXPECT_NE(r.out.value[k], Outputs::canary) << test::output_names[k] << " not written";
      if (c.ierr > 0) {
        EXPECT_EQ(bits(r.out.value[k]), 0U) << test::output_names[k];
      }
    }
    if (c.ierr <= 0) {
      EXPECT_EQ(bits(r.out[test::temp]), bits(c.temp));
      EXPECT_EQ(bits(r.out[test::dens]), bits(c.dens));
    }
  }
}

// ---- Calling forms ----

struct State {
  double temp, dens;
  const char* why;
};
constexpr State states[] = {
    {250.0, 20.0, "vapour"},
    {302.0, 280.0, "vapour just below the dome"},
    {270.0, 1000.0, "liquid"},
    {302.0, 640.0, "liquid just above the dome"},
    {260.0, 400.0, "two phases"},
    {304.0, 470.0, "two phases near the critical point"},
    {305.0, 450.0, "near-critical fits"},
    {305.0, 360.0, "near-critical fits, cp from the element"},
    {700.0, 100.0, "supercritical"},
    {1600.0, 100.0, "an error"},
};

TEST(Td, AnySubsetAndAnyFormGivesTheBitsOfTheFullCall) {
  std::mt19937_64 engine(1);
  for (const State& s : states) {
    const Result full = full_call(s.temp, s.dens);
    std::vector<std::uint32_t> masks = {0};
    for (std::size_t k = 0; k < test::output_count; ++k) masks.push_back(1U << k);
    for (int i = 0; i < 40; ++i) {
      masks.push_back(static_cast<std::uint32_t>(engine()) & test::all_outputs);
    }
    for (const std::uint32_t mask : masks) {
      SCOPED_TRACE(testing::Message() << s.why << ", outputs " << std::hex << mask);
      Result by_set;
      co2_td(s.temp, s.dens, by_set.ierr, by_set.out.subset(mask));
      Result by_position;
      const OutputSet o = by_position.out.subset(mask);
      co2_td(s.temp, s.dens, by_position.ierr, o.temp, o.pres, o.dens, o.svol, o.qual, o.inte,
             o.enth, o.entr, o.cv, o.cp, o.ssnd, o.visc, o.cond, o.dpdd, o.dpdt, o.dhdd, o.dhdt,
             o.dsdd, o.dsdt);
      const bool warns = (mask >> test::cv & 0x1FU) != 0;  // cv, cp, ssnd, visc, cond
      const std::int32_t ierr = full.ierr == status::td_two_phase && !warns ? 0 : full.ierr;
      EXPECT_EQ(by_set.ierr, ierr);
      EXPECT_EQ(by_position.ierr, ierr);
      for (std::size_t k = 0; k < test::output_count; ++k) {
        const double expected = (mask >> k & 1U) != 0 ? full.out.value[k] : Outputs::canary;
        EXPECT_EQ(bits(by_set.out.value[k]), bits(expected)) << test::output_names[k];
        EXPECT_EQ(bits(by_position.out.value[k]), bits(expected)) << test::output_names[k];
      }
    }
  }
}

TEST(Td, ShortCallsResolveToOneOverload) {
  const Result full = full_call(300.0, 50.0);
  std::int32_t ierr = 77;
  double a = 0.0;
  double b = 0.0;
  co2_td(300.0, 50.0, ierr);
  EXPECT_EQ(ierr, 0);
  co2_td(300.0, 0.001, ierr);
  EXPECT_EQ(ierr, status::td_pres_below_min) << "the status needs no output";
  co2_td(300.0, 50.0, ierr, {.pres = &a});
  EXPECT_EQ(a, full.out[test::pres]) << "by name";
  co2_td(300.0, 50.0, ierr, nullptr, &b);
  EXPECT_EQ(b, full.out[test::pres]) << "by position";
  co2_td(300.0, 50.0, ierr, {&a, &b});
  EXPECT_EQ(a, 300.0) << "a set without names";
  co2_td(300.0, 50.0, ierr, {});
  EXPECT_EQ(ierr, 0) << "nothing asked for";
}

TEST(Td, OutputsMayOverwriteTheInputs) {
  for (const State& s : states) {
    const Result full = full_call(s.temp, s.dens);
    double temp = s.temp;
    double dens = s.dens;
    std::int32_t ierr = 77;
    double enth = 0.0;
    co2_td(temp, dens, ierr, {.temp = &dens, .pres = &temp, .enth = &enth});
    EXPECT_EQ(bits(enth), bits(full.out[test::enth])) << s.why;
    EXPECT_EQ(bits(temp), bits(full.out[test::pres])) << s.why;
    EXPECT_EQ(bits(dens), bits(full.out[test::temp])) << s.why;
  }
}

// ---- Phases ----

/// What the saturated densities say, without any shortcut.
std::int32_t expected_element(const double temp, const double dens) {
  if (temp >= 304.1282) return sc_index_from_td(temp, dens);
  if (dens <= calc_sat_vap_dens(temp)) return vap_index_from_td(temp, dens);
  if (dens >= calc_sat_liq_dens(temp)) return liq_index_from_td(temp, dens);
  return 0;
}

TEST(Td, DecidesThePhaseByTheSaturatedDensities) {
  std::mt19937_64 engine(2);
  std::uniform_real_distribution<double> below_crit(240.0, 304.1282);
  std::vector<double> temps = {240.0, 301.0, next_above(301.0), next_below(304.1282), 304.1282};
  for (int i = 0; i < 2000; ++i) temps.push_back(below_crit(engine));
  for (const double temp : temps) {
    const double liq = calc_sat_liq_dens(temp);
    const double vap = calc_sat_vap_dens(temp);
    for (const double dens :
         {vap, next_above(vap), next_below(vap), liq, next_above(liq), next_below(liq), 286.0,
          467.6, 468.0, next_above(468.0), 659.0, 0.5 * vap, 0.5 * (liq + vap), liq + 20.0}) {
      Result r;
      co2_td(temp, dens, r.ierr, r.out.subset(1U << test::pres | 1U << test::cv));
      const std::int32_t e = expected_element(temp, dens);
      SCOPED_TRACE(testing::Message() << temp << " K, " << dens << " kg/m3");
      if (e == 0) {
        EXPECT_EQ(r.ierr, status::td_two_phase);
        EXPECT_EQ(bits(r.out[test::cv]), 0U);
        EXPECT_EQ(bits(r.out[test::pres]), bits(calc_sat_pres(temp)));
      } else {
        const double expected = pressure(element_derivatives(e, temp, dens), dens);
        EXPECT_EQ(r.ierr, expected > 100000.0 ? status::td_pres_above_max : status::success);
        EXPECT_EQ(bits(r.out[test::pres]), bits(r.ierr == 0 ? expected : 0.0));
      }
    }
  }
}

TEST(Td, MixtureObeysTheLeverRule) {
  for (const double temp : {240.0, 270.0, 299.75, 302.0, 304.0}) {
    const double liq = calc_sat_liq_dens(temp);
    const double vap = calc_sat_vap_dens(temp);
    const Result left = full_call(temp, vap);
    const Result right = full_call(temp, liq);
    EXPECT_EQ(left.out[test::qual], 1.0);
    EXPECT_EQ(right.out[test::qual], 0.0);
    for (const double fraction : {0.001, 0.3, 0.9, 0.999}) {
      SCOPED_TRACE(testing::Message() << temp << " K, " << fraction);
      const double volume = fraction / vap + (1.0 - fraction) / liq;
      const Result r = full_call(temp, 1.0 / volume);
      EXPECT_NEAR(r.out[test::qual], fraction, 1e-13 * liq / (liq - vap));
      EXPECT_NEAR(r.out[test::svol], volume, test::tolerance::rounding * volume);
      for (const test::Output k : {test::inte, test::enth, test::entr}) {
        const double expected = fraction * left.out[k] + (1.0 - fraction) * right.out[k];
        EXPECT_NEAR(r.out[k], expected, 1e-13 * (std::abs(left.out[k]) + std::abs(right.out[k])))
            << test::output_names[k];
      }
      for (const test::Output k :
           {test::cv, test::cp, test::ssnd, test::visc, test::cond, test::dpdd, test::dpdt,
            test::dhdd, test::dhdt, test::dsdd, test::dsdt}) {
        EXPECT_EQ(bits(r.out[k]), 0U) << test::output_names[k];
      }
    }
  }
}

// Mixtures of the saturated states of Span & Wagner (1996), tests/data/README.md, up to 301 K;
// above it the fits of the saturated densities dominate. The zero of u, h and s differs by a
// constant.
TEST(Td, MixturesFollowTheReference) {
  auto columns = test::read_csv(TEST_DATA_DIR "/twophase.csv");
  test::WorstError pres, qual, inte, enth, entr;
  for (std::size_t k = 0; k < columns["T"].size(); ++k) {
    const double temp = columns["T"][k];
    const double dens = columns["rho"][k];
    if (temp > 301.0) continue;
    const Result r = full_call(temp, dens);
    pres.note(std::abs(r.out[test::pres] / columns["p"][k] - 1.0), temp, dens);
    qual.note(std::abs(r.out[test::qual] - columns["q"][k]), temp, dens);
    inte.note(std::abs(r.out[test::inte] - columns["u"][k] - 1.69e-6), temp, dens);
    enth.note(std::abs(r.out[test::enth] - columns["h"][k] - 1.69e-6), temp, dens);
    entr.note(std::abs(r.out[test::entr] - columns["s"][k] - 5.5e-9), temp, dens);
  }
  EXPECT_LT(pres.error, 3e-7) << pres.x << " K, " << pres.y;
  EXPECT_LT(qual.error, 5e-7) << qual.x << " K, " << qual.y;
  EXPECT_LT(inte.error, 1e-4) << inte.x << " K, " << inte.y;
  EXPECT_LT(enth.error, 1e-4) << enth.x << " K, " << enth.y;
  EXPECT_LT(entr.error, 4e-7) << entr.x << " K, " << entr.y;
}

TEST(Td, QualityOutsideTheDome) {
  struct Case {
    double temp, dens, low, high;
    const char* why;
  };
  const Case cases[] = {
      {280.0, 50.0, 1.0, infinity, "vapour: above 1"},
      {280.0, 950.0, -infinity, 0.0, "liquid: below 0"},
      {304.1282, 400.0, 998.0, 998.0, "the critical temperature has no lever value"},
      {304.1282, 600.0, 999.0, 999.0, "the critical temperature has no lever value"},
      {900.0, 5.0, 998.0, 998.0, "below the critical pressure"},
      {900.0, 200.0, 999.0, 999.0, "above the critical pressure"},
      {not_a_number, 200.0, not_a_number, not_a_number, "NaN"},
      {900.0, not_a_number, 999.0, 999.0, "a NaN pressure is not below the critical one"},
  };
  for (const Case& c : cases) {
    const double qual = full_call(c.temp, c.dens).out[test::qual];
    if (std::isnan(c.low)) {
      EXPECT_TRUE(std::isnan(qual)) << c.why;
    } else {
      EXPECT_GE(qual, c.low) << c.why;
      EXPECT_LE(qual, c.high) << c.why;
      if (c.low < 900.0) {
        EXPECT_TRUE(qual < 0.0 || qual > 1.0) << c.why;
      }
    }
  }
}

// ---- Single phase ----

TEST(Td, NearCriticalFitsServeTheirBoxes) {
  struct Case {
    double temp, dens;
    bool cv, cp, ssnd;
    const char* why;
  };
  const Case cases[] = {
      {305.0, 450.0, true, true, true, "inside"},
      {305.0, 360.0, true, false, true, "the box of cp starts later"},
      {305.0, 350.0, false, false, false, "bounds are strict"},
      {305.0, next_above(350.0), true, false, true, "bounds are strict"},
      {305.0, 380.0, true, false, true, "bounds are strict"},
      {305.0, next_above(380.0), true, true, true, "bounds are strict"},
      {305.0, 580.0, false, false, false, "bounds are strict"},
      {305.0, next_below(580.0), true, true, true, "bounds are strict"},
      {310.0, 450.0, false, false, false, "bounds are strict"},
      {next_below(310.0), 450.0, true, true, true, "bounds are strict"},
      {303.9, 379.0, true, false, true, "vapour"},
      {303.9, 560.0, true, true, true, "liquid"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.temp << " K, " << c.dens << " kg/m3: " << c.why);
    const Result r = full_call(c.temp, c.dens);
    ASSERT_EQ(r.ierr, 0);
    const HelmholtzDerivatives d =
        element_derivatives(expected_element(c.temp, c.dens), c.temp, c.dens);
    double cv;
    double cp;
    double ssnd;
    calculate_cv(c.dens, c.temp, cv);
    calculate_cp(c.dens, c.temp, cp);
    calculate_ssnd(c.dens, c.temp, ssnd);
    const double cv_eos = isochoric_heat_capacity(d, c.temp);
    const double cp_eos = isobaric_heat_capacity(d, c.temp, c.dens);
    const double ssnd_eos = speed_of_sound(d, c.dens);
    EXPECT_EQ(r.out[test::cv], c.cv ? cv : cv_eos);
    EXPECT_EQ(r.out[test::cp], c.cp ? cp : cp_eos);
    EXPECT_EQ(r.out[test::ssnd], c.ssnd ? ssnd : ssnd_eos);
    // Or else the test could not tell the two apart.
    EXPECT_TRUE(cv != cv_eos && cp != cp_eos && ssnd != ssnd_eos);
  }
}

TEST(Td, EveryOutputIsItsFormula) {
  for (const State& s : {State{250.0, 20.0, "vapour"}, State{270.0, 1000.0, "liquid"},
                         State{700.0, 100.0, "supercritical"}}) {
    const Result r = full_call(s.temp, s.dens);
    const HelmholtzDerivatives d =
        element_derivatives(expected_element(s.temp, s.dens), s.temp, s.dens);
    double visc;
    double cond;
    calculate_visc(s.dens, s.temp, visc);
    calculate_cond(s.dens, s.temp, cond);
    const double liq = calc_sat_liq_dens(s.temp);
    const double vap = calc_sat_vap_dens(s.temp);
    const double lever = (liq - s.dens) * vap / ((liq - vap) * s.dens);
    const double expected[] = {s.temp,
                               pressure(d, s.dens),
                               s.dens,
                               1.0 / s.dens,
                               s.temp < 304.1282 ? lever : 999.0,
                               internal_energy(d, s.temp),
                               enthalpy(d, s.temp, s.dens),
                               entropy(d),
                               isochoric_heat_capacity(d, s.temp),
                               isobaric_heat_capacity(d, s.temp, s.dens),
                               speed_of_sound(d, s.dens),
                               visc,
                               cond,
                               dpdd(d, s.dens),
                               dpdt(d, s.dens),
                               dhdd(d, s.temp, s.dens),
                               dhdt(d, s.temp, s.dens),
                               dsdd(d),
                               dsdt(d)};
    for (std::size_t k = 0; k < test::output_count; ++k) {
      EXPECT_EQ(bits(r.out.value[k]), bits(expected[k])) << s.why << ' ' << test::output_names[k];
    }
  }
}

// ---- Any bits ----

TEST(Td, AnyBitPatternIsAnswered) {
  std::mt19937_64 engine(5);
  std::uniform_real_distribution<double> in_temp(230.0, 1510.0);
  std::uniform_real_distribution<double> in_dens(0.0, 1300.0);
  for (int sample = 0; sample < 200000; ++sample) {
    // Half of the temperatures and densities are plausible, so that all paths are met.
    const double temp = sample % 4 < 2 ? in_temp(engine) : std::bit_cast<double>(engine());
    const double dens = sample % 2 == 0 ? in_dens(engine) : std::bit_cast<double>(engine());
    const auto mask = static_cast<std::uint32_t>(engine()) & test::all_outputs;
    Result r;
    co2_td(temp, dens, r.ierr, r.out.subset(mask));
    const bool known = r.ierr == 0 || r.ierr == -101 || (r.ierr >= 101 && r.ierr <= 104);
    ASSERT_TRUE(known) << temp << ' ' << dens << ": " << r.ierr;
    for (std::size_t k = 0; k < test::output_count; ++k) {
      const bool present = (mask >> k & 1U) != 0;
      ASSERT_EQ(r.out.value[k] != Outputs::canary, present)
          << test::output_names[k] << " at " << temp << ' ' << dens;
      if (present && r.ierr > 0) {
        ASSERT_EQ(bits(r.out.value[k]), 0U);
      }
    }
  }
}

}  // namespace
}  // namespace co2_properties
