#pragma once
// States along an isentrope, by temperature.

#include <cstdint>

#include "eos/helmholtz.hpp"
#include "saturation/tie_line.hpp"

namespace co2_properties {

/// The state with a temperature and an entropy.
struct IsentropePoint {
  enum Kind {
    single,
    mixture,
    thin,   ///< the entropy is higher than any state has: that of the lowest density
    dense,  ///< lower: that of the highest density of the elements
    lost,   ///< none found, reserved
  };
  Kind kind;
  double dens;                      ///< kg/m3, but of a mixture
  std::int32_t element;             ///< likewise
  Derivatives<double> d;            ///< likewise
  SaturatedPhase<double> liq, vap;  ///< of a mixture
};

/// \param temp  K, within the range
/// \param entr  kJ/(kg K), finite
/// Below the critical temperature an entropy between those of the saturated phases is a mixture.
[[nodiscard]] IsentropePoint point_of_isentrope(double temp, double entr) noexcept;

/// The state with an enthalpy and an entropy.
struct IsentropeState {
  enum Place { inside, colder, hotter };
  Place beyond;  ///< the limits of temperature
  double temp;   ///< K
  IsentropePoint at;
};

/// Along an isentrope the enthalpy rises with the temperature, from phase to phase: the state lies
/// between brackets, which a search narrows until the enthalpy is met.
/// \param enth, entr  kJ/kg and kJ/(kg K), finite
[[nodiscard]] IsentropeState state_on_isentrope(double enth, double entr) noexcept;

}  // namespace co2_properties
