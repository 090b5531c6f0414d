#pragma once
// Steps towards two given properties for one state, as entries for arrays take them in lanes.

#include "api/entries/state_writer.hpp"
#include "solvers/two_property_step.hpp"

namespace co2_properties {

/// Steps until the state is found, and writes it.
/// \param temp, dens     start values, K and kg/m3
/// \param first, second  values of the properties
/// \param evaluated      evaluated(cells, at): the state there, `wanted` if it is the one
/// \return whether it was found
template <class First, class Second, class Evaluate>
[[nodiscard, gnu::always_inline]] inline bool finish_in_rounds(double temp, double dens,
                                                               const double first,
                                                               const double second,
                                                               const Evaluate& evaluated,
                                                               const OutputSets out) noexcept {
  for (std::int32_t round = 0; round < step_rounds; ++round) {
    Cells<double> cells;
    Iterate<double> at = start_in_element<double>(temp, dens, cells);
    if (at.served) at = step_towards<First, Second, double>(at, first, second, cells);
    if (!at.served) return false;
    const SinglePhase<double> s = evaluated(cells, at);
    if (s.wanted) {
      write_single_phase(OutputWriter(out), &s, 1);
      return true;
    }
    temp = at.temp;
    dens = at.dens;
  }
  return false;
}

}  // namespace co2_properties
