// Both phases from one call, and mixtures by quality.

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <random>
#include <vector>

#include "tests/support/derivatives.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/portable_lanes.hpp"

namespace co2_properties {
namespace {

using test::bits;
using test::infinity;
using test::next_above;
using test::next_below;
using test::not_a_number;
using test::Outputs;
using test::Result;

struct SaturationEntry {
  const char* name;
  void (*single)(const double&, std::int32_t&, const SaturationSet&) noexcept;
  void (*in_c)(const double*, std::int32_t*, const co2_saturation_set*);
  bool (*batch)(StridedSpan<const double>, StridedSpan<std::int32_t>,
                const BatchSaturationSet&) noexcept;
  void (*batch_in_c)(const std::size_t*, const co2_inputs*, const co2_codes*,
                     const co2_batch_saturation_set*);
  BatchEntries::SaturationRun BatchEntries::*run;
  double lo, hi;
};
constexpr SaturationEntry sat_t = {"co2_sat_t",     co2_sat_t,         ::co2_sat_t,
                                   co2_sat_t_batch, ::co2_sat_t_batch, &BatchEntries::sat_t,
                                   240.0,           304.1282};
constexpr SaturationEntry sat_p = {
    "co2_sat_p",          co2_sat_p, ::co2_sat_p, co2_sat_p_batch, ::co2_sat_p_batch,
    &BatchEntries::sat_p, 1282.4835, 7377.3};

/// Everything that one call gives.
struct Saturation {
  std::int32_t ierr = Result::unset;
  Outputs liq, vap;
  double latent_heat = Outputs::canary;
  double dpdt_sat = Outputs::canary;
  double dpdd_u[2] = {Outputs::canary, Outputs::canary};

