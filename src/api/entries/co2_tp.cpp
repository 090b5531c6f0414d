#include "numbers/platform.hpp"

#include <cmath>

#include "api/co2_properties.hpp"
#include "api/entries/places.hpp"
#include "api/entries/state_writer.hpp"
#include "eos/helmholtz.hpp"
#include "eos/locate_tp.hpp"
#include "saturation/phase.hpp"
#include "solvers/solve_density.hpp"

namespace co2_properties {

TpPlace place_tp(const double temp, const double pres) noexcept {
  if (pres < pres_min) return {status::tp_pres_below_min};
  if (pres > pres_max) return {status::tp_pres_above_max};
  if (temp < t_crit) {
    if (temp < temp_min) return {status::tp_temp_below_min};
    switch (phase_from_tp(temp, pres)) {
      case Phase::vapour:
        return {status::success, vap_index_from_tp(temp, pres)};
      case Phase::liquid:
        return {status::success, liq_index_from_tp(temp, pres)};
      case Phase::two_phase:
        return {status::tp_saturated};
    }
  }
  if (temp > temp_max) return {status::tp_temp_above_max};
  return {status::success, sc_index_from_tp(temp, pres)};
}

void finish_tp(const TpPlace& place, const double temp, const double pres, std::int32_t& ierr,
               const OutputSet& out) noexcept {
  if (place.code != status::success) return fail(place.code, ierr, out);
  ierr = status::success;
  const DensitySolution s = solve_density(place.element, temp, pres);
  if (!s.converged) return fail(status::tp_not_converged, ierr, out);
  const HelmholtzDerivatives d = evaluate(s.isotherm, s.dens, std::log(s.dens));
  write_single_phase(d, temp, s.dens, pres, SaturatedDensities{}, out);
}

void co2_tp(const double& temp_in, const double& pres_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  const double temp = temp_in;  // copies: an output may lie where an input does
  const double pres = pres_in;
  finish_tp(place_tp(temp, pres), temp, pres, ierr, out);
}

}  // namespace co2_properties
