#pragma once
// The cells of all tables and the edges between them.

#include <algorithm>
#include <cstdint>

#include "cells/cell_map.hpp"
#include "co2_properties/limits.hpp"
#include "eos/locate_td.hpp"
#include "fits/near_critical.hpp"
#include "fits/patch.hpp"

namespace co2_properties::accuracy {

/// A map and the part of the plane that it serves, K and kg/m3.
struct TableCells {
  const char* name;
  const CellMap* map;
  double temp_lo, temp_hi;
  double dens_lo, dens_hi;
};

[[nodiscard]] constexpr TableCells near_critical_cells(const char* const name, const PatchFit& fit,
                                                       const CriticalBox& box) {
  return {name, &fit.map, box.temp_lo, box.temp_hi, box.dens_lo, box.dens_hi};
}

inline constexpr TableCells all_tables[] = {
    {"vapour", &vapour_map, temp_min, t_crit, dens_min, d_crit},
    {"liquid", &liquid_map, temp_min, t_crit, d_crit, 1260.0},
    {"supercritical", &supercritical_map, t_crit, temp_max, dens_min, 1170.0},
    {"viscosity", &viscosity_fit.map, temp_min, temp_max, dens_min, 1260.0},
    {"conductivity", &conductivity_fit.map, temp_min, temp_max, dens_min, 1260.0},
    near_critical_cells("cp", cp_fit, near_critical_box_for_cp),
    near_critical_cells("cv", cv_fit, near_critical_box),
    near_critical_cells("w", sound_speed_fit, near_critical_box),
};
inline constexpr const TableCells* element_tables = all_tables;
inline constexpr int element_table_count = 3;

enum class EdgeKind { temperature, density };  ///< what is constant along the edge

/// Interval k of an axis, clipped to the part that a table serves; empty where lo is not below hi.
struct Span {
  double lo, hi;
};
[[nodiscard]] inline Span interval_of(const Axis& axis, const std::int32_t k, const Span& served) {
  return {k == 0 ? served.lo : std::max(served.lo, axis.edges[k - 1]),
          k == axis.count ? served.hi : std::min(served.hi, axis.edges[k])};
}

/// Calls `at` with equidistant points of a span, both ends included.
template <class At>
void walk(const Span& span, const int points, const At& at) {
  if (!(span.lo < span.hi)) return;
  for (int n = 0; n < points; ++n) at(span.lo + (span.hi - span.lo) * n / (points - 1));
}

/// Points on the edges between different cells of a table, ends included.
/// \param points  on each piece of an edge
/// \param visit   called with (kind, temp, dens, cell below, cell above)
template <class Visit>
void for_each_edge_point(const TableCells& table, const int points, const Visit& visit) {
  const Axis& x = table.map->x;
  const Axis& y = table.map->y;
  const Span temps = {table.temp_lo, table.temp_hi};
  const Span denss = {table.dens_lo, table.dens_hi};
  const auto cell = [&](const std::int32_t i, const std::int32_t j) {
    return static_cast<std::int32_t>(table.map->cell[i * (y.count + 1) + j]);
  };
  const auto is_inner = [](const double edge, const Span& served) {
    return edge > served.lo && edge < served.hi;
  };
  for (std::int32_t i = 0; i < x.count; ++i) {
    if (!is_inner(x.edges[i], temps)) continue;
    for (std::int32_t j = 0; j <= y.count; ++j) {
      if (cell(i, j) == cell(i + 1, j)) continue;
      walk(interval_of(y, j, denss), points, [&](const double dens) {
        visit(EdgeKind::temperature, x.edges[i], dens, cell(i, j), cell(i + 1, j));
      });
    }
  }
  for (std::int32_t j = 0; j < y.count; ++j) {
    if (!is_inner(y.edges[j], denss)) continue;
    for (std::int32_t i = 0; i <= x.count; ++i) {
      if (cell(i, j) == cell(i, j + 1)) continue;
      walk(interval_of(x, i, temps), points, [&](const double temp) {
        visit(EdgeKind::density, temp, y.edges[j], cell(i, j), cell(i, j + 1));
      });
    }
  }
}

}  // namespace co2_properties::accuracy
