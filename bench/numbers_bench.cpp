// The library's own elementary functions beside those of the C library: one after the other, each
// argument from the result before (latency), and over an array (throughput).

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include "numbers/elementary.hpp"
#include "numbers/lanes.hpp"
#include "numbers/logarithm.hpp"

namespace co2_properties::bench {

void logarithms_avx2(const double* x, std::size_t count, double* log) noexcept;

namespace {

constexpr std::size_t count = 4096;

std::vector<double> arguments(const double lo, const double hi) {
  std::mt19937_64 engine(11);
  std::uniform_real_distribution<double> draw(lo, hi);
  std::vector<double> x;
  for (std::size_t k = 0; k < count; ++k) x.push_back(draw(engine));
  return x;
}

/// \param one  result for one argument
template <class One>
void add(const std::string& name, const double lo, const double hi, const One& one) {
  benchmark::RegisterBenchmark((name + "/latency").c_str(), [=](benchmark::State& run) {
    const std::vector<double> x = arguments(lo, hi);
    double y = 0.0;
    for (auto _ : run) {
      for (const double next : x) y = one(next + 1e-9 * y);
    }
    benchmark::DoNotOptimize(y);
    run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(count));
  });
  benchmark::RegisterBenchmark((name + "/throughput").c_str(), [=](benchmark::State& run) {
    const std::vector<double> x = arguments(lo, hi);
    for (auto _ : run) {
      for (const double next : x) benchmark::DoNotOptimize(one(next));
    }
    run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(count));
  });
}

/// \param all  results for an array
template <class All>
void add_lanes(const std::string& name, const double lo, const double hi, const All& all) {
  benchmark::RegisterBenchmark((name + "/throughput").c_str(), [=](benchmark::State& run) {
    const std::vector<double> x = arguments(lo, hi);
    std::vector<double> y(count);
    for (auto _ : run) {
      all(x.data(), count, y.data());
      benchmark::ClobberMemory();
    }
    run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(count));
  });
}

void logarithms_of_pairs(const double* const x, const std::size_t n, double* const log) noexcept {
  for (std::size_t k = 0; k < n; k += 2) {
    store(logarithm_of_normal(load<Lanes2>(x + k)), log + k);
  }
}

const bool registered = [] {
  add("std::log", 0.01, 1250.0, [](const double x) { return std::log(x); });
  add("logarithm", 0.01, 1250.0, [](const double x) { return logarithm(x); });
  add_lanes("logarithm, two lanes", 0.01, 1250.0, logarithms_of_pairs);
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2") != 0) {
    add_lanes("logarithm, four lanes of AVX2", 0.01, 1250.0, logarithms_avx2);
  }
#endif
  add("std::cbrt", 0.1, 1e7, [](const double x) { return std::cbrt(x); });
  add("cube_root", 0.1, 1e7, [](const double x) { return cube_root(x); });
  add("std::cos(std::acos)", -0.9, 0.4,
      [](const double x) { return std::cos(std::acos(x) / 3.0); });
  add("cosine_of_third", -0.9, 0.4, [](const double x) { return cosine_of_third(x); });
  return true;
}();

}  // namespace
}  // namespace co2_properties::bench
