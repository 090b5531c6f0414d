#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "co2_properties/output_set.hpp"

namespace co2_properties::test {

// The nineteen outputs in their fixed order; output k is bit k of a mask.
#define CO2_TEST_OUTPUTS(of)                                                                      \
  of(temp), of(pres), of(dens), of(svol), of(qual), of(inte), of(enth), of(entr), of(cv), of(cp), \
      of(ssnd), of(visc), of(cond), of(dpdd), of(dpdt), of(dhdd), of(dhdt), of(dsdd), of(dsdt)
#define CO2_TEST_ITSELF(name) name
#define CO2_TEST_TEXT(name) #name
#define CO2_TEST_MEMBER(name) &OutputSet::name

enum Output : std::size_t { CO2_TEST_OUTPUTS(CO2_TEST_ITSELF) };
inline constexpr std::array output_names = {CO2_TEST_OUTPUTS(CO2_TEST_TEXT)};
inline constexpr std::array output_members = {CO2_TEST_OUTPUTS(CO2_TEST_MEMBER)};
inline constexpr std::size_t output_count = output_names.size();
static_assert(output_count == 19);

using Mask = std::uint32_t;
inline constexpr Mask all_outputs = (1U << output_count) - 1U;
constexpr bool has(const Mask mask, const std::size_t k) { return (mask >> k & 1U) != 0; }
/// The outputs with these names.
template <class... Names>
constexpr Mask mask_of(const Names... names) {
  return ((1U << names) | ...);
}

/// Room for all outputs, filled with a value that no state has.
struct Outputs {
  static constexpr double canary = -7.25e77;
  std::array<double, output_count> value;

  Outputs() { value.fill(canary); }
  double operator[](const Output k) const { return value[k]; }

  OutputSet subset(const Mask mask = all_outputs) {
    OutputSet out;
    for (std::size_t k = 0; k < output_count; ++k) {
      if (has(mask, k)) out.*output_members[k] = &value[k];
    }
    return out;
  }
};

}  // namespace co2_properties::test
