#include "tablegen/emit/saturation_bounds_table.hpp"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <vector>

#include "eos/element.hpp"
#include "tablegen/emit/number.hpp"
#include "tablegen/emit/source.hpp"
#include "tablegen/fit/saturation_bounds.hpp"
#include "tablegen/format.hpp"

namespace co2_properties::tablegen {
namespace {

/// Part of the input digest: raise it when the bounds change without the elements.
constexpr const char* version = "saturation_bounds 5";

bool is_known(const Bounds& bounds) { return std::isfinite(bounds.hi - bounds.lo); }

std::string text_of(const Bounds& bounds) {
  const auto text = [](const double bound) -> std::string {
    if (std::isfinite(bound)) return hex_literal(bound) + "F";
    return bound < 0.0 ? "-infinity" : "infinity";
  };
  return text(bounds.lo) + ", " + text(bounds.hi);
}

/// Mean width of the bounds of both phases, relative to the distance between the phases.
class MeanWidth {
 public:
  void note(const Bounds& vap, const Bounds& liq) {
    if (!is_known(vap) || !is_known(liq)) return;
    const double dome = std::abs(liq.lo + liq.hi - vap.lo - vap.hi) / 2.0;
    sum_ += (vap.hi - vap.lo + liq.hi - liq.lo) / dome;
    ++count_;
  }
  [[nodiscard]] std::string text() const {
    return format("%.1e in %d bins", sum_ / count_, count_);
  }

 private:
  double sum_ = 0.0;
  int count_ = 0;
};

Generated generate() {
  std::ifstream stream(TABLEGEN_SOURCE_DIR "/eos/tables/elements.cpp", std::ios::binary);
  const std::string source{std::istreambuf_iterator<char>(stream), {}};
  require_linked_elements("saturation_bounds", source);

  std::string dens, pres, entr_by_temp, enth, entr, inte, dome;
  MeanWidth dens_width, enth_width, entr_width, inte_width;
  for (const TemperatureBounds& bin : bound_by_temperature()) {
    dens += "  {" + text_of(bin.vap) + ", " + text_of(bin.liq) + "},\n";
    pres += "  {" + text_of(bin.pres) + "},\n";
    entr_by_temp += "  {" + text_of(bin.entr.vap) + ", " + text_of(bin.entr.liq) + "},\n";
    dens_width.note(bin.vap, bin.liq);
  }
  for (const auto& [h, s, u] : bound_by_pressure()) {
    enth += "  {" + text_of(h.vap) + ", " + text_of(h.liq) + "},\n";
    entr += "  {" + text_of(s.vap) + ", " + text_of(s.liq) + "},\n";
    inte += "  {" + text_of(u.vap) + ", " + text_of(u.liq) + "},\n";
    enth_width.note(h.vap, h.liq);
    entr_width.note(s.vap, s.liq);
    inte_width.note(u.vap, u.liq);
  }
  for (const auto& [slope, height] : bound_by_entropy()) {
    dome += "  {" + hex_literal(double{slope}) + "F, " + text_of(height) + ", 0.0F},\n";
  }
  const std::string widths = "Mean width of both bounds over that of the dome: density " +
                             dens_width.text() + ", enthalpy " + enth_width.text() + ", entropy " +
                             entr_width.text() + ", internal energy " + inte_width.text() + ".";
  const Provenance provenance = {
      "saturation_bounds",
      {"Bounds of the saturation line: src/saturation/saturation_bounds.hpp."},
      "the functions of src/saturation/ and the elements of src/eos/tables/elements.cpp.",
      "",
      saturation_bounds_digest(source),
      {widths}};
  const auto array = [](const std::string& type, const std::string& name, const std::string& bins,
                        const std::string& rows) {
    return "\nconstexpr " + type + " " + name + "[" + bins + ".count] = {\n" + rows + "};\n";
  };
  const std::string body =
      "\n#include \"saturation/saturation_bounds.hpp\"\n\n#include <limits>\n\n"
      "namespace co2_properties {\n\n"
      "namespace {\n\nconstexpr float infinity = std::numeric_limits<float>::infinity();\n\n"
      "}  // namespace\n" +
      array("SaturatedDensityBounds", "saturated_density_bounds", "temp_bins", dens) +
      array("SaturationPressureBounds", "saturation_pressure_bounds", "temp_bins", pres) +
      array("SaturatedEntropyBounds", "saturated_entropy_bounds_by_temp", "temp_bins",
            entr_by_temp) +
      array("SaturatedCaloricBounds", "saturated_enthalpy_bounds", "pres_bins", enth) +
      array("SaturatedCaloricBounds", "saturated_entropy_bounds", "pres_bins", entr) +
      array("SaturatedCaloricBounds", "saturated_energy_bounds", "pres_bins", inte) +
      array("DomeEnthalpyBounds", "dome_enthalpy_bounds", "entr_bins", dome) +
      "\n}  // namespace co2_properties\n";
  return {generated_source(provenance, body), "", widths};
}

}  // namespace

void require_linked_elements(const std::string& table, const std::string& elements_source) {
  const std::vector<double> values = numbers_in(elements_source);
  constexpr std::size_t numbers = element_count * (sizeof(Element) / sizeof(double));
  if (values.size() < numbers ||
      !std::equal(&elements[0].dens0, &elements[0].dens0 + numbers, values.begin())) {
    throw std::runtime_error(table + ": the element table has changed; build tablegen again");
  }
}

std::string saturation_bounds_digest(const std::string_view elements_source) {
  return text_digest({std::string(elements_source), version});
}

Table saturation_bounds_table() {
  return {"saturation_bounds", "saturation/tables/saturation_bounds.cpp", generate};
}

}  // namespace co2_properties::tablegen
