#pragma once
// Round trips of `co2_pu`, `co2_ts` and `co2_hs` from states of `co2_td`.

#include "solver_report/options.hpp"

namespace co2_properties::solver_report {

/// Print what was measured. \return true if every bound holds
[[nodiscard]] bool report_pu(const Options& options);
[[nodiscard]] bool report_ts(const Options& options);
[[nodiscard]] bool report_hs(const Options& options);

}  // namespace co2_properties::solver_report
