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

#if defined(__AVX__) && !defined(CO2_TARGET_AVX)
#define CO2_TARGET_AVX
#endif

#if defined(__GNUC__)
// No vector is passed to another file.
#pragma GCC diagnostic ignored "-Wpsabi"

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

/// Readable and writable at any address of doubles.
template <class V>
struct Unaligned {
  typedef V type
      __attribute__((aligned(alignof(double)), may_alias));  // NOLINT(modernize-use-using)
};

}  // namespace lanes_detail

/// Unsigned integers of 64 bits, as many as V has doubles.
template <class V>
using Bits = typename lanes_detail::BitsOf<V>::type;

// ---- Between lanes and numbers -----------------------------------------------------------------

template <class V>
[[nodiscard, gnu::always_inline]] inline V broadcast(const double x) noexcept {
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

/// Whether a lane of the mask is set.
template <class M>
[[nodiscard, gnu::always_inline]] inline bool any(const M& mask) noexcept {
  if constexpr (std::is_same_v<M, bool>) {
    return mask;
  } else if constexpr (lane_count<M> == 8) {
    return any(__builtin_shufflevector(mask, mask, 0, 1, 2, 3) |
               __builtin_shufflevector(mask, mask, 4, 5, 6, 7));
  } else if constexpr (lane_count<M> == 4) {
#if defined(CO2_TARGET_AVX)
    return __builtin_ia32_movmskpd256(reinterpret_cast<const Lanes4&>(mask)) != 0;
#else
    return any(__builtin_shufflevector(mask, mask, 0, 1) |
               __builtin_shufflevector(mask, mask, 2, 3));
#endif
  } else {
#if defined(__SSE2__)
    return __builtin_ia32_movmskpd(reinterpret_cast<const Lanes2&>(mask)) != 0;
#else
    return (mask[0] | mask[1]) != 0;
#endif
  }
}

/// Whether all lanes of the mask are set.
template <class M>
[[nodiscard, gnu::always_inline]] inline bool all(const M& mask) noexcept {
  if constexpr (std::is_same_v<M, bool>) {
    return mask;
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

// ---- Rows of tables ----------------------------------------------------------------------------

template <class V>
struct Two {
  V first, second;
};

template <class V>
struct Four {
  V first, second, third, fourth;
};

/// One row of numbers per lane.
template <class V>
using Rows = const double * [lane_count<V>];

/// The numbers `from` and `from + 1` of each row.
template <class V>
[[nodiscard, gnu::always_inline]] inline Two<V> load_two(const Rows<V>& rows,
                                                         const int from = 0) noexcept {
  if constexpr (lane_count<V> == 1) {
    return {rows[0][from], rows[0][from + 1]};
  } else if constexpr (lane_count<V> == 2) {
    const V even = load<V>(rows[0] + from);
    const V odd = load<V>(rows[1] + from);
    return {__builtin_shufflevector(even, odd, 0, 2), __builtin_shufflevector(even, odd, 1, 3)};
  } else if constexpr (lane_count<V> == 4) {
    const V even = __builtin_shufflevector(load<Lanes2>(rows[0] + from),
                                           load<Lanes2>(rows[2] + from), 0, 1, 2, 3);
    const V odd = __builtin_shufflevector(load<Lanes2>(rows[1] + from),
                                          load<Lanes2>(rows[3] + from), 0, 1, 2, 3);
    return {__builtin_shufflevector(even, odd, 0, 4, 2, 6),
            __builtin_shufflevector(even, odd, 1, 5, 3, 7)};
  } else {
    const Two<Lanes4> low = load_two<Lanes4>({rows[0], rows[1], rows[2], rows[3]}, from);
    const Two<Lanes4> high = load_two<Lanes4>({rows[4], rows[5], rows[6], rows[7]}, from);
    return {__builtin_shufflevector(low.first, high.first, 0, 1, 2, 3, 4, 5, 6, 7),
            __builtin_shufflevector(low.second, high.second, 0, 1, 2, 3, 4, 5, 6, 7)};
  }
}

/// The numbers `from` to `from + 3` of each row.
template <class V>
[[nodiscard, gnu::always_inline]] inline Four<V> load_four(const Rows<V>& rows,
                                                           const int from = 0) noexcept {
  const Two<V> front = load_two<V>(rows, from);
  const Two<V> back = load_two<V>(rows, from + 2);
  return {front.first, front.second, back.first, back.second};
}

/// Row `index` of a table for each lane.
template <class V, int columns>
[[gnu::always_inline]] inline void find_rows(const double (*const table)[columns],
                                             const Bits<V>& index, Rows<V>& rows) noexcept {
  rows[0] = table[lane(index, 0)];
  if constexpr (lane_count < V >> 1) rows[1] = table[index[1]];
  if constexpr (lane_count < V >> 2) rows[2] = table[index[2]], rows[3] = table[index[3]];
  if constexpr (lane_count < V >> 4) {
    rows[4] = table[index[4]], rows[5] = table[index[5]];
    rows[6] = table[index[6]], rows[7] = table[index[7]];
  }
}

}  // namespace co2_properties

#endif
