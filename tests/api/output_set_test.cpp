#include <gtest/gtest.h>

#include "api/co2_properties.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/outputs.hpp"

namespace co2_properties {
namespace {

using test::Outputs;

TEST(ZeroOutputs, ClearsWhatIsPresentAndNothingElse) {
  zero_outputs();
  zero_outputs(OutputSet{});
  for (std::size_t k = 0; k < test::output_count; ++k) {
    Outputs outputs;
    zero_outputs(outputs.subset(1U << k));
    for (std::size_t i = 0; i < test::output_count; ++i) {
      EXPECT_EQ(test::bits(outputs.value[i]), test::bits(i == k ? 0.0 : Outputs::canary))
          << test::output_names[i] << " when " << test::output_names[k] << " is present";
    }
  }
  Outputs outputs;
  double* const last = &outputs.value[test::dsdt];
  zero_outputs(&outputs.value[test::temp], nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
               nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
               nullptr, nullptr, last);
  EXPECT_EQ(test::bits(outputs[test::temp]), 0U);
  EXPECT_EQ(test::bits(outputs[test::dsdt]), 0U);
  EXPECT_EQ(outputs[test::pres], Outputs::canary);
}

}  // namespace
}  // namespace co2_properties
