#pragma once
// What is peculiar to pressure and entropy.

#include "api/entries/caloric.hpp"
#include "eos/property_types.hpp"
#include "numbers/logarithm.hpp"
#include "saturation/saturation_bounds.hpp"
#include "solvers/start_values.hpp"

namespace co2_properties {

struct PsPair {
  static constexpr CaloricCodes codes = ps_codes;
  using Property = Entropy;

  // Far outside of any state, also of extrapolated mixtures, kJ/(kg K).
  static constexpr double least = -5.0;
  static constexpr double greatest = 15.0;

  [[nodiscard, gnu::always_inline]] static inline const SaturatedCaloricBounds* bounds() noexcept {
    return saturated_entropy_bounds;
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static inline StartState<V> start(const V& entr,
                                                                      const V& pres) noexcept {
    return start_from_sp<V>(entr, pres, logarithm_of_normal<V>(pres));
  }

  /// Unlike in `co2_ph`, viscosity and conductivity of mixtures stay zero and raise the warning.
  static constexpr auto mixture_transport = MixtureTransport::none;
};

}  // namespace co2_properties
