#include "tablegen/fit/patch_property.hpp"

#include <algorithm>
#include <cmath>

#include "co2_properties/limits.hpp"
#include "fits/near_critical.hpp"
#include "reference/conductivity.hpp"
#include "reference/phase_equilibrium.hpp"
#include "reference/viscosity.hpp"

namespace co2_properties::tablegen {
namespace {

Real cp(const Real temp, const Real dens) { return reference::properties(temp, dens).cp; }
Real cv(const Real temp, const Real dens) { return reference::properties(temp, dens).cv; }
Real sound_speed(const Real temp, const Real dens) { return reference::properties(temp, dens).w; }

const std::string span_wagner = "Span & Wagner, J. Phys. Chem. Ref. Data 25 (1996) 1509.";

// Single-phase domain of the library. The lowest density is the one that callers accept.
constexpr FitLimits whole_domain = {temp_min, temp_max, 0.0035287465804510576, 2000.0};

// Boxes in which callers take the fit instead of the derivatives of the Helmholtz energy.
constexpr FitLimits limits_of(const CriticalBox& box) {
  return {box.temp_lo, box.temp_hi, box.dens_lo, box.dens_hi};
}
constexpr FitLimits cp_box = limits_of(near_critical_box_for_cp);
constexpr FitLimits cv_box = limits_of(near_critical_box);

/// Saturation temperature at a density of either side, from a table that is good to about 1 mK.
Real saturation_temp(const Real dens) {
  struct Line {
    std::vector<Real> dens, temp;
  };
  static const Line line = [] {
    constexpr int count = 400;
    constexpr Real lowest = temp_min;
    Line both{{reference::d_crit}, {reference::t_crit}};
    for (int k = 1; k <= count; ++k) {
      // Cubic spacing resolves the flat top.
      const Real s = static_cast<Real>(k) / count;
      const Real temp = reference::t_crit - (reference::t_crit - lowest) * s * s * s;
      if (reference::t_crit - temp < 1e-5L) continue;
      const auto sat = reference::saturation(temp);
      both.dens.insert(both.dens.begin(), sat.dens_vap);
      both.temp.insert(both.temp.begin(), temp);
      both.dens.push_back(sat.dens_liq);
      both.temp.push_back(temp);
    }
    return both;
  }();
  const auto above = std::upper_bound(line.dens.begin(), line.dens.end(), dens);
  if (above == line.dens.begin()) return line.temp.front();
  if (above == line.dens.end()) return line.temp.back();
  const auto k = static_cast<std::size_t>(above - line.dens.begin());
  const Real part = (dens - line.dens[k - 1]) / (line.dens[k] - line.dens[k - 1]);
  return line.temp[k - 1] + part * (line.temp[k] - line.temp[k - 1]);
}

}  // namespace

const std::vector<PatchProperty>& patch_properties() {
  static const std::vector<PatchProperty> properties = {
      {"viscosity", "Viscosity, uPa s", "Fenghour et al., J. Phys. Chem. Ref. Data 27 (1998) 31.",
       whole_domain, reference::viscosity<Real>, true, 0.0, 0.0},
      {"conductivity", "Thermal conductivity, W/(m K)",
       "Vesovic et al., J. Phys. Chem. Ref. Data 19 (1990) 763, simplified crossover.",
       whole_domain, reference::conductivity<Real>, false, 304.08, 304.18},
      {"cp", "Isobaric heat capacity near the critical point, kJ/(kg K)", span_wagner, cp_box, cp,
       false, cp_box.temp_lo, 304.14},
      {"cv", "Isochoric heat capacity near the critical point, kJ/(kg K)", span_wagner, cv_box, cv,
       false, cv_box.temp_lo, 304.14},
      {"sound_speed", "Speed of sound near the critical point, m/s", span_wagner, cv_box,
       sound_speed, false, cv_box.temp_lo, 304.14},
  };
  return properties;
}

Real critical_distance(const StatePoint& at) {
  constexpr Real curvature = 57.0L;  // K: t_crit - T = curvature |rho / d_crit - 1|^3 at saturation
  const Real off = std::fabs(at.dens / reference::d_crit - 1.0L);
  return std::fabs(at.temp - reference::t_crit) + curvature * off * off * off;
}

std::vector<StatePoint> regular_points(const PatchProperty& property, const Reach& reach,
                                       const std::vector<Real>& nodes, const Real gap) {
  const auto too_near = [gap](const StatePoint& at) { return critical_distance(at) < gap; };
  std::vector<StatePoint> points = reach.points(nodes);
  if (property.regular || std::none_of(points.begin(), points.end(), too_near)) return points;
  // The nodes crowd at the gap instead of at the critical temperature.
  return reach.points_off_critical(nodes, gap);
}

Real value_in_dome(const PatchProperty& property, const StatePoint& at) {
  if (property.regular) return property.value(at.temp, at.dens);
  constexpr Real off_line = 0.01L;
  const Real outside = saturation_temp(at.dens) + off_line;
  const Real stiffness = reference::properties(at.temp, at.dens).dpdd;
  const bool metastable = 2.0L * stiffness > reference::properties(outside, at.dens).dpdd;
  return property.value(metastable ? at.temp : outside, at.dens);
}

}  // namespace co2_properties::tablegen
