// The five fits against the reference models, at states that no fit used.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "fits/conductivity.hpp"
#include "fits/cp.hpp"
#include "fits/cv.hpp"
#include "fits/sound_speed.hpp"
#include "fits/viscosity.hpp"
#include "tablegen/reference/conductivity.hpp"
#include "tablegen/reference/phase_equilibrium.hpp"
#include "tablegen/reference/viscosity.hpp"
#include "tests/support/csv.hpp"

namespace co2_properties {
namespace {

constexpr double t_crit = reference::t_crit;
constexpr double d_crit = reference::d_crit;

struct State {
  double temp, dens;
};

using Calculate = void (*)(const double&, const double&, double&) noexcept;

/// Errors relative to the reference, and where the largest one is.
struct Errors {
  std::vector<double> all;
  State worst{};

  void note(const State& at, const Calculate calculate, const double expected) {
    double result = 0.0;
    calculate(at.dens, at.temp, result);
    const double error = std::fabs(result / expected - 1.0);
    if (all.empty() || !(error <= largest)) {
      largest = std::isnan(error) ? 1e300 : error;
      worst = at;
    }
    all.push_back(error);
  }
  double quantile(const double part) {
    std::sort(all.begin(), all.end());
    return all.at(static_cast<std::size_t>(part * static_cast<double>(all.size() - 1)));
  }
  double largest = 0.0;
};

/// Bounds as measured over some 300000 random states and rounded up; those of the quantile with
/// room for the smaller number of states.
void expect_within(const char* what, Errors& errors, const double worst, const double most) {
  EXPECT_LE(errors.largest, worst)
      << what << " at " << errors.worst.temp << " K, " << errors.worst.dens << " kg/m3";
  EXPECT_LE(errors.quantile(0.999), most) << what << ", 99.9 % of the states";
}

double reference_cp(double t, double d) { return reference::properties(t, d).cp; }
double reference_cv(double t, double d) { return reference::properties(t, d).cv; }
double reference_w(double t, double d) { return reference::properties(t, d).w; }

/// Single-phase states of the whole domain: temperature in four strata, pressure log-uniform.
std::vector<State> domain_states(const int count) {
  std::mt19937_64 bits(20240611);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  const double edges[] = {240.0, t_crit, 340.0, 500.0, 1500.0};
  std::vector<State> states;
  for (int k = 0; k < count; ++k) {
    const double temp = edges[k % 4] + (edges[k % 4 + 1] - edges[k % 4]) * unit(bits);
    const double dens = reference::density(temp, std::pow(10.0, 5.0 * unit(bits)));
    if (dens >= 0.0035287466) states.push_back({temp, dens});
  }
  return states;
}

/// Single-phase states of the near-critical box, half of them crowded around the critical point.
std::vector<State> box_states(const int count) {
  std::mt19937_64 bits(19960625);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  const auto sign = [&] { return unit(bits) < 0.5 ? -1.0 : 1.0; };
  std::vector<State> states;
  while (static_cast<int>(states.size()) < count) {
    State s{302.9 + 7.1 * unit(bits), 350.0 + 230.0 * unit(bits)};
    if (states.size() % 2 == 1) {
      s.temp = t_crit + sign() * std::pow(10.0, -3.0 + 3.7 * unit(bits));
      s.dens = d_crit + sign() * std::pow(10.0, -0.5 + 2.5 * unit(bits));
    }
    if (!(s.temp > 302.9 && s.temp < 310.0 && s.dens > 350.0 && s.dens < 580.0)) continue;
    if (s.temp < t_crit) {
      const auto sat = reference::saturation(s.temp);
      if (!(s.dens < sat.dens_vap || s.dens > sat.dens_liq)) continue;
    }
    states.push_back(s);
  }
  return states;
}

TEST(FitAccuracy, TransportOverTheWholeDomain) {
  Errors visc;
  Errors cond;
  for (const State& s : domain_states(20000)) {
    visc.note(s, calculate_visc, reference::viscosity(s.temp, s.dens));
    if (std::fabs(s.temp - t_crit) < 0.05) continue;
    cond.note(s, calculate_cond, reference::conductivity(s.temp, s.dens));
  }
  expect_within("viscosity", visc, 3.1e-6, 3.1e-6);
  expect_within("conductivity", cond, 2.6e-4, 1.4e-4);
}

TEST(FitAccuracy, NearTheCriticalPoint) {
  struct Property {
    const char* name;
    Calculate calculate;
    double (*expected)(double, double);
    double dens_from;
    // worst and 99.9 % above 304.14 K, worst below 304.1 K, worst between
    double above, above_most, below, between;
    Errors errors[3]{};
  };
  Property properties[] = {
      {"cp", calculate_cp, reference_cp, 380.0, 2.3e-4, 1.1e-4, 8e-4, 2e-2},
      {"cv", calculate_cv, reference_cv, 350.0, 1e-4, 6e-5, 1.2e-4, 4.2e-3},
      {"sound speed", calculate_ssnd, reference_w, 350.0, 5e-5, 3e-5, 4e-5, 2e-3},
      {"conductivity", calculate_cond, reference::conductivity<double>, 350.0, 9e-3, 7e-3, 2.6e-4,
       7e-2},
  };
  for (const State& s : box_states(30000)) {
    const int zone = s.temp > 304.14 ? 0 : s.temp < 304.1 ? 1 : 2;
    for (Property& p : properties) {
      if (s.dens > p.dens_from) p.errors[zone].note(s, p.calculate, p.expected(s.temp, s.dens));
    }
  }
  for (Property& p : properties) {
    ASSERT_GT(p.errors[1].all.size(), 100U);
    expect_within(p.name, p.errors[0], p.above, p.above_most);
    expect_within(p.name, p.errors[1], p.below, p.below);
    expect_within(p.name, p.errors[2], p.between, p.between);
  }
}

/// Values that share no code with this repository; see tests/data/README.md.
TEST(FitAccuracy, IndependentValues) {
  const std::string data = TEST_DATA_DIR;
  const auto transport = test::read_csv(data + "/transport.csv");
  Errors visc;
  Errors cond;
  for (std::size_t k = 0; k < transport.at("T_K").size(); ++k) {
    const State s{transport.at("T_K")[k], transport.at("rho_kgm3")[k]};
    visc.note(s, calculate_visc, transport.at("visc_uPas")[k]);
    cond.note(s, calculate_cond, transport.at("cond_WmK")[k]);
  }
  expect_within("viscosity", visc, 3.1e-6, 3.1e-6);
  expect_within("conductivity", cond, 2.6e-4, 2.6e-4);

  const auto critical = test::read_csv(data + "/td_critical.csv");
  Errors cp;
  Errors cv;
  Errors ssnd;
  for (std::size_t k = 0; k < critical.at("T").size(); ++k) {
    const State s{critical.at("T")[k], critical.at("rho")[k]};
    if (!(s.temp > 304.14 && s.temp < 310.0 && s.dens > 350.0 && s.dens < 580.0)) continue;
    if (s.dens > 380.0) cp.note(s, calculate_cp, critical.at("cp")[k]);
    cv.note(s, calculate_cv, critical.at("cv")[k]);
    ssnd.note(s, calculate_ssnd, critical.at("w")[k]);
  }
  expect_within("cp", cp, 2.3e-4, 2.3e-4);
  expect_within("cv", cv, 1e-4, 1e-4);
  expect_within("sound speed", ssnd, 5e-5, 5e-5);
}

}  // namespace
}  // namespace co2_properties
