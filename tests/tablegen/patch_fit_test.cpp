#include "tablegen/fit/patch_fit.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "reference/span_wagner.hpp"
#include "tablegen/emit/patch_table.hpp"
#include "tablegen/tilings/text_reader.hpp"

namespace co2_properties::tablegen {
namespace {

LeastSquaresProblem line_problem() {
  // A constant through 0, 0, 1.
  return {{Matrix::Ones(3, 1), (Vector(3) << 0.0L, 0.0L, 1.0L).finished()}};
}

TEST(LeastSquares, MeanAndMinimaxOfAConstant) {
  const LeastSquaresProblem problem = line_problem();
  EXPECT_NEAR(static_cast<double>(solve_least_squares(problem)(0)), 1.0 / 3.0, 1e-18);
  // Reweighting alternates around one half and comes closer with each round.
  EXPECT_NEAR(static_cast<double>(solve_minimax(problem, 1)(0)), 1.0 / 3.0, 1e-18);
  EXPECT_NEAR(static_cast<double>(solve_minimax(problem, 20)(0)), 0.5, 0.01);
}

TEST(LeastSquares, SoftRowsPullAndFixedRowsHold) {
  LeastSquaresProblem problem = line_problem();
  problem.soft = {3.0L * Matrix::Ones(1, 1), Vector::Constant(1, 6.0L)};
  // (0 + 0 + 1 + 9 * 2) / (3 + 9)
  EXPECT_NEAR(static_cast<double>(solve_least_squares(problem)(0)), 19.0 / 12.0, 1e-18);

  // Plane z = x0 + x1 s through 4 points, with x0 + x1 held: only the slope is free.
  LeastSquaresProblem plane{{Matrix(4, 2), Vector(4)}};
  for (int k = 0; k < 4; ++k) {
    plane.main.a.row(k) << 1.0L, static_cast<Real>(k);
    plane.main.b(k) = static_cast<Real>(k * k);
  }
  plane.fixed = {Matrix::Ones(1, 2), Vector::Constant(1, 7.0L)};
  const Vector x = solve_least_squares(plane);
  EXPECT_NEAR(static_cast<double>(x.sum()), 7.0, 1e-17);
  // z - 7 = x1 (s - 1): x1 = sum (s^2 - 7)(s - 1) / sum (s - 1)^2 = (7 + 0 - 3 + 4) / 6
  EXPECT_NEAR(static_cast<double>(x(1)), 8.0 / 6.0, 1e-17);
}

/// A polynomial of the basis about an origin outside its rectangle.
Patch given_patch() {
  Patch patch{300.0, 520.0, {}};
  for (int k = 0; k < patch_terms; ++k) {
    for (int j = 0; j < patch_terms; ++j) {
      patch.coef[k][j] = std::ldexp(1.0 + 0.25 * k - 0.125 * j, 2 * k - 7 * j);
    }
  }
  patch.coef[patch_terms - 1][0] = 900.0;
  return patch;
}

CellSamples samples_of(const Patch& patch) {
  CellSamples samples;
  for (const Real s : chebyshev_nodes(9)) {
    for (const Real t : chebyshev_nodes(9)) {
      const StatePoint at{304.0L + 2.0L * s, 400.0L + 80.0L * t};
      Real value = 0.0L;
      for (int k = 0; k < patch_terms; ++k) {
        for (int j = 0; j < patch_terms; ++j) {
          value += patch.coef[k][j] * std::pow(at.temp - patch.temp0, patch_terms - 1 - k) *
                   std::pow(at.dens - patch.dens0, j);
        }
      }
      samples.reachable.push_back({at, value, std::fabs(value)});
    }
  }
  return samples;
}

TEST(PatchFit, RecoversAPolynomialOfItsOwnBasis) {
  const Patch patch = given_patch();
  const PatchCell cell{{304.0, 306.0, 400.0, 480.0}, patch.temp0, patch.dens0, {}};
  const CellSamples samples = samples_of(patch);
  const ScaledPatch fit = fit_patch(cell, samples, {.minimax = false, .pins_on = true});
  const Patch stored = stored_patch(cell, fit);
  for (const auto& [at, value, scale] : samples.reachable) {
    EXPECT_NEAR(static_cast<double>(fit(at) / value), 1.0, 1e-15);
    const double back =
        evaluate_patch(stored, static_cast<double>(at.temp), static_cast<double>(at.dens));
    EXPECT_NEAR(back / static_cast<double>(value), 1.0, 1e-12);
  }
}

TEST(PatchFit, PinsHoldAndTheRestAdapts) {
  const Patch patch = given_patch();
  PatchCell cell{{304.0, 306.0, 400.0, 480.0}, 304.0, 480.0, {}};
  const CellSamples samples = samples_of(patch);
  const Patch free = stored_patch(cell, fit_patch(cell, samples, {false, true}));
  // Pins a little off: two constants of the corner at the origin.
  const double a00 = free.coef[patch_terms - 1][0] * (1.0 + 1e-6);
  const double a12 = free.coef[patch_terms - 2][2] * (1.0 - 1e-6);
  cell.pins = {{0, 0, a00}, {1, 2, a12}};
  const ScaledPatch fit = fit_patch(cell, samples, {true, true});
  const Patch pinned = stored_patch(cell, fit);
  EXPECT_EQ(pinned.coef[patch_terms - 1][0], a00);
  EXPECT_EQ(pinned.coef[patch_terms - 2][2], a12);
  // The pins were held in the solution, not only written over it.
  EXPECT_NEAR(static_cast<double>(fit({304.0L, 480.0L})) / a00, 1.0, 1e-15);
  for (const auto& [at, value, scale] : samples.reachable) {
    EXPECT_NEAR(static_cast<double>(fit(at) / value), 1.0, 3e-6);
  }
}

TEST(Reach, KeepsToStableStatesWithinTheLimits) {
  const FitLimits limits = patch_properties()[0].limits;
  const auto reach = [&limits](const Box& box) { return Reach(box, limits, 0.0L); };
  // Saturated densities at 280 K: 883.583 and 121.743 kg/m3 (tests/data/sat.csv brackets them).
  const Reach both = reach({270.0, 290.0, 50.0, 1000.0});
  const std::vector<DensityRange> ranges = both.densities(280.0L);
  ASSERT_EQ(ranges.size(), 2U);
  EXPECT_EQ(ranges[0].lo, 50.0L);
  EXPECT_NEAR(static_cast<double>(ranges[0].hi), 121.743, 1e-3);
  EXPECT_NEAR(static_cast<double>(ranges[1].lo), 883.583, 1e-3);
  EXPECT_EQ(ranges[1].hi, 1000.0L);
  EXPECT_TRUE(reach({240.0, 250.0, 300.0, 600.0}).empty()) << "inside the dome";
  EXPECT_TRUE(reach({600.0, 700.0, 1200.0, 1300.0}).empty()) << "above 100000 kPa";
  const Reach top = reach({290.0, 304.13, 466.0, 469.0});
  EXPECT_NEAR(static_cast<double>(top.temp_lo()), reference::t_crit, 1e-4) << "a sliver";
}

TEST(PatchTable, GeneratesTheShippedViscosityAgain) {
  const Table table = patch_tables().front();
  std::ifstream file(TABLEGEN_SOURCE_DIR "/" + table.output);
  const std::string shipped{std::istreambuf_iterator<char>(file), {}};
  EXPECT_EQ(table.generate().source, shipped);
}

}  // namespace
}  // namespace co2_properties::tablegen
