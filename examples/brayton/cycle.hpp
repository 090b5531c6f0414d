#pragma once
// Recompression Brayton cycle: of the flow that leaves the low-temperature recuperator a part is
// cooled and compressed in the main compressor, the rest is compressed as it is and joins the other
// part between the recuperators. G. Angelino, J. Eng. Power 90 (1968) 287; V. Dostal, M. J.
// Driscoll, P. Hejzlar, report MIT-ANP-TR-100 (2004). No pressure losses, no loss of heat.

#include <array>
#include <cstddef>
#include <optional>
#include <stdexcept>

#include "brayton/fluid.hpp"
#include "brayton/recuperator.hpp"

namespace brayton {

struct Design {
  double inlet_temp = 305.0;              ///< main compressor inlet, K
  double low_pres = 7700.0;               ///< kPa
  double high_pres = 20000.0;             ///< kPa
  double turbine_temp = 823.15;           ///< turbine inlet, K
  double compressor_efficiency = 0.89;    ///< isentropic, main compressor
  double recompressor_efficiency = 0.89;  ///< isentropic
  double turbine_efficiency = 0.93;       ///< isentropic
  double pinch = 10.0;                    ///< smallest temperature difference in a recuperator, K
  std::optional<double> split;  ///< share of the flow through the main compressor; if absent the
                                ///< one of highest efficiency
  std::size_t intervals = 100;  ///< of a recuperator
};

/// State points along the flow. `*_ideal` is the end of an isentropic change.
enum Point : std::size_t {
  main_in,
  main_ideal,
  main_out,
  low_cold_out,
  recomp_ideal,
  recomp_out,
  mixed,
  heater_in,
  turbine_in,
  turbine_ideal,
  turbine_out,
  high_hot_out,
  low_hot_out,
  point_count
};

struct Cycle {
  double split = 0.0;
  std::array<State, point_count> at;
  Recuperator low;
  Recuperator high;

  // Per kg through the turbine, kJ/kg.
  [[nodiscard]] double turbine_work() const { return fall(turbine_in, turbine_out); }
  [[nodiscard]] double main_work() const { return split * fall(main_out, main_in); }
  [[nodiscard]] double recomp_work() const { return (1.0 - split) * fall(recomp_out, low_hot_out); }
  [[nodiscard]] double heat_in() const { return fall(turbine_in, heater_in); }
  [[nodiscard]] double heat_out() const { return split * fall(low_hot_out, main_in); }
  [[nodiscard]] double net_work() const { return turbine_work() - main_work() - recomp_work(); }
  [[nodiscard]] double efficiency() const { return net_work() / heat_in(); }
  /// What heat and work leave open, relative to the heat input.
  [[nodiscard]] double closure() const { return (heat_in() - heat_out() - net_work()) / heat_in(); }

 private:
  [[nodiscard]] double fall(const Point from, const Point to) const {
    return at[from].enth - at[to].enth;
  }
};

/// A design that no cycle meets.
struct Infeasible : std::runtime_error {
  using runtime_error::runtime_error;
};

/// Real end of an adiabatic change from `in` to a pressure (kPa) with the given efficiency, and
/// through `ideal`, if present, the isentropic one.
[[nodiscard]] State compress(const State& in, double pres, double efficiency,
                             State* ideal = nullptr);
[[nodiscard]] State expand(const State& in, double pres, double efficiency, State* ideal = nullptr);

/// Throws Infeasible where the temperatures leave no room for the recuperators and StateError where
/// the library has no state.
[[nodiscard]] Cycle solve(const Design& design);

}  // namespace brayton
