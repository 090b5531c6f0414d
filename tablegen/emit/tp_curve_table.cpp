#include "tablegen/emit/tp_curve_table.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <vector>

#include "tablegen/emit/number.hpp"
#include "tablegen/emit/source.hpp"
#include "tablegen/fit/tp_curves.hpp"
#include "tablegen/fit/tp_index.hpp"
#include "tablegen/format.hpp"
#include "tablegen/tilings/text_reader.hpp"

namespace co2_properties::tablegen {
namespace {

/// Part of the input digest: raise it when the fit changes without the elements.
constexpr const char* fit_version = "tp_curves 3";

std::string curve_record(const std::size_t index, const TpCurve& curve) {
  std::string text = format(
      "  // %zu: %s kg/m3, %s..%s K, %serror %.0e kg/m3\n", index,
      decimal_literal(curve.dens).c_str(), decimal_literal(curve.temp_lo()).c_str(),
      decimal_literal(curve.temp_hi()).c_str(), curve.known ? "known, " : "", curve.dens_error);
  text += "  {" + decimal_literal(curve.stored.temp_start) + ", {";
  for (const double& c : curve.stored.coef) {
    text +=
        (&c == curve.stored.coef ? "" : ", ") + (curve.known ? decimal_literal(c) : hex_literal(c));
  }
  return text + "}},\n";
}

/// The numbers of all regions, one after the other, as texts.
struct Lists {
  std::vector<std::string> first = {"0"};
  std::string rows, curves, shears, entries;
  std::size_t row_count = 0, curve_count = 0;
};

void append(const TpRegion& table, Lists& lists) {
  for (const std::vector<TpRow>& column : table.columns) {
    std::vector<std::string> items;
    items.reserve(column.size());
    for (const TpRow& row : column) {
      items.push_back(format("{%u, %zu}", row.element, lists.curve_count + row.curve));
    }
    lists.rows += wrapped_list(items);
    lists.row_count += column.size();
    lists.first.push_back(std::to_string(lists.row_count));
  }
  for (const TpCurve& curve : table.curves) {
    lists.curves += curve_record(lists.curve_count++, curve);
  }
  for (const auto& [shear, entries] : index_tp_region(table)) {
    lists.shears += "  {" + decimal_literal(shear.temp0) + ", " + hex_literal(shear.slope) + ", " +
                    hex_literal(shear.center) + ", " + hex_literal(shear.fan) + "},\n";
    std::vector<std::string> items;
    items.reserve(entries.size());
    for (const std::uint16_t entry : entries) items.push_back(std::to_string(entry));
    lists.entries += wrapped_list(items);
  }
}

/// \param tables  in the order of the regions
std::string source_text(const std::vector<TpRegion>& tables) {
  Lists lists;
  std::string edges;
  std::string tilings;
  std::string names;
  for (const TpRegion& table : tables) {
    const std::string name = table.name;
    std::vector<std::string> items;
    for (const double edge : table.temp_edges) items.push_back(decimal_literal(edge));
    edges += array_definition("double", name + "_temp_edges", items);
    tilings += "constexpr PressureTiling " + name + "_tp_tiling = {\n    " + name +
               "_temp_edges, " + std::to_string(items.size()) + ", pressure_locator.first + " +
               std::to_string(lists.first.size() - 1) +
               ", pressure_locator.rows, pressure_locator.curves};\n";
    names += (names.empty() ? "" : ", ") + name + "_tp_tiling";
    append(table, lists);
  }
  return "\n#include \"eos/pressure_locator.hpp\"\n\nnamespace co2_properties {\n\nnamespace "
         "{\n\n" +
         edges + "\n}  // namespace\n\n" + tilings +
         "\nconstexpr PressureLocator pressure_locator = {\n  count_intervals(" + names +
         "),\n  {  // shears\n" + lists.shears + "  },\n  {  // entries\n" + lists.entries +
         "  },\n  {  // first\n" + wrapped_list(lists.first) + "  },\n  {  // rows\n" + lists.rows +
         "  },\n  {  // curves\n" + lists.curves + "  },\n};\n\n}  // namespace co2_properties\n";
}

std::string worst_error(const TpRegion& table) {
  const auto worst = std::max_element(
      table.curves.begin(), table.curves.end(),
      [](const TpCurve& a, const TpCurve& b) { return a.dens_error < b.dens_error; });
  return format(
      "Largest distance between curve and edge, %s: %.1e kg/m3 or %.0e of the pressure "
      "(%g kg/m3, %.8g K).",
      table.name, worst->dens_error, worst->pres_error, worst->dens, worst->error_at);
}

std::string report(const TpRegion& table) {
  std::string text = std::string("tp_curves, ") + table.name +
                     ": edge, temperatures, start, degree, distance from the edge\n";
  std::array<std::size_t, curve_terms> degrees{};
  std::size_t rows = 0;
  for (const auto& column : table.columns) rows += column.size();
  for (const TpCurve& c : table.curves) {
    ++degrees[static_cast<std::size_t>(c.degree)];
    text += format("%8.2f kg/m3 %9.4f..%9.4f K  %.13g  %d%s  %.1e kg/m3 at %.6f K\n", c.dens,
                   c.temp_lo(), c.temp_hi(), c.stored.temp_start, c.degree, c.known ? " known" : "",
                   c.dens_error, c.error_at);
  }
  return text + format("%zu curves (of degree 1..5: %zu %zu %zu %zu %zu), %zu columns, %zu rows\n",
                       table.curves.size(), degrees[1], degrees[2], degrees[3], degrees[4],
                       degrees[5], table.columns.size(), rows);
}

/// The records of an element table that belongs to the tiling.
std::vector<Element> elements_in(const std::string_view source,
                                 const std::vector<ElementCell>& cells) {
  constexpr std::size_t numbers = sizeof(Element) / sizeof(double);
  const std::vector<double> values = numbers_in(source);
  if (values.size() < numbers * element_count) {
    throw std::invalid_argument("tp_curves: the element table is missing or incomplete");
  }
  std::vector<Element> elements(element_count);
  const double* v = values.data();
  for (Element& e : elements) {
    e = {v[0], v[1], v[2], v[3], {}};
    v += 4;
    for (auto& row : e.coef) {
      std::copy_n(v, dens_terms, row);
      v += dens_terms;
    }
  }
  if (!std::equal(elements.begin(), elements.end(), cells.begin(), cells.end(),
                  [](const Element& e, const ElementCell& c) {
                    return e.dens0 == c.dens_lo && e.temp0 == c.temp_lo;
                  })) {
    throw std::invalid_argument("tp_curves: the element table is not that of the tiling");
  }
  return elements;
}

Generated generate() {
  std::ifstream stream(TABLEGEN_SOURCE_DIR "/eos/tables/elements.cpp", std::ios::binary);
  const std::string source{std::istreambuf_iterator<char>(stream), {}};
  const std::vector<ElementCell> cells = parse_element_tiling(tiling_text("elements.txt"));
  const std::vector<Element> elements = elements_in(source, cells);
  const std::vector<TpRegion> tables = {
      fit_tp_region(cells, elements, "supercritical", Region::supercritical),
      fit_tp_region(cells, elements, "vapour", Region::vapour),
      fit_tp_region(cells, elements, "liquid", Region::liquid)};

  Provenance provenance;
  provenance.table = "tp_curves";
  provenance.content = {
      "Curves p(T), kPa and K, along the density edges of the elements, the elements between them,",
      "and an index of both: src/eos/pressure_locator.hpp."};
  provenance.fitted_to = "the pressure of the elements in src/eos/tables/elements.cpp.";
  provenance.tiling = "tablegen/tilings/elements.txt";
  provenance.digest = tp_curves_digest(source);

  Generated g;
  for (const TpRegion& table : tables) {
    provenance.errors.push_back(worst_error(table));
    g.report += report(table);
    if (!g.summary.empty()) g.summary += ' ';
    g.summary += provenance.errors.back();
  }
  g.source = generated_source(provenance, source_text(tables));
  return g;
}

}  // namespace

std::string tp_curves_digest(const std::string_view elements_source) {
  return text_digest({std::string(elements_source), fit_version});
}

Table tp_curves_table() { return {"tp_curves", "eos/tables/tp_curves.cpp", generate}; }

}  // namespace co2_properties::tablegen
