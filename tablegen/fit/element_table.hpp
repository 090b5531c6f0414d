#pragma once
// The element table: all 649 fits together, and its generated source.

#include <vector>

#include "tablegen/emit/table.hpp"
#include "tablegen/fit/element_fit.hpp"

namespace co2_properties::tablegen {

/// A fitted element beside the best that its functions reach on its rectangle alone.
struct ElementResult {
  ElementCell cell;
  ElementFit stored;
  ElementFit unconstrained;
};

/// Fits every element. Elements that share a density edge take over one polynomial for a_rho along
/// it, so that the pressure is continuous in density within a region.
[[nodiscard]] std::vector<ElementResult> fit_elements(const std::vector<ElementCell>& cells);

/// Entry of the registry: writes eos/tables/elements.cpp.
[[nodiscard]] Table elements_table();

}  // namespace co2_properties::tablegen
