#pragma once
// Start values of temperature, K, and density, kg/m3, together: as from_hp.hpp and from_sp.hpp; for
// one state or for several in lanes.

#include "numbers/logarithm.hpp"
#include "solvers/inverse_cell.hpp"

namespace co2_properties {

/// From enthalpy, kJ/kg, and pressure, kPa.
template <class V>
[[nodiscard, gnu::always_inline]] inline StartState<V> start_from_hp(const V& enth,
                                                                     const V& pres) noexcept {
  return evaluate_start<InverseForm::cubic, V>(start_from_hp_fit, pres, enth, pres);
}

/// From entropy, kJ/(kg K), and pressure, kPa.
template <class V>
[[nodiscard, gnu::always_inline]] inline StartState<V> start_from_sp(const V& entr, const V& pres,
                                                                     const V& log_pres) noexcept {
  return evaluate_start<InverseForm::logarithm, V>(start_from_sp_fit, pres, entr, log_pres);
}

}  // namespace co2_properties
