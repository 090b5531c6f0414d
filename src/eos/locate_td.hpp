#pragma once
// The element that holds a state given by temperature and density.

#include <cstdint>

#include "cells/cell_map.hpp"

namespace co2_properties {

// x is temperature, K, y density, kg/m3; a cell value is a 1-based element index. Intervals that no
// element of the region covers hold the element that the clamping rules below lead to. The density
// of the critical isochore is compared one unit in the last place above the edge stored in the
// elements, so that a state exactly on the stored edge belongs to the element below it.
// Written by `tablegen elements`.
extern const CellMap vapour_map;
extern const CellMap liquid_map;
extern const CellMap supercritical_map;

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
