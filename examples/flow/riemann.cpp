#include "flow/riemann.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <stdexcept>
#include <utility>

#include "brayton/search.hpp"

namespace flow {
namespace {

using brayton::find_zero;

constexpr int fine = 1000;  // intervals of a fan that is drawn or compared with
constexpr int coarse = 8;   // three Gauss points in each: velocities to 4e-6

// Relative to pressure: a shock this weak is an isentrope, and what it changes drowns in rounding.
constexpr double weak = 1e-7;
// Relative to the speed of sound: what rounding may fold a fan.
constexpr double fold_tolerance = 1e-6;

bool is_shock(const State& start, const double pres) { return pres > (1.0 + weak) * start.pres; }

/// State behind a shock: h - h0 = (p - p0) (v0 + v) / 2.
State shocked(Fluid& fluid, const State& start, const double pres) {
  const double rise = pres - start.pres;
  const auto excess = [&](const double enth) {
    const double dens = fluid.from_ph(pres, enth).dens;
    return enth - start.enth - 0.5 * rise * (1.0 / start.dens + 1.0 / dens);
  };
  return fluid.from_ph(pres,
                       find_zero(excess, start.enth, start.enth + rise / start.dens, 1e-6, 1e-6));
}

/// Square of the mass flux through a shock, kg2/(m4 s2).
double flux_squared(const State& start, const State& end) {
  return (end.pres - start.pres) / (1.0 / start.dens - 1.0 / end.dens);
}

/// Velocity behind the wave that runs to the left into `start` and leaves the pressure `pres`.
double velo_behind(Fluid& fluid, const Flowing& start, const double pres) {
  const State& s = start.state;
  if (is_shock(s, pres)) {
    return start.velo - (pres - s.pres) / std::sqrt(flux_squared(s, shocked(fluid, s, pres)));
  }
  return start.velo + Isentrope(fluid, s, pres, coarse).nodes().back().gain;
}

Flowing mirrored(const Flowing& f) { return {f.state, -f.velo}; }

std::vector<SelfSimilar::Point> fan(const Isentrope& isentrope, const double velo) {
  std::vector<SelfSimilar::Point> points;
  double fastest = -std::numeric_limits<double>::infinity();
  for (const auto& [state, gain] : isentrope.nodes()) {
    const double speed = velo + gain - state.ssnd;
    fastest = std::max(fastest, speed);
    if (speed < fastest - fold_tolerance * state.ssnd) {
      throw std::domain_error("the rarefaction folds: no solution in terms of simple waves");
    }
    points.push_back({speed, {state, velo + gain}});
  }
  return points;
}

std::vector<SelfSimilar::Point> left_wave(Fluid& fluid, const Flowing& start, const double pres) {
  const State& s = start.state;
  if (is_shock(s, pres)) {
    const State end = shocked(fluid, s, pres);
    const double flux = std::sqrt(flux_squared(s, end));
    const double speed = start.velo - flux / s.dens;
    return {{speed, start}, {speed, {end, start.velo - (pres - s.pres) / flux}}};
  }
  return fan(Isentrope(fluid, s, pres, fine), start.velo);
}

}  // namespace

Isentrope::Isentrope(Fluid& fluid, const State& start, const double pres_end, const int intervals)
    : entr_(fluid.entropy(start)), nodes_{{start, 0.0}} {
  const double ratio = std::log(pres_end / start.pres);
  for (int i = 1; i <= intervals; ++i) {
    const double pres = i == intervals ? pres_end : start.pres * std::exp(ratio * i / intervals);
    const State end = fluid.from_ps(pres, entr_);
    if (end.two_phase != nodes_.back().state.two_phase) {
      State before = nodes_.back().state;
      State after = end;
      for (int step = 0; step < 50; ++step) {
        const State middle = fluid.from_ps(std::midpoint(before.pres, after.pres), entr_);
        (middle.two_phase == after.two_phase ? after : before) = middle;
      }
      nodes_.push_back(next(fluid, nodes_.back(), before.pres));
      nodes_.push_back({after, nodes_.back().gain});
    }
    nodes_.push_back(next(fluid, nodes_.back(), pres));
  }
}

Isentrope::Node Isentrope::next(Fluid& fluid, const Node& from, const double pres) const {
  // Gauss-Legendre with three points.
  constexpr double weights[] = {5.0 / 18.0, 8.0 / 18.0, 5.0 / 18.0};
  const double offset = std::sqrt(0.15);
  const double places[] = {0.5 - offset, 0.5, 0.5 + offset};
  const double fall = from.state.pres - pres;
  double gain = from.gain;
  for (int k = 0; k < 3; ++k) {
    const State s = fluid.from_ps(from.state.pres - places[k] * fall, entr_);
    gain += weights[k] * fall / (s.dens * s.ssnd);
  }
  return {fluid.from_ps(pres, entr_), gain};
}

Isentrope::Node Isentrope::at(Fluid& fluid, const double pres) const {
  const bool falls = nodes_.back().state.pres < nodes_.front().state.pres;
  const auto after = std::find_if(nodes_.begin() + 1, nodes_.end() - 1, [&](const Node& node) {
    return falls ? node.state.pres < pres : node.state.pres > pres;
  });
  return next(fluid, *std::prev(after), pres);
}

Flowing SelfSimilar::at(const double speed) const {
  const auto after = std::find_if(points_.begin(), points_.end(),
                                  [&](const Point& point) { return point.speed > speed; });
  if (after == points_.begin()) return points_.front().flow;
  if (after == points_.end()) return points_.back().flow;
  const auto& [speed_a, a] = *std::prev(after);
  const auto& [speed_b, b] = *after;
  const double part = (speed - speed_a) / (speed_b - speed_a);
  Flowing f = part < 0.5 ? a : b;
  const auto between = [&](const double from, const double to) {
    return from + part * (to - from);
  };
  f.velo = between(a.velo, b.velo);
  for (double State::*const value : {&State::temp, &State::pres, &State::dens, &State::inte,
                                     &State::enth, &State::ssnd, &State::qual}) {
    f.state.*value = between(a.state.*value, b.state.*value);
  }
  return f;
}

SelfSimilar solve_riemann(Fluid& fluid, const Flowing& left, const Flowing& right) {
  const auto approach = [&](const double pres) {
    return velo_behind(fluid, left, pres) + velo_behind(fluid, mirrored(right), pres);
  };
  double low = std::min(left.state.pres, right.state.pres);
  double high = std::max(left.state.pres, right.state.pres);
  while (approach(low) < 0.0) low *= 0.8;
  while (approach(high) > 0.0) high *= 1.25;
  const double pres = find_zero(approach, low, high, 1e-9, 1e-3);

  std::vector<SelfSimilar::Point> points = left_wave(fluid, left, pres);
  std::vector<SelfSimilar::Point> others = left_wave(fluid, mirrored(right), pres);
  const double contact = points.back().flow.velo;
  points.push_back({contact, points.back().flow});
  points.push_back({contact, mirrored(others.back().flow)});
  std::for_each(others.rbegin(), others.rend(), [&](const SelfSimilar::Point& point) {
    points.push_back({-point.speed, mirrored(point.flow)});
  });
  return SelfSimilar(std::move(points));
}

Flowing outflow(Fluid& fluid, const Flowing& inside, const double pres_outside) {
  if (inside.velo >= inside.state.ssnd) return inside;
  const Isentrope isentrope(fluid, inside.state, pres_outside, coarse);
  const auto& nodes = isentrope.nodes();
  const auto speed = [&](const Isentrope::Node& node) {
    return inside.velo + node.gain - node.state.ssnd;
  };
  const auto choked = std::find_if(nodes.begin(), nodes.end(),
                                   [&](const Isentrope::Node& node) { return speed(node) >= 0.0; });
  Isentrope::Node end = nodes.back();
  if (choked != nodes.end()) {
    const Isentrope::Node& before = *std::prev(choked);
    end = before.state.two_phase != choked->state.two_phase
              ? before  // choked on the line of saturation
              : isentrope.at(
                    fluid,
                    find_zero([&](const double pres) { return speed(isentrope.at(fluid, pres)); },
                              before.state.pres, choked->state.pres, 1e-6, 1e-3));
  }
  return {end.state, inside.velo + end.gain};
}

SelfSimilar open_end(Fluid& fluid, const Flowing& inside, const double pres_outside) {
  const double pres = outflow(fluid, inside, pres_outside).state.pres;
  return SelfSimilar(fan(Isentrope(fluid, inside.state, pres, fine), inside.velo));
}

}  // namespace flow
