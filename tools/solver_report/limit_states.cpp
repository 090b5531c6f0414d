#include "solver_report/limit_states.hpp"

namespace co2_properties::solver_report {
namespace {

/// Away from a value by any part of it up to `most`, upwards or downwards.
double around(const double value, const double most, Draws& draws) {
  const double distance = draws.log_uniform(1e-14, 1.0) * most;
  return draws.coin() ? value + distance : value - distance;
}

double around_a_limit_of_temp(Draws& draws) {
  constexpr double marks[] = {temp_min, t_crit, temp_max};
  return around(marks[draws.below(3)], 10.0, draws);
}

Inputs draw_tp(const std::size_t strip, Draws& draws) {
  const double temp = draws.uniform(200.0, 1600.0);
  const double cold = draws.uniform(temp_min, t_crit);
  switch (strip) {
    case 0:
      return {temp, draws.log_uniform(0.1, 1e6)};
    case 1:
      return {around_a_limit_of_temp(draws), draws.log_uniform(0.1, 1e6)};
    case 2:
      return {temp, around(draws.coin() ? pres_min : pres_max, 1.0, draws)};
    case 3:
      return {cold, calc_sat_pres(cold) * around(1.0, 1.0, draws)};
    default:
      return {draws.uniform(302.0, 310.0), draws.uniform(6500.0, 9000.0)};
  }
}

Inputs draw_td(const std::size_t strip, Draws& draws) {
  const double temp = draws.uniform(temp_min, temp_max);
  const double cold = draws.uniform(temp_min, t_crit);
  switch (strip) {
    case 0:
      return {draws.uniform(200.0, 1600.0), draws.log_uniform(1e-3, 1e4)};
    case 1:
      return {around_a_limit_of_temp(draws), draws.log_uniform(1e-3, 1e4)};
    case 2:
      return {temp, Answer(co2_tp, temp, draws.coin() ? pres_min : pres_max).dens *
                        around(1.0, 0.5, draws)};
    case 3:
      return {cold, around(1.0, 1.0, draws) *
                        (draws.coin() ? calc_sat_vap_dens(cold) : calc_sat_liq_dens(cold))};
    default:
      return {draws.uniform(302.0, 310.0), draws.uniform(300.0, 650.0)};
  }
}

Inputs draw_caloric(const CaloricPlane& plane, const std::size_t strip, Draws& draws) {
  const double span = plane.greatest - plane.least;
  const double caloric = draws.uniform(plane.least - span, plane.greatest + span);
  const double pres = draws.log_uniform(pres_min, pres_max);
  const double far = 100.0 * plane.unit;
  switch (strip) {
    case 0:
      return {pres, caloric};
    case 1:
      return {draws.uniform(1.0, 70.0), caloric};
    case 2: {
      const double size = draws.log_uniform(1e-300, 1e308);
      return {draws.coin() ? draws.close_to(draws.coin() ? 1.0 : 62.28) : pres,
              draws.coin() ? size : -size};
    }
    case 3:
      return {pres, around(plane.at(temp_min, pres), far, draws)};
    case 4:
      return {pres, around(plane.at(temp_max, pres), far, draws)};
    case 5: {
      const double temp = draws.uniform(temp_min, t_crit);
      const Answer at(co2_td, temp,
                      draws.coin() ? calc_sat_vap_dens(temp) : calc_sat_liq_dens(temp));
      return {at.pres, around(at.*plane.caloric, far, draws)};
    }
    default:
      return {draws.uniform(6500.0, 9000.0),
              around(Answer(co2_td, t_crit, d_crit).*plane.caloric, far, draws)};
  }
}

Inputs draw_ts(const std::size_t strip, Draws& draws) {
  const double temp = draws.uniform(temp_min, temp_max);
  const double cold = draws.uniform(temp_min, t_crit);
  switch (strip) {
    case 0:
      return {draws.uniform(200.0, 1600.0), draws.uniform(-2.0, 8.0)};
    case 1:
      return {around_a_limit_of_temp(draws), draws.uniform(0.0, 6.0)};
    case 2:
      return {temp,
              around(Answer(co2_tp, temp, draws.coin() ? pres_min : pres_max).entr, 5.0, draws)};
    case 3:
      return {cold, around(Answer(co2_td, cold,
                                  draws.coin() ? calc_sat_vap_dens(cold) : calc_sat_liq_dens(cold))
                               .entr,
                           0.1, draws)};
    default:
      return {draws.uniform(302.0, 310.0), draws.uniform(1.2, 1.7)};
  }
}

/// From a state, one of its two inputs moved.
Inputs away_from(const Answer& at, Draws& draws) {
  return draws.coin() ? Inputs{around(at.enth, 100.0, draws), at.entr}
                      : Inputs{at.enth, around(at.entr, 0.5, draws)};
}

Inputs draw_hs(const std::size_t strip, Draws& draws) {
  const double temp = draws.uniform(temp_min, temp_max);
  const double cold = draws.uniform(temp_min, t_crit);
  const double pres = draws.log_uniform(pres_min, pres_max);
  switch (strip) {
    case 0:
      return {draws.uniform(-500.0, 3000.0), draws.uniform(-2.0, 8.0)};
    case 1: {
      const double enth = draws.log_uniform(1e-300, 1e308);
      const double entr = draws.log_uniform(1e-300, 1e308);
      return {draws.coin() ? enth : -enth, draws.coin() ? entr : draws.uniform(0.0, 6.0)};
    }
    case 2:
      return away_from(Answer(co2_tp, draws.coin() ? temp_min : temp_max, pres), draws);
    case 3:
      return away_from(Answer(co2_tp, temp, draws.coin() ? pres_min : pres_max), draws);
    case 4:
      return away_from(
          Answer(co2_td, cold, draws.coin() ? calc_sat_vap_dens(cold) : calc_sat_liq_dens(cold)),
          draws);
    case 5: {  // mixtures of 240 K
      const double dens = draws.log_uniform(60.0, 1100.0);
      return away_from(Answer(co2_td, temp_min, dens), draws);
    }
    default:
      return away_from(Answer(co2_td, draws.uniform(302.0, 310.0), draws.uniform(300.0, 650.0)),
                       draws);
  }
}

InputPlane caloric_plane(const char* const name, const SingleEntry single,
                         BatchEntries::Run BatchEntries::*const batch, const CaloricPlane& plane) {
  return {name,
          single,
          batch,
          {"log p uniform, property far beyond", "1 to 70 kPa", "property of any magnitude",
           "around 240 K", "around 1500 K", "around saturation", "6500 to 9000 kPa, critical"},
          [&plane](const auto strip, auto& draws) { return draw_caloric(plane, strip, draws); }};
}

const std::vector<const char*> strips_of_temp = {"range and around it", "limits of T",
                                                 "limits of p", "around saturation", "critical"};

}  // namespace

const InputPlane input_planes[plane_count] = {
    {"co2_td", co2_td, &BatchEntries::td, strips_of_temp, draw_td},
    {"co2_tp", co2_tp, &BatchEntries::tp, strips_of_temp, draw_tp},
    caloric_plane("co2_ph", co2_ph, &BatchEntries::ph, ph_plane),
    caloric_plane("co2_ps", co2_ps, &BatchEntries::ps, ps_plane),
    caloric_plane("co2_pu", co2_pu, &BatchEntries::pu, pu_plane),
    {"co2_ts", co2_ts, &BatchEntries::ts, strips_of_temp, draw_ts},
    {"co2_hs",
     co2_hs,
     &BatchEntries::hs,
     {"range and far around it", "any magnitude", "limits of T", "limits of p", "around saturation",
      "mixtures of 240 K", "critical"},
     draw_hs}};

}  // namespace co2_properties::solver_report
