#pragma once
// What the entries answer at, around and far beyond their limits.

#include "solver_report/options.hpp"

namespace co2_properties::solver_report {

/// Searches the planes of the four entries, inside and far outside the range, for results that
/// `co2_td` contradicts (those of `co2_td`: `co2_tp`) and for codes of the wrong limit; prints how
/// often each code comes.
/// \return true if there are none
[[nodiscard]] bool report_limits(const Options& options);

/// Searches for finite inputs with which an entry, for one state or a batch, raises a
/// floating-point exception other than inexact and underflow: as many random bits as there are
/// `states`, the same around values at which something changes, and a tenth in each strip at a
/// limit. \return true if there are none
[[nodiscard]] bool report_exceptions(const Options& options);

}  // namespace co2_properties::solver_report
