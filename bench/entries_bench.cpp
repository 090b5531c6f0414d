// What a state costs, by region and by what is asked for: single calls, batches, two threads.

#include <benchmark/benchmark.h>

#include <mutex>

#include "bench/entries.hpp"

namespace co2_properties::bench {
namespace {

struct Inputs {
  std::vector<double> first, second;
};

Inputs inputs_of(const Entry& entry, const Region& region, const bool smooth) {
  static std::mutex drawing;
  const std::lock_guard<std::mutex> lock(drawing);
  const std::vector<State>& states = draw_states(region, smooth);
  return {column(states, entry.first), column(states, entry.second)};
}

/// Calls with a fixed set of outputs, as a program makes them that knows what it wants.
template <auto... members>
void call_single(benchmark::State& run, const Entry& entry, const Inputs& in) {
  double values[sizeof...(members) + 1];
  OutputSet out;
  std::size_t k = 0;
  ((out.*members = &values[k++]), ...);
  std::int32_t ierr = 0;
  for (auto _ : run) {
    for (std::size_t i = 0; i < in.first.size(); ++i) {
      entry.single(in.first[i], in.second[i], ierr, out);
      benchmark::DoNotOptimize(values);
    }
  }
  run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(in.first.size()));
}

void call_batch(benchmark::State& run, const Entry& entry, const Level& level, const Inputs& in) {
  std::vector<double> values[6];
  for (std::vector<double>& v : values) v.resize(in.first.size());
  std::vector<std::int32_t> ierr(in.first.size());
  const BatchOutputSet out = {.pres = values[0],
                              .enth = values[1],
                              .entr = values[2],
                              .cv = values[3],
                              .cp = values[4],
                              .ssnd = values[5]};
  for (auto _ : run) {
    (level.entries->*entry.batch)({in.first, in.second, ierr, out});
    benchmark::ClobberMemory();
  }
  run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(in.first.size()));
}

using Body = void (*)(benchmark::State&, const Entry&, const Inputs&);
struct Subset {
  const char* name;
  Body body;
};

#define CO2_SIX                                                                         \
  &OutputSet::pres, &OutputSet::enth, &OutputSet::entr, &OutputSet::cv, &OutputSet::cp, \
      &OutputSet::ssnd
constexpr Subset six = {"six", call_single<CO2_SIX>};
constexpr Subset subsets[] = {
    {"one", call_single<&OutputSet::enth>},
    six,
    {"six+visc", call_single<CO2_SIX, &OutputSet::visc>},
    {"six+cond", call_single<CO2_SIX, &OutputSet::cond>},
    {"all", call_single<CO2_SIX, &OutputSet::temp, &OutputSet::dens, &OutputSet::svol,
                        &OutputSet::qual, &OutputSet::inte, &OutputSet::visc, &OutputSet::cond,
                        &OutputSet::dpdd, &OutputSet::dpdt, &OutputSet::dhdd, &OutputSet::dhdt,
                        &OutputSet::dsdd, &OutputSet::dsdt>},
};
#undef CO2_SIX

benchmark::internal::Benchmark* add(const Entry& entry, const Subset& subset, const Region& region,
                                    const bool smooth) {
  return benchmark::RegisterBenchmark(
      title(entry.name, subset.name, region, smooth).c_str(),
      [&entry, body = subset.body, &region, smooth](benchmark::State& run) {
        body(run, entry, inputs_of(entry, region, smooth));
      });
}

const bool registered = [] {
  for (const Entry& entry : entries) {
    for (const Region& region : regions) {
      if (!serves(entry, region)) continue;
      for (const Subset& subset : subsets) add(entry, subset, region, false);
      add(entry, six, region, true);
      for (const Level& level : levels()) {
        for (const bool smooth : {false, true}) {
          benchmark::RegisterBenchmark(title(entry.name, level.name, region, smooth).c_str(),
                                       [&entry, level, &region, smooth](benchmark::State& run) {
                                         call_batch(run, entry, level,
                                                    inputs_of(entry, region, smooth));
                                       });
        }
      }
    }
    for (const int threads : {1, 2}) {
      add(entry, {"throughput", six.body}, domain, false)->Threads(threads)->UseRealTime();
    }
  }
  return true;
}();

}  // namespace
}  // namespace co2_properties::bench
