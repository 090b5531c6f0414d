#include "numbers/platform.hpp"

#include <cmath>

#include "api/co2_properties.hpp"
#include "api/entries/places.hpp"
#include "api/entries/state_writer.hpp"
#include "eos/helmholtz.hpp"
#include "eos/locate_td.hpp"
#include "eos/properties.hpp"
#include "saturation/phase.hpp"
#include "solvers/relocate.hpp"

namespace co2_properties {

TdPlace place_td(const double temp, const double dens) noexcept {
  if (dens < dens_min) return {status::td_pres_below_min};
  if (temp >= t_crit) {
    if (temp > temp_max) return {status::td_temp_above_max};
    return {status::success, find_cell(supercritical_map, temp, dens)};
  }
  if (temp < temp_min) return {status::td_temp_below_min};
  TdPlace place;
  switch (phase_from_td(temp, dens, place.sat)) {
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

}  // namespace co2_properties
