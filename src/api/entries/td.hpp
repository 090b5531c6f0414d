#pragma once
// The common road of `co2_td`, for one state or for several in lanes: states that are well within
// the range and surely of one phase, or surely of two.

#include "api/entries/state_writer.hpp"
#include "co2_properties/limits.hpp"
#include "co2_properties/status.hpp"
#include "eos/helmholtz.hpp"
#include "saturation/phase.hpp"
#include "solvers/relocate.hpp"

namespace co2_properties {

/// Which states take the common road, as one phase or as a mixture.
template <class V>
struct TdPlace {
  Mask<V> single;
  Mask<V> mixture;
};

/// \param temp, dens  K and kg/m3; any values
/// \param to          receives one element per lane; of use for single phases
template <class V>
[[nodiscard, gnu::always_inline]] inline TdPlace<V> place_td(const V& temp, const V& dens,
                                                             std::int32_t* const to) noexcept {
  const Ints<V> bin = temp_bins.find(temp);
  const SurePhase<V> phase = sure_phase_from_td(bin, temp, dens);
  element_locator.find<V>(phase.region, bin, temp, dens, to);
  constexpr double densest = 1e4;  // for the sake of infinities
  const Mask<V> within =
      is_within<V>(dens, dens_min, densest) & is_within<V>(temp, temp_min, temp_max);
  const Mask<V> single = within & phase.single;
  const Mask<V> mixture = within & phase.mixture;
  return {single, mixture};
}

/// Evaluates single phases.
/// \return `wanted` are those that belong to the range
template <class V>
[[nodiscard, gnu::always_inline]] inline SinglePhase<V> evaluate_td(const Cells<V>& cells,
                                                                    const V& temp, const V& dens,
                                                                    const V& log_dens) noexcept {
  const Isotherm<V> at = isotherm<V, Order::second>(cells, temp);
  const Derivatives<V> d = evaluate(at, dens, log_dens);
  const V pres = pressure(d, dens);
  const V width = Rectangles<V>::of(cells).dens_width;
  const Mask<V> within =
      is_within<V>(pres, pres_min, pres_max) & opposite(is_beyond<V>(dens - at.dens0, width));
  return SinglePhase<V>::of(d, temp, dens, pres, within);
}

}  // namespace co2_properties
