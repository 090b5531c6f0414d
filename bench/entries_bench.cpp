// What a state costs by entry, by the way of calling, by outputs and by region. Names are
// "way/outputs/states/entry".

#include <benchmark/benchmark.h>

#include <array>
#include <bit>
#include <string>

#include "bench/entries.hpp"

namespace co2_properties::bench {
namespace {

/// Outputs by their place in `OutputSet`.
enum Output : std::size_t { temp, pres, dens, enth = 6, entr, cv, cp, ssnd, visc, cond };
static_assert(sizeof(BatchOutputSet) == output_count * sizeof(StridedSpan<double>));

struct Outputs {
  const char* name;
  std::vector<std::size_t> list;
  std::size_t derivatives = 0;  ///< the first so many of `DerivativeSet`
};

const Outputs six = {"p, h, s, cv, cp, w", {pres, enth, entr, cv, cp, ssnd}};
const Outputs five = {"T, p, rho, h, s", {temp, pres, dens, enth, entr}};
const Outputs with_visc = {"six + viscosity", {pres, enth, entr, cv, cp, ssnd, visc}};
const Outputs with_cond = {"six + conductivity", {pres, enth, entr, cv, cp, ssnd, cond}};
const Outputs with_derivatives = {"six + eight derivatives", {pres, enth, entr, cv, cp, ssnd}, 8};
const Outputs all = [] {
  Outputs result = {"all nineteen", {}};
  for (std::size_t k = 0; k < output_count; ++k) result.list.push_back(k);
  return result;
}();
/// The one output that an entry is most often called for.
Outputs one(const Entry& entry) {
  return {"one", {entry.first == &State::pres ? temp : entry.second == &State::pres ? dens : pres}};
}

/// Inputs and results of `state_count` states.
struct Arrays {
  Arrays(const Entry& entry, const Region& region)
      : first(column(region, entry.first)), second(column(region, entry.second)) {}

  BatchOutputSet outputs(const Outputs& wanted) {
    std::array<StridedSpan<double>, output_count> spans;
    for (const std::size_t k : wanted.list) {
      values[k].resize(state_count);
      spans[k] = values[k];
    }
    return std::bit_cast<BatchOutputSet>(spans);
  }
  BatchDerivativeSet derivatives(const Outputs& wanted) {
    std::array<StridedSpan<double>, derivative_count> spans;
    for (std::size_t k = 0; k < wanted.derivatives; ++k) {
      derived[k].resize(state_count);
      spans[k] = derived[k];
    }
    return std::bit_cast<BatchDerivativeSet>(spans);
  }

