#pragma once
// Cells of a tiling of the plane by rectangles: the one look-up of the library.

#include "numbers/platform.hpp"

#include <cstdint>

namespace co2_properties {

/// Bins of a line that grow with the distance from a centre: break points crowd around some value,
/// those of temperature around the critical one. The bin of a value comes from the leading bits of
/// its distance and never decreases with the value, so that whatever falls into lower bins lies
/// below it and whatever falls into higher bins above.
template <std::int32_t count, std::int32_t per_doubling_bits>
class Bins {
 public:
  constexpr Bins() noexcept = default;
  /// \param reach  distance from the centre beyond which everything falls into the end bins
  constexpr Bins(const double center, const double reach) noexcept
      : center_(center), reach_(reach), nearest_(leading_bits(reach) - (count / 2 - 1)) {}

  /// 0..count - 1 for any bits; a NaN, which is below nothing, falls into the last bin.
  [[nodiscard]] constexpr std::int32_t operator()(const double value) const noexcept {
    const double offset = value - center_;
    // In this form a NaN becomes the largest offset.
    const double below = offset < reach_ ? offset : reach_;
    const double clamped = below > -reach_ ? below : -reach_;
    const std::int32_t distance = leading_bits(clamped) - nearest_;
    const auto sign = static_cast<std::int32_t>(bit_cast<std::int64_t>(clamped) >> 63);
    return count / 2 + ((distance > 0 ? distance : 0) ^ sign);
  }

 private:
  /// Exponent and `per_doubling_bits` of the mantissa of the magnitude.
  [[nodiscard]] static constexpr std::int32_t leading_bits(const double value) noexcept {
    constexpr std::int64_t magnitude = 0x7fffffffffffffff;
    return static_cast<std::int32_t>((bit_cast<std::int64_t>(value) & magnitude) >>
                                     (52 - per_doubling_bits));
  }

  double center_ = 0.0;
  double reach_ = 0.0;
  std::int32_t nearest_ = 0;  ///< leading bits of the distances in the two bins at the centre
};

/// How many break points a look-up in an index compares, and the mark of a bin that holds more.
inline constexpr std::int32_t compared = 2;
inline constexpr std::uint8_t crowded = 255;

/// What an index stores for a bin: how many of `count` break points surely lie below its values, so
/// that the next `compared` ones decide.
/// \param below   break points that surely lie below the bin
/// \param inside  further ones that do not surely lie above it
[[nodiscard]] constexpr std::uint8_t bin_start(const std::int32_t count, const std::int32_t below,
                                               const std::int32_t inside) noexcept {
  const std::int32_t last_start = count - compared;
  if (inside > compared || last_start < 0 || last_start >= crowded) return crowded;
  return static_cast<std::uint8_t>(below < last_start ? below : last_start);
}

/// Number of break points that `reaches`, which is true up to some index and false from there.
template <class Reaches>
[[nodiscard]] constexpr std::int32_t search(const std::int32_t count,
                                            const Reaches& reaches) noexcept {
  std::int32_t first = 0;
  for (std::int32_t length = count; length > 0;) {
    const std::int32_t half = (length + 1) / 2;
    // Written as a product, not as a branch: which side a state falls on is not predictable.
    first += static_cast<std::int32_t>(reaches(first + half - 1)) * half;
    length -= half;
  }
  return first;
}

/// The same, of which an index knows the `start`.
template <class Reaches>
[[nodiscard]] constexpr std::int32_t search_from(const std::uint8_t start, const std::int32_t count,
                                                 const Reaches& reaches) noexcept {
  if (start == crowded) [[unlikely]]
    return search(count, reaches);
  return start + static_cast<std::int32_t>(reaches(start)) +
         static_cast<std::int32_t>(reaches(start + 1));
}

/// The break points of one axis, ascending, with an index. `count` may be 0: then there is a single
/// interval.
struct Axis {
  const double* edges;
  std::int32_t count;

  constexpr Axis(const double* first_edge, std::int32_t edge_count) noexcept;

  /// Number of edges that do not lie above `value`, 0..count. A value on an edge lies above it, and
  /// a NaN, which is below nothing, lies above all of them: the result is in range for any bits.
  [[nodiscard]] friend constexpr std::int32_t interval(const Axis& axis,
                                                       const double value) noexcept {
    return search_from(axis.start_[axis.bins_(value)], axis.count,
                       [&](const std::int32_t k) { return !(value < axis.edges[k]); });
  }

 private:
  static constexpr std::int32_t bin_count = 256;
  Bins<bin_count, 3> bins_;
  std::uint8_t start_[bin_count] = {};
};

constexpr Axis::Axis(const double* const first_edge, const std::int32_t edge_count) noexcept
    : edges(first_edge), count(edge_count) {
  if (count > 0) {
    double center = edges[0];  // then the middle of the narrowest interval
    double narrowest = 0.0;
    for (std::int32_t k = 1; k < count; ++k) {
      const double width = edges[k] - edges[k - 1];
      if (k > 1 && !(width < narrowest)) continue;
      narrowest = width;
      center = edges[k - 1] + 0.5 * width;
    }
    const double down = center - edges[0];
    const double up = edges[count - 1] - center;
    bins_ = {center, up > down ? up : down};
  }
  std::int32_t below = 0;
  for (std::int32_t b = 0; b < bin_count; ++b) {
    std::int32_t inside = 0;
    while (below + inside < count && bins_(edges[below + inside]) == b) ++inside;
    start_[b] = bin_start(count, below, inside);
    below += inside;
  }
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
