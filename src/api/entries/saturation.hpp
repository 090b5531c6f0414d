#pragma once
// States of saturation from temperature or pressure, and mixtures from one of them and the quality;
// for one state or for several in lanes. None of them needs a loop.
//
// The templates take what is given as a type. It has
//   least, greatest    the ends of the saturation line
//   temperature(value) the temperature of saturation, K

#include "api/entries/state_writer.hpp"
#include "co2_properties/limits.hpp"
#include "co2_properties/saturation_set.hpp"
#include "co2_properties/status.hpp"
#include "saturation/tie_line.hpp"

namespace co2_properties {

struct GivenTemperature {
  static constexpr double least = temp_sat_min;
  static constexpr double greatest = t_crit;

  template <class V>
  [[nodiscard, gnu::always_inline]] static inline V temperature(const V& temp) noexcept {
    return temp;
  }
};

struct GivenPressure {
  static constexpr double least = pres_sat_min;
  static constexpr double greatest = p_crit;

  template <class V>
  [[nodiscard, gnu::always_inline]] static inline V temperature(const V& pres) noexcept {
    return vapour_pressure_temperature<V>(pres);
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

/// States of saturation, one or one in each lane.
template <class V>
struct SaturationState {
  V temp;
  TieLine<V> line;

  template <class Given>
  [[nodiscard, gnu::always_inline]] static inline SaturationState of(const V& given) noexcept {
    const V temp = Given::template temperature<V>(given);
    return {temp, TieLine<V>::at(temp)};
  }
};

/// Writes both phases, and what belongs to neither.
/// \param room                 one state for each group
/// \param write_single_phases  writes what saturated phases have in common with other single
/// phases;
///                             takes outputs, states and the number of groups
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

/// The code of a mixture, by what is asked for.
template <class Pair>
[[nodiscard, gnu::always_inline]] inline std::int32_t code_of_quality_mixture(
    const OutputSets out) noexcept {
  return wants_single_phase(out) || wants_transport(out.state) ? Pair::codes.two_phase
                                                               : status::success;
}

}  // namespace co2_properties
