#pragma once
// Polynomials of degree five, six side by side: those of a matrix of coefficients, one per column.
//
// Nested multiplication, since coefficients that reach 1e13 cancel: powers formed separately would
// lose the digits that nesting keeps. Value and derivatives share one recursion, complete Horner:
// each row of it sums the one above and ends in a derivative over its factorial. What of it is not
// used costs nothing. One state and each lane do the same operations: the bits are the same.

#include <cstdint>

#include "numbers/lanes.hpp"

namespace co2_properties {

inline constexpr std::int32_t sextet = 6;  ///< columns, and powers 0 to 5

/// A polynomial at a point: value and derivatives over 1!, 2!, 3!.
template <class V>
struct Expansion {
  V value, first, second, third;
};

/// \param c  c(k): coefficient of power k, 0 to 5
template <class V, class Coefficient>
[[nodiscard, gnu::always_inline]] inline Expansion<V> expand(const Coefficient& c,
                                                             const V& x) noexcept {
  const V top = c(5) * x;
  const V v4 = top + c(4);
  const V f4 = top + v4;
  const V v3 = v4 * x + c(3);
  const V f3 = f4 * x + v3;
  const V s3 = top + f4;
  const V v2 = v3 * x + c(2);
  const V f2 = f3 * x + v2;
  const V s2 = s3 * x + f3;
  const V t2 = top + s3;
  const V v1 = v2 * x + c(1);
  const V f1 = f2 * x + v1;
  const V s1 = s2 * x + f2;
  const V t1 = t2 * x + s2;
  return {v1 * x + c(0), f1, s1, t1};
}

/// Where the coefficients of power k stand in a matrix of six rows.
enum class PowersBy { ascending_rows, descending_rows };

template <PowersBy order>
[[nodiscard, gnu::always_inline]] constexpr std::int32_t row_start(const std::int32_t k) noexcept {
  return sextet * (order == PowersBy::ascending_rows ? k : sextet - 1 - k);
}

/// The six columns of a matrix, or of one matrix per lane. No array: g++ 12 would copy it through
/// memory in pieces.
template <class V>
struct Columns {
  Expansion<V> c0, c1, c2, c3, c4, c5;
};

/// Two columns side by side, from column `at` on, of one matrix.
template <PowersBy order>
[[nodiscard, gnu::always_inline]] inline Expansion<Lanes2> expand_two(const double* const matrix,
                                                                      const std::int32_t at,
                                                                      const double x) noexcept {
  const auto c = [&](const std::int32_t k)
                     CO2_INLINE { return load<Lanes2>(matrix + row_start<order>(k) + at); };
  return expand(c, broadcast<Lanes2>(x));
}

/// The sums go by columns in lanes: four columns of one matrix side by side, from rows as they lie
/// in memory, and the last two of two matrices. Only results are transposed, not coefficients.
/// \param x  in memory, from which a broadcast is as cheap as a load
template <PowersBy order>
[[nodiscard, gnu::always_inline]] inline Columns<Lanes4> expand_columns(
    const Rows<Lanes4>& matrices, const double* const x) noexcept {
  const auto four = [&](const int k) CO2_INLINE {
    const auto c = [&](const std::int32_t power)
                       CO2_INLINE { return load<Lanes4>(matrices[k] + row_start<order>(power)); };
    return expand(c, broadcast<Lanes4>(x[k]));
  };
  const auto two = [&](const int k) CO2_INLINE {
    const auto c = [&](const std::int32_t power) CO2_INLINE {
      const std::int32_t at = row_start<order>(power) + 4;
      return __builtin_shufflevector(load<Lanes2>(matrices[k] + at),
                                     load<Lanes2>(matrices[k + 2] + at), 0, 1, 2, 3);
    };
    return expand(c, Lanes4{x[k], x[k], x[k + 2], x[k + 2]});
  };
  const Expansion<Lanes4> even = two(0);
  const Expansion<Lanes4> odd = two(1);
  const Expansion<Lanes4> a = four(0);
  const Expansion<Lanes4> b = four(1);
  const Expansion<Lanes4> c = four(2);
  const Expansion<Lanes4> d = four(3);
  Columns<Lanes4> all;
  const auto spread = [&](Lanes4 Expansion<Lanes4>::*const m) CO2_INLINE {
    const Four<Lanes4> front = transposed<Lanes4>([&](const int k) CO2_INLINE {
      return k == 0 ? a.*m : k == 1 ? b.*m : k == 2 ? c.*m : d.*m;
    });
    all.c0.*m = front.first;
    all.c1.*m = front.second;
    all.c2.*m = front.third;
    all.c3.*m = front.fourth;
    all.c4.*m = __builtin_shufflevector(even.*m, odd.*m, 0, 4, 2, 6);
    all.c5.*m = __builtin_shufflevector(even.*m, odd.*m, 1, 5, 3, 7);
  };
  spread(&Expansion<Lanes4>::value);
  spread(&Expansion<Lanes4>::first);
  spread(&Expansion<Lanes4>::second);
  spread(&Expansion<Lanes4>::third);
  return all;
}

template <PowersBy order>
[[nodiscard, gnu::always_inline]] inline Columns<Lanes8> expand_columns(
    const Rows<Lanes8>& matrices, const double* const x) noexcept {
  const Rows<Lanes4> low = {matrices[0], matrices[1], matrices[2], matrices[3]};
  const Rows<Lanes4> high = {matrices[4], matrices[5], matrices[6], matrices[7]};
  const Columns<Lanes4> a = expand_columns<order>(low, x);
  const Columns<Lanes4> b = expand_columns<order>(high, x + 4);
  const auto both = [&](const Expansion<Lanes4>& l, const Expansion<Lanes4>& h)
                        CO2_INLINE -> Expansion<Lanes8> {
    return {joined(l.value, h.value), joined(l.first, h.first), joined(l.second, h.second),
            joined(l.third, h.third)};
  };
  return {both(a.c0, b.c0), both(a.c1, b.c1), both(a.c2, b.c2),
          both(a.c3, b.c3), both(a.c4, b.c4), both(a.c5, b.c5)};
}

}  // namespace co2_properties
