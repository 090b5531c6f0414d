#include "tablegen/fit/saturation_bounds.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "co2_properties/limits.hpp"
#include "eos/element_locator.hpp"
#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "saturation/sat_density.hpp"
#include "saturation/sat_pressure.hpp"
#include "saturation/saturation_bounds.hpp"
#include "saturation/tie_line.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::tablegen {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// Samples of a bin. On steps as short as these functions are parabolas, and next to none crosses
/// two edges of elements.
constexpr int steps = 256;

/// Vapour thinner than this, kg/m3, far below the cold end of saturation, is none.
constexpr double least_density = 1.0;

struct Span {
  double lo, hi;  ///< both belong to it; none if lo > hi
};

/// Smallest number between `lo` and `hi` whose bin is `bin` or higher.
template <class Bins>
double start_of(const Bins& bins, const std::int32_t bin, double lo, double hi) {
  if (bins.find(lo) >= bin) return lo;
  for (double mid = lo + (hi - lo) / 2.0; lo < mid && mid < hi; mid = lo + (hi - lo) / 2.0) {
    (bins.find(mid) >= bin ? hi : lo) = mid;
  }
  return hi;
}

/// The part of a bin from `lo` on and below `end`.
template <class Bins>
Span span_of(const Bins& bins, const std::int32_t bin, const double lo, const double end) {
  if (bins.find(lo) > bin || bins.find(end) < bin) return {1.0, 0.0};
  const double up = bins.find(end) == bin ? end : start_of(bins, bin + 1, lo, end);
  return {start_of(bins, bin, lo, end), std::nextafter(up, lo)};
}

/// Bounds of a function that is smooth but for small jumps. Between two samples it strays from
/// their chord by an eighth of the second difference, and where it jumps, by the height of the
/// jump, as large as the second difference there: twice the largest one is on the safe side of
/// both. Rounded outwards to single precision, which leaves room for the rounding of the functions.
template <class Function>
Bounds enclose(const Span& span, const Function& f) {
  std::vector<double> value;
  for (int k = 0; k <= steps; ++k) {
    const double x = span.lo + (span.hi - span.lo) * k / steps;
    value.push_back(f(std::min(x, span.hi)));
    if (!std::isfinite(value.back())) return Bounds::unknown();
  }
  double bend = 0.0;
  for (std::size_t k = 2; k < value.size(); ++k) {
    bend = std::max(bend, std::abs(value[k] - 2.0 * value[k - 1] + value[k - 2]));
  }
  const auto [lo, hi] = std::minmax_element(value.begin(), value.end());
  const auto below = static_cast<float>(*lo - 2.0 * bend);
  const auto above = static_cast<float>(*hi + 2.0 * bend);
  constexpr float far = std::numeric_limits<float>::infinity();
  return {std::nextafter(below, -far), std::nextafter(above, far)};
}

/// A property of saturated vapour or liquid as the entries make it. Infinite off the line: at the
/// very top the fits of both ends meet with a jump.
template <class Property>
double saturated(const Region region, const double pres, const Property& property) {
  const double temp = calc_sat_temp(pres);
  const double dens = region == Region::vapour ? calc_sat_vap_dens(temp) : calc_sat_liq_dens(temp);
  if (!(temp < t_crit && dens > least_density)) return infinity;
  const Element& cell = element(element_locator.find(region, temp, dens));
  return property(evaluate(cell, temp, dens), temp);
}

template <class Property>
CaloricBounds bound(const Span& span, const Property& property) {
  const auto in = [&](const Region region) {
    return enclose(span, [&](const double pres) { return saturated(region, pres, property); });
  };
  CaloricBounds bounds = {in(Region::vapour), in(Region::liquid)};
  if (span.lo < pres_sat_min) {  // mixtures of the extrapolated line are left to the entries
    bounds.vap.lo = -infinity;
    bounds.liq.hi = infinity;
  }
  const bool known = bounds.vap.hi < infinity && bounds.liq.lo > -infinity;
  return known ? bounds : CaloricBounds{Bounds::unknown(), Bounds::unknown()};
}

