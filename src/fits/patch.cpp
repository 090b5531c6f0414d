#include "numbers/platform.hpp"

#include "fits/patch.hpp"

namespace co2_properties {

double evaluate_fit_at(const PatchFit& fit, const double temp, const double dens) noexcept {
  return evaluate_patch(fit.patches[fit.map->find(temp, dens)], temp, dens);
}

}  // namespace co2_properties
