#include "tablegen/tilings/patch_tiling.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "fits/patch.hpp"
#include "tablegen/emit/patch_table.hpp"
#include "tablegen/tilings/text_reader.hpp"
#include "tests/support/bits.hpp"

namespace co2_properties::tablegen {
namespace {

using test::infinity;
using test::next_above;
using test::next_below;

struct Fit {
  const char* name;
  const PatchFit* fit;
  std::size_t patches;
};
const Fit fits[] = {{"viscosity", &viscosity_fit, 32},
                    {"conductivity", &conductivity_fit, 299},
                    {"cp", &cp_fit, 290},
                    {"cv", &cv_fit, 140},
                    {"sound_speed", &sound_speed_fit, 109}};

PatchTiling tiling_of(const Fit& fit) {
  return read_patch_tiling(tiling_text(std::string(fit.name) + ".txt"));
}

/// Each edge with its two neighbours, and the far sides.
std::vector<double> probes(const Axis& axis) {
  std::vector<double> values = {-infinity, 0.0, infinity};
  for (int k = 0; k < axis.count; ++k) {
    const double edge = axis.edges[k];
    values.insert(values.end(), {next_below(edge), edge, next_above(edge)});
  }
  return values;
}

bool holds(const Box& box, const double temp, const double dens) {
  return !(temp < box.x_lo) && (temp < box.x_hi || box.x_hi == infinity) && !(dens < box.y_lo) &&
         (dens < box.y_hi || box.y_hi == infinity);
}

TEST(PatchTiling, EveryStateLiesInExactlyOneCellAndTheMapFindsIt) {
  for (const Fit& f : fits) {
    SCOPED_TRACE(f.name);
    const PatchTiling tiling = tiling_of(f);
    ASSERT_EQ(tiling.size(), f.patches);
    int wrong = 0;
    for (const double temp : probes(f.fit->map.x)) {
      for (const double dens : probes(f.fit->map.y)) {
        const auto here = [=](const PatchCell& cell) { return holds(cell.box, temp, dens); };
        const auto first = std::find_if(tiling.begin(), tiling.end(), here);
        const bool once = first != tiling.end() && std::none_of(first + 1, tiling.end(), here);
        wrong += once && find_cell(f.fit->map, temp, dens) == first - tiling.begin() ? 0 : 1;
      }
    }
    EXPECT_EQ(wrong, 0);
  }
}

TEST(PatchTiling, RecordsCarryTheOriginsAndThePinnedBits) {
  for (const Fit& f : fits) {
    SCOPED_TRACE(f.name);
    const PatchTiling tiling = tiling_of(f);
    std::size_t pins = 0;
    for (std::size_t k = 0; k < tiling.size(); ++k) {
      const Patch& patch = f.fit->patches[k];
      EXPECT_EQ(patch.temp0, tiling[k].temp0) << k;
      EXPECT_EQ(patch.dens0, tiling[k].dens0) << k;
      for (const Pin& pin : tiling[k].pins) {
        EXPECT_EQ(test::bits(patch.coef[patch_terms - 1 - pin.i][pin.j]), test::bits(pin.value));
        ++pins;
      }
    }
    EXPECT_EQ(pins, f.fit == &viscosity_fit ? 20U : 1U);
  }
}

/// A table that was not made again after a change of its inputs shows here, without a fit.
TEST(PatchTiling, TablesCarryTheDigestOfTheirInputs) {
  for (const Fit& f : fits) {
    std::ifstream file(std::string(TABLEGEN_SOURCE_DIR "/fits/tables/") + f.name + ".cpp");
    const std::string source{std::istreambuf_iterator<char>(file), {}};
    const std::string digest = patch_digest(tiling_text(std::string(f.name) + ".txt"));
    EXPECT_NE(source.find("Input digest " + digest + "."), std::string::npos) << f.name;
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
  EXPECT_EQ(tiling[2].box.y_hi, infinity);
  EXPECT_EQ(tiling[3].temp0, 301.5);
  EXPECT_EQ(tiling[3].box.x_lo, 300.0);
  ASSERT_EQ(tiling[0].pins.size(), 2U);
  EXPECT_EQ(tiling[0].pins[1].i, 1);
  EXPECT_EQ(tiling[0].pins[1].j, 1);
  EXPECT_EQ(tiling[0].pins[1].value, -0.4);
}

TEST(PatchTiling, RefusesWhatItDoesNotUnderstand) {
  const struct {
    const char *text, *why;
  } cases[] = {
      {"<300 | 240", "two columns"},
      {"<300 | 240 | 40-80", "no range"},
      {"<300 | 240 | <40", "open below, so without an origin"},
      {"<300 | 24O | 40..80", "not a number"},
      {"<300 | 240 | 40..80 @low", "name not defined"},
      {"<300 | 240 | 40..80\npin 240 @41 | 0 | 1", "pin without a patch"},
      {"<300 | 240 | 40..80, 80..90 @40\npin 240 @40 | 0 | 1", "pin of two patches"},
  };
  for (const auto& c : cases) {
    EXPECT_THROW((void)read_patch_tiling(c.text), std::invalid_argument) << c.why;
  }
}

}  // namespace
}  // namespace co2_properties::tablegen
