#include "numbers/platform.hpp"

#include "fits/cv.hpp"

#include "fits/patch.hpp"

namespace co2_properties {

void calculate_cv(const double& dens, const double& temp, double& cv) noexcept {
  cv = evaluate_fit_at(cv_fit, temp, dens);
}

}  // namespace co2_properties
