// Logarithms of an array where the compiler may use AVX2.

#include "numbers/platform.hpp"

#include <cstddef>
#include <cstdint>
#include <type_traits>

#if defined(__x86_64__)
#define CO2_TARGET_AVX
#if defined(__clang__)
#pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#else
#pragma GCC target("avx2")
#endif
#endif

#include "numbers/logarithm.hpp"

namespace co2_properties::bench {

void logarithms_avx2(const double* x, std::size_t count, double* log) noexcept;
void logarithms_avx2(const double* const x, const std::size_t count, double* const log) noexcept {
  for (std::size_t k = 0; k < count; k += 4) {
    store(logarithm_of_normal(load<Lanes4>(x + k)), log + k);
  }
}

}  // namespace co2_properties::bench

#if defined(__x86_64__) && defined(__clang__)
#pragma clang attribute pop
#endif
