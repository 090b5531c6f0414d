#pragma once
// States from pressure and a caloric property: what `co2_ph` and `co2_ps` share.
//
// The templates take the property as a type, see api/caloric_properties.hpp. It provides
//   codes                             what the entry reports
//   start(caloric, pres, temp, dens)  start values; returns whether the state may be two-phase
//   value, by_dens, by_temp           the property and its derivatives
//   write_mixture(...)                writes a two-phase state and returns its code

#include <cmath>
#include <cstdint>

#include "api/co2_properties.hpp"
#include "api/relocate.hpp"
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
};

/// The largest number of evaluations after which a result counts as converged, and the number that
/// ends the loop.
inline constexpr std::int32_t last_accepted_evaluation = 14;
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
/// times dp/drho at constant entropy (over T for the entropy), which are both positive. NaN never
/// converges.
template <class Caloric>
[[nodiscard]] CaloricSolution solve_caloric(const CaloricTarget& target, const std::int32_t first,
                                            const double temp, const double dens) noexcept {
  CaloricSolution s{first, temp, dens, {}, 0.0, 0.0, 1};
  const auto evaluate_here = [&s] {
    const Element& kept = element(s.element);
    if (!keeps_element(s.temp - kept.temp0, kept.temp_width) ||
        !keeps_element(s.dens - kept.dens0, kept.dens_width)) {
      s.element = relocate(s.temp, s.dens);
    }
    s.d = evaluate(element(s.element), s.temp, s.dens, std::log(s.dens));
  };
  for (;;) {
    evaluate_here();
    s.pres_residual = pressure(s.d, s.dens) - target.pres;
    s.caloric_residual = Caloric::value(s.d, s.temp, s.dens) - target.caloric;
    if (std::abs(s.pres_residual) < target.pres_tolerance &&
        std::abs(s.caloric_residual) < target.caloric_tolerance) {
      return s;
    }
    const auto step =
        caloric_step<Caloric>(s.d, s.temp, s.dens, s.pres_residual, s.caloric_residual);
    s.temp -= step.temp;
    s.dens -= step.dens;
    if (++s.evaluations == last_evaluation) break;
  }
  evaluate_here();
  return s;
}

/// Half the width of the band around the critical temperature, K, in which isotherms are flat.
inline constexpr double critical_band = 0.08;

/// Verdict on an iteration that did not converge in time: success, the warning of the band around
/// the critical temperature, where the isotherms are flat and a loose result is still a result, or
/// an error. A NaN is an error.
[[nodiscard]] inline std::int32_t judge_late_result(const CaloricSolution& s,
                                                    const CaloricTarget& target,
                                                    const CaloricCodes& codes) noexcept {
  constexpr double loose = 1e-4;
  const double pres_error = std::abs(s.pres_residual);
  const double caloric_error = std::abs(s.caloric_residual);
  if (std::abs(s.temp - t_crit) <= critical_band) {
    const bool off =
        pres_error > loose * target.pres || caloric_error > at_least_of_unit(loose, target.caloric);
    return off ? codes.loosely_converged : status::success;
  }
  if (pres_error <= 10.0 * target.pres_tolerance &&
      caloric_error <= 100.0 * target.caloric_tolerance) {
    return status::success;
  }
  if (s.temp < temp_min) return codes.temp_below_min;
  if (s.temp > temp_max) return codes.temp_above_max;
  return codes.not_converged;
}

/// Whether pressure and property are met by a stable fluid of the range. Inputs far beyond it may
/// be met where an extrapolated polynomial goes, at densities that no fluid has or where the
/// isotherm falls. The critical point is as close to the limit of stability as rounding, so that in
/// the band around its temperature nothing is refused. For one state or for lanes.
template <class Derivatives, class Real>
[[nodiscard, gnu::always_inline]] inline auto is_stable_state(const Derivatives& d,
                                                              const Real& temp,
                                                              const Real& dens) noexcept {
  constexpr double densest = 1300.0;  // kg/m3; 1257.3 at 240 K and 100000 kPa
  const Real slope = dpdd(d, dens);
  return ((temp > t_crit - critical_band) & (temp < t_crit + critical_band)) |
         ((dens < densest) & (slope > 0.0) & (d.a_tt < 0.0));
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
  if (s.evaluations > last_accepted_evaluation) {
    const std::int32_t verdict = judge_late_result(s, target, codes);
    if (verdict > 0) return fail(verdict, ierr, out);
    ierr = verdict;
  }
  if (s.temp < temp_min) return fail(codes.temp_below_min, ierr, out);
  if (s.temp > temp_max) return fail(codes.temp_above_max, ierr, out);
  if (!is_stable_state(s.d, s.temp, s.dens)) return fail(codes.not_converged, ierr, out);
  write_single_phase(s.d, s.temp, s.dens, pres, SaturatedDensities{}, out);
}

}  // namespace co2_properties
