#include "numbers/platform.hpp"

#include "fits/patch.hpp"

namespace co2_properties {

double evaluate_fit_at(const PatchFit& fit, const double temp, const double dens) noexcept {
  return evaluate_patch(fit.patches[fit.map->find(temp, dens)], temp, dens);
}

FitGradient fit_gradient(const PatchFit& fit, const double temp, const double dens) noexcept {
  const Patch& patch = fit.patches[fit.map->find(temp, dens)];
  const double x = dens - patch.dens0;
  FitGradient sum = {0.0, 0.0, 0.0};
  for (std::int32_t at = patch_terms - 2; at >= 0; at -= 2) {
    const auto c = expand_two<PowersBy::descending_rows>(&patch.coef[0][0], at, temp - patch.temp0);
    for (const int k : {1, 0}) {
      sum.dens = sum.dens * x + sum.value;
      sum.value = sum.value * x + c.value[k];
      sum.temp = sum.temp * x + c.first[k];
    }
  }
  return sum;
}

}  // namespace co2_properties
