// Batch entries on lanes of the type V, for the source files that say what V is and for which
// instruction set (avx2.cpp, avx512.cpp). No #pragma once: everything here belongs to the one file
// that includes it, and nothing of it may be shared with another.
//
// States go in blocks, and a block goes through the common road of its entry in passes, each of
// which does one thing for all of its states: the steps of one state wait for each other, those of
// different states do not. Single phases and mixtures are told apart first and go in full lanes,
// side by side with others of their kind. What does not take the common road is left to the entry
// for one state, which does the same operations on the same numbers.

#include <cstddef>
#include <cstdint>
#include <new>

#include "api/batch/levels.hpp"
#include "api/co2_properties.hpp"
#include "api/entries/caloric.hpp"
#include "api/entries/ph.hpp"
#include "api/entries/ps.hpp"
#include "api/entries/td.hpp"
#include "api/entries/tp.hpp"

// NOLINTBEGIN(misc-definitions-in-headers): see above

namespace co2_properties {
namespace {

constexpr std::int32_t lanes = lane_count<V>;
static_assert(block_size % lanes == 0);

constexpr std::int32_t block_groups = block_size / lanes;

/// Groups of lanes that hold so many states.
[[gnu::always_inline]] inline std::int32_t groups_of(const std::int32_t count) {
  return (count + lanes - 1) / lanes;
}

/// States of a block that go side by side. Behind the last one the same state fills its lanes.
struct States {
  alignas(64) double first[block_size];  ///< inputs
  alignas(64) double second[block_size];
  alignas(64) double temp[block_size];  ///< start values, where the entry has them
  alignas(64) double dens[block_size];
  std::int32_t element[block_size];
  std::uint8_t index[block_size];  ///< in the block
  std::int32_t count;

  void append(const States& from, const std::int32_t i) {
    copy(from, i, count);
    index[count++] = from.index[i];
  }
  /// Adds the lanes of group g of other states that are `wanted`, with other start values.
  void add(const States& from, const std::int32_t g, const Mask<V>& wanted, const V& new_temp,
           const V& new_dens) {
    for (std::int32_t k = 0; k < lanes && g * lanes + k < from.count; ++k) {
      if (wanted[k] == 0) continue;
      append(from, g * lanes + k);
      temp[count - 1] = new_temp[k];
      dens[count - 1] = new_dens[k];
    }
  }
  void fill_lanes() {
    for (std::int32_t i = count; i % lanes != 0; ++i) copy(*this, count - 1, i);
  }
  /// The inputs of group g, and its elements.
  [[nodiscard, gnu::always_inline]] inline V first_at(const std::int32_t g) const {
    return load<V>(first + g * lanes);
  }
  [[nodiscard, gnu::always_inline]] inline V second_at(const std::int32_t g) const {
    return load<V>(second + g * lanes);
  }
  [[gnu::always_inline]] inline void cells_at(const std::int32_t g, Cells<V>& cells) const {
    for_each_lane<V>([&](const int k) CO2_INLINE {
      cells[k] = &co2_properties::element(element[g * lanes + k]);
    });
  }

  void copy(const States& from, const std::int32_t i, const std::int32_t to) {
    first[to] = from.first[i];
    second[to] = from.second[i];
    temp[to] = from.temp[i];
    dens[to] = from.dens[i];
    element[to] = from.element[i];
  }
};

/// States that the entry for one state takes over.
struct Rest {
  double first[block_size];
  double second[block_size];
  std::uint8_t index[block_size];  ///< in the block
  std::int32_t count = 0;
  std::uint64_t taken = 0;  ///< bits of the indices
  static_assert(block_size <= 64);

