// The tilings of all tables, and the tables that were made from them.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "cells/axis.hpp"
#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "fits/patch.hpp"
#include "saturation/sat_density.hpp"
#include "tablegen/emit/inverse_table.hpp"
#include "tablegen/emit/isochore_table.hpp"
#include "tablegen/emit/patch_table.hpp"
#include "tablegen/emit/saturation_bounds_table.hpp"
#include "tablegen/emit/start_grid_table.hpp"
#include "tablegen/emit/tp_curve_table.hpp"
#include "tablegen/tilings/cell_grid.hpp"
#include "tablegen/tilings/element_tiling.hpp"
#include "tablegen/tilings/inverse_tiling.hpp"
#include "tablegen/tilings/patch_tiling.hpp"
#include "tablegen/tilings/text_reader.hpp"
#include "tests/support/bits.hpp"

namespace co2_properties::tablegen {
namespace {

// ---- Elements ----------------------------------------------------------------------------------

constexpr double t_crit = 304.1282;
constexpr double d_crit = 467.6000012817399;

const std::vector<ElementCell>& tiling() {
  static const std::vector<ElementCell> cells = parse_element_tiling(tiling_text("elements.txt"));
  return cells;
}

/// Elements of a region that hold a state.
int holders(const Region region, const double temp, const double dens) {
  return static_cast<int>(
      std::count_if(tiling().begin(), tiling().end(), [&](const ElementCell& c) {
        return c.region == region && temp >= c.temp_lo && temp < c.temp_hi && dens >= c.dens_lo &&
               dens < c.dens_hi;
      }));
}

/// Inner values between the edges of one axis of a region, and the edges themselves.
std::vector<double> probes(const Region region, const bool temperature) {
  std::set<double> edges;
  for (const ElementCell& c : tiling()) {
    if (c.region != region) continue;
    edges.insert({temperature ? c.temp_lo : c.dens_lo, temperature ? c.temp_hi : c.dens_hi});
  }
  std::vector<double> values(edges.begin(), edges.end());
  for (std::size_t k = values.size() - 1; k > 0; --k) {
    values.push_back((values[k - 1] + values[k]) / 2.0);
  }
  return values;
}

TEST(ElementTiling, TheTableHasTheseRectangles) {
  ASSERT_EQ(tiling().size(), static_cast<std::size_t>(element_count));
  for (std::size_t k = 0; k < tiling().size(); ++k) {
    const ElementCell& cell = tiling()[k];
    const Element& e = elements[k];
    EXPECT_EQ(e.temp0, cell.temp_lo) << k + 1;
    EXPECT_EQ(e.dens0, cell.dens_lo) << k + 1;
    EXPECT_NEAR(e.temp_width, cell.temp_hi - cell.temp_lo, 1e-12) << k + 1;
    EXPECT_NEAR(e.dens_width, cell.dens_hi - cell.dens_lo, 1e-12) << k + 1;
    EXPECT_FALSE(cell.temp_lo < t_crit && cell.temp_hi > t_crit) << k + 1;
    EXPECT_FALSE(cell.dens_lo < d_crit && cell.dens_hi > d_crit) << k + 1;
  }
  EXPECT_EQ(elements[92].temp_width, 0.0182);
  EXPECT_EQ(elements[92].dens_width, 7.6000012817399352);
  EXPECT_EQ(elements[0].dens_width, 14.99647125341955);
  EXPECT_EQ(elements[96].dens_width, 87.205154132693);
}

// At every temperature a region is covered from one end to the other, exactly once: vapour from the
// floor to saturation and beyond, liquid from before saturation to the top, the rest from the floor
// to the top.
TEST(ElementTiling, CoversEachRegionOnce) {
  for (const Region region : {Region::vapour, Region::liquid, Region::supercritical}) {
    const std::vector<double> densities = probes(region, false);
    for (const double temp : probes(region, true)) {
      double from = 2000.0;
      double to = 0.0;
      for (const ElementCell& c : tiling()) {
        if (c.region != region || temp < c.temp_lo || temp >= c.temp_hi) continue;
        from = std::min(from, c.dens_lo);
        to = std::max(to, c.dens_hi);
      }
      for (const double dens : densities) {
        const int expected = dens >= from && dens < to ? 1 : 0;
        ASSERT_EQ(holders(region, temp, dens), expected) << temp << ' ' << dens;
      }
    }
  }
}

TEST(ElementTiling, BothSaturatedStatesLieInsideAnElement) {
  constexpr int steps = 20000;
  for (int k = 0; k <= steps; ++k) {
    // Half of the temperatures crowd towards the critical one.
    const double s = static_cast<double>(k) / steps;
    const double temp =
        k % 2 == 0 ? 240.0 + s * 64.12819999 : t_crit - 64.0 * std::pow(s, 8) - 1e-12;
    if (temp < 240.0 || temp >= t_crit) continue;
    ASSERT_EQ(holders(Region::vapour, temp, calc_sat_vap_dens(temp)), 1) << temp;
    ASSERT_EQ(holders(Region::liquid, temp, calc_sat_liq_dens(temp)), 1) << temp;
  }
}

// Elements on both sides of a density edge give the same pressure along it.
TEST(ElementTiling, PressureIsContinuousInDensity) {
  constexpr int steps = 7;
  double worst = 0.0;
  for (std::size_t a = 0; a < tiling().size(); ++a) {
    for (std::size_t b = 0; b < tiling().size(); ++b) {
      const ElementCell& low = tiling()[a];
      const ElementCell& high = tiling()[b];
      const double from = std::max(low.temp_lo, high.temp_lo);
      const double to = std::min(low.temp_hi, high.temp_hi);
      if (low.region != high.region || low.dens_hi != high.dens_lo || !(from < to)) continue;
      for (int k = 0; k <= steps; ++k) {
        const double temp = from + (to - from) * k / steps;
        const double dens = high.dens_lo;
        const double below = pressure(evaluate(elements[a], temp, dens), dens);
        const double above = pressure(evaluate(elements[b], temp, dens), dens);
        worst = std::max(worst, std::abs(below / above - 1.0));
      }
    }
  }
  // Rounding alone, largest (4e-12) at the critical point; Newton iterations ask for 1e-11.
  EXPECT_LT(worst, 1e-11);
}

// ---- Cells of the plane
// --------------------------------------------------------------------------

/// Each finite side with its two neighbours, and far away.
std::vector<double> sides(const std::vector<Box>& boxes, double Box::*lo, double Box::*hi) {
  std::set<double> values = {-1e9, 1e9};
  for (const Box& box : boxes) {
    for (const double side : {box.*lo, box.*hi}) {
      if (std::abs(side) < 1e9) {
        values.insert({test::next_below(side), side, test::next_above(side)});
      }
    }
  }
  return {values.begin(), values.end()};
}

/// Every point lies in exactly one box, closed below and open above, and the map finds it.
template <class Map>
void expect_tiled(const Map& map, const std::vector<Box>& boxes) {
  for (const double x : sides(boxes, &Box::x_lo, &Box::x_hi)) {
    for (const double y : sides(boxes, &Box::y_lo, &Box::y_hi)) {
      std::vector<std::size_t> found;
      for (std::size_t k = 0; k < boxes.size(); ++k) {
        const Box& box = boxes[k];
        if (x >= box.x_lo && x < box.x_hi && y >= box.y_lo && y < box.y_hi) found.push_back(k);
      }
      ASSERT_EQ(found.size(), 1U) << x << ", " << y;
      ASSERT_EQ(static_cast<std::size_t>(map.find(x, y)), found.front()) << x << ", " << y;
    }
  }
}

struct Patches {
  const char* name;
  const PatchFit* fit;
  std::size_t patches;
};
const Patches patch_fits[] = {{"viscosity", &viscosity_fit, 32},
                              {"conductivity", &conductivity_fit, 299},
                              {"cp", &cp_fit, 290},
                              {"cv", &cv_fit, 140},
                              {"sound_speed", &sound_speed_fit, 109}};

PatchTiling tiling_of(const Patches& fit) {
  return read_patch_tiling(tiling_text(std::string(fit.name) + ".txt"));
}

TEST(PatchTiling, TablesHaveTheirCellsOriginsAndPinnedBits) {
  for (const Patches& f : patch_fits) {
    SCOPED_TRACE(f.name);
    const PatchTiling tiling = tiling_of(f);
    ASSERT_EQ(tiling.size(), f.patches);
    std::vector<Box> boxes;
    std::size_t pins = 0;
    for (std::size_t k = 0; k < tiling.size(); ++k) {
      const Patch& patch = f.fit->patches[k];
      boxes.push_back(tiling[k].box);
      EXPECT_EQ(patch.temp0, tiling[k].temp0) << k;
      EXPECT_EQ(patch.dens0, tiling[k].dens0) << k;
      for (const Pin& pin : tiling[k].pins) {
        EXPECT_EQ(test::bits(patch.coef[patch_terms - 1 - pin.i][pin.j]), test::bits(pin.value));
        ++pins;
      }
    }
    expect_tiled(*f.fit->map, boxes);
    EXPECT_EQ(pins, f.fit == &viscosity_fit ? 20U : 1U);
  }
}

// A table that was not made again after a change of its inputs shows here, without a fit.
TEST(Tables, CarryTheDigestOfTheirInputs) {
  const auto read = [](const std::string& name) {
    std::ifstream file(TABLEGEN_SOURCE_DIR "/" + name, std::ios::binary);
    return std::string{std::istreambuf_iterator<char>(file), {}};
  };
  const auto expect_digest = [&](const std::string& name, const std::string& digest) {
    EXPECT_NE(read(name).find("Input digest " + digest + "."), std::string::npos) << name;
  };
  for (const Patches& f : patch_fits) {
    const std::string name(f.name);
    expect_digest("fits/tables/" + name + ".cpp", patch_digest(tiling_text(name + ".txt")));
  }
  const std::string elements_source = read("eos/tables/elements.cpp");
  expect_digest("eos/tables/tp_curves.cpp", tp_curves_digest(elements_source));
  expect_digest("saturation/tables/saturation_bounds.cpp",
                saturation_bounds_digest(elements_source));
  expect_digest("solvers/tables/isochores.cpp", isochores_digest(elements_source));
  expect_digest("solvers/tables/saturated_nodes.cpp", saturated_nodes_digest(elements_source));
  for (const Table& table : start_grid_tables()) {
    expect_digest(table.output, start_grid_digest(elements_source));
  }
}

TEST(PatchTiling, ReadsRangesOriginsNamesAndPins) {
  const PatchTiling tiling = read_patch_tiling(
      "# comment\nlow = 0.25\n<300 | 240 | <40 @low, 40..80, >=80 @100 # rest\n"
      ">=300 | 301.5 | <1e3 @-2\n>=300 | 302 | >=1e3\n\npin 240 @low | 1 | 3, -4e-1\n");
  ASSERT_EQ(tiling.size(), 5U);
  EXPECT_EQ(tiling[0].dens0, 0.25);
  EXPECT_EQ(tiling[1].dens0, 40.0);
  EXPECT_EQ(tiling[2].dens0, 100.0);
  EXPECT_EQ(tiling[2].box.y_hi, open_side);
  EXPECT_EQ(tiling[3].temp0, 301.5);
  EXPECT_EQ(tiling[3].box.x_lo, 300.0);
  ASSERT_EQ(tiling[0].pins.size(), 2U);
  EXPECT_EQ(tiling[0].pins[1].i, 1);
  EXPECT_EQ(tiling[0].pins[1].j, 1);
  EXPECT_EQ(tiling[0].pins[1].value, -0.4);
}

struct Inverse {
  const char* name;
  const InverseCell* records;
  const StartFit* fit;
  std::uint16_t StartCells::*cell;
  std::size_t cells, checks;

