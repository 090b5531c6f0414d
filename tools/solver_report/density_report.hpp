#pragma once
// Round trips through the entries for density and a second property.

#include "solver_report/options.hpp"

namespace co2_properties::solver_report {

/// States from `co2_td` through `co2_du`, `co2_dh`, `co2_ds` and `co2_dp`, one by one and as
/// batches, and inputs of any bits.
/// \return whether all bounds hold
[[nodiscard]] bool report_density(const Options& options);

}  // namespace co2_properties::solver_report
