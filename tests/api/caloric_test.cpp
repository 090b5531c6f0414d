// co2_ph and co2_ps: one procedure for two properties, so that most claims are made of both.

#include <gtest/gtest.h>

#include <bit>
#include <cfenv>
#include <cmath>
#include <random>

#include "api/caloric_properties.hpp"
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
  double operator[](const test::Output k) const { return out[k]; }
};

void ph_by_position(const double pres, const double enth, std::int32_t& ierr, const OutputSet& o) {
  co2_ph(pres, enth, ierr, o.temp, o.pres, o.dens, o.svol, o.qual, o.inte, o.enth, o.entr, o.cv,
         o.cp, o.ssnd, o.visc, o.cond, o.dpdd, o.dpdt, o.dhdd, o.dhdt, o.dsdd, o.dsdt);
}
void ps_by_position(const double pres, const double entr, std::int32_t& ierr, const OutputSet& o) {
  co2_ps(pres, entr, ierr, o.temp, o.pres, o.dens, o.svol, o.qual, o.inte, o.enth, o.entr, o.cv,
         o.cp, o.ssnd, o.visc, o.cond, o.dpdd, o.dpdt, o.dhdd, o.dhdt, o.dsdd, o.dsdt);
}

struct Entry {
  const char* name;
  test::Output caloric;  ///< the output that is an input
  std::int32_t base;     ///< of the codes
  void (*by_set)(const double&, const double&, std::int32_t&, const OutputSet&);
  void (*by_position)(double, double, std::int32_t&, const OutputSet&);
  double (*value)(const HelmholtzDerivatives&, double, double);

  [[nodiscard]] Result operator()(const double pres, const double x,
                                  const std::uint32_t mask = test::all_outputs) const {
    Result r;
    by_set(pres, x, r.ierr, r.out.subset(mask));
    return r;
  }
};
template <class Caloric>
double value(const HelmholtzDerivatives& d, const double temp, const double dens) {
  return Caloric::value(d, temp, dens);
}
constexpr Entry entries[] = {{"co2_ph", test::enth, 300, co2_ph, ph_by_position, value<Enthalpy>},
                             {"co2_ps", test::entr, 400, co2_ps, ps_by_position, value<Entropy>}};

constexpr std::uint32_t mask_of(const test::Output k) { return 1U << k; }

Result state(const double temp, const double dens) {
  Result r;
  co2_td(temp, dens, r.ierr, r.out.subset());
  return r;
}

bool is_mixture(const Result& r) { return bits(r[test::dpdd]) == 0U; }

// ---- Codes -------------------------------------------------------------------------------------

