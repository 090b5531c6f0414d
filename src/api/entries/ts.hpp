#pragma once
// The common road of `co2_ts`, for one state or for several in lanes: states that are surely of one
// phase and whose density comes from one step, and mixtures.

#include "api/entries/state_writer.hpp"
#include "co2_properties/limits.hpp"
#include "co2_properties/status.hpp"
#include "eos/helmholtz.hpp"
#include "saturation/phase.hpp"
#include "solvers/relocate.hpp"
#include "solvers/solve_entropy.hpp"
#include "solvers/start_values.hpp"

namespace co2_properties {

/// Which states take the common road, as one phase or as a mixture.
template <class V>
struct TsPlace {
  Mask<V> single;
  Mask<V> mixture;
  V dens;  ///< start values of single phases, kg/m3
};

/// \param temp, entr  K and kJ/(kg K); any values
/// \param to          receives one element per lane, that of the start value
template <class V>
[[nodiscard, gnu::always_inline]] inline TsPlace<V> place_ts(const V& temp, const V& entr,
                                                             std::int32_t* const to) noexcept {
  // Entropies beyond all states of the range.
  constexpr double least = 0.1;
  constexpr double greatest = 6.0;
  const Mask<V> within =
      is_within<V>(temp, temp_min, temp_max) & is_within<V>(entr, least, greatest);
  const V in_temp = select<V>(within, temp, broadcast<V>(temp_max));
  const V in_entr = select<V>(within, entr, broadcast<V>(greatest));
  const Ints<V> bin = temp_bins.find(in_temp);
  const SurePhase<V> phase = sure_phase_from_ts(bin, in_temp, in_entr);
  const V dens = start_from_ts<V>(in_temp, in_entr);
  element_locator.find<V>(phase.region, bin, in_temp, dens, to);
  const Mask<V> single = within & phase.single;
  const Mask<V> mixture = within & phase.mixture;
  return {single, mixture, dens};
}

/// Density, kg/m3, from one step; where it leads out of the element its middle, so that it can be
/// evaluated, and that meets no entropy.
template <class V>
[[nodiscard, gnu::always_inline]] inline V density_ts(const Cells<V>& cells, const Isotherm<V>& at,
                                                      const V& dens, const V& log_dens,
                                                      const V& entr) noexcept {
  const Rectangles<V> in = Rectangles<V>::of(cells);
  const V better = EntropyCurve<V>::of(at).improved(dens, log_dens, entr);
  return select<V>(in.keeps_density(better), better, in.middle_dens());
}

/// Evaluates.
/// \return `wanted` are those that meet the entropy and belong to the range
template <class V>
[[nodiscard, gnu::always_inline]] inline SinglePhase<V> evaluate_ts(const Isotherm<V>& at,
                                                                    const V& temp, const V& dens,
                                                                    const V& log_dens,
                                                                    const V& entr) noexcept {
  const Derivatives<V> d = evaluate(at, dens, log_dens);
  const V pres = pressure(d, dens);
  return SinglePhase<V>::of(d, temp, dens, pres,
                            meets_entropy(d, entr) & is_within<V>(pres, pres_min, pres_max));
}

}  // namespace co2_properties
