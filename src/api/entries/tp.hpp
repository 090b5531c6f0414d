#pragma once
// The common road of `co2_tp`, for one state or for several in lanes: states that are surely on one
// side of the saturation line, and whose density comes without a loop.

#include "api/entries/state_writer.hpp"
#include "co2_properties/limits.hpp"
#include "eos/helmholtz.hpp"
#include "eos/pressure_locator.hpp"
#include "saturation/phase.hpp"
#include "solvers/relocate.hpp"
#include "solvers/solve_density.hpp"

namespace co2_properties {

/// Which states take the common road.
/// \param temp, pres  K and kPa; any values
/// \param to          receives one element per lane, of use for those
template <class V>
[[nodiscard, gnu::always_inline]] inline Mask<V> place_tp(const V& temp, const V& pres,
                                                          std::int32_t* const to) noexcept {
  const Mask<V> within =
      is_within<V>(pres, pres_min, pres_max) & is_within<V>(temp, temp_min, temp_max);
  // The locator serves the range.
  const V in_temp = select<V>(within, temp, broadcast<V>(temp_max));
  const V in_pres = select<V>(within, pres, broadcast<V>(pres_min));
  const Ints<V> bin = temp_bins.find(in_temp);
  const SurePhase<V> phase = sure_phase_from_tp(bin, in_temp, in_pres);
  pressure_locator.find<V>(phase.region, bin, in_temp, in_pres, to);
  return within & phase.single;
}

/// Density, kg/m3, from two steps; where they lead out of the element its middle, so that it can be
/// evaluated.
template <class V>
[[nodiscard, gnu::always_inline]] inline V density_tp(const Cells<V>& cells, const Isotherm<V>& at,
                                                      const V& pres) noexcept {
  const Rectangles<V> in = Rectangles<V>::of(cells);
  const V dens = density_in_two_steps(PressureCurve<V>::of(at), in.dens_width, pres);
  return select<V>(in.keeps_density(dens), dens, in.middle_dens());
}

/// Evaluates.
/// \return `wanted` are those that meet the pressure
template <class V>
[[nodiscard, gnu::always_inline]] inline SinglePhase<V> evaluate_tp(const Isotherm<V>& at,
                                                                    const V& temp, const V& dens,
                                                                    const V& log_dens,
                                                                    const V& pres) noexcept {
  const Derivatives<V> d = evaluate(at, dens, log_dens);
  return SinglePhase<V>::of(d, temp, dens, pres, meets_pressure(d, dens, pres));
}

}  // namespace co2_properties
