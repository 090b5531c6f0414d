#pragma once
// The break points of one axis of a tiling, and the interval that holds a value; for one value or
// for several in lanes.

#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "numbers/lanes.hpp"

namespace co2_properties {

/// Signed integers of 64 bits, as many as V has doubles.
template <class V>
using Ints = std::conditional_t<std::is_same_v<V, double>, std::int64_t, Mask<V>>;

/// -1 where the mask is set, else 0.
template <class V>
[[nodiscard, gnu::always_inline]] constexpr Ints<V> minus_one(const Mask<V>& mask) noexcept {
  if constexpr (std::is_same_v<V, double>) {
    return -static_cast<std::int64_t>(mask);
  } else {
    return mask;
  }
}

/// Bins of a line that grow with the distance from a centre: break points crowd around some value,
/// those of temperature around the critical one. The bin of a value comes from the leading bits of
/// its distance and never decreases with the value, so that whatever falls into lower bins lies
/// below it and whatever falls into higher bins above.
template <std::int32_t bin_count, std::int32_t doubling_bits>
struct DistanceBins {
  static constexpr std::int32_t count = bin_count;
  static constexpr std::int32_t dropped = 52 - doubling_bits;

  double center;
  std::int64_t nearest;  ///< leading bits of the distances in the two bins at the centre

  /// \param reach  distance from the centre beyond which all falls into the end bins
  [[nodiscard]] static constexpr DistanceBins around(const double center,
                                                     const double reach) noexcept {
    const auto farthest = __builtin_bit_cast(std::int64_t, reach) >> dropped;
    return {center, farthest - (bin_count / 2 - 1)};
  }

  /// 0..count - 1 for any bits; a NaN, which is below nothing, falls into the last bin.
  template <class V>
  [[nodiscard, gnu::always_inline]] constexpr Ints<V> find(const V& value) const noexcept {
    const V offset = value - center;
    const Bits<V> magnitude = __builtin_bit_cast(Bits<V>, offset) & 0x7fffffffffffffffU;
    const auto distance = __builtin_bit_cast(Ints<V>, magnitude >> dropped) - nearest;
    constexpr std::int64_t most = bin_count / 2 - 1;
    // The bits of a NaN make the largest distance.
    const auto near = distance & minus_one<V>(distance > 0);
    const auto steps = near < most ? near : Ints<V>{} + most;
    return bin_count / 2 + (steps ^ minus_one<V>(offset < 0.0));
  }
};

/// Bins of equal width from `low` on.
template <std::int32_t bin_count>
struct EqualBins {
  static constexpr std::int32_t count = bin_count;

  double low;
  double per_unit;  ///< bins

  template <class V>
  [[nodiscard, gnu::always_inline]] constexpr Ints<V> find(const V& value) const noexcept {
    constexpr double last = bin_count - 1;
    constexpr double integers = 0x1p52;  // from here on doubles are whole numbers, low bits first
    const V at = (value - low) * per_unit;
    const V below = at < last ? at : broadcast<V>(last);
    const V clamped = below > 0.0 ? below : broadcast<V>(0.0);
    return __builtin_bit_cast(Ints<V>, clamped + integers) & 0xfffffffffffff;
  }
};

/// A place between two nodes.
template <class V>
struct NodePlace {
  Ints<V> lower;
  V share;  ///< of the upper one, 0 to 1
};

/// \param place  counted from node 0; outside the nodes the next ones serve
/// \param last   the last place, below the last node if that has an even number
template <class V>
[[nodiscard, gnu::always_inline]] inline NodePlace<V> place_between(const V& place,
                                                                    const double last) noexcept {
  constexpr double integers = 0x1p52;  // from here on doubles are whole numbers, low bits first
  const V below = select<V>(place < last, place, broadcast<V>(last));
  const V inside = select<V>(below > 0.0, below, broadcast<V>(0.0));
  const V shifted = inside - 0.5;
  const V whole = select<V>(shifted > 0.0, shifted, broadcast<V>(0.0)) + integers;
  return {__builtin_bit_cast(Ints<V>, whole) & 0xfffffffffffff, inside - (whole - integers)};
}

/// Stops the compiler where a table is made that cannot be. Never defined.
void refuse_table(const char* why);

/// A bin of an index: up to `compared` break points within it, and the number of those below them.
template <std::int32_t compared>
struct alignas(8 * (compared + 1)) BinRow {
  static_assert(compared == 1 || compared == 3, "rows are loaded two or four numbers at a time");
  double edges[compared];  ///< unused ones first: they lie below everything, NaN too
  std::int64_t below;      ///< times the stride of the axis in its grid

