#pragma once
// States from pressure and a caloric property: what `co2_ph` and `co2_ps` share.
//
// The templates take the property as a type, see api/entries/caloric_properties.hpp. It provides
//   codes                             what the entry reports
//   least, greatest                   between which start values are finite, beyond all states
//   start(caloric, pres, temp, dens)  start values; returns whether the state may be two-phase
//   value, by_dens, by_temp           the property and its derivatives
//   write_mixture(...)                writes a two-phase state and returns its code

#include <cmath>
#include <cstdint>

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

// ---- Outside the range --------------------------------------------------------------------------

/// The property of the single phase at a temperature, K, and pressure, kPa, of the range.
/// \param first  element of the phase to start with
template <class Caloric>
[[nodiscard]] double caloric_on_isobar(const std::int32_t first, const double temp,
                                       const double pres) noexcept {
  const DensitySolution s = solve_density(first, temp, pres);
  return Caloric::value(evaluate(s.isotherm, s.dens, std::log(s.dens)), temp, s.dens);
}

/// The code of a property that no state of the range has at its pressure: where it lies to the
/// coldest and to the hottest one decides, not where an iteration ended.
/// \param temp  K, decides where rounding alone has led out of the range
template <class Caloric>
[[nodiscard, gnu::noinline]] std::int32_t code_outside(const double pres, const double caloric,
                                                       const double temp) noexcept {
  constexpr CaloricCodes codes = Caloric::codes;
  if (!std::isfinite(pres) || !std::isfinite(caloric)) return codes.not_converged;
  const std::int32_t coldest =
      pres < pres_sat_min ? vap_index_from_tp(temp_min, pres) : liq_index_from_tp(temp_min, pres);
  if (caloric < caloric_on_isobar<Caloric>(coldest, temp_min, pres)) return codes.temp_below_min;
  const std::int32_t hottest = sc_index_from_tp(temp_max, pres);
  if (caloric > caloric_on_isobar<Caloric>(hottest, temp_max, pres)) return codes.temp_above_max;
  if (temp < temp_min) return codes.temp_below_min;
  if (temp > temp_max) return codes.temp_above_max;
  return codes.not_converged;
}

// ---- Where to look -----------------------------------------------------------------------------

/// What is known before the iteration: where it starts or, for a mixture, the state itself.
struct CaloricStart {
  std::int32_t code = status::success;
  bool is_mixture = false;
  std::int32_t element = 0;  ///< to start with
  double temp = 0.0;         ///< K
  double dens = 0.0;         ///< kg/m3
  double qual = 0.0;         ///< of the mixture, whose phases follow
  SaturatedPhase liq{};
  SaturatedPhase vap{};
};

template <class Caloric>
[[nodiscard]] CaloricStart start_caloric(const double pres, const double caloric) noexcept {
  CaloricStart s;
  if (pres < pres_min || pres > pres_max) {
    s.code = pres < pres_min ? Caloric::codes.pres_below_min : Caloric::codes.pres_above_max;
    return s;
  }
  // Farther out not even the start values are finite. True for NaN.
  if (!(caloric > Caloric::least && caloric < Caloric::greatest)) {
    s.code = code_outside<Caloric>(pres, caloric, s.temp);
    return s;
  }
  if (!Caloric::start(caloric, pres, s.temp, s.dens)) {
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
  const double caloric_vap = Caloric::value(s.vap.d, temp_sat, s.vap.dens);
  s.element = s.vap.element;
  if (!(caloric < caloric_vap)) return s;
  s.liq = saturated_liquid(temp_sat, calc_sat_liq_dens(temp_sat));
  const double caloric_liq = Caloric::value(s.liq.d, temp_sat, s.liq.dens);
  s.element = s.liq.element;
  if (!(caloric > caloric_liq)) return s;
  s.is_mixture = true;
  s.temp = temp_sat;
  s.qual = (caloric - caloric_liq) / (caloric_vap - caloric_liq);
  s.dens = s.vap.dens * s.liq.dens / (s.vap.dens + s.qual * (s.liq.dens - s.vap.dens));
  return s;
}

// ---- Verdict -----------------------------------------------------------------------------------

/// Half the width of the band around the critical temperature, K, in which isotherms are flat.
inline constexpr double critical_band = 0.08;

/// Verdict on an iteration that did not converge in time: success, the warning of the band around
/// the critical temperature, where the isotherms are flat and a loose result is still a result, or
/// an error. Iterations that are lost may pass through the band: what is off by more than a
/// hundredth is no result.
[[nodiscard]] inline std::int32_t judge_late_result(const CaloricSolution& s,
                                                    const CaloricTarget& target,
                                                    const CaloricCodes& codes) noexcept {
  const double pres_error = std::abs(s.pres_residual);
  const double caloric_error = std::abs(s.caloric_residual);
  if (std::abs(s.temp - t_crit) <= critical_band) {
    const auto within = [&](const double share) {
      return pres_error <= share * target.pres &&
             caloric_error <= at_least_of_unit(share, target.caloric);
    };
    if (within(1e-4)) return status::success;
    return within(1e-2) ? codes.loosely_converged : codes.not_converged;
  }
  if (pres_error <= 10.0 * target.pres_tolerance &&
      caloric_error <= 100.0 * target.caloric_tolerance) {
    return status::success;
  }
  return codes.not_converged;
}

// ---- Entry -------------------------------------------------------------------------------------

/// \param start  what `start_caloric` found for the same pressure and property
template <class Caloric>
void finish_caloric(const CaloricStart& start, const double pres, const double caloric,
                    std::int32_t& ierr, const OutputSet& out) noexcept {
  constexpr CaloricCodes codes = Caloric::codes;
  if (start.code != status::success) return fail(start.code, ierr, out);
  ierr = status::success;
  if (start.is_mixture) {
    ierr = Caloric::write_mixture(start.temp, start.dens, start.qual, start.liq, start.vap, out);
    return;
  }
  const CaloricTarget target = caloric_target(pres, caloric);
  const CaloricSolution s = solve_caloric<Caloric>(target, start.element, start.temp, start.dens);
  if (s.evaluations == last_evaluation) ierr = judge_late_result(s, target, codes);
  if (ierr > 0 || !s.served || !(s.temp >= temp_min && s.temp <= temp_max) ||
      !has_phase(pres, s.temp, s.dens)) {
    return fail(code_outside<Caloric>(pres, caloric, s.temp), ierr, out);
  }
  write_single_phase(s.d, s.temp, s.dens, pres, SaturatedDensities{}, out);
}

}  // namespace co2_properties
