#include "numbers/platform.hpp"

#include <cmath>

#include "api/co2_properties.hpp"
#include "api/places.hpp"
#include "api/solve_density.hpp"
#include "api/state_writer.hpp"
#include "eos/helmholtz.hpp"

namespace co2_properties {
namespace {

/// Where a pressure stands to saturation.
enum class Side { vapour, liquid, saturated };

/// Below the critical temperature. The saturation pressure lies between 1282 and 7378 kPa and is
/// evaluated only where it decides.
Side decide_side(const double temp, const double pres) noexcept {
  if (pres < 1282.0) return Side::vapour;
  if (pres > 7378.0) return Side::liquid;
  const double pres_sat = calc_sat_pres(temp);
  if (pres < pres_sat) return Side::vapour;
  if (pres > pres_sat) return Side::liquid;
  return Side::saturated;
}

}  // namespace

TpPlace place_tp(const double temp, const double pres) noexcept {
  if (pres < pres_min) return {status::tp_pres_below_min};
  if (pres > pres_max) return {status::tp_pres_above_max};
  if (temp < t_crit) {
    if (temp < temp_min) return {status::tp_temp_below_min};
    switch (decide_side(temp, pres)) {
      case Side::vapour:
        return {status::success, vap_index_from_tp(temp, pres)};
      case Side::liquid:
        return {status::success, liq_index_from_tp(temp, pres)};
      case Side::saturated:
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

void co2_tp(const double& temp_in, const double& pres_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_tp(temp_in, pres_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

}  // namespace co2_properties
