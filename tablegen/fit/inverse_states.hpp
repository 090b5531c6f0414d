#pragma once
// Reference states at given pressure and enthalpy or entropy, for the fits of start values.

#include <vector>

#include "tablegen/fit/reach.hpp"
#include "tablegen/tilings/cell_grid.hpp"

namespace co2_properties::tablegen {

/// The property that goes with the pressure.
enum class Caloric { enthalpy, entropy };

/// A state with the coordinates of the start-value tilings: pres in kPa, caloric in kJ/kg or
/// kJ/(kg K).
struct InverseState {
  Real pres, caloric;
  StatePoint at;
};

/// The states that the fit of one cell has to serve.
struct ServedStates {
  enum class Kind { stable, superheated_liquid, two_phase } kind;
  std::vector<InverseState> states;
  std::vector<InverseState> cold_liquid;  ///< beyond the limits, to be met roughly; mostly empty
};

/// States of a cell, laid out over isobars from end to end and over the caloric property along
/// each: `nodes`, ascending in [0, 1], for both.
///
/// They are the stable single-phase states of the cell within the limits of the library, 240 K to
/// 1500 K and 1 kPa to 100000 kPa. A few cells of entropy below 1000 kPa have none: they lie in the
/// dome or beyond its cold end. They get superheated liquid, from 240 K on, or, past the limit of
/// its stability, two-phase mixtures.
///
/// Below the saturation pressure at 240 K all liquid is colder than the limit. A cell open towards
/// it that serves vapour alone would extrapolate to densities from which Newton's method does not
/// find the liquid, and a caller could not tell that the state is too cold. Cells open in that
/// direction therefore also get liquid between the triple point and 240 K.
/// \throws std::runtime_error if a state cannot be found
[[nodiscard]] ServedStates served_states(Caloric caloric, const Box& cell,
                                         const std::vector<Real>& nodes);

}  // namespace co2_properties::tablegen