  /// Not what has been taken over before: its lane holds another state.
  void append(const States& states, const std::int32_t i) {
    const std::uint64_t bit = std::uint64_t{1} << states.index[i];
    if ((taken & bit) != 0) return;
    taken |= bit;
    first[count] = states.first[i];
    second[count] = states.second[i];
    index[count++] = states.index[i];
  }
  /// Adds the lanes of group g of `states` that are not `done`.
  [[gnu::always_inline]] inline void add(const States& states, const std::int32_t g,
                                         const Mask<V>& done) {
    if (all(done)) return;
    for (std::int32_t k = 0; k < lanes && g * lanes + k < states.count; ++k) {
      if (done[k] == 0) append(states, g * lanes + k);
    }
  }
};

// ---- Entries -----------------------------------------------------------------------------------
//
// Each gives
//
// - single: the entry for one state;
// - place(states, i): which lanes from state i on take the common road, and where it starts;
// - finish(states, results, rest, again): evaluates single phases; what is not solved yet goes to
//   `again`, if there is one, or to the rest;
// - mix(states, g, out): evaluates and writes the mixtures of group g;
// - code_of_mixture(out).
//
// Results are constructed where they stay: g++ 12 would copy an assigned structure of vectors in
// pieces of eight bytes.

/// Lanes with a single phase, and with a mixture.
struct Kinds {
  Mask<V> single, mixture;
};

/// Both phases at a saturation temperature, K: code that all entries share.
struct TieLine {
  SaturatedPhase<V> liq;
  SaturatedPhase<V> vap;

  [[gnu::noinline]] explicit TieLine(const V& temp)
      : liq(saturated_liquid<V>(temp)), vap(saturated_vapour<V>(temp)) {}
};

/// Temperature and density.
struct TdRoad {
  static constexpr SingleEntry single = co2_td;

  [[gnu::always_inline]] static inline Kinds place(States& states, const std::int32_t i) {
    const TdPlace<V> place =
        place_td<V>(load<V>(states.first + i), load<V>(states.second + i), states.element + i);
    return {place.single, place.mixture};
  }

  [[gnu::noinline]] static void finish(const States& states, SinglePhase<V>* const results,
                                       Rest& rest, States* const /*again*/) {
    V log_dens[block_groups];
    const std::int32_t groups = groups_of(states.count);
    for (std::int32_t g = 0; g < groups; ++g) {
      log_dens[g] = logarithm_of_normal<V>(states.second_at(g));
    }
    for (std::int32_t g = 0; g < groups; ++g) {
      Cells<V> cells;
      states.cells_at(g, cells);
      new (&results[g]) SinglePhase<V>(
          evaluate_td<V>(cells, states.first_at(g), states.second_at(g), log_dens[g]));
      rest.add(states, g, results[g].wanted);
    }
  }

  [[gnu::noinline]] static void mix(const States& states, const std::int32_t g,
                                    const OutputSet& out) {
    const V temp = states.first_at(g);
    const TieLine at(temp);
    write_mixture<MixtureTransport::none>(
        OutputWriter(out, g * lanes),
        mixture_from_td<V>(temp, states.second_at(g), at.liq, at.vap));
  }
  static std::int32_t code_of_mixture(const OutputSet& out) { return code_of_td_mixture(out); }
};

/// Temperature and pressure.
struct TpRoad {
  static constexpr SingleEntry single = co2_tp;

  [[gnu::always_inline]] static inline Kinds place(States& states, const std::int32_t i) {
    return {place_tp<V>(load<V>(states.first + i), load<V>(states.second + i), states.element + i),
            Mask<V>{}};
  }

  [[gnu::noinline]] static void finish(const States& states, SinglePhase<V>* const results,
                                       Rest& rest, States* const /*again*/) {
    Isotherm<V> isotherms[block_groups];
    V dens[block_groups];
    V log_dens[block_groups];
    const std::int32_t groups = groups_of(states.count);
    for (std::int32_t g = 0; g < groups; ++g) {
      Cells<V> cells;
      states.cells_at(g, cells);
      new (&isotherms[g]) Isotherm<V>(isotherm<V, Order::second>(cells, states.first_at(g)));
    }
    for (std::int32_t g = 0; g < groups; ++g) {
      Cells<V> cells;
      states.cells_at(g, cells);
      dens[g] = density_tp<V>(cells, isotherms[g], states.second_at(g));
    }
    for (std::int32_t g = 0; g < groups; ++g) log_dens[g] = logarithm_of_normal<V>(dens[g]);
    for (std::int32_t g = 0; g < groups; ++g) {
      new (&results[g]) SinglePhase<V>(evaluate_tp<V>(isotherms[g], states.first_at(g), dens[g],
                                                      log_dens[g], states.second_at(g)));
      rest.add(states, g, results[g].wanted);
    }
  }

