#include "tablegen/emit/inverse_table.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numeric>

#include "tablegen/emit/number.hpp"
#include "tablegen/emit/source.hpp"
#include "tablegen/format.hpp"
#include "tablegen/parallel.hpp"
#include "tablegen/tilings/text_reader.hpp"

namespace co2_properties::tablegen {
namespace {

/// Part of the digest: to be raised with any change of the reference or of the fit that moves
/// values.
constexpr const char* method = "inverse fit 1";

constexpr int fit_nodes = 14;
constexpr int check_count = 9;

using Kind = ServedStates::Kind;

/// How far a stored cell is from the reference, at states that its fit did not use.
struct CellErrors {
  Kind kind;
  Real worst = 0.0L;  ///< relative
  Real mean_square = 0.0L;
  InverseState where{};
};

/// Lists and errors are in the order of the tiling; what people read counts its cells from 1.
struct FittedTable {
  InverseTableDesign design;
  InverseTiling tiling;
  std::vector<InverseCell> cells;
  std::vector<CellErrors> errors;
};

const char* symbol(const Caloric caloric) { return caloric == Caloric::enthalpy ? "h" : "s"; }

std::string box_text(const InverseTableDesign& design, const Box& box) {
  return "p " + range_text(box.x_lo, box.x_hi) + ", " + symbol(design.caloric) + " " +
         range_text(box.y_lo, box.y_hi);
}

/// What a cell without stable states is fitted to.
const char* kind_text(const Kind kind) {
  if (kind == Kind::superheated_liquid) return " of superheated liquid";
  return kind == Kind::two_phase ? " of two-phase mixtures" : "";
}

InverseCell fit(const InverseTableDesign& design, const InverseTilingCell& cell) {
  const auto served = served_states(design.caloric, cell.box, chebyshev_nodes(fit_nodes));
  InverseCell fitted = fit_inverse_cell(design.caloric, design.estimate, cell, served);
  if (cell.given) {
    for (std::size_t m = 0; m < inverse_terms; ++m) {
      for (std::size_t k = 0; k < inverse_terms; ++k) fitted.coef[m][k] = (*cell.given)[k][m];
    }
  }
  return fitted;
}

CellErrors measure(const InverseTableDesign& design, const Box& box, const InverseCell& cell) {
  const auto served = served_states(design.caloric, box, check_nodes(check_count));
  CellErrors errors{served.kind};
  for (const InverseState& state : served.states) {
    const Real value = evaluate(design.caloric, cell, static_cast<double>(state.pres),
                                static_cast<double>(state.caloric));
    const Real error = std::fabs(value / estimated(design.estimate, state) - 1.0L);
    errors.mean_square += error * error / static_cast<Real>(served.states.size());
    if (!(error <= errors.worst)) {
      errors.worst = error;
      errors.where = state;
    }
  }
  return errors;
}

FittedTable fit_table(const InverseTableDesign& design, const std::string& tiling) {
  FittedTable table{design, read_inverse_tiling(tiling), {}, {}};
  table.cells.resize(table.tiling.size());
  table.errors.resize(table.tiling.size());
  in_parallel(table.tiling.size(), [&](const std::size_t k) {
    table.cells[k] = fit(design, table.tiling[k]);
    table.errors[k] = measure(design, table.tiling[k].box, table.cells[k]);
  });
  return table;
}

/// Cells by falling error, those with stable states first.
std::vector<std::size_t> worst_first(const FittedTable& table) {
  std::vector<std::size_t> order(table.cells.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&table](const auto a, const auto b) {
    const auto rank = [&table](const std::size_t k) {
      return table.errors[k].kind == Kind::stable ? table.errors[k].worst : -1.0L;
    };
    return rank(a) > rank(b);
  });
  return order;
}

std::vector<std::string> error_lines(const FittedTable& table) {
  const std::size_t worst = worst_first(table).front();
  Real mean_square = 0.0L;
  for (const CellErrors& errors : table.errors) {
    if (errors.kind == Kind::stable) {
      mean_square += errors.mean_square / static_cast<Real>(table.errors.size());
    }
  }
  return {format("Worst relative fit error: %.1Le (cell %zu), root mean square %.1Le.",
                 table.errors[worst].worst, worst + 1, std::sqrt(mean_square))};
}

std::string record(const FittedTable& table, const std::size_t k) {
  const InverseCell& cell = table.cells[k];
  const CellErrors& errors = table.errors[k];
  std::string text = format("  // %zu: ", k + 1) + box_text(table.design, table.tiling[k].box) +
                     format(": %.1Le", errors.worst) + kind_text(errors.kind) +
                     (table.tiling[k].given ? ", given" : "") + "\n";
  text += "  {{\n";
  for (const auto& row : cell.coef) {
    std::string items;
    for (const double a : row) items += (items.empty() ? "" : ", ") + hex_literal(a);
    text += "    {" + items + "},\n";
  }
  return text + "  }, " + decimal_literal(cell.pres0) + ", " + decimal_literal(cell.caloric0) +
         ", " + decimal_literal(cell.saturation_check) + ", 0.0},\n";
}

std::vector<std::string> content_lines(const FittedTable& table) {
  const InverseTableDesign& design = table.design;
  const std::string what =
      design.estimate == Estimate::temperature ? "temperature, K," : "density, kg/m3,";
  const std::string from = design.caloric == Caloric::enthalpy ? "h (kJ/kg)" : "s (kJ/(kg K))";
  return {
      "Start values of " + what + " in " + std::to_string(table.cells.size()) +
          " cells over p (kPa) and " + from + ";",
      "record and evaluation: src/solvers/inverse_cell.hpp. Records are numbered as in the tiling,",
      "from 1, with their relative fit errors."};
}

std::string source_text(const FittedTable& table, const std::string& tiling) {
  const std::string& name = table.design.name;
  const CellGrid grid = inverse_grid(table.tiling);
  std::string text =
      "\n#include \"solvers/inverse_cell.hpp\"\n\nnamespace co2_properties {\nnamespace {\n\n";
  text += grid_arrays(name, grid) + "\n}  // namespace\n\n" + tiling_definition(name, grid) +
          "constexpr InverseCell " + name + "_records[] = {\n";
  for (std::size_t k = 0; k < table.cells.size(); ++k) text += record(table, k);
  text += "};\n\n";
  text += "}  // namespace co2_properties\n";
  return generated_source(
      {name, content_lines(table), "Span & Wagner, J. Phys. Chem. Ref. Data 25 (1996) 1509.",
       "tablegen/tilings/" + name + ".txt", inverse_digest(tiling), error_lines(table)},
      text);
}

std::string report_text(const FittedTable& table) {
  std::string text = table.design.name + "\ncell  worst    rms      worst at (p, " +
                     symbol(table.design.caloric) + ")\n";
  for (const std::size_t k : worst_first(table)) {
    const CellErrors& e = table.errors[k];
    text += format("%4zu  %.1Le  %.1Le  (%.5Lf, %.6Lf)  ", k + 1, e.worst, std::sqrt(e.mean_square),
                   e.where.pres, e.where.caloric) +
            box_text(table.design, table.tiling[k].box) + kind_text(e.kind) +
            (table.tiling[k].given ? ", given" : "") + "\n";
  }
  return text + "\n";
}

Generated generate(const InverseTableDesign& design) {
  const std::string tiling = tiling_text(std::string(design.name) + ".txt");
  const FittedTable table = fit_table(design, tiling);
  return {source_text(table, tiling), report_text(table), error_lines(table).front()};
}

}  // namespace

const std::vector<InverseTableDesign>& inverse_table_designs() {
  static const std::vector<InverseTableDesign> designs = {
      {"temp_from_hp", Caloric::enthalpy, Estimate::temperature},
      {"dens_from_hp", Caloric::enthalpy, Estimate::density},
      {"temp_from_sp", Caloric::entropy, Estimate::temperature},
      {"dens_from_sp", Caloric::entropy, Estimate::density},
  };
  return designs;
}

std::string inverse_digest(const std::string& tiling_text) {
  return text_digest({method, tiling_text});
}

std::vector<Table> inverse_tables() {
  std::vector<Table> tables;
  for (const InverseTableDesign& design : inverse_table_designs()) {
    tables.push_back({design.name, "solvers/tables/" + design.name + ".cpp",
                      [&design] { return generate(design); }});
  }
  return tables;
}

}  // namespace co2_properties::tablegen
