#pragma once
// Start values over two coordinates of any pair of inputs: local cubics on squares of many sizes,
// for one state or for several in lanes.

#include <cstdint>

#include "cells/axis.hpp"
#include "numbers/elementary.hpp"
#include "numbers/lanes.hpp"

namespace co2_properties {

/// The plane of a grid in 16 by 16 roots, each of them in up to 64 by 64 squares.
inline constexpr std::int32_t roots_bits = 4;
inline constexpr std::int32_t root_bits = 6;
inline constexpr std::int32_t root_count = 1 << roots_bits;  ///< along each axis
inline constexpr std::int32_t root_size = 1 << root_bits;    ///< smallest squares along each side
inline constexpr std::int32_t square_count = root_count * root_size;

/// A root in 2^bits by 2^bits squares, whose patches follow each other in rows of y.
struct StartRoot {
  std::uint16_t first;
  std::uint16_t bits;
};

/// Terms of a cubic in two variables: 1, x, y, x^2, xy, y^2, x^3, x^2 y, x y^2, y^3.
inline constexpr std::int32_t start_terms = 10;

/// Cubics of one or two start values, in single precision.
template <std::int32_t outputs>
struct alignas(16) StartPatch {
  static constexpr std::int32_t count = (2 + outputs * start_terms + 3) / 4 * 4;
  float numbers[count];  ///< origin in x and in y, terms of the first cubic, of the second
};

/// The start values of one pair of inputs. What lies beyond an end of an axis belongs to the last
/// square there.
template <std::int32_t outputs>
struct StartGrid {
  EqualBins<square_count> x, y;
  const StartRoot* roots;        ///< in rows of y
  const std::uint16_t* squares;  ///< their patches
  const StartPatch<outputs>* patches;

  /// Number of the patch of a square.
  [[nodiscard, gnu::always_inline]] std::int32_t patch_of(const std::int64_t column,
                                                          const std::int64_t row) const noexcept {
    constexpr std::int64_t within = root_size - 1;
    const StartRoot& root = roots[(row >> root_bits << roots_bits) + (column >> root_bits)];
    const std::int32_t finer = root_bits - root.bits;
    return squares[root.first + ((row & within) >> finer << root.bits) +
                   ((column & within) >> finer)];
  }
};

/// A cubic in offsets.
/// \param c  c(k): factor of term k
template <class V, class Factor>
[[nodiscard, gnu::always_inline]] inline V start_cubic(const V& x, const V& y,
                                                       const Factor& c) noexcept {
  const V in_x = ((c(6) * x + c(3)) * x + c(1)) * x;
  const V in_y = ((c(9) * y + c(8) * x + c(5)) * y + (c(7) * x + c(4)) * x + c(2)) * y;
  return (in_x + in_y) + c(0);
}

/// Numbers 4 g to 4 g + 3 of the patches.
template <class V, std::int32_t outputs>
[[nodiscard, gnu::always_inline]] inline Four<V> patch_four(
    const StartPatch<outputs>* const (&patches)[lane_count<V>], const int g) noexcept {
  Rows<V, float> rows;
  for_each_lane<V>([&](const int k) CO2_INLINE { rows[k] = patches[k]->numbers; });
  return load_four<V>(rows, 4 * g);
}

/// The patches of states.
template <class V, std::int32_t outputs>
[[gnu::always_inline]] inline void find_patches(
    const StartGrid<outputs>& grid, const V& x, const V& y,
    const StartPatch<outputs>* (&patches)[lane_count<V>]) noexcept {
  const Ints<V> column = grid.x.find(x);
  const Ints<V> row = grid.y.find(y);
  for_each_lane<V>([&](const int k) CO2_INLINE {
    patches[k] = &grid.patches[grid.patch_of(lane(column, k), lane(row, k))];
  });
}

/// Values of a grid: one, or two side by side.
template <class V>
struct StartPair {
  V first, second;
};
template <class V>
[[nodiscard, gnu::always_inline]] inline StartPair<V> start_values(const StartGrid<2>& grid,
                                                                   const V& x,
                                                                   const V& y) noexcept {
  const StartPatch<2>* patches[lane_count<V>];
  find_patches<V>(grid, x, y, patches);
  const Four<V> q0 = patch_four<V>(patches, 0);
  const Four<V> q1 = patch_four<V>(patches, 1);
  const Four<V> q2 = patch_four<V>(patches, 2);
  const Four<V> q3 = patch_four<V>(patches, 3);
  const Four<V> q4 = patch_four<V>(patches, 4);
  const Four<V> q5 = patch_four<V>(patches, 5);
  const V dx = x - q0.first;
  const V dy = y - q0.second;
  const V a[] = {q0.third,  q0.fourth, q1.first,  q1.second, q1.third,
                 q1.fourth, q2.first,  q2.second, q2.third,  q2.fourth};
  const V b[] = {q3.first,  q3.second, q3.third,  q3.fourth, q4.first,
                 q4.second, q4.third,  q4.fourth, q5.first,  q5.second};
  return {start_cubic<V>(dx, dy, [&](const int k) CO2_INLINE { return a[k]; }),
          start_cubic<V>(dx, dy, [&](const int k) CO2_INLINE { return b[k]; })};
}
template <class V>
[[nodiscard, gnu::always_inline]] inline V start_value(const StartGrid<1>& grid, const V& x,
                                                       const V& y) noexcept {
  const StartPatch<1>* patches[lane_count<V>];
  find_patches<V>(grid, x, y, patches);
  const Four<V> q0 = patch_four<V>(patches, 0);
  const Four<V> q1 = patch_four<V>(patches, 1);
  const Four<V> q2 = patch_four<V>(patches, 2);
  const V a[] = {q0.third,  q0.fourth, q1.first,  q1.second, q1.third,
                 q1.fourth, q2.first,  q2.second, q2.third,  q2.fourth};
  return start_cubic<V>(x - q0.first, y - q0.second, [&](const int k) CO2_INLINE { return a[k]; });
}

}  // namespace co2_properties
