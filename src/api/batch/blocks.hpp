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
#include "api/entries/density.hpp"
#include "api/entries/density_pairs.hpp"
#include "api/entries/derivative_writer.hpp"
#include "api/entries/hs.hpp"
#include "api/entries/ph.hpp"
#include "api/entries/ps.hpp"
#include "api/entries/pu.hpp"
#include "api/entries/saturation.hpp"
#include "api/entries/td.hpp"
#include "api/entries/tp.hpp"
#include "api/entries/ts.hpp"

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
// - mix(states, g, rest, out): evaluates and writes the mixtures of group g; those that are not
//   solved go to the rest, which is written later; code_of_mixture(out).
//
// Those that never have single phases lack the one, those that never have mixtures the others.
//
// Results are constructed where they stay: g++ 12 would copy an assigned structure of vectors in
// pieces of eight bytes.

/// Lanes with a single phase, and with a mixture.
struct Kinds {
  Mask<V> single, mixture;
};

/// Both phases at a saturation temperature, K: code that all entries share.
[[gnu::noinline]] TieLine<V> tie_line_at(const V& temp) { return TieLine<V>::at(temp); }

/// Mixtures at temperatures, K, and which of them meet their properties there.
struct MixturesAt {
  V temp;
  TieLine<V> at;
  Mask<V> met;
};

/// Takes one step with what the start values do not meet.
/// \param step  step(temp, at): a `MixtureStep`
template <class Step>
[[gnu::always_inline]] inline MixturesAt step_mixtures(const V& start, const Step& step) {
  MixturesAt m = {start, tie_line_at(start), {}};
  MixtureStep<V> s = step(m.temp, m.at);
  m.met = s.met;
  if (!all(m.met)) {
    m.temp = select<V>(m.met, m.temp, s.next);
    m.at = tie_line_at(m.temp);
    m.met = step(m.temp, m.at).met;
  }
  return m;
}

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

  [[gnu::noinline]] static void mix(const States& states, const std::int32_t g, Rest& /*rest*/,
                                    const OutputSets out) {
    const V temp = states.first_at(g);
    const TieLine<V> at = tie_line_at(temp);
    write_mixture<MixtureTransport::none>(
        OutputWriter(out, g * lanes),
        mixture_from_td<V>(temp, states.second_at(g), at.liq, at.vap));
  }
  static std::int32_t code_of_mixture(const OutputSets out) {
    return co2_properties::code_of_mixture(status::td_two_phase, out);
  }
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
};

/// One step towards two properties, for all states.
/// \param evaluated  evaluated(cells, at, first, second): the states there, `wanted` those that
///                   are found
template <class First, class Second, class Evaluate>
[[gnu::always_inline]] inline void finish_round(const States& states, SinglePhase<V>* const results,
                                                Rest& rest, States* const again,
                                                const Evaluate& evaluated) {
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
    group[g].at = step_towards<First, Second, V>(group[g].at, states.first_at(g),
                                                 states.second_at(g), group[g].cells);
  }
  for (std::int32_t g = 0; g < groups; ++g) {
    new (&results[g]) SinglePhase<V>(
        evaluated(group[g].cells, group[g].at, states.first_at(g), states.second_at(g)));
    const Mask<V> met = results[g].wanted;
    if (again == nullptr) {
      rest.add(states, g, met);
    } else if (!all(met)) {
      rest.add(states, g, met | group[g].at.served);
      again->add(states, g, ~met & group[g].at.served, results[g].temp, results[g].dens);
    }
  }
}

