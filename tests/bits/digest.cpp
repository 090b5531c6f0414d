// Prints digests of all outputs and codes of every entry over fixed states, one by one and at every
// level of batches that the machine runs. Equal digests mean equal bits. The states cover the range
// log-uniformly and reach beyond it; now and then an input is nothing that occurs. Does without the
// run-time library of C++, which not every C library has.
// Usage: digest [STATES]   up to 10^6; 10^5 print the first half of what 10^6 do

#include "numbers/platform.hpp"

#include "tests/support/digest.hpp"

#include <cinttypes>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "api/co2_properties.hpp"
#include "tests/support/portable_lanes.hpp"

namespace co2_properties {
namespace {

// ---- States ------------------------------------------------------------------------------------

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
constexpr Range densities = {-9.0, 11.0, true};
constexpr Range critical_densities = {300.0, 600.0};
constexpr Range energies = {50.0, 2200.0};
constexpr Range entropies = {0.4, 5.0};
constexpr Entry entries[] = {
    {"co2_td", &BatchEntries::td, temps, densities, critical_temps, critical_densities},
    {"co2_tp", &BatchEntries::tp, temps, pressures, critical_temps, critical_pressures},
    {"co2_ph", &BatchEntries::ph, pressures, energies, critical_pressures, {270.0, 400.0}},
    {"co2_ps", &BatchEntries::ps, pressures, entropies, critical_pressures, {1.2, 1.7}},
    {"co2_du", &BatchEntries::du, densities, energies, critical_densities, {250.0, 400.0}},
    {"co2_dh", &BatchEntries::dh, densities, energies, critical_densities, {270.0, 400.0}},
    {"co2_ds", &BatchEntries::ds, densities, entropies, critical_densities, {1.2, 1.7}},
    {"co2_dp", &BatchEntries::dp, densities, pressures, critical_densities, critical_pressures},
    {"co2_hs", &BatchEntries::hs, energies, entropies, {270.0, 400.0}, {1.2, 1.7}},
    {"co2_pu", &BatchEntries::pu, pressures, energies, critical_pressures, {250.0, 400.0}},
    {"co2_ts", &BatchEntries::ts, temps, entropies, critical_temps, {1.2, 1.7}},
    {"co2_tx", &BatchEntries::tx, {239.0, 305.0}, {-0.01, 1.01}, {303.0, 304.2}, {0.0, 1.0}},
    {"co2_px", &BatchEntries::px, {1200.0, 7400.0}, {-0.01, 1.01}, {7200.0, 7378.0}, {0.0, 1.0}},
};

using Limits = std::numeric_limits<double>;
constexpr double odd_inputs[] = {
    Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),  0.0,  -0.0,
    Limits::max(),       Limits::lowest(),   Limits::denorm_min(), -1.0, Limits::min()};
constexpr std::int32_t odd_input_count = sizeof odd_inputs / sizeof *odd_inputs;

class States {
 public:
  explicit States(const Entry& entry) : entry_(entry) {}

  void draw(double& first, double& second) {
    const bool critical = count_ % 4 == 0;
    first = (critical ? entry_.first_critical : entry_.first).draw(draws_);
    second = (critical ? entry_.second_critical : entry_.second).draw(draws_);
    if (count_ % 50 == 0) {
      const std::int32_t odd = count_ / 50;
      (odd % 2 == 0 ? first : second) = odd_inputs[odd / 2 % odd_input_count];
    }
    ++count_;
  }

 private:
  const Entry& entry_;
  test::Draws draws_;
  std::int32_t count_ = 0;
};

// ---- Results -----------------------------------------------------------------------------------

constexpr std::int32_t batch_size = 3125;  // the last vector is not full
double first[batch_size];
double second[batch_size];
std::int32_t ierr[batch_size];
double values[output_count][batch_size];

/// Whether all is well: an output is NaN only if an input is. IEEE 754 leaves open which NaN an
/// operation gives, so that all of them are one here.
bool add_state(const std::int32_t i, test::Digest& digest) {
  const bool may_be_nan = std::isnan(first[i]) || std::isnan(second[i]);
  bool well = true;
  digest.add(ierr[i]);
  for (const auto& output : values) {
    const bool is_nan = std::isnan(output[i]);
    digest.add(is_nan ? Limits::quiet_NaN() : output[i]);
    well = well && (may_be_nan || !is_nan);
  }
  return well;
}

bool print(const Entry& entry, const Level& level, const std::int32_t state_count) {
  auto& v = values;
  const BatchOutputSet out = {v[0],  v[1],  v[2],  v[3],  v[4],  v[5],  v[6],  v[7],  v[8], v[9],
                              v[10], v[11], v[12], v[13], v[14], v[15], v[16], v[17], v[18]};
  States states(entry);
  test::Digest digest;
  bool well = true;
  for (std::int32_t done = 0; done < state_count;) {
    for (std::int32_t i = 0; i < batch_size; ++i) states.draw(first[i], second[i]);
    (level.entries->*entry.run)({first, second, ierr, out});
    for (std::int32_t i = 0; i < batch_size; ++i) well = add_state(i, digest) && well;
    done += batch_size;
    if (done == 100'000 || done == 1'000'000) {
      std::printf("%s %7" PRId32 " %016" PRIx64 " %s\n", entry.name, done, digest.value(),
                  level.name);
    }
  }
  if (!well) std::printf("%s gives NaN for numbers, %s\n", entry.name, level.name);
  return well;
}

}  // namespace
}  // namespace co2_properties

int main(const int argc, const char* const* const argv) {
  using namespace co2_properties;
  const std::int32_t state_count = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
  bool well = true;
  const auto print_level = [&](const Level& level) {
    if (!level.runs) {
      std::printf("not tried: %s, which this %s lacks\n", level.name,
                  level.entries == nullptr ? "build" : "machine");
      return;
    }
    for (const Entry& entry : entries) well = print(entry, level, state_count) && well;
  };
  print_level({"four lanes", &test::portable_four, true});
  print_level({"eight lanes", &test::portable_eight, true});
  for (const Level& level : levels(instruction_sets()).level) print_level(level);
  return well ? 0 : 1;
}
