#include "tablegen/fit/inverse_states.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <stdexcept>

#include "co2_properties/limits.hpp"
#include "reference/phase_equilibrium.hpp"
#include "reference/span_wagner.hpp"

namespace co2_properties::tablegen {
namespace {

constexpr Real temp_lo = temp_min;
constexpr Real temp_hi = temp_max;
constexpr Real pres_lo = pres_min;
constexpr Real pres_hi = pres_max;

Real caloric_of(const Caloric caloric, const reference::Properties<Real>& at) {
  return caloric == Caloric::enthalpy ? at.h : at.s;
}

InverseState state(const Caloric caloric, const Real pres, const Real temp, const Real dens) {
  return {pres, caloric_of(caloric, reference::properties<Real>(temp, dens)), {temp, dens}};
}

/// Newton's method on (temp, dens) for the pressure and the caloric property.
std::optional<StatePoint> converge(const Caloric caloric, const Real pres, const Real target,
                                   StatePoint at) {
  constexpr int max_steps = 15;
  constexpr Real too_far = 0.5L;
  Real last = 1.0L;
  for (int k = 0; k < max_steps; ++k) {
    const auto here = reference::properties<Real>(at.temp, at.dens);
    const Real rp = here.p - pres;
    const Real rc = caloric_of(caloric, here) - target;
    const Real c_t = caloric == Caloric::enthalpy ? here.dhdt : here.dsdt;
    const Real c_d = caloric == Caloric::enthalpy ? here.dhdd : here.dsdd;
    // Positive up to the limit of stability at constant entropy, where the speed of sound vanishes.
    const Real det = here.dpdd * c_t - here.dpdt * c_d;
    const Real dt = (here.dpdd * rc - c_d * rp) / det;
    const Real dd = (c_t * rp - here.dpdt * rc) / det;
    at.temp -= dt;
    at.dens -= dd;
    const Real size = std::fabs(dt / at.temp) + std::fabs(dd / at.dens);
    if (!(size < too_far) || !(at.dens > 0.0L)) return std::nullopt;
    // The last steps only shuffle rounding errors.
    if (size < 1e-12L && !(size < last / 4.0L)) return at;
    last = size;
  }
  return std::nullopt;
}

using Accepted = std::function<bool(const StatePoint&)>;

/// The states of an isobar at `calorics`, ascending, each reached from the one before, the first
/// from `start`, over states that are accepted. Stops before the first that cannot be reached.
std::vector<InverseState> walk(const Caloric caloric, const Real pres,
                               const std::vector<Real>& calorics, const InverseState& start,
                               const Accepted& accepted) {
  constexpr Real least_share = 1e-6L;
  std::vector<InverseState> found;
  InverseState from = start;
  for (const Real target : calorics) {
    // The way is divided until Newton's method can go it.
    for (Real share = 1.0L; share > least_share;) {
      const Real next = share < 1.0L ? from.caloric + share * (target - from.caloric) : target;
      const auto at = converge(caloric, pres, next, from.at);
      if (!at || !accepted(*at)) {
        share /= 2.0L;
        continue;
      }
      from = {pres, next, *at};
      if (next == target) {
        found.push_back(from);
        break;
      }
      share = std::min(1.0L, 2.0L * share);
    }
    if (found.empty() || found.back().caloric != target) break;
  }
  return found;
}

/// Stable states of one isobar along which the caloric property rises.
struct Branch {
  InverseState cold, hot;
};

/// One branch, or two with the dome in between.
std::vector<Branch> branches(const Caloric caloric, const Real pres) {
  const InverseState cold = state(caloric, pres, temp_lo, reference::density<Real>(temp_lo, pres));
  const InverseState hot = state(caloric, pres, temp_hi, reference::density<Real>(temp_hi, pres));
  const auto sat = reference::saturation_at_pressure<Real>(pres);
  if (!(sat.temp > temp_lo)) return {{cold, hot}};
  return {{cold, state(caloric, pres, sat.temp, sat.dens_liq)},
          {state(caloric, pres, sat.temp, sat.dens_vap), hot}};
}

/// The part of a branch that lies in the cell.
struct Part {
  Branch branch;
  Real lo, hi;
};

std::vector<Part> parts(const Caloric caloric, const Real pres, const Box& cell) {
  std::vector<Part> inside;
  for (const Branch& branch : branches(caloric, pres)) {
    const Real lo = std::max<Real>(branch.cold.caloric, cell.y_lo);
    const Real hi = std::min<Real>(branch.hot.caloric, cell.y_hi);
    if (lo < hi) inside.push_back({branch, lo, hi});
  }
  return inside;
}

std::vector<Real> spread(const Real lo, const Real hi, const std::vector<Real>& nodes) {
  std::vector<Real> values;
  values.reserve(nodes.size());
  for (const Real s : nodes) values.push_back(lo + (hi - lo) * s);
  return values;
}

struct PressureRange {
  Real lo, hi;
};

PressureRange pressures(const Box& cell) {
  return {std::max<Real>(cell.x_lo, pres_lo), std::min<Real>(cell.x_hi, pres_hi)};
}

/// The pressures at which a cell has stable states: one interval, narrower than the cell where the
/// limits of temperature or the dome cut it.
std::optional<PressureRange> reached_pressures(const Caloric caloric, const Box& cell) {
  constexpr int steps = 32;
  constexpr int bisections = 30;
  const PressureRange range = pressures(cell);
  const auto reached = [&](const Real pres) { return !parts(caloric, pres, cell).empty(); };
  const auto at = [&](const int k) {
    return k == steps ? range.hi : range.lo + (range.hi - range.lo) * static_cast<Real>(k) / steps;
  };
  int first = 0;
  while (first <= steps && !reached(at(first))) ++first;
  if (first > steps) return std::nullopt;
  int last = steps;
  while (!reached(at(last))) --last;
  const auto border = [&](Real outside, Real inside) {
    for (int k = 0; k < bisections; ++k) {
      const Real middle = (outside + inside) / 2.0L;
      (reached(middle) ? inside : outside) = middle;
    }
    return inside;
  };
  return PressureRange{first == 0 ? range.lo : border(at(first - 1), at(first)),
                       last == steps ? range.hi : border(at(last + 1), at(last))};
}

std::vector<InverseState> stable_states(const Caloric caloric, const Box& cell,
                                        const std::vector<Real>& nodes) {
  constexpr Real slack = 1e-9L;
  std::vector<InverseState> states;
  const auto range = reached_pressures(caloric, cell);
  if (!range) return states;
  for (const Real pres : spread(range->lo, range->hi, nodes)) {
    for (const auto& [branch, lo, hi] : parts(caloric, pres, cell)) {
      const auto accepted = [&branch = branch](const StatePoint& at) {
        return at.temp > branch.cold.at.temp - slack && at.temp < branch.hot.at.temp + slack &&
               at.dens < branch.cold.at.dens * (1.0L + slack) &&
               at.dens > branch.hot.at.dens * (1.0L - slack);
      };
      const auto row = walk(caloric, pres, spread(lo, hi, nodes), branch.cold, accepted);
      if (row.size() != nodes.size()) {
        throw std::runtime_error("no state on the isobar " + std::to_string(pres) + " kPa");
      }
      states.insert(states.end(), row.begin(), row.end());
    }
  }
  return states;
}

/// Empty if a node of the cell lies beyond the stability of the liquid.
std::vector<InverseState> superheated_liquid(const Caloric caloric, const Box& cell,
                                             const std::vector<Real>& nodes) {
  // Superheated liquid gives way before it has expanded to this density.
  constexpr Real least_dens = 1.6L * reference::d_crit;
  const auto sat = reference::saturation<Real>(temp_lo);
  const InverseState start = state(caloric, sat.pres, sat.temp, sat.dens_liq);
  const PressureRange range = pressures(cell);
  const Real lo = std::max<Real>(cell.y_lo, start.caloric);
  std::vector<InverseState> states;
  for (const Real pres : spread(range.lo, range.hi, nodes)) {
    const auto row = walk(caloric, pres, spread(lo, cell.y_hi, nodes), start,
                          [](const StatePoint& at) { return at.dens > least_dens; });
    if (row.size() != nodes.size()) return {};
    states.insert(states.end(), row.begin(), row.end());
  }
  return states;
}

/// Mixtures of saturated liquid and vapour; below the triple-point pressure those of the extended
/// saturation line.
std::vector<InverseState> two_phase_states(const Caloric caloric, const Box& cell,
                                           const std::vector<Real>& nodes) {
  const PressureRange range = pressures(cell);
  std::vector<InverseState> states;
  for (const Real pres : spread(range.lo, range.hi, nodes)) {
    const auto sat = reference::saturation_at_pressure<Real>(pres);
    const Real liq = state(caloric, pres, sat.temp, sat.dens_liq).caloric;
    const Real vap = state(caloric, pres, sat.temp, sat.dens_vap).caloric;
    for (const Real value : spread(cell.y_lo, cell.y_hi, nodes)) {
      const Real quality = std::clamp((value - liq) / (vap - liq), 0.0L, 1.0L);
      const Real volume = (1.0L - quality) / sat.dens_liq + quality / sat.dens_vap;
      states.push_back({pres, value, {sat.temp, 1.0L / volume}});
    }
  }
  return states;
}

/// Liquid below 240 K in a cell that is open towards it and has no liquid above; else empty.
std::vector<InverseState> cold_liquid(const Caloric caloric, const Box& cell,
                                      const std::vector<Real>& nodes) {
  std::vector<InverseState> states;
  const PressureRange range = pressures(cell);
  const bool open = cell.y_lo == -open_side;
  if (!open || range.hi > reference::saturation<Real>(temp_lo).pres) return states;
  for (const Real temp : spread(reference::t_triple, temp_lo, nodes)) {
    // Within this distance of saturation the liquid is stable down to vanishing pressure.
    const Real saturated = reference::saturation<Real>(temp).dens_liq;
    for (const Real pres : spread(range.lo, range.hi, nodes)) {
      const Real dens = reference::density_between<Real>(temp, pres, 0.95L * saturated,
                                                         1.05L * saturated, saturated);
      states.push_back(state(caloric, pres, temp, dens));
    }
  }
  return states;
}

}  // namespace

ServedStates served_states(const Caloric caloric, const Box& cell, const std::vector<Real>& nodes) {
  using Kind = ServedStates::Kind;
  const std::vector<InverseState> cold = cold_liquid(caloric, cell, nodes);
  if (auto states = stable_states(caloric, cell, nodes); !states.empty()) {
    return {Kind::stable, states, cold};
  }
  if (auto states = superheated_liquid(caloric, cell, nodes); !states.empty()) {
    return {Kind::superheated_liquid, states, cold};
  }
  return {Kind::two_phase, two_phase_states(caloric, cell, nodes), cold};
}

}  // namespace co2_properties::tablegen
