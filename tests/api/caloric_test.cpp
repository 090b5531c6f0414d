// co2_ph and co2_ps: one procedure for two properties, so that most claims are made of both.

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <random>

#include "api/caloric_properties.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/csv.hpp"
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
double value(const Entry& entry, const HelmholtzDerivatives& d, const double temp,
             const double dens) {
  return entry.inputs[1] == test::enth ? enthalpy(d, temp, dens) : entropy(d);
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
      const HelmholtzDerivatives d = element_derivatives(relocate(c.temp, c.dens), c.temp, c.dens);
      const Result r = (*entry)(pressure(d, c.dens), value(*entry, d, c.temp, c.dens));
      EXPECT_EQ(r.ierr, c.code == 0 ? 0 : entry->base + c.code);
      EXPECT_NEAR(r[test::temp], c.code == 0 ? c.temp : 0.0, 1e-6);
    }
  }
}

// What becomes of an iteration that was not done by its fourteenth evaluation.
TEST(Caloric, JudgesLateResults) {
  constexpr CaloricTarget target = {5000.0, -200.0, 5e-8, 2e-9};
  constexpr CaloricTarget small = {5000.0, 0.5, 5e-8, 1e-11};
  struct Case {
    const CaloricTarget& target;
    double temp, pres_residual, caloric_residual;
    std::int32_t ierr;
    const char* why;
  };
  const Case cases[] = {
      {target, 310.0, -4.9e-7, 1.9e-7, 0, "ten and a hundred times the tolerances"},
      {target, 310.0, 5.1e-7, 0.0, 305, "pressure beyond ten times"},
      {target, 310.0, 0.0, -2.1e-7, 305, "enthalpy beyond a hundred times"},
      {target, 239.9, 1.0, 0.0, 305, "off: where it ended says nothing of the inputs"},
      {target, 1500.1, 0.0, 1.0, 305, "off: where it ended says nothing of the inputs"},
      {target, 239.9, 0.0, 0.0, 0, "the range of a good result is tested later"},
      {target, 304.0483, 0.49, 0.019, 0, "loose results are accepted in the band"},
      {target, 304.2081, -0.49, -0.019, 0, "at its other end"},
      {target, 304.1, 0.51, 0.0, -302, "pressure too loose"},
      {target, 304.1, 0.0, 0.021, -302, "enthalpy too loose"},
      {target, 304.1, 49.0, 1.9, -302, "a hundredth"},
      {target, 304.1, 51.0, 0.0, 305, "pressure of another state"},
      {target, 304.1, 0.0, 2.1, 305, "enthalpy of another state"},
      {small, 304.1, 0.0, 0.9e-4, 0, "small enthalpies count as one"},
      {small, 304.1, 0.0, 1.1e-4, -302, "small enthalpies count as one"},
      {target, 304.0481, 0.49, 0.0, 305, "just outside the band"},
      {target, 304.2083, 0.49, 0.0, 305, "just outside the band"},
      {target, not_a_number, not_a_number, not_a_number, 305, "NaN is no result"},
      {target, 310.0, not_a_number, 0.0, 305, "NaN is no result"},
      {target, 310.0, 0.0, not_a_number, 305, "NaN is no result"},
  };
  for (const Case& c : cases) {
    const CaloricSolution s = {300, c.temp, 400.0, {}, c.pres_residual, c.caloric_residual, 16};
    EXPECT_EQ(judge_late_result(s, c.target, Enthalpy::codes), c.ierr) << c.why;
  }
}

// From starts near and far the solver either meets the target in time or runs to its limit.
TEST(Caloric, SolverMeetsTheTargetOrRunsToItsLimit) {
  std::mt19937_64 engine(3);
  std::uniform_real_distribution<double> in_temp(240.0, 1500.0);
  std::uniform_real_distribution<double> in_dens(1.0, 600.0);
  int late = 0;
  for (int sample = 0; sample < 50000; ++sample) {
    const double temp = in_temp(engine);
    const double dens = in_dens(engine);
    const HelmholtzDerivatives d = element_derivatives(relocate(temp, dens), temp, dens);
    const CaloricTarget target = caloric_target(pressure(d, dens), enthalpy(d, temp, dens));
    const auto first = static_cast<std::int32_t>(1 + engine() % 649);
    const CaloricSolution s =
        solve_caloric<Enthalpy>(target, first, in_temp(engine), in_dens(engine));
    ASSERT_TRUE(s.evaluations >= 1 && s.evaluations <= 16) << s.evaluations;
    if (s.evaluations == 16) {
      ++late;
      continue;
    }
    ASSERT_NEAR(pressure(s.d, s.dens), target.pres, 1e-11 * target.pres);
    ASSERT_NEAR(enthalpy(s.d, s.temp, s.dens), target.caloric, target.caloric_tolerance);
  }
  EXPECT_GT(late, 100) << "or else the limit was not tried";
  EXPECT_EQ(caloric_target(2.0, -300.0).caloric_tolerance, 1e-11 * 300.0);
  EXPECT_EQ(caloric_target(2.0, -0.3).caloric_tolerance, 1e-11) << "zero is an arbitrary point";
}

