// What a state costs, beside two floors measured in the same run: the bare evaluation of elements
// that are known beforehand, and the reference equation of state.
//
// The time per state is the reported time divided by the number of items; run with
// --benchmark_counters_tabular=true and read 1/items_per_second.

#include <benchmark/benchmark.h>

#include <cmath>

#include "api/relocate.hpp"
#include "bench/states.hpp"
#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "tablegen/reference/span_wagner.hpp"

namespace co2_properties::bench {
namespace {

constexpr std::size_t count = 1 << 14;

void name_region(benchmark::State& run) {
  constexpr const char* names[] = {"gas",       "liquid", "supercritical", "compressor inlet",
                                   "two-phase", "domain"};
  run.SetLabel(std::string(names[run.range(0)]) + (run.range(1) != 0 ? ", smooth" : ", shuffled"));
  run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(count));
}

std::vector<State> inputs(const benchmark::State& run) {
  return states(static_cast<Region>(run.range(0)), count, run.range(1) != 0);
}

/// Six properties from the derivatives of one element, the logarithm included.
void floor_elements(benchmark::State& run) {
  struct Located {
    std::int32_t e;
    double temp, dens;
  };
  std::vector<Located> located;
  for (const State& s : inputs(run)) located.push_back({relocate(s.temp, s.dens), s.temp, s.dens});
  for (auto _ : run) {
    for (const Located& s : located) {
      const HelmholtzDerivatives d = evaluate(element(s.e), s.temp, s.dens, std::log(s.dens));
      const double six[] = {pressure(d, s.dens),
                            enthalpy(d, s.temp, s.dens),
                            entropy(d),
                            isochoric_heat_capacity(d, s.temp),
                            isobaric_heat_capacity(d, s.temp, s.dens),
                            speed_of_sound(d, s.dens)};
      benchmark::DoNotOptimize(six);
    }
  }
  name_region(run);
}

void floor_reference(benchmark::State& run) {
  const std::vector<State> list = inputs(run);
  for (auto _ : run) {
    for (const State& s : list) {
      benchmark::DoNotOptimize(reference::helmholtz<double>(s.temp, s.dens));
    }
  }
  name_region(run);
}

void locate(benchmark::State& run) {
  const std::vector<State> list = inputs(run);
  for (auto _ : run) {
    for (const State& s : list) benchmark::DoNotOptimize(relocate(s.temp, s.dens));
  }
  name_region(run);
}

using Entry = void (*)(const double&, const double&, std::int32_t&, const OutputSet&) noexcept;

/// One entry with six thermodynamic outputs.
template <Entry entry, double State::*first, double State::*second>
void six_outputs(benchmark::State& run) {
  const std::vector<State> list = inputs(run);
  double out[6];
  const OutputSet set = {.pres = &out[0],
                         .dens = &out[1],
                         .inte = &out[2],
                         .enth = &out[3],
                         .entr = &out[4],
                         .ssnd = &out[5]};
  std::int32_t ierr = 0;
  for (auto _ : run) {
    for (const State& s : list) {
      entry(s.*first, s.*second, ierr, set);
      benchmark::DoNotOptimize(out);
    }
  }
  name_region(run);
}

void regions(benchmark::internal::Benchmark* b) {
  for (std::int64_t region = 0; region < 6; ++region) {
    b->Args({region, 0});
    b->Args({region, 1});
  }
}

void single_phase_regions(benchmark::internal::Benchmark* b) {
  for (const std::int64_t region : {0, 1, 2, 3}) {
    b->Args({region, 0});
    b->Args({region, 1});
  }
}

BENCHMARK(floor_elements)->Apply(single_phase_regions);
BENCHMARK(floor_reference)->Apply(single_phase_regions);
BENCHMARK(locate)->Apply(single_phase_regions);
BENCHMARK(six_outputs<co2_td, &State::temp, &State::dens>)->Name("co2_td")->Apply(regions);
BENCHMARK(six_outputs<co2_tp, &State::temp, &State::pres>)
    ->Name("co2_tp")
    ->Apply(single_phase_regions);
BENCHMARK(six_outputs<co2_ph, &State::pres, &State::enth>)->Name("co2_ph")->Apply(regions);
BENCHMARK(six_outputs<co2_ps, &State::pres, &State::entr>)->Name("co2_ps")->Apply(regions);

}  // namespace
}  // namespace co2_properties::bench
