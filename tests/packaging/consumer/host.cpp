#include <cstdio>
#include <limits.hpp>
#include <status.hpp>
#include <vector>

#include "co2_properties.h"
#include "co2_properties.hpp"

int main() {
  double pres = 0.0, enth = 0.0, cp = 0.0;
  std::int32_t ierr = 0;
  co2_properties::co2_td(310.0, 600.0, ierr, {.pres = &pres, .enth = &enth, .cp = &cp});

  // One procedure of each kind: arrays, parts, C, fixed arguments.
  std::vector<double> temp{310.0}, dens{600.0}, again(1);
  std::vector<std::int32_t> codes(1);
  const bool ok = co2_properties::co2_td_batch(temp, dens, codes, {.enth = again});
  const double liquid = co2_properties::calc_sat_liq_dens(280.0);
  const double same = calc_sat_liq_dens(temp.data()) + co2_properties::t_crit;
  double fixed[6];
  fittp_(temp.data(), &pres, &fixed[0], &fixed[1], &fixed[2], &fixed[3], &fixed[4], &fixed[5]);
  if (ierr != no_status || dens[0] > largest_dens || !ok || again[0] != enth || !(liquid > 800.0) ||
      !(same > 0.0))
    return 1;
  std::printf("%.1f kPa, %.2f kJ/kg, %.3f kJ/(kg K)\n", pres, enth, cp);
}
