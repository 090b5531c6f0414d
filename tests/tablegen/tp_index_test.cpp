#include "tablegen/fit/tp_index.hpp"

#include <gtest/gtest.h>

#include "co2_properties/limits.hpp"

namespace co2_properties::tablegen {
namespace {

// The index takes the range of a curve from a few samples. One that turns between the first two of
// them leaves their range, here just far enough to reach another bin.
TEST(TpIndex, AllowsForBendsBetweenItsSamples) {
  constexpr double width = temp_max - t_crit;
  constexpr double turn = t_crit + width / 16.0;
  constexpr double bend = 1e-3;  // kPa/K2
  constexpr double lowest = 1000.0;
  constexpr double sampled = lowest + bend * (width / 16.0) * (width / 16.0);
  constexpr double at_middle = lowest + bend * (7.0 * width / 16.0) * (7.0 * width / 16.0);
  constexpr double center = lowest + 2.0 + 1024.0;  // bins of its distance start at 1024
  TpRegion table{"supercritical", Region::supercritical};
  table.columns = {{{223, 0}, {224, 0}, {225, 1}}};
  table.curves.resize(2);
  table.curves[0].stored.coef[0] = lowest + bend * turn * turn;
  table.curves[0].stored.coef[1] = -2.0 * bend * turn;
  table.curves[0].stored.coef[2] = bend;
  table.curves[1].stored.coef[0] = 2.0 * center - at_middle;
  const TpIndex index = index_tp_region(table).front();
  ASSERT_NEAR(index.shear.center, center, 0.1);
  ASSERT_EQ(index.shear.slope, 0.0);
  const auto bin = sheared_bins.find(index.shear(turn, lowest + 1.0));
  ASSERT_LT(bin, sheared_bins.find(index.shear(turn, sampled)));
  EXPECT_EQ(index.entries[static_cast<std::size_t>(bin)], PressureEntry::mixed);
  EXPECT_EQ(index.entries.front(), 223) << "far below both";
  EXPECT_EQ(index.entries.back(), 225) << "far above both";
}

}  // namespace
}  // namespace co2_properties::tablegen
