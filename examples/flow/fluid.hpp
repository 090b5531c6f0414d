#pragma once
// States of carbon dioxide as a flow solver needs them, in SI units: K, Pa, kg/m3, J/kg, J/(kg K),
// m/s. Two phases are in equilibrium and share one velocity.

#include <cstdint>
#include <stdexcept>

namespace flow {

/// The library reported an error, or an iteration did not end; the text names the call and its
/// arguments in the units of the library.
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

/// What two phases in equilibrium are like between the lines of saturation.
struct Mixture {
  double cv = 0.0;    ///< (de/dT) at constant volume, J/(kg K)
  double ssnd = 0.0;  ///< speed of sound of equilibrium, m/s
};

/// Heat capacity and speed of sound of a mixture. With a = p'(T) from the Clapeyron equation, each
/// phase contributes cv + T v^2 (a - dp/dT)^2 / (dp/drho) with the saturated values of that phase,
/// and w = v a (T / cv)^(1/2) of the whole. Nothing is differenced.
/// \param temp  K, below critical; \param qual  0 to 1; \param dens  of the mixture, kg/m3
[[nodiscard]] Mixture mixture(double temp, double qual, double dens);

/// The states, with a count of what they cost.
class Fluid {
 public:
  struct Calls {
    std::int64_t solved = 0;     ///< states from (dens, inte)
    std::int64_t td = 0;         ///< evaluations of `co2_td` for these
    std::int64_t saturated = 0;  ///< evaluations of `mixture`, two calls of `co2_td` each
    std::int64_t tp = 0, ph = 0, ps = 0;
    std::int64_t loose = 0;     ///< warnings that `co2_ph` or `co2_ps` met its inputs loosely
    std::int64_t at_jumps = 0;  ///< energies that fall into the jump between two fits
  };

  // All of these throw StateError.

  [[nodiscard]] State from_tp(double temp, double pres);

  /// These return the pressure given. In two phases the library's own is that of the vapour at a
  /// temperature from the saturation line, some 1e-6 away; a sum over many small pressure steps
  /// would collect the difference.
  [[nodiscard]] State from_ph(double pres, double enth);
  [[nodiscard]] State from_ps(double pres, double entr);

  /// State from the conserved quantities. Temperature by Newton's method on e(T) at constant
  /// density, which rises everywhere, kept inside a shrinking bracket: e bends sharply where the
  /// density enters the two-phase region. Ends within 1e-5 J/kg.
  /// \param temp_start  where to start, K; best that of the last step
  [[nodiscard]] State from_energy(double dens, double inte, double temp_start);

  /// Entropy of a state.
  [[nodiscard]] double entropy(const State& state);

  [[nodiscard]] const Calls& calls() const { return calls_; }

 private:
  Calls calls_;
};

}  // namespace flow
