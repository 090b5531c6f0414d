#pragma once
// Elementary functions besides the logarithm, from additions, multiplications, divisions and square
// roots alone: the same bits on every machine, for one number and for several side by side.

#include "numbers/platform.hpp"

#include <cstdint>

#include "numbers/lanes.hpp"

namespace co2_properties {

/// Largest errors, in units in the last place; `numbers_report` measures them.
inline constexpr double cube_root_error = 1.0;
inline constexpr double cosine_of_third_error = 1.25;

/// Cube root. Steps of high order for the inverse one, which need no division, and one of Newton's.
/// \param x  1e-100 to 1e100; a NaN gives NaN, anything else anything
/// Accuracy: `cube_root_error`
template <class V>
[[nodiscard, gnu::always_inline]] inline V cube_root(const V& x) noexcept {
  constexpr std::uint64_t two_52 = 0x4330000000000000;  // whose last bits hold an integer
  constexpr double third = 1.0 / 3.0;
  // A third of exponent and leading bits off those of 1: 1/x within 3.5 % of a third power.
  const V leading = from_bits<V>((bits_of(x) >> 32U) | two_52) - 0x1p52;
  V inverse = from_bits<V>(bits_of((0x553ee800.0p0 - third * leading) + 0x1p52) << 32U);
  V t = 1.0 - (x * inverse) * (inverse * inverse);
  inverse = inverse + inverse * (t * (third + t * (2.0 / 9.0 + t * (14.0 / 81.0))));
  t = 1.0 - (x * inverse) * (inverse * inverse);
  inverse = inverse + inverse * (t * (third + t * (2.0 / 9.0)));
  const V square = inverse * inverse;
  const V near = x * square;
  return near - (near * near * near - x) * (third * square);
}

/// cos(acos(x) / 3), the largest root y of 4 y^3 - 3 y = x. With y = (1 + z) / 2 that is
/// z^2 (3 + z) = 2 (1 + x); two of Newton's steps find z from a cubic in the square root, which is
/// 1e-4 off.
/// \param x  above -1, up to 1
/// Accuracy: `cosine_of_third_error`
template <class V>
[[nodiscard, gnu::always_inline]] inline V cosine_of_third(const V& x) noexcept {
  const V sum = 2.0 + 2.0 * x;
  const V t = root<V>(sum * (1.0 / 3.0));
  V z = t * (1.0 + t * (-0.16475478 + t * (0.057704599 - t * 0.013482124)));
  z = z - (z * z * (3.0 + z) - sum) / (3.0 * z * (2.0 + z));
  z = z - (z * z * (3.0 + z) - sum) / (3.0 * z * (2.0 + z));
  return 0.5 + 0.5 * z;
}

/// exp x to seven digits, for start values.
/// \param x  -700 to 700; anything else gives anything
template <class V>
[[nodiscard, gnu::always_inline]] inline V exponential_estimate(const V& x) noexcept {
  constexpr double log2_e = 1.4426950408889634;
  constexpr double ln_2 = 0.6931471805599453;
  constexpr double integers = 0x1.8p52;  // the last bits of a sum with it are an integer
  const V shifted = x * log2_e + integers;
  const V r = x - (shifted - integers) * ln_2;
  const V power = from_bits<V>((bits_of(shifted) + 1023U) << 52U);
  const V r2 = r * r;
  const V low = (1.0 + r) + r2 * (0.5 + r * (1.0 / 6.0));
  return power * (low + (r2 * r2) * (1.0 / 24.0 + r * (1.0 / 120.0 + r * (1.0 / 720.0))));
}

}  // namespace co2_properties
