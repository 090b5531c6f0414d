#include <gtest/gtest.h>

#include <array>

#include "api/co2_properties.hpp"

namespace co2_properties {
namespace {

TEST(Info, EachArgumentReceivesItsOwnConstant) {
  constexpr std::array<double, 9> expected = {304.1282, 467.6,    7377.3, 240.0,    1500.0,
                                              1.0,      100000.0, 240.0,  1282.4835};
  for (std::size_t k = 0; k < expected.size(); ++k) {
    std::array<double, 9> value{};
    std::array<double*, 9> slot{};
    slot[k] = &value[k];
    co2_info(slot[0], slot[1], slot[2], slot[3], slot[4], slot[5], slot[6], slot[7], slot[8]);
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_EQ(value[i], i == k ? expected[i] : 0.0) << "argument " << i << ", present " << k;
    }
  }
  co2_info();
}

}  // namespace
}  // namespace co2_properties
