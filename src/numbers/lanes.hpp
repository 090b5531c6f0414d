#pragma once
// Number types for algorithms that are written once, as templates on the number type V, and serve
// single states and several side by side: double, and vectors of two, four and eight doubles.
// Every operation does in each lane what it does with one double, so that bits agree.
//
// A vector may be wider than the registers of the processor: then the compiler takes it apart.
// Where registers are wider than the baseline has them, a source file says so with
//     #pragma GCC target("avx2")    or, for clang,
//     #pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
// after the headers of the standard library and before this one, since the compiler takes vectors
// apart for the target at hand when it reads a function. Neither of them defines the macros of that
// target, so the file defines CO2_TARGET_AVX where AVX is part of it. Nothing here is ever called,
// all is inlined: the linker cannot give such a file's code to others, which have to run on every
// machine.
//
// Lanes belong in plain members and variables: g++ 12 copies structures which hold arrays of
// vectors through the stack in pieces of eight bytes.

#include "numbers/platform.hpp"

#include <cstdint>
#include <type_traits>
#include <utility>

#if defined(__AVX__) && !defined(CO2_TARGET_AVX)
#define CO2_TARGET_AVX
#endif

#if defined(__GNUC__)
// No vector is passed to another file.
#pragma GCC diagnostic ignored "-Wpsabi"
#if defined(__clang__)
#if __has_warning("-Wbitwise-instead-of-logical")
// Masks of single states are bool.
#pragma clang diagnostic ignored "-Wbitwise-instead-of-logical"
#endif
#endif

