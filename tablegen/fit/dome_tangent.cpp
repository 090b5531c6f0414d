#include "tablegen/fit/dome_tangent.hpp"

#include <algorithm>

#include "reference/span_wagner.hpp"
#include "saturation/sat_density.hpp"

namespace co2_properties::tablegen {
namespace {

/// Colder elements end where the isotherm has not turned around yet.
constexpr double from_temp = 304.05;
/// The tangent is asked for where the slope at the edge falls below this part of its own.
constexpr Real flat = 0.4L;
constexpr Real least_slope = 2e-5L;  // kPa m3/kg; at the critical point the tangent is level

// Deviations that weigh as much as one scale of the errors in single phase: they keep the fit there
// as it is and leave the tangent to the freedom that is left.
constexpr Real pres_scale = 0.05L;  // of the change of pressure across the element
constexpr Real slope_scale = 0.1L;  // of the slope

constexpr int temps = 11;
constexpr int densities = 6;

struct Slope {
  Real pres, slope;
};

Slope isotherm(const Real temp, const Real dens) {
  const auto r = reference::helmholtz<Real>(temp, dens);
  return {dens * dens * r.a_d, dens * (2.0L * r.a_d + dens * r.a_dd)};
}

}  // namespace

std::vector<Target> dome_tangent(const ElementCell& cell, const Reach& reach) {
  std::vector<Target> targets;
  if (cell.temp_hi <= from_temp || reach.empty()) return targets;
  const Real end = cell.dens_lo;
  const Real width = static_cast<Real>(cell.dens_hi) - end;
  for (const Real node : chebyshev_nodes(temps)) {
    const Real temp = reach.temp_lo() + (reach.temp_hi() - reach.temp_lo()) * node;
    const Real sat = calc_sat_liq_dens(static_cast<double>(temp));
    if (temp >= reference::t_crit || sat <= end) continue;
    const Slope start = isotherm(temp, sat);
    const Real slope = std::max(start.slope, least_slope);
    if (isotherm(temp, end).slope > flat * slope) continue;
    for (int j = 1; j <= densities; ++j) {
      const StatePoint at = {temp, sat + (end - sat) * static_cast<Real>(j) / densities};
      const Real dens = at.dens;
      targets.push_back({at,
                         {0.0L, 0.0L, dens * dens, 0.0L, 0.0L, 0.0L},
                         start.pres + slope * (dens - sat),
                         1.0L / (pres_scale * slope * width)});
      targets.push_back({at,
                         {0.0L, 0.0L, 2.0L * dens, 0.0L, dens * dens, 0.0L},
                         slope,
                         1.0L / (slope_scale * slope)});
    }
  }
  return targets;
}

}  // namespace co2_properties::tablegen