  Saturation(const SaturationEntry& entry, const double given) {
    const DerivativeSet derivatives[2] = {{.dpdd_u = &dpdd_u[0]}, {.dpdd_u = &dpdd_u[1]}};
    entry.single(
        given, ierr,
        {liq.subset(), vap.subset(), &latent_heat, &dpdt_sat, &derivatives[0], &derivatives[1]});
  }
  void visit(const auto& look_at) const {
    for (const Outputs* const phase : {&liq, &vap}) {
      for (const double value : phase->value) look_at(value);
    }
    for (const double value : {latent_heat, dpdt_sat, dpdd_u[0], dpdd_u[1]}) look_at(value);
  }
};

std::vector<double> draw(const SaturationEntry& entry, const int count) {
  std::mt19937_64 engine(3);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  std::vector<double> given = {entry.lo, entry.hi, next_below(entry.hi)};
  while (static_cast<int>(given.size()) < count) {
    const double u = unit(engine);
    const double share = given.size() % 3 == 0 ? std::pow(10.0, -9.0 * u) : u;
    given.push_back(entry.hi - share * (entry.hi - entry.lo));
  }
  return given;
}

TEST(SaturationEntries, PhasesAreStatesOfTheirOwn) {
  for (const SaturationEntry& entry : {sat_t, sat_p}) {
    for (const double given : draw(entry, 4000)) {
      const Saturation s(entry, given);
      SCOPED_TRACE(testing::Message() << entry.name << ' ' << std::hexfloat << given);
      ASSERT_EQ(s.ierr, 0);
      const double temp = s.vap[test::temp];
      EXPECT_EQ(s.liq[test::temp], temp);
      EXPECT_EQ(bits(s.vap[test::pres]), bits(calc_sat_pres(temp)));
      EXPECT_EQ(s.liq[test::pres], s.vap[test::pres]);
      EXPECT_EQ(bits(s.liq[test::qual]), 0U);
      EXPECT_EQ(s.vap[test::qual], 1.0);
      if (temp == t_crit) {  // the phases are one; co2_td has the supercritical element there
        EXPECT_EQ(bits(s.latent_heat), 0U);
        continue;
      }
      EXPECT_EQ(s.latent_heat, s.vap[test::enth] - s.liq[test::enth]);
      for (const Outputs* const phase : {&s.liq, &s.vap}) {
        const Result td = test::td(temp, (*phase)[test::dens]);
        ASSERT_EQ(td.ierr, 0);
        Outputs expected = td.out;
        for (const test::Output k : {test::pres, test::qual}) expected.value[k] = (*phase)[k];
        test::expect_same(*phase, expected);
        double dpdd_u = 0.0;
        std::int32_t ierr = 0;
        co2_td(temp, (*phase)[test::dens], ierr, {}, {.dpdd_u = &dpdd_u});
        EXPECT_EQ(bits(dpdd_u), bits(s.dpdd_u[phase == &s.vap ? 1 : 0]));
      }
      if (HasFailure()) return;
    }
  }
}

TEST(SaturationEntries, PressureIsMet) {
  const double highest = calc_sat_pres(next_below(304.1282));
  for (const double pres : draw(sat_p, 20000)) {
    const Saturation s(sat_p, pres);
    if (pres < highest) {
      ASSERT_NEAR(s.vap[test::pres], pres, (pres < 7377.0 ? 1e-13 : 1e-11) * pres);
      ASSERT_NEAR(s.vap[test::temp], calc_sat_temp(pres), 7e-5);
    } else {
      EXPECT_NEAR(s.vap[test::temp], 304.1282, 1e-13);
    }
  }
}

TEST(SaturationEntries, SlopeIsThatOfTheLine) {
  for (const double temp : draw(sat_t, 500)) {
    const double h = 1e-3;
    if (temp < 240.0 + h || temp > 304.1) continue;
    const double difference = (calc_sat_pres(temp + h) - calc_sat_pres(temp - h)) / (2.0 * h);
    EXPECT_NEAR(Saturation(sat_t, temp).dpdt_sat / difference, 1.0, 1e-4) << temp;
  }
  // At the critical point it is continuous.
  EXPECT_NEAR(Saturation(sat_t, 304.1282).dpdt_sat, Saturation(sat_t, 304.1281).dpdt_sat, 1.0);
}

// Where the phases are one, what has no finite value is zero.
TEST(SaturationEntries, CriticalMixturesAreFiniteAndRaiseNothing) {
  const double pres[] = {calc_sat_pres(304.1282), next_above(calc_sat_pres(304.1282)), 7377.3};
  for (const double qual : {0.0, 0.3, 1.0}) {
    for (int k = 0; k < 4; ++k) {
      test::Derivatives d;
      Outputs out;
      std::int32_t ierr = 0;
      std::feclearexcept(FE_ALL_EXCEPT);
      if (k < 3) co2_px(pres[k], qual, ierr, out.subset(), d.set());
      if (k == 3) co2_tx(304.1282, qual, ierr, out.subset(), d.set());
      EXPECT_EQ(std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW), 0);
      EXPECT_EQ(ierr, k < 3 ? status::px_two_phase : status::tx_two_phase);
      EXPECT_EQ(out[test::temp], 304.1282);
      for (const double value : d.value) EXPECT_TRUE(std::isfinite(value));
      for (const auto zero :
           {&DerivativeSet::fundam, &DerivativeSet::dqualdd_t, &DerivativeSet::dqualdt_d}) {
        EXPECT_EQ(bits(d[zero]), 0U);
      }
    }
  }
}

TEST(SaturationEntries, RefuseWhatIsOffTheLine) {
  struct Case {
    const SaturationEntry& entry;
    double given;
    std::int32_t code;
  };
  const Case cases[] = {{sat_t, next_below(240.0), 1201},     {sat_t, next_above(304.1282), 1202},
                        {sat_t, not_a_number, 1205},          {sat_t, infinity, 1202},
                        {sat_p, next_below(1282.4835), 1303}, {sat_p, next_above(7377.3), 1304},
                        {sat_p, not_a_number, 1305},          {sat_p, -infinity, 1303}};
  for (const Case& c : cases) {
    const Saturation s(c.entry, c.given);
    EXPECT_EQ(s.ierr, c.code) << c.entry.name << ' ' << c.given;
    s.visit([&](const double value) { EXPECT_EQ(bits(value), 0U); });
  }
}

TEST(SaturationEntries, AnyFormGivesTheBitsOfOneCall) {
  for (const SaturationEntry& entry : {sat_t, sat_p}) {
    std::vector<double> given = draw(entry, 1003);
    for (std::size_t i = 5; i < 40; i += 3) given[i] = i % 2 == 0 ? not_a_number : 1.0;
    const std::size_t count = given.size();
    struct Arrays {
      std::vector<std::int32_t> ierr;
      std::vector<double> liq, vap, latent_heat, dpdt_sat, dpdd_u;
      explicit Arrays(const std::size_t n)
          : ierr(n, Result::unset), liq(n), vap(2 * n), latent_heat(n), dpdt_sat(n), dpdd_u(n) {}
    };
    const auto expect_same = [&](const Arrays& a, const char* const form) {
      for (std::size_t i = 0; i < count; ++i) {
        const Saturation s(entry, given[i]);
        ASSERT_TRUE(a.ierr[i] == s.ierr && bits(a.liq[i]) == bits(s.liq[test::cp]) &&
                    bits(a.vap[2 * i]) == bits(s.vap[test::ssnd]) &&
                    bits(a.latent_heat[i]) == bits(s.latent_heat) &&
                    bits(a.dpdt_sat[i]) == bits(s.dpdt_sat) &&
                    bits(a.dpdd_u[i]) == bits(s.dpdd_u[1]))
            << entry.name << ", " << form << ", state " << i;
      }
    };
    const auto set_for = [&](Arrays& a, const BatchDerivativeSet& derivatives) {
      BatchSaturationSet out;
      out.liq.cp = a.liq;
      out.vap.ssnd = {a.vap.data(), count, 2};
      out.latent_heat = a.latent_heat;
      out.dpdt_sat = a.dpdt_sat;
      out.vap_derivatives = &derivatives;
      return out;
    };
    for (const Level& level : test::levels_here()) {
      Arrays a(count);
      const BatchDerivativeSet derivatives = {.dpdd_u = a.dpdd_u};
      const BatchSaturationSet out = set_for(a, derivatives);
      (level.entries->*entry.run)({given, a.ierr, out});
      expect_same(a, level.name);
    }
    Arrays a(count);
    const BatchDerivativeSet derivatives = {.dpdd_u = a.dpdd_u};
    ASSERT_TRUE(entry.batch(given, a.ierr, set_for(a, derivatives)));
    expect_same(a, "batch");
    a.ierr.pop_back();
    EXPECT_FALSE(entry.batch(given, a.ierr, set_for(a, derivatives)));

    Arrays c(count);
    co2_batch_derivative_set derivatives_in_c = {};
    derivatives_in_c.dpdd_u = {c.dpdd_u.data(), 1};
    co2_batch_saturation_set out = {};
    out.liq.cp = {c.liq.data(), 1};
    out.vap.ssnd = {c.vap.data(), 2};
    out.latent_heat = {c.latent_heat.data(), 1};
    out.dpdt_sat = {c.dpdt_sat.data(), 1};
    out.vap_derivatives = &derivatives_in_c;
    const co2_inputs first = {given.data(), 1};
    const co2_codes ierr = {c.ierr.data(), 1};
    entry.batch_in_c(&count, &first, &ierr, &out);
    expect_same(c, "batch for C");

    Arrays one(count);
    for (std::size_t i = 0; i < count; ++i) {
      co2_derivative_set d = {};
      d.dpdd_u = &one.dpdd_u[i];
      co2_saturation_set set = {};
      set.liq.cp = &one.liq[i];
      set.vap.ssnd = &one.vap[2 * i];
      set.latent_heat = &one.latent_heat[i];
      set.dpdt_sat = &one.dpdt_sat[i];
      set.vap_derivatives = &d;
      entry.in_c(&given[i], &one.ierr[i], &set);
    }
    expect_same(one, "C");
  }
}

TEST(SaturationEntries, MixturesHaveTheirQuality) {
  std::mt19937_64 engine(4);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (int k = 0; k < 20000; ++k) {
    const double temp = k % 2 == 0 ? 240.0 + 64.0 * unit(engine) : 304.1 + 0.0281 * unit(engine);
    const double qual = k % 5 == 0 ? std::round(unit(engine)) : unit(engine);
    const Result by_quality = test::tx(temp, qual);
    ASSERT_EQ(bits(by_quality[test::qual]), bits(qual));
    const Result by_pres = test::px(by_quality[test::pres], qual);
    EXPECT_NEAR(by_pres[test::temp], temp, 2e-12 * temp);
    if (qual == std::round(qual)) continue;  // where co2_td may see a single phase
    const Result by_dens = test::td(temp, by_quality[test::dens]);
    for (const test::Output o : {test::qual, test::inte, test::enth, test::entr}) {
      ASSERT_NEAR(by_dens[o], by_quality[o], 1e-11 * (1.0 + std::abs(by_quality[o])))
          << test::output_names[o] << " at " << temp << ", " << qual;
    }
  }
}

}  // namespace
}  // namespace co2_properties
