#pragma once
// Random states for the iterative entries, with extra density where they have a hard time.

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>

namespace co2_properties::solver_report {

/// A way to draw states; `share` of 100 are drawn so.
struct Stratum {
  const char* name;
  unsigned share;
  bool by_pressure;  ///< draws (T, p) and not (T, rho)
};

enum StratumIndex : std::size_t {
  uniform_pressure,
  log_pressure,
  subcritical,
  saturation,
  density_edges,
  temperature_edges,
  curves,
  critical_box,
  critical_point,
  stratum_count
};

inline constexpr std::array<Stratum, stratum_count> strata = {{
    {"T, p uniform", 15, true},
    {"T, log p uniform", 23, true},
    {"T < 304.1282 K, log p", 11, true},
    {"close to saturation", 20, false},
    {"at density edges", 10, false},
    {"at temperature edges", 5, false},
    {"at (T, p) curves", 5, true},
    {"303.5..305 K, 380..560", 10, false},
    {"at the critical point", 1, false},
}};

/// A state that `co2_td` accepts as a single phase.
struct State {
  double temp;  ///< K
  double dens;  ///< kg/m3
  double pres;  ///< kPa
  double dpdd;  ///< kPa m3/kg
};

/// Evaluates `temp` and `dens`; false if they are two phases or outside the limits.
[[nodiscard]] bool single_phase(double temp, double dens, State& state);

/// Random numbers.
class Draws {
 public:
  explicit Draws(const std::uint64_t seed) : engine_(seed) {}

  [[nodiscard]] double uniform(double lo, double hi);
  [[nodiscard]] double log_uniform(double lo, double hi);
  /// Moves a value by up to four units in the last place or by a log-uniform distance up to 0.1.
  [[nodiscard]] double close_to(double value);
  [[nodiscard]] bool coin() { return below(2) != 0; }
  /// 0 .. count - 1.
  [[nodiscard]] std::uint64_t below(const std::uint64_t count) { return engine_() % count; }

 private:
  std::mt19937_64 engine_;
};

class StateSource : public Draws {
 public:
  using Draws::Draws;

  /// A single-phase state of one of the strata that draw densities.
  [[nodiscard]] State by_density(StratumIndex stratum);

  struct Inputs {
    double temp, pres;
  };
  /// Inputs within the limits, of one of the strata that draw pressures.
  [[nodiscard]] Inputs by_pressure(StratumIndex stratum);

 private:
  void draw(StratumIndex stratum, double& temp, double& dens);
};

}  // namespace co2_properties::solver_report
