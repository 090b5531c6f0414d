// The entries on a small dual type: against differences of the entries and the set of derivatives.

#include "co2_properties/differentiable.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <iterator>
#include <string>

#include "tests/support/derivatives.hpp"
#include "tests/support/entries.hpp"

namespace co2_properties {
namespace {

/// A value with derivatives in two directions.
struct Dual {
  double value;
  double by[2];
};

}  // namespace

template <>
struct differentiable::NumberTraits<Dual> {
  static double value(const Dual& x) { return x.value; }
  static Dual chain(const double value, const double by_a, const Dual& a, const double by_b,
                    const Dual& b) {
    return {value, {by_a * a.by[0] + by_b * b.by[0], by_a * a.by[1] + by_b * b.by[1]}};
  }
};

namespace {

using differentiable::NumberSet;
using test::bits;
using test::Output;

using Run = void (*)(const Dual&, const Dual&, std::int32_t&, const NumberSet<Dual>&);
#define CO2_TEST_DUAL(pair)                                                          \
  [](const Dual& a, const Dual& b, std::int32_t& ierr, const NumberSet<Dual>& out) { \
    differentiable::co2_##pair(a, b, ierr, out);                                     \
  }
const struct {
  const test::Entry& entry;
  Run run;
} duals[] = {{test::td, CO2_TEST_DUAL(td)}, {test::tp, CO2_TEST_DUAL(tp)},
             {test::ph, CO2_TEST_DUAL(ph)}, {test::ps, CO2_TEST_DUAL(ps)},
             {test::tx, CO2_TEST_DUAL(tx)}, {test::px, CO2_TEST_DUAL(px)}};

constexpr Output outputs[] = {test::temp, test::pres, test::dens, test::svol,
                              test::qual, test::inte, test::enth, test::entr,
                              test::ssnd, test::visc, test::cond};
constexpr std::size_t count = std::size(outputs);

std::array<Dual, count> all_of(const Run run, const Dual& a, const Dual& b, std::int32_t& ierr) {
  std::array<Dual, count> r{};
  const NumberSet<Dual> all = {&r[0], &r[1], &r[2], &r[3], &r[4], &r[5],
                               &r[6], &r[7], &r[8], &r[9], &r[10]};
  run(a, b, ierr, all);
  // An output does not need the others.
  constexpr Dual* NumberSet<Dual>::*members[count] = {
      &NumberSet<Dual>::temp, &NumberSet<Dual>::pres, &NumberSet<Dual>::dens,
      &NumberSet<Dual>::svol, &NumberSet<Dual>::qual, &NumberSet<Dual>::inte,
      &NumberSet<Dual>::enth, &NumberSet<Dual>::entr, &NumberSet<Dual>::ssnd,
      &NumberSet<Dual>::visc, &NumberSet<Dual>::cond};
  for (const auto member : members) {
    Dual alone{};
    NumberSet<Dual> one;
    one.*member = &alone;
    std::int32_t same = 0;
    run(a, b, same, one);
    const Dual& x = *(all.*member);
    EXPECT_TRUE(bits(alone.value) == bits(x.value) && bits(alone.by[0]) == bits(x.by[0]) &&
                bits(alone.by[1]) == bits(x.by[1]))
        << test::output_names[outputs[&x - r.data()]] << " alone";
  }
  return r;
}

struct Place {
  double temp, dens;
  bool mixture;
  double tolerance;
  const char* why;
};
// The critical box has fits that the elements do not follow to the last digit.
const Place places[] = {
    {251.3, 20.7, false, 3e-5, "vapour"},  {261.7, 1011.0, false, 3e-5, "liquid"},
    {323.4, 301.0, false, 3e-5, "hot"},    {305.1, 451.0, false, 2e-2, "critical box"},
    {251.3, 101.0, true, 3e-4, "mixture"}, {303.1, 401.0, true, 2e-2, "mixture in the box"},
};

TEST(Differentiable, ValuesAreTheLibrarysAndDerivativesThoseOfTheSolution) {
  for (const auto& [values, run] : duals) {
    const auto& entry = values;  // lambdas capture it
    const bool by_qual = entry.inputs[1] == test::qual;
    for (const Place& at : places) {
      if (at.mixture ? entry.inputs[1] == test::pres : by_qual) continue;
      SCOPED_TRACE(std::string(entry.name) + ' ' + at.why);
      const test::Result state = test::td(at.temp, at.dens);
      const double in[2] = {state[entry.inputs[0]], state[entry.inputs[1]]};
      std::int32_t ierr = 0;
      // The directions are the two inputs, the second one doubled.
      const auto r = all_of(run, {in[0], {1.0, 0.0}}, {in[1], {0.0, 2.0}}, ierr);
      EXPECT_EQ(ierr, at.mixture ? -entry.base - 1 : 0);
      const test::Result here = entry(in[0], in[1]);
      for (std::size_t k = 0; k < count; ++k) {
        EXPECT_EQ(bits(r[k].value), bits(here[outputs[k]])) << test::output_names[outputs[k]];
      }
      for (std::size_t i = 0; i < 2; ++i) {
        const double step = 1e-5 * in[i];
        const auto moved = [&](const double by) {
          return i == 0 ? entry(in[0] + by, in[1]) : entry(in[0], in[1] + by);
        };
        const test::Result up = moved(step);
        const test::Result down = moved(-step);
        for (std::size_t k = 0; k < count; ++k) {
          const Output o = outputs[k];
          if (at.mixture && test::has(test::transport, o)) {
            EXPECT_EQ(r[k].by[i], 0.0);
            continue;
          }
          const double expected = (i == 0 ? 1.0 : 2.0) * (up[o] - down[o]) / (2.0 * step);
          const double scale = std::fabs(expected) + 1e-3 * std::fabs(here[o] / in[i]);
          EXPECT_NEAR(r[k].by[i], expected, at.tolerance * scale) << test::output_names[o] << i;
        }
      }
    }
  }
}

TEST(Differentiable, AgreesWithTheSetOfDerivatives) {
  const double pres = 9000.0;
  const double enth = 380.0;
  test::Derivatives d;
  std::int32_t ierr = 0;
  co2_ph(pres, enth, ierr, {}, d.set());
  Dual temp{}, dens{};
  differentiable::co2_ph(Dual{pres, {1.0, 0.0}}, Dual{enth, {0.0, 1.0}}, ierr,
                         {.temp = &temp, .dens = &dens});
  using D = DerivativeSet;
  struct {
    double value, expected;
  } const cases[] = {{temp.by[0], d[&D::dtdp_h]},
                     {temp.by[1], d[&D::dtdh_p]},
                     {dens.by[0], d[&D::dddp_h]},
                     {dens.by[1], d[&D::dddh_p]}};
  for (const auto& c : cases) EXPECT_NEAR(c.value, c.expected, 1e-12 * std::fabs(c.expected));
}

TEST(Differentiable, WhatHasNoDerivativesIsConstant) {
  std::int32_t ierr = 0;
  for (const Dual& x : all_of(duals[2].run, {-1.0, {1.0, 0.0}}, {300.0, {0.0, 1.0}}, ierr)) {
    EXPECT_EQ(x.value, 0.0);
    EXPECT_EQ(x.by[0], 0.0);
    EXPECT_EQ(x.by[1], 0.0);
  }
  EXPECT_EQ(ierr, status::ph_pres_below_min);
  // Where quality changes nothing.
  for (const Dual& x : all_of(duals[4].run, {304.1282, {1.0, 0.0}}, {0.3, {0.0, 1.0}}, ierr)) {
    EXPECT_EQ(x.by[0], 0.0);
    EXPECT_EQ(x.by[1], 0.0);
  }
  EXPECT_EQ(ierr, status::tx_two_phase);
}

}  // namespace
}  // namespace co2_properties
