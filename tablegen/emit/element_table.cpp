#include "tablegen/emit/element_table.hpp"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <vector>

#include "tablegen/emit/number.hpp"
#include "tablegen/emit/source.hpp"
#include "tablegen/fit/shared_edges.hpp"
#include "tablegen/format.hpp"
#include "tablegen/tilings/element_tiling.hpp"
#include "tablegen/tilings/text_reader.hpp"

namespace co2_properties::tablegen {
namespace {

constexpr const char* tiling_file = "tablegen/tilings/elements.txt";
/// Part of the input digest: raise it when the fit changes without the tiling.
constexpr const char* fit_version = "elements 4";

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
                   best.residual, results[k].ratio());
    for (const double e : stored.errors.value) text += format(" %.1e", e);
    text += "\n";
  };
  for (std::size_t k = 0; k < results.size(); ++k) line(k);
  std::vector<std::size_t> order(results.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(),
                   [&](auto a, auto b) { return results[a].ratio() > results[b].ratio(); });
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

std::string tiling_source(const std::vector<ElementCell>& cells, const Region region,
                          const std::string& name) {
  return "\nnamespace {\n\n" + grid_arrays(name, element_grid(cells, region)) +
         "\n}  // namespace\n\n" + tiling_definition(name, element_grid(cells, region));
}

Generated generate() {
  const std::string tiling = tiling_text("elements.txt");
  const std::vector<ElementCell> cells = parse_element_tiling(tiling);
  const std::vector<ElementResult> results = fit_elements(cells);

  Provenance provenance;
  provenance.table = "elements";
  provenance.content = {
      "649 elements of a(T, rho), kJ/kg, T in K, rho in kg/m3; record and functions:",
      "src/eos/element.hpp. After them the look-up by T and rho: src/eos/element_locator.hpp."};
  provenance.fitted_to = "Span & Wagner, J. Phys. Chem. Ref. Data 25 (1996) 1509.";
  provenance.tiling = tiling_file;
  provenance.digest = text_digest({tiling, fit_version});
  provenance.errors = {
      worst_errors(results),
      "Each record names the worst error of density at given (T, p), of h and cp."};

  Generated g;
  std::string text = "\n#include \"eos/element.hpp\"\n#include \"eos/element_locator.hpp\"\n\n";
  text += "namespace co2_properties {\n\nconstexpr Element elements[element_count] = {\n";
  for (std::size_t k = 0; k < results.size(); ++k) text += record(k + 1, results[k]);
  text += "};\n";
  text += tiling_source(cells, Region::vapour, "vapour");
  text += tiling_source(cells, Region::liquid, "liquid");
  text += tiling_source(cells, Region::supercritical, "supercritical");
  text +=
      "\nconstexpr ElementLocator element_locator(supercritical_tiling, vapour_tiling, "
      "liquid_tiling);\n";
  text += "\n}  // namespace co2_properties\n";
  g.source = generated_source(provenance, text);
  g.report = report(results);
  g.summary = worst_errors(results);
  return g;
}

}  // namespace

Table elements_table() { return {"elements", "eos/tables/elements.cpp", generate}; }

}  // namespace co2_properties::tablegen
