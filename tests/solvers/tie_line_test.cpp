// Mixtures from two properties.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "solvers/solve_tie_line.hpp"

namespace co2_properties {
namespace {

/// Largest error of start values, and of those after one step of Newton's method, K.
struct Errors {
  double start, step;
};

template <class P, class Q>
Errors largest_errors(const double cold, const double hot) {
  std::mt19937_64 engine(1);
  std::uniform_real_distribution<double> even(0.0, 1.0);
  Errors worst{};
  for (int k = 0; k < 20000; ++k) {
    const double temp = cold + (hot - cold) * even(engine);
    const double qual = even(engine);
    const SaturatedPhase<double> liq = saturated_liquid(temp);
    const SaturatedPhase<double> vap = saturated_vapour(temp);
    const auto mix = [&](const auto property) {
      const auto of = [&](const SaturatedPhase<double>& s) {
        return decltype(property)::expand(Evaluation<double>{s.d, {}}, temp, s.dens).value;
      };
      return of(liq) + qual * (of(vap) - of(liq));
    };
    const double p = mix(P());
    const double q = mix(Q());
    const double start = tie_line_start<P, Q>(p, q);
    const auto m = miss_on_tie_line<P, Q, double>(start, saturated_liquid(start),
                                                  saturated_vapour(start), p, q);
    worst.start = std::max(worst.start, std::abs(start - temp));
    worst.step = std::max(worst.step, std::abs(start + m.missing / m.slope - temp));
  }
  return worst;
}

// Steps are as good as the slope, but where an edge of elements lies between start and state.
TEST(TieLine, StartsAndStepsLeadToTheTemperature) {
  for (const auto& errors :
       {largest_errors<SpecificVolume, InternalEnergy>,  //
        largest_errors<SpecificVolume, Enthalpy>, largest_errors<SpecificVolume, Entropy>,
        largest_errors<Entropy, Enthalpy>}) {
    for (const double hot : {303.9, 304.12}) {
      const Errors e = errors(240.0, hot);
      EXPECT_LT(e.start, 2e-4);
      EXPECT_LT(e.step, 2e-5);
    }
  }
}

}  // namespace
}  // namespace co2_properties
