#include "eos/helmholtz.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

#include "eos/property_types.hpp"

namespace co2_properties {
namespace {

/// The sum that defines an element, term by term in long double.
long double sum_of_terms(const Element& cell, const long double temp, const long double dens) {
  const long double tau = temp - cell.temp0;
  const long double delta = dens - cell.dens0;
  long double a = 0.0L;
  for (int i = 0; i < temp_terms; ++i) {
    for (int j = 0; j < dens_terms; ++j) {
      const long double in_dens = j == 0 ? std::log(dens) : std::pow(delta, j - 1);
      a += cell.coef[i][j] * std::pow(tau, i) * in_dens;
    }
  }
  return a;
}

/// Central difference quotient with its h^2 term removed.
template <typename Function>
long double derivative(const Function& f, const long double x, const long double h) {
  const auto quotient = [&](const long double step) {
    return (f(x + step) - f(x - step)) / (2.0L * step);
  };
  return (4.0L * quotient(h / 2.0L) - quotient(h)) / 3.0L;
}

/// An element whose 36 terms all matter over its rectangle, so that none can be lost unnoticed.
Element random_element(std::mt19937_64& engine) {
  std::uniform_real_distribution<double> unit(0.5, 1.0);
  Element cell = {400.0 * unit(engine), 300.0 * unit(engine), 20.0, 4.0, {}};
  for (int i = 0; i < temp_terms; ++i) {
    for (int j = 0; j < dens_terms; ++j) {
      const double reach = std::pow(cell.temp_width, i) *
                           (j == 0 ? std::log(cell.dens0) : std::pow(cell.dens_width, j - 1));
      cell.coef[i][j] = (engine() % 2 == 0 ? 100.0 : -100.0) * unit(engine) / reach;
    }
  }
  return cell;
}

TEST(Helmholtz, DerivativesAreThoseOfTheDefiningSum) {
  std::mt19937_64 engine(1);
  for (int sample = 0; sample < 20; ++sample) {
    const Element cell = random_element(engine);
    std::uniform_real_distribution<double> inside(0.1, 0.9);
    const double temp = cell.temp0 + inside(engine) * cell.temp_width;
    const double dens = cell.dens0 + inside(engine) * cell.dens_width;
    SCOPED_TRACE(testing::Message() << "sample " << sample << ", " << temp << " K, " << dens);

    const long double h = 1e-3L;
    const auto a = [&](const long double t, const long double d) {
      return sum_of_terms(cell, t, d);
    };
    const auto a_t = [&](const long double t, const long double d) {
      return derivative([&](const long double x) { return a(x, d); }, t, h);
    };
    const auto a_d = [&](const long double t, const long double d) {
      return derivative([&](const long double x) { return a(t, x); }, d, h);
    };
    const HelmholtzDerivatives got = plain(evaluate(cell, temp, dens), dens);
    const auto expect_near = [](const double value, const long double expected, const double scale,
                                const char* name) {
      EXPECT_NEAR(value, static_cast<double>(expected), 1e-9 * scale) << name;
    };
    // Scales: 36 terms of up to 100, divided by the widths for each derivative.
    expect_near(got.a, a(temp, dens), 1e3, "a");
    expect_near(got.a_t, a_t(temp, dens), 1e3 / 4.0, "a_t");
    expect_near(got.a_d, a_d(temp, dens), 1e3 / 20.0, "a_d");
    expect_near(got.a_tt, derivative([&](const long double x) { return a_t(x, dens); }, temp, h),
                1e3 / 16.0, "a_tt");
    expect_near(got.a_dd, derivative([&](const long double x) { return a_d(temp, x); }, dens, h),
                1e3 / 400.0, "a_dd");
    expect_near(got.a_td, derivative([&](const long double x) { return a_d(x, dens); }, temp, h),
                1e3 / 80.0, "a_td");
  }
}

/// A function of temperature and density, and its slopes.
using Function = std::function<long double(long double temp, long double dens)>;
Function in_temp(const Function& f) {
  return [f](const long double temp, const long double dens) {
    return derivative([&](const long double x) { return f(x, dens); }, temp, 0.02L);
  };
}
Function in_dens(const Function& f) {
  return [f](const long double temp, const long double dens) {
    return derivative([&](const long double x) { return f(temp, x); }, dens, 0.02L);
  };
}

template <class Property>
void expect_expansion(const Element& cell, const double temp, const double dens,
                      const Function& f) {
  const Evaluation<double> at =
      expand_density(isotherm<Order::third>(cell, temp), dens, logarithm(dens));
  const PropertyExpansion<double> got = Property::expand(at, temp, dens);
  const auto expect_near = [&](const double value, const double unit, const Function& expected,
                               const char* const name) {
    const auto in_unit = static_cast<double>(unit * expected(temp, dens));
    EXPECT_NEAR(value, in_unit, 1e-7 * std::abs(in_unit)) << name;
  };
  expect_near(got.value, 1.0, f, "value");
  expect_near(got.t, 1.0, in_temp(f), "t");
  expect_near(got.u, dens, in_dens(f), "u");
  expect_near(got.tt, 1.0, in_temp(in_temp(f)), "tt");
  expect_near(got.tu, dens, in_temp(in_dens(f)), "tu");
  expect_near(got.uu, dens * dens, in_dens(in_dens(f)), "uu");
}

// Third derivatives and what steps of third order make of them.
TEST(PropertyTypes, ExpansionsAreThoseOfTheDefiningSum) {
  std::mt19937_64 engine(2);
  for (int sample = 0; sample < 20; ++sample) {
    const Element cell = random_element(engine);
    std::uniform_real_distribution<double> inside(0.1, 0.9);
    const double temp = cell.temp0 + inside(engine) * cell.temp_width;
    const double dens = cell.dens0 + inside(engine) * cell.dens_width;
    SCOPED_TRACE(testing::Message() << "sample " << sample << ", " << temp << " K, " << dens);
    const Function a = [&](const auto t, const auto d) { return sum_of_terms(cell, t, d); };
    const Function a_t = in_temp(a);
    const Function a_d = in_dens(a);
    expect_expansion<Pressure>(cell, temp, dens,
                               [&](const auto t, const auto d) { return d * d * a_d(t, d); });
    expect_expansion<InternalEnergy>(
        cell, temp, dens, [&](const auto t, const auto d) { return a(t, d) - t * a_t(t, d); });
    expect_expansion<Enthalpy>(cell, temp, dens, [&](const auto t, const auto d) {
      return a(t, d) - t * a_t(t, d) + d * a_d(t, d);
    });
    expect_expansion<Entropy>(cell, temp, dens,
                              [&](const auto t, const auto d) { return -a_t(t, d); });
  }
}

// Coefficients as large as those next to the critical point: nesting must keep the digits that are
// left after their terms have shrunk.
TEST(Helmholtz, LargeCoefficientsKeepTheirDigits) {
  Element cell = {460.0, 304.11, 7.6, 0.0182, {}};
  for (int i = 0; i < temp_terms; ++i) {
    for (int j = 0; j < dens_terms; ++j) cell.coef[i][j] = 100.0 / std::pow(0.0182, i) / (j + 1.0);
  }
  cell.coef[5][1] = 6.7e13;
  const double temp = 304.1282;
  const double dens = 467.0;
  const long double expected = sum_of_terms(cell, temp, dens);
  EXPECT_NEAR(evaluate(cell, temp, dens).a / static_cast<double>(expected), 1.0, 1e-14);
}

// At low density the factor of ln rho, the ideal gas, is nearly all of p/rho: one rounding of the
// sum is what may be lost.
TEST(Helmholtz, ThePressureOfThinGasIsRoundedOnce) {
  long double worst = 0.0L;
  for (const std::int32_t e : {1, 4, 8, 19, 223, 645}) {
    const Element& cell = element(e);
    for (int k = 0; k < 4096; ++k) {
      const Isotherm<double> at = isotherm(cell, cell.temp0 + cell.temp_width * (k % 16) / 16.0);
      const double dens = 0x1p-8 + 0x1p-20 * k;
      const long double delta = static_cast<long double>(dens) - at.dens0;
      const long double slope =
          one(at.a2) +
          delta * (2.0L * one(at.a3) + delta * (3.0L * one(at.a4) + delta * 4.0L * one(at.a5)));
      const long double expected = one(at.a0) + dens * slope;
      worst = std::max(worst, std::abs(evaluate(at, dens, logarithm(dens)).pv / expected - 1.0L));
    }
  }
  EXPECT_LT(worst, 0.51L * 0x1p-52L);
}

}  // namespace
}  // namespace co2_properties
