#pragma once
// The entries, one state or many at a time, as a list to loop over.

#include <vector>

#include "api/batch/levels.hpp"
#include "api/co2_properties.hpp"
#include "bench/states.hpp"

namespace co2_properties::bench {

struct Entry {
  const char* name;
  void (*single)(const double&, const double&, std::int32_t&, const OutputSet&) noexcept;
  void (*derived)(const double&, const double&, std::int32_t&, const OutputSet&,
                  const DerivativeSet&) noexcept;
  bool (*batch)(StridedSpan<const double>, StridedSpan<const double>, StridedSpan<std::int32_t>,
                const BatchOutputSet&) noexcept;
  BatchEntries::Run BatchEntries::*level;
  double State::*first;
  double State::*second;
  bool has_two_phase;
};
inline constexpr Entry entries[] = {
    {"td", co2_td, co2_td, co2_td_batch, &BatchEntries::td, &State::temp, &State::dens, true},
    {"tp", co2_tp, co2_tp, co2_tp_batch, &BatchEntries::tp, &State::temp, &State::pres, false},
    {"ph", co2_ph, co2_ph, co2_ph_batch, &BatchEntries::ph, &State::pres, &State::enth, true},
    {"ps", co2_ps, co2_ps, co2_ps_batch, &BatchEntries::ps, &State::pres, &State::entr, true},
    {"du", co2_du, co2_du, co2_du_batch, &BatchEntries::du, &State::dens, &State::inte, true},
    {"dh", co2_dh, co2_dh, co2_dh_batch, &BatchEntries::dh, &State::dens, &State::enth, true},
    {"ds", co2_ds, co2_ds, co2_ds_batch, &BatchEntries::ds, &State::dens, &State::entr, true},
    {"dp", co2_dp, co2_dp, co2_dp_batch, &BatchEntries::dp, &State::dens, &State::pres, true},
    {"hs", co2_hs, co2_hs, co2_hs_batch, &BatchEntries::hs, &State::enth, &State::entr, true},
    {"pu", co2_pu, co2_pu, co2_pu_batch, &BatchEntries::pu, &State::pres, &State::inte, true},
    {"ts", co2_ts, co2_ts, co2_ts_batch, &BatchEntries::ts, &State::temp, &State::entr, true},
};

/// The levels of the batches that this machine has.
inline std::vector<Level> levels_here() {
  std::vector<Level> found;
  for (const Level& level : levels(instruction_sets()).level) {
    if (level.runs) found.push_back(level);
  }
  return found;
}

}  // namespace co2_properties::bench
