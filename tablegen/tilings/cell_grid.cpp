#include "tablegen/tilings/cell_grid.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>
#include <string>

namespace co2_properties::tablegen {
namespace {

/// The shortest text that reads back as the value; "inf" and "-inf" for open sides.
std::string side(const double value) {
  std::array<char, 32> text{};
  return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

std::string to_string(const Box& box) {
  return "[" + side(box.x_lo) + ", " + side(box.x_hi) + ") x [" + side(box.y_lo) + ", " +
         side(box.y_hi) + ")";
}

std::vector<double> sorted_finite(std::vector<double> sides) {
  std::erase_if(sides, [](const double v) { return v == open_side || v == -open_side; });
  std::sort(sides.begin(), sides.end());
  sides.erase(std::unique(sides.begin(), sides.end()), sides.end());
  return sides;
}

/// Index of the first interval that starts at `lower`.
std::size_t first_interval(const std::vector<double>& edges, const double lower) {
  if (lower == -open_side) return 0;
  return static_cast<std::size_t>(std::lower_bound(edges.begin(), edges.end(), lower) -
                                  edges.begin()) +
         1;
}

/// One past the last interval that ends at `upper`.
std::size_t end_interval(const std::vector<double>& edges, const double upper) {
  if (upper == open_side) return edges.size() + 1;
  return static_cast<std::size_t>(std::lower_bound(edges.begin(), edges.end(), upper) -
                                  edges.begin()) +
         1;
}

double lower_side(const std::vector<double>& edges, const std::size_t k) {
  return k == 0 ? -open_side : edges[k - 1];
}

double upper_side(const std::vector<double>& edges, const std::size_t k) {
  return k == edges.size() ? open_side : edges[k];
}

}  // namespace

Box CellGrid::interval(const std::size_t i, const std::size_t j) const {
  return {lower_side(x, i), upper_side(x, i), lower_side(y, j), upper_side(y, j)};
}

CellGrid make_grid(const std::vector<Rectangle>& rectangles, const Filler& fill) {
  std::vector<double> x_sides;
  std::vector<double> y_sides;
  for (const auto& [box, value] : rectangles) {
    if (!(box.x_lo < box.x_hi && box.y_lo < box.y_hi)) {
      throw std::invalid_argument("empty rectangle " + to_string(box));
    }
    x_sides.insert(x_sides.end(), {box.x_lo, box.x_hi});
    y_sides.insert(y_sides.end(), {box.y_lo, box.y_hi});
  }
  CellGrid grid{sorted_finite(std::move(x_sides)), sorted_finite(std::move(y_sides)), {}};
  const std::size_t columns = grid.y.size() + 1;
  grid.cell.resize((grid.x.size() + 1) * columns);
  std::vector<char> covered(grid.cell.size(), 0);
  for (const auto& [box, value] : rectangles) {
    for (std::size_t i = first_interval(grid.x, box.x_lo); i < end_interval(grid.x, box.x_hi);
         ++i) {
      for (std::size_t j = first_interval(grid.y, box.y_lo); j < end_interval(grid.y, box.y_hi);
           ++j) {
        const std::size_t at = i * columns + j;
        if (covered[at] != 0) {
          throw std::invalid_argument("two rectangles cover " + to_string(grid.interval(i, j)));
        }
        covered[at] = 1;
        grid.cell[at] = value;
      }
    }
  }
  for (std::size_t at = 0; at < covered.size(); ++at) {
    if (covered[at] != 0) continue;
    const Box gap = grid.interval(at / columns, at % columns);
    if (!fill) throw std::invalid_argument("no rectangle covers " + to_string(gap));
    grid.cell[at] = fill(gap);
  }
  return grid;
}

}  // namespace co2_properties::tablegen