namespace co2_properties {

// ---- Types -------------------------------------------------------------------------------------

using Lanes2 = double __attribute__((vector_size(16)));
using Lanes4 = double __attribute__((vector_size(32)));
using Lanes8 = double __attribute__((vector_size(64)));

/// What a comparison gives: bool, or for vectors integers of which all bits are set or none. Masks
/// of vectors combine with & | ^ ~.
template <class V>
using Mask = decltype(V{} < V{});

template <class V>
inline constexpr int lane_count = sizeof(V) / sizeof(double);

namespace lanes_detail {

using Bits2 = std::uint64_t __attribute__((vector_size(16)));
using Bits4 = std::uint64_t __attribute__((vector_size(32)));
using Bits8 = std::uint64_t __attribute__((vector_size(64)));

template <class V>
struct BitsOf;
template <>
struct BitsOf<double> {
  using type = std::uint64_t;
};
template <>
struct BitsOf<Lanes2> {
  using type = Bits2;
};
template <>
struct BitsOf<Lanes4> {
  using type = Bits4;
};
template <>
struct BitsOf<Lanes8> {
  using type = Bits8;
};

using Singles4 = float __attribute__((vector_size(16), aligned(4), may_alias));

/// Readable and writable at any address of doubles.
template <class V>
struct Unaligned {
  // NOLINTNEXTLINE(modernize-use-using): an alias would lose the attributes
  typedef V type __attribute__((aligned(alignof(double)), may_alias));
};

}  // namespace lanes_detail

/// Unsigned integers of 64 bits, as many as V has doubles.
template <class V>
using Bits = typename lanes_detail::BitsOf<V>::type;

/// work(0), work(1), ... for each lane, without a loop.
template <class V, class Work>
[[gnu::always_inline]] inline void for_each_lane(const Work& work) noexcept {
  [&]<int... k>(std::integer_sequence<int, k...>) CO2_INLINE { (work(k), ...); }
  (std::make_integer_sequence<int, lane_count<V>>{});
}

// ---- Between lanes and numbers -----------------------------------------------------------------

template <class V>
[[nodiscard, gnu::always_inline]] constexpr V broadcast(const double x) noexcept {
  if constexpr (lane_count<V> == 1) return x;
  if constexpr (lane_count<V> == 2) return V{x, x};
  if constexpr (lane_count<V> == 4) return V{x, x, x, x};
  if constexpr (lane_count<V> == 8) return V{x, x, x, x, x, x, x, x};
}

/// Number k of doubles, of a mask or of bits.
template <class V>
[[nodiscard, gnu::always_inline]] inline auto lane(const V& v, const int k) noexcept {
  if constexpr (std::is_arithmetic_v<V>) {
    static_cast<void>(k);
    return v;
  } else {
    return v[k];
  }
}

/// \param from  lane_count<V> doubles
template <class V>
[[nodiscard, gnu::always_inline]] inline V load(const double* const from) noexcept {
  return *reinterpret_cast<const typename lanes_detail::Unaligned<V>::type*>(from);
}

/// \param to  room for lane_count<V> doubles
template <class V>
[[gnu::always_inline]] inline void store(const V& v, double* const to) noexcept {
  *reinterpret_cast<typename lanes_detail::Unaligned<V>::type*>(to) = v;
}

template <class V>
[[nodiscard, gnu::always_inline]] inline Bits<V> bits_of(const V& v) noexcept {
  return __builtin_bit_cast(Bits<V>, v);
}

template <class V>
[[nodiscard, gnu::always_inline]] inline V from_bits(const Bits<V>& bits) noexcept {
  return __builtin_bit_cast(V, bits);
}

// ---- Masks -------------------------------------------------------------------------------------

/// Lane by lane `mask ? a : b`. Both are evaluated.
template <class V>
[[nodiscard, gnu::always_inline]] inline V select(const Mask<V>& mask, const V& a,
                                                  const V& b) noexcept {
  return mask ? a : b;
}

/// The mask that is set where the other is not.
template <class M>
[[nodiscard, gnu::always_inline]] inline auto opposite(const M& mask) noexcept {
  if constexpr (std::is_arithmetic_v<M>) {  // what & and | make of bool is int
    return !mask;
  } else {
    return ~mask;
  }
}

/// Whether a lane of the mask is set.
template <class M>
[[nodiscard, gnu::always_inline]] inline bool any(const M& mask) noexcept {
  if constexpr (std::is_arithmetic_v<M>) {
    return mask != 0;
  } else if constexpr (lane_count<M> == 8) {
    return any(__builtin_shufflevector(mask, mask, 0, 1, 2, 3) |
               __builtin_shufflevector(mask, mask, 4, 5, 6, 7));
  } else if constexpr (lane_count<M> == 4) {
#if defined(CO2_TARGET_AVX)
    return __builtin_ia32_movmskpd256(__builtin_bit_cast(Lanes4, mask)) != 0;
#else
    return any(__builtin_shufflevector(mask, mask, 0, 1) |
               __builtin_shufflevector(mask, mask, 2, 3));
#endif
  } else {
#if defined(__SSE2__)
    return __builtin_ia32_movmskpd(__builtin_bit_cast(Lanes2, mask)) != 0;
#else
    return (mask[0] | mask[1]) != 0;
#endif
  }
}

/// Whether all lanes of the mask are set.
template <class M>
[[nodiscard, gnu::always_inline]] inline bool all(const M& mask) noexcept {
  if constexpr (std::is_arithmetic_v<M>) {
    return mask != 0;
  } else {
    return !any(~mask);
  }
}

// ---- Arithmetic --------------------------------------------------------------------------------

template <class V>
[[nodiscard, gnu::always_inline]] inline V absolute(const V& v) noexcept {
  return from_bits<V>(bits_of(v) & 0x7fffffffffffffffU);
}

/// Square root, correctly rounded; of negative numbers NaN.
template <class V>
[[nodiscard, gnu::always_inline]] inline V root(const V& v) noexcept {
  if constexpr (lane_count<V> == 1) {
#if defined(__SSE2__)  // the built-in function would call the C library for errno
    return __builtin_ia32_sqrtsd(Lanes2{v, 0.0})[0];
#else
    return __builtin_sqrt(v);
#endif
  } else if constexpr (lane_count<V> == 2) {
#if defined(__SSE2__)
    return __builtin_ia32_sqrtpd(v);
#else
    return V{__builtin_sqrt(v[0]), __builtin_sqrt(v[1])};
#endif
  } else if constexpr (lane_count<V> == 4) {
#if defined(CO2_TARGET_AVX)
    return __builtin_ia32_sqrtpd256(v);
#else
    return __builtin_shufflevector(root(__builtin_shufflevector(v, v, 0, 1)),
                                   root(__builtin_shufflevector(v, v, 2, 3)), 0, 1, 2, 3);
#endif
  } else {
    return __builtin_shufflevector(root(__builtin_shufflevector(v, v, 0, 1, 2, 3)),
                                   root(__builtin_shufflevector(v, v, 4, 5, 6, 7)), 0, 1, 2, 3, 4,
                                   5, 6, 7);
  }
}

/// Whether numbers lie between two positive ones, or are one of them. False for NaN.
template <class V>
[[nodiscard, gnu::always_inline]] inline Mask<V> is_within(const V& x, const double lo,
                                                           const double hi) noexcept {
  if constexpr (lane_count<V> == 1) {
    // Bits of positive numbers are in their order, and others come out above all of them.
    return bits_of(x) - bits_of(lo) <= bits_of(hi) - bits_of(lo);
  } else {
    return (x >= lo) & (x <= hi);
  }
}

// ---- Rows of tables ----------------------------------------------------------------------------

[[nodiscard, gnu::always_inline]] inline Lanes8 joined(const Lanes4& low,
                                                       const Lanes4& high) noexcept {
  return __builtin_shufflevector(low, high, 0, 1, 2, 3, 4, 5, 6, 7);
}

template <class V>
struct Two {
  V first, second;
};

template <class V>
struct Four {
  V first, second, third, fourth;
};

/// One row of numbers per lane, in double or, to save room, in single precision.
template <class V, class Number = double>
using Rows = const Number * [lane_count<V>];

/// Numbers of a row.
template <class V>
[[nodiscard, gnu::always_inline]] inline V load_row(const double* const from) noexcept {
  return load<V>(from);
}
template <class V>
[[nodiscard, gnu::always_inline]] inline V load_row(const float* const from) noexcept {
  if constexpr (lane_count<V> == 2) {
    return V{from[0], from[1]};
  } else {
    static_assert(lane_count<V> == 4);
    return __builtin_convertvector(*reinterpret_cast<const lanes_detail::Singles4*>(from), V);
  }
}

/// The numbers `from` and `from + 1` of each row.
template <class V, class Number>
[[nodiscard, gnu::always_inline]] inline Two<V> load_two(const Number* const (&rows)[lane_count<V>],
                                                         const int from = 0) noexcept {
  if constexpr (lane_count<V> == 1) {
    return {rows[0][from], rows[0][from + 1]};
  } else if constexpr (lane_count<V> == 2) {
    const V even = load_row<V>(rows[0] + from);
    const V odd = load_row<V>(rows[1] + from);
    return {__builtin_shufflevector(even, odd, 0, 2), __builtin_shufflevector(even, odd, 1, 3)};
  } else if constexpr (lane_count<V> == 4) {
    const V even = __builtin_shufflevector(load_row<Lanes2>(rows[0] + from),
                                           load_row<Lanes2>(rows[2] + from), 0, 1, 2, 3);
    const V odd = __builtin_shufflevector(load_row<Lanes2>(rows[1] + from),
                                          load_row<Lanes2>(rows[3] + from), 0, 1, 2, 3);
    return {__builtin_shufflevector(even, odd, 0, 4, 2, 6),
            __builtin_shufflevector(even, odd, 1, 5, 3, 7)};
  } else {
    const Two<Lanes4> low =
        load_two<Lanes4>(Rows<Lanes4, Number>{rows[0], rows[1], rows[2], rows[3]}, from);
    const Two<Lanes4> high =
        load_two<Lanes4>(Rows<Lanes4, Number>{rows[4], rows[5], rows[6], rows[7]}, from);
    return {__builtin_shufflevector(low.first, high.first, 0, 1, 2, 3, 4, 5, 6, 7),
            __builtin_shufflevector(low.second, high.second, 0, 1, 2, 3, 4, 5, 6, 7)};
  }
}

/// Four numbers per lane, row(k) of lane k, to four vectors.
template <class V, class Row>
[[nodiscard, gnu::always_inline]] inline Four<V> transposed(const Row& row) noexcept {
  if constexpr (lane_count<V> == 4) {
    const Lanes4 a = row(0);
    const Lanes4 b = row(1);
    const Lanes4 c = row(2);
    const Lanes4 d = row(3);
    const Lanes4 ab0 = __builtin_shufflevector(a, b, 0, 4, 2, 6);
    const Lanes4 ab1 = __builtin_shufflevector(a, b, 1, 5, 3, 7);
    const Lanes4 cd0 = __builtin_shufflevector(c, d, 0, 4, 2, 6);
    const Lanes4 cd1 = __builtin_shufflevector(c, d, 1, 5, 3, 7);
    return {__builtin_shufflevector(ab0, cd0, 0, 1, 4, 5),
            __builtin_shufflevector(ab1, cd1, 0, 1, 4, 5),
            __builtin_shufflevector(ab0, cd0, 2, 3, 6, 7),
            __builtin_shufflevector(ab1, cd1, 2, 3, 6, 7)};
  } else {
    static_assert(lane_count<V> == 8);
    const Four<Lanes4> low = transposed<Lanes4>(row);
    const Four<Lanes4> high =
        transposed<Lanes4>([&](const int k) CO2_INLINE { return row(k + 4); });
    return {joined(low.first, high.first), joined(low.second, high.second),
            joined(low.third, high.third), joined(low.fourth, high.fourth)};
  }
}

/// The numbers `from` to `from + 3` of each row.
template <class V, class Number>
[[nodiscard, gnu::always_inline]] inline Four<V> load_four(
    const Number* const (&rows)[lane_count<V>], const int from = 0) noexcept {
  if constexpr (std::is_same_v<Number, float> && lane_count<V> >= 4) {
    return transposed<V>([&](const int k) CO2_INLINE { return load_row<Lanes4>(rows[k] + from); });
  }
  const Two<V> front = load_two<V>(rows, from);
  const Two<V> back = load_two<V>(rows, from + 2);
  return {front.first, front.second, back.first, back.second};
}

/// Row `index` of a table for each lane.
template <class V, int columns>
[[gnu::always_inline]] inline void find_rows(const double (*const table)[columns],
                                             const Bits<V>& index, Rows<V>& rows) noexcept {
  for_each_lane<V>([&](const int k) CO2_INLINE { rows[k] = table[lane(index, k)]; });
}

}  // namespace co2_properties

#endif
