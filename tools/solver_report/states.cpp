#include "solver_report/states.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "co2_properties.hpp"
#include "eos/element.hpp"
#include "eos/pressure_locator.hpp"

namespace co2_properties::solver_report {

bool single_phase(const double temp, const double dens, State& state) {
  std::int32_t ierr = 0;
  state.temp = temp;
  state.dens = dens;
  co2_td(temp, dens, ierr, {.pres = &state.pres, .dpdd = &state.dpdd});
  return ierr == 0 && state.dpdd != 0.0;  // the derivative is 0 in two phases
}

double Draws::uniform(const double lo, const double hi) {
  return std::uniform_real_distribution<double>(lo, hi)(engine_);
}

double Draws::log_uniform(const double lo, const double hi) {
  return std::exp(uniform(std::log(lo), std::log(hi)));
}

double Draws::close_to(double value) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const double side = coin() ? infinity : -infinity;
  if (coin()) return value + std::copysign(log_uniform(1e-10, 0.1), side);
  for (auto steps = below(5); steps > 0; --steps) value = std::nextafter(value, side);
  return value;
}

void StateSource::draw(const StratumIndex stratum, double& temp, double& dens) {
  switch (stratum) {
    case saturation: {
      temp = below(4) > 0 ? uniform(temp_min, t_crit) : t_crit - log_uniform(1e-6, 60.0);
      const double away = log_uniform(1e-16, 0.3);
      dens = coin() ? calc_sat_vap_dens(temp) * (1.0 - away) : calc_sat_liq_dens(temp) * (1 + away);
      return;
    }
    case density_edges: {
      const Element& e = elements[below(element_count)];
      temp = uniform(e.temp0, e.temp0 + e.temp_width);
      dens = close_to(coin() ? e.dens0 : e.dens0 + e.dens_width);
      return;
    }
    case temperature_edges: {
      const Element& e = elements[below(element_count)];
      temp = close_to(coin() ? e.temp0 : e.temp0 + e.temp_width);
      dens = uniform(e.dens0, e.dens0 + e.dens_width);
      return;
    }
    case critical_box:
      temp = uniform(303.5, 305.0);
      dens = uniform(380.0, 560.0);
      return;
    default:
      temp = t_crit + (coin() ? 1.0 : -1.0) * log_uniform(1e-12, 3.0);
      dens = d_crit + (coin() ? 1.0 : -1.0) * log_uniform(1e-3, 100.0);
      if (below(16) == 0) temp = t_crit;
      return;
  }
}

State StateSource::by_density(const StratumIndex stratum) {
  State state{};
  double temp = 0.0;
  double dens = 0.0;
  do draw(stratum, temp, dens);
  while (!single_phase(temp, dens, state));
  return state;
}

StateSource::Inputs StateSource::by_pressure(const StratumIndex stratum) {
  switch (stratum) {
    case uniform_pressure:
      return {uniform(temp_min, temp_max), uniform(pres_min, pres_max)};
    case log_pressure:
      return {uniform(temp_min, temp_max), log_uniform(pres_min, pres_max)};
    case subcritical:
      return {uniform(temp_min, t_crit), log_uniform(pres_min, pres_max)};
    default: {
      const Element& e = elements[below(element_count)];
      const double temp = uniform(e.temp0, e.temp0 + e.temp_width);
      const PressureTiling& map = temp >= t_crit ? supercritical_tp_tiling
                                  : coin()       ? vapour_tp_tiling
                                                 : liquid_tp_tiling;
      const double* const edges = map.temp_edges;
      const auto column = std::upper_bound(edges, edges + map.edge_count, temp) - edges;
      const auto rows = static_cast<std::uint64_t>(map.first[column + 1] - map.first[column]);
      const TpRow& row = map.rows[map.first[column] + 1 + static_cast<int>(below(rows - 1))];
      const double pres = close_to(evaluate_curve(map.curves[row.curve], temp));
      return {temp, std::clamp(pres, pres_min, pres_max)};
    }
  }
}

}  // namespace co2_properties::solver_report
