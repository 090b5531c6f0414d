#include "tablegen/tilings/inverse_tiling.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

#include "tablegen/emit/inverse_table.hpp"
#include "tablegen/tilings/text_reader.hpp"
#include "tests/support/bits.hpp"

namespace co2_properties::tablegen {
namespace {

using test::infinity;
using test::next_above;
using test::next_below;

struct Fit {
  const char* name;
  const InverseFit* fit;
  std::size_t cells, checks;
};
const Fit fits[] = {{"temp_from_hp", &temp_from_hp_fit, 72, 10},
                    {"dens_from_hp", &dens_from_hp_fit, 169, 0},
                    {"temp_from_sp", &temp_from_sp_fit, 142, 20},
                    {"dens_from_sp", &dens_from_sp_fit, 259, 0}};

TEST(InverseTiling, TablesHaveTheirCells) {
  for (const Fit& f : fits) {
    SCOPED_TRACE(f.name);
    const InverseTiling tiling = read_inverse_tiling(tiling_text(std::string(f.name) + ".txt"));
    ASSERT_EQ(tiling.size(), f.cells);
    std::size_t checks = 0;
    std::size_t given = 0;
    for (std::size_t k = 0; k < tiling.size(); ++k) {
      const InverseCell& cell = f.fit->cells[k];
      EXPECT_EQ(cell.pres0, tiling[k].pres0) << k + 1;
      EXPECT_EQ(cell.caloric0, tiling[k].caloric0) << k + 1;
      EXPECT_EQ(cell.saturation_check, tiling[k].saturation_check) << k + 1;
      checks += static_cast<std::size_t>(tiling[k].saturation_check);
      if (!tiling[k].given) continue;
      ++given;
      for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_EQ(test::bits(cell.coef[i / 4][i % 4]), test::bits((*tiling[k].given)[i / 4][i % 4]))
            << "given coefficients of cell " << k + 1;
      }
    }
    EXPECT_EQ(checks, f.checks);
    EXPECT_EQ(given, 1U);
  }
}

bool holds(const Box& box, const double x, const double y) {
  return !(x < box.x_lo) && x < box.x_hi && !(y < box.y_lo) && y < box.y_hi;
}

/// Each finite side with its two neighbours, and far away on both sides.
std::vector<double> probes(const InverseTiling& tiling, double Box::*lo, double Box::*hi) {
  std::vector<double> sides;
  for (const InverseTilingCell& cell : tiling) {
    for (const double side : {cell.box.*lo, cell.box.*hi}) {
      if (std::abs(side) != open_side) sides.push_back(side);
    }
  }
  std::sort(sides.begin(), sides.end());
  sides.erase(std::unique(sides.begin(), sides.end()), sides.end());
  std::vector<double> values = {-infinity, -1e9, 1e9};
  for (const double side : sides)
    values.insert(values.end(), {next_below(side), side, next_above(side)});
  return values;
}

TEST(InverseTiling, EachPointLiesInTheOneCellThatTheMapFinds) {
  for (const Fit& f : fits) {
    SCOPED_TRACE(f.name);
    const InverseTiling tiling = read_inverse_tiling(tiling_text(std::string(f.name) + ".txt"));
    for (const double pres : probes(tiling, &Box::x_lo, &Box::x_hi)) {
      for (const double caloric : probes(tiling, &Box::y_lo, &Box::y_hi)) {
        std::vector<std::size_t> found;
        for (std::size_t k = 0; k < tiling.size(); ++k) {
          if (holds(tiling[k].box, pres, caloric)) found.push_back(k);
        }
        ASSERT_EQ(found.size(), 1U) << pres << " kPa, " << caloric;
        ASSERT_EQ(&find_inverse_cell(*f.fit, pres, caloric), &f.fit->cells[found.front()])
            << pres << " kPa, " << caloric << ": cell " << found.front() + 1;
      }
    }
  }
}

TEST(InverseTiling, ReadsNamesOpenSidesAndGivenRows) {
  const InverseTiling tiling = read_inverse_tiling(
      "# comment\np_crit = 7377.3\n\n"
      " 1 | <p_crit    | 1.5..2 | 1      | 1.75 | 1  # comment\n"
      "given 1, -2e-3, 3, 4\ngiven 5, 6, 7, 8\ngiven 9, 10, 11, 12\ngiven 13, 14, 15, 16\n"
      " 2 | >=p_crit   | 1.5..2 | p_crit | 1.5  | 0\n");
  ASSERT_EQ(tiling.size(), 2U);
  EXPECT_EQ(tiling[0].box.x_lo, -open_side);
  EXPECT_EQ(tiling[0].box.x_hi, 7377.3);
  EXPECT_EQ(tiling[0].box.y_lo, 1.5);
  EXPECT_EQ(tiling[0].caloric0, 1.75);
  EXPECT_EQ(tiling[0].saturation_check, 1);
  EXPECT_EQ((*tiling[0].given)[0][1], -2e-3);
  EXPECT_EQ((*tiling[0].given)[3][0], 13.0);
  EXPECT_EQ(tiling[1].pres0, 7377.3);
  EXPECT_FALSE(tiling[1].given);
}

TEST(InverseTiling, RejectsWhatItDoesNotUnderstand) {
  const struct {
    const char* text;
    const char* why;
  } cases[] = {
      {"# nothing\n", "no cells"},
      {"1 | <5 | 1..2 | 1\n", "a column is missing"},
      {"2 | <5 | 1..2 | 1 | 1\n", "cells out of order"},
      {"1 | <5 | 1..2 | 1 | x\n", "an unknown name"},
      {"1 | <5 | 1-2 | 1 | 1\n", "not a range"},
      {"1 | <5 | 1..2 | 1 | 1 | 2\n", "a check of 2"},
      {"given 1, 2, 3, 4\n", "given rows without a cell"},
      {"1 | <5 | 1..2 | 1 | 1\ngiven 1, 2, 3, 4\n", "too few given rows"},
      {"1 | <5 | 1..2 | 1 | 1\ngiven 1, 2, 3\n", "too few given coefficients"},
  };
  for (const auto& c : cases) {
    EXPECT_THROW((void)read_inverse_tiling(c.text), std::invalid_argument) << c.why;
  }
}

}  // namespace
}  // namespace co2_properties::tablegen
