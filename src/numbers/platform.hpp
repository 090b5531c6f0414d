#pragma once
// What the library takes for granted about compiler and processor. The first include of every
// source below src/, so that it reaches all functions.

#include <cfloat>
#include <limits>

// The order of floating-point operations is part of the results, and comparisons see NaN.
#if defined(__FAST_MATH__) || defined(__ASSOCIATIVE_MATH__) || defined(__RECIPROCAL_MATH__) || \
    defined(__NO_SIGNED_ZEROS__) || (defined(__FINITE_MATH_ONLY__) && __FINITE_MATH_ONLY__ > 0)
#error \
    "co2_properties needs IEEE arithmetic in the stated order: compile without -ffast-math and its parts"
#endif
#if FLT_EVAL_METHOD < 0 || FLT_EVAL_METHOD == 2
#error \
    "co2_properties needs double evaluated as double: on 32-bit x86 compile with -msse2 -mfpmath=sse"
#endif
static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<double>::digits == 53);

// A fused multiplication and addition rounds once where the tables were made with two roundings:
// near the critical point it would move results visibly, and vectors away from single states.
// Whatever the flags of the compiler, there are none; but clang's -ffp-contract=fast overrules it.
// The vectorizer of g++ does not ask: where it finds differences and sums of products side by side,
// it makes vfmaddsub (x86) or fcmla (ARM) of them. It stays where the processor has none of these.
//
// g++ 12 notes which memory a function writes (-fipa-modref), but takes an address that its loop
// optimizer split into 0 and an index for a null pointer, and what follows for unreachable: callers
// then keep old values of what was written there. In batches on ARM, states beyond the range came
// out as valid.
#if defined(__clang__)
#pragma clang fp contract(off)
#elif defined(__SSE2__) && !defined(__FMA__) && !defined(__FMA4__) && !defined(__AVX512F__)
#pragma GCC optimize("fp-contract=off", "no-ipa-modref")
#elif defined(__GNUC__)
#pragma GCC optimize("fp-contract=off", "no-ipa-modref", "no-tree-vectorize")
#else
#pragma STDC FP_CONTRACT OFF
#endif

// For lambdas, which take no other attribute where every compiler reads it: inlined even without
// optimization.
#if defined(__GNUC__)
#define CO2_INLINE __attribute__((always_inline))
#else
#define CO2_INLINE
#endif

namespace co2_properties {

/// The same bytes as another type: std::bit_cast, which some C++20 libraries lack. Every compiler
/// that has C++20 has the built-in function.
template <class To, class From>
[[nodiscard]] constexpr To bit_cast(const From& from) noexcept {
  static_assert(sizeof(To) == sizeof(From));
  return __builtin_bit_cast(To, from);
}

}  // namespace co2_properties
