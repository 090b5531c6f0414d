#pragma once
// What the caller of a report chooses.

#include <cstdint>

namespace co2_properties::solver_report {

struct Options {
  std::uint64_t states = 10000000;
  std::uint64_t reference_states = 20000;
  std::uint64_t seed = 1;
  unsigned threads = 2;
  bool trap = false;  ///< floating-point exceptions end the process
};

}  // namespace co2_properties::solver_report