  [[nodiscard]] std::int32_t find(const double pres, const double caloric) const {
    return fit->pairs[fit->map->find(pres, caloric)].*cell;
  }
};
const Inverse inverse_fits[] = {
    {"temp_from_hp", temp_from_hp_records, &start_from_hp_fit, &StartCells::temp, 72, 10},
    {"dens_from_hp", dens_from_hp_records, &start_from_hp_fit, &StartCells::dens, 169, 0},
    {"temp_from_sp", temp_from_sp_records, &start_from_sp_fit, &StartCells::temp, 142, 20},
    {"dens_from_sp", dens_from_sp_records, &start_from_sp_fit, &StartCells::dens, 259, 0}};

TEST(InverseTiling, TablesHaveTheirCells) {
  for (const Inverse& f : inverse_fits) {
    SCOPED_TRACE(f.name);
    const InverseTiling tiling = read_inverse_tiling(tiling_text(std::string(f.name) + ".txt"));
    ASSERT_EQ(tiling.size(), f.cells);
    std::size_t checks = 0;
    std::size_t given = 0;
    for (std::size_t k = 0; k < tiling.size(); ++k) {
      const InverseCell& cell = f.records[k];
      EXPECT_EQ(cell.pres0, tiling[k].pres0) << k + 1;
      EXPECT_EQ(cell.caloric0, tiling[k].caloric0) << k + 1;
      EXPECT_EQ(cell.saturation_check, tiling[k].saturation_check) << k + 1;
      checks += static_cast<std::size_t>(tiling[k].saturation_check);
      if (!tiling[k].given) continue;
      ++given;
      for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_EQ(test::bits(cell.coef[i % 4][i / 4]), test::bits((*tiling[k].given)[i / 4][i % 4]))
            << "given coefficients of cell " << k + 1;
      }
    }
    std::vector<Box> boxes;
    for (const InverseTilingCell& cell : tiling) boxes.push_back(cell.box);
    expect_tiled(f, boxes);
    EXPECT_EQ(checks, f.checks);
    EXPECT_EQ(given, 1U);
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

template <class Read>
void expect_refused(const Read& read,
                    const std::initializer_list<std::pair<const char*, const char*>> cases) {
  for (const auto& [text, why] : cases) {
    EXPECT_THROW((void)read(text), std::invalid_argument) << why;
  }
}

TEST(Tilings, RefuseWhatTheyDoNotUnderstand) {
  expect_refused(read_patch_tiling,
                 {
                     {"<300 | 240", "two columns"},
                     {"<300 | 240 | 40-80", "no range"},
                     {"<300 | 240 | <40", "open below, so without an origin"},
                     {"<300 | 24O | 40..80", "not a number"},
                     {"<300 | 240 | 40..80 @low", "name not defined"},
                     {"<300 | 240 | 40..80\npin 240 @41 | 0 | 1", "pin without a patch"},
                     {"<300 | 240 | 40..80, 80..90 @40\npin 240 @40 | 0 | 1", "pin of two patches"},
                 });
  expect_refused(read_inverse_tiling,
                 {
                     {"# nothing\n", "no cells"},
                     {"1 | <5 | 1..2 | 1\n", "a column is missing"},
                     {"2 | <5 | 1..2 | 1 | 1\n", "cells out of order"},
                     {"1 | <5 | 1..2 | 1 | x\n", "an unknown name"},
                     {"1 | <5 | 1-2 | 1 | 1\n", "not a range"},
                     {"1 | <5 | 1..2 | 1 | 1 | 2\n", "a check of 2"},
                     {"given 1, 2, 3, 4\n", "given rows without a cell"},
                     {"1 | <5 | 1..2 | 1 | 1\ngiven 1, 2, 3, 4\n", "too few given rows"},
                     {"1 | <5 | 1..2 | 1 | 1\ngiven 1, 2, 3\n", "too few given coefficients"},
                 });
}

}  // namespace
}  // namespace co2_properties::tablegen
