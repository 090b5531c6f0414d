// The entries with fixed arguments, which end the process on an error.

#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "tests/support/entries.hpp"

namespace co2_properties {
namespace {

using test::bits;
using test::Result;

constexpr double pascal = 9.999999974752427e-7;  // the factor is the single-precision one

TEST(Fittp, GivesTheValuesOfTheEntryWithViscosityInPascalSeconds) {
  struct Case {
    double temp, pres;
    const char* why;
  };
  const Case cases[] = {
      {300.0, 100.0, "gas"}, {280.0, 9000.0, "liquid"}, {305.0, 7500.0, "critical"}};
  for (const Case& c : cases) {
    double w[6] = {};
    fittp_(&c.temp, &c.pres, w, w + 1, w + 2, w + 3, w + 4, w + 5);
    const Result r = test::tp(c.temp, c.pres);
    ASSERT_EQ(r.ierr, 0);
    const double expected[] = {r[test::enth], r[test::dens], r[test::cv],
                               r[test::cp],   r[test::cond], r[test::visc] * pascal};
    for (std::size_t k = 0; k < 6; ++k) EXPECT_EQ(bits(w[k]), bits(expected[k])) << c.why << k;
    EXPECT_NE(bits(w[5]), bits(r[test::visc] * 1e-6));
  }
}

TEST(Fitph, GivesTheValuesOfTheEntryWithQualityWithinItsLimits) {
  struct Case {
    double pres, enth, qual;
    const char* why;
  };
  const Case cases[] = {{1000.0, 460.0, 1.0, "gas: above 1"},
                        {9000.0, 200.0, 0.0, "liquid: below 0"},
                        {7000.0, 600.0, 1.0, "the mark 998"},
                        {9000.0, 600.0, 1.0, "the mark 999"},
                        {3000.0, 300.0, -1.0, "two phases: as it is, with a warning"}};
  for (const Case& c : cases) {
    double w[7] = {};
    fitph_(&c.pres, &c.enth, w, w + 1, w + 2, w + 3, w + 4, w + 5, w + 6);
    const Result r = test::ph(c.pres, c.enth);
    EXPECT_EQ(r.ierr, c.qual < 0.0 ? status::ph_two_phase : 0);
    const double qual = c.qual < 0.0 ? r[test::qual] : c.qual;
    const double expected[] = {r[test::temp], r[test::dens],          r[test::cv], r[test::cp],
                               r[test::cond], r[test::visc] * pascal, qual};
    for (std::size_t k = 0; k < 7; ++k) EXPECT_EQ(bits(w[k]), bits(expected[k])) << c.why << k;
  }
}

// What is printed goes to where a death test reads.
TEST(WrappersDeathTest, PrintTwoRecordsAndEndTheProcessOnAnError) {
  struct Case {
    bool by_enth;
    double first, second;
    std::string text;
  };
  const Case cases[] = {
      {false, 250.0, 0.5, "CO2_TP: specified pressure below minimum value of 1 kPa"},
      {false, 200.0, 100.0, "CO2_TP: specified temperature below minimum value of 240 K"},
      {false, 270.0, calc_sat_pres(270.0),
       "CO2_TP: specified temperature and pressure correspond to saturation point; state is "
       "undefined"},
      {true, 0.5, 400.0, "CO2_PH: specified pressure below minimum value of 1 kPa"},
      {true, 5000.0, 20.0,
       "CO2_PH: specified inputs result in temperature below minimum value of 240 K"},
      {true, 5000.0, 2000.0,
       "CO2_PH: specified inputs result in temperature above maximum value of 1500 K"},
  };
  for (const Case& c : cases) {
    const auto call = [&c] {
      dup2(STDERR_FILENO, STDOUT_FILENO);
      double o[7] = {};
      if (c.by_enth) fitph_(&c.first, &c.second, o, o + 1, o + 2, o + 3, o + 4, o + 5, o + 6);
      fittp_(&c.first, &c.second, o, o + 1, o + 2, o + 3, o + 4, o + 5);
    };
    std::string text = c.text;
    text.resize(255, ' ');
    EXPECT_EXIT(call(), testing::ExitedWithCode(0),
                testing::Eq(" error in FIT - stopping\n " + text + "\n"));
  }
}

}  // namespace
}  // namespace co2_properties