/// Pressure and a caloric property.
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
    finish_round<Pressure, typename Pair::Property>(
        states, results, rest, again,
        [](const Cells<V>& cells, const Iterate<V>& at, const V& pres, const V& caloric)
            CO2_INLINE { return evaluate_caloric<Pair, V>(cells, at, pres, caloric); });
  }

  [[gnu::noinline]] static void mix(const States& states, const std::int32_t g, Rest& /*rest*/,
                                    const OutputSets out) {
    const V temp = saturation_temperature<V>(states.first_at(g));
    const TieLine<V> at = tie_line_at(temp);
    write_mixture<Pair::mixture_transport>(OutputWriter(out, g * lanes),
                                           mixture_from_caloric<typename Pair::Property, V>(
                                               temp, states.second_at(g), at.liq, at.vap));
  }
  static std::int32_t code_of_mixture(const OutputSets out) {
    return co2_properties::code_of_mixture<Pair::mixture_transport>(Pair::codes.two_phase, out);
  }
};

/// Temperature and entropy.
struct TsRoad {
  static constexpr SingleEntry single = co2_ts;

  [[gnu::always_inline]] static inline Kinds place(States& states, const std::int32_t i) {
    const TsPlace<V> place =
        place_ts<V>(load<V>(states.first + i), load<V>(states.second + i), states.element + i);
    store(place.dens, states.dens + i);
    return {place.single, place.mixture};
  }

  [[gnu::noinline]] static void finish(const States& states, SinglePhase<V>* const results,
                                       Rest& rest, States* const /*again*/) {
    Isotherm<V> isotherms[block_groups];
    V dens[block_groups];
    V log_dens[block_groups];
    const std::int32_t groups = groups_of(states.count);
    for (std::int32_t g = 0; g < groups; ++g) {
      dens[g] = load<V>(states.dens + g * lanes);
      log_dens[g] = logarithm_of_normal<V>(dens[g]);
    }
    for (std::int32_t g = 0; g < groups; ++g) {
      Cells<V> cells;
      states.cells_at(g, cells);
      new (&isotherms[g]) Isotherm<V>(isotherm<V, Order::second>(cells, states.first_at(g)));
      dens[g] = density_ts<V>(cells, isotherms[g], dens[g], log_dens[g], states.second_at(g));
    }
    for (std::int32_t g = 0; g < groups; ++g) log_dens[g] = logarithm_of_normal<V>(dens[g]);
    for (std::int32_t g = 0; g < groups; ++g) {
      new (&results[g]) SinglePhase<V>(evaluate_ts<V>(isotherms[g], states.first_at(g), dens[g],
                                                      log_dens[g], states.second_at(g)));
      rest.add(states, g, results[g].wanted);
    }
  }

  [[gnu::noinline]] static void mix(const States& states, const std::int32_t g, Rest& /*rest*/,
                                    const OutputSets out) {
    const V temp = states.first_at(g);
    const TieLine<V> at = tie_line_at(temp);
    write_mixture<MixtureTransport::none>(
        OutputWriter(out, g * lanes),
        mixture_from_caloric<Entropy, V>(temp, states.second_at(g), at.liq, at.vap));
  }
  static std::int32_t code_of_mixture(const OutputSets out) {
    return co2_properties::code_of_mixture(status::ts_two_phase, out);
  }
};

/// Enthalpy and entropy.
struct HsRoad {
  static constexpr SingleEntry single = co2_hs;

  [[gnu::always_inline]] static inline Kinds place(States& states, const std::int32_t i) {
    const HsPlace<V> place = place_hs<V>(load<V>(states.first + i), load<V>(states.second + i));
    store(place.temp, states.temp + i);
    store(place.dens, states.dens + i);
    return {place.single, place.mixture};
  }

  [[gnu::noinline]] static void finish(const States& states, SinglePhase<V>* const results,
                                       Rest& rest, States* const again) {
    finish_round<Enthalpy, Entropy>(
        states, results, rest, again,
        [](const Cells<V>& cells, const Iterate<V>& at, const V& enth, const V& entr)
            CO2_INLINE { return evaluate_hs<V>(cells, at, enth, entr); });
  }

