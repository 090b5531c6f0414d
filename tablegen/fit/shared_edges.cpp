#include "tablegen/fit/shared_edges.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <thread>

#include "tablegen/parallel.hpp"

namespace co2_properties::tablegen {
namespace {

/// Residuals below this are as good as zero, in units of the error scales of a fit.
constexpr Real least_residual = 1e-5L;

/// Rounds of fitting the shared edges, each with weights from the one before.
constexpr int rounds = 8;

/// Elements that share pieces of one density edge, and the temperatures from end to end.
struct SharedEdge {
  Region region;
  double dens;
  double temp_lo, temp_hi;
  std::vector<std::size_t> below, above;
  Rows given{};  ///< what records with given rows say about the coefficients
};

/// Whether `high` sits on top of `low`, over some temperatures at least.
bool touch(const ElementCell& low, const ElementCell& high) {
  return low.region == high.region && low.dens_hi == high.dens_lo &&
         std::min(low.temp_hi, high.temp_hi) > std::max(low.temp_lo, high.temp_lo);
}

/// Moves to `side` the candidates that touch an element of the other side.
template <class Touches>
bool join(std::vector<std::size_t>& side, const std::vector<std::size_t>& other,
          std::set<std::size_t>& candidates, const Touches& touches) {
  const std::size_t before = side.size();
  for (const std::size_t k : candidates) {
    if (std::any_of(other.begin(), other.end(), [&](auto o) { return touches(k, o); })) {
      side.push_back(k);
    }
  }
  for (std::size_t n = before; n < side.size(); ++n) candidates.erase(side[n]);
  return side.size() > before;
}

/// Groups the elements on both sides of every density edge so that each group can share one
/// polynomial: two elements belong together if they touch.
std::vector<SharedEdge> shared_edges(const std::vector<ElementCell>& cells) {
  const auto low_touches = [&](auto low, auto high) { return touch(cells[low], cells[high]); };
  const auto high_touches = [&](auto high, auto low) { return touch(cells[low], cells[high]); };
  std::set<std::size_t> lows;
  for (std::size_t k = 0; k < cells.size(); ++k) lows.insert(k);
  std::set<std::size_t> highs = lows;
  std::vector<SharedEdge> edges;
  while (!lows.empty()) {
    const std::size_t start = *lows.begin();
    lows.erase(start);
    const ElementCell& first = cells[start];
    SharedEdge edge{first.region, first.dens_hi, first.temp_lo, first.temp_hi, {start}, {}};
    while (join(edge.above, edge.below, highs, high_touches) ||
           join(edge.below, edge.above, lows, low_touches)) {
    }
    if (edge.above.empty()) continue;
    for (const auto* side : {&edge.below, &edge.above}) {
      for (const std::size_t k : *side) {
        edge.temp_lo = std::min(edge.temp_lo, cells[k].temp_lo);
        edge.temp_hi = std::max(edge.temp_hi, cells[k].temp_hi);
      }
    }
    edges.push_back(edge);
  }
  return edges;
}

/// The shared edges of one element, by their index.
struct AtEdges {
  std::optional<std::size_t> lower, upper;

