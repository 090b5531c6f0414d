// The floor, the reference equation of state for the same states, and the parts of the entries that
// hosts can call.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>

#include "bench/floor.hpp"
#include "bench/states.hpp"
#include "eos/element.hpp"
#include "reference/span_wagner.hpp"

namespace co2_properties::bench {
namespace {

const std::vector<bench_floor::Record>& records() {
  static const std::vector<bench_floor::Record> copies = [] {
    std::vector<bench_floor::Record> result;
    for (std::int32_t e = 1; e <= element_count; ++e) {
      const Element& from = element(e);
      bench_floor::Record& to = result.emplace_back();
      to.dens0 = from.dens0;
      to.temp0 = from.temp0;
      for (std::int32_t i = 0; i < temp_terms; ++i) {
        std::copy_n(from.coef[i], dens_terms, to.coef[i]);
      }
    }
    return result;
  }();
  return copies;
}

std::int32_t element_of(const State& s) noexcept {
  return s.temp >= t_crit  ? sc_index_from_td(s.temp, s.dens)
         : s.dens > d_crit ? liq_index_from_td(s.temp, s.dens)
                           : vap_index_from_td(s.temp, s.dens);
}

/// Whether the floor computes what it stands for.
bool agrees(const bench_floor::Six& six, const State& s) noexcept {
  const auto close = [](const double x, const double expected) {
    return std::abs(x - expected) <= 1e-9 * (1.0 + std::abs(expected));
  };
  return close(six.pres, s.pres) && close(six.enth, s.enth) && close(six.entr, s.entr);
}

void run_floor(benchmark::State& run, const Region& region) {
  std::vector<bench_floor::Located> located;
  for (const State& s : draw_states(region)) {
    located.push_back({s.temp, s.dens, &records()[static_cast<std::size_t>(element_of(s) - 1)]});
    if (!agrees(bench_floor::evaluate(located.back()), s)) {
      run.SkipWithError("the floor evaluates another table than the library");
      return;
    }
  }
  for (auto _ : run) bench_floor::evaluate_all(located);
  count_states(run);
}

void evaluate_reference(const State& s) noexcept {
  auto properties = reference::properties<double>(s.temp, s.dens);
  benchmark::DoNotOptimize(properties);
}

void look_up_by_density(const State& s) noexcept { benchmark::DoNotOptimize(element_of(s)); }

void look_up_by_pressure(const State& s) noexcept {
  benchmark::DoNotOptimize(s.temp >= t_crit  ? sc_index_from_tp(s.temp, s.pres)
                           : s.dens > d_crit ? liq_index_from_tp(s.temp, s.pres)
                                             : vap_index_from_tp(s.temp, s.pres));
}

void start_from_enthalpy(const State& s) noexcept {
  double start[2];
  std::int32_t flag;
  temp_from_hp(s.enth, s.pres, start[0], flag);
  dens_from_hp(s.enth, s.pres, start[1]);
  benchmark::DoNotOptimize(start);
}

void start_from_entropy(const State& s) noexcept {
  double start[2];
  std::int32_t flag;
  temp_from_sp(s.entr, s.pres, start[0], flag);
  dens_from_sp(s.entr, s.pres, start[1]);
  benchmark::DoNotOptimize(start);
}

void saturated_densities(const State& s) noexcept {
  benchmark::DoNotOptimize(calc_sat_vap_dens(s.temp));
  benchmark::DoNotOptimize(calc_sat_liq_dens(s.temp));
}

template <void (*part)(const State&) noexcept>
void run_part(benchmark::State& run, const Region& region) {
  const std::vector<State>& states = draw_states(region);
  for (auto _ : run) {
    for (const State& s : states) part(s);
  }
  count_states(run);
}

struct Part {
  const char* name;
  void (*run)(benchmark::State&, const Region&);
  const Region& region = domain;
};
constexpr Part parts[] = {
    {"floor", run_floor},
    {"reference equation", run_part<evaluate_reference>},
    {"look-up by density", run_part<look_up_by_density>},
    {"look-up by pressure", run_part<look_up_by_pressure>},
    {"start values from enthalpy", run_part<start_from_enthalpy>},
    {"start values from entropy", run_part<start_from_entropy>},
    {"saturated densities", run_part<saturated_densities>, two_phase},
};

const bool registered = [] {
  for (const Part& part : parts) {
    benchmark::RegisterBenchmark(part.name, part.run, part.region);
  }
  return true;
}();

}  // namespace
}  // namespace co2_properties::bench
