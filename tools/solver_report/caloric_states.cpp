#include "solver_report/caloric_states.hpp"

#include <cmath>

#include "co2_properties.hpp"

namespace co2_properties::solver_report {
namespace {

constexpr double dens_max = 1260.0;

/// Whether an isobar of the library passes through the property: its temperature limits enclose it.
bool in_domain(const double pres, const double value, double FullState::*caloric) {
  const auto at = [&](const double temp) {
    FullState s{};
    std::int32_t ierr = 0;
    co2_tp(temp, pres, ierr, {.enth = &s.enth, .entr = &s.entr});
    return ierr == 0 ? s.*caloric : NAN;
  };
  return pres >= pres_min && pres <= pres_max && value >= at(temp_min) && value <= at(temp_max);
}

}  // namespace

bool full_state(const double temp, const double dens, FullState& state) {
  std::int32_t ierr = 0;
  state.temp = temp;
  state.dens = dens;
  double dpdd = 0.0;
  co2_td(temp, dens, ierr,
         {.pres = &state.pres,
          .qual = &state.qual,
          .inte = &state.inte,
          .enth = &state.enth,
          .entr = &state.entr,
          .dpdd = &dpdd});
  state.slope = dens * dpdd;
  return ierr == 0;
}

CaloricStratumIndex stratum_of_chunk(const std::uint64_t chunk) {
  std::uint64_t place = chunk * 37 % 100;  // 37 is prime to 100
  std::size_t s = 0;
  while (place >= caloric_strata[s].share) place -= caloric_strata[s++].share;
  return static_cast<CaloricStratumIndex>(s);
}

void CaloricSource::draw(const CaloricStratumIndex stratum, double& temp, double& dens) {
  switch (stratum) {
    case any_density:
      temp = source_.uniform(temp_min, temp_max);
      dens = source_.uniform(0.0, dens_max);
      return;
    case any_log_density:
      temp = source_.uniform(temp_min, temp_max);
      dens = source_.log_uniform(dens_min, dens_max);
      return;
    case cold:
      temp = source_.uniform(temp_min, 320.0);
      dens = source_.log_uniform(dens_min, dens_max);
      return;
    default: {  // two phases, a quarter of them close to one of the two
      temp = source_.below(4) > 0 ? source_.uniform(temp_min, t_crit)
                                  : t_crit - source_.log_uniform(1e-6, 60.0);
      const double part =
          source_.below(4) > 0 ? source_.uniform(0.0, 1.0) : source_.log_uniform(1e-12, 1.0);
      const double qual = source_.coin() ? part : 1.0 - part;
      dens = 1.0 / (qual / calc_sat_vap_dens(temp) + (1.0 - qual) / calc_sat_liq_dens(temp));
      return;
    }
  }
}

FullState CaloricSource::by_density(const CaloricStratumIndex stratum) {
  FullState state{};
  double temp = 0.0;
  double dens = 0.0;
  do {
    switch (stratum) {
      case any_density:
      case any_log_density:
      case cold:
      case two_phases:
        draw(stratum, temp, dens);
        break;
      default: {
        const State s = source_.by_density(stratum == near_saturation        ? saturation
                                           : stratum == at_density_edges     ? density_edges
                                           : stratum == at_temperature_edges ? temperature_edges
                                           : stratum == in_critical_box      ? critical_box
                                                                             : critical_point);
        temp = s.temp;
        dens = s.dens;
      }
    }
  } while (!full_state(temp, dens, state));
  return state;
}

CaloricSource::Inputs CaloricSource::at_cell_edge(const Tiling& temp_tiling,
                                                  const Tiling& dens_tiling,
                                                  double FullState::*caloric) {
  for (;;) {
    const Tiling& tiling = source_.coin() ? temp_tiling : dens_tiling;
    const FullState state = by_density(source_.below(4) == 0 ? two_phases : any_log_density);
    Inputs in = {state.pres, state.*caloric};
    const bool at_pressure = source_.coin();
    const double* const edges = at_pressure ? tiling.x_edges : tiling.y_edges;
    const std::int32_t count = at_pressure ? tiling.x_count : tiling.y_count;
    const auto edge = source_.below(static_cast<std::uint64_t>(count));
    (at_pressure ? in.pres : in.caloric) = source_.close_to(edges[edge]);
    if (in_domain(in.pres, in.caloric, caloric)) return in;
  }
}

}  // namespace co2_properties::solver_report
