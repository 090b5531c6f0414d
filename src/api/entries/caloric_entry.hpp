#pragma once
// States from pressure and a caloric property: what `co2_ph`, `co2_ps` and `co2_pu` share.
//
// The templates take the pair of inputs as a type, see caloric.hpp.

#include <cstdint>
#include <limits>

#include "api/entries/caloric.hpp"
#include "api/entries/rounds.hpp"
#include "api/entries/state_writer.hpp"
#include "co2_properties/limits.hpp"
#include "co2_properties/status.hpp"
#include "eos/helmholtz.hpp"
#include "eos/locate_td.hpp"
#include "eos/locate_tp.hpp"
#include "saturation/phase.hpp"
#include "saturation/tie_line.hpp"
#include "solvers/relocate.hpp"
#include "solvers/solve_caloric.hpp"
#include "solvers/solve_density.hpp"

namespace co2_properties {

// ---- Outside the range --------------------------------------------------------------------------

/// The property of the single phase at a temperature, K, and pressure, kPa, of the range.
/// \param first  element of the phase to start with
template <class Property>
[[nodiscard]] double caloric_on_isobar(const std::int32_t first, const double temp,
                                       const double pres) noexcept {
  const DensitySolution s = solve_density(first, temp, pres);
  return Property::value(evaluate(s.isotherm, s.dens, logarithm(s.dens)), temp);
}

/// The code of a property that no state of the range has at its pressure: where it lies to the
/// coldest and to the hottest one decides, not where an iteration ended.
/// \param temp  K, decides where rounding alone has led out of the range
template <class Entry>
[[nodiscard]] std::int32_t code_outside(const double pres, const double caloric,
                                        const double temp) noexcept {
  constexpr CaloricCodes codes = Entry::codes;
  constexpr double infinity = std::numeric_limits<double>::infinity();
  if (!(absolute(pres) < infinity && absolute(caloric) < infinity)) return codes.not_converged;
  const std::int32_t coldest =
      pres < pres_sat_min ? vap_index_from_tp(temp_min, pres) : liq_index_from_tp(temp_min, pres);
  if (caloric < caloric_on_isobar<typename Entry::Property>(coldest, temp_min, pres))
    return codes.temp_below_min;
  const std::int32_t hottest = sc_index_from_tp(temp_max, pres);
  if (caloric > caloric_on_isobar<typename Entry::Property>(hottest, temp_max, pres))
    return codes.temp_above_max;
  if (temp < temp_min) return codes.temp_below_min;
  if (temp > temp_max) return codes.temp_above_max;
  return codes.not_converged;
}

// ---- The stated road ---------------------------------------------------------------------------

/// Solves, evaluates and writes a single phase.
/// \param first       element to start with
/// \param temp, dens  start values
template <class Entry>
void finish_single(const std::int32_t first, const double temp, const double dens,
                   const double pres, const double caloric, std::int32_t& ierr,
                   const OutputSets out) noexcept {
  const CaloricTarget target = caloric_target(pres, caloric);
  const CaloricSolution s = solve_caloric<typename Entry::Property>(target, first, temp, dens);
  const Agreement agreement = judge_agreement(s, target);
  if (agreement == Agreement::none || !s.served || !(s.temp >= temp_min && s.temp <= temp_max) ||
      !has_phase(pres, s.temp, s.dens)) {
    return fail(code_outside<Entry>(pres, caloric, s.temp), ierr, out);
  }
  ierr = agreement == Agreement::loose ? Entry::codes.loosely_converged : status::success;
  const auto state = SinglePhase<double>::of(s.d, s.temp, s.dens, pres, true);
  write_single_phase(OutputWriter(out), &state, 1);
}

/// Writes a mixture at a saturation temperature, K.
template <class Entry>
[[gnu::always_inline]] inline void finish_mixture(const double temp, const double caloric,
                                                  const SaturatedPhase<double>& liq,
                                                  const SaturatedPhase<double>& vap,
                                                  std::int32_t& ierr,
                                                  const OutputSets out) noexcept {
  write_mixture<Entry::mixture_transport>(
      OutputWriter(out), mixture_from_caloric<typename Entry::Property>(temp, caloric, liq, vap));
  ierr = code_of_mixture<Entry::mixture_transport>(Entry::codes.two_phase, out);
}

/// All states: limits and phase are decided as documented, and Newton's method goes on until it
/// meets both inputs.
template <class Entry>
[[gnu::noinline]] void take_stated_road(const double pres, const double caloric, std::int32_t& ierr,
                                        const OutputSets out) noexcept {
  using Property = typename Entry::Property;
  if (pres < pres_min) return fail(Entry::codes.pres_below_min, ierr, out);
  if (pres > pres_max) return fail(Entry::codes.pres_above_max, ierr, out);
  // Farther out not even the start values are finite. True for NaN.
  if (!(caloric > Entry::least && caloric < Entry::greatest))
    return fail(code_outside<Entry>(pres, caloric, 0.0), ierr, out);
  const auto finish = [&](const std::int32_t first, const StartState<double>& from) {
    finish_single<Entry>(first, from.temp, from.dens, pres, caloric, ierr, out);
  };
  const StartState<double> start = Entry::template start<double>(caloric, pres);
  if (!start.may_be_mixture) return finish(relocate(start.temp, start.dens), start);
  const double temp = calc_sat_temp(pres);
  const double dens_vap = calc_sat_vap_dens(temp);
  const std::int32_t vapour = vap_index_from_td(temp, dens_vap);
  // Far below its cold end the extrapolated saturation line ends.
  if (!(dens_vap > 0.0)) return finish(vapour, start);
  const SaturatedPhase<double> vap = saturated_vapour(temp);
  if (!(caloric < Property::value(vap.d, temp))) return finish(vapour, start);
  const SaturatedPhase<double> liq = saturated_liquid(temp);
  if (!(caloric > Property::value(liq.d, temp)))
    return finish(liq_index_from_td(temp, liq.dens), start);
  finish_mixture<Entry>(temp, caloric, liq, vap, ierr, out);
}

// ---- Entry -------------------------------------------------------------------------------------

template <class Entry>
void run_caloric(const double pres, const double caloric, std::int32_t& ierr,
                 const OutputSets out) noexcept {
  const CaloricPlace<double> place = place_caloric<Entry, double>(pres, caloric);
  if (place.mixture) {
    const auto temp = saturation_temperature<double>(pres);
    return finish_mixture<Entry>(temp, caloric, saturated_liquid(temp), saturated_vapour(temp),
                                 ierr, out);
  }
  if (place.single) {
    const auto evaluated = [&](const Cells<double>& cells, const Iterate<double>& at) CO2_INLINE {
      return evaluate_caloric<Entry, double>(cells, at, pres, caloric);
    };
    if (finish_in_rounds<Pressure, typename Entry::Property>(place.temp, place.dens, pres, caloric,
                                                             evaluated, out)) {
      ierr = status::success;
      return;
    }
  }
  take_stated_road<Entry>(pres, caloric, ierr, out);
}

}  // namespace co2_properties
