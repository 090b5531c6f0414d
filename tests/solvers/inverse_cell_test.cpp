#include "solvers/inverse_cell.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace co2_properties {
namespace {

// Powers of two that cancel exactly in nested multiplication, while the powers of the offset that
// other orders form overflow.
TEST(InverseCell, EnthalpyCellsNestBothOffsets) {
  const InverseCell inner = {100.0, 50.0, {{5.0, 0.0, -0x1p600, 0x1p300}}, 0};
  EXPECT_EQ(evaluate_in_enthalpy(inner, 0x1p300, 50.0), 5.0);
  const InverseCell outer = {100.0, 50.0, {{7.0}, {0.0}, {-0x1p1000}, {0x1p600}}, 0};
  EXPECT_EQ(evaluate_in_enthalpy(outer, 100.0, 0x1p400), 7.0);
}

TEST(InverseCell, EveryCoefficientOfEnthalpyHasItsPowers) {
  for (std::int32_t k = 0; k < inverse_terms; ++k) {
    for (std::int32_t m = 0; m < inverse_terms; ++m) {
      InverseCell cell = {100.0, 50.0, {}, 0};
      cell.coef[k][m] = 3.0;
      EXPECT_EQ(evaluate_in_enthalpy(cell, 102.0, 60.0), 3.0 * std::pow(10, k) * std::pow(2, m))
          << "power " << k << " of the enthalpy offset, " << m << " of the pressure offset";
    }
  }
}

TEST(InverseCell, EveryCoefficientOfEntropyHasItsFunctions) {
  constexpr double log_pres = 0.75;  // not ln 102: the logarithm is an argument of its own
  const double in_pres[] = {1.0, 2.0, 4.0, log_pres};
  for (std::int32_t k = 0; k < inverse_terms; ++k) {
    for (std::int32_t m = 0; m < inverse_terms; ++m) {
      InverseCell cell = {100.0, 0.5, {}, 0};
      cell.coef[k][m] = 3.0;
      EXPECT_EQ(evaluate_in_entropy(cell, 102.0, log_pres, 10.5),
                3.0 * std::pow(10, k) * in_pres[m])
          << "power " << k << " of the entropy offset, function " << m << " of the pressure";
    }
  }
}

TEST(InverseCell, TheLogarithmIsAddedLast) {
  const InverseCell cell = {0.0, 0.0, {{-0x1p100, 0x1p50, 0.0, 0.5}}, 0};
  EXPECT_EQ(evaluate_in_entropy(cell, 0x1p50, 1.5, 0.0), 0.75);
  const InverseCell square = {0.0, 0.0, {{0.25, -0x1p700, 0x1p300, 0.0}}, 0};
  EXPECT_EQ(evaluate_in_entropy(square, 0x1p400, 1.0, 0.0), 0.25) << "no square of the offset";
}

}  // namespace
}  // namespace co2_properties
