#pragma once
// Natural logarithm: the same bits on every machine, for one number and for several side by side.

#include "numbers/platform.hpp"

#include <cstdint>

#include "numbers/lanes.hpp"

namespace co2_properties {

/// Largest error, in units in the last place; `numbers_report` measures it. And ln 1 = 0.
inline constexpr double logarithm_error = 0.57;

/// Numbers of the logarithm, generated. A number is 2^k z with z between 0.6875 and 1.375, and c is
/// z rounded to eight bits; row i belongs to c = 0.6875 + i / 256 up to 1, then in steps of 1 /
/// 128.
struct LogarithmTable {
  /// 1/c rounded to nine bits, 1/c here called f; ln(1/f) as a multiple of 2^-43 and the rest;
  /// c f - 1.
  double rows[128][4];
  double ln2_high, ln2_low;  ///< ln 2 as a multiple of 2^-43 and the rest
  double coef[5];            ///< of (ln(1 + r) - r + r^2/2) / r^3, from power 0
};
extern const LogarithmTable logarithm_table;

/// ln x of the number whose exponent and mantissa are `bits`; also of exponents below the range of
/// double, where they run over into the sign.
///
/// With r = z f - 1 = (z - c) f + (c f - 1) the logarithm is k ln 2 + ln(1/f) + ln(1 + r), where
/// |r| < 0.0053. z - c and its product with the nine bits of f are exact, and so are the multiples
/// of 2^-43 and their sum; around 1 all terms but r vanish. So next to the last rounding only half
/// a square and smaller terms round.
template <class V>
[[nodiscard, gnu::always_inline]] inline V logarithm_of_bits(const Bits<V>& bits) noexcept {
  constexpr std::uint64_t first = 0x3fe6000000000000;  // 0.6875
  constexpr std::uint64_t half_step = std::uint64_t{1} << 44U;
  constexpr std::uint64_t exponent = 0xfff0000000000000;
  constexpr std::uint64_t sign = 0x8000000000000000;
  const LogarithmTable& table = logarithm_table;

  const Bits<V> place = bits + (half_step - first);
  const V z = from_bits<V>(bits - (place & exponent));
  const V c = from_bits<V>((bits_of(z) + half_step) & ~(2 * half_step - 1));
  // The exponent plus 2048, written into the last bits of 2^52.
  const V k = from_bits<V>(((place ^ sign) >> 52U) | 0x4330000000000000U) - (0x1p52 + 2048.0);
  Rows<V> rows;
  find_rows<V>(table.rows, (place >> 45U) & 127U, rows);
  const Four<V> row = load_four<V>(rows);

  const V r = (z - c) * row.first + row.fourth;
  const V whole = k * table.ln2_high + row.second;
  const V high = whole + r;
  const V low = ((whole - high) + r) + (k * table.ln2_low + row.third);
  const V r2 = r * r;
  const double* const a = table.coef;
  const V tail = (a[0] + a[1] * r) + r2 * ((a[2] + a[3] * r) + r2 * a[4]);
  return high + ((low - 0.5 * r2) + (r * r2) * tail);
}

/// ln x of positive, normal, finite numbers; anything else gives anything.
/// Accuracy: `logarithm_error`
template <class V>
[[nodiscard, gnu::always_inline]] inline V logarithm_of_normal(const V& x) noexcept {
  return logarithm_of_bits<V>(bits_of(x));
}

/// ln x of numbers that are not positive, normal and finite.
[[nodiscard]] double logarithm_of_special(double x) noexcept;

/// ln x of any number, as accurate: minus infinity for zeros, NaN for negative numbers and NaN. It
/// raises no exception but that of inexact results.
[[nodiscard, gnu::always_inline]] inline double logarithm(const double x) noexcept {
  constexpr std::uint64_t smallest = 0x0010000000000000;
  constexpr std::uint64_t infinity = 0x7ff0000000000000;
  if (bits_of(x) - smallest >= infinity - smallest) [[unlikely]]
    return logarithm_of_special(x);
  return logarithm_of_normal(x);
}

}  // namespace co2_properties
