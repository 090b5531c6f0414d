// States from density and a second property.

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "tests/support/bits.hpp"
#include "tests/support/entries.hpp"

namespace co2_properties {
namespace {

using test::bits;
using test::density_entries;
using test::Entry;
using test::infinity;
using test::not_a_number;
using test::Result;

TEST(DensityEntries, FindTheStateOfTemperatureAndDensity) {
  struct Case {
    double temp, dens;
    const char* why;
  };
  const double sat = 280.0;
  const Case cases[] = {
      {300.0, 0.03, "thin gas"},
      {250.0, 20.0, "vapour that is thinner than any mixture"},
      {290.0, 120.0, "vapour beside the dome"},
      {260.0, 1050.0, "liquid"},
      {245.0, 1100.0, "liquid that is denser than any mixture"},
      {280.0, 400.0, "mixture"},
      {241.0, 36.0, "mixture of nearly nothing but vapour"},
      {303.97, 467.6, "mixture next to the critical point"},
      {sat, calc_sat_vap_dens(sat), "saturated vapour"},
      {sat, calc_sat_liq_dens(sat), "saturated liquid"},
      {305.3, 467.6, "above the critical point"},
      {1499.0, 250.0, "hot and dense"},
      {240.0, 40.0, "mixture on the limit of temperature"},
      {240.0, 1120.0, "liquid on the limit of temperature"},
      {1500.0, 1.0, "gas on the limit of temperature"},
  };
  for (const Entry* const entry : density_entries) {
    for (const Case& c : cases) {
      SCOPED_TRACE(testing::Message() << entry->name << ": " << c.why);
      const Result expected = test::td(c.temp, c.dens);
      const Result r = (*entry)(c.dens, expected[entry->inputs[1]]);
      // The pressures of both saturated phases differ by 1e-6, and so do temperatures from them.
      const bool by_other_phase = entry == &test::dp && c.temp == sat;
      EXPECT_NEAR(r[test::temp], c.temp, (by_other_phase ? 1e-7 : 2e-12) * c.temp);
      // On saturation either phase may be found; they have the same state.
      const Result at = test::td(r[test::temp], c.dens);
      EXPECT_EQ(r.ierr, at.ierr == 0 ? 0 : -entry->base - 1);
      for (const test::Output k : {test::pres, test::qual, test::inte, test::enth, test::entr})
        EXPECT_EQ(bits(r[k]), bits(at[k])) << test::output_names[k];
      test::expect_written(r);
    }
  }
}

/// What an entry answers where `factor` times the property of a state of `co2_td` is given, or, for
/// a temperature of 0, `factor` itself.
struct LimitCase {
  double temp, dens, factor;
  std::int32_t code;  ///< less that of the entry
  const char* why;
};

void expect_codes(const Entry& entry, const std::vector<LimitCase>& cases) {
  for (const LimitCase& c : cases) {
    SCOPED_TRACE(testing::Message() << entry.name << ": " << c.why);
    const double of_state = c.temp > 0.0 ? test::td(c.temp, c.dens)[entry.inputs[1]] : 1.0;
    const Result r = entry(c.dens, c.factor * of_state);
    EXPECT_EQ(r.ierr, c.code == 0 ? 0 : entry.base + c.code);
    test::expect_written(r);
  }
}

TEST(DensityEntries, TellWhichLimitIsCrossedFirst) {
  const double thin = 0.01;     // reaches 1 kPa at 530 K
  const double dense = 1000.0;  // reaches 100000 kPa below 400 K
  const double below = 1.0 - 1e-9;
  const double above = 1.0 + 1e-9;
  const std::vector<LimitCase> cases = {
      {240.0, 10.0, below, 1, "vapour colder than 240 K"},
      {240.0, 500.0, below, 1, "mixture colder than 240 K"},
      {0.0, 10.0, -1e300, 1, "far below"},
      {1500.0, 10.0, above, 2, "hotter than 1500 K"},
      {0.0, 10.0, 1e300, 2, "far above"},
      {530.0, thin, 0.999, 3, "1 kPa is reached before 240 K"},
      {0.0, thin, -1e300, 3, "far below"},
      {531.0, thin, 1.0, 0, "just above 1 kPa"},
      {0.0, 0.0035, 500.0, 3, "thinner than any state"},
      {0.0, -1.0, 500.0, 3, "negative density"},
      {0.0, dense, 1e300, 4, "100000 kPa is reached before 1500 K"},
      {350.0, dense, 1.0, 0, "below 100000 kPa"},
      {0.0, 1270.0, 300.0, 4, "denser than 100000 kPa at 240 K"},
      {0.0, 1e300, 300.0, 4, "far denser"},
      {0.0, not_a_number, 300.0, 5, "no density"},
      {0.0, infinity, 300.0, 5, "infinite density"},
      {0.0, 10.0, not_a_number, 5, "no value"},
      {0.0, 10.0, -infinity, 5, "infinite value"},
  };
  for (const Entry* const entry : {&test::du, &test::dh, &test::ds}) expect_codes(*entry, cases);
  expect_codes(test::dp, {{240.0, 10.0, below, 1, "colder than 240 K"},
                          {240.0, 500.0, below, 1, "mixture colder than 240 K"},
                          {1500.0, 10.0, above, 2, "hotter than 1500 K"},
                          {0.0, 10.0, 0.9999, 3, "pressure below 1 kPa"},
                          {0.0, 10.0, -1e300, 3, "far below"},
                          {0.0, 0.0035, 500.0, 3, "thinner than any state"},
                          {0.0, thin, 1.0, 0, "1 kPa"},
                          {0.0, dense, 100000.0, 0, "100000 kPa"},
                          {0.0, dense, 100000.1, 4, "pressure above 100000 kPa"},
                          {0.0, 1270.0, 1e5, 4, "denser than 100000 kPa at 240 K"},
                          {0.0, not_a_number, 300.0, 5, "no density"},
                          {0.0, 10.0, not_a_number, 5, "no value"}});
}

// An isochore that starts or ends at a limit of pressure does so there.
TEST(DensityEntries, ReachTheLimitsOfPressure) {
  for (const Entry* const entry : {&test::du, &test::dh, &test::ds}) {
    for (const double temp : {245.0, 300.0, 600.0, 1400.0}) {
      for (const double pres : {1.0, 100000.0}) {
        SCOPED_TRACE(testing::Message() << entry->name << ' ' << temp << " K, " << pres << " kPa");
        const double inwards = pres == 1.0 ? 1e-6 : -1e-6;
        const Result s = test::tp(temp, pres);
        const double value = s[entry->inputs[1]];
        EXPECT_EQ((*entry)(s[test::dens], value * (1.0 + inwards)).ierr, 0);
        EXPECT_EQ((*entry)(s[test::dens], value * (1.0 - inwards)).ierr,
                  entry->base + (pres == 1.0 ? 3 : 4));
      }
    }
  }
}

TEST(DensityEntries, WarnOfMissingOutputsInTwoPhases) {
  for (const Entry* const entry : density_entries) {
    const double value = test::td(280.0, 400.0)[entry->inputs[1]];
    for (std::size_t k = 0; k < test::output_count; ++k) {
      const test::Mask one = 1U << k;
      EXPECT_EQ((*entry)(400.0, value, one).ierr,
                (one & entry->single_phase_only) != 0 ? -entry->base - 1 : 0)
          << entry->name << ' ' << test::output_names[k];
    }
  }
}

// Where two elements meet a property jumps: a value in between is met by one of them, extrapolated.
TEST(DensityEntries, MeetValuesInsideJumps) {
  for (const Entry* const entry : density_entries) {
    for (const double temp : {254.0, 266.5, 290.0, 320.0, 450.0}) {
      for (const double dens : {20.0, 300.0, 700.0, 1070.0}) {
        if (test::td(temp, dens).ierr > 0) continue;
        const auto value_at = [&](const double t) { return test::td(t, dens)[entry->inputs[1]]; };
        const double low = value_at(std::nextafter(temp, 0.0));
        const double value = low + 0.5 * (value_at(temp) - low);
        const Result r = (*entry)(dens, value);
        EXPECT_NEAR(r[test::temp], temp, 1e-3) << entry->name << ' ' << dens;
        EXPECT_NEAR(r[entry->inputs[1]], value, 1e-11 * std::max(1.0, value)) << entry->name;
      }
    }
  }
}

TEST(DensityEntries, GiveTheSameBitsInBatches) {
  std::mt19937_64 engine(1);
  std::uniform_real_distribution<double> even(0.0, 1.0);
  for (const Entry* const entry : density_entries) {
    std::vector<double> dens, value;
    for (int k = 0; k < 3000; ++k) {
      const double temp = k % 3 == 0 ? 235.0 + 1300.0 * even(engine) : 240.0 + 70.0 * even(engine);
      dens.push_back(k % 2 == 0 ? 1280.0 * even(engine) : std::exp(13.0 * even(engine) - 6.0));
      value.push_back(test::td(std::clamp(temp, 240.0, 1500.0), dens.back())[entry->inputs[1]]);
      if (k % 16 == 0) value.back() = k % 32 == 0 ? not_a_number : 1e4 * even(engine);
    }
    for (const Level& level : levels(instruction_sets()).level) {
      if (!level.runs) continue;
      std::vector<double> temp(dens.size()), pres(dens.size()), qual(dens.size());
      std::vector<std::int32_t> ierr(dens.size());
      (level.entries->*entry->run)(
          {dens, value, ierr, BatchOutputSet{.temp = temp, .pres = pres, .qual = qual}});
      for (std::size_t k = 0; k < dens.size(); ++k) {
        const Result r =
            (*entry)(dens[k], value[k], test::mask_of(test::temp, test::pres, test::qual));
        EXPECT_EQ(ierr[k], r.ierr) << level.name << ' ' << entry->name << ' ' << dens[k];
        EXPECT_EQ(bits(temp[k]), bits(r[test::temp])) << level.name << ' ' << entry->name;
        EXPECT_EQ(bits(pres[k]), bits(r[test::pres])) << level.name << ' ' << entry->name;
        EXPECT_EQ(bits(qual[k]), bits(r[test::qual])) << level.name << ' ' << entry->name;
      }
    }
  }
}

}  // namespace
}  // namespace co2_properties
