#include "numbers/platform.hpp"

#include <cmath>

#include "api/co2_properties.hpp"
#include "api/places.hpp"
#include "api/relocate.hpp"
#include "api/state_writer.hpp"
#include "eos/helmholtz.hpp"
#include "eos/locate_td.hpp"
#include "eos/properties.hpp"

namespace co2_properties {
namespace {

enum class Phase { vapour, liquid, two_phase };

/// Phase below the critical temperature. The densities of saturation are evaluated only where the
/// decision needs them: the vapour is never denser than 467.61 kg/m3 and, above 301 K, the two lie
/// between 286.14 and 658.70 kg/m3.
Phase decide_phase(const double temp, const double dens, SaturatedDensities& sat) noexcept {
  if (temp > 301.0) {
    if (dens < 286.0) return Phase::vapour;
    if (dens > 659.0) return Phase::liquid;
  }
  if (dens <= 468.0) {
    sat.vap = calc_sat_vap_dens(temp);
    if (dens <= sat.vap) return Phase::vapour;
  }
  sat.liq = calc_sat_liq_dens(temp);
  if (dens >= sat.liq) return Phase::liquid;
  if (sat.vap < 0.0) sat.vap = calc_sat_vap_dens(temp);
  return Phase::two_phase;
}

}  // namespace

TdPlace place_td(const double temp, const double dens) noexcept {
  if (dens < dens_min) return {status::td_pres_below_min};
  if (temp >= t_crit) {
    if (temp > temp_max) return {status::td_temp_above_max};
    return {status::success, find_cell(supercritical_map, temp, dens)};
  }
  if (temp < temp_min) return {status::td_temp_below_min};
  TdPlace place;
  switch (decide_phase(temp, dens, place.sat)) {
    case Phase::vapour:
      place.element = find_cell(vapour_map, temp, dens);
      break;
    case Phase::liquid:
      place.element = find_cell(liquid_map, temp, dens);
      break;
    case Phase::two_phase:
      break;
  }
  return place;
}

void finish_td(const TdPlace& place, const double temp, const double dens, std::int32_t& ierr,
               const OutputSet& out) noexcept {
  if (place.code != status::success) return fail(place.code, ierr, out);
  ierr = status::success;
  if (place.element == 0) {
    const SaturatedDensities& sat = place.sat;
    write_two_phase(temp, dens, lever_quality(dens, sat.liq, sat.vap),
                    saturated_liquid(temp, sat.liq), saturated_vapour(temp, sat.vap), out);
    if (wants_cv_cp_ssnd(out) || wants_transport(out)) ierr = status::td_two_phase;
    return;
  }
  const Element& cell = element(place.element);
  if (is_beyond(dens - cell.dens0, cell.dens_width))
    return fail(status::td_pres_above_max, ierr, out);
  const HelmholtzDerivatives d = evaluate(cell, temp, dens, std::log(dens));
  const double pres = pressure(d, dens);
  if (pres < pres_min) return fail(status::td_pres_below_min, ierr, out);
  if (pres > pres_max) return fail(status::td_pres_above_max, ierr, out);
  write_single_phase(d, temp, dens, pres, place.sat, out);
}

void co2_td(const double& temp_in, const double& dens_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  const double temp = temp_in;  // copies: an output may lie where an input does
  const double dens = dens_in;
  finish_td(place_td(temp, dens), temp, dens, ierr, out);
}

void co2_td(const double& temp_in, const double& dens_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_td(temp_in, dens_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

}  // namespace co2_properties
