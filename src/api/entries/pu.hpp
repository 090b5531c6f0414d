#pragma once
// What is peculiar to pressure and internal energy.

#include "api/entries/caloric.hpp"
#include "eos/property_types.hpp"
#include "numbers/logarithm.hpp"
#include "saturation/saturation_bounds.hpp"
#include "solvers/start_values.hpp"

namespace co2_properties {

struct PuPair {
  static constexpr CaloricCodes codes = pu_codes;
  using Property = InternalEnergy;

  // Far outside of any state, also of extrapolated mixtures, kJ/kg.
  static constexpr double least = -1000.0;
  static constexpr double greatest = 5000.0;

  [[nodiscard, gnu::always_inline]] static inline const SaturatedCaloricBounds* bounds() noexcept {
    return saturated_energy_bounds;
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static inline StartState<V> start(const V& inte,
                                                                      const V& pres) noexcept {
    return start_from_pu<V>(inte, pres, logarithm_of_normal<V>(pres));
  }

  /// As in `co2_ps`.
  static constexpr auto mixture_transport = MixtureTransport::none;
};

}  // namespace co2_properties
