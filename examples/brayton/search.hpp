#pragma once
// Bracketed search in one variable.

#include <cmath>
#include <numeric>

namespace brayton {

/// Zero of a function that changes sign between a and b: false position with the Illinois change,
/// and every fourth step a bisection, so that kinks cost steps but not the result. Ends when the
/// function is within `value_tolerance` of zero or the bracket is at most `width_tolerance` wide.
template <class Function>
[[nodiscard]] double find_zero(const Function& f, double a, double b, const double value_tolerance,
                               const double width_tolerance) {
  double fa = f(a);
  double fb = f(b);
  int moved = 0;  // +1 if the last step moved a, -1 if it moved b
  for (int step = 1; std::abs(b - a) > width_tolerance; ++step) {
    const double x = step % 4 == 0 ? std::midpoint(a, b) : (a * fb - b * fa) / (fb - fa);
    const double fx = f(x);
    if (std::abs(fx) <= value_tolerance) return x;
    if ((fx > 0.0) == (fa > 0.0)) {
      a = x;
      fa = fx;
      if (moved == 1) fb *= 0.5;
      moved = 1;
    } else {
      b = x;
      fb = fx;
      if (moved == -1) fa *= 0.5;
      moved = -1;
    }
  }
  return std::midpoint(a, b);
}

}  // namespace brayton
