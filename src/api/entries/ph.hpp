#pragma once
// What is peculiar to pressure and enthalpy.

#include "api/entries/caloric.hpp"
#include "eos/property_types.hpp"
#include "saturation/saturation_bounds.hpp"
#include "solvers/start_values.hpp"

namespace co2_properties {

struct PhPair {
  static constexpr CaloricCodes codes = ph_codes;
  using Property = Enthalpy;

  // Far outside of any state, also of extrapolated mixtures, kJ/kg.
  static constexpr double least = -1000.0;
  static constexpr double greatest = 5000.0;

  [[nodiscard, gnu::always_inline]] static inline const SaturatedCaloricBounds* bounds() noexcept {
    return saturated_enthalpy_bounds;
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static inline StartState<V> start(const V& enth,
                                                                      const V& pres) noexcept {
    return start_from_hp<V>(enth, pres);
  }

  /// Viscosity and conductivity of mixtures raise no warning.
  static constexpr auto mixture_transport = MixtureTransport::weighted_phases;
};

}  // namespace co2_properties
