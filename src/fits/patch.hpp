#pragma once
// Property patches: local fits of one property in temperature and density.

#include <cstdint>

#include "cells/axis.hpp"
#include "numbers/polynomial.hpp"

namespace co2_properties {

inline constexpr std::int32_t patch_terms = sextet;

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

/// x temperature, y density; cells count the patches from 0
using PatchMap = CellMap<1536, Axis<320, 4>, Axis<128, 3>>;

/// A derived-property fit.
struct PatchFit {
  const PatchMap* map;
  const Patch* patches;
};

/// Value of a patch at one state: nested multiplication in T for each power of rho, two of them at
/// a time, then in rho.
[[nodiscard, gnu::always_inline]] inline double evaluate_patch(const Patch& patch,
                                                               const double temp,
                                                               const double dens) noexcept {
  const auto columns = [&](const std::int32_t at) CO2_INLINE {
    return expand_two<PowersBy::descending_rows>(&patch.coef[0][0], at, temp - patch.temp0).value;
  };
  const Lanes2 a = columns(0);
  const Lanes2 b = columns(2);
  const Lanes2 c = columns(4);
  const double x = dens - patch.dens0;
  return ((((c[1] * x + c[0]) * x + b[1]) * x + b[0]) * x + a[1]) * x + a[0];
}

/// Value of a fit at one state.
[[nodiscard]] double evaluate_fit_at(const PatchFit& fit, double temp, double dens) noexcept;

/// A fit with its derivatives at one state.
struct FitGradient {
  double value;
  double temp;  ///< in temperature, 1/K
  double dens;  ///< in density, m3/kg
};
[[nodiscard]] FitGradient fit_gradient(const PatchFit& fit, double temp, double dens) noexcept;

/// Value of a fit at one state or at several.
template <class V>
[[nodiscard, gnu::always_inline]] inline V evaluate_fit(const PatchFit& fit, const V& temp,
                                                        const V& dens) noexcept {
  if constexpr (std::is_same_v<V, double>) {
    return evaluate_fit_at(fit, temp, dens);
  } else {
    std::int32_t index[lane_count<V>];
    fit.map->find(temp, dens, index);
    Rows<V> origins;
    Rows<V> matrices;
    for_each_lane<V>([&](const int k) CO2_INLINE {
      const Patch& patch = fit.patches[index[k]];
      origins[k] = &patch.temp0;
      matrices[k] = &patch.coef[0][0];
    });
    const Two<V> origin = load_two<V>(origins);  // temperature, density
    alignas(V) double offset[lane_count<V>];
    store<V>(temp - origin.first, offset);
    const Columns<V> c = expand_columns<PowersBy::descending_rows>(matrices, offset);
    const V x = dens - origin.second;
    return ((((c.c5.value * x + c.c4.value) * x + c.c3.value) * x + c.c2.value) * x + c.c1.value) *
               x +
           c.c0.value;
  }
}

// The five fits and their tilings. Written by `tablegen viscosity` and its four sisters.
extern const PatchFit viscosity_fit;
extern const Tiling viscosity_tiling;
extern const PatchFit conductivity_fit;
extern const Tiling conductivity_tiling;
extern const PatchFit cp_fit;
extern const Tiling cp_tiling;
extern const PatchFit cv_fit;
extern const Tiling cv_tiling;
extern const PatchFit sound_speed_fit;
extern const Tiling sound_speed_tiling;

}  // namespace co2_properties
