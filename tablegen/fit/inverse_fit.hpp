#pragma once
// Fit of one start-value cell.

#include <vector>

#include "solvers/inverse_cell.hpp"
#include "tablegen/fit/inverse_states.hpp"
#include "tablegen/tilings/inverse_tiling.hpp"

namespace co2_properties::tablegen {

/// The property that a table estimates.
enum class Estimate { temperature, density };

[[nodiscard]] inline Real estimated(const Estimate estimate, const InverseState& state) {
  return estimate == Estimate::temperature ? state.at.temp : state.at.dens;
}

/// Least-squares fit to the states in the stored form, each coefficient rounded to double; cold
/// liquid counts little. The given coefficients of the cell are left aside.
///
/// Residuals are relative to the value and to the distance from the critical density. A Newton step
/// from an error e leaves one of e^2 / d, where d is the distance over which the isotherms bend; at
/// the critical point that is the distance from it.
[[nodiscard]] InverseCell fit_inverse_cell(Caloric caloric, Estimate estimate,
                                           const InverseTilingCell& cell,
                                           const ServedStates& served);

/// Value of a cell with the evaluator of the library.
[[nodiscard]] double evaluate(Caloric caloric, const InverseCell& cell, double pres, double value);

}  // namespace co2_properties::tablegen
