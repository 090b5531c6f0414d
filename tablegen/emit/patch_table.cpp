#include "tablegen/emit/patch_table.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numeric>

#include "reference/span_wagner.hpp"
#include "tablegen/emit/number.hpp"
#include "tablegen/emit/source.hpp"
#include "tablegen/fit/patch_fit.hpp"
#include "tablegen/format.hpp"
#include "tablegen/parallel.hpp"
#include "tablegen/tilings/text_reader.hpp"

namespace co2_properties::tablegen {
namespace {

/// Goes into the digest: to be raised with any change of the reference or of the fit that moves
/// values.
const std::string method = "patch fit 1";

constexpr int check_count = 15;
constexpr Real singular_gap = 1e-3L;  // K, around the critical point, without checks

/// States at which a patch is judged, with the reference values.
std::vector<Sample> check_states(const PatchProperty& property, const PatchCell& cell) {
  std::vector<Sample> states;
  const Reach reach(cell.box, property.limits, 0.0L);
  if (reach.empty()) return states;
  for (const StatePoint& point :
       regular_points(property, reach, check_nodes(check_count), singular_gap)) {
    // The state as a caller gives it, in double.
    const StatePoint at{static_cast<double>(point.temp), static_cast<double>(point.dens)};
    const Real value = property.value(at.temp, at.dens);
    states.push_back({at, value, value});
  }
  return states;
}

double value_of(const Patch& patch, const StatePoint& at) {
  return evaluate_patch(patch, static_cast<double>(at.temp), static_cast<double>(at.dens));
}

PatchErrors measure(const PatchProperty& property, const PatchCell& cell,
                    const CellSamples& samples, const ScaledPatch& fit, const Patch& patch) {
  const ScaledPatch free_squares = fit_patch(cell, samples, {.minimax = false, .pins_on = false});
  const ScaledPatch free_minimax = fit_patch(cell, samples, {.minimax = true, .pins_on = false});
  PatchErrors errors;
  Real best_squares = 0.0L;
  Real best_minimax = 0.0L;
  const std::vector<Sample> states = check_states(property, cell);
  for (const auto& [at, value, scale] : states) {
    const Real stored = value_of(patch, at);
    const Real error = std::fabs(stored / value - 1.0L);
    if (error > std::max(errors.worst, errors.worst_critical)) errors.where = at;
    Real& worst = property.critical(at.temp) ? errors.worst_critical : errors.worst;
    worst = std::max(worst, error);
    errors.mean_square += error * error / static_cast<Real>(states.size());
    errors.rounding = std::max(errors.rounding, std::fabs((stored - fit(at)) / value));
    best_squares = std::max(best_squares, std::fabs(free_squares(at) / value - 1.0L));
    best_minimax = std::max(best_minimax, std::fabs(free_minimax(at) / value - 1.0L));
  }
  errors.best = std::min(best_squares, best_minimax);
  return errors;
}

std::string record(const PatchTable& table, const std::size_t k) {
  const auto& [box, temp0, dens0, pins] = table.tiling[k];
  const PatchErrors& errors = table.errors[k];
  std::string text = format("  // %zu: T ", k) + range_text(box.x_lo, box.x_hi) + ", rho " +
                     range_text(box.y_lo, box.y_hi) +
                     format(": %.1Le\n", std::max(errors.worst, errors.worst_critical));
  text += "  {" + decimal_literal(temp0) + ", " + decimal_literal(dens0) + ", {\n";
  for (const auto& row : table.patches[k].coef) {
    std::string items;
    for (const double a : row) items += (items.empty() ? "" : ", ") + hex_literal(a);
    text += "    {" + items + "},\n";
  }
  return text + "  }},\n";
}

/// The worst patch by one of the two error members, as text.
std::string worst_text(const PatchTable& table, Real PatchErrors::*const member) {
  const auto worst =
      std::max_element(table.errors.begin(), table.errors.end(),
                       [member](const auto& a, const auto& b) { return a.*member < b.*member; });
  return format("%.1Le (patch %td)", (*worst).*member, worst - table.errors.begin());
}

/// What the header and the program say of the whole table.
std::vector<std::string> error_lines(const PatchProperty& property, const PatchTable& table) {
  const std::string worst = "Worst relative fit error: " + worst_text(table, &PatchErrors::worst);
  if (property.regular) return {worst + "."};
  return {
      worst + "; from " + decimal_literal(property.critical_from) + " to " +
          decimal_literal(property.critical_to) + " K " +
          worst_text(table, &PatchErrors::worst_critical) + ".",
      "A distance of 1 mK around the critical point, where the property is singular, is left out."};
}

std::string source_text(const PatchProperty& property, const PatchTable& table,
                        const std::string& digest) {
  const std::string& name = property.table;
  const CellGrid grid = patch_grid(table.tiling);
  std::string text = "\n#include \"fits/patch.hpp\"\n\nnamespace co2_properties {\nnamespace {\n\n";
  text += grid_arrays(name, grid) + "\nconstexpr Patch " + name + "_patches[] = {\n";
  for (std::size_t k = 0; k < table.patches.size(); ++k) text += record(table, k);
  text += "};\n\n}  // namespace\n\n" + tiling_definition(name, grid) +
          "static constexpr PatchMap " + name + "_map(" + name + "_tiling);\n" +
          "constexpr PatchFit " + name + "_fit = {&" + name + "_map, " + name + "_patches};\n\n";
  text += "}  // namespace co2_properties\n";
  return generated_source(
      {name,
       {property.content + ", in " + std::to_string(table.patches.size()) +
            " patches over T (K) and rho (kg/m3);",
        "record and evaluation: src/fits/patch.hpp. Numbers at the records are their fit errors."},
       property.source,
       "tablegen/tilings/" + name + ".txt",
       digest,
       error_lines(property, table)},
      text);
}

std::string report_line(const PatchTable& table, const std::size_t k) {
  const Box& box = table.tiling[k].box;
  const PatchErrors& e = table.errors[k];
  return format("%4zu  %8.1Le  %8.1Le  %8.1Le  %8.1Le  %8.1Le   (%.5Lf, %.3Lf)  ", k, e.worst,
                e.worst_critical, std::sqrt(e.mean_square), e.best, e.rounding, e.where.temp,
                e.where.dens) +
         "T " + range_text(box.x_lo, box.x_hi) + ", rho " + range_text(box.y_lo, box.y_hi) +
         (table.tiling[k].pins.empty() ? "" : ", pinned") + "\n";
}

std::string report_text(const PatchProperty& property, const PatchTable& table) {
  std::string text =
      property.table + ": " + property.content + "\n" +
      "patch  worst    critical   rms       best      rounding   worst at (T, rho)\n";
  for (std::size_t k = 0; k < table.patches.size(); ++k) text += report_line(table, k);
  text += "the ten largest\n";
  std::vector<std::size_t> order(table.patches.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&table](const std::size_t a, const std::size_t b) {
    return table.errors[a].worst > table.errors[b].worst;
  });
  order.resize(std::min<std::size_t>(order.size(), 10));
  for (const std::size_t k : order) text += report_line(table, k);
  return text + "\n";
}

Generated generate(const PatchProperty& property) {
  const std::string tiling = tiling_text(property.table + ".txt");
  const PatchTable table = fit_patch_table(property, read_patch_tiling(tiling));
  return {source_text(property, table, patch_digest(tiling)), report_text(property, table),
          error_lines(property, table).front()};
}

}  // namespace

PatchTable fit_patch_table(const PatchProperty& property, PatchTiling tiling) {
  PatchTable table{std::move(tiling), {}, {}};
  table.patches.resize(table.tiling.size());
  table.errors.resize(table.tiling.size());
  in_parallel(table.tiling.size(), [&](const std::size_t k) {
    const PatchCell& cell = table.tiling[k];
    const CellSamples samples = sample_cell(property, cell);
    const ScaledPatch fit =
        fit_patch(cell, samples, {.minimax = !samples.singular, .pins_on = true});
    table.patches[k] = stored_patch(cell, fit);
    table.errors[k] = measure(property, cell, samples, fit, table.patches[k]);
  });
  return table;
}

std::string patch_digest(const std::string& tiling_text) {
  return text_digest({method, tiling_text});
}

std::vector<Table> patch_tables() {
  std::vector<Table> tables;
  for (const PatchProperty& property : patch_properties()) {
    tables.push_back({property.table, "fits/tables/" + property.table + ".cpp",
                      [&property] { return generate(property); }});
  }
  return tables;
}

}  // namespace co2_properties::tablegen
