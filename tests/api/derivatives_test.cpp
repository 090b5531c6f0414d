// The set of derivatives against differences of the entries, and in all ways in which it is filled.

#include "tests/support/derivatives.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <string>
#include <vector>

#include "fits/near_critical.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/portable_lanes.hpp"

namespace co2_properties {
namespace {

using test::all_derivatives;
using test::bits;
using test::derivative_count;
using test::Derivatives;
using test::Entry;
using test::Output;
using test::Outputs;
using D = DerivativeSet;

struct Place {
  double temp, dens;
  const char* why;
};
// Away from the edges of cells, across which differences would go.
const Place singles[] = {
    {251.3, 20.7, "vapour"},          {261.7, 1011.0, "liquid"},
    {323.4, 301.0, "supercritical"},  {911.0, 151.0, "hot gas"},
    {306.8, 366.0, "box without cp"}, {305.1, 451.0, "critical box"},
    {303.9, 575.0, "liquid in it"},   {351.0, 0.053, "thin gas"},
};
const Place mixtures[] = {
    {251.3, 101.0, "cold"},
    {278.45, 401.0, "40 bar"},
    {303.1, 401.0, "both phases in the critical box"},
};

/// How an output changes with temperature and density.
struct Slopes {
  double value, temp, dens;
};

/// By central differences of `co2_td`.
std::array<Slopes, test::output_count> differences(const Place& at) {
  const double dt = 3e-6 * at.temp;
  const double dd = 3e-6 * at.dens;
  const auto state = [](const double t, const double d) { return test::td(t, d); };
  const auto here = state(at.temp, at.dens);
  const auto hot = state(at.temp + dt, at.dens);
  const auto cold = state(at.temp - dt, at.dens);
  const auto thick = state(at.temp, at.dens + dd);
  const auto thin = state(at.temp, at.dens - dd);
  std::array<Slopes, test::output_count> all;
  for (std::size_t k = 0; k < test::output_count; ++k) {
    const auto output = static_cast<Output>(k);
    all[k] = {here[output], (hot[output] - cold[output]) / (2.0 * dt),
              (thick[output] - thin[output]) / (2.0 * dd)};
  }
  return all;
}

/// (dx/dy) at constant z.
double along(const Slopes& x, const Slopes& y, const Slopes& z) {
  return (x.temp * z.dens - x.dens * z.temp) / (y.temp * z.dens - y.dens * z.temp);
}

TEST(Derivatives, AreThoseOfTheEntries) {
  const auto check = [](const Place& at, const bool mixture, const double tolerance) {
    SCOPED_TRACE(at.why);
    Derivatives d;
    std::int32_t ierr = 0;
    co2_td(at.temp, at.dens, ierr, {}, d.set());
    EXPECT_EQ(ierr, mixture ? status::td_two_phase : status::success);
    const auto s = differences(at);
    const Slopes& t = s[test::temp];
    const Slopes& r = s[test::dens];
    const Slopes& p = s[test::pres];
    const Slopes& u = s[test::inte];
    const Slopes& h = s[test::enth];
    const Slopes& e = s[test::entr];
    struct {
      double* D::*member;
      double expected;
    } cases[] = {
        {&D::dpdd_u, along(p, r, u)},
        {&D::dpdu_d, along(p, u, r)},
        {&D::dtdd_u, along(t, r, u)},
        {&D::dtdu_d, along(t, u, r)},
        {&D::dddp_h, along(r, p, h)},
        {&D::dddh_p, along(r, h, p)},
        {&D::dtdp_h, along(t, p, h)},
        {&D::dtdh_p, along(t, h, p)},
        {&D::dddp_s, along(r, p, e)},
        {&D::dtdp_s, along(t, p, e)},
        {&D::dhdd_p, along(h, r, p)},
        {&D::dhdp_d, along(h, p, r)},
        {&D::dsdd_p, along(e, r, p)},
        {&D::dsdp_d, along(e, p, r)},
        {&D::dpdd_t, p.dens},
        {&D::dpdt_d, p.temp},
        {&D::cv_eq, u.temp},
        {&D::ssnd_eq, std::sqrt(1000.0 * along(p, r, e))},
        {&D::compr_s, along(r, p, e) / at.dens},
    };
    for (const auto& c : cases) {
      // In a mixture dp/drho is zero, and of T(p) there is only the sign of rounding.
      const double least = mixture ? 1e-7 : 0.0;
      EXPECT_NEAR(d[c.member], c.expected, tolerance * std::fabs(c.expected) + least);
    }
    EXPECT_EQ(mixture, d[&D::dpdd_t] == 0.0 && d[&D::compr_t] == 0.0 && d[&D::expan_p] == 0.0);
  };
  for (const Place& at : singles) {
    // The box has fits that the elements do not follow to the last digit.
    check(at, false, near_critical_box.contains(at.temp, at.dens) ? 2e-3 : 2e-5);
  }
  for (const Place& at : mixtures) check(at, true, at.temp > 301.0 ? 2e-3 : 2e-5);
}

TEST(Derivatives, OfOtherPropertiesAreThoseOfTheEntries) {
  for (const Place& at : singles) {
    SCOPED_TRACE(at.why);
    Derivatives d;
    std::int32_t ierr = 0;
    co2_td(at.temp, at.dens, ierr, {}, d.set());
    const auto s = differences(at);
    struct {
      Output output;
      double* D::*by_dens;
      double* D::*by_temp;
      double tolerance;
    } const cases[] = {
        {test::ssnd, &D::dssnddd_t, &D::dssnddt_d, 1e-6},
        {test::visc, &D::dviscdd_t, &D::dviscdt_d, 1e-6},
        {test::cond, &D::dconddd_t, &D::dconddt_d, 1e-6},
        {test::qual, &D::dqualdd_t, &D::dqualdt_d, 2e-3},  // fits of both saturated densities
    };
    for (const auto& c : cases) {
      const Slopes& x = s[c.output];
      const double scale = c.tolerance * std::fabs(x.value);
      EXPECT_NEAR(d[c.by_dens], x.dens, c.tolerance * std::fabs(x.dens) + scale / at.dens);
      EXPECT_NEAR(d[c.by_temp], x.temp, c.tolerance * std::fabs(x.temp) + scale / at.temp);
    }
    const Slopes& w = s[test::ssnd];
    const double dtdd_s = -s[test::entr].dens / s[test::entr].temp;
    EXPECT_NEAR(d[&D::fundam], 1.0 + at.dens / w.value * (w.dens + w.temp * dtdd_s), 1e-2);
    EXPECT_NEAR(d[&D::compr_t] * at.dens * s[test::pres].dens, 1.0, 1e-2);
    EXPECT_NEAR(d[&D::expan_p] * at.dens * s[test::pres].dens / s[test::pres].temp, 1.0, 1e-2);
  }
  for (const Place& at : mixtures) {
    Derivatives d;
    std::int32_t ierr = 0;
    co2_td(at.temp, at.dens, ierr, {}, d.set());
    const Slopes x = differences(at)[test::qual];
    EXPECT_NEAR(d[&D::dqualdd_t], x.dens, 1e-6 * std::fabs(x.dens)) << at.why;
    EXPECT_NEAR(d[&D::dqualdt_d], x.temp, 2e-3 * std::fabs(x.temp)) << at.why;

    // The sound of equilibrium along the isentrope.
    const double dtdd_s = at.temp * d[&D::dpdt_d] / (at.dens * at.dens * d[&D::cv_eq]);
    const auto ssnd = [&](const double step) {
      double w = 0.0;
      co2_td(at.temp + step * at.dens * dtdd_s, at.dens * (1.0 + step), ierr, {}, {.ssnd_eq = &w});
      return w;
    };
    const double step = 1e-4;
    const double difference = (ssnd(step) - ssnd(-step)) / (2.0 * step * d[&D::ssnd_eq]);
    EXPECT_NEAR(d[&D::fundam], 1.0 + difference, 5e-3 * std::fabs(1.0 + difference)) << at.why;
  }
}

// At 4000 kPa and a quality of 0.075 57.0 m/s, where the mean of the phases by mass is 466 m/s.
TEST(Derivatives, SoundIsSlowInBubblyLiquid) {
  const double temp = calc_sat_temp(4000.0);
  const double v_liq = 1.0 / calc_sat_liq_dens(temp);
  const double v_vap = 1.0 / calc_sat_vap_dens(temp);
  double ssnd = 0.0;
  std::int32_t ierr = 0;
  co2_td(temp, 1.0 / (v_liq + 0.075 * (v_vap - v_liq)), ierr, {}, {.ssnd_eq = &ssnd});
  EXPECT_EQ(ierr, status::success);
  EXPECT_NEAR(ssnd, 57.0, 0.1);
}

/// Inputs of an entry that give a state.
struct Inputs {
  std::vector<double> first, second;
};
Inputs inputs_of(const Entry& entry) {
  Inputs in;
  const auto add = [&](const Place& at) {
    const test::Result state = test::td(at.temp, at.dens);
    in.first.push_back(state[entry.inputs[0]]);
    in.second.push_back(state[entry.inputs[1]]);
  };
  for (int round = 0; round < 10; ++round) {
    for (const Place& at : singles) add(at);
    if (round % 3 == 1) continue;  // a block of single phases alone
    for (const Place& at : mixtures) add(at);
    in.first.push_back(round % 2 == 0 ? -1.0 : test::infinity);
    in.second.push_back(500.0);
  }
  return in;
}

#define CO2_TEST_DERIVED(pair)                                                                 \
  [](const double& a, const double& b, std::int32_t& ierr, const OutputSet& out, const D& d) { \
    co2_##pair(a, b, ierr, out, d);                                                            \
  }
using Derived = void (*)(const double&, const double&, std::int32_t&, const OutputSet&, const D&);
constexpr Derived derived[] = {CO2_TEST_DERIVED(td), CO2_TEST_DERIVED(tp), CO2_TEST_DERIVED(ph),
                               CO2_TEST_DERIVED(ps), CO2_TEST_DERIVED(du), CO2_TEST_DERIVED(dh),
                               CO2_TEST_DERIVED(ds), CO2_TEST_DERIVED(dp), CO2_TEST_DERIVED(hs),
                               CO2_TEST_DERIVED(pu), CO2_TEST_DERIVED(ts), CO2_TEST_DERIVED(tx),
                               CO2_TEST_DERIVED(px)};
static_assert(std::size(derived) == std::size(test::entries));

// Whatever the entry, the road through it and the subset: the bits of `co2_td`; nothing else is
// written, an error leaves +0.0, and a result that mixtures have not raises the warning.
TEST(Derivatives, AreTheSameFromEveryEntry) {
  for (std::size_t n = 0; n < std::size(derived); ++n) {
    const Entry& entry = *test::entries[n];
    SCOPED_TRACE(entry.name);
    const Inputs in = inputs_of(entry);
    for (std::size_t i = 0; i < in.first.size(); ++i) {
      Outputs out;
      Derivatives all, again;
      std::int32_t ierr = 0;
      std::int32_t same = 0;
      derived[n](in.first[i], in.second[i], ierr, out.subset(), all.set());
      EXPECT_EQ(ierr, entry(in.first[i], in.second[i]).ierr);
      co2_td(out[test::temp], out[test::dens], same, {}, again.set());
      for (std::size_t k = 0; k < derivative_count; ++k) {
        const auto& [name, member] = all_derivatives[k];
        const std::uint64_t all_bits = bits(all.value[k]);
        if (ierr >= 0) {
          EXPECT_EQ(all_bits, ierr > 0 ? 0U : bits(again.value[k])) << name;
        } else {  // the qualities agree to rounding
          EXPECT_NEAR(all.value[k], again.value[k], 1e-9 * std::fabs(again.value[k])) << name;
        }
        double alone = Outputs::canary;
        D one;
        one.*member = &alone;
        derived[n](in.first[i], in.second[i], same, {}, one);
        EXPECT_EQ(bits(alone), all_bits) << name;
        if (ierr < 0) {
          const auto missing = {&D::compr_t,   &D::expan_p,   &D::dssnddd_t, &D::dssnddt_d,
                                &D::dviscdd_t, &D::dviscdt_d, &D::dconddd_t, &D::dconddt_d};
          const bool lacks = std::find(missing.begin(), missing.end(), member) != missing.end();
          EXPECT_EQ(same, lacks ? ierr : 0) << name;
          EXPECT_TRUE(!lacks || all_bits == 0) << name;
        }
      }
    }
  }
}

TEST(Derivatives, OfBatchesHaveTheBitsOfSingleStates) {
  for (std::size_t n = 0; n < std::size(derived); ++n) {
    const Entry& entry = *test::entries[n];
    const Inputs in = inputs_of(entry);
    const std::size_t count = in.first.size();
    for (const Level& level : test::levels_here()) {
      SCOPED_TRACE(std::string(entry.name) + ' ' + level.name);
      std::vector<double> pres(count, Outputs::canary);
      std::vector<std::int32_t> ierr(count);
      std::array<std::vector<double>, derivative_count> value;
      BatchDerivativeSet set;
      auto* const arrays = reinterpret_cast<StridedSpan<double>*>(&set);
      for (std::size_t k = 0; k < derivative_count; ++k) {
        value[k].assign(2 * count, Outputs::canary);
        arrays[k] = {value[k].data(), count, k % 5 == 4 ? 2 : 1};
      }
      const BatchOutputSet out = {.pres = pres};
      (level.entries->*entry.run)({in.first, in.second, ierr, out, &set});
      for (std::size_t i = 0; i < count; ++i) {
        Derivatives single;
        std::int32_t code = 0;
        derived[n](in.first[i], in.second[i], code, {}, single.set());
        EXPECT_EQ(ierr[i], code);
        for (std::size_t k = 0; k < derivative_count; ++k) {
          EXPECT_EQ(bits(arrays[k][i]), bits(single.value[k]))
              << all_derivatives[k].name << ' ' << i;
        }
      }
    }
  }
}

TEST(Derivatives, OfABatchNeedItsLength) {
  std::vector<double> in = {300.0, 310.0};
  std::vector<double> result = {1.0};
  std::vector<std::int32_t> ierr = {7, 7};
  EXPECT_FALSE(co2_td_batch(in, in, ierr, {}, {.dtdp_h = result}));
  EXPECT_EQ(ierr[0], 7);
  result.resize(2);
  EXPECT_TRUE(co2_td_batch(in, in, ierr, {}, {.dtdp_h = result}));
}

}  // namespace
}  // namespace co2_properties
