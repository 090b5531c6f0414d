#include "cells/axis.hpp"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "eos/element_locator.hpp"
#include "fits/patch.hpp"
#include "solvers/inverse_cell.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/plain_search.hpp"

namespace co2_properties {
namespace {

using test::infinity;
using test::next_below;
using test::not_a_number;

constexpr auto edges_of(const auto& edge) {
  std::array<double, 40> edges{};
  for (int k = 0; k < 40; ++k) edges[static_cast<std::size_t>(k)] = edge(k);
  return edges;
}

constexpr auto even = edges_of([](const int k) { return -3.0 + 0.7 * k + 0.01 * k * k; });
constexpr auto crowd = edges_of([](const int k) { return 304.1282 + 1e-3 * k * k * k; });
constexpr auto both_signs = edges_of([](const int k) { return (k - 20) * (k < 20 ? 1.0 : 1e-2); });
constexpr std::array neighbours = {1.0, 1.0 + 0x1p-52, 2.0};

using TestAxis = Axis<512, 4>;
constexpr TestAxis axes[] = {{even.data(), 0, 1},        {even.data(), 1, 1},
                             {even.data(), 2, 1},        {even.data(), 7, 1},
                             {even.data(), 40, 3},       {crowd.data(), 40, 7},
                             {both_signs.data(), 40, 1}, {neighbours.data(), 3, 1}};

TEST(Axis, CountsTheEdgesNotAboveTheValue) {
  const struct {
    const double* edges;
    std::int32_t count;
    std::int64_t stride;
    const char* why;
  } cases[] = {{even.data(), 0, 1, "no edge"},
               {even.data(), 1, 1, "one edge"},
               {even.data(), 2, 1, "two edges"},
               {even.data(), 7, 1, "few edges"},
               {even.data(), 40, 3, "nearly even"},
               {crowd.data(), 40, 7, "edges that crowd at one end"},
               {both_signs.data(), 40, 1, "edges of both signs, zero among them"},
               {neighbours.data(), 3, 1, "neighbouring numbers"}};
  for (std::size_t a = 0; a < std::size(cases); ++a) {
    const auto& c = cases[a];
    for (const double value : test::probes(c.edges, c.count)) {
      const auto expected = c.stride * test::plain_interval(c.edges, c.count, value);
      EXPECT_EQ(axes[a].interval(value), expected) << c.why << ": " << value;
      EXPECT_EQ(axes[a].interval(Lanes4{0.0, value, 1.0, 2.0})[1], expected)
          << c.why << ": " << value;
    }
  }
}

// Every number but NaN has its bin, and no higher number has a lower one.
template <class Bins>
void expect_ascending(const Bins& bins) {
  std::int64_t last = 0;
  EXPECT_EQ(bins.find(-infinity), 0);
  for (double value = -1e6; value < 1e6; value += 0.37) {
    const std::int64_t bin = bins.find(value);
    ASSERT_TRUE(bin >= last && bin < Bins::count) << value;
    last = bin;
  }
  for (const double value : {1e6, infinity, not_a_number, -not_a_number}) {
    EXPECT_EQ(bins.find(value), Bins::count - 1) << value;
    EXPECT_EQ(bins.find(Lanes4{0.0, 1.0, value, 2.0})[2], Bins::count - 1) << value;
  }
}

TEST(Bins, NeverDescend) {
  expect_ascending(temp_bins);
  expect_ascending(DistanceBins<512, 4>::around(-7.0, 1e5));
  expect_ascending(EqualBins<512>{0.0, 0.4});
}

// Two columns of the tiling differ in their rows, so that exchanged axes or a wrong stride show:
//        x < 1   1 <= x < 2   2 <= x
// 8 <= y   4         4           6
// 5 <= y   8         9           9
// y < 5    7         7           3
TEST(CellMap, FindsTheCellOfBothIntervals) {
  static constexpr std::array<double, 2> x_edges = {1.0, 2.0};
  static constexpr std::array<double, 2> y_edges = {5.0, 8.0};
  static constexpr std::array<std::uint16_t, 9> cells = {7, 8, 4, 7, 9, 4, 3, 9, 6};
  static constexpr CellMap<9, Axis<64, 3>, Axis<128, 3>> map(
      {x_edges.data(), 2, y_edges.data(), 2, cells.data()});
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
  for (const Case& c : cases) EXPECT_EQ(map.find(c.x, c.y), c.cell) << c.why;
}

/// On all edges of a tiling and around them, one by one and in lanes.
/// \param in_lanes  (x, y, to) for lanes
template <class One, class InLanes>
void expect_plain(const char* name, const Tiling& t, const One& one, const InLanes& in_lanes) {
  const std::vector<double> ys = test::probes(t.y_edges, t.y_count);
  for (const double x : test::probes(t.x_edges, t.x_count)) {
    for (std::size_t j = 0; j < ys.size(); j += lane_count<Lanes4>) {
      std::int32_t found[lane_count<Lanes4>];
      in_lanes(broadcast<Lanes4>(x), load<Lanes4>(&ys[j]), found);
      for (std::size_t k = 0; k < lane_count<Lanes4>; ++k) {
        const double y = ys[j + k];
        ASSERT_EQ(one(x, y), test::plain_cell(t, x, y)) << name << ' ' << x << ' ' << y;
        ASSERT_EQ(found[k], test::plain_cell(t, x, y)) << name << ' ' << x << ' ' << y;
      }
    }
  }
}

TEST(CellMap, AllTablesAreThoseOfTheirTilings) {
  const auto check = [](const char* name, const auto& map, const Tiling& tiling) {
    expect_plain(
        name, tiling, [&](const double x, const double y) { return map.find(x, y); },
        [&](const Lanes4& x, const Lanes4& y, std::int32_t* to) { map.find(x, y, to); });
  };
  check("viscosity", *viscosity_fit.map, viscosity_tiling);
  check("conductivity", *conductivity_fit.map, conductivity_tiling);
  check("cp", *cp_fit.map, cp_tiling);
  check("cv", *cv_fit.map, cv_tiling);
  check("sound_speed", *sound_speed_fit.map, sound_speed_tiling);

  // Start values of temperature and of density share a map.
  const auto check_start = [](const char* name, const StartFit& fit,
                              std::uint16_t StartCells::*const cell, const Tiling& tiling) {
    expect_plain(
        name, tiling,
        [&](const double x, const double y) { return fit.pairs[fit.map->find(x, y)].*cell; },
        [&](const Lanes4& x, const Lanes4& y, std::int32_t* to) {
          fit.map->find(x, y, to);
          for (std::int32_t k = 0; k < 4; ++k) to[k] = fit.pairs[to[k]].*cell;
        });
  };
  check_start("temp_from_hp", start_from_hp_fit, &StartCells::temp, temp_from_hp_tiling);
  check_start("dens_from_hp", start_from_hp_fit, &StartCells::dens, dens_from_hp_tiling);
  check_start("temp_from_sp", start_from_sp_fit, &StartCells::temp, temp_from_sp_tiling);
  check_start("dens_from_sp", start_from_sp_fit, &StartCells::dens, dens_from_sp_tiling);
}

TEST(ElementLocator, AllRegionsAreThoseOfTheirTilings) {
  const auto check = [](const char* name, const Region region, const Tiling& tiling) {
    const auto number = static_cast<std::int64_t>(region);
    expect_plain(
        name, tiling,
        [&](const double x, const double y) { return element_locator.find(region, x, y); },
        [&](const Lanes4& x, const Lanes4& y, std::int32_t* to) {
          element_locator.find<Lanes4>(Ints<Lanes4>{} + number, temp_bins.find(x), x, y, to);
        });
  };
  check("supercritical", Region::supercritical, supercritical_tiling);
  check("vapour", Region::vapour, vapour_tiling);
  check("liquid", Region::liquid, liquid_tiling);
}

}  // namespace
}  // namespace co2_properties
