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

}  // namespace

Bounds Bounds::unknown() { return {-infinity, infinity}; }

Bounds Bounds::above() { return {infinity, infinity}; }

std::vector<TemperatureBounds> bound_by_temperature() {
  std::vector<TemperatureBounds> all;
  for (std::int32_t bin = 0; bin < temp_bins.count; ++bin) {
    const Span span = span_of(temp_bins, bin, temp_min, t_crit);
    all.push_back({Bounds::unknown(), Bounds::unknown(), Bounds::unknown()});
    if (bin > temp_bins.find(t_crit))
      all.back() = {Bounds::above(), Bounds::unknown(), Bounds::above()};
    if (span.lo > span.hi) continue;
    all.back() = {enclose(span, calc_sat_vap_dens), enclose(span, calc_sat_liq_dens),
                  enclose(span, calc_sat_pres)};
  }
  return all;
}

std::vector<PressureBounds> bound_by_pressure() {
  constexpr CaloricBounds unknown = {{-infinity, infinity}, {-infinity, infinity}};
  std::vector<PressureBounds> all;
  for (std::int32_t bin = 0; bin < pres_bins.count; ++bin) {
    const Span span = span_of(pres_bins, bin, pres_min, p_crit);
    all.push_back({unknown, unknown});
    if (span.lo > span.hi) continue;
    all.back() = {bound(span, [](const auto& d, const double temp) { return enthalpy(d, temp); }),
                  bound(span, [](const auto& d, const double /*temp*/) { return entropy(d); })};
  }
  return all;
}

}  // namespace co2_properties::tablegen
