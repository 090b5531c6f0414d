#include "tablegen/fit/tp_curves.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <vector>

#include "co2_properties/limits.hpp"
#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "reference/elementary.hpp"
#include "saturation/sat_density.hpp"
#include "tablegen/fit/least_squares.hpp"
#include "tablegen/fit/reach.hpp"
#include "tablegen/format.hpp"

namespace co2_properties::tablegen {
namespace {

/// Distance between curve and edge that a fit may leave, kg/m3: the solver keeps an element up to
/// 0.01 kg/m3 outside of it.
constexpr double dens_tolerance = 1e-4;
/// Relative pressure difference below which the solver takes two states for one: where the isotherm
/// is so flat that this outweighs `dens_tolerance`, a closer fit means nothing.
constexpr double pres_resolution = 1e-11;
/// Curves are fitted up to a little beyond the highest pressure, where no entry compares any more.
constexpr double pres_end = 1.0001 * pres_max;

/// Temperatures, K, at which curves may be cut in addition to the edges of the elements. Towards
/// the critical temperature the pressure along an isochore bends within ever shorter distances, and
/// rounding keeps degrees above 3 from following.
constexpr double cuts_below[] = {304.12, 304.1265};
constexpr double cuts_above[] = {304.1285, 304.1295, 304.132, 304.136, 304.143,
                                 304.155,  304.17,   304.19,  304.22};

constexpr int fit_nodes = 60;
constexpr int minimax_rounds = 40;
constexpr int check_count = 400;

// ---- Known curves ------------------------------------------------------------------------------

/// A curve of the lowest or the topmost vapour elements whose numbers are given.
struct KnownCurve {
  double dens;
  double temp_lo;
  double temp_start;
  std::vector<double> coef;  ///< empty: only the start temperature is given
};

const KnownCurve* find_known(const Region region, const TpCurve& curve) {
  static const std::vector<KnownCurve> vapour_curves = {
      {15.0, 240.0, 0.0, {-192.9675781479849, 3.793719132589892, -0.001456063367197281}},
      {30.0, 240.0, 0.0, {-831.2290085287171, 9.969510067660366, -0.006699101388238917}},
      {15.0, 247.0, 0.0, {-177.8428011026979, 3.671474485988424, -0.00120904645649794}},
      {30.0,
       247.0,
       0.0,
       {-1455.773947456678, 17.67943077226615, -0.03842206577893682, 4.350467559560977e-5}},
      {45.0,
       247.0,
       248.9114227294922,
       {-3635.98073953877, 39.19466821004941, -0.0986553029931417, 0.000111314390126785}},
      {60.0, 257.0, 257.7726745605469, {}},
      {460.0, 304.11, 304.1279602050781, {-44076.47189713393, 169.1844753180319}},
  };
  if (region != Region::vapour) return nullptr;
  for (const KnownCurve& known : vapour_curves) {
    if (known.dens == curve.dens && known.temp_lo == curve.temp_lo()) return &known;
  }
  return nullptr;
}

// ---- Geometry ----------------------------------------------------------------------------------

/// Temperatures at which the stack of elements of a region changes, its ends, and the cuts.
std::vector<double> column_edges(const std::vector<ElementCell>& cells, const Region region) {
  std::vector<double> edges;
  for (const ElementCell& c : cells) {
    if (c.region == region) edges.insert(edges.end(), {c.temp_lo, c.temp_hi});
  }
  const auto insert = [&](const auto& cuts) {
    edges.insert(edges.end(), std::begin(cuts), std::end(cuts));
  };
  region == Region::supercritical ? insert(cuts_above) : insert(cuts_below);
  std::sort(edges.begin(), edges.end());
  edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
  return edges;
}

/// Elements of a region at one temperature, from low to high density.
std::vector<std::size_t> stack_at(const std::vector<ElementCell>& cells, const Region region,
                                  const double temp) {
  std::vector<std::size_t> stack;
  for (std::size_t k = 0; k < cells.size(); ++k) {
    const ElementCell& c = cells[k];
    if (c.region == region && c.temp_lo <= temp && temp < c.temp_hi) stack.push_back(k);
  }
  std::sort(stack.begin(), stack.end(),
            [&](const auto a, const auto b) { return cells[a].dens_lo < cells[b].dens_lo; });
  for (std::size_t k = 1; k < stack.size(); ++k) {
    if (cells[stack[k - 1]].dens_hi != cells[stack[k]].dens_lo) {
      throw std::invalid_argument(format("tp_curves: the elements at %g K leave a gap", temp));
    }
  }
  return stack;
}

/// One column for each interval of temperature. A curve goes on from column to column as long as an
/// element on either side of it does: so far one polynomial describes the pressure along the edge.
void lay_out(const std::vector<ElementCell>& cells, TpRegion& table) {
  const std::vector<double> edges = column_edges(cells, table.region);
  table.temp_edges.assign(edges.begin() + 1, edges.end() - 1);
  for (std::size_t i = 0; i + 1 < edges.size(); ++i) {
    const std::vector<std::size_t> stack = stack_at(cells, table.region, edges[i]);
    std::vector<TpRow> column;
    for (std::size_t k = 0; k < stack.size(); ++k) {
      column.push_back({static_cast<std::uint16_t>(stack[k] + 1), 0});
      if (k == 0) continue;
      const TpSegment segment = {i, k, edges[i], edges[i + 1], stack[k - 1], stack[k]};
      const double dens = cells[stack[k]].dens_lo;
      const auto continued =
          std::find_if(table.curves.begin(), table.curves.end(), [&](const TpCurve& c) {
            const TpSegment& last = c.segments.back();
            return c.dens == dens && last.column + 1 == i &&
                   (last.below == segment.below || last.above == segment.above);
          });
      if (continued == table.curves.end()) {
        table.curves.push_back({dens, {segment}});
      } else {
        continued->segments.push_back(segment);
      }
    }
    table.columns.push_back(column);
  }
}

/// Temperature at which the isochore meets the saturation line of the library, in single precision
/// and rounded down: just below it the isochore lies on the far side of saturation and consulting
/// its curve does no harm, while leaving it out just above would. 0 if there is none in the range.
double start_temperature(const Region region, const double dens) {
  const auto single_phase = [&](const double temp) {
    return region == Region::vapour ? dens <= calc_sat_vap_dens(temp)
                                    : dens >= calc_sat_liq_dens(temp);
  };
  double lo = temp_min;
  double hi = t_crit;
  if (region == Region::supercritical || single_phase(lo)) return 0.0;
  for (double mid = (lo + hi) / 2.0; lo < mid && mid < hi; mid = (lo + hi) / 2.0) {
    (single_phase(mid) ? hi : lo) = mid;
  }
  const auto rounded = static_cast<float>(hi);
  return rounded > hi ? std::nextafter(rounded, 0.0F) : rounded;
}

// ---- Fit ---------------------------------------------------------------------------------------

/// Pressure on a density edge, kPa, and how far a pressure difference moves a state there.
struct EdgeState {
  double pres;
  double dens_per_pres;  ///< kg/m3 per kPa
};

EdgeState edge_state(const std::vector<Element>& elements, const TpCurve& curve,
                     const double temp) {
  const auto segment = std::find_if(curve.segments.begin(), curve.segments.end() - 1,
                                    [&](const TpSegment& s) { return temp < s.temp_hi; });
  const double dens = curve.dens;
  const auto at = [&](const std::size_t e) { return evaluate(elements[e], temp, dens); };
  const Derivatives<double> below = at(segment->below);
  const Derivatives<double> above = at(segment->above);
  const double pres = (pressure(below, dens) + pressure(above, dens)) / 2.0;
  const double slope = std::min(below.dpdd, above.dpdd);
  return {pres, 1.0 / std::max(slope, pres_resolution * pres / dens_tolerance)};
}

/// Temperatures at which the curve decides between states: above its start, up to the highest
/// pressure.
struct Span {
  double lo, hi;
};

Span active_span(const std::vector<Element>& elements, const TpCurve& curve) {
  Span span = {std::max(curve.temp_lo(), curve.stored.temp_start), curve.temp_hi()};
  if (!(span.lo < span.hi)) {
    throw std::invalid_argument(format("tp_curves: %g kg/m3 is two-phase all over %g..%g K",
                                       curve.dens, curve.temp_lo(), curve.temp_hi()));
  }
  const auto beyond = [&](const double temp) {
    return edge_state(elements, curve, temp).pres > pres_end;
  };
  if (!beyond(span.hi)) return span;
  double lo = span.lo;
  for (double mid = (lo + span.hi) / 2.0; lo < mid && mid < span.hi; mid = (lo + span.hi) / 2.0) {
    (beyond(mid) ? span.hi : lo) = mid;
  }
  return span;
}

/// Coefficients of the powers of T from those of the Chebyshev polynomials over the span.
void to_powers(const Vector& chebyshev, const Span& span, IsochoreCurve& curve) {
  using Powers = std::array<Real, curve_terms>;
  const Real scale = 2.0L / (static_cast<Real>(span.hi) - span.lo);
  const Real shift = -1.0L - scale * span.lo;  // the argument is scale T + shift
  Powers before{};
  Powers now = {1.0L};
  Powers sum{};
  for (Eigen::Index n = 0; n < chebyshev.size(); ++n) {
    const Real factor = n == 0 ? 1.0L : 2.0L;
    Powers next{};
    for (std::size_t k = 0; k < sum.size(); ++k) {
      sum[k] += chebyshev(n) * now[k];
      next[k] = factor * (shift * now[k] + (k > 0 ? scale * now[k - 1] : 0.0L)) - before[k];
    }
    before = now;
    now = next;
  }
  std::transform(sum.begin(), sum.end(), curve.coef,
                 [](const Real c) { return static_cast<double>(c); });
}

/// The polynomial of one degree that comes closest to the edge.
void fit(const std::vector<Element>& elements, const Span& span, const std::int32_t degree,
         TpCurve& curve) {
  LeastSquaresProblem problem;
  problem.main = {Matrix::Zero(fit_nodes, degree + 1), Vector::Zero(fit_nodes)};
  const std::vector<Real> nodes = chebyshev_nodes(fit_nodes);
  const Real width = static_cast<Real>(span.hi) - span.lo;
  for (Eigen::Index i = 0; i < fit_nodes; ++i) {
    const auto temp = static_cast<double>(span.lo + width * nodes[static_cast<std::size_t>(i)]);
    const EdgeState edge = edge_state(elements, curve, temp);
    const Real angle =
        elementary::acos(std::clamp(2.0L * (temp - span.lo) / width - 1.0L, -1.0L, 1.0L));
    for (Eigen::Index n = 0; n <= degree; ++n) {
      problem.main.a(i, n) = edge.dens_per_pres * elementary::cos(angle * static_cast<Real>(n));
    }
    problem.main.b(i) = static_cast<Real>(edge.dens_per_pres) * edge.pres;
  }
  to_powers(solve_minimax(problem, minimax_rounds), span, curve.stored);
  curve.degree = degree;
}

/// Fills in the errors of the stored curve, in the arithmetic of the library.
void measure(const std::vector<Element>& elements, const Span& span, TpCurve& curve) {
  curve.dens_error = 0.0;
  for (int i = 0; i <= check_count; ++i) {
    const double temp = span.lo + (span.hi - span.lo) * i / check_count;
    const EdgeState edge = edge_state(elements, curve, temp);
    const double off = std::abs(evaluate_curve(curve.stored, temp) - edge.pres);
    if (off * edge.dens_per_pres <= curve.dens_error) continue;
    curve.dens_error = off * edge.dens_per_pres;
    curve.error_at = temp;
    curve.pres_error = off / edge.pres;
  }
}

/// Whether the curve stays above the highest pressure where its edge does.
bool stays_above(const Span& span, const TpCurve& curve) {
  for (int i = 1; i <= check_count; ++i) {
    const double temp = span.hi + (curve.temp_hi() - span.hi) * i / check_count;
    if (temp > span.hi && !(evaluate_curve(curve.stored, temp) > pres_max)) return false;
  }
  return true;
}

/// Takes the known polynomial, or fits the lowest degree that is good enough, or else the best.
void complete(const std::vector<Element>& elements, const Region region, TpCurve& curve) {
  const double start = start_temperature(region, curve.dens);
  curve.stored.temp_start = start > curve.temp_lo() ? start : 0.0;
  const KnownCurve* const known = find_known(region, curve);
  if (known != nullptr) curve.stored.temp_start = known->temp_start;
  const Span span = active_span(elements, curve);
  if (known != nullptr && !known->coef.empty()) {
    curve.known = true;
    curve.degree = static_cast<std::int32_t>(known->coef.size()) - 1;
    std::copy(known->coef.begin(), known->coef.end(), curve.stored.coef);
    measure(elements, span, curve);
    return;
  }
  TpCurve best = curve;
  best.dens_error = std::numeric_limits<double>::infinity();
  for (std::int32_t degree = 1; degree < curve_terms && best.dens_error > dens_tolerance;
       ++degree) {
    fit(elements, span, degree, curve);
    measure(elements, span, curve);
    if (curve.dens_error < best.dens_error && stays_above(span, curve)) best = curve;
  }
  if (best.degree == 0) {
    throw std::runtime_error(format("tp_curves: no curve for %g kg/m3 at %g..%g K", curve.dens,
                                    curve.temp_lo(), curve.temp_hi()));
  }
  curve = best;
}

}  // namespace

TpRegion fit_tp_region(const std::vector<ElementCell>& cells, const std::vector<Element>& elements,
                       const char* name, const Region region) {
  TpRegion table{name, region};
  lay_out(cells, table);
  std::vector<TpCurve> curves;
  for (TpCurve& curve : table.curves) {
    complete(elements, region, curve);
    if (curve.known || curve.dens_error <= dens_tolerance || curve.segments.size() == 1) {
      curves.push_back(curve);
      continue;
    }
    // Not good enough: one curve for each column, the first one also for those before the start.
    TpCurve piece{curve.dens, {}};
    for (const TpSegment& segment : curve.segments) {
      piece.segments.push_back(segment);
      if (segment.temp_hi <= curve.stored.temp_start) continue;
      complete(elements, region, piece);
      curves.push_back(piece);
      piece = {curve.dens, {}};
    }
  }
  table.curves = std::move(curves);
  for (std::size_t c = 0; c < table.curves.size(); ++c) {
    for (const TpSegment& s : table.curves[c].segments) {
      table.columns[s.column][s.row].curve = static_cast<std::uint16_t>(c);
    }
  }
  return table;
}

}  // namespace co2_properties::tablegen
