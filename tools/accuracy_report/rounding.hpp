#pragma once
// What double precision costs.

#include <span>

#include "accuracy_report/errors.hpp"
#include "accuracy_report/text_table.hpp"

namespace co2_properties::accuracy {

/// Largest differences between the evaluation of the elements in double and the same sums with the
/// same coefficients in long double, over single-phase states.
[[nodiscard]] Section rounding_section(std::span<const StateErrors> states);

}  // namespace co2_properties::accuracy
