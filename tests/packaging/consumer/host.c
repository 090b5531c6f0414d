#include <co2_properties.h>
#include <stdio.h>

/* A host that does not call the parts of the library may have procedures of the same names. */
double calc_sat_temp(const double* pres) { return *pres; }

int main(void) {
  const double temp = 310.0, dens = 600.0;
  double pres, enth, cp;
  int32_t ierr;
  co2_td_select(&temp, &dens, &ierr, &(co2_output_set){.pres = &pres, .enth = &enth, .cp = &cp});
  if (ierr != 0) return 1;
  printf("%.1f kPa, %.2f kJ/kg, %.3f kJ/(kg K)\n", pres, enth, cp);
  return 0;
}
