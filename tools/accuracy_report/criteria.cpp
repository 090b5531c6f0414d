#include "accuracy_report/criteria.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <map>
#include <utility>

#include "api/co2_properties.hpp"
#include "fits/near_critical.hpp"
#include "reference/span_wagner.hpp"

namespace co2_properties::accuracy {
namespace {

constexpr Criterion criteria[] = {
    {Place::outside_box, dens, 1e-6, 5e-7},
    {Place::outside_box, enth, 5e-4, 2e-4},
    {Place::outside_box, entr, 2e-6, 5e-7},
    {Place::outside_box, cv, 2e-4, 1e-4},
    {Place::outside_box, cp, 3e-4, 1e-4},
    {Place::outside_box, ssnd, 1e-4, 5e-5},
    {Place::box, pres, 2e-6, 5e-7},
    {Place::box, enth, 5e-3, 2e-3},
    {Place::box, entr, 2e-5, 1e-5},
    {Place::box_above, cp, 8e-4, 3e-4},
    {Place::box_above, cv, 4e-4, 2e-4},
    {Place::box_above, ssnd, 1.5e-4, 1e-4},
    {Place::everywhere, visc, 1e-5, 4e-6},
    {Place::off_critical_temp, cond, 2e-3, 3e-4},
    {Place::outside_box, dpdd, 4e-4, 2.5e-4},
    {Place::outside_box, dpdt, 6e-5, 5e-5},
    {Place::outside_box, dhdd, 1.5e-4, 1e-4},
    {Place::outside_box, dhdt, 1.8e-4, 5e-5},
    {Place::outside_box, dsdd, 6e-5, 5e-5},
    {Place::outside_box, dsdt, 2.2e-4, 9e-5},
    {Place::box_far, dpdd, 3e-3, 2.5e-3},
    {Place::box_far, dpdt, 3.5e-4, 2.2e-4},
    {Place::box_far, dhdd, 3.5e-4, 2.2e-4},
    {Place::box_far, dhdt, 3e-3, 1.5e-3},
    {Place::box_far, dsdd, 3.5e-4, 2.2e-4},
    {Place::box_far, dsdt, 4e-3, 1.8e-3},
    {Place::box_near, dpdt, 3e-3, 2e-3},
    {Place::box_near, dhdd, 3e-3, 2e-3},
    {Place::box_near, dsdd, 3e-3, 2e-3},
    {Place::box_near_above, dpdd, 8e-2, 8e-2},
    {Place::box_near_above, dhdt, 1.5e-1, 1.5e-1},
    {Place::box_near_above, dsdt, 1.5e-1, 1.5e-1},
    {Place::box, dens, no_bound, no_bound},
    {Place::box_below, cp, no_bound, no_bound},
    {Place::box_below, cv, no_bound, no_bound},
    {Place::box_below, ssnd, no_bound, no_bound},
    {Place::at_critical_temp, cond, no_bound, no_bound},
    {Place::box_near_below, dpdd, no_bound, no_bound},
    {Place::box_near_below, dhdt, no_bound, no_bound},
    {Place::box_near_below, dsdt, no_bound, no_bound},
};

const char* place_name(const Place place) {
  switch (place) {
    case Place::outside_box:
      return "outside the box";
    case Place::box:
      return "in the box";
    case Place::box_above:
      return "in the box, T > 304.14 K";
    case Place::box_below:
      return "in the box, T <= 304.14 K";
    case Place::box_far:
      return "in the box, beyond 0.2 K";
    case Place::box_near:
      return "in the box, within 0.2 K";
    case Place::box_near_above:
      return "in the box, 304.14 .. 304.33 K";
    case Place::box_near_below:
      return "in the box, 303.93 .. 304.14 K";
    case Place::everywhere:
      return "whole domain";
    case Place::off_critical_temp:
      return "T off critical by > 0.05 K";
    case Place::at_critical_temp:
      return "within 0.05 K of critical T";
  }
  return "";
}

const char* unit(const Quantity quantity) {
  if (quantity == enth) return "kJ/kg";
  return quantity == entr ? "kJ/(kg K)" : "relative";
}

bool lies_in(const Place place, const StateErrors& state) {
  const bool box = near_critical_box.contains(state.temp, state.dens);
  const bool close = std::abs(state.temp - t_crit) <= 0.05;
  const bool near = box && std::abs(state.temp - t_crit) <= 0.2;
  const bool above = state.temp > 304.14;
  switch (place) {
    case Place::outside_box:
      return !box;
    case Place::box:
      return box;
    case Place::box_above:
      return box && above;
    case Place::box_below:
      return box && !above;
    case Place::box_far:
      return box && !near;
    case Place::box_near:
      return near;
    case Place::box_near_above:
      return near && above;
    case Place::box_near_below:
      return near && !above;
    case Place::everywhere:
      return true;
    case Place::off_critical_temp:
      return !close;
    case Place::at_critical_temp:
      return close;
  }
  return false;
}

/// Density, cp and w have no reference value where the reference is unstable; next to the critical
/// point, the only place where the library has such states, no bound is set on them either.
bool applies(const Criterion& c, const StateErrors& state) {
  return lies_in(c.place, state) && (state.stable || c.bound_worst != no_bound);
}

double size_of(const Criterion& c, const StateErrors& state) {
  const double size = std::abs(state.error[c.quantity]);
  return std::isnan(size) ? no_bound : size;
}

std::string number(const double value) {
  return value == no_bound ? "-" : fmt::format("{:.1e}", value);
}

}  // namespace

std::span<const Criterion> all_criteria() { return criteria; }

Summary summarize(const Criterion& criterion, const std::span<const StateErrors> states) {
  constexpr std::size_t listed = 10;
  std::vector<const StateErrors*> chosen;
  double squares = 0.0;
  for (const StateErrors& state : states) {
    if (!applies(criterion, state)) continue;
    chosen.push_back(&state);
    squares += size_of(criterion, state) * size_of(criterion, state);
  }
  Summary summary;
  summary.count = chosen.size();
  if (chosen.empty()) return summary;
  const auto larger = [&](const StateErrors* a, const StateErrors* b) {
    return size_of(criterion, *a) > size_of(criterion, *b);
  };
  const auto top = chosen.begin() + static_cast<std::ptrdiff_t>(std::min(listed, chosen.size()));
  std::partial_sort(chosen.begin(), top, chosen.end(), larger);
  summary.worst_states.assign(chosen.begin(), top);
  summary.worst = size_of(criterion, *chosen.front());
  const auto at = chosen.begin() + static_cast<std::ptrdiff_t>(chosen.size() / 1000);
  std::nth_element(chosen.begin(), at, chosen.end(), larger);
  summary.error_999 = size_of(criterion, **at);
  summary.rms = std::sqrt(squares / static_cast<double>(chosen.size()));
  return summary;
}

Section bounds_section(const std::span<const StateErrors> states) {
  Section section{"bounds", "", true};
  std::vector<std::vector<std::string>> rows;
  for (const Criterion& c : criteria) {
    const Summary s = summarize(c, states);
    const bool passed = s.count > 0 && s.worst <= c.bound_worst && s.error_999 <= c.bound_999;
    section.passed = section.passed && passed;
    std::vector<std::string> row = {
        place_name(c.place),   quantity_names[c.quantity],
        unit(c.quantity),      number(s.worst) + (passed ? "" : " EXCEEDED"),
        number(c.bound_worst), number(s.error_999),
        number(c.bound_999),   number(s.rms)};
    if (s.count == 0) {
      row.emplace_back("no state");
    } else {
      const StateErrors& worst = *s.worst_states.front();
      row.push_back(fmt::format("{:.4f} K, {:.3f} kg/m3, {}", worst.temp, worst.dens,
                                cell_name(c.quantity, worst.temp, worst.dens)));
    }
    rows.push_back(row);
  }
  section.text = text_table(
      {"where", "quantity", "unit", "worst", "bound", "99.9 %", "bound", "rms", "worst at"}, rows);
  return section;
}

Section critical_section(const std::span<const StateErrors> states) {
  std::vector<std::vector<std::string>> rows;
  for (const Quantity quantity : {cp, cv, ssnd, cond, dpdd, dhdt, dsdt}) {
    for (const double limit : {1e-3, 1e-2, 1e-1}) {
      constexpr double far = std::numeric_limits<double>::infinity();
      StateErrors low{far, far, true, {}};
      StateErrors high{-far, -far, true, {}};
      for (const StateErrors& state : states) {
        if (!state.stable || !(std::abs(state.error[quantity]) > limit)) continue;
        low.temp = std::min(low.temp, state.temp);
        low.dens = std::min(low.dens, state.dens);
        high.temp = std::max(high.temp, state.temp);
        high.dens = std::max(high.dens, state.dens);
      }
      if (low.temp > high.temp) continue;
      rows.push_back({quantity_names[quantity], fmt::format("> {:g} %", 100.0 * limit),
                      fmt::format("{:.4f} .. {:.4f}", low.temp, high.temp),
                      fmt::format("{:.1f} .. {:.1f}", low.dens, high.dens)});
    }
  }
  return {"critical", text_table({"quantity", "error", "T, K", "rho, kg/m3"}, rows), true};
}

Section derivatives_section(const std::span<const StateErrors> states) {
  struct Row {
    const char* name;
    Quantity quantity;
    const char* formula;
    double worst_given, worst_derived;
  };
  std::vector<std::vector<std::string>> rows;
  const struct {
    const char* name;
    double begin, end;
  } ranges[] = {{"T > 304.14 K", 304.14, temp_max},
                {"T < 304.12 K", temp_min, 304.12},
                {"304.12 K .. 304.14 K", 304.12, 304.14}};
  for (const auto& range : ranges) {
    Row row[] = {{"dp/drho", dpdd, "T dpdt^2 / (rho^2 (cp - cv))", 0.0, 0.0},
                 {"dh/dT", dhdt, "cv + dpdt / rho", 0.0, 0.0},
                 {"ds/dT", dsdt, "cv / T", 0.0, 0.0}};
    for (const StateErrors& state : states) {
      if (!state.stable || !lies_in(Place::box_near, state)) continue;
      if (state.temp < range.begin || state.temp > range.end) continue;
      std::int32_t ierr = 0;
      double heat_v, heat_p, slope;
      co2_td(state.temp, state.dens, ierr, {.cv = &heat_v, .cp = &heat_p, .dpdt = &slope});
      const auto ref = reference::properties<double>(state.temp, state.dens);
      const double derived[] = {
          state.temp * slope * slope / (state.dens * state.dens * (heat_p - heat_v)) / ref.dpdd,
          (heat_v + slope / state.dens) / ref.dhdt, heat_v / state.temp / ref.dsdt};
      for (std::size_t k = 0; k < std::size(row); ++k) {
        row[k].worst_given = std::max(row[k].worst_given, std::abs(state.error[row[k].quantity]));
        row[k].worst_derived = std::max(row[k].worst_derived, std::abs(derived[k] - 1.0));
      }
    }
    for (const Row& r : row) {
      rows.push_back(
          {range.name, r.name, number(r.worst_given), r.formula, number(r.worst_derived)});
    }
  }
  return {"derivatives", text_table({"within 0.2 K", "output", "worst", "instead", "worst"}, rows),
          true};
}

Section worst_section(const std::span<const StateErrors> states) {
  constexpr std::size_t cells_listed = 8;
  Section section{"worst", "", true};
  for (const Criterion& c : criteria) {
    const Summary s = summarize(c, states);
    section.text += fmt::format("{}, {} ({}), {} states\n", place_name(c.place),
                                quantity_names[c.quantity], unit(c.quantity), s.count);
    for (const StateErrors* state : s.worst_states) {
      section.text +=
          fmt::format("  {:10.2e}  {:14.8f} K {:14.8f} kg/m3  {}\n", state->error[c.quantity],
                      state->temp, state->dens, cell_name(c.quantity, state->temp, state->dens));
    }
    // States above a third of the worst are few: naming their cells is cheap.
    std::map<std::string, double> cells;
    for (const StateErrors& state : states) {
      if (!applies(c, state) || size_of(c, state) < s.worst / 3.0) continue;
      double& worst = cells[cell_name(c.quantity, state.temp, state.dens)];
      worst = std::max(worst, size_of(c, state));
    }
    std::vector<std::pair<double, std::string>> order;
    order.reserve(cells.size());
    for (const auto& [name, worst] : cells) order.emplace_back(worst, name);
    std::sort(order.rbegin(), order.rend());
    section.text += fmt::format("  {} cells reach a third of the worst:", order.size());
    for (std::size_t k = 0; k < std::min(cells_listed, order.size()); ++k) {
      section.text +=
          fmt::format("{} {} {:.1e}", k == 0 ? "" : ",", order[k].second, order[k].first);
    }
    section.text += "\n\n";
  }
  return section;
}

}  // namespace co2_properties::accuracy
