#include "flow/cases.hpp"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <stdexcept>

#include "brayton/search.hpp"

namespace flow {
namespace {

constexpr double length = 10.0;  // m

}  // namespace

Case shock_tube(Fluid& fluid, const Choice& choice) {
  const Flowing left = {fluid.from_tp(choice.temp_left, choice.pres_left), 0.0};
  const Flowing right = {fluid.from_tp(choice.temp_right, choice.pres_right), 0.0};
  constexpr double middle = length / 2.0;
  const SelfSimilar solution = solve_riemann(fluid, left, right);
  const double fastest = std::max(-solution.points().front().speed, solution.points().back().speed);
  Case c;
  c.name = "tube";
  c.length = length;
  c.times = {0.8 * middle / fastest};
  c.exact_until = middle / fastest;
  c.initial = [=](const double x) { return x < middle ? left : right; };
  c.exact = [=](const double x, const double time) { return solution.at((x - middle) / time); };
  return c;
}

Case depressurisation(Fluid& fluid, const Choice& choice) {
  if (!(choice.pres_right < choice.pres_left)) {
    throw std::invalid_argument("the pressure outside has to be below that in the pipe");
  }
  const Flowing inside = {fluid.from_tp(choice.temp_left, choice.pres_left), 0.0};
  const SelfSimilar solution = open_end(fluid, inside, choice.pres_right);
  const double arrival = length / inside.state.ssnd;  // of the wave at the closed end
  Case c;
  c.name = "pipe";
  c.length = length;
  c.left = End::wall;
  c.right = End::open;
  c.pres_outside = choice.pres_right;
  c.times = {0.8 * arrival, 4.0 * arrival, 8.0 * arrival, 16.0 * arrival};
  c.exact_until = arrival;
  c.initial = [=](double) { return inside; };
  c.exact = [=](const double x, const double time) { return solution.at((x - length) / time); };
  return c;
}

Case simple_wave(Fluid& fluid, const Choice& choice) {
  if (!(choice.pres_right < choice.pres_left)) {
    throw std::invalid_argument("the lowest pressure of the wave has to be below the highest");
  }
  const State crest = fluid.from_tp(choice.temp_left, choice.pres_left);
  // Velocity and pressure rise together: u = -gain counts from the crest.
  const auto isentrope = std::make_shared<Isentrope>(fluid, crest, choice.pres_right, 64);
  const double mean = 0.5 * (choice.pres_left + choice.pres_right);
  const double half = 0.5 * (choice.pres_left - choice.pres_right);
  Case c;
  c.name = "wave";
  c.length = length;
  c.left = c.right = End::ring;
  c.initial = [=, &fluid](const double x) {
    const double pres = mean + half * std::sin(2.0 * std::numbers::pi * x / length);
    const Isentrope::Node node = isentrope->at(fluid, pres);
    return Flowing{node.state, -node.gain};
  };
  const auto speed = [](const Flowing& f) { return f.velo + f.state.ssnd; };
  const double fastest = crest.ssnd;
  const double slowest = isentrope->nodes().back().state.ssnd - isentrope->nodes().back().gain;
  c.times = {0.15 * length / (fastest - slowest)};  // breaks after 1/pi of length over difference
  c.exact_until = c.times.back();
  const auto initial = c.initial;
  c.exact = [=](const double x, const double time) {
    const auto excess = [&](const double start) {
      return start + speed(initial(start)) * time - x;
    };
    return initial(brayton::find_zero(excess, x - 1.01 * fastest * time, x - 0.99 * slowest * time,
                                      1e-11, 1e-11));
  };
  return c;
}

}  // namespace flow
