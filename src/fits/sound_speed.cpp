#include "numbers/platform.hpp"

#include "fits/sound_speed.hpp"

#include "fits/patch.hpp"

namespace co2_properties {

void calculate_ssnd(const double& dens, const double& temp, double& ssnd) noexcept {
  ssnd = evaluate_fit_at(sound_speed_fit, temp, dens);
}

}  // namespace co2_properties
