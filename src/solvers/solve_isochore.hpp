#pragma once
// Temperature at a given density from a second property, for any inputs: Newton's method between
// bounds.

#include <cstdint>

#include "co2_properties/limits.hpp"
#include "eos/property_types.hpp"
#include "saturation/phase.hpp"
#include "saturation/tie_line.hpp"
#include "solvers/relocate.hpp"
#include "solvers/solve_caloric.hpp"
#include "solvers/solve_tie_line.hpp"

namespace co2_properties {

/// Whether a property is met so closely that no iteration would improve it much: temperature to a
/// share, the property to 5e-12, as far as rounding lets them.
/// \param missing  of the value
/// \param slope    of the property in temperature
template <class V>
[[nodiscard, gnu::always_inline]] inline Mask<V> is_met(const V& missing, const V& temp,
                                                        const V& slope, const V& value) noexcept {
  constexpr double share = 5e-12;
  constexpr double share_of_temp = 3e-13;
  constexpr double rounding = 1e-15;
  const V miss = absolute(missing);
  const V unit = at_least_of_unit(1.0, value);
  return (miss <= share * unit) & (miss <= share_of_temp * (temp * slope) + rounding * unit);
}

/// A state at a density, of one phase or of two as `co2_td` decides.
struct IsochoreState {
  double temp;
  bool is_mixture;
  bool is_beyond;                   ///< of one phase with a pressure above the range
  std::int32_t elements[2];         ///< that of a single phase; those of liquid and vapour
  Derivatives<double> d;            ///< of a single phase
  SaturatedPhase<double> liq, vap;  ///< of a mixture
  double missing;                   ///< of the value of the property
  double slope;                     ///< of the property in temperature
};

[[nodiscard]] inline bool is_met(const IsochoreState& s, const double value) noexcept {
  return is_met(s.missing, s.temp, s.slope, value);
}

/// \param kept  state whose elements serve up to `element_margin` outside their rectangles, so that
///              the iteration does not switch between the sides of an edge, and a value that lies
///              in the jump between them is met
template <class Property>
[[nodiscard]] IsochoreState state_on_isochore(const double temp, const double dens,
                                              const double value,
                                              const IsochoreState* const kept) noexcept {
  constexpr double highest = pres_max * (1.0 + 1e-9);
  IsochoreState s{};
  s.temp = temp;
  s.is_mixture = temp < t_crit && phase_from_td(temp, dens) == Phase::two_phase;
  const auto element_for = [&](const std::int32_t which, const double at_dens,
                               const Region region) -> const Element& {
    std::int32_t& e = s.elements[which];
    const bool keeps =
        kept != nullptr && kept->is_mixture == s.is_mixture &&
        Rectangles<double>::of({&element(kept->elements[which])}).serve(temp, at_dens);
    e = keeps ? kept->elements[which] : element_locator.find(region, temp, at_dens);
    return element(e);
  };
  if (s.is_mixture) {
    s.liq.dens = saturated_liquid_density(temp);
    s.vap.dens = saturated_vapour_density(temp);
    s.liq.d = evaluate(element_for(0, s.liq.dens, Region::liquid), temp, s.liq.dens);
    s.vap.d = evaluate(element_for(1, s.vap.dens, Region::vapour), temp, s.vap.dens);
    const TieLineMiss<double> m =
        miss_on_tie_line<SpecificVolume, Property>(temp, s.liq, s.vap, 1.0 / dens, value);
    s.missing = m.missing;
    s.slope = m.slope;
    return s;
  }
  const Region region = temp >= t_crit                    ? Region::supercritical
                        : dens >= calc_sat_liq_dens(temp) ? Region::liquid
                                                          : Region::vapour;
  const Element& cell = element_for(0, dens, region);
  s.is_beyond = is_beyond(dens - cell.dens0, cell.dens_width);
  if (s.is_beyond) return s;
  s.d = evaluate(cell, temp, dens);
  s.is_beyond = pressure(s.d, dens) > highest;
  const auto f = Property::expand(Evaluation<double>{s.d, {}}, temp, dens);
  s.missing = value - f.value;
  s.slope = f.t;
  return s;
}

/// Where the search ended.
enum class IsochoreEnd {
  found,
  below,  ///< the value lies below that of the state at 240 K, which is given
  above,  ///< above those of all states up to the one that is given, at 1500 K or beyond
};

struct IsochoreSolution {
  IsochoreEnd end;
  IsochoreState state;
};

/// Goes on from a state in its elements, also beyond their edges. \return whether the value is met
template <class Property>
[[nodiscard]] bool extrapolate(const double dens, const double value, IsochoreState& s) noexcept {
  const double edge = s.temp;
  for (std::int32_t k = 0; k < 6; ++k) {
    const double temp = s.temp + s.missing / s.slope;
    if (!(absolute(temp - edge) < element_margin && temp >= temp_min && temp <= temp_max))
      return false;
    s = state_on_isochore<Property>(temp, dens, value, &s);
    if (s.is_beyond) return false;
    if (is_met(s, value)) return true;
  }
  return false;
}

/// A temperature, K, that bounds the solution, with the state there as soon as it is known.
struct IsochoreBound {
  double temp;
  bool is_known = false;
  IsochoreState state = {};
};

struct IsochoreBracket {
  IsochoreBound low = {temp_min};
  IsochoreBound high = {temp_max};

