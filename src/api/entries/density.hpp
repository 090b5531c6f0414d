#pragma once
// The common road of entries for density and a second property, for one state or for several in
// lanes: states that are surely of one phase and that a step or two solve, and mixtures.
//
// The templates take the pair of inputs as a type, see density_pairs.hpp. It has
//   codes            what the entry reports
//   Property         the second property, a type of eos/property_types.hpp
//   least, greatest  between which it lies in all states

#include <cstdint>
#include <type_traits>

#include "api/entries/state_writer.hpp"
#include "co2_properties/limits.hpp"
#include "eos/helmholtz.hpp"
#include "numbers/logarithm.hpp"
#include "saturation/tie_line.hpp"
#include "solvers/isochore.hpp"
#include "solvers/relocate.hpp"
#include "solvers/solve_isochore.hpp"
#include "solvers/solve_tie_line.hpp"

namespace co2_properties {

/// The codes that an entry reports.
struct DensityCodes {
  std::int32_t temp_below_min;
  std::int32_t temp_above_max;
  std::int32_t pres_below_min;
  std::int32_t pres_above_max;
  std::int32_t not_converged;
  std::int32_t two_phase;
};

/// Which states take the common road, as one phase or as a mixture.
template <class V>
struct DensityPlace {
  Mask<V> single;
  Mask<V> mixture;
  V temp;  ///< start value of single phases, K
};

/// \param dens, value  kg/m3 and the unit of the property; any values
template <class Pair, class V>
[[nodiscard, gnu::always_inline]] inline DensityPlace<V> place_density(const V& dens,
                                                                       const V& value) noexcept {
  using On = OnIsochore<typename Pair::Property>;
  constexpr double densest = 1275.0;  // denser than any state of the range
  const Mask<V> within =
      is_within<V>(dens, dens_min, densest) & (value > Pair::least) & (value < Pair::greatest);
  const V in_dens = select<V>(within, dens, broadcast<V>(1.0));
  const V in_value = select<V>(within, value, broadcast<V>(Pair::greatest));
  V log_dens = in_dens;
  if constexpr (On::uses_logarithm) log_dens = logarithm_of_normal<V>(in_dens);
  const IsochoreStart<V> start = start_on_isochore<typename Pair::Property, V>(
      in_dens, On::template reduced<V>(in_value, in_dens, log_dens));
  const Mask<V> single = within & start.single;
  const Mask<V> mixture = within & start.mixture;
  return {single, mixture, start.temp};
}

/// How many steps are taken at most, each followed by an evaluation that tells whether it sufficed.
inline constexpr std::int32_t density_rounds = 2;

/// The next temperature of the range, K.
template <class V>
[[nodiscard, gnu::always_inline]] inline V within_range(const V& temp) noexcept {
  const V above = select<V>(temp > temp_min, temp, broadcast<V>(temp_min));
  return select<V>(above < temp_max, above, broadcast<V>(temp_max));
}

/// Where a step led.
template <class V>
struct IsochoreIterate {
  V temp;          ///< K
  Mask<V> served;  ///< by the element of the temperature before
};

/// One step in the elements at a temperature.
/// \param cells  receives them
template <class Pair, class V>
[[nodiscard, gnu::always_inline]] inline IsochoreIterate<V> step_density(
    const V& temp, const V& dens, const V& log_dens, const V& value, Cells<V>& cells) noexcept {
  using Property = typename Pair::Property;
  relocate<V>(temp, dens, cells);
  const Rectangles<V> in = Rectangles<V>::of(cells);
  const V next = on_isochore<Property, V>(cells, in.dens0, in.temp0, dens, log_dens)
                     .improved(temp, OnIsochore<Property>::template summed<V>(value, dens));
  const Mask<V> served = is_within<V>(next, temp_min, temp_max) &
                         keeps_element<V>(next - in.temp0, in.temp_width) &
                         opposite(is_beyond<V>(dens - in.dens0, in.dens_width));
  return {next, served};
}

/// Evaluates single phases.
/// \return `wanted` are those that meet the property and belong to the range
template <class Pair, class V>
[[nodiscard, gnu::always_inline]] inline SinglePhase<V> evaluate_density(
    const Cells<V>& cells, const IsochoreIterate<V>& at, const V& dens, const V& log_dens,
    const V& value) noexcept {
  const Derivatives<V> d = evaluate(isotherm<V, Order::second>(cells, at.temp), dens, log_dens);
  const auto f = Pair::Property::expand(Evaluation<V>{d, {}}, at.temp, dens);
  const V pres = pressure(d, dens);
  const Mask<V> found = at.served & is_met<V>(value - f.value, at.temp, f.t, value) &
                        is_within<V>(pres, pres_min, pres_max);
  return SinglePhase<V>::of(d, at.temp, dens, pres, found);
}

/// Newton's step to the next temperature of mixtures; none where it would leave them.
template <class Pair, class V>
[[nodiscard, gnu::always_inline]] inline MixtureStep<V> step_mixture(const V& temp,
                                                                     const SaturatedPhase<V>& liq,
                                                                     const SaturatedPhase<V>& vap,
                                                                     const V& dens,
                                                                     const V& value) noexcept {
  const TieLineMiss<V> m = miss_on_tie_line<SpecificVolume, typename Pair::Property>(
      temp, liq, vap, V(1.0 / dens), value);
  const V next = temp + m.missing / m.slope;
  return {select<V>((next >= temp_sat_min) & (next < t_crit), next, temp),
          is_met<V>(m.missing, temp, m.slope, value)};
}

/// Start value of the temperature of mixtures, K. That of a pressure is what the vapour says.
template <class Pair, class V>
[[nodiscard, gnu::always_inline]] inline V mixture_start(const V& dens, const V& value) noexcept {
  using Property = typename Pair::Property;
  if constexpr (std::is_same_v<Property, Pressure>) {
    const V temp = vapour_pressure_start<V>(
        select<V>(value > pres_sat_min, value, broadcast<V>(pres_sat_min)));
    return select<V>((temp >= temp_sat_min) & (temp < t_crit), temp, broadcast<V>(temp_sat_min));
  } else {
    return tie_line_start<SpecificVolume, Property, V>(1.0 / dens, value);
  }
}

}  // namespace co2_properties
