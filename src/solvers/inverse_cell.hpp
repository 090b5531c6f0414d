#pragma once
// Start-value cells: explicit fits of temperature and density in pressure and a caloric property,
// for one state or for several in lanes.

#include <cstdint>

#include "cells/axis.hpp"
#include "numbers/lanes.hpp"

namespace co2_properties {

inline constexpr std::int32_t inverse_terms = 4;

/// One cell of a start-value fit. Its origin belongs to its design and need not be a corner;
/// outside the states it was fitted to, it extrapolates.
struct alignas(32) InverseCell {
  /// coef[m][k] makes up the factor of power k of the caloric offset, by its share of term m in
  /// pressure: 1, dp, dp^2 and dp^3 for enthalpy, ln p for entropy. The logarithm is that of the
  /// pressure in kPa, not of the offset: it carries the isentropes of the gas down to 1 kPa.
  double coef[inverse_terms][inverse_terms];
  double pres0;             ///< kPa
  double caloric0;          ///< enthalpy, kJ/kg, or entropy, kJ/(kg K)
  double saturation_check;  ///< 1: may hold saturated states; 0 in all cells of density
  double unused;
};

/// The fourth term in pressure.
enum class InverseForm { cubic, logarithm };

/// The cells of both start values of a state.
struct StartCells {
  std::uint16_t temp, dens;
};

/// x pressure, y caloric property; counts pairs of cells
using StartMap = CellMap<3300, Axis<288, 4>, Axis<128, 3>>;

/// The start values of temperature and density from pressure and a caloric property.
struct StartFit {
  const StartMap* map;
  const StartCells* pairs;
  const InverseCell* temp;
  const InverseCell* dens;
};

/// Start values, K and kg/m3, and whether the state may be saturated.
template <class V>
struct StartState {
  V temp, dens;
  Mask<V> may_be_mixture;
};

/// The factors of the powers of the caloric offset in one cell.
/// \param log_pres  ln of the pressure in kPa, where the form needs it
template <InverseForm form>
[[nodiscard, gnu::always_inline]] inline Lanes4 caloric_factors(const InverseCell& cell,
                                                                const double pres_offset,
                                                                const double log_pres) noexcept {
  const auto row = [&](const std::int32_t m) CO2_INLINE { return load<Lanes4>(cell.coef[m]); };
  const auto dp = broadcast<Lanes4>(pres_offset);
  if constexpr (form == InverseForm::cubic) {
    return ((row(3) * dp + row(2)) * dp + row(1)) * dp + row(0);
  } else {
    return ((row(2) * dp + row(1)) * dp + row(0)) + row(3) * broadcast<Lanes4>(log_pres);
  }
}

/// Value of one cell at one state.
template <InverseForm form>
[[nodiscard, gnu::always_inline]] inline double evaluate_cell(const InverseCell& cell,
                                                              const double pres,
                                                              const double caloric,
                                                              const double log_pres) noexcept {
  const Lanes4 c = caloric_factors<form>(cell, pres - cell.pres0, log_pres);
  const double x = caloric - cell.caloric0;
  return ((c[3] * x + c[2]) * x + c[1]) * x + c[0];
}

/// The same for one cell in each lane.
/// \param saturation_check  receives that of the cells
template <InverseForm form, class V>
[[nodiscard, gnu::always_inline]] inline V evaluate_cells(
    const InverseCell* const (&cells)[lane_count<V>], const V& pres, const V& caloric,
    const V& log_pres, V& saturation_check) noexcept {
  if constexpr (lane_count<V> == 1) {
    saturation_check = cells[0]->saturation_check;
    return evaluate_cell<form>(*cells[0], pres, caloric, log_pres);
  } else {
    Rows<V> heads;
    for_each_lane<V>([&](const int k) CO2_INLINE { heads[k] = &cells[k]->pres0; });
    const Four<V> head = load_four<V>(heads);
    const V dp = pres - head.first;
    const V x = caloric - head.second;
    const auto factors = [&](const int k) CO2_INLINE {
      return caloric_factors<form>(*cells[k], dp[k], log_pres[k]);
    };
    const Four<V> c = transposed<V>(factors);
    saturation_check = head.third;
    return ((c.fourth * x + c.third) * x + c.second) * x + c.first;
  }
}

template <InverseForm form, class V>
[[nodiscard, gnu::always_inline]] inline StartState<V> evaluate_start(const StartFit& fit,
                                                                      const V& pres,
                                                                      const V& caloric,
                                                                      const V& log_pres) noexcept {
  std::int32_t pair[lane_count<V>];
  fit.map->find(pres, caloric, pair);
  const InverseCell* temp[lane_count<V>];
  const InverseCell* dens[lane_count<V>];
  for_each_lane<V>([&](const int k) CO2_INLINE {
    temp[k] = &fit.temp[fit.pairs[pair[k]].temp];
    dens[k] = &fit.dens[fit.pairs[pair[k]].dens];
  });
  V check;
  V none;
  const V start_temp = evaluate_cells<form, V>(temp, pres, caloric, log_pres, check);
  const V start_dens = evaluate_cells<form, V>(dens, pres, caloric, log_pres, none);
  return {start_temp, start_dens, check != 0.0};
}

// The start values by enthalpy and by entropy. Written by `tablegen start_maps`.
extern const StartFit start_from_hp_fit;
extern const StartFit start_from_sp_fit;

// The cells of the four fits, and their tilings. Written by `tablegen temp_from_hp` and its three
// sisters.
extern const InverseCell temp_from_hp_records[];
extern const Tiling temp_from_hp_tiling;
extern const InverseCell dens_from_hp_records[];
extern const Tiling dens_from_hp_tiling;
extern const InverseCell temp_from_sp_records[];
extern const Tiling temp_from_sp_tiling;
extern const InverseCell dens_from_sp_records[];
extern const Tiling dens_from_sp_tiling;

}  // namespace co2_properties
