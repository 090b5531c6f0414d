#pragma once
// Round trips of `co2_ph` and `co2_ps` from states of `co2_td`.

#include "solver_report/options.hpp"

namespace co2_properties::solver_report {

/// Print what was measured. \return true if every bound holds
[[nodiscard]] bool report_ph(const Options& options);
[[nodiscard]] bool report_ps(const Options& options);

}  // namespace co2_properties::solver_report