  [[gnu::noinline]] static void mix(const States& states, const std::int32_t g, Rest& rest,
                                    const OutputSets out) {
    const V enth = states.first_at(g);
    const V entr = states.second_at(g);
    const MixturesAt m = step_mixtures(
        tie_line_start<Entropy, Enthalpy, V>(entr, enth),
        [&](const V& temp, const TieLine<V>& at)
            CO2_INLINE { return step_hs_mixture<V>(temp, at.liq, at.vap, enth, entr); });
    rest.add(states, g, m.met);
    write_mixture<MixtureTransport::none>(
        OutputWriter(out, g * lanes),
        mixture_from_caloric<Entropy, V>(m.temp, entr, m.at.liq, m.at.vap));
  }
  static std::int32_t code_of_mixture(const OutputSets out) {
    return co2_properties::code_of_mixture(status::hs_two_phase, out);
  }
};

/// A saturation line, by temperature or pressure, and quality.
template <class Pair, SingleEntry entry>
struct QualityRoad {
  static constexpr SingleEntry single = entry;

  [[gnu::always_inline]] static inline Kinds place(States& states, const std::int32_t i) {
    return {Mask<V>{}, is_mixture<Pair, V>(load<V>(states.first + i), load<V>(states.second + i))};
  }

  [[gnu::noinline]] static void mix(const States& states, const std::int32_t g, Rest& /*rest*/,
                                    const OutputSets out) {
    const auto s = Pair::Given::template state<V>(states.first_at(g), tie_line_at);
    write_mixture_of_quality<Pair, V>(OutputWriter(out, g * lanes), s.temp, states.second_at(g),
                                      s.line);
  }
  static std::int32_t code_of_mixture(const OutputSets out) {
    return co2_properties::code_of_mixture(Pair::codes.two_phase, out);
  }
};

/// Density and a second property.
template <class Pair, SingleEntry entry>
struct DensityRoad {
  static constexpr SingleEntry single = entry;

  [[gnu::always_inline]] static inline Kinds place(States& states, const std::int32_t i) {
    const DensityPlace<V> place =
        place_density<Pair, V>(load<V>(states.first + i), load<V>(states.second + i));
    store(place.temp, states.temp + i);
    return {place.single, place.mixture};
  }

  [[gnu::noinline]] static void finish(const States& states, SinglePhase<V>* const results,
                                       Rest& rest, States* const again) {
    struct Group {
      Cells<V> cells;
      IsochoreIterate<V> at;
      V log_dens;
    };
    Group group[block_groups];
    const std::int32_t groups = groups_of(states.count);
    for (std::int32_t g = 0; g < groups; ++g) {
      group[g].log_dens = logarithm_of_normal<V>(states.first_at(g));
    }
    for (std::int32_t g = 0; g < groups; ++g) {
      group[g].at = step_density<Pair, V>(load<V>(states.temp + g * lanes), states.first_at(g),
                                          group[g].log_dens, states.second_at(g), group[g].cells);
      group[g].at.temp = within_range(group[g].at.temp);  // evaluated in any case
    }
    for (std::int32_t g = 0; g < groups; ++g) {
      new (&results[g]) SinglePhase<V>(evaluate_density<Pair, V>(
          group[g].cells, group[g].at, states.first_at(g), group[g].log_dens, states.second_at(g)));
      if (again == nullptr) {
        rest.add(states, g, results[g].wanted);
      } else if (!all(results[g].wanted)) {
        again->add(states, g, ~results[g].wanted, group[g].at.temp, states.first_at(g));
      }
    }
  }

