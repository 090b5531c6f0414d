#pragma once
// The element that holds a state given by temperature and pressure.

#include <cstdint>

namespace co2_properties {

/// Element of a vapour state below the critical temperature.
/// \param temp  temperature, K; meant for 240 to 304.1282
/// \param pres  pressure, kPa; meant for pressures below saturation, at which nobody looks here
/// \return 1..93 for any input. A state on a temperature edge or on a curve belongs to the element
/// above it. A curve counts only above its start temperature: up to there vapour is thinner.
/// Accuracy: an element that does not hold the state ends within 1e-4 kg/m3 of it, and within a
/// kelvin of the critical point at the distance that the head of tables/tp_curves.cpp gives.
[[nodiscard, gnu::visibility("default")]] std::int32_t vap_index_from_tp(
    const double& temp, const double& pres) noexcept;

/// Element of a compressed-liquid state below the critical temperature, 94..222 for any input; the
/// conventions of `vap_index_from_tp`, but a curve counts from its start temperature on: below it
/// liquid is denser.
[[nodiscard, gnu::visibility("default")]] std::int32_t liq_index_from_tp(
    const double& temp, const double& pres) noexcept;

/// Element of a state at or above the critical temperature, 223..649 for any input; the conventions
/// of `vap_index_from_tp`.
[[nodiscard, gnu::visibility("default")]] std::int32_t sc_index_from_tp(
    const double& temp, const double& pres) noexcept;

}  // namespace co2_properties
