#include "tablegen/emit/start_grid_table.hpp"

#include <fstream>
#include <iterator>

#include "eos/properties.hpp"
#include "numbers/logarithm.hpp"
#include "tablegen/emit/number.hpp"
#include "tablegen/emit/saturation_bounds_table.hpp"
#include "tablegen/emit/source.hpp"
#include "tablegen/fit/start_grid.hpp"
#include "tablegen/format.hpp"

namespace co2_properties::tablegen {
namespace {

/// Part of the input digest: raise it when the grids change without the elements.
constexpr const char* version = "start_grids 2";

struct GridTable {
  StartGridDesign design;
  std::string content;  ///< what the coordinates are
};

using Point = StartGridDesign::Point;

std::vector<GridTable> grid_tables() {
  return {{{"start_from_pu", 0.0, 11.52, 80.0, 1630.0, true, 5e-5,
            [](const Derivatives<double>& d, const double temp, const double dens) -> Point {
              return {logarithm(pressure(d, dens)), internal_energy(d, temp)};
            }},
           "T (K) and ln rho (kg/m3) over ln p (kPa) and u (kJ/kg)"},
          {{"start_from_ts", 240.0, 1500.0, 0.52, 5.4, false, 5e-4,
            [](const Derivatives<double>& d, const double temp, const double /*dens*/) -> Point {
              return {temp, entropy(d)};
            }},
           "ln rho (kg/m3) over T (K) and s (kJ/(kg K))"},
          {{"start_from_hs", 120.0, 1945.0, 0.52, 5.4, true, 1e-4,
            [](const Derivatives<double>& d, const double temp, const double /*dens*/) -> Point {
              return {enthalpy(d, temp), entropy(d)};
            }},
           "T (K) and ln rho (kg/m3) over h (kJ/kg) and s (kJ/(kg K))"}};
}

std::string patch_text(const std::vector<float>& numbers) {
  std::string text = "{{";
  for (std::size_t k = 0; k < numbers.size(); ++k) {
    text += (k > 0 ? ", " : "") + hex_literal(double{numbers[k]}) + "F";
  }
  return text + "}}";
}

Generated generate(const GridTable& table) {
  std::ifstream stream(TABLEGEN_SOURCE_DIR "/eos/tables/elements.cpp", std::ios::binary);
  const std::string elements_source{std::istreambuf_iterator<char>(stream), {}};
  require_linked_elements(table.design.name, elements_source);
  const StartGridDesign& design = table.design;
  const FittedGrid grid = fit_start_grid(design);
  std::vector<std::string> roots, squares;
  for (const auto& [first, bits] : grid.roots) {
    roots.push_back("{" + std::to_string(first) + ", " + std::to_string(bits) + "}");
  }
  for (const std::uint16_t patch : grid.squares) squares.push_back(std::to_string(patch));
  const std::string outputs = design.with_temp ? "2" : "1";
  std::string patches = "constexpr StartPatch<" + outputs + "> patches[] = {\n";
  for (const std::vector<float>& numbers : grid.patches) {
    patches += "  " + patch_text(numbers) + ",\n";
  }
  const auto axis = [](const double lo, const double hi) {
    return "{" + decimal_literal(lo) + ", " + hex_literal(square_count / (hi - lo)) + "}";
  };
  const std::string body =
      "\n#include \"solvers/start_values.hpp\"\n\nnamespace co2_properties {\nnamespace {\n\n" +
      array_definition("StartRoot", "roots", roots) +
      array_definition("std::uint16_t", "squares", squares) + patches +
      "};\n\n}  // namespace\n\nconstexpr StartGrid<" + outputs + "> " + design.name +
      "_grid = {\n    " + axis(design.x_lo, design.x_hi) + ",\n    " +
      axis(design.y_lo, design.y_hi) + ",\n    roots, squares, patches};\n\n" +
      "}  // namespace co2_properties\n";
  const std::string summary =
      format("%d patches, %d squares; relative error of T and rho at worst %.1e, on average %.1e",
             static_cast<int>(grid.patches.size()), static_cast<int>(grid.squares.size()),
             grid.worst, grid.mean);
  const Provenance provenance = {
      design.name,
      {"Start values of " + table.content + ": src/solvers/start_grid.hpp."},
      "single-phase states of the elements of src/eos/tables/elements.cpp.",
      "",
      start_grid_digest(elements_source),
      {summary + "."}};
  return {generated_source(provenance, body), "", summary};
}

}  // namespace

std::string start_grid_digest(const std::string_view elements_source) {
  return text_digest({std::string(elements_source), version});
}

std::vector<Table> start_grid_tables() {
  std::vector<Table> tables;
  for (const GridTable& table : grid_tables()) {
    tables.push_back({table.design.name, "solvers/tables/" + table.design.name + ".cpp",
                      [table] { return generate(table); }});
  }
  return tables;
}

}  // namespace co2_properties::tablegen
