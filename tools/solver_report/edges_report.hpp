#pragma once
// What the contract allows next to the limits and along saturation, and how much of it there is.

#include "solver_report/options.hpp"

namespace co2_properties::solver_report {

/// States on the limits of temperature and pressure that the next entry refuses, mixtures below the
/// cold end of the saturation line, and how far the deciders of saturation are apart.
/// \return whether what the documentation recommends holds
[[nodiscard]] bool report_edges(const Options& options);

}  // namespace co2_properties::solver_report
