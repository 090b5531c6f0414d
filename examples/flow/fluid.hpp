#pragma once
// States of carbon dioxide as a flow solver needs them, in SI units: K, Pa, kg/m3, J/kg, J/(kg K),
// m/s. Two phases are in equilibrium and share one velocity.

#include <cstdint>
#include <stdexcept>

namespace flow {

/// The library reported an error; the text names the call and its arguments in the units of the
/// library.
struct StateError : std::runtime_error {
  using runtime_error::runtime_error;
};

struct State {
  double temp = 0.0;
  double pres = 0.0;
  double dens = 0.0;
  double inte = 0.0;
  double enth = 0.0;
  double ssnd = 0.0;  ///< of equilibrium, (dp/drho)^(1/2) at constant s, in two phases too
  double qual = 0.0;  ///< vapour mass fraction as the library gives it
  bool two_phase = false;
};

/// The states, with a count of them.
class Fluid {
 public:
  struct Calls {
    std::int64_t du = 0, ph = 0, ps = 0;
    std::int64_t loose = 0;  ///< warnings that `co2_ph` or `co2_ps` met its inputs loosely
  };

  // All of these throw StateError.

  [[nodiscard]] State from_tp(double temp, double pres);

  /// These return the pressure given. In two phases the library's own is that of the vapour at a
  /// temperature from the saturation line, some 1e-6 away; a sum over many small pressure steps
  /// would collect the difference.
  [[nodiscard]] State from_ph(double pres, double enth);
  [[nodiscard]] State from_ps(double pres, double entr);

  /// State from the conserved quantities, with the energy given.
  [[nodiscard]] State from_energy(double dens, double inte);

  /// Entropy of a state.
  [[nodiscard]] double entropy(const State& state);

  [[nodiscard]] const Calls& calls() const { return calls_; }

 private:
  Calls calls_;
};

}  // namespace flow
