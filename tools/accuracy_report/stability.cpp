#include "accuracy_report/stability.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "accuracy_report/errors.hpp"
#include "api/co2_properties.hpp"
#include "eos/helmholtz.hpp"
#include "fits/near_critical.hpp"

namespace co2_properties::accuracy {
namespace {

constexpr std::int32_t first_supercritical = 223;

void note(SmallestSlope& group, const std::int32_t e, const double temp, const double dens) {
  const Derivatives<double> d = evaluate(element(e), temp, dens);
  const double slope = d.dpdd / d.pv;
  ++group.points;
  if (!(slope > 0.0)) {
    const bool first = group.not_positive++ == 0;
    group.temp_lo = first ? temp : std::min(group.temp_lo, temp);
    group.temp_hi = first ? temp : std::max(group.temp_hi, temp);
    group.dens_lo = first ? dens : std::min(group.dens_lo, dens);
    group.dens_hi = first ? dens : std::max(group.dens_hi, dens);
  }
  if (group.points > 1 && slope >= group.slope) return;
  group.slope = slope;
  group.temp = temp;
  group.dens = dens;
  group.element = e;
}

bool single_phase(const std::int32_t e, const double temp, const double dens) {
  if (e >= first_supercritical) return true;
  // The upper edge is the critical temperature for some: there the states belong to the others.
  if (temp >= t_crit) return false;
  if (e < first_liquid ? dens > calc_sat_vap_dens(temp) : dens < calc_sat_liq_dens(temp)) {
    return false;
  }
  std::int32_t ierr = 0;
  double pres = 0.0;
  co2_td(temp, dens, ierr, {.pres = &pres});
  return ierr == status::success;
}

bool touches_box(const Element& cell) {
  const CriticalBox& box = near_critical_box;
  return cell.temp0 < box.temp_hi && cell.temp0 + cell.temp_width > box.temp_lo &&
         cell.dens0 < box.dens_hi && cell.dens0 + cell.dens_width > box.dens_lo;
}

/// The element over its rectangle, `side` points each way.
void note_element(SmallestSlope& group, const std::int32_t e, const int side) {
  const Element& cell = element(e);
  for (int i = 0; i < side; ++i) {
    const double temp = cell.temp0 + cell.temp_width * i / (side - 1);
    for (int j = 0; j < side; ++j) {
      const double dens = cell.dens0 + cell.dens_width * j / (side - 1);
      if (single_phase(e, temp, dens)) note(group, e, temp, dens);
    }
  }
}

/// An element that starts there: the critical isotherm and six just above.
void note_critical_isotherm(SmallestSlope& group, const std::int32_t e, const int points) {
  const Element& cell = element(e);
  for (const double above : {0.0, 1e-8, 1e-7, 1e-6, 1e-5, 1e-4, 1e-3}) {
    for (int j = 0; j < points; ++j) {
      note(group, e, t_crit + above, cell.dens0 + cell.dens_width * j / (points - 1));
    }
  }
}

}  // namespace

std::vector<SmallestSlope> smallest_slopes(const int side, const int on_isotherm) {
  SmallestSlope vapour{"vapour"};
  SmallestSlope liquid{"liquid"};
  SmallestSlope outside{"supercritical, off the critical box"};
  SmallestSlope inside{"supercritical, in the critical box"};
  SmallestSlope isotherm{"critical isotherm up to 0.001 K above"};
  for (std::int32_t e = 1; e <= element_count; ++e) {
    const bool box = touches_box(element(e));
    SmallestSlope& group = e < first_liquid          ? vapour
                           : e < first_supercritical ? liquid
                           : box                     ? inside
                                                     : outside;
    ++group.elements;
    note_element(group, e, box ? 4 * side : side);
    if (e < first_supercritical || element(e).temp0 != t_crit) continue;
    ++isotherm.elements;
    note_critical_isotherm(isotherm, e, on_isotherm);
  }
  return {vapour, liquid, outside, inside, isotherm};
}

Section stability_section() {
  Section section{"stability", "", true};
  std::vector<std::vector<std::string>> rows;
  for (const SmallestSlope& g : smallest_slopes(50, 4000)) {
    section.passed = section.passed && g.not_positive == 0 && g.points > 0;
    std::string not_positive = std::to_string(g.not_positive);
    if (g.not_positive > 0) {
      not_positive += fmt::format(", {:.8f} .. {:.8f} K, {:.4f} .. {:.4f} kg/m3", g.temp_lo,
                                  g.temp_hi, g.dens_lo, g.dens_hi);
    }
    rows.push_back({g.group, std::to_string(g.elements), std::to_string(g.points), not_positive,
                    fmt::format("{:.1e}", g.slope),
                    fmt::format("{:.6f} K, {:.5f} kg/m3, element {}", g.temp, g.dens, g.element)});
  }
  section.text = text_table(
      {"elements", "number", "points", "dp/drho <= 0", "smallest (rho/p) dp/drho", "at"}, rows);
  return section;
}

}  // namespace co2_properties::accuracy
