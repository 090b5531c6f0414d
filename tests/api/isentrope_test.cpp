// co2_ts, co2_hs and the limits that co2_pu does not share with co2_ph and co2_ps. Round trips over
// the whole range are those of tools/solver_report, which tests/CMakeLists.txt runs.

#include "solvers/isentrope.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "api/entries/hs.hpp"
#include "eos/properties.hpp"
#include "solvers/solve_entropy.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/entries.hpp"

namespace co2_properties {
namespace {

using test::bits;
using test::Entry;
using test::infinity;
using test::next_above;
using test::next_below;
using test::not_a_number;
using test::Result;
using test::td;

constexpr const Entry* isentropic_entries[] = {&test::ts, &test::hs};

// The code is that of the limit which the state lies beyond, however far.
TEST(Isentrope, CodesAreThoseOfTheLimits) {
  struct Case {
    double temp, pres;  // on a limit
    int code;
    double enth, entr;  // a direction that leads beyond it, at a distance of 1e-6 and more
    const char* why;
  };
  const Case cases[] = {
      {240.0, 5000.0, 1, -1.0, 0.0, "liquid"},
      {240.0, 900.0, 1, -1.0, 0.0, "vapour"},
      {240.0, 100000.0, 1, -1.0, -1.0, "dense liquid"},
      {1500.0, 2.0, 2, 1.0, 0.0, "thin gas"},
      {1500.0, 99000.0, 2, 1.0, 0.0, "dense gas"},
      {241.0, 1.0, 3, 0.0, 1.0, "cold vapour"},
      {700.0, 1.0, 3, 0.0, 1.0, "gas"},
      {1499.0, 1.0, 3, 0.0, 1.0, "hot gas"},
      {241.0, 100000.0, 4, 0.0, -1e-2, "cold liquid"},
      {304.2, 100000.0, 4, 1.0, 0.0, "supercritical"},
      {1499.0, 100000.0, 4, 0.0, -1e-2, "hot gas"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.why);
    const Result at = test::tp(c.temp, c.pres);
    const auto hs_at = [&](const double far) {
      return test::hs(at[test::enth] + far * c.enth, at[test::entr] + far * c.entr).ierr;
    };
    EXPECT_EQ(hs_at(-1e-6), 0);
    for (const double far : {1e-6, 1.0, 1e3, 1e10, 1e308}) {
      // Farther out the isentrope may cross another limit first.
      const bool same = c.code <= 2 || far <= 1e-6;
      EXPECT_TRUE(same ? hs_at(far) == 900 + c.code : hs_at(far) > 900) << far << ' ' << hs_at(far);
      if (c.code <= 2 || c.entr == 0.0) continue;
      EXPECT_EQ(test::ts(c.temp, at[test::entr] + far * c.entr).ierr, 1100 + c.code) << far;
      EXPECT_EQ(test::ts(c.temp, at[test::entr] - 1e-6 * c.entr).ierr, 0);
    }
  }
  // Mixtures are too cold below the tie line of 240 K.
  const Result liq = td(240.0, calc_sat_liq_dens(240.0));
  const Result vap = td(240.0, calc_sat_vap_dens(240.0));
  for (const double qual : {0.001, 0.5, 0.999}) {
    const double h = liq[test::enth] + qual * (vap[test::enth] - liq[test::enth]);
    const double s = liq[test::entr] + qual * (vap[test::entr] - liq[test::entr]);
    EXPECT_EQ(test::hs(h - 1e-5, s).ierr, 901);
    EXPECT_EQ(test::hs(h + 1e-5, s).ierr, -901);
  }
  for (const Entry* const entry : isentropic_entries) {
    for (const double odd : {not_a_number, infinity, -infinity}) {
      EXPECT_EQ((*entry)(odd, 2.0).ierr, entry->base + 5);
      EXPECT_EQ((*entry)(300.0, odd).ierr, entry->base + 5);
    }
  }
  EXPECT_EQ(test::ts(next_below(240.0), 2.0).ierr, 1101);
  EXPECT_EQ(test::ts(-1e308, 1e308).ierr, 1101) << "temperature first";
  EXPECT_EQ(test::ts(240.0, 2.0).ierr, -1101);
  EXPECT_EQ(test::ts(1500.0, 4.0).ierr, 0);
  EXPECT_EQ(test::ts(next_above(1500.0), -1e308).ierr, 1102);
}

// Saturated states have one phase, what lies between them two, decided by their entropies alone.
TEST(Isentrope, PhasesMeetAtTheSaturatedOnes) {
  for (const double temp : {240.0, 255.5, 281.3, 300.9, 303.9, 304.12, 304.1281}) {
    const Result liq = td(temp, calc_sat_liq_dens(temp));
    const Result vap = td(temp, calc_sat_vap_dens(temp));
    const double s_liq = liq[test::entr];
    const double s_vap = vap[test::entr];
    struct Case {
      double entr;
      bool mixture;
      double dens;
      const char* why;
    };
    for (const Case& c : {Case{s_vap, false, vap[test::dens], "saturated vapour"},
                          Case{next_below(s_vap), true, vap[test::dens], "just inside"},
                          Case{next_above(s_vap), false, vap[test::dens], "just outside"},
                          Case{s_liq, false, liq[test::dens], "saturated liquid"},
                          Case{next_above(s_liq), true, liq[test::dens], "just inside"},
                          Case{next_below(s_liq), false, liq[test::dens], "just outside"}}) {
      SCOPED_TRACE(testing::Message() << temp << " K: " << c.why);
      const Result r = test::ts(temp, c.entr);
      EXPECT_EQ(r.ierr, c.mixture ? -1101 : 0);
      EXPECT_NEAR(r[test::dens], c.dens, 1e-9 * c.dens);
    }
    const double qual = 0.3;
    const Result r = test::ts(temp, s_liq + qual * (s_vap - s_liq));
    const Result again = td(temp, r[test::dens]);
    EXPECT_NEAR(r[test::qual], qual, 1e-12);
    const Result by_hs = test::hs(r[test::enth], r[test::entr]);
    EXPECT_EQ(by_hs.ierr, -901);
    EXPECT_NEAR(by_hs[test::temp], temp, 1e-9);
    EXPECT_NEAR(by_hs[test::enth], r[test::enth], 1e-11 * r[test::enth]);
    EXPECT_NEAR(by_hs[test::entr], r[test::entr], 1e-11 * r[test::entr]);
    EXPECT_NEAR(again[test::qual], qual, 1e-10);
    EXPECT_NEAR(again[test::enth], r[test::enth], 1e-10 * r[test::enth]);
    EXPECT_EQ(bits(again[test::pres]), bits(r[test::pres]));
  }
}

// The stated road alone, from any start: it arrives where the common road does.
TEST(Isentrope, SearchArrivesFromAnyStart) {
  for (const double temp : {240.0, 304.1282, 304.2, 350.0, 1500.0}) {
    for (const double pres : {1.0, 100.0, 7377.0, 9000.0, 100000.0}) {
      const Region region = temp >= t_crit  ? Region::supercritical
                            : pres > 1283.0 ? Region::liquid
                                            : Region::vapour;
      const Result state = test::tp(temp, pres);
      const double least = region == Region::liquid ? calc_sat_liq_dens(temp) : 1e-3;
      const double most =
          region == Region::vapour ? calc_sat_vap_dens(temp) : end_of_elements(region, temp);
      for (const double start : {least, std::sqrt(least * most), most}) {
        const EntropySolution s =
            solve_entropy(region, temp, state[test::entr], least, most, start);
        EXPECT_TRUE(s.converged) << temp << " K " << pres << " kPa from " << start;
        EXPECT_NEAR(s.dens, state[test::dens], 1e-6 * state[test::dens]);
      }
    }
  }
}

// The search along isentropes, which few states need, finds what the steps of the entry do. Not on
// the edge between two elements, where both have a solution.
TEST(Isentrope, SearchFindsTheStatesOfTheEntry) {
  for (const double temp : {240.1, 261.0, 303.1, 304.01, 304.9, 507.0, 1499.9}) {
    for (const double dens : {0.05, 1.3, 101.0, 303.0, 467.0, 707.0, 1103.0}) {
      const Result r = td(temp, dens);
      if (r.ierr > 0) continue;
      SCOPED_TRACE(testing::Message() << temp << " K " << dens);
      const IsentropeState s = state_on_isentrope(r[test::enth], r[test::entr]);
      EXPECT_EQ(s.beyond, IsentropeState::inside);
      EXPECT_EQ(s.at.kind == IsentropePoint::mixture, r.ierr < 0);
      EXPECT_NEAR(s.temp, temp, 1e-9 * temp);
      if (r.ierr == 0) {
        EXPECT_NEAR(s.at.dens, dens, 1e-8 * dens);
      }
    }
  }
}

// What steps lead to is a result only if it meets both inputs.
TEST(Isentrope, CommonRoadRefusesWhatDoesNotMeetTheInputs) {
  constexpr double off = 1.0 + 1e-9;
  for (const auto& [temp, dens] : {std::pair{300.0, 1.0}, {250.0, 1103.0}, {304.2, 467.0}}) {
    SCOPED_TRACE(testing::Message() << temp << " K " << dens);
    const Cells<double> cells = {&element(relocate(temp, dens))};
    const Derivatives<double> d = evaluate<double>(cells, temp, dens);
    const double h = enthalpy(d, temp);
    const double s = entropy(d);
    const auto accepts = [&](const double t, const double rho, const double enth,
                             const double entr) {
      return evaluate_hs<double>(cells, {t, rho, true}, enth, entr).wanted;
    };
    EXPECT_TRUE(accepts(temp, dens, h, s));
    EXPECT_FALSE(accepts(temp * off, dens, h, s));
    EXPECT_FALSE(accepts(temp, dens * off, h, s));
    EXPECT_FALSE(accepts(temp, dens, h * off, s));
    EXPECT_FALSE(accepts(temp, dens, h, s * off));
    EXPECT_TRUE(meets_entropy<double>(d, s));
    EXPECT_FALSE(meets_entropy<double>(d, s * off));
  }
  // The straight line through the phases of 302.9 K passes here, far beyond its ends.
  EXPECT_EQ(test::hs(0x1.fbabb02b35a9p+6, 0x1.83b33c1db6c2ap-1).ierr, 901);
}

// Below the cold end of saturation there are no mixtures: they would be colder than the range.
TEST(Isentrope, EnergiesBelowTheColdEndOfSaturationAreTooCold) {
  for (const double pres : {1.0, 100.0, 1000.0, 1282.0}) {
    const double cold = test::tp(240.0, pres)[test::inte];
    EXPECT_EQ(test::pu(pres, cold - 1e-6).ierr, 1001);
    EXPECT_EQ(test::pu(pres, 250.0).ierr, 1001);
    EXPECT_EQ(test::pu(pres, cold + 1e-6).ierr, 0);
  }
  EXPECT_EQ(test::pu(next_below(1.0), 500.0).ierr, 1003);
  EXPECT_EQ(test::pu(next_above(100000.0), 500.0).ierr, 1004);
  EXPECT_EQ(test::pu(100.0, not_a_number).ierr, 1005);
  EXPECT_EQ(test::pu(infinity, 500.0).ierr, 1004);
  EXPECT_EQ(test::pu(not_a_number, 500.0).ierr, 1005);
}

}  // namespace
}  // namespace co2_properties
