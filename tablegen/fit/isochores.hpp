#pragma once
// Start values and phase bounds along isochores of the library.

#include <vector>

#include "solvers/isochore.hpp"
#include "solvers/solve_tie_line.hpp"

namespace co2_properties::tablegen {

/// The table of one property.
struct IsochoreFit {
  std::vector<IsochoreBin> bins;         ///< one for each of `isochore_bins`
  std::vector<std::vector<float>> gain;  ///< by density, by distance from the critical temperature
  double worst_start;  ///< largest error at the middle of four nodes, relative to the distance in
                       ///< temperature from the critical one
};

/// Defined for the four properties with an `OnIsochore`.
template <class Property>
[[nodiscard]] IsochoreFit fit_isochores();

/// One of `saturated_nodes`, with the pressure of its vapour, kPa.
struct SaturatedNodeValues {
  SaturatedNode node;
  double pres;
};
[[nodiscard]] std::vector<SaturatedNodeValues> saturated_node_values();

}  // namespace co2_properties::tablegen
