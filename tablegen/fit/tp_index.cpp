#include "tablegen/fit/tp_index.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "co2_properties/limits.hpp"

namespace co2_properties::tablegen {
namespace {

/// The stack of elements in one interval and the curves between them, from low to high pressure.
struct Interval {
  bool is_liquid, is_vapour;
  double temp_lo, temp_hi;
  std::vector<std::uint16_t> elements;
  std::vector<IsochoreCurve> curves;
};

Interval interval_of(const TpRegion& table, const std::size_t i) {
  const bool above = table.region == Region::supercritical;
  Interval interval{
      table.region == Region::liquid,
      table.region == Region::vapour,
      i == 0 ? (above ? t_crit : temp_min) : table.temp_edges[i - 1],
      i == table.temp_edges.size() ? (above ? temp_max : t_crit) : table.temp_edges[i],
      {},
      {}};
  for (const TpRow& row : table.columns[i]) {
    if (!interval.elements.empty()) interval.curves.push_back(table.curves[row.curve].stored);
    interval.elements.push_back(row.element);
  }
  return interval;
}

Shear shear_of(const Interval& at) {
  Shear shear{0.5 * (at.temp_lo + at.temp_hi), 0.0, 0.0, 0.0};
  if (at.curves.empty()) return shear;
  std::vector<double> pres;
  for (const IsochoreCurve& curve : at.curves) pres.push_back(evaluate_curve(curve, shear.temp0));
  std::size_t closest = 0;  // to the curve below it
  shear.center = pres.front();
  for (std::size_t k = 1; k < pres.size(); ++k) {
    const double gap = pres[k] - pres[k - 1];
    if (k > 1 && !(gap < pres[closest] - pres[closest - 1])) continue;
    closest = k;
    shear.center = pres[k - 1] + 0.5 * gap;
  }
  const auto slope_of = [&](const IsochoreCurve& curve) {
    return (evaluate_curve(curve, at.temp_hi) - evaluate_curve(curve, at.temp_lo)) /
           (at.temp_hi - at.temp_lo);
  };
  shear.slope = slope_of(at.curves[closest]);
  // Each curve weighs as its bins do, which are as wide as their distance from the centre is large.
  double sum = 0.0;
  int count = 0;
  for (std::size_t k = 0; k < pres.size(); ++k) {
    if (k == closest || k + 1 == closest) continue;
    sum += (slope_of(at.curves[k]) - shear.slope) / (pres[k] - shear.center);
    ++count;
  }
  if (count > 0) shear.fan = sum / count;
  return shear;
}

struct Range {
  double lo, hi;
};

/// Range of a sheared curve within its interval.
Range range_of(const IsochoreCurve& curve, const Shear& shear, const Interval& at) {
  constexpr int steps = 32;
  std::vector<double> sample;
  double bend = 0.0;
  for (int j = 0; j <= steps; ++j) {
    const double temp = at.temp_lo + (at.temp_hi - at.temp_lo) * j / steps;
    sample.push_back(shear(temp, evaluate_curve(curve, temp)));
    if (j < 2) continue;
    const auto end = sample.end();
    bend = std::max(bend, std::abs(end[-1] - 2.0 * end[-2] + end[-3]));
  }
  const auto [lo, hi] = std::minmax_element(sample.begin(), sample.end());
  // Between samples a curve strays by about an eighth of its second difference.
  const double margin = bend + curve_rounding;
  return {*lo - margin, *hi + margin};
}

TpIndex index_interval(const Interval& at) {
  TpIndex index{shear_of(at), {}};
  // The bins between which a curve stays. One that starts on the saturation line within the
  // interval counts nowhere (vapour) or everywhere (liquid) on the other side of its start.
  std::vector<std::int64_t> lowest;
  std::vector<std::int64_t> highest;
  for (const IsochoreCurve& curve : at.curves) {
    const Range range = range_of(curve, index.shear, at);
    const bool starts_above = at.is_liquid && curve.temp_start > at.temp_lo;
    const bool starts_within = at.is_vapour && curve.temp_start >= at.temp_lo;
    lowest.push_back(starts_above ? -1 : sheared_bins.find(range.lo));
    highest.push_back(starts_within ? sheared_bins.count : sheared_bins.find(range.hi));
  }
  for (std::int32_t bin = 0; bin < sheared_bins.count; ++bin) {
    std::size_t start = 0;
    while (start < highest.size() && highest[start] < bin) ++start;
    std::size_t end = lowest.size();
    while (end > start && lowest[end - 1] > bin) --end;
    if (end == start) {
      index.entries.push_back(at.elements[start]);
    } else if (end - start > 2 || at.curves.size() < 2) {
      index.entries.push_back(PressureEntry::crowded);
    } else {
      const std::size_t first = std::min(start, at.curves.size() - 2);
      index.entries.push_back(static_cast<std::uint16_t>(PressureEntry::mixed + first));
    }
  }
  return index;
}

}  // namespace

std::vector<TpIndex> index_tp_region(const TpRegion& table) {
  std::vector<TpIndex> indices;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    indices.push_back(index_interval(interval_of(table, i)));
  }
  return indices;
}

}  // namespace co2_properties::tablegen
