#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "fits/conductivity.hpp"
#include "fits/cp.hpp"
#include "fits/cv.hpp"
#include "fits/near_critical.hpp"
#include "fits/patch.hpp"
#include "fits/sound_speed.hpp"
#include "fits/viscosity.hpp"
#include "reference/conductivity.hpp"
#include "reference/phase_equilibrium.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/csv.hpp"

namespace co2_properties {
namespace {

using test::infinity;
using test::not_a_number;

using Calculate = void (*)(const double&, const double&, double&) noexcept;

constexpr double low = 0.0035287465804510576;  // lowest density origin, kg/m3

double value(const Calculate calculate, const double temp, const double dens) {
  double result = -1.0;
  calculate(dens, temp, result);
  return result;
}

TEST(Patch, EvaluatesAllTermsAboutItsOrigin) {
  Patch patch{300.0, 500.0, {}};
  long double expected = 0.0L;
  for (int i = 0; i < patch_terms; ++i) {
    for (int j = 0; j < patch_terms; ++j) {
      patch.coef[patch_terms - 1 - i][j] = 1.0 + i + 0.1 * j;
      expected += patch.coef[patch_terms - 1 - i][j] * std::pow(-1.5L, i) * std::pow(0.75L, j);
    }
  }
  EXPECT_NEAR(evaluate_patch(patch, 298.5, 500.75), static_cast<double>(expected), 1e-13);
}

TEST(Fits, KnownConstantsAreExact) {
  const struct {
    Calculate calculate;
    double temp, dens, value;
  } cases[] = {
      {calculate_visc, 500.0, low, 24.01268943863118},
      {calculate_visc, 500.0, 200.0, 27.70638386570626},
      {calculate_visc, 500.0, 420.0, 38.45750744696331},
      {calculate_visc, 500.0, 580.0, 50.9804018321561},
      {calculate_visc, 1000.0, low, 41.25962222729996},
      {calculate_visc, 1000.0, 200.0, 44.95313821729356},
      {calculate_cond, 240.0, low, 0.01218725592764042},
      {calculate_cp, 304.16, 470.0, 6115.084922438182},
      {calculate_cv, 304.135, 475.0, 3.02369468254271},
      {calculate_ssnd, 304.129, 470.0, 97.9951958488782},
  };
  for (const auto& c : cases) EXPECT_EQ(value(c.calculate, c.temp, c.dens), c.value) << c.value;
}

TEST(Fits, AnyInputBitsGiveAResult) {
  const Calculate all[] = {calculate_visc, calculate_cond, calculate_cp, calculate_cv,
                           calculate_ssnd};
  constexpr double tiny = std::numeric_limits<double>::denorm_min();
  for (const Calculate calculate : all) {
    EXPECT_TRUE(std::isnan(value(calculate, not_a_number, 470.0)));
    EXPECT_TRUE(std::isnan(value(calculate, 305.0, not_a_number)));
    EXPECT_TRUE(std::isnan(value(calculate, not_a_number, not_a_number)));
    for (const double far : {infinity, -infinity, 1e300, -1e300}) {
      EXPECT_FALSE(std::isfinite(value(calculate, far, 470.0))) << far;
      EXPECT_FALSE(std::isfinite(value(calculate, 305.0, far))) << far;
    }
    // Offsets so small that the first terms alone remain.
    EXPECT_EQ(value(calculate, 305.0, tiny), value(calculate, 305.0, -0.0));
    EXPECT_TRUE(std::isfinite(value(calculate, tiny, tiny)));
  }
}

// ---- Around the critical point, against the reference at states that no fit used ---------------

constexpr double t_crit = reference::t_crit;
constexpr double d_crit = reference::d_crit;

struct State {
  double temp, dens;
};

double reference_cp(double t, double d) { return reference::properties(t, d).cp; }
double reference_cv(double t, double d) { return reference::properties(t, d).cv; }
double reference_w(double t, double d) { return reference::properties(t, d).w; }

/// Single-phase states of the near-critical box, half of them crowded around the critical point.
std::vector<State> box_states(const int count) {
  constexpr CriticalBox box = near_critical_box;
  std::mt19937_64 bits(19960625);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  const auto sign = [&] { return unit(bits) < 0.5 ? -1.0 : 1.0; };
  std::vector<State> states;
  while (static_cast<int>(states.size()) < count) {
    State s{box.temp_lo + (box.temp_hi - box.temp_lo) * unit(bits),
            box.dens_lo + (box.dens_hi - box.dens_lo) * unit(bits)};
    if (states.size() % 2 == 1) {
      s.temp = t_crit + sign() * std::pow(10.0, -3.0 + 3.7 * unit(bits));
      s.dens = d_crit + sign() * std::pow(10.0, -0.5 + 2.5 * unit(bits));
    }
    if (!box.contains(s.temp, s.dens)) continue;
    if (s.temp < t_crit) {
      const auto sat = reference::saturation(s.temp);
      if (!(s.dens < sat.dens_vap || s.dens > sat.dens_liq)) continue;
    }
    states.push_back(s);
  }
  return states;
}

// Bounds as measured over some 300000 random states and rounded up.
TEST(Fits, FollowTheReferenceAroundTheCriticalPoint) {
  struct Property {
    const char* name;
    Calculate calculate;
    double (*expected)(double, double);
    double dens_from;
    double bounds[3];  // relative: above 304.14 K, below 304.1 K, between these two
    test::WorstError worst[3]{};
  };
  Property properties[] = {
      {"cp", calculate_cp, reference_cp, near_critical_box_for_cp.dens_lo, {2.3e-4, 8e-4, 2e-2}},
      {"cv", calculate_cv, reference_cv, near_critical_box.dens_lo, {1e-4, 1.2e-4, 4.2e-3}},
      {"sound speed", calculate_ssnd, reference_w, near_critical_box.dens_lo, {5e-5, 4e-5, 2e-3}},
      {"conductivity",
       calculate_cond,
       reference::conductivity<double>,
       near_critical_box.dens_lo,
       {9e-3, 2.6e-4, 7e-2}},
  };
  for (const State& s : box_states(30000)) {
    const int zone = s.temp > 304.14 ? 0 : s.temp < 304.1 ? 1 : 2;
    for (Property& p : properties) {
      if (!(s.dens > p.dens_from)) continue;
      const double expected = p.expected(s.temp, s.dens);
      const double error = std::fabs(value(p.calculate, s.temp, s.dens) / expected - 1.0);
      p.worst[zone].note(error, s.temp, s.dens);
    }
  }
  for (const Property& p : properties) {
    for (int zone = 0; zone < 3; ++zone) {
      const auto& [error, temp, dens] = p.worst[zone];
      EXPECT_GT(error, 0.0) << p.name << ": no states in zone " << zone;
      EXPECT_LE(error, p.bounds[zone]) << p.name << " at " << temp << " K, " << dens << " kg/m3";
    }
  }
}

}  // namespace
}  // namespace co2_properties
