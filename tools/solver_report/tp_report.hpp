#pragma once
// Round trips of `co2_tp`, and its densities against the reference equation of state.

#include "solver_report/options.hpp"

namespace co2_properties::solver_report {

/// Prints what was measured. \return true if every bound holds
[[nodiscard]] bool report_tp(const Options& options);

}  // namespace co2_properties::solver_report
