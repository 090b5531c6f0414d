#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"

namespace co2_properties {
namespace {

void put(double* const slot, const double value) noexcept {
  if (slot != nullptr) *slot = value;
}

}  // namespace

void co2_info(double* tcrit, double* dcrit, double* pcrit, double* tmin, double* tmax, double* pmin,
              double* pmax, double* tsatmin, double* psatmin) noexcept {
  put(tcrit, t_crit);
  put(dcrit, d_crit);
  put(pcrit, p_crit);
  put(tmin, temp_min);
  put(tmax, temp_max);
  put(pmin, pres_min);
  put(pmax, pres_max);
  put(tsatmin, temp_sat_min);
  put(psatmin, pres_sat_min);
}

}  // namespace co2_properties
