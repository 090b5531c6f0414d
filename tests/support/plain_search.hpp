#pragma once
// The definition of a look-up, without an index.

#include <algorithm>
#include <cstdint>
#include <vector>

#include "cells/axis.hpp"
#include "tests/support/bits.hpp"

namespace co2_properties::test {

/// How many edges the value is not below.
inline std::int32_t plain_interval(const double* const edges, const std::int32_t count,
                                   const double value) {
  return static_cast<std::int32_t>(
      std::count_if(edges, edges + count, [value](const double e) { return !(value < e); }));
}

inline std::int32_t plain_cell(const Tiling& t, const double x, const double y) {
  return t.cells[plain_interval(t.x_edges, t.x_count, x) * (t.y_count + 1) +
                 plain_interval(t.y_edges, t.y_count, y)];
}

/// All around the edges of an axis; as many as fill lanes.
inline std::vector<double> probes(const double* const edges, const std::int32_t count) {
  std::vector<double> all = {0.0,      -0.0,      5e-324,       -5e-324,       1e300,
                             infinity, -infinity, not_a_number, -not_a_number, -1e300};
  for (std::int32_t k = 0; k < count; ++k) {
    all.insert(all.end(), {edges[k], next_below(edges[k]), next_above(edges[k]), edges[k] + 0.3});
    if (k > 0) all.push_back(0.5 * (edges[k - 1] + edges[k]));
  }
  while (all.size() % lane_count<Lanes4> != 0) all.push_back(1.0);
  return all;
}

}  // namespace co2_properties::test
