#pragma once
// The four entries and their batch forms, as a list to loop over.

#include "api/batch/levels.hpp"
#include "api/co2_properties.hpp"
#include "bench/states.hpp"

namespace co2_properties::bench {

struct Entry {
  const char* name;
  void (*single)(const double&, const double&, std::int32_t&, const OutputSet&) noexcept;
  BatchEntries::Run BatchEntries::*batch;
  double State::*first;
  double State::*second;
};
inline constexpr Entry entries[] = {
    {"co2_td", co2_td, &BatchEntries::td, &State::temp, &State::dens},
    {"co2_tp", co2_tp, &BatchEntries::tp, &State::temp, &State::pres},
    {"co2_ph", co2_ph, &BatchEntries::ph, &State::pres, &State::enth},
    {"co2_ps", co2_ps, &BatchEntries::ps, &State::pres, &State::entr},
};

/// An instruction set of this machine and its batch entries.
struct Level {
  const char* name;
  const BatchEntries* entries;
};
inline std::vector<Level> levels() {
  std::vector<Level> found = {{"one by one", &one_by_one}};
#if defined(__x86_64__) && defined(__GNUC__)
  if (four_lanes != nullptr && __builtin_cpu_supports("avx2") != 0) {
    found.push_back({"AVX2", four_lanes});
  }
  if (eight_lanes != nullptr && __builtin_cpu_supports("avx512f") != 0) {
    found.push_back({"AVX-512", eight_lanes});
  }
#endif
  return found;
}

/// `co2_tp` has no two-phase states.
inline bool serves(const Entry& entry, const Region& region) {
  return !region.two_phase || entry.single != static_cast<decltype(entry.single)>(co2_tp);
}

}  // namespace co2_properties::bench
