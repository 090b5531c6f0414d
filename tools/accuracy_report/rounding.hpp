#pragma once
// What double precision costs.

#include <span>

#include "accuracy_report/errors.hpp"
#include "accuracy_report/text_table.hpp"

namespace co2_properties::accuracy {

/// How far the outputs of `co2_td` are from the same formulas of the same sums, taken with the
/// same coefficients in quadruple precision, over single-phase states.
[[nodiscard]] Section rounding_section(std::span<const StateErrors> states);

}  // namespace co2_properties::accuracy
