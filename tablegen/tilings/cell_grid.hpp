#pragma once
// From a list of rectangles to the arrays behind a Tiling.

#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

#include "cells/axis.hpp"

namespace co2_properties::tablegen {

inline constexpr double open_side = std::numeric_limits<double>::infinity();

/// x_lo <= x < x_hi, y_lo <= y < y_hi; -open_side and open_side mark sides without a limit.
struct Box {
  double x_lo, x_hi;
  double y_lo, y_hi;
};

/// A rectangle of a tiling and what the map says inside it.
struct Rectangle {
  Box box;
  std::uint16_t value;
};

/// The arrays of a Tiling, same layout: `cell[i * (y.size() + 1) + j]`.
struct CellGrid {
  std::vector<double> x;
  std::vector<double> y;
  std::vector<std::uint16_t> cell;

  /// Extent of interval i of x and j of y.
  [[nodiscard]] Box interval(std::size_t i, std::size_t j) const;
};

/// Value for an interval of the product grid that no rectangle covers.
using Filler = std::function<std::uint16_t(const Box& interval)>;

/// Lays the rectangles on the product grid of all their finite sides.
/// \param fill  asked for each interval that no rectangle covers; empty: that is an error
/// \throws std::invalid_argument if two rectangles overlap, one is empty, or an interval stays
/// without a value; the text names the place
[[nodiscard]] CellGrid make_grid(const std::vector<Rectangle>& rectangles,
                                 const Filler& fill = nullptr);

}  // namespace co2_properties::tablegen
