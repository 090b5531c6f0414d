#pragma once
// Cells of a tiling of the plane by rectangles: the one look-up of the library.

#include <cstdint>

#ifdef __FAST_MATH__
#error \
    "co2_properties relies on IEEE comparisons and on the stated order of operations: no -ffast-math"
#endif

namespace co2_properties {

/// The break points of one axis, ascending. `count` may be 0: then there is a single interval.
struct Axis {
  const double* edges;
  std::int32_t count;
};

/// Number of edges that do not lie above `value`, 0..count. A value on an edge lies above it, and a
/// NaN, which is below nothing, lies above all of them: the result is in range for any input bits.
[[nodiscard]] inline std::int32_t interval(const Axis& axis, const double value) noexcept {
  const double* first = axis.edges;
  std::int32_t length = axis.count;
  while (length > 0) {
    const std::int32_t half = (length + 1) / 2;
    // Written as a product, not as a branch: which side a state falls on is not predictable.
    first += static_cast<std::int32_t>(!(value < first[half - 1])) * half;
    length -= half;
  }
  return static_cast<std::int32_t>(first - axis.edges);
}

/// A tiling of the whole plane, laid on the product grid of all its break points: the intervals are
/// closed below and open above, the outermost ones unbounded. `cell[i * (y.count + 1) + j]` is the
/// cell that holds interval i of x and interval j of y; its meaning belongs to the caller.
struct CellMap {
  Axis x;
  Axis y;
  const std::uint16_t* cell;
};

[[nodiscard]] inline std::int32_t find_cell(const CellMap& map, const double x,
                                            const double y) noexcept {
  return map.cell[interval(map.x, x) * (map.y.count + 1) + interval(map.y, y)];
}

}  // namespace co2_properties
