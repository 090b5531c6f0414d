#pragma once
// Everything that there is for lanes, done to some numbers: for sources that are compiled for
// different instruction sets, after which one of them includes this.

#include <cstddef>

#include "numbers/elementary.hpp"
#include "numbers/lanes.hpp"
#include "numbers/logarithm.hpp"

namespace co2_properties::test {

inline constexpr std::size_t lane_results = 13;

/// \param x      positive and normal; a multiple of eight of them
/// \param table  sixty-four rows
/// \param out    of result r and number k: out[r * count + k]; the last result is 1 if all is well
using LaneFunction = void (*)(const double* x, const double (*table)[4], std::size_t count,
                              double* out);

namespace {

template <class V>
void compute_lanes(const double* const x, const double (*const table)[4], const std::size_t count,
                   double* const out) {
  constexpr int n = lane_count<V>;
  for (std::size_t k = 0; k < count; k += n) {
    const V v = load<V>(x + k);
    double* to = out + k;
    const auto put = [&](const V& result) {
      store(result, to);
      to += count;
    };
    put(logarithm_of_normal(v));
    put(cube_root(v));
    put(cosine_of_third(V(1.0 - 2.0 / (1.0 + v))));
    put(root(v));
    put(root(V(-v)));
    put(absolute(V(1.0 - v)));
    put(select(v < 1.0, V(v * 3.0), V(1.0 / v)));
    put(from_bits<V>(bits_of(v) ^ bits_of(broadcast<V>(-0.0))));
    Rows<V> rows;
    find_rows<V>(table, (bits_of(v) >> 20U) & 63U, rows);
    const Four<V> row = load_four<V>(rows);
    put(row.first);
    put(row.second);
    put(row.third);
    put(row.fourth);
    const Mask<V> small = v < 1.0;
    int set = 0;
    for (int i = 0; i < n; ++i) set += lane(small, i) != 0 ? 1 : 0;
    put(broadcast<V>(any(small) == (set > 0) && all(small) == (set == n) ? 1.0 : 0.0));
  }
}

}  // namespace
}  // namespace co2_properties::test
