#pragma once
// The element that holds a state given by temperature and pressure.

#include <cstdint>

#include "cells/cell_map.hpp"

namespace co2_properties {

inline constexpr std::int32_t curve_terms = 6;

/// Pressure along one density edge of the elements, a polynomial in the temperature itself. It has
/// the lowest degree, 1 to 5, that separates the elements well enough: with each degree Horner's
/// rule in an unshifted variable loses digits, the more the narrower the curve's temperatures. All
/// curves are evaluated as quintics, since how long a loop would run is not predictable; leading
/// zeros do not change the result.
struct IsochoreCurve {
  double temp_start;  ///< K: where the isochore meets the saturation line, a single-precision
                      ///< value; 0 if it does not
  double coef[curve_terms];  ///< kPa K^-k
};

/// An element in the list of one temperature interval, and the curve of its lower density edge.
struct TpRow {
  std::uint16_t element;  ///< 1-based
  std::uint16_t curve;    ///< unused in the lowest row
};

/// The elements of a region by temperature and pressure: in each interval of temperature they are
/// stacked, from low to high density, and the curves between them are in ascending order of
/// pressure. Written by `tablegen tp_curves`.
struct TpMap {
  Axis temp;
  const std::uint16_t* first;  ///< row that interval i starts with; one entry more than intervals
  const TpRow* rows;
  const IsochoreCurve* curves;
};

extern const TpMap vapour_tp_map;
extern const TpMap liquid_tp_map;
extern const TpMap supercritical_tp_map;

[[nodiscard]] inline double evaluate_curve(const IsochoreCurve& curve, const double temp) noexcept {
  const double* c = curve.coef;
  return ((((c[5] * temp + c[4]) * temp + c[3]) * temp + c[2]) * temp + c[1]) * temp + c[0];
}

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
