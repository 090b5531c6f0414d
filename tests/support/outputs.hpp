#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "co2_properties/output_set.hpp"

namespace co2_properties::test {

inline constexpr std::size_t output_count = 19;
inline constexpr std::uint32_t all_outputs = (1U << output_count) - 1U;
inline constexpr std::array<const char*, output_count> output_names = {
    "temp", "pres", "dens", "svol", "qual", "inte", "enth", "entr", "cv",  "cp",
    "ssnd", "visc", "cond", "dpdd", "dpdt", "dhdd", "dhdt", "dsdd", "dsdt"};

/// Members of `OutputSet` in their fixed order; output k is bit k of a mask.
inline constexpr std::array<double * OutputSet::*, output_count> output_members = {
    &OutputSet::temp, &OutputSet::pres, &OutputSet::dens, &OutputSet::svol, &OutputSet::qual,
    &OutputSet::inte, &OutputSet::enth, &OutputSet::entr, &OutputSet::cv,   &OutputSet::cp,
    &OutputSet::ssnd, &OutputSet::visc, &OutputSet::cond, &OutputSet::dpdd, &OutputSet::dpdt,
    &OutputSet::dhdd, &OutputSet::dhdt, &OutputSet::dsdd, &OutputSet::dsdt};

enum Output : std::size_t {
  temp,
  pres,
  dens,
  svol,
  qual,
  inte,
  enth,
  entr,
  cv,
  cp,
  ssnd,
  visc,
  cond,
  dpdd,
  dpdt,
  dhdd,
  dhdt,
  dsdd,
  dsdt
};

/// Room for all outputs, filled with a value that no state has.
struct Outputs {
  static constexpr double canary = -7.25e77;
  std::array<double, output_count> value;

  Outputs() { value.fill(canary); }
  double operator[](const Output k) const { return value[k]; }

  OutputSet subset(const std::uint32_t mask = all_outputs) {
    OutputSet out;
    for (std::size_t k = 0; k < output_count; ++k) {
      if ((mask >> k & 1U) != 0) out.*output_members[k] = &value[k];
    }
    return out;
  }
};

}  // namespace co2_properties::test