  static void mix(const States& /*states*/, const std::int32_t /*g*/, const OutputSet& /*out*/) {}
  static std::int32_t code_of_mixture(const OutputSet& /*out*/) { return status::success; }
};

/// Pressure and enthalpy or entropy.
template <class Pair, SingleEntry entry>
struct CaloricRoad {
  static constexpr SingleEntry single = entry;

  [[gnu::always_inline]] static inline Kinds place(States& states, const std::int32_t i) {
    const CaloricPlace<V> place =
        place_caloric<Pair, V>(load<V>(states.first + i), load<V>(states.second + i));
    store(place.temp, states.temp + i);
    store(place.dens, states.dens + i);
    return {place.single, place.mixture};
  }

  [[gnu::noinline]] static void finish(const States& states, SinglePhase<V>* const results,
                                       Rest& rest, States* const again) {
    struct Group {
      Cells<V> cells;
      Iterate<V> at;
    };
    Group group[block_groups];
    const std::int32_t groups = groups_of(states.count);
    for (std::int32_t g = 0; g < groups; ++g) {
      group[g].at = start_in_element<V>(load<V>(states.temp + g * lanes),
                                        load<V>(states.dens + g * lanes), group[g].cells);
    }
    for (std::int32_t g = 0; g < groups; ++g) {
      group[g].at = step_caloric<Pair, V>(group[g].at, states.first_at(g), states.second_at(g),
                                          group[g].cells);
    }
    for (std::int32_t g = 0; g < groups; ++g) {
      new (&results[g]) SinglePhase<V>(evaluate_caloric<Pair, V>(
          group[g].cells, group[g].at, states.first_at(g), states.second_at(g)));
      const Mask<V> met = results[g].wanted;
      if (again == nullptr) {
        rest.add(states, g, met);
      } else if (!all(met)) {
        rest.add(states, g, met | group[g].at.served);
        again->add(states, g, ~met & group[g].at.served, results[g].temp, results[g].dens);
      }
    }
  }

