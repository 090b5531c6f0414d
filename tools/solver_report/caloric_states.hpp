#pragma once
// States of one and two phases for the entries that take a caloric property.

#include <array>
#include <cstddef>
#include <cstdint>

#include "solver_report/states.hpp"
#include "solvers/inverse_cell.hpp"

namespace co2_properties::solver_report {

/// A state that `co2_td` accepts.
struct FullState {
  double temp, dens;              ///< K, kg/m3
  double pres, inte, enth, entr;  ///< kPa, kJ/kg, kJ/kg, kJ/(kg K)
  double qual;
  double slope;  ///< rho dp/drho, kPa; 0 in two phases
  [[nodiscard]] bool is_mixture() const { return slope == 0.0; }
};

/// Evaluates `temp` and `dens`; false outside the limits.
[[nodiscard]] bool full_state(double temp, double dens, FullState& state);

struct CaloricStratum {
  const char* name;
  unsigned share;  ///< of 100
  bool near_critical;
};

enum CaloricStratumIndex : std::size_t {
  any_density,
  any_log_density,
  cold,
  two_phases,
  near_saturation,
  cell_edges,
  at_density_edges,
  at_temperature_edges,
  in_critical_box,
  at_critical_point,
  caloric_stratum_count
};

inline constexpr std::array<CaloricStratum, caloric_stratum_count> caloric_strata = {{
    {"T, rho uniform", 16, false},
    {"T, log rho uniform", 20, false},
    {"T < 320 K, log rho", 15, false},
    {"two phases", 15, false},
    {"close to saturation", 10, false},
    {"at edges of start cells", 10, false},
    {"at density edges", 2, false},
    {"at temperature edges", 1, false},
    {"303.5..305 K, 380..560", 10, true},
    {"at the critical point", 1, true},
}};

/// Stratum of a chunk of states: any hundred chunks fill the shares.
[[nodiscard]] CaloricStratumIndex stratum_of_chunk(std::uint64_t chunk);

class CaloricSource {
 public:
  explicit CaloricSource(const std::uint64_t seed) : source_(seed) {}

  /// A state of any stratum but `cell_edges`.
  [[nodiscard]] FullState by_density(CaloricStratumIndex stratum);

  struct Inputs {
    double pres, caloric;
  };
  /// Inputs on or next to an edge of one of two start-value fits, within the limits.
  /// \param caloric  the property of the fits
  [[nodiscard]] Inputs at_cell_edge(const Tiling& temp_tiling, const Tiling& dens_tiling,
                                    double FullState::*caloric);

 private:
  void draw(CaloricStratumIndex stratum, double& temp, double& dens);

  StateSource source_;
};

}  // namespace co2_properties::solver_report
