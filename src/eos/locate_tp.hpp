#pragma once
// The element that holds a state given by temperature and pressure.

#include <cstdint>

#include "cells/cell_map.hpp"
#include "co2_properties/limits.hpp"
#include "eos/element.hpp"

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

/// More than the rounding error of any curve at its temperatures, kPa.
inline constexpr double curve_rounding = 3e-4;

/// An element in the list of one temperature interval, and the curve of its lower density edge.
struct TpRow {
  std::uint16_t element;  ///< 1-based
  std::uint16_t curve;    ///< unused in the lowest row
};

[[nodiscard]] constexpr double evaluate_curve(const IsochoreCurve& curve,
                                              const double temp) noexcept {
  const double* c = curve.coef;
  return ((((c[5] * temp + c[4]) * temp + c[3]) * temp + c[2]) * temp + c[1]) * temp + c[0];
}

/// The elements of a region by temperature and pressure: in each interval of temperature they are
/// stacked, from low to high density, and the curves between them are in ascending order of
/// pressure. Written by `tablegen tp_curves`; the index is made from them.
///
/// Each interval has bins of p - slope (T - temp0) around the closest pair of curves, with the
/// slope of that pair: so sheared, a curve stays within few bins while it crosses the interval.
struct TpMap {
  Axis temp;
  const std::uint16_t* first;  ///< row that interval i starts with; one entry more than intervals
  const TpRow* rows;
  const IsochoreCurve* curves;

  constexpr TpMap(const Axis& temp_axis, const std::uint16_t* first_rows, const TpRow* all_rows,
                  const IsochoreCurve* all_curves) noexcept;

  /// Element of the highest row of the temperature's interval whose lower edge is not above the
  /// state.
  /// \param reaches  whether the state lies on or above a curve
  template <class Reaches>
  [[nodiscard]] std::int32_t find_element(const double at_temp, const double pres,
                                          const Reaches& reaches) const noexcept {
    const std::int32_t i = interval(temp, at_temp);
    const TpRow* const row = rows + first[i];
    const std::int32_t count = first[i + 1] - first[i] - 1;
    const bool indexed = at_temp > temp_lo_ && at_temp < temp_hi_;
    const Strip& strip = strips_[i];
    const std::uint8_t start =
        indexed ? strip.start[strip.bins(strip.sheared(at_temp, pres))] : crowded;
    return row[search_from(start, count,
                           [&](const std::int32_t k) { return reaches(curves[row[k + 1].curve]); })]
        .element;
  }

 private:
  static constexpr std::int32_t strip_limit = 48;
  static constexpr std::int32_t bin_count = 256;
  struct Strip {
    double temp0 = 0.0;
    double slope = 0.0;
    Bins<bin_count, 2> bins;
    std::uint8_t start[bin_count] = {};

    [[nodiscard]] constexpr double sheared(const double at_temp, const double pres) const noexcept {
      return pres - slope * (at_temp - temp0);
    }
  };
  constexpr void index_strip(Strip& strip, const TpRow* row, std::int32_t count, double temp_lo,
                             double temp_hi) const noexcept;

  double temp_lo_;  ///< K; the index serves temperatures between these
  double temp_hi_;
  Strip strips_[strip_limit] = {};
};

constexpr TpMap::TpMap(const Axis& temp_axis, const std::uint16_t* const first_rows,
                       const TpRow* const all_rows, const IsochoreCurve* const all_curves) noexcept
    : temp(temp_axis),
      first(first_rows),
      rows(all_rows),
      curves(all_curves),
      temp_lo_(temp_axis.edges[0] < t_crit ? temp_min : t_crit),
      temp_hi_(temp_axis.edges[0] < t_crit ? t_crit : temp_max) {
  for (std::int32_t i = 0; i <= temp.count; ++i) {
    index_strip(strips_[i], rows + first[i], first[i + 1] - first[i] - 1,
                i == 0 ? temp_lo_ : temp.edges[i - 1], i == temp.count ? temp_hi_ : temp.edges[i]);
  }
}

/// Range of the sheared pressures of a curve within its interval.
struct ShearedRange {
  double lo, hi;
};
template <class Strip>
[[nodiscard]] constexpr ShearedRange sheared_range(const IsochoreCurve& curve, const Strip& strip,
                                                   const double temp_lo,
                                                   const double temp_hi) noexcept {
  constexpr std::int32_t steps = 8;
  double sample[steps + 1] = {};
  double lo = 0.0;
  double hi = 0.0;
  double bend = 0.0;
  for (std::int32_t j = 0; j <= steps; ++j) {
    const double temp = temp_lo + (temp_hi - temp_lo) * j / steps;
    sample[j] = strip.sheared(temp, evaluate_curve(curve, temp));
    if (j == 0 || sample[j] < lo) lo = sample[j];
    if (j == 0 || sample[j] > hi) hi = sample[j];
    if (j < 2) continue;
    const double second = sample[j] - 2.0 * sample[j - 1] + sample[j - 2];
    const double size = second < 0.0 ? -second : second;
    if (size > bend) bend = size;
  }
  // Between samples a curve strays by about an eighth of its second difference.
  const double margin = bend + curve_rounding;
  return {lo - margin, hi + margin};
}

constexpr void TpMap::index_strip(Strip& strip, const TpRow* const row, const std::int32_t count,
                                  const double temp_lo, const double temp_hi) const noexcept {
  const auto curve = [&](const std::int32_t k) -> const IsochoreCurve& {
    return curves[row[k + 1].curve];
  };
  if (count < compared) {
    for (std::uint8_t& start : strip.start) start = crowded;
    return;
  }
  strip.temp0 = 0.5 * (temp_lo + temp_hi);
  std::int32_t closest = 1;  // to the curve below it
  double center = 0.0;
  double narrowest = 0.0;
  for (std::int32_t k = 1; k < count; ++k) {
    const double below = evaluate_curve(curve(k - 1), strip.temp0);
    const double gap = evaluate_curve(curve(k), strip.temp0) - below;
    if (k > 1 && !(gap < narrowest)) continue;
    closest = k;
    narrowest = gap;
    center = below + 0.5 * gap;
  }
  strip.slope =
      (evaluate_curve(curve(closest), temp_hi) - evaluate_curve(curve(closest), temp_lo)) /
      (temp_hi - temp_lo);
  strip.bins = {center, pres_max};

  // The bins between which a curve stays. One that starts on the saturation line within the
  // interval counts nowhere (vapour) or everywhere (liquid) on the other side of its start.
  constexpr std::int32_t curve_limit = 64;
  std::int32_t lowest[curve_limit] = {};
  std::int32_t highest[curve_limit] = {};
  const bool is_vapour = row[0].element < first_liquid;
  for (std::int32_t k = 0; k < count; ++k) {
    const ShearedRange range = sheared_range(curve(k), strip, temp_lo, temp_hi);
    const double start = curve(k).temp_start;  // where liquid counts already, vapour not yet
    lowest[k] = !is_vapour && start > temp_lo ? -1 : strip.bins(range.lo);
    highest[k] = is_vapour && start >= temp_lo ? bin_count : strip.bins(range.hi);
  }
  for (std::int32_t b = 0; b < bin_count; ++b) {
    std::int32_t start = 0;
    while (start < count && highest[start] < b) ++start;
    std::int32_t end = count;
    while (end > start && lowest[end - 1] > b) --end;
    strip.start[b] = bin_start(count, start, end - start);
  }
}

extern const TpMap vapour_tp_map;
extern const TpMap liquid_tp_map;
extern const TpMap supercritical_tp_map;

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
