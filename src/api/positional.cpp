// The forms of the entries that take the outputs one by one: they only pack them.

#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"

namespace co2_properties {

// entries: begin, written by scripts/generate_entries
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

void co2_du(const double& dens_in, const double& inte_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_du(dens_in, inte_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_dh(const double& dens_in, const double& enth_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_dh(dens_in, enth_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_ds(const double& dens_in, const double& entr_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_ds(dens_in, entr_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_dp(const double& dens_in, const double& pres_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_dp(dens_in, pres_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_hs(const double& enth_in, const double& entr_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_hs(enth_in, entr_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_pu(const double& pres_in, const double& inte_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_pu(pres_in, inte_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_ts(const double& temp_in, const double& entr_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_ts(temp_in, entr_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_tx(const double& temp_in, const double& qual_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_tx(temp_in, qual_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_px(const double& pres_in, const double& qual_in, std::int32_t& ierr, double* temp,
            double* pres, double* dens, double* svol, double* qual, double* inte, double* enth,
            double* entr, double* cv, double* cp, double* ssnd, double* visc, double* cond,
            double* dpdd, double* dpdt, double* dhdd, double* dhdt, double* dsdd,
            double* dsdt) noexcept {
  co2_px(pres_in, qual_in, ierr,
         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, dpdd,
                   dpdt, dhdd, dhdt, dsdd, dsdt});
}

// entries: end

void zero_outputs(double* temp, double* pres, double* dens, double* svol, double* qual,
                  double* inte, double* enth, double* entr, double* cv, double* cp, double* ssnd,
                  double* visc, double* cond, double* dpdd, double* dpdt, double* dhdd,
                  double* dhdt, double* dsdd, double* dsdt) noexcept {
  zero_outputs(OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond,
                         dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}

}  // namespace co2_properties
