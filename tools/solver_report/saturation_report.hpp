#pragma once
// How co2_sat_t, co2_sat_p, co2_tx and co2_px agree with each other and with co2_td.

#include "solver_report/options.hpp"

namespace co2_properties::solver_report {

/// \return whether all bounds hold
[[nodiscard]] bool report_saturation(const Options& options);

}  // namespace co2_properties::solver_report
