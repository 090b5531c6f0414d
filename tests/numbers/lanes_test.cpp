#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "tests/numbers/lane_results.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/digest.hpp"

namespace co2_properties::test {

extern const LaneFunction lanes_avx2[3];

namespace {

constexpr std::size_t count = 80000;

std::vector<double> results(const LaneFunction function) {
  Draws draws;
  double table[64][4];
  for (auto& row : table) {
    for (double& number : row) number = draws.uniform(-1.0, 1.0);
  }
  std::vector<double> x;
  for (std::size_t k = 0; k < count; ++k) {
    x.push_back(k % 2 == 0 ? draws.magnitude(-300.0, 300.0) : draws.uniform(0.5, 2.0));
  }
  std::vector<double> out(lane_results * count);
  function(x.data(), table, count, out.data());
  return out;
}

TEST(Lanes, HaveTheBitsOfDoubles) {
  struct Case {
    const char* what;
    LaneFunction function;
  };
  std::vector<Case> cases = {{"two", compute_lanes<Lanes2>},
                             {"four", compute_lanes<Lanes4>},
                             {"eight", compute_lanes<Lanes8>}};
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2") != 0) {
    cases.push_back({"two, AVX2", lanes_avx2[0]});
    cases.push_back({"four, AVX2", lanes_avx2[1]});
    cases.push_back({"eight, AVX2", lanes_avx2[2]});
  }
#endif
  const std::vector<double> expected = results(compute_lanes<double>);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const std::vector<double> found = results(c.function);
    for (std::size_t r = 0; r < lane_results; ++r) {
      std::size_t wrong = 0;
      for (std::size_t k = r * count; k < (r + 1) * count; ++k) {
        wrong += bits(found[k]) != bits(expected[k]) ? 1 : 0;
      }
      EXPECT_EQ(wrong, 0U) << "result " << r;
    }
    EXPECT_EQ(found.back(), 1.0) << "any or all";
  }
}

}  // namespace
}  // namespace co2_properties::test
