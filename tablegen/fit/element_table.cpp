#include "tablegen/fit/element_table.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <numeric>
#include <optional>
#include <set>
#include <thread>

#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "reference/elementary.hpp"
#include "tablegen/emit/number.hpp"
#include "tablegen/emit/source.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::tablegen {
namespace {

constexpr const char* tiling_file = "tablegen/tilings/elements.txt";
/// Part of the input digest: raise it when the fit changes without the tiling.
constexpr const char* fit_version = "elements 4";

/// Residuals below this are as good as zero, in units of the error scales of a fit.
constexpr Real least_residual = 1e-5L;

/// Rounds of fitting the shared edges, each with weights from the one before.
constexpr int rounds = 8;

/// How much worse an element is than its functions could be without shared edges.
double ratio(const ElementResult& r) {
  return r.unconstrained.residual > 0.0 ? r.stored.residual / r.unconstrained.residual : 1.0;
}

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

std::string format(const char* pattern, const auto... values) {
  char buffer[400];
  std::snprintf(buffer, sizeof buffer, pattern, values...);
  return buffer;
}

/// Lists the largest error of each property and the element it belongs to.
std::string worst_errors(const std::vector<ElementResult>& results) {
  std::string text = "Worst fit errors:";
  for (std::size_t m = 0; m < property_error_names.size(); ++m) {
    std::size_t worst = 0;
    for (std::size_t k = 0; k < results.size(); ++k) {
      if (results[k].stored.errors.value[m] > results[worst].stored.errors.value[m]) worst = k;
    }
    text += format("%s %s %.1e (element %zu)", m == 0 ? "" : ",", property_error_names[m],
                   results[worst].stored.errors.value[m], worst + 1);
  }
  return text + ".";
}

std::string report(const std::vector<ElementResult>& results) {
  std::string text =
      "elements: residual (weighted rms) stored and unconstrained, largest errors of density at "
      "given (T, p), h, s, cv, cp, w\n";
  const auto line = [&](const std::size_t k) {
    const auto& [cell, stored, best] = results[k];
    text += format("%4zu  %9.4f..%9.4f K %8.2f..%8.2f kg/m3  %.2e %.2e  ratio %.2f ", k + 1,
                   cell.temp_lo, cell.temp_hi, cell.dens_lo, cell.dens_hi, stored.residual,
                   best.residual, ratio(results[k]));
    for (const double e : stored.errors.value) text += format(" %.1e", e);
    text += "\n";
  };
  for (std::size_t k = 0; k < results.size(); ++k) line(k);
  std::vector<std::size_t> order(results.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(),
                   [&](auto a, auto b) { return ratio(results[a]) > ratio(results[b]); });
  text += "worst ratios\n";
  for (std::size_t k = 0; k < 10; ++k) line(order[k]);
  return text;
}

std::string record(const std::size_t index, const ElementResult& result) {
  const Element& e = result.stored.element;
  std::string text = format("  // %zu: density %.0e, h %.0e kJ/kg, cp %.0e\n", index,
                            result.stored.errors.value[0], result.stored.errors.value[1],
                            result.stored.errors.value[4]);
  text += "  {" + decimal_literal(e.dens0) + ", " + decimal_literal(e.temp0) + ", " +
          decimal_literal(e.dens_width) + ", " + decimal_literal(e.temp_width) + ", {\n";
  for (const auto& row : e.coef) {
    text += "    {";
    for (const double& c : row) text += hex_literal(c) + (&c == &row[5] ? "},\n" : ", ");
  }
  return text + "  }},\n";
}

std::string map_source(const std::vector<ElementCell>& cells, const Region region,
                       const std::string& name) {
  return "\nnamespace {\n\n" + grid_arrays(name, element_grid(cells, region)) +
         "\n}  // namespace\n\nconstexpr CellMap " + name +
         "_map = " + grid_initialiser(name, element_grid(cells, region)) + ";\n";
}

Generated generate() {
  std::ifstream stream(std::string(TABLEGEN_TILINGS_DIR) + "/elements.txt");
  const std::string tiling{std::istreambuf_iterator<char>(stream), {}};
  const std::vector<ElementCell> cells = parse_element_tiling(tiling);
  const std::vector<ElementResult> results = fit_elements(cells);

  Provenance provenance;
  provenance.table = "elements";
  provenance.content = {
      "649 elements of a(T, rho), kJ/kg, T in K, rho in kg/m3; record and functions:",
      "src/eos/element.hpp. After them the maps that find an element: src/eos/locate_td.hpp."};
  provenance.fitted_to = "Span & Wagner, J. Phys. Chem. Ref. Data 25 (1996) 1509.";
  provenance.tiling = tiling_file;
  provenance.digest = text_digest({tiling, fit_version});
  provenance.errors = {
      worst_errors(results),
      "Each record names the worst error of density at given (T, p), of h and cp."};

  Generated g;
  std::string text = "\n#include \"eos/element.hpp\"\n#include \"eos/locate_td.hpp\"\n\n";
  text += "namespace co2_properties {\n\nconstexpr Element elements[element_count] = {\n";
  for (std::size_t k = 0; k < results.size(); ++k) text += record(k + 1, results[k]);
  text += "};\n";
  text += map_source(cells, Region::vapour, "vapour");
  text += map_source(cells, Region::liquid, "liquid");
  text += map_source(cells, Region::supercritical, "supercritical");
  text += "\n}  // namespace co2_properties\n";
  g.source = generated_source(provenance, text);
  g.report = report(results);
  g.summary = worst_errors(results);
  return g;
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
      const Real loss = std::max(1.0, ratio(results[k]));
      losses[k].a *= loss;
      losses[k].b *= loss;
    });
  }
  return results;
}

Table elements_table() { return {"elements", "eos/tables/elements.cpp", generate}; }

}  // namespace co2_properties::tablegen