/// The enthalpy on the saturation line at an entropy. Between the ends of the liquid and of the
/// vapour, next to the critical point, that of a straight line.
double enthalpy_at(const double entr) {
  constexpr double highest = 304.1281;
  const auto phase = [](const bool liquid, const double temp) {
    return liquid ? saturated_liquid(temp) : saturated_vapour(temp);
  };
  const auto end = [&](const bool liquid) { return phase(liquid, highest).d; };
  const double low = entropy(end(true));
  const double high = entropy(end(false));
  if (entr > low && entr < high) {
    const double share = (entr - low) / (high - low);
    return std::lerp(enthalpy(end(true), highest), enthalpy(end(false), highest), share);
  }
  const bool liquid = entr <= low;
  double lo = temp_sat_min;
  double hi = highest;
  for (double mid = lo + (hi - lo) / 2.0; lo < mid && mid < hi; mid = lo + (hi - lo) / 2.0) {
    ((entropy(phase(liquid, mid).d) < entr) == liquid ? lo : hi) = mid;
  }
  return enthalpy(phase(liquid, lo).d, lo);
}

}  // namespace

Bounds Bounds::unknown() { return {-infinity, infinity}; }

Bounds Bounds::above() { return {infinity, infinity}; }

Bounds Bounds::below() { return {-infinity, -infinity}; }

std::vector<TemperatureBounds> bound_by_temperature() {
  std::vector<TemperatureBounds> all;
  for (std::int32_t bin = 0; bin < temp_bins.count; ++bin) {
    const Span span = span_of(temp_bins, bin, temp_min, t_crit);
    constexpr CaloricBounds unknown = {{-infinity, infinity}, {-infinity, infinity}};
    all.push_back({Bounds::unknown(), Bounds::unknown(), Bounds::unknown(), unknown});
    if (bin > temp_bins.find(t_crit)) {
      all.back() = {Bounds::above(),
                    Bounds::unknown(),
                    Bounds::above(),
                    {Bounds::below(), Bounds::unknown()}};
    }
    if (span.lo > span.hi) continue;
    all.back() = {enclose(span, calc_sat_vap_dens),
                  enclose(span, calc_sat_liq_dens),
                  enclose(span, calc_sat_pres),
                  {enclose(span, [](const double t) { return entropy(saturated_vapour(t).d); }),
                   enclose(span, [](const double t) { return entropy(saturated_liquid(t).d); })}};
  }
  return all;
}

std::vector<PressureBounds> bound_by_pressure() {
  constexpr CaloricBounds unknown = {{-infinity, infinity}, {-infinity, infinity}};
  std::vector<PressureBounds> all;
  for (std::int32_t bin = 0; bin < pres_bins.count; ++bin) {
    const Span span = span_of(pres_bins, bin, pres_min, p_crit);
    all.push_back({unknown, unknown, unknown});
    if (span.lo > span.hi) continue;
    all.back() = {
        bound(span, [](const auto& d, const double temp) { return enthalpy(d, temp); }),
        bound(span, [](const auto& d, const double /*temp*/) { return entropy(d); }),
        bound(span, [](const auto& d, const double temp) { return internal_energy(d, temp); })};
  }
  return all;
}

std::vector<DomeBounds> bound_by_entropy() {
  constexpr double room = 1e-4;  // kJ/kg, for what the line leaves open at the critical point
  const double cold_liq = entropy(saturated_liquid(temp_sat_min).d);
  const double cold_vap = entropy(saturated_vapour(temp_sat_min).d);
  std::vector<DomeBounds> all(entr_bins.count, {0.0F, Bounds::below()});
  in_parallel(all.size(), [&](const std::size_t k) {
    const auto bin = static_cast<std::int32_t>(k);
    const Span span = span_of(entr_bins, bin, cold_liq, cold_vap);
    if (span.lo > span.hi) return;
    const auto slope =
        static_cast<float>((enthalpy_at(span.hi) - enthalpy_at(span.lo)) / (span.hi - span.lo));
    const Bounds bounds =
        enclose(span, [&](const double entr) { return enthalpy_at(entr) - slope * entr; });
    const bool at_end = bin == entr_bins.find(cold_liq) || bin == entr_bins.find(cold_vap);
    all[k] = {slope,
              {at_end ? -infinity : static_cast<float>(bounds.lo - room),
               static_cast<float>(bounds.hi + room)}};
  });
  return all;
}

}  // namespace co2_properties::tablegen
