// Batch entries with four lanes: AVX2, without its fused operations.

#include "numbers/platform.hpp"

#include "api/batch/levels.hpp"

#if defined(__x86_64__) && defined(__GNUC__)

#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>

#include "api/co2_properties.hpp"

// From here on only: inline functions of the headers above, of which the linker keeps any copy,
// have to run on every machine.
#define CO2_TARGET_AVX
#if defined(__clang__)
#pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#else
#pragma GCC target("avx2")
#endif

#include "numbers/lanes.hpp"

namespace co2_properties {
namespace {

using V = Lanes4;

}  // namespace
}  // namespace co2_properties

#include "api/batch/blocks.hpp"

#if defined(__clang__)
#pragma clang attribute pop
#endif

namespace co2_properties {

constexpr const BatchEntries* avx2_lanes = &block_entries;

}  // namespace co2_properties

#else

namespace co2_properties {

constexpr const BatchEntries* avx2_lanes = nullptr;

}  // namespace co2_properties

#endif
