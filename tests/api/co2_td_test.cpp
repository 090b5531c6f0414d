#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "eos/properties.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/csv.hpp"
#include "tests/support/entries.hpp"

namespace co2_properties {
namespace {

using test::bits;
using test::next_above;
using test::next_below;
using test::Result;
using test::td;

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
      const Result r = td(temp, dens, test::mask_of(test::pres, test::cv));
      const std::int32_t e = expected_element(temp, dens);
      SCOPED_TRACE(testing::Message() << temp << " K, " << dens << " kg/m3");
      if (e == 0) {
        EXPECT_EQ(r.ierr, status::td_two_phase);
        EXPECT_EQ(bits(r[test::cv]), 0U);
        EXPECT_EQ(bits(r[test::pres]), bits(calc_sat_pres(temp)));
      } else {
        const double expected = pressure(evaluate(element(e), temp, dens), dens);
        EXPECT_EQ(r.ierr, expected > 100000.0 ? status::td_pres_above_max : status::success);
        EXPECT_EQ(bits(r[test::pres]), bits(r.ierr == 0 ? expected : 0.0));
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
    const Result r = td(temp, dens);
    ASSERT_EQ(r.ierr, status::td_two_phase);
    for (std::size_t i = test::cv; i < test::output_count; ++i) {
      ASSERT_EQ(bits(r.out.value[i]), 0U) << test::output_names[i];
    }
    pres.note(std::abs(r[test::pres] / columns["p"][k] - 1.0), temp, dens);
    qual.note(std::abs(r[test::qual] - columns["q"][k]), temp, dens);
    inte.note(std::abs(r[test::inte] - columns["u"][k] - 1.69e-6), temp, dens);
    enth.note(std::abs(r[test::enth] - columns["h"][k] - 1.69e-6), temp, dens);
    entr.note(std::abs(r[test::entr] - columns["s"][k] - 5.5e-9), temp, dens);
  }
  EXPECT_LT(pres.error, 3e-7) << pres.x << " K, " << pres.y;
  EXPECT_LT(qual.error, 5e-7) << qual.x << " K, " << qual.y;
  EXPECT_LT(inte.error, 1e-4) << inte.x << " K, " << inte.y;
  EXPECT_LT(enth.error, 1e-4) << enth.x << " K, " << enth.y;
  EXPECT_LT(entr.error, 4e-7) << entr.x << " K, " << entr.y;
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
      {305.0, 350.0, false, false, false, "bounds are strict"},
      {305.0, next_above(350.0), true, false, true, "the box of cp starts later"},
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
    const Result r = td(c.temp, c.dens);
    ASSERT_EQ(r.ierr, 0);
    const Derivatives<double> d =
        evaluate(element(expected_element(c.temp, c.dens)), c.temp, c.dens);
    double cv;
    double cp;
    double ssnd;
    calculate_cv(c.dens, c.temp, cv);
    calculate_cp(c.dens, c.temp, cp);
    calculate_ssnd(c.dens, c.temp, ssnd);
    const double cv_eos = isochoric_heat_capacity(d, c.temp);
    const double cp_eos = isobaric_heat_capacity(d, c.temp);
    const double ssnd_eos = std::sqrt(speed_of_sound_squared(d));
    EXPECT_EQ(r[test::cv], c.cv ? cv : cv_eos);
    EXPECT_EQ(r[test::cp], c.cp ? cp : cp_eos);
    EXPECT_EQ(r[test::ssnd], c.ssnd ? ssnd : ssnd_eos);
    // Or else the test could not tell the two apart.
    EXPECT_TRUE(cv != cv_eos && cp != cp_eos && ssnd != ssnd_eos);
  }
}

}  // namespace
}  // namespace co2_properties