  std::vector<double> first, second;
  std::vector<double> values[output_count];
  std::vector<double> derived[derivative_count];
  std::vector<std::int32_t> ierr = std::vector<std::int32_t>(state_count);
};

/// Calls that use a result at once and keep none.
void call_single(benchmark::State& run, const Entry& entry, const Outputs& wanted,
                 const Region& region) {
  const Arrays in(entry, region);
  double values[output_count];
  std::array<double*, output_count> places{};
  for (const std::size_t k : wanted.list) places[k] = &values[k];
  const auto out = std::bit_cast<OutputSet>(places);
  double derived[derivative_count];
  std::array<double*, derivative_count> derived_places{};
  for (std::size_t k = 0; k < wanted.derivatives; ++k) derived_places[k] = &derived[k];
  const auto derivatives = std::bit_cast<DerivativeSet>(derived_places);
  std::int32_t ierr = 0;
  const auto loop = [&](const auto& call) {
    for (auto _ : run) {
      for (std::size_t i = 0; i < state_count; ++i) {
        call(in.first[i], in.second[i]);
        benchmark::DoNotOptimize(values);
        benchmark::DoNotOptimize(derived);
      }
    }
  };
  if (wanted.derivatives == 0) {
    loop([&](const double a, const double b) { entry.single(a, b, ierr, out); });
  } else {
    loop([&](const double a, const double b) { entry.derived(a, b, ierr, out, derivatives); });
  }
  count_states(run);
}

/// A program that fills its arrays with a loop of single calls.
void call_loop(benchmark::State& run, const Entry& entry, const Region& region) {
  Arrays a(entry, region);
  a.outputs(six);
  auto& v = a.values;
  for (auto _ : run) {
    for (std::size_t i = 0; i < state_count; ++i) {
      entry.single(a.first[i], a.second[i], a.ierr[i],
                   {.pres = &v[pres][i],
                    .enth = &v[enth][i],
                    .entr = &v[entr][i],
                    .cv = &v[cv][i],
                    .cp = &v[cp][i],
                    .ssnd = &v[ssnd][i]});
    }
    benchmark::ClobberMemory();
  }
  count_states(run);
}

/// \param call  called with the arrays, the outputs and, if any are wanted, the derivatives
template <class Call>
void call_batch(benchmark::State& run, const Entry& entry, const Outputs& wanted,
                const Region& region, const Call& call) {
  Arrays a(entry, region);
  const BatchOutputSet out = a.outputs(wanted);
  const BatchDerivativeSet derivatives = a.derivatives(wanted);
  for (auto _ : run) {
    call(a, out, wanted.derivatives == 0 ? nullptr : &derivatives);
    benchmark::ClobberMemory();
  }
  count_states(run);
}

std::string title(const char* way, const Outputs& wanted, const Region& region,
                  const Entry& entry) {
  return std::string(way) + '/' + wanted.name + '/' + region.name + '/' + entry.name;
}

benchmark::internal::Benchmark* add_single(const Entry& entry, const Outputs& wanted,
                                           const Region& region, const char* way = "single") {
  return benchmark::RegisterBenchmark(title(way, wanted, region, entry).c_str(),
                                      [&entry, wanted, &region](benchmark::State& run) {
                                        call_single(run, entry, wanted, region);
                                      });
}

void add_level(const Level& level, const Entry& entry, const Outputs& wanted,
               const Region& region) {
  benchmark::RegisterBenchmark(
      title((std::string("batch, ") + level.name).c_str(), wanted, region, entry).c_str(),
      [level, &entry, wanted, &region](benchmark::State& run) {
        call_batch(
            run, entry, wanted, region,
            [&](Arrays& a, const BatchOutputSet& out, const BatchDerivativeSet* const derivatives) {
              (level.entries->*entry.level)({a.first, a.second, a.ierr, out, derivatives});
            });
      });
}

/// What is measured of single calls and of each level of the batches.
struct Case {
  Outputs outputs;
  const Region& region;
};
std::vector<Case> cases(const Entry& entry) {
  std::vector<Case> result = {{six, domain},
                              {six, path},
                              {six, gas},
                              {six, liquid},
                              {six, supercritical},
                              {six, inlet},
                              {six, critical_box},
                              {five, critical_box},
                              {six, critical_point},
                              {one(entry), domain},
                              {with_visc, domain},
                              {with_cond, domain},
                              {with_derivatives, domain},
                              {all, domain}};
  if (entry.has_two_phase) {
    result.push_back({six, two_phase});
    result.push_back({with_derivatives, two_phase});
  }
  return result;
}

/// Both phases of states of saturation, six outputs each.
struct Saturation {
  const char* name;
  void (*single)(const double&, std::int32_t&, const SaturationSet&) noexcept;
  BatchEntries::SaturationRun BatchEntries::*run;
  double State::*given;
};
constexpr Saturation saturation[] = {{"co2_sat_t", co2_sat_t, &BatchEntries::sat_t, &State::temp},
                                     {"co2_sat_p", co2_sat_p, &BatchEntries::sat_p, &State::pres}};

void add_saturation(const Saturation& entry) {
  benchmark::RegisterBenchmark(
      (std::string(entry.name) + ", both phases, " + six.name).c_str(),
      [&entry](benchmark::State& run) {
        const std::vector<double> given = column(two_phase, entry.given);
        double values[2][6];
        const auto phase = [](double(&v)[6]) -> OutputSet {
          return {
              .pres = &v[0], .enth = &v[1], .entr = &v[2], .cv = &v[3], .cp = &v[4], .ssnd = &v[5]};
        };
        const SaturationSet out = {.liq = phase(values[0]), .vap = phase(values[1])};
        std::int32_t ierr = 0;
        for (auto _ : run) {
          for (const double value : given) {
            entry.single(value, ierr, out);
            benchmark::DoNotOptimize(values);
          }
        }
        count_states(run);
      });
  for (const Level& level : levels_here()) {
    benchmark::RegisterBenchmark(
        (std::string(entry.name) + ", batch, " + level.name).c_str(),
        [level, &entry](benchmark::State& run) {
          const std::vector<double> given = column(two_phase, entry.given);
          std::vector<double> values[2][6];
          const auto phase = [](std::vector<double>(&v)[6]) -> BatchOutputSet {
            for (auto& array : v) array.resize(state_count);
            return {.pres = v[0], .enth = v[1], .entr = v[2], .cv = v[3], .cp = v[4], .ssnd = v[5]};
          };
          const BatchSaturationSet out = {.liq = phase(values[0]), .vap = phase(values[1])};
          std::vector<std::int32_t> ierr(state_count);
          for (auto _ : run) {
            (level.entries->*entry.run)({given, ierr, out});
            benchmark::ClobberMemory();
          }
          count_states(run);
        });
  }
}

const bool registered = [] {
  for (const Saturation& entry : saturation) add_saturation(entry);
  for (const Entry& entry : entries) {
    for (const Case& c : cases(entry)) add_single(entry, c.outputs, c.region);
    for (const int threads : {1, 2}) {
      add_single(entry, six, domain, "in parallel")->Threads(threads)->UseRealTime();
    }
    benchmark::RegisterBenchmark(
        title("loop of single calls", six, domain, entry).c_str(),
        [&entry](benchmark::State& run) { call_loop(run, entry, domain); });
    benchmark::RegisterBenchmark(
        title("batch, as called", six, domain, entry).c_str(), [&entry](benchmark::State& run) {
          call_batch(run, entry, six, domain,
                     [&](Arrays& a, const BatchOutputSet& out, const BatchDerivativeSet*) {
                       entry.batch(a.first, a.second, a.ierr, out);
                     });
        });
    for (const Level& level : levels_here()) {
      for (const Case& c : cases(entry)) add_level(level, entry, c.outputs, c.region);
    }
  }
  return true;
}();

}  // namespace
}  // namespace co2_properties::bench