  [[gnu::noinline]] static void mix(const States& states, const std::int32_t g, Rest& rest,
                                    const OutputSets out) {
    const V dens = states.first_at(g);
    const V value = states.second_at(g);
    const MixturesAt m = step_mixtures(
        mixture_start<Pair, V>(dens, value), [&](const V& temp, const TieLine<V>& at) CO2_INLINE {
          return step_mixture<Pair, V>(temp, at.liq, at.vap, dens, value);
        });
    rest.add(states, g, m.met);
    write_mixture<MixtureTransport::none>(OutputWriter(out, g * lanes),
                                          mixture_from_td<V>(m.temp, dens, m.at.liq, m.at.vap));
  }
  static std::int32_t code_of_mixture(const OutputSets out) {
    return co2_properties::code_of_mixture(Pair::codes.two_phase, out);
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

[[gnu::noinline]] void write_block(const OutputSets out, const SinglePhase<V>* const results,
                                   const std::int32_t groups) {
  write_single_phase(OutputWriter(out), results, groups);
  if (out.derivatives == nullptr) return;
  const bool more = wants_more_derivatives(*out.derivatives);
  for (std::int32_t g = 0; g < groups; ++g) {
    const SinglePhase<V>& s = results[g];
    StateDerivatives<V> d = state_derivatives(s.d, s.temp, s.dens);
    // Lanes that do not count raise no exception.
    d.cv = select<V>(s.wanted, d.cv, broadcast<V>(1.0));
    d.dpdd = select<V>(s.wanted, d.dpdd, broadcast<V>(1.0));
    const auto of_lane = [&](const std::int32_t k) -> StateDerivatives<double> {
      return {d.temp[k], d.dens[k], d.pv[k], d.cv[k], d.dpdd[k], d.pv_t[k]};
    };
    const Mask<V> near = s.near & s.wanted;
    for (std::int32_t k = 0; any(near) && k < lanes; ++k) {
      if (near[k] == 0) continue;
      const StateDerivatives<double> one = near_critical_derivatives(of_lane(k));
      d.cv[k] = one.cv;
      d.dpdd[k] = one.dpdd;
      d.pv_t[k] = one.pv_t;
    }
    put_derivatives(*out.derivatives, g * lanes, d);
    put_single_derivatives(*out.derivatives, g * lanes, d);
    for (std::int32_t k = 0; more && k < lanes; ++k) {
      if (s.wanted[k] != 0) put_more_derivatives(*out.derivatives, g * lanes + k, of_lane(k));
    }
  }
}

/// Single phases of a block, from its state `start` of the batch on. States that the first round
/// has not solved go through a second one.
template <class Road>
[[gnu::always_inline]] inline void finish_single_phases(States& states, const std::size_t start,
                                                        BlockOutputs& outputs, Rest& rest) {
  static_assert(step_rounds == 2 && density_rounds == 2);
  States again{};
  SinglePhase<V> results[block_groups];
  States* now = &states;
  for (States* next = &again; now != nullptr && now->count > 0; now = next, next = nullptr) {
    now->fill_lanes();
    Road::finish(*now, results, rest, next);
    const bool at_once = now->count == block_size && outputs.are_in_a_row();
    write_block(at_once ? outputs.of_state(start) : outputs.buffers(), results,
                groups_of(now->count));
    outputs.hand_over(start, now->index, now->count, status::success, !at_once);
  }
}

template <class Road>
[[gnu::always_inline]] inline void finish_mixtures(States& states, const std::size_t start,
                                                   BlockOutputs& outputs, Rest& rest) {
  states.fill_lanes();
  for (std::int32_t g = 0; g < groups_of(states.count); ++g)
    Road::mix(states, g, rest, outputs.buffers());
  outputs.hand_over(start, states.index, states.count, Road::code_of_mixture(outputs.buffers()),
                    true);
}

template <class Road>
void run_blocks(const Batch& batch) noexcept {
  constexpr bool has_single_phases = requires { &Road::finish; };
  constexpr bool has_mixtures = requires { &Road::mix; };
  BlockOutputs outputs(batch);
  States block{};  // with numbers in all places, since lanes are copied as a whole
  States singles{};
  States mixtures{};
  for (std::int32_t i = 0; i < block_size; ++i) block.index[i] = static_cast<std::uint8_t>(i);
  const std::size_t size = batch.first.size();
  for (std::size_t start = 0; start < size; start += block_size) {
    block.count = static_cast<std::int32_t>(size - start < block_size ? size - start : block_size);
    singles.count = 0;
    mixtures.count = 0;
    Rest rest;
    take(batch.first, start, block.count, block.first);
    take(batch.second, start, block.count, block.second);
    block.fill_lanes();
    States& single_phases = sort_states<Road>(block, singles, mixtures, rest);
    if constexpr (has_single_phases) {
      finish_single_phases<Road>(single_phases, start, outputs, rest);
    }
    if constexpr (has_mixtures) {
      if (mixtures.count > 0) finish_mixtures<Road>(mixtures, start, outputs, rest);
    }
    for (std::int32_t k = 0; k < rest.count; ++k) {
      const std::size_t at = start + rest.index[k];
      Road::single(rest.first[k], rest.second[k], batch.ierr[at], outputs.of_state(at));
    }
  }
}

/// States of saturation: all that lie on the line go in lanes.
template <class Given, SingleSaturation entry>
void run_saturation_blocks(const SaturationBatch& batch) noexcept {
  const SaturationPhases phases = SaturationPhases::of(batch);
  BlockOutputs liq(phases.liq);
  BlockOutputs vap(phases.vap);
  SaturationBlockOutputs outputs(batch, liq, vap);
  const SaturationOutputs buffers = outputs.buffers();
  SaturationState<V> states[block_groups];
  SinglePhase<V> room[block_groups];
  alignas(64) double given[block_size];
  alignas(64) double on_line[block_size];
  std::uint8_t index[block_size];
  const std::size_t size = batch.given.size();
  for (std::size_t start = 0; start < size; start += block_size) {
    const auto count =
        static_cast<std::int32_t>(size - start < block_size ? size - start : block_size);
    take(batch.given, start, count, given);
    std::int32_t found = 0;
    for (std::int32_t i = 0; i < count; ++i) {
      if (!is_within<double>(given[i], Given::least, Given::greatest)) continue;
      index[found] = static_cast<std::uint8_t>(i);
      on_line[found++] = given[i];
    }
    if (found > 0) {
      const std::int32_t groups = groups_of(found);
      for (std::int32_t i = found; i < groups * lanes; ++i) on_line[i] = on_line[0];
      for (std::int32_t g = 0; g < groups; ++g) {
        new (&states[g])
            SaturationState<V>(Given::template state<V>(load<V>(on_line + g * lanes), tie_line_at));
      }
      write_saturation(buffers, states, groups, room, write_block);
      outputs.hand_over(start, index, found);
    }
    for (std::int32_t i = 0, next = 0; i < count; ++i) {
      if (next < found && index[next] == i) {
        ++next;
      } else {
        outputs.run_one(entry, given[i], start + static_cast<std::size_t>(i));
      }
    }
  }
}

constexpr BatchEntries block_entries = {.td = run_blocks<TdRoad>,
                                        .tp = run_blocks<TpRoad>,
                                        .ph = run_blocks<CaloricRoad<PhPair, co2_ph>>,
                                        .ps = run_blocks<CaloricRoad<PsPair, co2_ps>>,
                                        .du = run_blocks<DensityRoad<DuPair, co2_du>>,
                                        .dh = run_blocks<DensityRoad<DhPair, co2_dh>>,
                                        .ds = run_blocks<DensityRoad<DsPair, co2_ds>>,
                                        .dp = run_blocks<DensityRoad<DpPair, co2_dp>>,
                                        .hs = run_blocks<HsRoad>,
                                        .pu = run_blocks<CaloricRoad<PuPair, co2_pu>>,
                                        .ts = run_blocks<TsRoad>,
                                        .tx = run_blocks<QualityRoad<TxPair, co2_tx>>,
                                        .px = run_blocks<QualityRoad<PxPair, co2_px>>,
                                        .sat_t = run_saturation_blocks<GivenTemperature, co2_sat_t>,
                                        .sat_p = run_saturation_blocks<GivenPressure, co2_sat_p>};

}  // namespace
}  // namespace co2_properties

// NOLINTEND(misc-definitions-in-headers)
