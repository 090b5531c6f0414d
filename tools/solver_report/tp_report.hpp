#pragma once
// Round trips of `co2_tp`, and its densities against the reference equation of state.

#include <cstdint>

namespace co2_properties::solver_report {

struct Options {
  std::uint64_t states = 10000000;
  std::uint64_t reference_states = 20000;
  std::uint64_t seed = 1;
  unsigned threads = 2;
};

/// Prints what was measured. \return true if every bound holds
bool report_tp(const Options& options);

}  // namespace co2_properties::solver_report
