#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "tablegen/emit/number.hpp"
#include "tablegen/emit/source.hpp"
#include "tablegen/tilings/cell_grid.hpp"
#include "tests/support/plain_search.hpp"

namespace co2_properties::tablegen {
namespace {

TEST(Number, LiteralsReadBackToTheSameBits) {
  for (const double v : {0.0, -0.0, 240.0, 304.1282, 467.60000128173994, 0.0035287465804510576,
                         -1.2345678901234567e-30, DBL_MIN, DBL_TRUE_MIN, -DBL_MAX, 1e22, 3e-7}) {
    for (const std::string& text : {hex_literal(v), decimal_literal(v)}) {
      SCOPED_TRACE(text);
      const double back = std::strtod(text.c_str(), nullptr);
      EXPECT_EQ(back, v);
      EXPECT_EQ(std::signbit(back), std::signbit(v));
      EXPECT_NE(text.find_first_of(".ep"), std::string::npos) << "an integer literal";
    }
  }
  EXPECT_EQ(decimal_literal(304.1282), "304.1282");
  EXPECT_THROW((void)hex_literal(NAN), std::domain_error);
  EXPECT_THROW((void)decimal_literal(INFINITY), std::domain_error);
}

TEST(Number, NumbersOfASourceAreThoseInsideInitialisers) {
  const std::string source =
      "// 3 patches, worst 1e-5\n#include \"fits/patch.hpp\"\nnamespace co2_properties {\n"
      "constexpr double a_x_edges[2] = {\n  240.0, -1e-3, // edge 7\n};\n"
      "const Patch patches[] = {\n  {304.5, {{-0x1.8p+1, 0x0p+0}}},  // 2\n};\n"
      "constexpr PatchFit fit = {{{a_x_edges, 2}}};\n}  // namespace co2_properties\n";
  EXPECT_EQ(numbers_in(source), (std::vector<double>{240.0, -1e-3, 304.5, -3.0, 0.0, 2.0}));
}

TEST(Number, DigestDependsOnEveryByteAndOnTheBoundaries) {
  // Values of 64-bit FNV-1a: the digest of "" is one step over the zero byte.
  EXPECT_EQ(text_digest({}), "cbf29ce484222325");
  EXPECT_EQ(text_digest({""}), "af63bd4c8601b7df");
  EXPECT_NE(text_digest({"ab", "c"}), text_digest({"a", "bc"}));
  EXPECT_NE(text_digest({"ab"}), text_digest({"ac"}));
}

TEST(Source, ShippedBodiesAreThoseOfTheirDigests) {
  int count = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(TABLEGEN_SOURCE_DIR)) {
    if (entry.path().parent_path().filename() != "tables" || entry.path().extension() != ".cpp") {
      continue;
    }
    std::ifstream file(entry.path(), std::ios::binary);
    std::string source{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(has_own_body(source)) << entry.path();
    source[source.size() / 2] ^= 1;
    EXPECT_FALSE(has_own_body(source)) << entry.path();
    ++count;
  }
  EXPECT_EQ(count, 19);
}

TEST(CellGrid, HoldsEachRectangleAndAsksForTheRest) {
  // The upper right quarter is split in y, the lower left one is left to the filler.
  const std::vector<Rectangle> rectangles = {
      {{1.0, open_side, -open_side, 2.0}, 7},
      {{1.0, open_side, 2.0, 3.0}, 8},
      {{1.0, open_side, 3.0, open_side}, 9},
      {{-open_side, 1.0, 2.0, open_side}, 4},
  };
  const CellGrid grid = make_grid(rectangles, [](const Box& gap) -> std::uint16_t {
    EXPECT_EQ(gap.x_hi, 1.0);
    EXPECT_EQ(gap.y_lo, -open_side);
    EXPECT_EQ(gap.y_hi, 2.0);
    return 100;
  });
  const Tiling tiling = {grid.x.data(), static_cast<std::int32_t>(grid.x.size()), grid.y.data(),
                         static_cast<std::int32_t>(grid.y.size()), grid.cell.data()};
  const struct {
    double x, y;
    std::uint16_t value;
    const char* why;
  } cases[] = {
      {1.0, 1.9, 7, "a value on an edge belongs above"},
      {std::nextafter(1.0, 0.0), 2.0, 4, "just below it does not"},
      {5.0, 2.0, 8, "edge in y"},
      {5.0, 1e300, 9, "open side"},
      {-INFINITY, INFINITY, 4, "infinities"},
      {NAN, NAN, 9, "NaN lies above every edge"},
      {0.0, 0.0, 100, "filled"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(test::plain_cell(tiling, c.x, c.y), c.value);
  }
}

TEST(CellGrid, RefusesOverlapGapAndEmptiness) {
  const Rectangle left{{-open_side, 1.0, -open_side, open_side}, 1};
  const Rectangle right{{1.0, open_side, -open_side, open_side}, 2};
  EXPECT_NO_THROW((void)make_grid({left, right}));
  EXPECT_THROW((void)make_grid({left}), std::invalid_argument) << "gap";
  EXPECT_THROW((void)make_grid({left, right, {{0.0, 0.5, 0.0, 0.5}, 3}}), std::invalid_argument);
  EXPECT_THROW((void)make_grid({left, right, {{2.0, 2.0, 0.0, 0.5}, 3}}), std::invalid_argument);
}

}  // namespace
}  // namespace co2_properties::tablegen
