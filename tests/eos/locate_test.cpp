#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

#include "eos/element.hpp"
#include "eos/locate_td.hpp"
#include "tests/support/bits.hpp"

namespace co2_properties {
namespace {

using test::infinity;
using test::next_above;
using test::next_below;
using test::not_a_number;

constexpr double critical_edge = 467.6000012817399;

struct Region {
  const char* name;
  std::int32_t (*locate)(const double&, const double&) noexcept;
  std::int32_t first, last;
};
constexpr Region regions[] = {{"vapour", vap_index_from_td, 1, 93},
                              {"liquid", liq_index_from_td, 94, 222},
                              {"supercritical", sc_index_from_td, 223, 649}};

// Edges that two elements share are sums of origin and width that may round apart.
constexpr double slack = 1e-9;

bool holds(const Element& cell, const double temp, const double dens) {
  return temp > cell.temp0 - slack && temp < cell.temp0 + cell.temp_width + slack &&
         dens > cell.dens0 - slack && dens < cell.dens0 + cell.dens_width + slack;
}

TEST(LocateTd, CornersBelongToTheirElement) {
  for (const Region& region : regions) {
    for (std::int32_t e = region.first; e <= region.last; ++e) {
      const Element& cell = element(e);
      const std::int32_t found = region.locate(cell.temp0, cell.dens0);
      if (cell.dens0 == critical_edge) {
        EXPECT_EQ(region.locate(cell.temp0, next_above(critical_edge)), e) << region.name;
        if (region.first != 94) {
          EXPECT_NEAR(element(found).dens0 + element(found).dens_width, critical_edge, slack)
              << region.name << ' ' << e
              << ": the stored critical edge belongs to the element below";
        }
      } else {
        EXPECT_EQ(found, e) << region.name;
      }
    }
  }
}

// Samples inside every element, and on both sides of its edges: the element found must hold them.
TEST(LocateTd, FindsTheElementThatHoldsTheState) {
  std::mt19937_64 engine(3);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (const Region& region : regions) {
    for (std::int32_t e = region.first; e <= region.last; ++e) {
      const Element& cell = element(e);
      for (int sample = 0; sample < 200; ++sample) {
        const double temp = cell.temp0 + (0.001 + 0.998 * unit(engine)) * cell.temp_width;
        const double dens = cell.dens0 + (0.001 + 0.998 * unit(engine)) * cell.dens_width;
        ASSERT_EQ(region.locate(temp, dens), e) << region.name << ' ' << temp << ' ' << dens;
      }
      const double temp = cell.temp0 + 0.5 * cell.temp_width;
      const double dens = cell.dens0 + 0.5 * cell.dens_width;
      EXPECT_EQ(region.locate(cell.temp0, dens), e) << "closed at the lower temperature";
      if (cell.dens0 != critical_edge) {
        EXPECT_EQ(region.locate(temp, cell.dens0), e) << "closed at the lower density";
      }
      // No gap to the element below: a step down leads to one that ends there, or the region ends.
      const double below = next_below(cell.dens0);
      const Element& neighbour = element(region.locate(temp, below));
      EXPECT_TRUE(holds(neighbour, temp, below) || &neighbour == &cell || region.first == 94)
          << region.name << ' ' << e;
    }
  }
}

TEST(LocateTd, KnownStates) {
  struct Case {
    std::size_t region;
    double temp, dens;
    std::int32_t e;
    const char* why;
  };
  const Case cases[] = {
      {0, 240.0, 0.0035287466, 1, "first element"},
      {0, 240.0, 15.0, 2, "an edge belongs to the element above"},
      {0, 240.0, 0.001, 1, "density clamped from below"},
      {0, 240.0, 1300.0, 3, "density clamped from above"},
      {0, 300.0, 0.001, 19, "density clamped from below"},
      {0, 300.0, 1300.0, 93, "density clamped from above"},
      {1, 240.0, 1300.0, 97, "density clamped from above"},
      {1, 300.0, 1300.0, 222, "density clamped from above"},
      {2, 304.1282, 467.6, 259, "critical point"},
      {2, 300.0, 0.001, 223, "temperature clamped from below"},
      {2, 300.0, 1300.0, 411, "temperature and density clamped"},
      {2, 1600.0, 0.001, 645, "temperature clamped from above"},
      {2, 1600.0, 1300.0, 649, "temperature and density clamped"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(regions[c.region].locate(c.temp, c.dens), c.e) << c.why << ' ' << c.temp;
  }
}

TEST(LocateTd, AnyInputStaysInItsRegion) {
  constexpr double odd[] = {0.0,    -0.0,     5e-324,    -1.0,         1e308,
                            -1e308, infinity, -infinity, not_a_number, 467.6};
  std::mt19937_64 engine(4);
  for (const Region& region : regions) {
    const auto check = [&](const double temp, const double dens) {
      const std::int32_t e = region.locate(temp, dens);
      EXPECT_GE(e, region.first) << region.name << ' ' << temp << ' ' << dens;
      EXPECT_LE(e, region.last) << region.name << ' ' << temp << ' ' << dens;
    };
    for (const double temp : odd) {
      for (const double dens : odd) check(temp, dens);
    }
    for (int sample = 0; sample < 20000; ++sample) {
      check(std::bit_cast<double>(engine()), std::bit_cast<double>(engine()));
    }
  }
}

}  // namespace
}  // namespace co2_properties
