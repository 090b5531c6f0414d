#pragma once
// The common road of entries for pressure and a caloric property, for one state or for several in
// lanes: states that are surely of one phase and that a step or two of third order solve, and
// mixtures.
//
// The templates take the pair of inputs as a type, see ph.hpp. It has
//   codes              what the entry reports
//   Property           the caloric property, a type of eos/property_types.hpp
//   least, greatest    between which start values are finite, beyond all states
//   bounds()           of the property of saturated phases, in bins of pressure
//   start(caloric, p)  start values
//   mixture_transport  what becomes of viscosity and conductivity in a mixture

#include "api/entries/state_writer.hpp"
#include "co2_properties/limits.hpp"
#include "co2_properties/status.hpp"
#include "eos/helmholtz.hpp"
#include "eos/property_types.hpp"
#include "saturation/phase.hpp"
#include "saturation/tie_line.hpp"
#include "solvers/relocate.hpp"
#include "solvers/solve_caloric.hpp"
#include "solvers/solve_density.hpp"
#include "solvers/start_values.hpp"
#include "solvers/two_property_step.hpp"

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
inline constexpr CaloricCodes pu_codes = {status::pu_temp_below_min,   status::pu_temp_above_max,
                                          status::pu_pres_below_min,   status::pu_pres_above_max,
                                          status::pu_not_converged,    status::pu_two_phase,
                                          status::pu_loosely_converged};

/// Which states take the common road, as one phase or as a mixture.
template <class V>
struct CaloricPlace {
  Mask<V> single;
  Mask<V> mixture;
  V temp, dens;  ///< start values of single phases
};

/// \param pres, caloric  kPa and the unit of the property; any values
template <class Pair, class V>
[[nodiscard, gnu::always_inline]] inline CaloricPlace<V> place_caloric(const V& pres,
                                                                       const V& caloric) noexcept {
  const Mask<V> within =
      is_within<V>(pres, pres_min, pres_max) & (caloric > Pair::least) & (caloric < Pair::greatest);
  const SureCaloricPhase<V> phase = sure_phase_from_caloric(Pair::bounds(), pres, caloric);
  const Mask<V> mixture = within & phase.mixture;
  const Mask<V> maybe_single = within & opposite(mixture);
  if (!any(maybe_single)) return {maybe_single, mixture, pres, pres};
  const StartState<V> start =
      Pair::template start<V>(select<V>(within, caloric, broadcast<V>(Pair::greatest)),
                              select<V>(within, pres, broadcast<V>(pres_min)));
  const Mask<V> single = maybe_single & (phase.single | opposite(start.may_be_mixture));
  return {single, mixture, start.temp, start.dens};
}

/// Evaluates single phases.
/// \return `wanted` are those that meet pressure and property and belong to the range
template <class Pair, class V>
[[nodiscard, gnu::always_inline]] inline SinglePhase<V> evaluate_caloric(
    const Cells<V>& cells, const Iterate<V>& at, const V& pres, const V& caloric) noexcept {
  constexpr double share = 1e-12;
  constexpr double undecided = 1e-5;  // K: here a neighbouring element may end beyond the limit
  const Derivatives<V> d = evaluate<V>(cells, at.temp, at.dens);
  const V miss = absolute(Pair::Property::value(d, at.temp) - caloric);
  const Mask<V> met = at.served & meets_pressure(d, at.dens, pres) &
                      (miss <= at_least_of_unit(share, caloric)) &
                      is_within<V>(at.temp, temp_min + undecided, temp_max - undecided) &
                      has_phase(pres, at.temp, at.dens);
  return SinglePhase<V>::of(d, at.temp, at.dens, pres, met);
}

}  // namespace co2_properties
