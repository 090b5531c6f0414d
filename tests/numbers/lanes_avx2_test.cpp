// Lanes where the compiler may use AVX2: what lanes_test.cpp compares with double.

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

#include "tests/numbers/lane_results.hpp"

namespace co2_properties::test {

extern const LaneFunction lanes_avx2[];
const LaneFunction lanes_avx2[] = {compute_lanes<Lanes2>, compute_lanes<Lanes4>,
                                   compute_lanes<Lanes8>};

}  // namespace co2_properties::test

#if defined(__x86_64__) && defined(__clang__)
#pragma clang attribute pop
#endif
