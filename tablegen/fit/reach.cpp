#include "tablegen/fit/reach.hpp"

#include <algorithm>
#include <cmath>

#include "co2_properties/limits.hpp"
#include "reference/elementary.hpp"
#include "reference/phase_equilibrium.hpp"
#include "reference/span_wagner.hpp"

namespace co2_properties::tablegen {
namespace {

constexpr Real shortest = 1e-9L;  // ranges shorter than this, kg/m3, are left out

/// Closer than this to the critical temperature the two saturated densities are not resolved.
constexpr Real critical_gap = 1e-6L;

}  // namespace

Reach::Reach(const Box& cell, const FitLimits& limits, const Real margin)
    : cell_{std::max(cell.x_lo, limits.temp_lo), std::min(cell.x_hi, limits.temp_hi),
            std::max(cell.y_lo, limits.dens_lo), std::min(cell.y_hi, limits.dens_hi)},
      margin_(margin),
      temp_lo_(cell_.x_lo),
      temp_hi_(cell_.x_hi) {
  // The reachable temperatures of a cell are one interval: saturation closes the lower end of a
  // cell, the highest pressure the upper end.
  constexpr int steps = 256;
  const auto at = [this](const int k) {
    const Real lo = cell_.x_lo;
    const Real hi = cell_.x_hi;
    return k == steps ? hi : lo + (hi - lo) * static_cast<Real>(k) / steps;
  };
  int first = 0;
  while (first <= steps && densities(at(first)).empty()) ++first;
  if (first > steps) {
    temp_hi_ = temp_lo_;
    return;
  }
  int last = steps;
  while (densities(at(last)).empty()) --last;
  const auto border = [this](Real outside, Real inside) {
    for (int k = 0; k < 60; ++k) {
      const Real middle = (outside + inside) / 2.0L;
      (densities(middle).empty() ? outside : inside) = middle;
    }
    return inside;
  };
  temp_lo_ = first == 0 ? at(0) : border(at(first - 1), at(first));
  temp_hi_ = last == steps ? at(steps) : border(at(last + 1), at(last));
}

Real Reach::highest(const Real temp) const {
  const Real hi = std::min(cell_.y_hi, reference::d_search_max);
  if (reference::properties(temp, hi).p <= pres_max) return hi;
  const Real top = reference::density<Real>(temp, pres_max);
  return std::min(hi, top * (1.0L + margin_ / 100.0L));
}

std::vector<DensityRange> Reach::densities(const Real temp) const {
  const Real d_crit = reference::d_crit;
  const Real lo = cell_.y_lo;
  const Real hi = highest(temp);
  std::vector<DensityRange> ranges;
  const auto add = [&ranges](const Real from, const Real to) {
    if (to - from > shortest) ranges.push_back({from, to});
  };
  if (temp < reference::t_crit - critical_gap) {
    const auto sat = reference::saturation<Real>(temp);
    add(lo, std::min(hi, sat.dens_vap + margin_ * (d_crit - sat.dens_vap)));
    add(std::max(lo, sat.dens_liq + margin_ * (d_crit - sat.dens_liq)), hi);
  } else {
    add(lo, hi);
  }
  return ranges;
}

void Reach::add_points(const std::vector<Real>& nodes, const Real temp_lo, const Real temp_hi,
                       std::vector<StatePoint>& points) const {
  for (const Real s : nodes) {
    const Real temp = temp_lo + (temp_hi - temp_lo) * s;
    for (const DensityRange& range : densities(temp)) {
      for (const Real t : nodes) points.push_back({temp, range.lo + (range.hi - range.lo) * t});
    }
  }
}

std::vector<StatePoint> Reach::points(const std::vector<Real>& nodes) const {
  std::vector<StatePoint> points;
  add_points(nodes, temp_lo_, temp_hi_, points);
  return points;
}

std::vector<StatePoint> Reach::points_off_critical(const std::vector<Real>& nodes,
                                                   const Real gap) const {
  std::vector<StatePoint> points;
  const Real below = std::min(temp_hi_, reference::t_crit - gap);
  const Real above = std::max(temp_lo_, reference::t_crit + gap);
  if (temp_lo_ < below) add_points(nodes, temp_lo_, below, points);
  if (above < temp_hi_) add_points(nodes, above, temp_hi_, points);
  return points;
}

std::vector<StatePoint> Reach::dome_points(const std::vector<Real>& nodes) const {
  std::vector<StatePoint> points;
  const Real temp_hi = std::min<Real>(cell_.x_hi, reference::t_crit - critical_gap);
  for (const Real s : nodes) {
    const Real temp = cell_.x_lo + (cell_.x_hi - cell_.x_lo) * s;
    if (temp > temp_hi) continue;
    const auto sat = reference::saturation<Real>(temp);
    for (const Real t : nodes) {
      const Real dens = cell_.y_lo + (cell_.y_hi - cell_.y_lo) * t;
      if (dens > sat.dens_vap && dens < sat.dens_liq) points.push_back({temp, dens});
    }
  }
  return points;
}

std::vector<Real> chebyshev_nodes(const int count) {
  const Real pi = elementary::acos(-1.0L);
  std::vector<Real> nodes;
  for (int k = 0; k < count; ++k) {
    const Real half =
        elementary::sin(pi / 2.0L * static_cast<Real>(k) / static_cast<Real>(count - 1));
    nodes.push_back(half * half);
  }
  return nodes;
}

std::vector<Real> check_nodes(const int count) {
  constexpr Real edge = 0.002L;
  std::vector<Real> nodes = {edge};
  for (int k = 0; k < count; ++k) {
    nodes.push_back((static_cast<Real>(k) + 0.5L) / static_cast<Real>(count));
  }
  nodes.push_back(1.0L - edge);
  return nodes;
}

}  // namespace co2_properties::tablegen
