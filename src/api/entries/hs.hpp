#pragma once
// The common road of `co2_hs`, for one state or for several in lanes: states that are surely of one
// phase and that a step or two of third order solve; and mixtures that one or two steps solve.

#include "api/entries/state_writer.hpp"
#include "co2_properties/limits.hpp"
#include "co2_properties/status.hpp"
#include "eos/helmholtz.hpp"
#include "eos/property_types.hpp"
#include "saturation/phase.hpp"
#include "saturation/tie_line.hpp"
#include "solvers/solve_caloric.hpp"
#include "solvers/solve_tie_line.hpp"
#include "solvers/start_values.hpp"
#include "solvers/two_property_step.hpp"

namespace co2_properties {

/// Which states take the common road, as one phase or as a mixture.
template <class V>
struct HsPlace {
  Mask<V> single;
  Mask<V> mixture;
  V temp, dens;  ///< start values of single phases, K and kg/m3
};

/// \param enth, entr  kJ/kg and kJ/(kg K); any values
template <class V>
[[nodiscard, gnu::always_inline]] inline HsPlace<V> place_hs(const V& enth,
                                                             const V& entr) noexcept {
  // Beyond all states of the range.
  constexpr double least_enth = 100.0;
  constexpr double greatest_enth = 2000.0;
  constexpr double least_entr = 0.4;
  constexpr double greatest_entr = 5.6;
  const Mask<V> within =
      is_within<V>(enth, least_enth, greatest_enth) & is_within<V>(entr, least_entr, greatest_entr);
  const V in_enth = select<V>(within, enth, broadcast<V>(greatest_enth));
  const V in_entr = select<V>(within, entr, broadcast<V>(greatest_entr));
  const SureCaloricPhase<V> phase = sure_phase_from_hs(in_enth, in_entr);
  const Mask<V> single = within & phase.single;
  const Mask<V> mixture = within & phase.mixture;
  if (!any(single)) return {single, mixture, in_enth, in_entr};
  const StartPair<V> start = start_from_hs<V>(in_enth, in_entr);
  return {single, mixture, start.first, start.second};
}

/// Evaluates single phases.
/// \return `wanted` are those that meet both inputs and belong to the range. Inputs above the dome
/// may be met by extrapolated polynomials below it, but not next to it: there it divides both
/// planes.
template <class V>
[[nodiscard, gnu::always_inline]] inline SinglePhase<V> evaluate_hs(const Cells<V>& cells,
                                                                    const Iterate<V>& at,
                                                                    const V& enth,
                                                                    const V& entr) noexcept {
  constexpr double share = 1e-12;
  constexpr double undecided = 1e-5;  // K: here a neighbouring element may end beyond the limit
  const Derivatives<V> d = evaluate<V>(cells, at.temp, at.dens);
  const V pres = pressure(d, at.dens);
  const V enth_miss = absolute(enthalpy(d, at.temp) - enth);
  const V entr_miss = absolute(entropy(d) - entr);
  const Mask<V> met =
      at.served & (enth_miss <= at_least_of_unit(share, enth)) &
      (entr_miss <= at_least_of_unit(share, entr)) &
      is_within<V>(at.temp, temp_min + undecided, temp_max - undecided) &
      is_within<V>(pres, pres_min, pres_max) &
      opposite(sure_phase_from_td<V>(temp_bins.find(at.temp), at.temp, at.dens).mixture);
  return SinglePhase<V>::of(d, at.temp, at.dens, pres, met);
}

/// \param temp      K, of
/// \param liq, vap  the phases
/// A step that leads beyond the saturation line ends there.
template <class V>
[[nodiscard, gnu::always_inline]] inline MixtureStep<V> step_hs_mixture(
    const V& temp, const SaturatedPhase<V>& liq, const SaturatedPhase<V>& vap, const V& enth,
    const V& entr) noexcept {
  constexpr double share = 1e-12;
  constexpr double highest = 304.128;  // where both phases still differ
  const TieLineMiss<V> m = miss_on_tie_line<Entropy, Enthalpy, V>(temp, liq, vap, entr, enth);
  const V next = temp + m.missing / m.slope;
  const V above = select<V>(next > temp_sat_min, next, broadcast<V>(temp_sat_min));
  // On a tie line beyond its ends nothing is a mixture.
  const Mask<V> between = (entr > entropy(liq.d)) & (entr < entropy(vap.d));
  const Mask<V> met = between & (absolute(m.missing) <= at_least_of_unit(share, enth));
  return {select<V>(above < highest, above, broadcast<V>(highest)), met};
}

}  // namespace co2_properties
