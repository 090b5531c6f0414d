#include "cells/cell_map.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

#include "tests/support/bits.hpp"

namespace co2_properties {
namespace {

using test::infinity;
using test::next_above;
using test::next_below;
using test::not_a_number;

/// The definition: how many edges the value is not below.
std::int32_t count_edges(const std::vector<double>& edges, const double value) {
  return static_cast<std::int32_t>(std::count_if(
      edges.begin(), edges.end(), [value](const double edge) { return !(value < edge); }));
}

/// All around the edges of an axis.
void check_axis(const std::vector<double>& edges, const char* why) {
  const Axis axis(edges.data(), static_cast<std::int32_t>(edges.size()));
  std::vector<double> probes = {0.0,      -0.0,      5e-324,       1e300,        -1e300,
                                infinity, -infinity, not_a_number, -not_a_number};
  for (const double edge : edges) {
    probes.insert(probes.end(), {edge, next_below(edge), next_above(edge), edge + 0.3, edge - 9.0});
  }
  for (std::size_t k = 1; k < edges.size(); ++k) probes.push_back(0.5 * (edges[k - 1] + edges[k]));
  for (const double value : probes) {
    EXPECT_EQ(interval(axis, value), count_edges(edges, value))
        << why << ": value " << value << " among " << edges.size() << " edges";
  }
}

TEST(CellMap, IntervalCountsTheEdgesNotAboveTheValue) {
  for (std::int32_t count = 0; count <= 40; ++count) {
    std::vector<double> edges;
    for (std::int32_t k = 0; k < count; ++k) edges.push_back(-3.0 + 0.7 * k + 0.01 * k * k);
    check_axis(edges, "nearly even");
  }
  std::vector<double> crowd;
  std::vector<double> two_crowds;
  for (int k = 0; k < 40; ++k) {
    crowd.push_back(304.1282 + 1e-3 * k * k * k);
    two_crowds.push_back(k < 20 ? -1e3 + 1e-9 * k : 1e3 + 1e-9 * k);
  }
  check_axis(crowd, "edges that crowd at one end");
  check_axis(two_crowds, "many edges in one bin of the index");
  std::vector<double> many;
  for (int k = 0; k < 700; ++k) many.push_back(0.5 * k);
  check_axis(many, "more edges than the index counts");
  check_axis({1.0, next_above(1.0), 2.0}, "neighbouring numbers");
}

// Two columns of the tiling differ in their rows, so that exchanged axes or a wrong stride show:
//        x < 1   1 <= x < 2   2 <= x
// 8 <= y   4         4           6
// 5 <= y   8         9           9
// y < 5    7         7           3
TEST(CellMap, FindsTheCellOfBothIntervals) {
  constexpr std::array<double, 2> x_edges = {1.0, 2.0};
  constexpr std::array<double, 2> y_edges = {5.0, 8.0};
  constexpr std::array<std::uint16_t, 9> cells = {7, 8, 4, 7, 9, 4, 3, 9, 6};
  const CellMap map = {{x_edges.data(), 2}, {y_edges.data(), 2}, cells.data()};
  struct Case {
    double x, y;
    std::int32_t cell;
    const char* why;
  };
  const Case cases[] = {
      {-infinity, 0.0, 7, "unbounded below"},
      {0.0, 5.0, 8, "an edge belongs to the cell above it"},
      {next_below(1.0), next_below(5.0), 7, "closest below both edges"},
      {1.0, 0.0, 7, "same cell as its neighbour"},
      {1.5, 7.0, 9, "middle column"},
      {2.0, -infinity, 3, "last column"},
      {infinity, infinity, 6, "unbounded above"},
      {not_a_number, 0.0, 3, "NaN lies above every edge of x"},
      {0.0, not_a_number, 4, "NaN lies above every edge of y"},
      {not_a_number, not_a_number, 6, "both"},
  };
  for (const Case& c : cases) EXPECT_EQ(find_cell(map, c.x, c.y), c.cell) << c.why;
}

}  // namespace
}  // namespace co2_properties