  [[gnu::noinline]] static void mix(const States& states, const std::int32_t g,
                                    const OutputSet& out) {
    const V temp = saturation_temperature<V>(states.first_at(g));
    const TieLine at(temp);
    write_mixture<Pair::mixture_transport>(OutputWriter(out, g * lanes),
                                           mixture_from_caloric<typename Pair::Property, V>(
                                               temp, states.second_at(g), at.liq, at.vap));
  }
  static std::int32_t code_of_mixture(const OutputSet& out) {
    return co2_properties::code_of_mixture<Pair>(out);
  }
};

// ---- Blocks ------------------------------------------------------------------------------------

/// Sorts the states of a block by what becomes of them.
/// \return those that go through the common road as single phases
template <class Road>
[[gnu::always_inline]] inline States& sort_states(States& block, States& singles, States& mixtures,
                                                  Rest& rest) {
  Kinds kinds[block_groups];
  Mask<V> single = broadcast<V>(0.0) == 0.0;
  Mask<V> mixture = {};
  for (std::int32_t g = 0; g < groups_of(block.count); ++g) {
    kinds[g] = Road::place(block, g * lanes);
    single &= kinds[g].single;
    mixture |= kinds[g].mixture;
  }
  if (all(single)) return block;
  const auto is = [&](const Mask<V> Kinds::*const kind, const std::int32_t i) {
    return (kinds[i / lanes].*kind)[i % lanes] != 0;
  };
  if (!any(mixture)) {
    // The rest leave their lanes to copies of a state that does take the road.
    std::int32_t stand_in = 0;
    while (stand_in < block.count && !is(&Kinds::single, stand_in)) ++stand_in;
    for (std::int32_t i = 0; i < block.count; ++i) {
      if (is(&Kinds::single, i)) continue;
      rest.append(block, i);
      if (stand_in < block.count) block.copy(block, stand_in, i);
    }
    return stand_in < block.count ? block : singles;
  }
  for (std::int32_t i = 0; i < block.count; ++i) {
    if (is(&Kinds::single, i)) {
      singles.append(block, i);
    } else if (is(&Kinds::mixture, i)) {
      mixtures.append(block, i);
    } else {
      rest.append(block, i);
    }
  }
  return singles;
}

/// Copies one input of a block; the original may be overwritten by an output.
[[gnu::always_inline]] inline void take(const StridedSpan<const double>& from,
                                        const std::size_t start, const std::int32_t count,
                                        double* const to) {
  const double* const first = &from[start];
  const std::ptrdiff_t stride = from.stride();
  if (stride == 1 && count == block_size) {
    for (std::int32_t i = 0; i < block_size; i += lanes) store(load<V>(first + i), to + i);
  } else {
    for (std::int32_t i = 0; i < count; ++i) to[i] = first[i * stride];
  }
}

[[gnu::noinline]] void write_block(const OutputSet& out, const SinglePhase<V>* const results,
                                   const std::int32_t groups) {
  write_single_phase(OutputWriter(out), results, groups);
}

template <class Road>
void run_blocks(const Batch& batch) noexcept {
  BlockOutputs outputs(batch);
  States block{};  // with numbers in all places, since lanes are copied as a whole
  States singles{};
  States mixtures{};
  States again{};
  SinglePhase<V> results[block_groups];
  for (std::int32_t i = 0; i < block_size; ++i) block.index[i] = static_cast<std::uint8_t>(i);
  const std::int32_t code_of_mixture = Road::code_of_mixture(outputs.buffers());
  const std::size_t size = batch.first.size();
  for (std::size_t start = 0; start < size; start += block_size) {
    block.count = static_cast<std::int32_t>(size - start < block_size ? size - start : block_size);
    singles.count = 0;
    mixtures.count = 0;
    Rest rest;
    take(batch.first, start, block.count, block.first);
    take(batch.second, start, block.count, block.second);
    block.fill_lanes();

    // A second round for states that the first one has not solved.
    static_assert(caloric_rounds == 2);
    States* now = &sort_states<Road>(block, singles, mixtures, rest);
    again.count = 0;
    for (States* next = &again; now != nullptr && now->count > 0; now = next, next = nullptr) {
      now->fill_lanes();
      Road::finish(*now, results, rest, next);
      const bool at_once = now->count == block_size && outputs.are_in_a_row();
      write_block(at_once ? outputs.of_state(start) : outputs.buffers(), results,
                  groups_of(now->count));
      outputs.hand_over(start, now->index, now->count, status::success, !at_once);
    }
    if (mixtures.count > 0) {
      mixtures.fill_lanes();
      for (std::int32_t g = 0; g < groups_of(mixtures.count); ++g) {
        Road::mix(mixtures, g, outputs.buffers());
      }
      outputs.hand_over(start, mixtures.index, mixtures.count, code_of_mixture, true);
    }
    for (std::int32_t k = 0; k < rest.count; ++k) {
      const std::size_t at = start + rest.index[k];
      Road::single(rest.first[k], rest.second[k], batch.ierr[at], outputs.of_state(at));
    }
  }
}

constexpr BatchEntries block_entries = {run_blocks<TdRoad>, run_blocks<TpRoad>,
                                        run_blocks<CaloricRoad<PhPair, co2_ph>>,
                                        run_blocks<CaloricRoad<PsPair, co2_ps>>};

}  // namespace
}  // namespace co2_properties

// NOLINTEND(misc-definitions-in-headers)
