#pragma once
// The random states of the report.

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "accuracy_report/errors.hpp"

namespace co2_properties::accuracy {

/// States close to saturation that the library and the reference assign to different phases, in one
/// range of temperature.
struct PhaseDifference {
  double temp_end;                    ///< K; the range starts where the one before ends
  std::size_t tried = 0;              ///< states within 10 % of a saturated density
  std::size_t only_in_library = 0;    ///< single phase in the library, two phases in the reference
  std::size_t only_in_reference = 0;  ///< the reverse
  double farthest = 0.0;              ///< largest distance to the saturated density, relative
};

struct Sample {
  std::vector<StateErrors> states;  ///< single-phase states, as the library decides
  std::array<PhaseDifference, 4> phase_differences;
};

/// Draws `count` single-phase states; the result depends on `count` and `seed` only. Of 20 states
///   4 are uniform in temperature and density over the domain,
///   4 log-uniform in temperature and pressure,
///   3 close to saturation, on both sides of both branches, the distance log-uniform from 1e-7 to
///     1e-1, a third of them closing in on the critical temperature,
///   4 uniform inside a random cell of a random table, so that the smallest cell gets its share,
///   5 in the critical box, two of them closing in on the critical point.
[[nodiscard]] Sample draw_sample(std::size_t count, std::uint64_t seed, unsigned threads);

}  // namespace co2_properties::accuracy
