// The floors that the entries are held against: the bare evaluation of elements which are known
// beforehand, and the reference equation of state. And the parts of which the entries are made.

#include <benchmark/benchmark.h>

#include <cmath>

#include "bench/states.hpp"
#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "reference/span_wagner.hpp"
#include "solvers/relocate.hpp"

namespace co2_properties::bench {
namespace {

/// One state with what the region's tests would have found out.
struct Located {
  State state;
  std::int32_t element;
};

/// Six properties from the derivatives of one element, the logarithm included.
void evaluate_elements(const Located& s) noexcept {
  const double temp = s.state.temp;
  const double dens = s.state.dens;
  const HelmholtzDerivatives d = evaluate(element(s.element), temp, dens, std::log(dens));
  double six[] = {pressure(d, dens),
                  enthalpy(d, temp, dens),
                  entropy(d),
                  isochoric_heat_capacity(d, temp),
                  isobaric_heat_capacity(d, temp, dens),
                  speed_of_sound(d, dens)};
  benchmark::DoNotOptimize(six);
}

void evaluate_reference(const Located& s) noexcept {
  benchmark::DoNotOptimize(reference::helmholtz<double>(s.state.temp, s.state.dens));
}

void locate_by_density(const Located& s) noexcept {
  benchmark::DoNotOptimize(relocate(s.state.temp, s.state.dens));
}

void locate_by_pressure(const Located& s) noexcept {
  const double temp = s.state.temp;
  const double pres = s.state.pres;
  benchmark::DoNotOptimize(temp >= t_crit          ? sc_index_from_tp(temp, pres)
                           : s.state.dens > d_crit ? liq_index_from_tp(temp, pres)
                                                   : vap_index_from_tp(temp, pres));
}

void logarithm(const Located& s) noexcept { benchmark::DoNotOptimize(std::log(s.state.dens)); }

void start_from_enthalpy(const Located& s) noexcept {
  double temp;
  double dens;
  std::int32_t flag;
  temp_from_hp(s.state.enth, s.state.pres, temp, flag);
  dens_from_hp(s.state.enth, s.state.pres, dens);
  benchmark::DoNotOptimize(temp + dens);
}

void start_from_entropy(const Located& s) noexcept {
  double temp;
  double dens;
  std::int32_t flag;
  temp_from_sp(s.state.entr, s.state.pres, temp, flag);
  dens_from_sp(s.state.entr, s.state.pres, dens);
  benchmark::DoNotOptimize(temp + dens);
}

void saturation_densities(const Located& s) noexcept {
  benchmark::DoNotOptimize(calc_sat_vap_dens(s.state.temp));
  benchmark::DoNotOptimize(calc_sat_liq_dens(s.state.temp));
}

/// Registers `part` with the states of a region.
template <void (*part)(const Located&) noexcept>
void add(const char* name, const Region& region, const bool smooth = false) {
  benchmark::RegisterBenchmark(
      title(name, "", region, smooth).c_str(), [&region, smooth](benchmark::State& run) {
        std::vector<Located> located;
        for (const State& s : draw_states(region, smooth)) {
          located.push_back({s, relocate(s.temp, s.dens)});
        }
        for (auto _ : run) {
          for (const Located& s : located) part(s);
        }
        run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(located.size()));
      });
}

const bool registered = [] {
  for (const Region& region : regions) {
    if (region.two_phase) continue;
    for (const bool smooth : {false, true}) {
      add<evaluate_elements>("floor", region, smooth);
      add<locate_by_density>("locate by density", region, smooth);
      add<locate_by_pressure>("locate by pressure", region, smooth);
    }
    add<start_from_enthalpy>("start from enthalpy", region);
    add<start_from_entropy>("start from entropy", region);
  }
  add<evaluate_reference>("reference equation", domain);
  add<logarithm>("logarithm", domain);
  add<saturation_densities>("saturated densities", two_phase);
  return true;
}();

}  // namespace
}  // namespace co2_properties::bench
