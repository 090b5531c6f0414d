#pragma once
// Start-value cells: explicit fits of temperature and density in pressure and a caloric property.

#include <cstdint>

#include "cells/cell_map.hpp"

namespace co2_properties {

inline constexpr std::int32_t inverse_terms = 4;

/// One cell of a start-value fit. Its origin belongs to its design and need not be a corner;
/// outside the states it was fitted to, it extrapolates. coef[k] makes up the factor of power k of
/// the caloric offset; what its four entries stand for differs between enthalpy and entropy and is
/// told at the two evaluators.
struct InverseCell {
  double pres0;     ///< kPa
  double caloric0;  ///< enthalpy, kJ/kg, or entropy, kJ/(kg K)
  double coef[inverse_terms][inverse_terms];
  std::int32_t saturation_check;  ///< 1: may hold saturated states; 0 in all cells of density
};

/// A start-value fit: the tiling (x pressure, y enthalpy or entropy) and its cells. Cell values
/// count the cells from 0.
struct InverseFit {
  CellMap map;
  const InverseCell* cells;
};

[[nodiscard]] inline const InverseCell& find_inverse_cell(const InverseFit& fit, const double pres,
                                                          const double caloric) noexcept {
  return fit.cells[find_cell(fit.map, pres, caloric)];
}

/// Sum of c[k] ds^k by nested multiplication.
[[nodiscard]] inline double evaluate_cubic(const double (&c)[inverse_terms],
                                           const double offset) noexcept {
  return ((c[3] * offset + c[2]) * offset + c[1]) * offset + c[0];
}

/// Value of a cell in (p, h): bicubic, coef[k][m] belongs to power k of the enthalpy offset and
/// power m of the pressure offset.
[[nodiscard]] inline double evaluate_in_enthalpy(const InverseCell& cell, const double pres,
                                                 const double enth) noexcept {
  const double dp = pres - cell.pres0;
  double c[inverse_terms];
  for (std::int32_t k = 0; k < inverse_terms; ++k) c[k] = evaluate_cubic(cell.coef[k], dp);
  return evaluate_cubic(c, enth - cell.caloric0);
}

/// Value of a cell in (p, s): cubic in the entropy offset, each factor quadratic in the pressure
/// offset (coef[k][0..2], powers 0 to 2) plus coef[k][3] ln p. The logarithm is that of the
/// pressure in kPa, not of the offset: it carries the isentropes of the gas down to 1 kPa.
[[nodiscard]] inline double evaluate_in_entropy(const InverseCell& cell, const double pres,
                                                const double log_pres, const double entr) noexcept {
  const double dp = pres - cell.pres0;
  double c[inverse_terms];
  for (std::int32_t k = 0; k < inverse_terms; ++k) {
    const auto& a = cell.coef[k];
    c[k] = ((a[2] * dp + a[1]) * dp + a[0]) + a[3] * log_pres;
  }
  return evaluate_cubic(c, entr - cell.caloric0);
}

// The four fits. Written by `tablegen temp_from_hp` and its three sisters.
extern const InverseFit temp_from_hp_fit;
extern const InverseFit dens_from_hp_fit;
extern const InverseFit temp_from_sp_fit;
extern const InverseFit dens_from_sp_fit;

}  // namespace co2_properties
