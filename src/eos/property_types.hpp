#pragma once
// Properties as types, for algorithms that are told which one they work with. Each has
//   value, by_dens, by_temp  the property and its derivatives in density, kg/m3, and temperature, K
// from the derivatives of the Helmholtz energy, of one state or of several in lanes.

#include "eos/properties.hpp"

namespace co2_properties {

/// Specific enthalpy, kJ/kg.
struct Enthalpy {
  template <class Derivatives, class Real>
  [[gnu::always_inline]] static Real value(const Derivatives& d, const Real& temp,
                                           const Real& dens) noexcept {
    return enthalpy(d, temp, dens);
  }
  template <class Derivatives, class Real>
  [[gnu::always_inline]] static Real by_dens(const Derivatives& d, const Real& temp,
                                             const Real& dens) noexcept {
    return dhdd(d, temp, dens);
  }
  template <class Derivatives, class Real>
  [[gnu::always_inline]] static Real by_temp(const Derivatives& d, const Real& temp,
                                             const Real& dens) noexcept {
    return dhdt(d, temp, dens);
  }
};

/// Specific entropy, kJ/(kg K).
struct Entropy {
  template <class Derivatives, class Real>
  [[gnu::always_inline]] static Real value(const Derivatives& d, const Real& /*temp*/,
                                           const Real& /*dens*/) noexcept {
    return entropy(d);
  }
  template <class Derivatives, class Real>
  [[gnu::always_inline]] static Real by_dens(const Derivatives& d, const Real& /*temp*/,
                                             const Real& /*dens*/) noexcept {
    return dsdd(d);
  }
  template <class Derivatives, class Real>
  [[gnu::always_inline]] static Real by_temp(const Derivatives& d, const Real& /*temp*/,
                                             const Real& /*dens*/) noexcept {
    return dsdt(d);
  }
};

}  // namespace co2_properties