// ---- Two phases --------------------------------------------------------------------------------

struct Phases {
  double temp;
  SaturatedPhase liq, vap;
};

Phases phases_at(const double pres) {
  const double temp = calc_sat_temp(pres);
  return {temp, saturated_liquid(temp, calc_sat_liq_dens(temp)),
          saturated_vapour(temp, calc_sat_vap_dens(temp))};
}

constexpr double dome_pressures[] = {1290.0, 2000.0, 3500.0, 6500.0, 7200.0, 7370.0};

TEST(Caloric, MixtureLiesBetweenItsPhases) {
  for (const Entry* const entry : caloric_entries) {
    for (const double pres : dome_pressures) {
      const auto [temp, liq, vap] = phases_at(pres);
      const double x_liq = value(*entry, liq.d, temp, liq.dens);
      const double x_vap = value(*entry, vap.d, temp, vap.dens);
      for (const double fraction : {1e-6, 0.3, 0.9}) {
        SCOPED_TRACE(testing::Message() << entry->name << ' ' << pres << " kPa, " << fraction);
        const double x = x_liq + fraction * (x_vap - x_liq);
        const Result r = (*entry)(pres, x);
        const double qual = (x - x_liq) / (x_vap - x_liq);
        EXPECT_EQ(r.ierr, -entry->base - 1);
        EXPECT_EQ(bits(r[test::temp]), bits(temp));
        EXPECT_EQ(bits(r[test::pres]), bits(pressure(vap.d, vap.dens))) << "not the given one";
        EXPECT_EQ(bits(r[test::qual]), bits(qual));
        EXPECT_EQ(bits(r[test::svol]), bits(1.0 / r[test::dens]));
        const auto expect_mixed = [&](const test::Output k, const double of_liq,
                                      const double of_vap) {
          EXPECT_NEAR(r[k], of_liq + qual * (of_vap - of_liq),
                      test::tolerance::rounding * (std::abs(of_liq) + std::abs(of_vap)))
              << test::output_names[k];
        };
        expect_mixed(test::svol, 1.0 / liq.dens, 1.0 / vap.dens);
        expect_mixed(test::inte, internal_energy(liq.d, temp), internal_energy(vap.d, temp));
        expect_mixed(test::enth, enthalpy(liq.d, temp, liq.dens), enthalpy(vap.d, temp, vap.dens));
        expect_mixed(test::entr, entropy(liq.d), entropy(vap.d));
        if (entry->inputs[1] == test::enth) {
          double of_liq = 0.0;
          double of_vap = 0.0;
          calculate_visc(liq.dens, temp, of_liq);
          calculate_visc(vap.dens, temp, of_vap);
          expect_mixed(test::visc, of_liq, of_vap);
          calculate_cond(liq.dens, temp, of_liq);
          calculate_cond(vap.dens, temp, of_vap);
          expect_mixed(test::cond, of_liq, of_vap);
        } else {
          EXPECT_EQ(bits(r[test::visc]), 0U);
          EXPECT_EQ(bits(r[test::cond]), 0U);
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
      const double x_liq = value(*entry, liq.d, temp, liq.dens);
      const double x_vap = value(*entry, vap.d, temp, vap.dens);
      struct Case {
        double x, dens;
        bool mixture;
        const char* why;
      };
      const Case cases[] = {{x_vap, vap.dens, false, "saturated vapour"},
                            {next_below(x_vap), vap.dens, true, "just inside"},
                            {next_above(x_vap), vap.dens, false, "just outside"},
                            {x_liq, liq.dens, false, "saturated liquid"},
                            {next_above(x_liq), liq.dens, true, "just inside"},
                            {next_below(x_liq), liq.dens, false, "just outside"}};
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

// ---- Round trips -------------------------------------------------------------------------------

/// Whether the iteration cannot end in a neighbouring element, whose enthalpy and entropy differ by
/// the errors of the fits: iterates keep their element up to the margin outside it.
bool off_the_edges(const double temp, const double dens) {
  const Element& e = element(relocate(temp, dens));
  const double dt = temp - e.temp0;
  const double dr = dens - e.dens0;
  constexpr double off = 1.01 * element_margin;
  return dt > off && dt < e.temp_width - off && dr > off && dr < e.dens_width - off;
}

// td -> tp -> ph -> ps -> td, each entry fed with what the one before returned. Each stops within
// 1e-11 of its inputs, and that is what the bounds amount to; next to an edge of the elements they
// amount to the difference between two fits.
TEST(Caloric, TheFourEntriesLeadAroundToTheSameState) {
  std::mt19937_64 engine(4);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  test::WorstError firm, pres, enth, entr, at_edges, dens_of_tp;
  int count = 0;
  while (count < 60000) {
    const double temp =
        engine() % 2 == 0 ? 240.0 + 1260.0 * unit(engine) : 240.0 + 80.0 * unit(engine);
    const double dens =
        engine() % 2 == 0 ? 0.0036 * std::pow(350000.0, unit(engine)) : 1260.0 * unit(engine);
    const Result given = td(temp, dens);
    if (given.ierr != 0 || std::abs(temp - 304.1282) < 0.1) continue;
    // Close to saturation the fits of its pressure and temperature decide on the phase.
    if (temp < 304.1282 && std::abs(given[test::pres] / calc_sat_pres(temp) - 1.0) < 1e-5) continue;
    ++count;
    const Result tp = test::tp(temp, given[test::pres]);
    const Result ph = test::ph(tp[test::pres], tp[test::enth]);
    const Result ps = test::ps(ph[test::pres], ph[test::entr]);
    const Result end = td(ps[test::temp], ps[test::dens]);
    SCOPED_TRACE(testing::Message() << temp << " K " << dens << " kg/m3");
    ASSERT_TRUE(tp.ierr == 0 && ph.ierr == 0 && ps.ierr == 0 && end.ierr == 0);
    // At a given temperature the pressure is met wherever the isotherm is not flat.
    if (temp < 303.5 || temp > 305.0 || dens < 380.0 || dens > 560.0) {
      dens_of_tp.note(std::abs(tp[test::dens] / dens - 1.0), temp, dens);
    }
    const double error =
        std::max(std::abs(ps[test::temp] / temp - 1.0), std::abs(ps[test::dens] / dens - 1.0));
    if (!off_the_edges(temp, dens)) {
      at_edges.note(error, temp, dens);
      continue;
    }
    const auto off = [&](const test::Output k) {
      return std::abs(end[k] - given[k]) / std::max(1.0, std::abs(given[k]));
    };
    pres.note(std::abs(end[test::pres] / given[test::pres] - 1.0), temp, dens);
    enth.note(off(test::enth), temp, dens);
    entr.note(off(test::entr), temp, dens);
    if (dens * given[test::dpdd] > 10.0) firm.note(error, temp, dens);
  }
  EXPECT_LT(pres.error, 6e-11) << pres.x << " K " << pres.y;
  EXPECT_LT(enth.error, 9e-11) << enth.x << " K " << enth.y;
  EXPECT_LT(entr.error, 4e-11) << entr.x << " K " << entr.y;
  EXPECT_LT(firm.error, 1.2e-10) << firm.x << " K " << firm.y;
  EXPECT_LT(dens_of_tp.error, 1e-9) << dens_of_tp.x << " K " << dens_of_tp.y;
  EXPECT_LT(at_edges.error, 3e-7) << at_edges.x << " K " << at_edges.y;
}

// Around the critical point: always a result, and as good as the slope of the isotherm allows.
TEST(Caloric, CriticalStatesAreSolved) {
  std::mt19937_64 engine(5);
  std::uniform_real_distribution<double> in_temp(303.5, 305.0);
  std::uniform_real_distribution<double> in_dens(380.0, 560.0);
  for (const Entry* const entry : caloric_entries) {
    test::WorstError pres, caloric, firm;
    for (int count = 0; count < 100000; ++count) {
      const double temp = in_temp(engine);
      const double dens = in_dens(engine);
      const Result given = td(temp, dens);
      if (is_mixture(given)) continue;
      const Result r = (*entry)(given[test::pres], given[entry->inputs[1]]);
      SCOPED_TRACE(testing::Message() << entry->name << ' ' << temp << " K " << dens << " kg/m3");
      // Next to saturation it may be taken for a mixture that is all vapour or all liquid.
      if (is_mixture(r) && temp < 304.1282) {
        ASSERT_LT(std::min(std::abs(r[test::qual]), std::abs(r[test::qual] - 1.0)), 0.01);
        continue;
      }
      ASSERT_EQ(r.ierr, 0);
      pres.note(std::abs(r[test::pres] / given[test::pres] - 1.0), temp, dens);
      caloric.note(std::abs(r[entry->inputs[1]] / given[entry->inputs[1]] - 1.0), temp, dens);
      if (dens * given[test::dpdd] > 10.0 && off_the_edges(temp, dens)) {
        firm.note(std::abs(r[test::temp] / temp - 1.0), temp, dens);
        firm.note(std::abs(r[test::dens] / dens - 1.0), temp, dens);
      }
    }
    EXPECT_LT(pres.error, 1.1e-11) << pres.x << " K " << pres.y;
    EXPECT_LT(caloric.error, 1.1e-11) << caloric.x << " K " << caloric.y;
    EXPECT_LT(firm.error, 1.2e-10) << firm.x << " K " << firm.y;
  }
}

TEST(Caloric, PhasesComeBackUpToTheFitsOfSaturation) {
  std::mt19937_64 engine(6);
  std::uniform_real_distribution<double> in_temp(240.0, 303.5);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (const Entry* const entry : caloric_entries) {
    test::WorstError qual;
    for (int count = 0; count < 30000; ++count) {
      const double temp = in_temp(engine);
      const double liq = calc_sat_liq_dens(temp);
      const double vap = calc_sat_vap_dens(temp);
      // Qualities from a tenth below liquid to a tenth above vapour.
      const double fraction = 1.2 * unit(engine) - 0.1;
      const double dens = 1.0 / (fraction / vap + (1.0 - fraction) / liq);
      const Result given = td(temp, dens);
      if (!(dens > 0.0) || given.ierr > 0) continue;
      const Result r = (*entry)(given[test::pres], given[entry->inputs[1]]);
      SCOPED_TRACE(testing::Message() << entry->name << ' ' << temp << " K, quality " << fraction);
      ASSERT_TRUE(r.ierr == 0 || r.ierr == -entry->base - 1);
      if (std::min(std::abs(fraction), std::abs(fraction - 1.0)) > 1e-4) {
        ASSERT_EQ(is_mixture(r), is_mixture(given));
      }
      qual.note(std::abs(r[test::qual] - given[test::qual]), temp, dens);
    }
    EXPECT_LT(qual.error, 4e-5) << qual.x << " K " << qual.y;
  }
}

// Hosts may trap invalid operations. Below 60 kPa the extrapolated saturation line ends.
TEST(Caloric, ThinVapourRaisesNoInvalidOperation) {
  for (double pres = 1.0; pres < 1000.0; pres *= 1.07) {
    double enth = 0.0;
    double entr = 0.0;
    std::int32_t ierr = 77;
    co2_tp(245.0, pres, ierr, {.enth = &enth, .entr = &entr});
    ASSERT_EQ(ierr, status::success) << pres;
    double temp = 0.0;
    std::feclearexcept(FE_ALL_EXCEPT);
    co2_ph(pres, enth, ierr, {.temp = &temp});
    co2_ps(pres, entr, ierr, {.temp = &temp});
    EXPECT_EQ(std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW), 0) << pres << " kPa";
  }
}

// Beyond the range an extrapolated polynomial may meet the inputs where no fluid is. What is
// returned without a warning has to be a state.
TEST(Caloric, InputsFarBeyondTheRangeGiveNoStatesOfNoFluid) {
  constexpr double pressures[] = {1.0, 60.0, 1290.0, 7000.0, 20000.0, 50000.0, 100000.0};
  constexpr int steps = 20000;
  for (const Entry* const entry : caloric_entries) {
    SCOPED_TRACE(entry->name);
    for (const double pres : pressures) {
      double coldest = 0.0;
      double hottest = 0.0;
      std::int32_t ierr = 0;
      OutputSet caloric;
      (entry->inputs[1] == test::enth ? caloric.enth : caloric.entr) = &coldest;
      co2_tp(240.0, pres, ierr, caloric);
      (entry->inputs[1] == test::enth ? caloric.enth : caloric.entr) = &hottest;
      co2_tp(1500.0, pres, ierr, caloric);
      for (int k = 1; k <= steps; ++k) {
        const double beyond = 3.0 * (hottest - coldest) * k / steps;
        for (const double x : {coldest - beyond, hottest + beyond}) {
          const Result r = (*entry)(pres, x);
          const double qual = r[test::qual];
          if (r.ierr != 0 || (qual > 0.0 && qual < 1.0)) continue;
          EXPECT_TRUE(r[test::cp] > 0.0 && r[test::ssnd] > 0.0 && r[test::dens] < 1300.0)
              << pres << " kPa, " << x << ": " << r[test::temp] << " K " << r[test::dens];
        }
      }
    }
  }
}

}  // namespace
}  // namespace co2_properties
