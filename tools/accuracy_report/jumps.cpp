#include "accuracy_report/jumps.hpp"

#include <fmt/format.h>

#include <cmath>
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "accuracy_report/cell_edges.hpp"
#include "accuracy_report/errors.hpp"
#include "api/co2_properties.hpp"
#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "fits/near_critical.hpp"

namespace co2_properties::accuracy {
namespace {

constexpr int points_per_piece = 21;

struct Worst {
  double size = 0.0;
  double temp = 0.0, dens = 0.0;
  std::string cells;

  void note(const double jump, const double at_temp, const double at_dens, const auto& name) {
    const double magnitude = std::isnan(jump) ? INFINITY : std::abs(jump);
    if (magnitude <= size && !cells.empty()) return;
    size = magnitude;
    temp = at_temp;
    dens = at_dens;
    cells = name();
  }
};

std::vector<std::string> row_of(std::vector<std::string> row, const Worst& worst) {
  row.push_back(fmt::format("{:.1e}", worst.size));
  row.push_back(fmt::format("{:.4f} K, {:.3f} kg/m3, {}", worst.temp, worst.dens, worst.cells));
  return row;
}

/// Single phase, in the region that the table serves.
bool reached(const TableCells& table, const double temp, const double dens) {
  std::int32_t ierr = 0;
  double heat = 0.0;
  co2_td(temp, dens, ierr, {.cv = &heat});
  if (ierr != status::success) return false;
  if (table.tiling == &vapour_tiling) return dens <= calc_sat_vap_dens(temp);
  if (table.tiling == &liquid_tiling) return dens >= calc_sat_liq_dens(temp);
  return true;
}

/// Largest jumps by region, kind of edge and quantity.
using ElementJumps = std::map<std::tuple<std::string, std::string, std::string>, Worst>;

void note_elements(ElementJumps& jumps, const std::string& region, const std::string& edge,
                   const std::int32_t low, const std::int32_t high, const double temp,
                   const double dens) {
  const Derivatives<double> a = evaluate(element(low), temp, dens);
  const Derivatives<double> b = evaluate(element(high), temp, dens);
  const bool box = near_critical_box.contains(temp, dens);
  const std::string where = box ? "critical box" : region;
  const auto name = [&] { return fmt::format("elements {} and {}", low, high); };
  const double step = pressure(b, dens) - pressure(a, dens);
  const double scale = box ? pressure(a, dens) : dens * a.dpdd;
  jumps[{where, edge, box ? "p, relative" : "density, relative"}].note(step / scale, temp, dens,
                                                                       name);
  jumps[{where, edge, "h, kJ/kg"}].note(enthalpy(b, temp) - enthalpy(a, temp), temp, dens, name);
  jumps[{where, edge, "s, kJ/(kg K)"}].note(entropy(b) - entropy(a), temp, dens, name);
}

/// The critical isotherm, where two tables meet.
void note_critical_isotherm(ElementJumps& jumps) {
  constexpr int points = 20000;
  constexpr double dens_end = 1170.0;
  for (int n = 1; n < points; ++n) {
    const double dens = dens_end * n / points;
    const std::int32_t below =
        dens < d_crit ? vap_index_from_td(t_crit, dens) : liq_index_from_td(t_crit, dens);
    note_elements(jumps, "critical isotherm", "T", below, sc_index_from_td(t_crit, dens), t_crit,
                  dens);
  }
}

struct PatchTable {
  const PatchFit* fit;
  const TableCells* cells;
  const char* far_name;  ///< where the fit is bound to keep its error, and where it is not
  const char* near_name;
  bool (*near)(double temp);
};

bool near_critical_temp(const double temp) { return std::abs(temp - t_crit) <= 0.05; }
bool below_304_14(const double temp) { return temp <= 304.14; }

constexpr const char* off = "T off critical by > 0.05 K";
constexpr const char* close = "within 0.05 K of critical T";
constexpr const char* above = "T > 304.14 K";
constexpr const char* below = "T <= 304.14 K";

const PatchTable patch_tables[] = {
    {&viscosity_fit, &all_tables[3], off, close, near_critical_temp},
    {&conductivity_fit, &all_tables[4], off, close, near_critical_temp},
    {&cp_fit, &all_tables[5], above, below, below_304_14},
    {&cv_fit, &all_tables[6], above, below, below_304_14},
    {&sound_speed_fit, &all_tables[7], above, below, below_304_14}};

/// Largest jumps between the patches of a fit, far from the critical temperature and close to it.
std::pair<Worst, Worst> jumps_between_patches(const PatchTable& table) {
  std::pair<Worst, Worst> worst;
  for_each_edge_point(
      *table.cells, points_per_piece,
      [&](const EdgeKind, const double temp, const double dens, const std::int32_t low,
          const std::int32_t high) {
        if (!reached(*table.cells, temp, dens)) return;
        const double a = evaluate_patch(table.fit->patches[low], temp, dens);
        const double b = evaluate_patch(table.fit->patches[high], temp, dens);
        (table.near(temp) ? worst.second : worst.first).note(b / a - 1.0, temp, dens, [&] {
          return fmt::format("patches {} and {}", low, high);
        });
      });
  return worst;
}

double from_element(const std::string& table, const double temp, const double dens) {
  const Derivatives<double> d = evaluate(element(element_of(temp, dens)), temp, dens);
  if (table == "cp") return isobaric_heat_capacity(d, temp);
  if (table == "cv") return isochoric_heat_capacity(d, temp);
  return std::sqrt(speed_of_sound_squared(d));
}

/// Largest jump on the border of the box in which a fit serves.
Worst jump_at_border(const PatchTable& table) {
  constexpr int points = 4000;
  const TableCells& box = *table.cells;
  Worst worst;
  const auto note = [&](const double temp, const double dens) {
    if (!reached(box, temp, dens)) return;
    const double patch = evaluate_fit(*table.fit, temp, dens);
    worst.note(patch / from_element(box.name, temp, dens) - 1.0, temp, dens, [&] {
      return fmt::format("patch {} and element {}", table.fit->map->find(temp, dens),
                         element_of(temp, dens));
    });
  };
  for (int n = 0; n <= points; ++n) {
    const double dens = box.dens_lo + (box.dens_hi - box.dens_lo) * n / points;
    const double temp = box.temp_lo + (box.temp_hi - box.temp_lo) * n / points;
    note(box.temp_lo, dens);
    note(box.temp_hi, dens);
    note(temp, box.dens_lo);
    note(temp, box.dens_hi);
  }
  return worst;
}

}  // namespace

Section element_jumps_section() {
  ElementJumps jumps;
  for (int k = 0; k < element_table_count; ++k) {
    const TableCells& table = element_tables[k];
    for_each_edge_point(table, points_per_piece,
                        [&](const EdgeKind kind, const double temp, const double dens,
                            const std::int32_t low, const std::int32_t high) {
                          if (!reached(table, temp, dens)) return;
                          note_elements(jumps, table.name,
                                        kind == EdgeKind::density ? "density" : "T", low, high,
                                        temp, dens);
                        });
  }
  note_critical_isotherm(jumps);
  std::vector<std::vector<std::string>> rows;
  for (const auto& [key, worst] : jumps) {
    rows.push_back(row_of({std::get<0>(key), std::get<1>(key), std::get<2>(key)}, worst));
  }
  return {"element_jumps",
          text_table({"region", "edge of constant", "quantity", "largest jump", "at"}, rows), true};
}

Section patch_jumps_section() {
  std::vector<std::vector<std::string>> rows;
  for (const PatchTable& table : patch_tables) {
    const char* name = table.cells->name;
    const auto [far, near] = jumps_between_patches(table);
    rows.push_back(row_of({name, table.far_name, "patches"}, far));
    // No edge of the viscosity fit comes this close.
    if (!near.cells.empty()) rows.push_back(row_of({name, table.near_name, "patches"}, near));
    if (table.near == below_304_14) {
      rows.push_back(
          row_of({name, "border of its box", "patch and element"}, jump_at_border(table)));
    }
  }
  return {"patch_jumps",
          text_table({"fit", "where", "between", "largest jump, relative", "at"}, rows), true};
}

}  // namespace co2_properties::accuracy
