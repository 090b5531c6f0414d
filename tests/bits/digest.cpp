// Prints a digest of all outputs and codes of every entry over fixed states: single calls, and
// batches in each form that the machine runs. Equal digests mean equal bits. The states cover the
// range log-uniformly and reach beyond it.

#include "numbers/platform.hpp"

#include "tests/support/digest.hpp"

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "api/batch/levels.hpp"
#include "api/co2_properties.hpp"

namespace co2_properties {
namespace {

constexpr std::size_t state_count = 40001;  // the last vector is not full

/// Numbers between `lo` and `hi`, or between these powers of two.
struct Range {
  double lo, hi;
  bool by_magnitude = false;

  double draw(test::Draws& draws) const {
    return by_magnitude ? draws.magnitude(lo, hi) : draws.uniform(lo, hi);
  }
};

struct Entry {
  const char* name;
  BatchEntries::Run BatchEntries::*run;
  Range first, second;
  Range first_critical, second_critical;  ///< every fourth state
};
constexpr Range temps = {230.0, 1510.0};
constexpr Range critical_temps = {302.0, 311.0};
constexpr Range pressures = {-1.0, 17.0, true};
constexpr Range critical_pressures = {6000.0, 8500.0};
constexpr Entry entries[] = {
    {"co2_td", &BatchEntries::td, temps, {-9.0, 11.0, true}, critical_temps, {300.0, 600.0}},
    {"co2_tp", &BatchEntries::tp, temps, pressures, critical_temps, critical_pressures},
    {"co2_ph", &BatchEntries::ph, pressures, {50.0, 2200.0}, critical_pressures, {270.0, 400.0}},
    {"co2_ps", &BatchEntries::ps, pressures, {0.4, 5.0}, critical_pressures, {1.2, 1.7}},
};

void print(const Entry& entry, const char* form, const BatchEntries& level) {
  std::vector<double> first(state_count);
  std::vector<double> second(state_count);
  test::Draws draws;
  for (std::size_t i = 0; i < state_count; ++i) {
    const bool critical = i % 4 == 0;
    first[i] = (critical ? entry.first_critical : entry.first).draw(draws);
    second[i] = (critical ? entry.second_critical : entry.second).draw(draws);
  }
  std::vector<std::int32_t> ierr(state_count);
  std::vector<double> values[output_count];
  for (auto& v : values) v.resize(state_count);
  auto& v = values;
  BatchOutputSet out = {v[0],  v[1],  v[2],  v[3],  v[4],  v[5],  v[6],  v[7],  v[8], v[9],
                        v[10], v[11], v[12], v[13], v[14], v[15], v[16], v[17], v[18]};
  (level.*entry.run)({first, second, ierr, out});
  test::Digest digest;
  for (const std::int32_t code : ierr) digest.add(code);
  for (const auto& numbers : values) {
    for (const double number : numbers) digest.add(number);
  }
  std::printf("%s %-8s %016" PRIx64 "\n", entry.name, form, digest.value());
}

}  // namespace
}  // namespace co2_properties

int main() {
  using namespace co2_properties;
  for (const Entry& entry : entries) {
    print(entry, "single", one_by_one);
#if defined(__x86_64__) && defined(__GNUC__)
    if (four_lanes != nullptr && __builtin_cpu_supports("avx2") != 0) {
      print(entry, "AVX2", *four_lanes);
    }
    if (eight_lanes != nullptr && __builtin_cpu_supports("avx512f") != 0) {
      print(entry, "AVX-512", *eight_lanes);
    }
#endif
  }
}
