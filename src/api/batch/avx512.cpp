// Batch entries with eight lanes: AVX-512F.

#include "numbers/platform.hpp"

#include "api/batch/levels.hpp"

// Clang would not pass vectors through the templates that are shared with single states.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)

// No vector is passed to another file.
#pragma GCC diagnostic ignored "-Wpsabi"

#include <immintrin.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

#include "api/co2_properties.hpp"
#include "api/entries/places.hpp"
#include "api/entries/state_writer.hpp"
#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "eos/property_types.hpp"
#include "fits/near_critical.hpp"
#include "saturation/phase.hpp"
#include "solvers/relocate.hpp"
#include "solvers/solve_caloric.hpp"
#include "solvers/solve_density.hpp"

// From here on only: inline functions of the headers above, of which the linker keeps any copy,
// have to run on every machine.
#pragma GCC target("avx512f")

namespace co2_properties {
namespace {

constexpr std::size_t lane_count = 8;

inline __m512d lane_root(const __m512d x) { return _mm512_maskz_sqrt_pd(0xff, x); }

/// Two numbers from each of pair_of(0), pair_of(1), ...: the first ones and the second ones.
template <class PairOf>
inline void gather_pairs(const PairOf& pair_of, __m512d& firsts, __m512d& seconds) {
  const auto load_half = [&](const std::size_t k) {
    return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_load_pd(pair_of(k))),
                                _mm_load_pd(pair_of(k + 2)), 1);
  };
  const auto load = [&](const std::size_t k) {
    return _mm512_maskz_insertf64x4(0xff, _mm512_castpd256_pd512(load_half(k)), load_half(k + 4),
                                    1);
  };
  const __m512d even = load(0);
  const __m512d odd = load(1);
  firsts = _mm512_maskz_unpacklo_pd(0xff, even, odd);
  seconds = _mm512_maskz_unpackhi_pd(0xff, even, odd);
}

}  // namespace
}  // namespace co2_properties

#include "api/batch/lanes.hpp"

namespace co2_properties {

constexpr const BatchEntries* eight_lanes = &lane_entries;

}  // namespace co2_properties

#else

namespace co2_properties {

constexpr const BatchEntries* eight_lanes = nullptr;

}  // namespace co2_properties

#endif
