#pragma once
// Flows to be solved.

#include <functional>
#include <string>
#include <vector>

#include "flow/riemann.hpp"

namespace flow {

enum class End {
  through,  ///< nothing comes back: the flow goes on unchanged
  wall,
  open,  ///< to the pressure outside, with a flap that lets nothing back in
  ring   ///< both ends are one
};

struct Case {
  std::string name;
  double length = 1.0;  ///< m
  End left = End::through;
  End right = End::through;
  double pres_outside = 0.0;  ///< of an open end, Pa
  std::vector<double> times;  ///< for which profiles are wanted, s, rising
  std::function<Flowing(double x)> initial;
  /// Exact solution up to the time `exact_until`, s.
  std::function<Flowing(double x, double time)> exact;
  double exact_until = 0.0;
};

/// What can be chosen; pressures in Pa.
struct Choice {
  double temp_left, pres_left;
  double temp_right, pres_right;  ///< of an open end only the pressure
};

/// Dense supercritical fluid against gas.
inline constexpr Choice tube_default = {350.0, 20e6, 350.0, 5e6};
/// Shock tube of 10 m with the membrane in the middle.
[[nodiscard]] Case shock_tube(Fluid& fluid, const Choice& choice = tube_default);

/// Compressed liquid; opened to a pressure at which half of it evaporates.
inline constexpr Choice pipe_default = {300.0, 12e6, 0.0, 3e6};
/// Pipe of 10 m, closed on the left, whose right end is opened at once. Throws
/// std::invalid_argument unless the pressure outside is the lower one.
[[nodiscard]] Case depressurisation(Fluid& fluid, const Choice& choice = pipe_default);

/// Dense supercritical fluid and the lowest pressure.
inline constexpr Choice wave_default = {350.0, 20e6, 0.0, 18e6};
/// Isentropic wave that runs to the right around a ring of 10 m and steepens; smooth until long
/// after the time asked for. Pressure is a sine between both values; throws std::invalid_argument
/// unless the second is the lower one. The case refers to `fluid`.
[[nodiscard]] Case simple_wave(Fluid& fluid, const Choice& choice = wave_default);

}  // namespace flow
