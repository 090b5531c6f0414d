#pragma once
// One piece of a fit in one variable.

#include "numbers/platform.hpp"

namespace co2_properties {

/// Polynomial of degree five in x - origin; coef[k] belongs to power k.
struct Quintic {
  double origin;
  double coef[6];
};

[[nodiscard]] inline double evaluate_quintic(const Quintic& piece, const double x) noexcept {
  const double d = x - piece.origin;
  const double* c = piece.coef;
  return ((((c[5] * d + c[4]) * d + c[3]) * d + c[2]) * d + c[1]) * d + c[0];
}

}  // namespace co2_properties
