#pragma once
// States of saturation from temperature or pressure, and mixtures from one of them and the quality;
// for one state or for several in lanes.
//
// The templates take what is given as a type. It has
//   least, greatest           the ends of the saturation line
//   state(value, tie_line_at) the state of saturation; takes what gives both phases at a
//   temperature

#include "api/entries/state_writer.hpp"
#include "co2_properties/limits.hpp"
#include "co2_properties/saturation_set.hpp"
#include "co2_properties/status.hpp"
#include "saturation/tie_line.hpp"
#include "solvers/solve_tie_line.hpp"

namespace co2_properties {

/// States of saturation, one or one in each lane.
template <class V>
struct SaturationState {
  V temp;
  TieLine<V> line;
};

struct GivenTemperature {
  static constexpr double least = temp_sat_min;
  static constexpr double greatest = t_crit;

  template <class V, class TieLineAt>
  [[nodiscard, gnu::always_inline]] static inline SaturationState<V> state(
      const V& temp, const TieLineAt& tie_line_at) noexcept {
    return {temp, tie_line_at(temp)};
  }
};

struct GivenPressure {
  static constexpr double least = pres_sat_min;
  static constexpr double greatest = p_crit;

  /// The vapour has the pressure to 1e-13, next to the critical point to 1e-11. Above its pressure
  /// at the critical temperature, 7377.2984 kPa, the state is that at this temperature.
  template <class V, class TieLineAt>
  [[nodiscard, gnu::always_inline]] static inline SaturationState<V> state(
      const V& pres, const TieLineAt& tie_line_at) noexcept {
    constexpr std::int32_t most_steps = 2;
    const V start = vapour_pressure_start<V>(pres);
    SaturationState<V> s = {start, tie_line_at(start)};
    for (std::int32_t k = 0; k < most_steps; ++k) {
      const V missing = pres - s.line.pres();
      const Mask<V> met = absolute(missing) <= 1e-13 * pres;
      if (all(met)) break;
      const V next = s.temp + missing / s.line.slope();
      // At the critical temperature itself the density of the vapour jumps.
      const double hottest = k + 1 < most_steps ? t_crit - 1e-9 : t_crit;
      s.temp = select<V>(met, s.temp, select<V>(next < hottest, next, broadcast<V>(hottest)));
      s.line = tie_line_at(s.temp);
    }
    return s;
  }
};

/// The codes that an entry reports.
struct SaturationCodes {
  std::int32_t below_min;
  std::int32_t above_max;
  std::int32_t not_a_number;
};

/// The code of a value, 0 on the saturation line.
template <class Given>
[[nodiscard, gnu::always_inline]] inline std::int32_t code_on_line(const double value,
                                                                   const SaturationCodes& codes) {
  if (value < Given::least) return codes.below_min;
  if (value > Given::greatest) return codes.above_max;
  return value == value ? status::success : codes.not_a_number;
}

/// Writes both phases, and what belongs to neither.
/// \param room                 one state for each group
/// \param write_single_phases  writes what saturated phases share with other single phases; takes
///                             outputs, states and the number of groups
template <class V, class Writer>
[[gnu::always_inline]] inline void write_saturation(const SaturationOutputs& out,
                                                    const SaturationState<V>* const states,
                                                    const std::int32_t groups,
                                                    SinglePhase<V>* const room,
                                                    const Writer& write_single_phases) noexcept {
  const auto write_phase = [&](const OutputSets sets, SaturatedPhase<V> TieLine<V>::*const phase,
                               const double qual) CO2_INLINE {
    for (std::int32_t g = 0; g < groups; ++g) {
      const SaturatedPhase<V>& s = states[g].line.*phase;
      new (&room[g]) SinglePhase<V>(
          SinglePhase<V>::of(s.d, states[g].temp, s.dens, s.dens, broadcast<V>(0.0) == 0.0));
    }
    OutputSet most = sets.state;
    most.pres = nullptr;
    most.qual = nullptr;
    write_single_phases(OutputSets(most, sets.derivatives), room, groups);
    const OutputWriter writer(sets);
    writer.put<V>(&OutputSet::pres, groups,
                  [&](const std::int32_t g) CO2_INLINE { return states[g].line.pres(); });
    writer.put<V>(&OutputSet::qual, groups,
                  [&](std::int32_t) CO2_INLINE { return broadcast<V>(qual); });
  };
  write_phase(out.liq, &TieLine<V>::liq, 0.0);
  write_phase(out.vap, &TieLine<V>::vap, 1.0);
  for (std::int32_t g = 0; g < groups; ++g) {
    const std::int32_t at = g * lane_count<V>;
    const TieLine<V>& line = states[g].line;
    if (out.latent_heat != nullptr) {
      store<V>(line.latent_heat(states[g].temp), out.latent_heat + at);
    }
    if (out.dpdt_sat != nullptr) store<V>(line.slope(), out.dpdt_sat + at);
  }
}

// ---- Mixtures ----------------------------------------------------------------------------------

/// The codes of a mixture that is given by its quality.
struct QualityCodes {
  SaturationCodes line;
  std::int32_t quality_outside;
  std::int32_t two_phase;
};

/// Temperature and quality.
struct TxPair {
  using Given = GivenTemperature;
  static constexpr QualityCodes codes = {
      {status::tx_temp_below_min, status::tx_temp_above_max, status::tx_not_a_number},
      status::tx_quality_outside,
      status::tx_two_phase};
};

/// Pressure and quality.
struct PxPair {
  using Given = GivenPressure;
  static constexpr QualityCodes codes = {
      {status::px_pres_below_min, status::px_pres_above_max, status::px_not_a_number},
      status::px_quality_outside,
      status::px_two_phase};
};

template <class Pair, class V>
[[nodiscard, gnu::always_inline]] inline Mask<V> is_mixture(const V& given,
                                                            const V& qual) noexcept {
  return is_within<V>(given, Pair::Given::least, Pair::Given::greatest) &
         is_within<V>(qual, 0.0, 1.0);
}

/// Writes mixtures.
template <class Pair, class V>
[[gnu::always_inline]] inline void write_mixture_of_quality(const OutputWriter& out, const V& temp,
                                                            const V& qual,
                                                            const TieLine<V>& line) noexcept {
  write_mixture<MixtureTransport::none>(out,
                                        mixture_from_quality<V>(temp, qual, line.liq, line.vap));
}

}  // namespace co2_properties
