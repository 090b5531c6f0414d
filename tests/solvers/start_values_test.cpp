#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>
#include <vector>

#include "eos/locate_td.hpp"
#include "eos/properties.hpp"
#include "saturation/sat_density.hpp"
#include "solvers/from_hp.hpp"
#include "solvers/from_sp.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/csv.hpp"

namespace co2_properties {
namespace {

using test::infinity;
using test::next_below;
using test::not_a_number;
using test::WorstError;

struct Start {
  double temp = -1.0, dens = -1.0;
  std::int32_t flag = -1;
};

Start start_hp(const double enth, const double pres) {
  Start s;
  temp_from_hp(enth, pres, s.temp, s.flag);
  dens_from_hp(enth, pres, s.dens);
  return s;
}

Start start_sp(const double entr, const double pres) {
  Start s;
  temp_from_sp(entr, pres, s.temp, s.flag);
  dens_from_sp(entr, pres, s.dens);
  return s;
}

struct Pair {
  const char* name;
  bool enthalpy;
  Start (*start)(double, double);
};
constexpr Pair pairs[] = {{"(p, h)", true, start_hp}, {"(p, s)", false, start_sp}};

constexpr double p_crit = 7377.3;
constexpr double h_crit = 332.24565247344543;
constexpr double s_crit = 1.4336253430402914;

TEST(StartValues, SaturationCheckFlag) {
  struct Case {
    std::size_t pair;
    double caloric, pres;
    std::int32_t flag;
    const char* why;
  };
  const Case cases[] = {
      {0, 250.0, next_below(p_crit), 1, "dome, just below the critical pressure"},
      {0, 250.0, p_crit, 0, "at the critical pressure"},
      {0, -1e9, 0.5, 1, "far below the liquid"},
      {0, next_below(h_crit), 7000.0, 1, "below the critical enthalpy"},
      {0, h_crit, 7000.0, 1, "at the critical enthalpy"},
      {0, next_below(465.0), 1000.0, 1, "vapour side"},
      {0, 465.0, 1000.0, 0, "beyond saturated vapour"},
      {0, 465.0, 5000.0, 0, "the same in another cell"},
      {1, next_below(0.85), 2000.0, 1, "cold liquid"},
      {1, next_below(0.85), 5000.0, 0, "compressed liquid only"},
      {1, 0.85, 5000.0, 1, "warmer liquid"},
      {1, 1.9, 4000.0, 1, "vapour side"},
      {1, 1.9, 6000.0, 0, "beyond saturated vapour"},
      {1, 2.1, next_below(1875.0), 1, "vapour side"},
      {1, 2.1, 1875.0, 0, "beyond saturated vapour"},
      {1, next_below(2.25), 900.0, 1, "highest entropy with a check"},
      {1, 2.25, 900.0, 0, "beyond saturated vapour"},
      {1, 2.0, 100.0, 0, "colder than the library goes"},
      {1, s_crit, next_below(p_crit), 1, "below the critical point"},
      {1, s_crit, p_crit, 0, "at the critical point"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(pairs[c.pair].start(c.caloric, c.pres).flag, c.flag)
        << pairs[c.pair].name << ' ' << c.caloric << ' ' << c.pres << ": " << c.why;
  }
}

// No point with two phases may miss the check: the caller would take it for a single phase.
TEST(StartValues, EveryTwoPhaseStateIsChecked) {
  const auto data = test::read_csv(TEST_DATA_DIR "/twophase.csv");
  for (std::size_t k = 0; k < data.at("p").size(); ++k) {
    EXPECT_EQ(start_hp(data.at("h")[k], data.at("p")[k]).flag, 1) << "row " << k;
    EXPECT_EQ(start_sp(data.at("s")[k], data.at("p")[k]).flag, 1) << "row " << k;
  }
}

// One cell of each fit has known coefficients. Expected: their polynomials at the origin and
// towards the far corner, evaluated with fifty digits.
TEST(StartValues, ValuesOfTheGivenCells) {
  constexpr double s_low = 0.5228159470278011;
  struct Case {
    std::size_t pair;
    double Start::*value;
    double caloric, pres, expected;
  };
  const Case cases[] = {
      {0, &Start::temp, 120.0, 1.0, 236.7057193529548},
      {0, &Start::temp, 164.0, 7000.0, 258.02085457413915},
      {0, &Start::dens, 120.0, 1000.0, 1102.048615676533},
      {0, &Start::dens, 179.0, 7000.0, 997.8380208047041},
      {1, &Start::temp, s_low, 1000.0, 216.70663845525962},
      {1, &Start::temp, 0.84, 2900.0, 254.49384472644098},
      {1, &Start::dens, s_low, 1.0, 1181.504521695724},
      {1, &Start::dens, 0.89, 990.0, 995.1798166352118},
  };
  for (const Case& c : cases) {
    EXPECT_NEAR(pairs[c.pair].start(c.caloric, c.pres).*c.value, c.expected, 1e-14 * c.expected)
        << pairs[c.pair].name << ' ' << c.caloric << ' ' << c.pres;
  }
}

TEST(StartValues, AnyInputGivesAFlagAndWritesTheOutputs) {
  constexpr double odd[] = {0.0,  -0.0,  5e-324, -1.0,     1e-310,    1.0,          400.0, 1e5,
                            1e40, -1e40, 1e308,  infinity, -infinity, not_a_number, p_crit};
  std::mt19937_64 engine(6);
  for (const Pair& pair : pairs) {
    const auto check = [&](const double caloric, const double pres) {
      const Start s = pair.start(caloric, pres);
      EXPECT_TRUE(s.flag == 0 || s.flag == 1) << pair.name << ' ' << caloric << ' ' << pres;
      if (std::isnan(caloric) || std::isnan(pres)) {
        EXPECT_TRUE(std::isnan(s.temp) && std::isnan(s.dens)) << pair.name;
        EXPECT_TRUE(s.flag == 0 || !std::isnan(pres)) << "NaN lies above every pressure";
      } else {
        EXPECT_NE(s.temp, Start{}.temp) << pair.name << ' ' << caloric << ' ' << pres;
        EXPECT_NE(s.dens, Start{}.dens) << pair.name << ' ' << caloric << ' ' << pres;
      }
    };
    for (const double caloric : odd) {
      for (const double pres : odd) check(caloric, pres);
    }
    for (int sample = 0; sample < 20000; ++sample) {
      check(std::bit_cast<double>(engine()), std::bit_cast<double>(engine()));
    }
  }
  EXPECT_EQ(start_hp(not_a_number, 100.0).flag, 0) << "NaN lies above every enthalpy";
  for (const double pres : {0.0, -1.0}) {
    EXPECT_FALSE(std::isfinite(start_sp(2.0, pres).temp)) << "no logarithm at " << pres;
    EXPECT_FALSE(std::isfinite(start_sp(2.0, pres).dens)) << "no logarithm at " << pres;
  }
}

// ---- How good the estimates are: states of the element table, recovered by Newton's method
// --------

struct State {
  double temp, dens;
};

std::int32_t locate(const State& at) {
  if (at.temp >= 304.1282) return sc_index_from_td(at.temp, at.dens);
  return at.dens <= 467.6 ? vap_index_from_td(at.temp, at.dens)
                          : liq_index_from_td(at.temp, at.dens);
}

bool single_phase(const State& at) {
  return at.temp >= 304.1282 || at.dens <= calc_sat_vap_dens(at.temp) ||
         at.dens >= calc_sat_liq_dens(at.temp);
}

struct Values {
  HelmholtzDerivatives d;
  double pres, caloric;
};

Values values(const bool enthalpy_wanted, const State& at) {
  const HelmholtzDerivatives d = element_derivatives(locate(at), at.temp, at.dens);
  return {d, pressure(d, at.dens), enthalpy_wanted ? enthalpy(d, at.temp, at.dens) : entropy(d)};
}

State newton_step(const Pair& pair, const double pres, const double caloric, const State& at) {
  const auto [d, p, c] = values(pair.enthalpy, at);
  const double c_d = pair.enthalpy ? dhdd(d, at.temp, at.dens) : dsdd(d);
  const double c_t = pair.enthalpy ? dhdt(d, at.temp, at.dens) : dsdt(d);
  const double p_d = dpdd(d, at.dens);
  const double p_t = dpdt(d, at.dens);
  const double det = p_d * c_t - p_t * c_d;
  return {at.temp - (p_d * (caloric - c) - c_d * (pres - p)) / -det,
          at.dens - (c_t * (pres - p) - p_t * (caloric - c)) / -det};
}

/// Single-phase states: even over temperature and density, even over its logarithm, and close to
/// the critical point.
std::vector<State> states() {
  constexpr int each = 20000;
  std::mt19937_64 engine(8);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  const auto between = [&](const double lo, const double hi) {
    return lo + (hi - lo) * unit(engine);
  };
  std::vector<State> all;
  for (int k = 0; k < each; ++k) {
    all.push_back({between(240.0, 1500.0), between(0.0, 1260.0)});
    all.push_back({between(240.0, 400.0), between(0.0, 1260.0)});
    all.push_back({between(240.0, 1500.0), std::exp(between(std::log(0.0036), std::log(1000.0)))});
    all.push_back({between(240.0, 320.0), std::exp(between(std::log(0.015), std::log(400.0)))});
    all.push_back({between(303.5, 305.0), between(380.0, 560.0)});
  }
  std::erase_if(all, [](const State& at) {
    if (!single_phase(at)) return true;
    const double pres = values(true, at).pres;
    return !(pres >= 1.0 && pres <= 100000.0);
  });
  return all;
}

// From the estimates, two Newton steps lead to the state: the third evaluation finds the residuals
// at the rounding of the table. Around the critical point, where a pressure hardly tells densities
// apart, that rounding leaves more of the density open.
TEST(StartValues, TwoNewtonStepsReachTheState) {
  // Measured: start 2.5e-4 in temperature (325 kPa, 2.6 kJ/(kg K)) and 2.7e-3 in density (1.4 kPa,
  // 255 K); after two steps 6e-11 and 7e-11, around the critical point 4.3e-7 in density.
  constexpr double start_temp = 5e-4;
  constexpr double start_dens = 5e-3;
  constexpr double end = 2e-10;
  constexpr double end_critical_dens = 1.3e-6;
  const std::vector<State> all = states();
  ASSERT_GT(all.size(), 60000U);
  for (const Pair& pair : pairs) {
    SCOPED_TRACE(pair.name);
    WorstError first_temp, first_dens, last_temp, last_dens, last_dens_critical;
    for (const State& truth : all) {
      const Values target = values(pair.enthalpy, truth);
      const Start s = pair.start(target.caloric, target.pres);
      const auto note = [&](WorstError& worst, const double value, const double expected) {
        worst.note(std::abs(value / expected - 1.0), truth.temp, truth.dens);
      };
      State at = {s.temp, s.dens};
      note(first_temp, at.temp, truth.temp);
      note(first_dens, at.dens, truth.dens);
      for (int k = 0; k < 2; ++k) at = newton_step(pair, target.pres, target.caloric, at);
      const bool critical = std::abs(truth.temp - 304.1282) < 1.0;
      note(last_temp, at.temp, truth.temp);
      note(critical ? last_dens_critical : last_dens, at.dens, truth.dens);
    }
    const auto expect = [](const char* what, const WorstError& worst, const double bound) {
      EXPECT_LT(worst.error, bound) << what << " at " << worst.x << " K, " << worst.y << " kg/m3";
    };
    expect("start temperature", first_temp, start_temp);
    expect("start density", first_dens, start_dens);
    expect("temperature after two steps", last_temp, end);
    expect("density after two steps", last_dens, end);
    expect("density after two steps, critical", last_dens_critical, end_critical_dens);
  }
}

}  // namespace
}  // namespace co2_properties
