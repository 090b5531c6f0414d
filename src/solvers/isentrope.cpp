#include "numbers/platform.hpp"

#include "solvers/isentrope.hpp"

#include "co2_properties/limits.hpp"
#include "eos/properties.hpp"
#include "numbers/logarithm.hpp"
#include "solvers/solve_caloric.hpp"
#include "solvers/solve_entropy.hpp"
#include "solvers/start_values.hpp"

namespace co2_properties {
namespace {

/// Below any state of the range, kg/m3.
constexpr double least_dens = 0.5 * dens_min;

IsentropePoint end_at(const IsentropePoint::Kind kind, const Region region, const double temp,
                      const double dens) noexcept {
  const std::int32_t e = element_locator.find(region, temp, dens);
  return {kind, dens, e, evaluate(element(e), temp, dens), {}, {}};
}

/// A single phase between two densities.
IsentropePoint point_between(const Region region, const double temp, const double entr,
                             const double thinnest, const double densest) noexcept {
  const IsentropePoint thin = end_at(IsentropePoint::thin, region, temp, thinnest);
  if (region != Region::liquid && entr > entropy(thin.d)) return thin;
  const IsentropePoint dense = end_at(IsentropePoint::dense, region, temp, densest);
  if (region != Region::vapour && entr < entropy(dense.d)) return dense;
  auto start = start_from_ts<double>(temp, entr);
  start = start > thinnest ? start : thinnest;
  start = start < densest ? start : densest;
  const EntropySolution s = solve_entropy(region, temp, entr, thinnest, densest, start);
  return {s.converged ? IsentropePoint::single : IsentropePoint::lost,
          s.dens,
          s.element,
          evaluate(element(s.element), temp, s.dens),
          {},
          {}};
}

double enthalpy_of(const IsentropePoint& at, const double temp, const double entr) noexcept {
  if (at.kind != IsentropePoint::mixture) return enthalpy(at.d, temp);
  const double liq = enthalpy(at.liq.d, temp);
  const double qual = mixture_from_caloric<Entropy>(temp, entr, at.liq, at.vap).qual;
  return (enthalpy(at.vap.d, temp) - liq) * qual + liq;
}

/// Where elements join with a jump, a single phase may meet both inputs only beyond the edge of
/// one of them, within its margin.
IsentropeState settled(const IsentropeState& s, const double enth, const double entr) noexcept {
  constexpr double share = 1e-12;
  if (s.at.kind != IsentropePoint::single ||
      absolute(enthalpy(s.at.d, s.temp) - enth) <= at_least_of_unit(share, enth)) {
    return s;
  }
  const CaloricTarget target = {enth, entr, at_least_of_unit(share, enth),
                                at_least_of_unit(share, entr)};
  const CaloricSolution found =
      solve_caloric<Entropy, Enthalpy>(target, s.at.element, s.temp, s.at.dens);
  const bool same = found.evaluations < last_evaluation && found.served &&
                    absolute(found.temp - s.temp) <= element_margin;
  if (!same) return {s.beyond, s.temp, {IsentropePoint::lost, 0.0, 0, {}, {}, {}}};
  const IsentropeState::Place place = found.temp < temp_min   ? IsentropeState::colder
                                      : found.temp > temp_max ? IsentropeState::hotter
                                                              : IsentropeState::inside;
  return {place, found.temp, {IsentropePoint::single, found.dens, found.element, found.d, {}, {}}};
}

}  // namespace

IsentropePoint point_of_isentrope(const double temp, const double entr) noexcept {
  if (temp >= t_crit) {
    return point_between(Region::supercritical, temp, entr, least_dens,
                         end_of_elements(Region::supercritical, temp));
  }
  const SaturatedPhase<double> vap = saturated_vapour(temp);
  if (!(entr < entropy(vap.d)))
    return point_between(Region::vapour, temp, entr, least_dens, vap.dens);
  const SaturatedPhase<double> liq = saturated_liquid(temp);
  if (!(entr > entropy(liq.d)))
    return point_between(Region::liquid, temp, entr, liq.dens,
                         end_of_elements(Region::liquid, temp));
  return {IsentropePoint::mixture, 0.0, 0, {}, liq, vap};
}

IsentropeState state_on_isentrope(const double enth, const double entr) noexcept {
  constexpr double share = 1e-13;
  constexpr std::int32_t most_points = 200;
  double lo = temp_min;
  double hi = temp_max;
  IsentropePoint at = point_of_isentrope(lo, entr);
  double below = enthalpy_of(at, lo, entr) - enth;
  if (below > 0.0) return {IsentropeState::colder, lo, at};
  if (below == 0.0) return {IsentropeState::inside, lo, at};
  at = point_of_isentrope(hi, entr);
  double above = enthalpy_of(at, hi, entr) - enth;
  if (above < 0.0) return {IsentropeState::hotter, hi, at};
  double temp = hi;
  bool was_below = false;
  for (std::int32_t k = 0; k < most_points; ++k) {
    // The false position with halved weights (Illinois), every third time the middle.
    const double line = lo - below * (hi - lo) / (above - below);
    temp = k % 3 == 2 || !(line > lo && line < hi) ? lo + 0.5 * (hi - lo) : line;
    if (!(temp > lo && temp < hi)) break;
    at = point_of_isentrope(temp, entr);
    const double miss = enthalpy_of(at, temp, entr) - enth;
    if (absolute(miss) <= at_least_of_unit(share, enth)) break;
    const bool is_below = miss < 0.0;
    (is_below ? lo : hi) = temp;
    (is_below ? below : above) = miss;
    if (k > 0 && is_below == was_below) (is_below ? above : below) *= 0.5;
    was_below = is_below;
  }
  return settled({IsentropeState::inside, temp, at}, enth, entr);
}

}  // namespace co2_properties
