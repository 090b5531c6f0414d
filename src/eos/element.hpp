#pragma once
// The element table: local fits of the specific Helmholtz energy over the (T, rho) plane.

#include "numbers/platform.hpp"

#include <cstdint>

namespace co2_properties {

inline constexpr std::int32_t element_count = 649;
inline constexpr std::int32_t first_liquid = 94;  ///< index of the first liquid element
inline constexpr std::int32_t temp_terms = 6;     ///< powers of T - temp0
inline constexpr std::int32_t dens_terms = 6;  ///< ln rho, 1, d, d^2, d^3, d^4 with d = rho - dens0

/// One rectangle temp0 <= T < temp0 + temp_width, dens0 <= rho < dens0 + dens_width with
///   a(T, rho) = sum_i (T - temp0)^i [ c(i,0) ln rho + sum_{j=1..5} c(i,j) (rho - dens0)^(j-1) ],
/// a in kJ/kg, T in K, rho in kg/m3. The logarithm carries the ideal-gas limit, so that the lowest
/// elements reach down to vanishing density with a regular pressure.
struct alignas(64) Element {
  double dens0;
  double temp0;
  double dens_width;
  double temp_width;
  double coef[temp_terms][dens_terms];  ///< coef[i][j]: power i of T - temp0, density function j
};
static_assert(sizeof(Element) == 40 * sizeof(double), "a record is forty doubles without padding");

/// Elements 1..93 hold vapour, 94..222 compressed liquid, 223..649 supercritical states; the array
/// starts with element 1. Written by `tablegen elements`.
extern const Element elements[element_count];

/// Record of the element with the 1-based index `e`, 1..649.
[[nodiscard, gnu::always_inline]] inline const Element& element(const std::int32_t e) noexcept {
  return elements[e - 1];
}

/// One element for each lane.
template <class V>
using Cells = const Element * [sizeof(V) / sizeof(double)];

}  // namespace co2_properties
