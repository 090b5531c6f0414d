#pragma once
// All element fits together: the density edges that they share.

#include <vector>

#include "tablegen/fit/element_fit.hpp"

namespace co2_properties::tablegen {

/// A fitted element beside the best that its functions reach on its rectangle alone.
struct ElementResult {
  ElementCell cell;
  ElementFit stored;
  ElementFit unconstrained;

  /// How much worse the element is than its functions could be without shared edges.
  [[nodiscard]] double ratio() const {
    return unconstrained.residual > 0.0 ? stored.residual / unconstrained.residual : 1.0;
  }
};

/// Fits every element. Elements that share a density edge take over one polynomial for a_rho along
/// it, so that the pressure is continuous in density within a region.
[[nodiscard]] std::vector<ElementResult> fit_elements(const std::vector<ElementCell>& cells);

}  // namespace co2_properties::tablegen
