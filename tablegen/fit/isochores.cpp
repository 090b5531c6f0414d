#include "tablegen/fit/isochores.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "eos/helmholtz.hpp"
#include "eos/locate_td.hpp"
#include "saturation/phase.hpp"
#include "saturation/tie_line.hpp"
#include "solvers/relocate.hpp"

namespace co2_properties::tablegen {
namespace {

/// The regular form of a property in its element, and how it rises with temperature.
struct Value {
  double x, slope;
};

template <class Property>
Value single_phase(const double temp, const double dens) {
  const Element& cell = element(relocate(temp, dens));
  const Evaluation<double> e = {evaluate(cell, temp, dens), {}};
  const auto f = Property::expand(e, temp, dens);
  const double scale = std::is_same_v<Property, Pressure> ? 1.0 / dens : 1.0;
  return {OnIsochore<Property>::template reduced<double>(f.value, dens, std::log(dens)),
          f.t * scale};
}

/// Temperature from which on an isochore has one phase, K.
double saturation_temperature_of(const double dens) {
  double two = temp_sat_min;
  double one = t_crit;
  if (phase_from_td(two, dens) != Phase::two_phase) return two;
  for (double mid = two + (one - two) / 2.0; two < mid && mid < one; mid = two + (one - two) / 2.0)
    (phase_from_td(mid, dens) == Phase::two_phase ? two : one) = mid;
  return one;
}

/// Temperature up to which an isochore is of use, K: where its pressure has left the range.
double hot_end_of(const double dens) {
  double in = t_crit;
  double out = temp_max;
  const auto is_in = [&](const double temp) {
    const Element& cell = element(relocate(temp, dens));
    return !is_beyond(dens - cell.dens0, cell.dens_width) &&
           pressure(evaluate(cell, temp, dens), dens) < 1.1 * pres_max;
  };
  if (is_in(out)) return out;
  if (!is_in(in)) {
    out = in;
    in = temp_min;
  }
  while (out - in > 1e-6) {
    const double mid = in + (out - in) / 2.0;
    (is_in(mid) ? in : out) = mid;
  }
  return in;
}

/// An isochore of one phase, extrapolated in a straight line beyond its ends.
template <class Property>
class Isochore {
 public:
  explicit Isochore(const double dens)
      : dens_(dens), cold_(saturation_temperature_of(dens)), hot_(hot_end_of(dens)) {
    hot_ = std::max(hot_, cold_ + 1e-3);
  }
  [[nodiscard]] Value at(const double temp) const {
    const double inside = std::clamp(temp, cold_, hot_);
    const Value v = single_phase<Property>(inside, dens_);
    return {v.x + (temp - inside) * v.slope, v.slope};
  }
  [[nodiscard]] double temperature(const double x) const {
    double low = -1e4;
    double high = 1e5;
    for (int k = 0; k < 100; ++k) {
      const double mid = low + (high - low) / 2.0;
      (at(mid).x < x ? low : high) = mid;
    }
    return low;
  }
  [[nodiscard]] bool holds(const double temp) const { return temp >= cold_ && temp <= hot_; }

 private:
  double dens_, cold_, hot_;
};

double node_density(const int j) {
  return j == 0 ? dens_min : j * isochore_node_distance;  // the limit is reached well above
}

/// How far the regular form lies above that at the critical temperature, at a place of its axis.
template <class Property>
double heat_at(const double place) {
  const double distance = (place - OnIsochore<Property>::middle) / OnIsochore<Property>::places;
  return distance * std::abs(distance);
}

/// Room for what the saturation line does between samples and for jumps between elements, which
/// reach 1e-4 kJ/kg.
template <class Property>
constexpr double margin = std::is_same_v<Property, Entropy> ? 2e-6 : 1e-3;

/// Bounds of the regular form on the saturation line.
template <class Property>
void bound_saturation(const double lo, const double hi, IsochoreBin& bin) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  constexpr int steps = 64;
  bin.mixture_below = -infinity;
  bin.single_above = -infinity;
  double least = infinity;
  double greatest = -infinity;
  bool whole = true;
  for (int k = 0; k <= steps; ++k) {
    const double dens = lo + (hi - lo) * k / steps;
    const double temp = saturation_temperature_of(dens);
    if (temp == temp_sat_min) {
      whole = false;
      continue;
    }
    const double x = single_phase<Property>(temp, dens).x;
    least = std::min(least, x);
    greatest = std::max(greatest, x);
  }
  if (greatest < least) return;
  const double room = margin<Property> + 0.02 * (greatest - least);
  if (whole) bin.mixture_below = std::nextafter(static_cast<float>(least - room), -infinity);
  bin.single_above = std::nextafter(static_cast<float>(greatest + room), infinity);
}

}  // namespace

