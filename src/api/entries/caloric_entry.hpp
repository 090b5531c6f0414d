#pragma once
// States from pressure and a caloric property: what `co2_ph` and `co2_ps` share.
//
// The templates take the entry as a type, see co2_ph.cpp. It has
//   Property                          the caloric property, a type of eos/property_types.hpp
//   codes                             what the entry reports
//   least, greatest                   between which start values are finite, beyond all states
//   start(caloric, pres, temp, dens)  start values; returns whether the state may be two-phase
//   write_mixture(...)                writes a two-phase state and returns its code

#include <cmath>
#include <cstdint>

#include "api/entries/places.hpp"
#include "api/entries/state_writer.hpp"
#include "co2_properties/limits.hpp"
#include "co2_properties/status.hpp"
#include "eos/helmholtz.hpp"
#include "eos/locate_td.hpp"
#include "eos/locate_tp.hpp"
#include "saturation/phase.hpp"
#include "solvers/relocate.hpp"
#include "solvers/solve_caloric.hpp"
#include "solvers/solve_density.hpp"

namespace co2_properties {

/// The codes that an entry reports.
struct CaloricCodes {
  std::int32_t temp_below_min;
  std::int32_t temp_above_max;
  std::int32_t pres_below_min;
  std::int32_t pres_above_max;
  std::int32_t not_converged;
  std::int32_t two_phase;
  std::int32_t loosely_converged;
};
inline constexpr CaloricCodes ph_codes = {status::ph_temp_below_min,   status::ph_temp_above_max,
                                          status::ph_pres_below_min,   status::ph_pres_above_max,
                                          status::ph_not_converged,    status::ph_two_phase,
                                          status::ph_loosely_converged};
inline constexpr CaloricCodes ps_codes = {status::ps_temp_below_min,   status::ps_temp_above_max,
                                          status::ps_pres_below_min,   status::ps_pres_above_max,
                                          status::ps_not_converged,    status::ps_two_phase,
                                          status::ps_loosely_converged};

// ---- Outside the range --------------------------------------------------------------------------

/// The property of the single phase at a temperature, K, and pressure, kPa, of the range.
/// \param first  element of the phase to start with
template <class Property>
[[nodiscard]] double caloric_on_isobar(const std::int32_t first, const double temp,
                                       const double pres) noexcept {
  const DensitySolution s = solve_density(first, temp, pres);
  return Property::value(evaluate(s.isotherm, s.dens, std::log(s.dens)), temp, s.dens);
}

/// The code of a property that no state of the range has at its pressure: where it lies to the
/// coldest and to the hottest one decides, not where an iteration ended.
/// \param temp  K, decides where rounding alone has led out of the range
template <class Entry>
[[nodiscard, gnu::noinline]] std::int32_t code_outside(const double pres, const double caloric,
                                                       const double temp) noexcept {
  constexpr CaloricCodes codes = Entry::codes;
  if (!std::isfinite(pres) || !std::isfinite(caloric)) return codes.not_converged;
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

// ---- Where to look -----------------------------------------------------------------------------

template <class Entry>
[[nodiscard]] CaloricStart start_caloric(const double pres, const double caloric) noexcept {
  using Property = typename Entry::Property;
  CaloricStart s;
  if (pres < pres_min || pres > pres_max) {
    s.code = pres < pres_min ? Entry::codes.pres_below_min : Entry::codes.pres_above_max;
    return s;
  }
  // Farther out not even the start values are finite. True for NaN.
  if (!(caloric > Entry::least && caloric < Entry::greatest)) {
    s.code = code_outside<Entry>(pres, caloric, s.temp);
    return s;
  }
  if (!Entry::start(caloric, pres, s.temp, s.dens)) {
    s.element = relocate(s.temp, s.dens);
    return s;
  }
  const double temp_sat = calc_sat_temp(pres);
  const double dens_vap = calc_sat_vap_dens(temp_sat);
  if (!(dens_vap > 0.0)) {  // far below its cold end the extrapolated saturation line ends
    s.element = vap_index_from_td(temp_sat, dens_vap);
    return s;
  }
  s.vap = saturated_vapour(temp_sat, dens_vap);
  const double caloric_vap = Property::value(s.vap.d, temp_sat, s.vap.dens);
  s.element = s.vap.element;
  if (!(caloric < caloric_vap)) return s;
  s.liq = saturated_liquid(temp_sat, calc_sat_liq_dens(temp_sat));
  const double caloric_liq = Property::value(s.liq.d, temp_sat, s.liq.dens);
  s.element = s.liq.element;
  if (!(caloric > caloric_liq)) return s;
  s.is_mixture = true;
  s.temp = temp_sat;
  s.qual = (caloric - caloric_liq) / (caloric_vap - caloric_liq);
  s.dens = s.vap.dens * s.liq.dens / (s.vap.dens + s.qual * (s.liq.dens - s.vap.dens));
  return s;
}

// ---- Entry -------------------------------------------------------------------------------------

/// \param start  what `start_caloric` found for the same pressure and property
template <class Entry>
void finish_caloric(const CaloricStart& start, const double pres, const double caloric,
                    std::int32_t& ierr, const OutputSet& out) noexcept {
  constexpr CaloricCodes codes = Entry::codes;
  if (start.code != status::success) return fail(start.code, ierr, out);
  ierr = status::success;
  if (start.is_mixture) {
    ierr = Entry::write_mixture(start.temp, start.dens, start.qual, start.liq, start.vap, out);
    return;
  }
  const CaloricTarget target = caloric_target(pres, caloric);
  const CaloricSolution s =
      solve_caloric<typename Entry::Property>(target, start.element, start.temp, start.dens);
  const Agreement agreement = judge_agreement(s, target);
  if (agreement == Agreement::loose) ierr = codes.loosely_converged;
  if (agreement == Agreement::none || !s.served || !(s.temp >= temp_min && s.temp <= temp_max) ||
      !has_phase(pres, s.temp, s.dens)) {
    return fail(code_outside<Entry>(pres, caloric, s.temp), ierr, out);
  }
  write_single_phase(s.d, s.temp, s.dens, pres, SaturatedDensities{}, out);
}

}  // namespace co2_properties
