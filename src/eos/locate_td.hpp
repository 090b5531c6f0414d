#pragma once
// The element that holds a state given by temperature and density.

#include <cstdint>

namespace co2_properties {

/// Element of a vapour state below the critical temperature.
/// \param temp  temperature, K; meant for 240 to 304.1282
/// \param dens  density, kg/m3; meant for densities up to saturated vapour
/// \return 1..93 for any input. A state on an edge belongs to the element above it. Outside the
/// elements, temperature is clamped to the coldest or hottest band and density to the lowest or
/// highest element there; NaN counts as above every edge.
[[nodiscard, gnu::visibility("default")]] std::int32_t vap_index_from_td(
    const double& temp, const double& dens) noexcept;

/// Element of a compressed-liquid state below the critical temperature, 94..222 for any input; the
/// conventions of `vap_index_from_td`, meant for densities from saturated liquid up.
[[nodiscard, gnu::visibility("default")]] std::int32_t liq_index_from_td(
    const double& temp, const double& dens) noexcept;

/// Element of a state at or above the critical temperature, 223..649 for any input; the conventions
/// of `vap_index_from_td`.
[[nodiscard, gnu::visibility("default")]] std::int32_t sc_index_from_td(
    const double& temp, const double& dens) noexcept;

}  // namespace co2_properties