template <class Property>
IsochoreFit fit_isochores() {
  IsochoreFit fit{};
  const auto at_crit = [](const double dens) { return Isochore<Property>(dens).at(t_crit).x; };
  for (int b = 0; b < isochore_bin_count; ++b) {
    // A bin is what rounds to its number.
    const double lo = std::max(isochore_bins.low + (b - 0.5) / isochore_bins.per_unit, dens_min);
    const double hi = isochore_bins.low + (b + 0.5) / isochore_bins.per_unit;
    const double slope = (at_crit(hi) - at_crit(lo)) / (hi - lo);
    fit.bins.push_back(
        {static_cast<float>(at_crit(lo) - slope * lo), static_cast<float>(slope), 0.0F, 0.0F});
    bound_saturation<Property>(lo, hi, fit.bins.back());
  }
  const auto gain = [&](const Isochore<Property>& isochore, const double place) {
    const double y = heat_at<Property>(place);
    const Value middle = isochore.at(t_crit);
    return y == 0.0 ? 1.0 / middle.slope : (isochore.temperature(middle.x + y) - t_crit) / y;
  };
  for (int j = 0; j < isochore_dens_nodes; ++j) {
    const Isochore<Property> isochore(node_density(j));
    fit.gain.emplace_back();
    for (int k = 0; k < isochore_heat_nodes; ++k)
      fit.gain.back().push_back(static_cast<float>(gain(isochore, k)));
  }
  for (int j = 0; j + 1 < isochore_dens_nodes; ++j) {
    const Isochore<Property> isochore((j + 0.5) * isochore_node_distance);
    for (int k = 0; k + 1 < isochore_heat_nodes; ++k) {
      const double expected = gain(isochore, k + 0.5);
      if (!isochore.holds(t_crit + expected * heat_at<Property>(k + 0.5))) continue;
      const auto& low = fit.gain[static_cast<std::size_t>(j)];
      const auto& high = fit.gain[static_cast<std::size_t>(j) + 1];
      const auto at = static_cast<std::size_t>(k);
      const double mean = 0.25 * (double{low[at]} + low[at + 1] + high[at] + high[at + 1]);
      fit.worst_start = std::max(fit.worst_start, std::abs(mean / expected - 1.0));
    }
  }
  return fit;
}

template IsochoreFit fit_isochores<InternalEnergy>();
template IsochoreFit fit_isochores<Enthalpy>();
template IsochoreFit fit_isochores<Entropy>();
template IsochoreFit fit_isochores<Pressure>();

std::vector<SaturatedNodeValues> saturated_node_values() {
  std::vector<SaturatedNodeValues> nodes;
  for (int k = 0; k < saturated_node_count; ++k) {
    const double temp = node_temperature<double>(k);
    const SaturatedPhase<double> liq = saturated_liquid(temp);
    const SaturatedPhase<double> vap = saturated_vapour(temp);
    nodes.push_back({{1.0 / liq.dens, 1.0 / vap.dens, InternalEnergy::value(liq.d, temp),
                      InternalEnergy::value(vap.d, temp), enthalpy(liq.d, temp),
                      enthalpy(vap.d, temp), entropy(liq.d), entropy(vap.d)},
                     pressure(vap.d, vap.dens)});
  }
  return nodes;
}

}  // namespace co2_properties::tablegen
