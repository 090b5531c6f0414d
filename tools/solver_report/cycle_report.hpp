#pragma once
// Round trips through all four entries.

#include "solver_report/options.hpp"

namespace co2_properties::solver_report {

/// Leads single-phase states of `co2_td` through `co2_tp`, `co2_ph` and `co2_ps` back to `co2_td`,
/// each fed with what the one before returned, and prints what was measured.
/// \return true if every bound holds
[[nodiscard]] bool report_cycle(const Options& options);

}  // namespace co2_properties::solver_report
