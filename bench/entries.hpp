#pragma once
// The four entries and their batch forms, as a list to loop over.

#include "api/co2_properties.hpp"
#include "bench/states.hpp"

namespace co2_properties::bench {

struct Entry {
  const char* name;
  void (*single)(const double&, const double&, std::int32_t&, const OutputSet&) noexcept;
  bool (*batch)(StridedSpan<const double>, StridedSpan<const double>, StridedSpan<std::int32_t>,
                const BatchOutputSet&) noexcept;
  double State::*first;
  double State::*second;
};
inline constexpr Entry entries[] = {
    {"co2_td", co2_td, co2_td_batch, &State::temp, &State::dens},
    {"co2_tp", co2_tp, co2_tp_batch, &State::temp, &State::pres},
    {"co2_ph", co2_ph, co2_ph_batch, &State::pres, &State::enth},
    {"co2_ps", co2_ps, co2_ps_batch, &State::pres, &State::entr},
};

/// `co2_tp` has no two-phase states.
inline bool serves(const Entry& entry, const Region& region) {
  return !region.two_phase || entry.single != static_cast<decltype(entry.single)>(co2_tp);
}

}  // namespace co2_properties::bench