  /// \param first, count  the break points within the bin, ascending
  /// \param before        number of break points below
  consteval void set(const double* const first, const std::int32_t count, const std::int32_t before,
                     const std::int64_t stride) {
    const std::int32_t unused = compared - count;
    if (unused < 0) refuse_table("more break points in a bin than a row holds");
    for (std::int32_t k = 0; k < compared; ++k) {
      edges[k] = k < unused ? -std::numeric_limits<double>::infinity() : first[k - unused];
    }
    below = (before - unused) * stride;
  }
};

/// Fills the rows of an axis.
template <class AxisBins, std::int32_t compared>
consteval void fill_rows(BinRow<compared>* const rows, const AxisBins& bins,
                         const double* const edges, const std::int32_t count,
                         const std::int64_t stride) {
  std::int32_t below = 0;
  for (std::int32_t b = 0; b < AxisBins::count; ++b) {
    std::int32_t inside = 0;
    while (below + inside < count && bins.find(edges[below + inside]) == b) ++inside;
    rows[b].set(edges + below, inside, below, stride);
    below += inside;
  }
}

/// Number of break points that do not lie above the values, times the stride. A value on a break
/// point lies above it, and a NaN above all of them.
/// \param bin  of each value
template <class V, std::int32_t compared>
[[nodiscard, gnu::always_inline]] constexpr Ints<V> interval_in(
    const BinRow<compared>* const rows, const Ints<V>& bin, const V& value,
    const std::int64_t stride) noexcept {
  if constexpr (std::is_same_v<V, double>) {
    const BinRow<compared>& row = rows[bin];
    std::int64_t count = row.below;
    for (const double edge : row.edges) count += value < edge ? 0 : stride;
    return count;
  } else {
    Rows<V> at;
    for_each_lane<V>([&](const int k) CO2_INLINE { at[k] = rows[bin[k]].edges; });
    if constexpr (compared == 1) {
      const Two<V> row = load_two<V>(at);
      return __builtin_bit_cast(Ints<V>, row.second) + (stride & ~(value < row.first));
    } else {
      const Four<V> row = load_four<V>(at);
      return __builtin_bit_cast(Ints<V>, row.fourth) + (stride & ~(value < row.first)) +
             (stride & ~(value < row.second)) + (stride & ~(value < row.third));
    }
  }
}

/// An axis with an index: a look-up compares three break points and never reads farther. It holds
/// no pointers, so that it can be copied to a device. As few bins as its break points allow: 32
/// bytes each, which a look-up has to find in some cache.
template <std::int32_t bin_count, std::int32_t doubling_bits>
class Axis {
 public:
  /// \param edges   break points, ascending; `count` of them, possibly none
  /// \param stride  of the axis in its grid
  consteval Axis(const double* edges, std::int32_t count, std::int64_t stride);

  /// Number of break points that do not lie above the value, times the stride: for any bits in
  /// range, and for NaN the last.
  template <class V>
  [[nodiscard, gnu::always_inline]] constexpr Ints<V> interval(const V& value) const noexcept {
    return interval_in<V, compared>(rows_, bins_.find(value), value, stride_);
  }

 private:
  static constexpr std::int32_t compared = 3;
  using AxisBins = DistanceBins<bin_count, doubling_bits>;

  AxisBins bins_;
  std::int64_t stride_;
  BinRow<compared> rows_[AxisBins::count] = {};
};

/// Bins around the middle of the interval with which the fullest bin holds least.
template <class AxisBins>
[[nodiscard]] constexpr AxisBins best_bins(const double* const edges,
                                           const std::int32_t count) noexcept {
  if (count < 2) return AxisBins::around(count == 0 ? 0.0 : edges[0], 1.0);
  AxisBins best{};
  std::int32_t least = count + 1;
  for (std::int32_t k = 1; k < count; ++k) {
    const double center = edges[k - 1] + 0.5 * (edges[k] - edges[k - 1]);
    const double down = center - edges[0];
    const double up = edges[count - 1] - center;
    const AxisBins bins = AxisBins::around(center, up > down ? up : down);
    std::int32_t most = 0;
    std::int32_t in_bin = 0;
    std::int64_t last = -1;
    for (std::int32_t j = 0; j < count; ++j) {
      const std::int64_t bin = bins.find(edges[j]);
      in_bin = bin == last ? in_bin + 1 : 1;
      last = bin;
      if (in_bin > most) most = in_bin;
    }
    if (most >= least) continue;
    least = most;
    best = bins;
  }
  return best;
}

template <std::int32_t bin_count, std::int32_t doubling_bits>
consteval Axis<bin_count, doubling_bits>::Axis(const double* const edges, const std::int32_t count,
                                               const std::int64_t stride)
    : bins_(best_bins<AxisBins>(edges, count)), stride_(stride) {
  fill_rows(rows_, bins_, edges, count, stride);
}

/// The break points of a tiling and, row by row, the cells of its grid: those of the first interval
/// of x, those of the second ...
struct Tiling {
  const double* x_edges;
  std::int32_t x_count;
  const double* y_edges;
  std::int32_t y_count;
  const std::uint16_t* cells;
};

/// A tiling of the whole plane, laid on the product grid of all its break points: the intervals are
/// closed below and open above, the outermost ones unbounded.
template <std::int32_t capacity, class XAxis, class YAxis>
class CellMap {
 public:
  consteval explicit CellMap(const Tiling& t)
      : x_(t.x_edges, t.x_count, t.y_count + 1), y_(t.y_edges, t.y_count, 1) {
    const std::int32_t count = (t.x_count + 1) * (t.y_count + 1);
    if (count > capacity) refuse_table("a tiling with too many cells");
    for (std::int32_t k = 0; k < count; ++k) cells_[k] = t.cells[k];
  }

  [[nodiscard, gnu::always_inline]] std::int32_t find(const double x,
                                                      const double y) const noexcept {
    return cells_[x_.interval(x) + y_.interval(y)];
  }

  /// The same for lanes.
  /// \param to  receives one cell per lane
  template <class V>
  [[gnu::always_inline]] void find(const V& x, const V& y, std::int32_t* const to) const noexcept {
    const Ints<V> at = x_.interval(x) + y_.interval(y);
    for_each_lane<V>([&](const int k) CO2_INLINE { to[k] = cells_[lane(at, k)]; });
  }

 private:
  XAxis x_;
  YAxis y_;
  std::uint16_t cells_[capacity] = {};
};

}  // namespace co2_properties
