#pragma once
// What is asked of the library, and how a sample of states does.

#include <cstddef>
#include <limits>
#include <span>
#include <vector>

#include "accuracy_report/errors.hpp"
#include "accuracy_report/text_table.hpp"

namespace co2_properties::accuracy {

enum class Place {
  outside_box,        ///< outside the critical box
  box,                ///< inside it, single phase
  box_above,          ///< inside it, above 304.14 K
  box_below,          ///< inside it, up to 304.14 K
  box_far,            ///< inside it, more than 0.2 K off the critical temperature
  box_near,           ///< inside it, within 0.2 K of the critical temperature
  box_near_above,     ///< the part of `box_near` above 304.14 K
  box_near_below,     ///< the rest of it
  everywhere,         ///< the whole domain
  off_critical_temp,  ///< the whole domain without the next
  at_critical_temp,   ///< within 0.05 K of the critical temperature
};

/// Marks a quantity that is reported without a bound.
inline constexpr double no_bound = std::numeric_limits<double>::infinity();

/// Bounds of one quantity in one part of the domain: the largest error and the one that all but
/// one state in a thousand keep.
struct Criterion {
  Place place;
  Quantity quantity;
  double bound_worst;
  double bound_999;
};

[[nodiscard]] std::span<const Criterion> all_criteria();

/// Errors of a sample under one criterion, absolute values. A NaN counts as infinite.
struct Summary {
  std::size_t count = 0;
  double worst = 0.0;
  double error_999 = 0.0;
  double rms = 0.0;
  std::vector<const StateErrors*> worst_states;  ///< the ten worst, worst first
};

[[nodiscard]] Summary summarize(const Criterion& criterion, std::span<const StateErrors> states);

/// The table of bounds.
[[nodiscard]] Section bounds_section(std::span<const StateErrors> states);

/// The extent of the states whose cp, cv, w, conductivity, dp/drho, dh/dT or ds/dT is off by more
/// than 0.1, 1 and 10 %: all lie next to the critical point.
[[nodiscard]] Section critical_section(std::span<const StateErrors> states);

/// Where the derivatives of the elements are worst, `box_near`: what the entry gives beside what
/// follows from the patches of cv and cp.
[[nodiscard]] Section derivatives_section(std::span<const StateErrors> states);

/// The ten worst states of every quantity and the cells with the largest errors.
[[nodiscard]] Section worst_section(std::span<const StateErrors> states);

}  // namespace co2_properties::accuracy
