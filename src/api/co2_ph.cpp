#include "api/caloric_properties.hpp"

namespace co2_properties {

void co2_ph(const double& pres_in, const double& enth_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  caloric_entry<Enthalpy>(pres_in, enth_in, ierr, out);
}

void co2_ph(const double& pres_in, const double& enth_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_ph(pres_in, enth_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

}  // namespace co2_properties
