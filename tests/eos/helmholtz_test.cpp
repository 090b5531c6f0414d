#include "eos/helmholtz.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "tests/support/bits.hpp"

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
    const HelmholtzDerivatives got = evaluate(cell, temp, dens, std::log(dens));
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

TEST(Helmholtz, CornerValueIsTheConstantTerms) {
  std::mt19937_64 engine(2);
  const Element cell = random_element(engine);
  const double log_dens = std::log(cell.dens0);
  EXPECT_EQ(evaluate(cell, cell.temp0, cell.dens0, log_dens).a,
            cell.coef[0][0] * log_dens + cell.coef[0][1]);
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
  EXPECT_NEAR(evaluate(cell, temp, dens, std::log(dens)).a / static_cast<double>(expected), 1.0,
              1e-14);
}

TEST(Helmholtz, ElementIndicesStartAtOne) {
  const double temp = 302.5;
  const double dens = 411.0;
  for (const std::int32_t e : {1, 94, 223, 649}) {
    const HelmholtzDerivatives by_index = element_derivatives(e, temp, dens);
    const HelmholtzDerivatives by_record = evaluate(elements[e - 1], temp, dens, std::log(dens));
    EXPECT_EQ(test::bits(by_index.a), test::bits(by_record.a)) << e;
    EXPECT_EQ(test::bits(by_index.a_td), test::bits(by_record.a_td)) << e;
  }
}

}  // namespace
}  // namespace co2_properties
