#include "fits/patch.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "fits/conductivity.hpp"
#include "fits/cp.hpp"
#include "fits/cv.hpp"
#include "fits/sound_speed.hpp"
#include "fits/viscosity.hpp"
#include "tests/support/bits.hpp"

namespace co2_properties {
namespace {

using test::infinity;
using test::next_below;
using test::not_a_number;

constexpr double low = 0.0035287465804510576;  // lowest density origin, kg/m3
constexpr double d_crit = 467.60000128173994;

using Calculate = void (*)(const double&, const double&, double&) noexcept;

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

TEST(Fits, DiluteViscosityRowsAreExact) {
  const Patch& patch = viscosity_fit.patches[find_cell(viscosity_fit.map, 550.0, 10.0)];
  const double rows[2][patch_terms] = {
      {24.01268943863118, 0.04147209444771358, -1.702658100569123e-5, 4.223242632006738e-9,
       1.345452665714838e-11, -2.684866195757633e-14},
      {0.004072284463985657, -1.566454639531716e-10, -1.112357022545278e-12, 2.170348687423423e-12,
       -1.965034386025739e-14, 4.75757839172416e-17}};
  for (int j = 0; j < 2; ++j) {
    for (int i = 0; i < patch_terms; ++i) {
      EXPECT_EQ(patch.coef[patch_terms - 1 - i][j], rows[j][i]) << i << ' ' << j;
    }
  }
}

TEST(Fits, StatesBelongToTheirPatch) {
  const struct {
    const PatchFit* fit;
    double temp, dens, temp0, dens0;
    const char* why;
  } cases[] = {
      {&viscosity_fit, 500.0, 10.0, 500.0, low, "an edge belongs to the band above"},
      {&viscosity_fit, next_below(500.0), 10.0, 400.0, low, "just below it does not"},
      {&viscosity_fit, 700.0, 200.0, 665.0, 200.0, "density edge"},
      {&viscosity_fit, 260.0, 500.0, 240.0, low, "one cell up to 780 below 280 K"},
      {&viscosity_fit, 1600.0, 100.0, 1000.0, low, "open above"},
      {&viscosity_fit, 230.0, 1200.0, 240.0, 1100.0, "open below"},
      {&conductivity_fit, 304.0, d_crit, 304.1197374834763, d_crit, "origin inside the cell"},
      {&conductivity_fit, 450.0, 300.0, 449.99, 200.0, "band of the kink"},
      {&conductivity_fit, 450.001, 300.0, 450.001, 200.0, "its upper edge"},
      {&conductivity_fit, 250.0, 1000.0, 240.0, 960.0, "density origin inside the cell"},
      {&conductivity_fit, 303.0, 400.0, 300.0, 350.0, "cell from 280 K with origin 300 K"},
      {&conductivity_fit, 303.0, 220.0, 300.0, 200.0, "its neighbour is split at 300 K"},
      {&conductivity_fit, 299.0, 220.0, 280.0, 200.0, "and below"},
      {&conductivity_fit, 304.139, 450.0, 304.1135109739875, 440.23769308424824, "staggered"},
      {&conductivity_fit, 304.139, 430.0, 304.13717171004475, 424.5, "top of its neighbour"},
      {&cp_fit, 304.16, 470.0, 304.16, 470.0, "both edges"},
      {&cp_fit, 303.0, next_below(569.0), 302.9, 555.0, "widest cell"},
      {&cp_fit, 305.2, d_crit, 305.0, d_crit, "critical density is an edge"},
      {&cp_fit, 305.2, next_below(d_crit), 305.0, 465.0, "below it"},
      {&cv_fit, 303.9, 470.0, 304.12, 470.0, "origin above the lower edge"},
      {&cv_fit, 304.135, d_crit, 304.135, 463.0, "the cell goes across the critical density"},
      {&sound_speed_fit, 304.1, 470.0, 304.126, 470.0, "origin above the lower edge"},
      {&sound_speed_fit, 304.122, 457.0, 304.126, 455.0, "the same below 304.129 K"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const Patch& patch = c.fit->patches[find_cell(c.fit->map, c.temp, c.dens)];
    EXPECT_EQ(patch.temp0, c.temp0);
    EXPECT_EQ(patch.dens0, c.dens0);
  }
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

}  // namespace
}  // namespace co2_properties