  /// Coefficients of the lower, then of the upper edge.
  [[nodiscard]] Vector gather(const std::vector<EdgeCoefficients>& polynomials) const {
    Vector v((lower ? temp_terms : 0) + (upper ? temp_terms : 0));
    if (lower) v.head(temp_terms) = polynomials[*lower];
    if (upper) v.tail(temp_terms) = polynomials[*upper];
    return v;
  }
};

std::vector<EdgeCoefficients> interpolated_edges(const std::vector<SharedEdge>& edges) {
  std::vector<EdgeCoefficients> polynomials;
  polynomials.reserve(edges.size());
  for (const SharedEdge& edge : edges) {
    polynomials.push_back(interpolate_edge({edge.temp_lo, edge.temp_hi}, edge.dens));
  }
  return polynomials;
}

/// Moves the edge polynomials to the least sum of squares over all elements. Elements couple an
/// edge only to the next ones in density, and not strongly: solving for one edge after the other,
/// the others held, converges within some ten sweeps.
void improve_edges(const std::vector<SharedEdge>& edges, const std::vector<AtEdges>& at,
                   const std::vector<Rows>& losses, std::vector<EdgeCoefficients>& polynomials) {
  constexpr int sweeps = 30;
  for (int sweep = 0; sweep < sweeps; ++sweep) {
    for (std::size_t k = 0; k < edges.size(); ++k) {
      std::vector<std::size_t> members = edges[k].below;
      members.insert(members.end(), edges[k].above.begin(), edges[k].above.end());
      Eigen::Index count = 0;
      for (const std::size_t e : members) count += losses[e].b.size();
      Rows rows{Matrix(count, temp_terms), Vector(count)};
      Eigen::Index first = 0;
      for (const std::size_t e : members) {
        const auto& [a, b] = losses[e];
        const Eigen::Index column = at[e].lower && at[e].upper == k ? temp_terms : 0;
        const auto own = a.middleCols(column, temp_terms);
        rows.a.middleRows(first, b.size()) = own;
        rows.b.segment(first, b.size()) = b - a * at[e].gather(polynomials) + own * polynomials[k];
        first += b.size();
      }
      polynomials[k] = solve_least_squares({rows, {}, edges[k].given});
    }
  }
}

}  // namespace

std::vector<ElementResult> fit_elements(const std::vector<ElementCell>& cells) {
  std::vector<SharedEdge> edges = shared_edges(cells);
  std::vector<AtEdges> at(cells.size());
  for (std::size_t k = 0; k < edges.size(); ++k) {
    for (const std::size_t e : edges[k].below) at[e].upper = k;
    for (const std::size_t e : edges[k].above) at[e].lower = k;
  }
  const auto span = [&](const std::optional<std::size_t>& edge) -> std::optional<EdgeSpan> {
    if (!edge) return std::nullopt;
    return EdgeSpan{edges[*edge].temp_lo, edges[*edge].temp_hi};
  };
  std::vector<std::optional<ElementFitter>> fitters(cells.size());
  std::vector<Rows> losses(cells.size());
  std::vector<ElementResult> results(cells.size());
  in_parallel(cells.size(), [&](const std::size_t k) {
    fitters[k].emplace(cells[k]);
    results[k].cell = cells[k];
    results[k].unconstrained = fitters[k]->solve();
    if (at[k].lower || at[k].upper) {
      losses[k] = fitters[k]->edge_loss(span(at[k].lower), span(at[k].upper));
      // An element counts by how much worse it gets than alone, a poor one by its error.
      const Real residual = results[k].unconstrained.residual + least_residual;
      const Real alone = residual / std::sqrt(1.0L + residual * residual);
      losses[k].a /= alone;
      losses[k].b /= alone;
    }
  });
  for (std::size_t k = 0; k < cells.size(); ++k) {
    if (cells[k].given.empty()) continue;
    if (at[k].lower)
      edges[*at[k].lower].given = fitters[k]->given_on_edge(*span(at[k].lower), false);
    if (at[k].upper)
      edges[*at[k].upper].given = fitters[k]->given_on_edge(*span(at[k].upper), true);
  }
  std::vector<EdgeCoefficients> polynomials = interpolated_edges(edges);
  for (int round = 0; round < rounds; ++round) {
    improve_edges(edges, at, losses, polynomials);
    in_parallel(cells.size(), [&](const std::size_t k) {
      results[k].stored =
          fitters[k]->solve(span(at[k].lower), span(at[k].upper), at[k].gather(polynomials));
      // Elements that lose much by sharing their edges count more in the next round.
      const Real loss = std::max(1.0, results[k].ratio());
      losses[k].a *= loss;
      losses[k].b *= loss;
    });
  }
  return results;
}

}  // namespace co2_properties::tablegen