TEST(Caloric, ChecksItsInputsInOrder) {
  struct Case {
    double pres, enth, entr;
    std::int32_t code;  ///< less the base of the entry
    const char* why;
  };
  const Case cases[] = {
      {1.0, 600.0, 3.8, 0, "lowest pressure"},
      {100000.0, 600.0, 1.8, 0, "highest pressure"},
      {next_below(1.0), 600.0, 3.8, 3, "below the lowest pressure"},
      {next_above(100000.0), 600.0, 1.8, 4, "above the highest pressure"},
      {-infinity, 600.0, 1.8, 3, "infinite inputs"},
      {infinity, 600.0, 1.8, 4, "infinite inputs"},
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
  for (const Entry& entry : entries) {
    for (const Case& c : cases) {
      const double x = entry.caloric == test::enth ? c.enth : c.entr;
      SCOPED_TRACE(testing::Message()
                   << entry.name << ' ' << c.pres << " kPa, " << x << ": " << c.why);
      const Result r = entry(c.pres, x);
      EXPECT_EQ(r.ierr, c.code == 0 ? 0 : entry.base + c.code);
      for (std::size_t k = 0; k < test::output_count; ++k) {
        EXPECT_NE(r.out.value[k], Outputs::canary) << test::output_names[k] << " not written";
        if (r.ierr > 0) {
          EXPECT_EQ(bits(r.out.value[k]), 0U) << test::output_names[k];
        }
      }
    }
  }
}

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
  for (const Entry& entry : entries) {
    for (const Case& c : cases) {
      SCOPED_TRACE(testing::Message() << entry.name << ' ' << c.temp << " K " << c.why);
      const HelmholtzDerivatives d = element_derivatives(relocate(c.temp, c.dens), c.temp, c.dens);
      const Result r = entry(pressure(d, c.dens), entry.value(d, c.temp, c.dens));
      EXPECT_EQ(r.ierr, c.code == 0 ? 0 : entry.base + c.code);
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
      {target, 239.9, 1.0, 0.0, 301, "off, and too cold"},
      {target, 1500.1, 0.0, 1.0, 302, "off, and too hot"},
      {target, 239.9, 0.0, 0.0, 0, "the range of a good result is tested later"},
      {target, 304.0483, 0.49, 0.019, 0, "loose results are accepted in the band"},
      {target, 304.2081, -0.49, -0.019, 0, "at its other end"},
      {target, 304.1, 0.51, 0.0, -302, "pressure too loose"},
      {target, 304.1, 0.0, 0.021, -302, "enthalpy too loose"},
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
  for (const Entry& entry : entries) {
    for (const double pres : dome_pressures) {
      const auto [temp, liq, vap] = phases_at(pres);
      const double x_liq = entry.value(liq.d, temp, liq.dens);
      const double x_vap = entry.value(vap.d, temp, vap.dens);
      for (const double fraction : {1e-6, 0.3, 0.9}) {
        SCOPED_TRACE(testing::Message() << entry.name << ' ' << pres << " kPa, " << fraction);
        const double x = x_liq + fraction * (x_vap - x_liq);
        const Result r = entry(pres, x);
        const double qual = (x - x_liq) / (x_vap - x_liq);
        EXPECT_EQ(r.ierr, -entry.base - 1);
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
        if (entry.caloric == test::enth) {
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

TEST(Caloric, MixtureWarnsOfWhatItDoesNotHave) {
  struct Case {
    std::uint32_t mask;
    std::int32_t ph, ps;
    const char* why;
  };
  const Case cases[] = {
      {0, 0, 0, "nothing asked for"},
      {mask_of(test::temp) | mask_of(test::qual) | mask_of(test::entr), 0, 0, "what mixtures have"},
      {mask_of(test::dpdd) | mask_of(test::dsdt), 0, 0, "derivatives raise no warning"},
      {mask_of(test::visc), 0, -401, "viscosity alone: (p, h) has a mean"},
      {mask_of(test::cond), 0, -401, "conductivity alone: (p, h) has a mean"},
      {mask_of(test::cv), -301, -401, "cv"},
      {mask_of(test::cp) | mask_of(test::temp), -301, -401, "cp"},
      {mask_of(test::ssnd) | mask_of(test::visc), -301, -401, "speed of sound"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(entries[0](3000.0, 300.0, c.mask).ierr, c.ph) << c.why;
    EXPECT_EQ(entries[1](3000.0, 1.4, c.mask).ierr, c.ps) << c.why;
  }
  const Result cold = entries[0](500.0, 400.0, mask_of(test::temp));
  EXPECT_EQ(cold.ierr, 0) << "the temperature of a mixture is not tested";
  EXPECT_LT(cold[test::temp], 240.0);
}

TEST(Caloric, SaturatedStatesAreSinglePhase) {
  for (const Entry& entry : entries) {
    for (const double pres : dome_pressures) {
      const auto [temp, liq, vap] = phases_at(pres);
      const double x_liq = entry.value(liq.d, temp, liq.dens);
      const double x_vap = entry.value(vap.d, temp, vap.dens);
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
        SCOPED_TRACE(testing::Message() << entry.name << ' ' << pres << " kPa: " << c.why);
        const Result r = entry(pres, c.x);
        EXPECT_EQ(is_mixture(r), c.mixture);
        EXPECT_EQ(r.ierr, c.mixture ? -entry.base - 1 : 0);
        // The fits of saturation temperature and densities agree to 1e-5 up to here.
        if (pres <= 6500.0) {
          EXPECT_NEAR(r[test::dens], c.dens, 1e-4 * c.dens);
        }
      }
    }
  }
}

// ---- Outputs -----------------------------------------------------------------------------------

struct Given {
  double pres, enth, entr;
  const char* why;
};
constexpr Given given[] = {
    {900.0, 450.0, 2.0, "vapour"},     {20000.0, 180.0, 0.9, "liquid"},
    {7500.0, 330.0, 1.43, "critical"}, {20000.0, 900.0, 2.6, "supercritical"},
    {1.5, 1700.0, 5.2, "thin gas"},    {3000.0, 300.0, 1.4, "two phases"},
    {5000.0, 3000.0, 4.0, "an error"},
};

TEST(Caloric, OutputsAreThoseOfTheSolvedState) {
  for (const Entry& entry : entries) {
    for (const Given& g : given) {
      SCOPED_TRACE(testing::Message() << entry.name << ' ' << g.why);
      const double x = entry.caloric == test::enth ? g.enth : g.entr;
      const Result r = entry(g.pres, x);
      if (r.ierr != 0) continue;
      EXPECT_NEAR(r[test::pres], g.pres, 1e-11 * g.pres);
      EXPECT_NEAR(r[entry.caloric], x, caloric_target(g.pres, x).caloric_tolerance);
      const Result by_td = state(r[test::temp], r[test::dens]);
      ASSERT_EQ(by_td.ierr, 0);
      for (std::size_t k = 0; k < test::output_count; ++k) {
        EXPECT_EQ(bits(r.out.value[k]), bits(by_td.out.value[k])) << test::output_names[k];
      }
    }
  }
}

TEST(Caloric, QualityMarksGoByTheGivenPressure) {
  for (const Entry& entry : entries) {
    const bool by_enth = entry.caloric == test::enth;
    const auto qual = [&](const double pres, const double enth, const double entr) {
      return entry(pres, by_enth ? enth : entr)[test::qual];
    };
    EXPECT_EQ(qual(7000.0, 500.0, 2.0), 998.0);
    EXPECT_EQ(qual(next_below(7377.3), 400.0, 1.7), 998.0);
    EXPECT_EQ(qual(7377.3, 400.0, 1.7), 999.0);
    EXPECT_GT(qual(3000.0, 450.0, 1.9), 1.0) << "vapour";
    EXPECT_LT(qual(3000.0, 150.0, 0.8), 0.0) << "liquid";
  }
}

TEST(Caloric, AnySubsetAndAnyFormGivesTheBitsOfTheFullCall) {
  std::mt19937_64 engine(1);
  for (const Entry& entry : entries) {
    const bool by_enth = entry.caloric == test::enth;
    for (const Given& g : given) {
      const double x = by_enth ? g.enth : g.entr;
      const Result full = entry(g.pres, x);
      for (std::size_t i = 0; i < 60; ++i) {
        const std::uint32_t mask = i < test::output_count
                                       ? 1U << i
                                       : static_cast<std::uint32_t>(engine()) & test::all_outputs;
        SCOPED_TRACE(testing::Message()
                     << entry.name << ' ' << g.why << ", outputs " << std::hex << mask);
        const Result by_set = entry(g.pres, x, mask);
        Result by_position;
        entry.by_position(g.pres, x, by_position.ierr, by_position.out.subset(mask));
        if (full.ierr >= 0) {
          EXPECT_EQ(by_set.ierr, full.ierr);
        }
        EXPECT_EQ(by_position.ierr, by_set.ierr);
        for (std::size_t k = 0; k < test::output_count; ++k) {
          const double expected = (mask >> k & 1U) != 0 ? full.out.value[k] : Outputs::canary;
          EXPECT_EQ(bits(by_set.out.value[k]), bits(expected)) << test::output_names[k];
          EXPECT_EQ(bits(by_position.out.value[k]), bits(expected)) << test::output_names[k];
        }
      }
      double pres = g.pres;
      double in = x;
      std::int32_t ierr = 77;
      entry.by_set(pres, in, ierr, {.temp = &pres, .dens = &in});
      EXPECT_EQ(bits(pres), bits(full[test::temp])) << g.why << ": outputs over the inputs";
      EXPECT_EQ(bits(in), bits(full[test::dens])) << g.why << ": outputs over the inputs";
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
  test::WorstError firm, pres, enth, entr, at_edges;
  int count = 0;
  while (count < 60000) {
    const double temp =
        engine() % 2 == 0 ? 240.0 + 1260.0 * unit(engine) : 240.0 + 80.0 * unit(engine);
    const double dens =
        engine() % 2 == 0 ? 0.0036 * std::pow(350000.0, unit(engine)) : 1260.0 * unit(engine);
    const Result td = state(temp, dens);
    if (td.ierr != 0 || std::abs(temp - 304.1282) < 0.1) continue;
    // Close to saturation the fits of its pressure and temperature decide on the phase.
    if (temp < 304.1282 && std::abs(td[test::pres] / calc_sat_pres(temp) - 1.0) < 1e-5) continue;
    ++count;
    Result tp;
    co2_tp(temp, td[test::pres], tp.ierr, tp.out.subset());
    const Result ph = entries[0](tp[test::pres], tp[test::enth]);
    const Result ps = entries[1](ph[test::pres], ph[test::entr]);
    const Result end = state(ps[test::temp], ps[test::dens]);
    SCOPED_TRACE(testing::Message() << temp << " K " << dens << " kg/m3");
    ASSERT_TRUE(tp.ierr == 0 && ph.ierr == 0 && ps.ierr == 0 && end.ierr == 0);
    const double error =
        std::max(std::abs(ps[test::temp] / temp - 1.0), std::abs(ps[test::dens] / dens - 1.0));
    if (!off_the_edges(temp, dens)) {
      at_edges.note(error, temp, dens);
      continue;
    }
    const auto off = [&](const test::Output k) {
      return std::abs(end[k] - td[k]) / std::max(1.0, std::abs(td[k]));
    };
    pres.note(std::abs(end[test::pres] / td[test::pres] - 1.0), temp, dens);
    enth.note(off(test::enth), temp, dens);
    entr.note(off(test::entr), temp, dens);
    if (dens * td[test::dpdd] > 10.0) firm.note(error, temp, dens);
  }
  EXPECT_LT(pres.error, 6e-11) << pres.x << " K " << pres.y;
  EXPECT_LT(enth.error, 9e-11) << enth.x << " K " << enth.y;
  EXPECT_LT(entr.error, 4e-11) << entr.x << " K " << entr.y;
  EXPECT_LT(firm.error, 1.2e-10) << firm.x << " K " << firm.y;
  EXPECT_LT(at_edges.error, 3e-7) << at_edges.x << " K " << at_edges.y;
}

// Around the critical point: always a result, and as good as the slope of the isotherm allows.
TEST(Caloric, CriticalStatesAreSolved) {
  std::mt19937_64 engine(5);
  std::uniform_real_distribution<double> in_temp(303.5, 305.0);
  std::uniform_real_distribution<double> in_dens(380.0, 560.0);
  for (const Entry& entry : entries) {
    test::WorstError pres, caloric, firm;
    for (int count = 0; count < 100000; ++count) {
      const double temp = in_temp(engine);
      const double dens = in_dens(engine);
      const Result td = state(temp, dens);
      if (is_mixture(td)) continue;
      const Result r = entry(td[test::pres], td[entry.caloric]);
      SCOPED_TRACE(testing::Message() << entry.name << ' ' << temp << " K " << dens << " kg/m3");
      // Next to saturation it may be taken for a mixture that is all vapour or all liquid.
      if (is_mixture(r) && temp < 304.1282) {
        ASSERT_LT(std::min(std::abs(r[test::qual]), std::abs(r[test::qual] - 1.0)), 0.01);
        continue;
      }
      ASSERT_EQ(r.ierr, 0);
      pres.note(std::abs(r[test::pres] / td[test::pres] - 1.0), temp, dens);
      caloric.note(std::abs(r[entry.caloric] / td[entry.caloric] - 1.0), temp, dens);
      if (dens * td[test::dpdd] > 10.0 && off_the_edges(temp, dens)) {
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
  for (const Entry& entry : entries) {
    test::WorstError qual;
    for (int count = 0; count < 30000; ++count) {
      const double temp = in_temp(engine);
      const double liq = calc_sat_liq_dens(temp);
      const double vap = calc_sat_vap_dens(temp);
      // Qualities from a tenth below liquid to a tenth above vapour.
      const double fraction = 1.2 * unit(engine) - 0.1;
      const double dens = 1.0 / (fraction / vap + (1.0 - fraction) / liq);
      const Result td = state(temp, dens);
      if (!(dens > 0.0) || td.ierr > 0) continue;
      const Result r = entry(td[test::pres], td[entry.caloric]);
      SCOPED_TRACE(testing::Message() << entry.name << ' ' << temp << " K, quality " << fraction);
      ASSERT_TRUE(r.ierr == 0 || r.ierr == -entry.base - 1);
      if (std::min(std::abs(fraction), std::abs(fraction - 1.0)) > 1e-4) {
        ASSERT_EQ(is_mixture(r), is_mixture(td));
      }
      qual.note(std::abs(r[test::qual] - td[test::qual]), temp, dens);
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
  for (const Entry& entry : entries) {
    SCOPED_TRACE(entry.name);
    for (const double pres : pressures) {
      double coldest = 0.0;
      double hottest = 0.0;
      std::int32_t ierr = 0;
      OutputSet caloric;
      (entry.caloric == test::enth ? caloric.enth : caloric.entr) = &coldest;
      co2_tp(240.0, pres, ierr, caloric);
      (entry.caloric == test::enth ? caloric.enth : caloric.entr) = &hottest;
      co2_tp(1500.0, pres, ierr, caloric);
      for (int k = 1; k <= steps; ++k) {
        const double beyond = 3.0 * (hottest - coldest) * k / steps;
        for (const double x : {coldest - beyond, hottest + beyond}) {
          const Result r = entry(pres, x);
          const double qual = r[test::qual];
          if (r.ierr != 0 || (qual > 0.0 && qual < 1.0)) continue;
          EXPECT_TRUE(r[test::cp] > 0.0 && r[test::ssnd] > 0.0 && r[test::dens] < 1300.0)
              << pres << " kPa, " << x << ": " << r[test::temp] << " K " << r[test::dens];
        }
      }
    }
  }
}

TEST(Caloric, AnyBitPatternIsAnswered) {
  std::mt19937_64 engine(7);
  std::uniform_real_distribution<double> in_log_pres(-1.0, 12.0);
  std::uniform_real_distribution<double> unit(-0.2, 1.2);
  for (int sample = 0; sample < 200000; ++sample) {
    const Entry& entry = entries[sample % 2];
    const double span = entry.caloric == test::enth ? 2000.0 : 5.0;
    const double pres =
        engine() % 2 == 0 ? std::exp(in_log_pres(engine)) : std::bit_cast<double>(engine());
    const double x = engine() % 2 == 0 ? span * unit(engine) : std::bit_cast<double>(engine());
    const auto mask = static_cast<std::uint32_t>(engine()) & test::all_outputs;
    const Result r = entry(pres, x, mask);
    const std::int32_t code = std::abs(r.ierr) - entry.base;
    ASSERT_TRUE(r.ierr == 0 || (r.ierr > 0 && code >= 1 && code <= 5) ||
                (r.ierr < 0 && code >= 1 && code <= 2))
        << entry.name << ' ' << pres << ' ' << x << ": " << r.ierr;
    for (std::size_t k = 0; k < test::output_count; ++k) {
      const bool present = (mask >> k & 1U) != 0;
      ASSERT_EQ(r.out.value[k] != Outputs::canary, present)
          << test::output_names[k] << " at " << pres << ' ' << x;
      if (present && r.ierr > 0) {
        ASSERT_EQ(bits(r.out.value[k]), 0U);
      }
    }
  }
}

}  // namespace
}  // namespace co2_properties
