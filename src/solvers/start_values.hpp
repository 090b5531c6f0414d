#pragma once
// Start values of temperature, K, and density, kg/m3, for one state or for several in lanes: as
// from_hp.hpp and from_sp.hpp, and from grids.

#include "co2_properties/limits.hpp"
#include "numbers/elementary.hpp"
#include "numbers/logarithm.hpp"
#include "solvers/inverse_cell.hpp"
#include "solvers/start_grid.hpp"

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

// Written by `tablegen start_from_pu` and its sisters. ln of the density, kg/m3, and before it,
// where there are two, the temperature, K; over ln p, kPa, and u, kJ/kg; T and s, kJ/(kg K); h,
// kJ/kg, and s.
extern const StartGrid<2> start_from_pu_grid;
extern const StartGrid<1> start_from_ts_grid;
extern const StartGrid<2> start_from_hs_grid;

/// The density of an estimate of its logarithm, which may lie anywhere for inputs of no state.
template <class V>
[[nodiscard, gnu::always_inline]] inline V density_of_log(const V& log_dens) noexcept {
  constexpr double thinnest = -9.0;
  constexpr double densest = 8.0;
  const V above = select<V>(log_dens > thinnest, log_dens, broadcast<V>(thinnest));
  return exponential_estimate<V>(select<V>(above < densest, above, broadcast<V>(densest)));
}

/// From internal energy, kJ/kg, and pressure, kPa.
template <class V>
[[nodiscard, gnu::always_inline]] inline StartState<V> start_from_pu(const V& inte, const V& pres,
                                                                     const V& log_pres) noexcept {
  const StartPair<V> at = start_values<V>(start_from_pu_grid, log_pres, inte);
  return {at.first, density_of_log<V>(at.second), is_within<V>(pres, pres_sat_min, p_crit)};
}

/// Density from temperature, K, and entropy, kJ/(kg K).
template <class V>
[[nodiscard, gnu::always_inline]] inline V start_from_ts(const V& temp, const V& entr) noexcept {
  return density_of_log<V>(start_value<V>(start_from_ts_grid, temp, entr));
}

/// From enthalpy, kJ/kg, and entropy, kJ/(kg K).
template <class V>
[[nodiscard, gnu::always_inline]] inline StartPair<V> start_from_hs(const V& enth,
                                                                    const V& entr) noexcept {
  const StartPair<V> at = start_values<V>(start_from_hs_grid, enth, entr);
  return {at.first, density_of_log<V>(at.second)};
}

}  // namespace co2_properties