  [[nodiscard]] double middle() const noexcept { return low.temp + (high.temp - low.temp) / 2.0; }
  /// A temperature where it lies inside, else the bound that it lies beyond or, if that is known,
  /// the middle.
  [[nodiscard]] double inside(const double temp) const noexcept {
    if (!(temp > low.temp)) return low.is_known ? middle() : low.temp;
    if (!(temp < high.temp)) return high.is_known ? middle() : high.temp;
    return temp;
  }
  /// Whether no number lies between the bounds, of which this is the middle.
  [[nodiscard]] bool is_closed(const double temp) const noexcept {
    return (low.is_known && temp == low.temp) || (high.is_known && temp == high.temp);
  }
};

/// What lies where a closed bracket has a jump.
template <class Property>
[[nodiscard]] IsochoreSolution solve_at_jump(const double dens, const double value,
                                             const IsochoreBracket& at) noexcept {
  if (at.high.state.is_beyond) return {IsochoreEnd::above, at.high.state};
  for (const IsochoreBound* const side : {&at.low, &at.high}) {
    IsochoreState s = side->state;
    if (extrapolate<Property>(dens, value, s)) return {IsochoreEnd::found, s};
  }
  const bool low_is_nearer = absolute(at.low.state.missing) < absolute(at.high.state.missing);
  return {IsochoreEnd::found, low_is_nearer ? at.low.state : at.high.state};
}

/// The state of one or two phases between 240 K and 1500 K with a density, kg/m3, and a value of a
/// property; its pressure may be below the range.
/// \param start  temperature, K
///
/// Properties rise with temperature, but for jumps where elements meet, of 1e-4 kJ/kg and less, and
/// a larger one at the critical temperature. Every evaluation narrows the bounds; a step that
/// leaves them, and each one after the 16th, halves them. What is left when no number lies between
/// them any more is a jump: a value inside of it is met by one of its sides, extrapolated. That may
/// fail next to the critical point, where the fits of the saturated densities jump too: then the
/// nearer side is the result, which misses the value by no more than half of the jump.
template <class Property>
[[nodiscard]] IsochoreSolution solve_isochore(const double dens, const double value,
                                              const double start) noexcept {
  constexpr std::int32_t newton_steps = 16;
  IsochoreBracket bracket;
  double temp = start;
  for (std::int32_t k = 0;; ++k) {
    temp = bracket.inside(k < newton_steps ? temp : bracket.middle());
    if (bracket.is_closed(temp)) return solve_at_jump<Property>(dens, value, bracket);
    const IsochoreState s = state_on_isochore<Property>(temp, dens, value, nullptr);
    if (!s.is_beyond && is_met(s, value)) return {IsochoreEnd::found, s};
    const bool is_high = s.is_beyond || s.missing < 0.0;
    (is_high ? bracket.high : bracket.low) = {temp, true, s};
    if (is_high && temp == temp_min)
      return {s.is_beyond ? IsochoreEnd::above : IsochoreEnd::below, s};
    if (!is_high && temp == temp_max) return {IsochoreEnd::above, s};
    temp = s.is_beyond ? bracket.low.temp : temp + s.missing / s.slope;
  }
}

}  // namespace co2_properties
