#pragma once
// The entries of the library as two lists, which differ in nothing but what they are called with.

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "quantities.hpp"

namespace co2_properties::python {

/// Where the results of a state go, by index: `quantities`, for a state of saturation those of the
/// liquid, those of the vapour, the latent heat and the slope of the line.
inline constexpr std::size_t slot_count = 2 * quantity_count + 2;
using Slots = std::array<double*, slot_count>;
using ArraySlots = std::array<StridedSpan<double>, slot_count>;

/// One state, or many. Entries of saturation take no notice of the second input.
using Single = void (*)(double, double, std::int32_t&, const Slots&);
using Batch = void (*)(StridedSpan<const double>, StridedSpan<const double>,
                       StridedSpan<std::int32_t>, const ArraySlots&);

/// The consecutive slots from `start` on as the set that has as many members.
template <class Set, std::size_t start, class Slot>
Set set_of(const std::array<Slot, slot_count>& slots) noexcept {
  constexpr std::size_t size = sizeof(Set) / sizeof(Slot);
  return [&]<std::size_t... k>(std::index_sequence<k...>) {
    return std::bit_cast<Set>(std::array<Slot, size>{slots[start + k]...});
  }
  (std::make_index_sequence<size>());
}

using PairEntry = void (*)(const double&, const double&, std::int32_t&, const OutputSet&) noexcept;
using PairEntryWithDerivatives = void (*)(const double&, const double&, std::int32_t&,
                                          const OutputSet&, const DerivativeSet&) noexcept;
using PairBatch = bool (*)(StridedSpan<const double>, StridedSpan<const double>,
                           StridedSpan<std::int32_t>, const BatchOutputSet&) noexcept;
using PairBatchWithDerivatives = bool (*)(StridedSpan<const double>, StridedSpan<const double>,
                                          StridedSpan<std::int32_t>, const BatchOutputSet&,
                                          const BatchDerivativeSet&) noexcept;

inline bool is_present(const double* const slot) noexcept { return slot != nullptr; }
inline bool is_present(const StridedSpan<double>& slot) noexcept { return slot.data() != nullptr; }

/// Derivatives are asked for only where there are any: states without them take a shorter road.
template <std::size_t start, class Slot>
bool any_derivative(const std::array<Slot, slot_count>& slots) noexcept {
  constexpr auto first = static_cast<std::ptrdiff_t>(start + output_count);
  constexpr auto last = static_cast<std::ptrdiff_t>(start + quantity_count);
  return std::any_of(slots.begin() + first, slots.begin() + last,
                     [](const Slot& slot) { return is_present(slot); });
}

template <PairEntry entry, PairEntryWithDerivatives with_derivatives>
void run_single(const double first, const double second, std::int32_t& ierr, const Slots& out) {
  const auto outputs = set_of<OutputSet, 0>(out);
  if (any_derivative<0>(out)) {
    with_derivatives(first, second, ierr, outputs, set_of<DerivativeSet, output_count>(out));
  } else {
    entry(first, second, ierr, outputs);
  }
}

template <PairBatch entry, PairBatchWithDerivatives with_derivatives>
void run_batch(const StridedSpan<const double> first, const StridedSpan<const double> second,
               const StridedSpan<std::int32_t> ierr, const ArraySlots& out) {
  const auto outputs = set_of<BatchOutputSet, 0>(out);
  if (any_derivative<0>(out)) {
    with_derivatives(first, second, ierr, outputs, set_of<BatchDerivativeSet, output_count>(out));
  } else {
    entry(first, second, ierr, outputs);
  }
}

inline constexpr std::size_t of_vapour = quantity_count;
inline constexpr std::size_t of_line = 2 * quantity_count;

template <class Set, class Outputs, class Derivatives, class Run, class Slot>
void with_saturation_set(const std::array<Slot, slot_count>& out, const Run& run) {
  const auto liq = set_of<Derivatives, output_count>(out);
  const auto vap = set_of<Derivatives, of_vapour + output_count>(out);
  run(Set{set_of<Outputs, 0>(out), set_of<Outputs, of_vapour>(out), out[of_line], out[of_line + 1],
          any_derivative<0>(out) ? &liq : nullptr,
          any_derivative<of_vapour>(out) ? &vap : nullptr});
}

template <auto entry>
void run_saturation(const double given, double /*second*/, std::int32_t& ierr, const Slots& out) {
  with_saturation_set<SaturationSet, OutputSet, DerivativeSet>(
      out, [&](const SaturationSet& set) { entry(given, ierr, set); });
}

template <auto entry>
void run_saturation_batch(const StridedSpan<const double> given,
                          StridedSpan<const double> /*second*/,
                          const StridedSpan<std::int32_t> ierr, const ArraySlots& out) {
  with_saturation_set<BatchSaturationSet, BatchOutputSet, BatchDerivativeSet>(
      out, [&](const BatchSaturationSet& set) { entry(given, ierr, set); });
}

struct Entry {
  const char* name;
  Single single;
  Batch batch;
};

/// The overloads of an entry with and without derivatives, single and for arrays.
template <PairEntry entry, PairEntryWithDerivatives entry_with_derivatives, PairBatch batch,
          PairBatchWithDerivatives batch_with_derivatives>
constexpr Entry pair(const char* const name) noexcept {
  return {name, run_single<entry, entry_with_derivatives>,
          run_batch<batch, batch_with_derivatives>};
}

inline constexpr Entry entries[] = {
    // entries: begin, written by scripts/generate_entries
    pair<co2_td, co2_td, co2_td_batch, co2_td_batch>("td"),
    pair<co2_tp, co2_tp, co2_tp_batch, co2_tp_batch>("tp"),
    pair<co2_ph, co2_ph, co2_ph_batch, co2_ph_batch>("ph"),
    pair<co2_ps, co2_ps, co2_ps_batch, co2_ps_batch>("ps"),
    pair<co2_du, co2_du, co2_du_batch, co2_du_batch>("du"),
    pair<co2_dh, co2_dh, co2_dh_batch, co2_dh_batch>("dh"),
    pair<co2_ds, co2_ds, co2_ds_batch, co2_ds_batch>("ds"),
    pair<co2_dp, co2_dp, co2_dp_batch, co2_dp_batch>("dp"),
    pair<co2_hs, co2_hs, co2_hs_batch, co2_hs_batch>("hs"),
    pair<co2_pu, co2_pu, co2_pu_batch, co2_pu_batch>("pu"),
    pair<co2_ts, co2_ts, co2_ts_batch, co2_ts_batch>("ts"),
    pair<co2_tx, co2_tx, co2_tx_batch, co2_tx_batch>("tx"),
    pair<co2_px, co2_px, co2_px_batch, co2_px_batch>("px"),
    // entries: end
    {"sat_t", run_saturation<co2_sat_t>, run_saturation_batch<co2_sat_t_batch>},
    {"sat_p", run_saturation<co2_sat_p>, run_saturation_batch<co2_sat_p_batch>},
};

}  // namespace co2_properties::python
