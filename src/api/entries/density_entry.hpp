#pragma once
// States from density and a second property: what `co2_du`, `co2_dh`, `co2_ds` and `co2_dp` share.
//
// The templates take the pair of inputs as a type, see density.hpp.

#include <cstdint>
#include <limits>
#include <type_traits>

#include "api/entries/density.hpp"
#include "api/entries/state_writer.hpp"
#include "co2_properties/limits.hpp"
#include "co2_properties/status.hpp"
#include "saturation/tie_line.hpp"
#include "solvers/relocate.hpp"
#include "solvers/solve_isochore.hpp"

namespace co2_properties {

// ---- The stated road ---------------------------------------------------------------------------

/// The code of a value that lies beyond an end of the isochore between 240 K and 1500 K: that of
/// the limit which a state that comes from inside the range crosses first.
template <class Pair>
[[nodiscard]] std::int32_t code_beyond(const IsochoreSolution& s, const double dens) noexcept {
  constexpr DensityCodes codes = Pair::codes;
  const IsochoreState& state = s.state;
  const double pres = state.is_mixture || state.is_beyond ? pres_sat_min : pressure(state.d, dens);
  if (s.end == IsochoreEnd::below)
    return pres < pres_min ? codes.pres_below_min : codes.temp_below_min;
  return state.is_beyond ? codes.pres_above_max : codes.temp_above_max;
}

template <class Pair>
void finish_density_mixture(const double temp, const double dens, const SaturatedPhase<double>& liq,
                            const SaturatedPhase<double>& vap, std::int32_t& ierr,
                            const OutputSets out) noexcept {
  write_mixture<MixtureTransport::none>(OutputWriter(out), mixture_from_td(temp, dens, liq, vap));
  ierr = code_of_mixture(Pair::codes.two_phase, out);
}

/// All states: limits and phase are decided as documented, and the iteration goes on until it meets
/// the property.
template <class Pair>
[[gnu::noinline]] void take_isochore_road(const double dens, const double value, std::int32_t& ierr,
                                          const OutputSets out) noexcept {
  constexpr DensityCodes codes = Pair::codes;
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr bool by_pressure = std::is_same_v<typename Pair::Property, Pressure>;
  if (!(absolute(dens) < infinity && absolute(value) < infinity))
    return fail(codes.not_converged, ierr, out);
  if (dens < dens_min) return fail(codes.pres_below_min, ierr, out);
  if constexpr (by_pressure) {
    if (value < pres_min) return fail(codes.pres_below_min, ierr, out);
    if (value > pres_max) return fail(codes.pres_above_max, ierr, out);
  }
  const DensityPlace<double> place = place_density<Pair, double>(dens, value);
  // Farther out no state is found either.
  const double above = value > Pair::least ? value : Pair::least;
  const double within = above < Pair::greatest ? above : Pair::greatest;
  const IsochoreSolution s = solve_isochore<typename Pair::Property>(dens, within, place.temp);
  const IsochoreState& state = s.state;
  if (s.end != IsochoreEnd::found) return fail(code_beyond<Pair>(s, dens), ierr, out);
  if (state.is_mixture)
    return finish_density_mixture<Pair>(state.temp, dens, state.liq, state.vap, ierr, out);
  const double pres = pressure(state.d, dens);
  if (!by_pressure && pres < pres_min) return fail(codes.pres_below_min, ierr, out);
  if (!by_pressure && pres > pres_max) return fail(codes.pres_above_max, ierr, out);
  ierr = status::success;
  const auto single = SinglePhase<double>::of(state.d, state.temp, dens, pres, true);
  write_single_phase(OutputWriter(out), &single, 1);
}

// ---- Entry -------------------------------------------------------------------------------------

/// \return whether the state is written
template <class Pair>
[[nodiscard, gnu::always_inline]] inline bool finish_as_mixture(const double dens,
                                                                const double value,
                                                                std::int32_t& ierr,
                                                                const OutputSets out) noexcept {
  double temp = mixture_start<Pair>(dens, value);
  for (std::int32_t round = 0; round <= density_rounds; ++round) {
    const auto at = TieLine<double>::at(temp);
    const auto [next, met] = step_mixture<Pair>(temp, at.liq, at.vap, dens, value);
    if (met) {
      finish_density_mixture<Pair>(temp, dens, at.liq, at.vap, ierr, out);
      return true;
    }
    temp = next;
  }
  return false;
}

template <class Pair>
[[nodiscard, gnu::always_inline]] inline bool finish_as_single(double temp, const double dens,
                                                               const double value,
                                                               std::int32_t& ierr,
                                                               const OutputSets out) noexcept {
  const auto log_dens = logarithm_of_normal(dens);
  for (std::int32_t round = 0; round < density_rounds; ++round) {
    Cells<double> cells;
    const auto at = step_density<Pair, double>(temp, dens, log_dens, value, cells);
    if (!at.served) {
      temp = within_range(at.temp);
      continue;
    }
    const SinglePhase<double> s = evaluate_density<Pair, double>(cells, at, dens, log_dens, value);
    if (s.wanted) {
      ierr = status::success;
      write_single_phase(OutputWriter(out), &s, 1);
      return true;
    }
    temp = at.temp;
  }
  return false;
}

template <class Pair>
void run_density(const double dens, const double value, std::int32_t& ierr,
                 const OutputSets out) noexcept {
  const DensityPlace<double> place = place_density<Pair, double>(dens, value);
  if (place.single && finish_as_single<Pair>(place.temp, dens, value, ierr, out)) return;
  if (place.mixture && finish_as_mixture<Pair>(dens, value, ierr, out)) return;
  take_isochore_road<Pair>(dens, value, ierr, out);
}

}  // namespace co2_properties
