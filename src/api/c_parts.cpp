// The procedures for C that have no prefix. Each hands over to its namesake in C++.

#include "numbers/platform.hpp"

#include "api/co2_properties.h"
#include "api/co2_properties.hpp"

void zero_outputs(double* temp, double* pres, double* dens, double* svol, double* qual,
                  double* inte, double* enth, double* entr, double* cv, double* cp, double* ssnd,
                  double* visc, double* cond, double* dpdd, double* dpdt, double* dhdd,
                  double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::zero_outputs(temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc,
                               cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt);
}

double calc_sat_liq_dens(const double* temp) { return co2_properties::calc_sat_liq_dens(*temp); }
double calc_sat_vap_dens(const double* temp) { return co2_properties::calc_sat_vap_dens(*temp); }
double calc_sat_temp(const double* pres) { return co2_properties::calc_sat_temp(*pres); }
double calc_sat_pres(const double* temp) { return co2_properties::calc_sat_pres(*temp); }

int32_t vap_index_from_td(const double* temp, const double* dens) {
  return co2_properties::vap_index_from_td(*temp, *dens);
}
int32_t liq_index_from_td(const double* temp, const double* dens) {
  return co2_properties::liq_index_from_td(*temp, *dens);
}
int32_t sc_index_from_td(const double* temp, const double* dens) {
  return co2_properties::sc_index_from_td(*temp, *dens);
}
int32_t vap_index_from_tp(const double* temp, const double* pres) {
  return co2_properties::vap_index_from_tp(*temp, *pres);
}
int32_t liq_index_from_tp(const double* temp, const double* pres) {
  return co2_properties::liq_index_from_tp(*temp, *pres);
}
int32_t sc_index_from_tp(const double* temp, const double* pres) {
  return co2_properties::sc_index_from_tp(*temp, *pres);
}

void temp_from_hp(const double* enth, const double* pres, double* temp, int32_t* flag) {
  co2_properties::temp_from_hp(*enth, *pres, *temp, *flag);
}
void dens_from_hp(const double* enth, const double* pres, double* dens) {
  co2_properties::dens_from_hp(*enth, *pres, *dens);
}
void temp_from_sp(const double* entr, const double* pres, double* temp, int32_t* flag) {
  co2_properties::temp_from_sp(*entr, *pres, *temp, *flag);
}
void dens_from_sp(const double* entr, const double* pres, double* dens) {
  co2_properties::dens_from_sp(*entr, *pres, *dens);
}

co2_helmholtz_derivatives element_derivatives(const int32_t* e, const double* temp,
                                              const double* dens) {
  return co2_properties::bit_cast<co2_helmholtz_derivatives>(
      co2_properties::element_derivatives(*e, *temp, *dens));
}

void calculate_visc(const double* dens, const double* temp, double* visc) {
  co2_properties::calculate_visc(*dens, *temp, *visc);
}
void calculate_cond(const double* dens, const double* temp, double* cond) {
  co2_properties::calculate_cond(*dens, *temp, *cond);
}
void calculate_cp(const double* dens, const double* temp, double* cp) {
  co2_properties::calculate_cp(*dens, *temp, *cp);
}
void calculate_cv(const double* dens, const double* temp, double* cv) {
  co2_properties::calculate_cv(*dens, *temp, *cv);
}
void calculate_ssnd(const double* dens, const double* temp, double* ssnd) {
  co2_properties::calculate_ssnd(*dens, *temp, *ssnd);
}
