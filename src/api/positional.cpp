// The forms of the entries that take the outputs one by one: they only pack them.

#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"

namespace co2_properties {

void co2_td(const double& temp_in, const double& dens_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_td(temp_in, dens_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
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

void co2_ph(const double& pres_in, const double& enth_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_ph(pres_in, enth_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_ps(const double& pres_in, const double& entr_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_ps(pres_in, entr_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

void zero_outputs(double* temp, double* pres, double* dens, double* svol, double* qual,
                  double* inte, double* enth, double* entr, double* cv, double* cp, double* ssnd,
                  double* visc, double* cond, double* dpdd, double* dpdt, double* dhdd,
                  double* dhdt, double* dsdd, double* dsdt) noexcept {
  zero_outputs(OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond,
                         dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}

}  // namespace co2_properties
