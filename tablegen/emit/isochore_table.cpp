#include "tablegen/emit/isochore_table.hpp"

#include <cmath>
#include <fstream>
#include <iterator>
#include <vector>

#include "tablegen/emit/number.hpp"
#include "tablegen/emit/saturation_bounds_table.hpp"
#include "tablegen/emit/source.hpp"
#include "tablegen/fit/isochores.hpp"
#include "tablegen/format.hpp"

namespace co2_properties::tablegen {
namespace {

/// Parts of the input digests: raise one when its table changes without the elements.
constexpr const char* isochores_version = "isochores 1";
constexpr const char* nodes_version = "saturated_nodes 2";

constexpr const char* made_from =
    "the functions of src/saturation/ and the elements of src/eos/tables/elements.cpp.";

std::string elements_source() {
  std::ifstream stream(TABLEGEN_SOURCE_DIR "/eos/tables/elements.cpp", std::ios::binary);
  std::string source{std::istreambuf_iterator<char>(stream), {}};
  require_linked_elements("isochores", source);
  return source;
}

std::string literal(const float value) {
  if (std::isfinite(value)) return hex_literal(value) + "F";
  return value < 0.0F ? "-infinity" : "infinity";
}

std::string definition(const std::string& name, const IsochoreFit& fit) {
  std::string text = "\nconstexpr IsochoreStarts isochore_starts_" + name + " = {\n{\n";
  for (const IsochoreBin& b : fit.bins) {
    text += "  {" + literal(b.at_crit) + ", " + literal(b.slope) + ", " + literal(b.mixture_below) +
            ", " + literal(b.single_above) + "},\n";
  }
  text += "},\n{\n";
  for (const std::vector<float>& row : fit.gain) {
    std::vector<std::string> items;
    for (const float value : row) items.push_back(literal(value));
    text += "{\n" + wrapped_list(items) + "},\n";
  }
  return text + "}};\n";
}

Generated generate_isochores() {
  const std::string source = elements_source();
  std::string body =
      "\n#include \"solvers/isochore.hpp\"\n\n#include <limits>\n\nnamespace co2_properties {\n\n"
      "namespace {\n\nconstexpr float infinity = std::numeric_limits<float>::infinity();\n\n"
      "}  // namespace\n";
  std::string errors = "Start values midway between nodes, |T - 304.1282 K| off by up to:";
  const auto add = [&](const std::string& name, const IsochoreFit& fit) {
    body += definition(name, fit);
    errors += format(" %s %.1e", name.c_str(), fit.worst_start);
  };
  add("inte", fit_isochores<InternalEnergy>());
  add("enth", fit_isochores<Enthalpy>());
  add("entr", fit_isochores<Entropy>());
  add("pres", fit_isochores<Pressure>());
  errors += " of it.";
  body += "\n}  // namespace co2_properties\n";
  const Provenance provenance = {
      "isochores",
      {"Temperature and phase from density and a second property: src/solvers/isochore.hpp."},
      made_from,
      "",
      isochores_digest(source),
      {errors}};
  return {generated_source(provenance, body), "", errors};
}

Generated generate_nodes() {
  const std::string source = elements_source();
  std::string rows;
  std::string pressures;
  for (const auto& [n, pres] : saturated_node_values()) {
    std::string values;
    for (const double value : {n.svol_liq, n.svol_vap, n.inte_liq, n.inte_vap, n.enth_liq,
                               n.enth_vap, n.entr_liq, n.entr_vap})
      values += (values.empty() ? "" : ", ") + hex_literal(value);
    rows += "  {" + values + "},\n";
    pressures += "  " + hex_literal(pres) + ",\n";
  }
  const std::string body =
      "\n#include \"solvers/solve_tie_line.hpp\"\n\nnamespace co2_properties {\n\n"
      "constexpr SaturatedNode saturated_nodes[saturated_node_count] = {\n" +
      rows + "};\n\nconstexpr double saturated_node_pressures[saturated_node_count] = {\n" +
      pressures + "};\n\n}  // namespace co2_properties\n";
  const Provenance provenance = {"saturated_nodes",
                                 {"Both phases along the saturation line: "
                                  "src/solvers/solve_tie_line.hpp."},
                                 made_from,
                                 "",
                                 saturated_nodes_digest(source),
                                 {}};
  return {generated_source(provenance, body), "", "nodes of the saturation line"};
}

}  // namespace

std::string isochores_digest(const std::string_view elements_source) {
  return text_digest({std::string(elements_source), isochores_version});
}

std::string saturated_nodes_digest(const std::string_view elements_source) {
  return text_digest({std::string(elements_source), nodes_version});
}

Table isochores_table() {
  return {"isochores", "solvers/tables/isochores.cpp", generate_isochores};
}

Table saturated_nodes_table() {
  return {"saturated_nodes", "solvers/tables/saturated_nodes.cpp", generate_nodes};
}

}  // namespace co2_properties::tablegen
