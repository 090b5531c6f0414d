#pragma once
// States from pressure and a caloric property: what `co2_ph` and `co2_ps` share.
//
// The templates take the property as a type, see api/caloric_properties.hpp. It provides
//   codes                             what the entry reports
//   least, greatest                   between which start values are finite, beyond all states
//   start(caloric, pres, temp, dens)  start values; returns whether the state may be two-phase
//   value, by_dens, by_temp           the property and its derivatives
//   write_mixture(...)                writes a two-phase state and returns its code

#include <cmath>
#include <cstdint>

#include "api/co2_properties.hpp"
#include "api/relocate.hpp"
#include "api/solve_density.hpp"
#include "api/state_writer.hpp"
#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"

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

// ---- Iteration ---------------------------------------------------------------------------------

/// What is asked for: pressure, kPa, and the caloric property, with the residuals that are small
/// enough.
struct CaloricTarget {
  double pres;
  double caloric;
  double pres_tolerance;
  double caloric_tolerance;
};

/// Share of the magnitude, but not less than the share of one unit: caloric properties have
/// arbitrary zero points.
[[nodiscard]] inline double at_least_of_unit(const double share, const double value) noexcept {
  return share * std::abs(value) > share ? share * std::abs(value) : share;
}

[[nodiscard]] inline CaloricTarget caloric_target(const double pres,
                                                  const double caloric) noexcept {
  constexpr double tolerance = 1e-11;
  return {pres, caloric, tolerance * pres, at_least_of_unit(tolerance, caloric)};
}

/// Where the iteration on temperature and density ended.
struct CaloricSolution {
  std::int32_t element;  ///< holds temp and dens, or nearly so
  double temp;
  double dens;
  HelmholtzDerivatives d;   ///< at temp and dens
  double pres_residual;     ///< of the last evaluation in the loop
  double caloric_residual;  ///< likewise
  std::int32_t evaluations;
  bool served = true;  ///< by an element: not lost, nor beyond the elements
};

/// The number of evaluations that ends an iteration which has not met its target.
inline constexpr std::int32_t last_evaluation = 16;

/// One Newton step, to be subtracted; for one state or for lanes. By Cramer's rule, which divides
/// once: an elimination would divide three times in a row.
template <class Real>
struct CaloricStep {
  Real temp, dens;
};
template <class Caloric, class Derivatives, class Real>
[[nodiscard, gnu::always_inline]] inline CaloricStep<Real> caloric_step(
    const Derivatives& d, const Real& temp, const Real& dens, const Real& pres_residual,
    const Real& caloric_residual) noexcept {
  const Real p_d = dpdd(d, dens);
  const Real p_t = dpdt(d, dens);
  const Real c_d = Caloric::by_dens(d, temp, dens);
  const Real c_t = Caloric::by_temp(d, temp, dens);
  const Real determinant = c_t * p_d - c_d * p_t;
  return {(caloric_residual * p_d - pres_residual * c_d) / determinant,
          (pres_residual * c_t - caloric_residual * p_t) / determinant};
}

/// Newton's method in temperature and density on the elements.
/// \param first       element to start with
/// \param temp, dens  start values, K and kg/m3
///
/// Steps are neither limited nor damped: from the start values two or three of them lead to the
/// tolerance. The Jacobian is regular also where the isotherm is flat, since its determinant is cv
/// times dp/drho at constant entropy (over T for the entropy), which are both positive. An iterate
/// that leads nowhere, and NaN, ends the iteration as if all evaluations had been made.
template <class Caloric>
[[nodiscard]] CaloricSolution solve_caloric(const CaloricTarget& target, const std::int32_t first,
                                            const double temp, const double dens) noexcept {
  CaloricSolution s{first, temp, dens, {}, 0.0, 0.0, 1};
  const auto evaluate_here = [&s] {
    s.served = serves(element(s.element), s.temp, s.dens);
    if (!s.served) {
      if (!is_promising(s.temp, s.dens)) {
        s.evaluations = last_evaluation;
        return false;
      }
      s.element = relocate(s.temp, s.dens);
      s.served = serves(element(s.element), s.temp, s.dens);
    }
    s.d = evaluate(element(s.element), s.temp, s.dens, std::log(s.dens));
    return true;
  };
  while (evaluate_here()) {
    if (s.evaluations == last_evaluation) break;
    s.pres_residual = pressure(s.d, s.dens) - target.pres;
    s.caloric_residual = Caloric::value(s.d, s.temp, s.dens) - target.caloric;
    if (std::abs(s.pres_residual) < target.pres_tolerance &&
        std::abs(s.caloric_residual) < target.caloric_tolerance) {
      break;
    }
    const auto step =
        caloric_step<Caloric>(s.d, s.temp, s.dens, s.pres_residual, s.caloric_residual);
    s.temp -= step.temp;
    s.dens -= step.dens;
    ++s.evaluations;
  }
  return s;
}

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

// ---- Phase -------------------------------------------------------------------------------------
//
// Polynomials extrapolated from one side of the dome to the other may meet pressure and property
// too. Below the critical temperature the saturation temperature of the pressure tells them from
// states: liquid is colder, vapour hotter.

/// Whether that is certain without the saturation temperature, which curves down over pressure: it
/// lies below any tangent and, on the saturation line, above the chord. For one state or for lanes.
template <class Real>
[[nodiscard, gnu::always_inline]] inline auto surely_has_phase(const Real& pres, const Real& temp,
                                                               const Real& dens) noexcept {
  constexpr double chord = (t_crit - temp_sat_min) / (p_crit - pres_sat_min);
  const auto liq = (pres > p_crit + 1.0) | (temp < temp_sat_min + chord * (pres - pres_sat_min));
  const auto vap = temp > 278.5 + 0.0098 * (pres - 4000.0);
  return (temp >= t_crit) | ((dens > d_crit) & liq) | ((dens <= d_crit) & vap);
}

/// Whether a solution at `pres`, kPa, lies on its own side of the dome. This close to it the other
/// deciders, densities and saturation pressures, may differ; see docs/errors.md.
[[nodiscard]] inline bool has_phase(const double pres, const double temp,
                                    const double dens) noexcept {
  if (surely_has_phase(pres, temp, dens) != 0) return true;
  constexpr double undecided = 1e-4;  // K
  constexpr double highest = 7400.0;  // kPa, where the last piece still rises
  const double temp_sat = calc_sat_temp(pres < highest ? pres : highest);
  return dens > d_crit ? temp < temp_sat + undecided : temp > temp_sat - undecided;
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
