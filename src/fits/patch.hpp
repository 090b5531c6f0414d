#pragma once
// Property patches: local fits of one property in temperature and density.

#include <cstdint>

#include "cells/cell_map.hpp"
#include "cells/pair.hpp"

namespace co2_properties {

inline constexpr std::int32_t patch_terms = 6;

/// One cell of a property fit,
///   P(T, rho) = sum_{i,j=0..5} a(i, j) (T - temp0)^i (rho - dens0)^j.
/// The origin is part of the design of the cell and need not be one of its corners. A patch has no
/// widths: it serves every state that the map sends to it and extrapolates at the outer cells.
struct alignas(16) Patch {
  double temp0;
  double dens0;
  /// coef[k][j] belongs to power 5 - k of T - temp0 and power j of rho - dens0.
  double coef[patch_terms][patch_terms];
};
static_assert(sizeof(Patch) == 38 * sizeof(double), "a record is its numbers without padding");

/// A derived-property fit: the tiling (x temperature, y density) and its patches. Cell values count
/// the patches from 0.
struct PatchFit {
  CellMap map;
  const Patch* patches;
};

/// Value of a patch at one state: nested multiplication in T for each power of rho, two of them at
/// a time, then in rho.
[[nodiscard]] inline double evaluate_patch(const Patch& patch, const double temp,
                                           const double dens) noexcept {
  const Pair dt = both(temp - patch.temp0);
  const double dr = dens - patch.dens0;
  const auto& a = pairs_of(patch.coef);
  double c[patch_terms];
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC unroll 3
#endif
  for (std::int32_t j = 0; j < patch_terms / 2; ++j) {
    const Pair sums =
        ((((a[0][j] * dt + a[1][j]) * dt + a[2][j]) * dt + a[3][j]) * dt + a[4][j]) * dt + a[5][j];
    c[2 * j] = sums[0];
    c[2 * j + 1] = sums[1];
  }
  return ((((c[5] * dr + c[4]) * dr + c[3]) * dr + c[2]) * dr + c[1]) * dr + c[0];
}

[[nodiscard]] inline double evaluate_fit(const PatchFit& fit, const double temp,
                                         const double dens) noexcept {
  return evaluate_patch(fit.patches[find_cell(fit.map, temp, dens)], temp, dens);
}

// The five fits. Written by `tablegen viscosity` and its four sisters.
extern const PatchFit viscosity_fit;
extern const PatchFit conductivity_fit;
extern const PatchFit cp_fit;
extern const PatchFit cv_fit;
extern const PatchFit sound_speed_fit;

}  // namespace co2_properties
