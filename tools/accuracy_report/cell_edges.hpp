#pragma once
// The cells of all tables and the edges between them.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "cells/axis.hpp"
#include "co2_properties/limits.hpp"
#include "eos/element_locator.hpp"
#include "fits/near_critical.hpp"
#include "fits/patch.hpp"

namespace co2_properties::accuracy {

/// A tiling and the part of the plane that it serves, K and kg/m3.
struct TableCells {
  const char* name;
  const Tiling* tiling;
  double temp_lo, temp_hi;
  double dens_lo, dens_hi;

  [[nodiscard]] std::span<const double> temp_edges() const {
    return {tiling->x_edges, static_cast<std::size_t>(tiling->x_count)};
  }
  [[nodiscard]] std::span<const double> dens_edges() const {
    return {tiling->y_edges, static_cast<std::size_t>(tiling->y_count)};
  }
};

[[nodiscard]] constexpr TableCells near_critical_cells(const char* const name, const Tiling& tiling,
                                                       const CriticalBox& box) {
  return {name, &tiling, box.temp_lo, box.temp_hi, box.dens_lo, box.dens_hi};
}

inline constexpr TableCells all_tables[] = {
    {"vapour", &vapour_tiling, temp_min, t_crit, dens_min, d_crit},
    {"liquid", &liquid_tiling, temp_min, t_crit, d_crit, 1260.0},
    {"supercritical", &supercritical_tiling, t_crit, temp_max, dens_min, 1170.0},
    {"viscosity", &viscosity_tiling, temp_min, temp_max, dens_min, 1260.0},
    {"conductivity", &conductivity_tiling, temp_min, temp_max, dens_min, 1260.0},
    near_critical_cells("cp", cp_tiling, near_critical_box_for_cp),
    near_critical_cells("cv", cv_tiling, near_critical_box),
    near_critical_cells("w", sound_speed_tiling, near_critical_box),
};
inline constexpr const TableCells* element_tables = all_tables;
inline constexpr int element_table_count = 3;

enum class EdgeKind { temperature, density };  ///< what is constant along the edge

/// Interval k between edges, clipped to the part that a table serves; empty where lo is not below
/// hi.
struct Span {
  double lo, hi;
};
[[nodiscard]] inline Span interval_of(const std::span<const double> edges, const std::size_t k,
                                      const Span& served) {
  return {k == 0 ? served.lo : std::max(served.lo, edges[k - 1]),
          k == edges.size() ? served.hi : std::min(served.hi, edges[k])};
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
  const std::span<const double> x = table.temp_edges();
  const std::span<const double> y = table.dens_edges();
  const Span temps = {table.temp_lo, table.temp_hi};
  const Span denss = {table.dens_lo, table.dens_hi};
  const auto cell = [&](const std::size_t i, const std::size_t j) {
    return static_cast<std::int32_t>(table.tiling->cells[i * (y.size() + 1) + j]);
  };
  const auto is_inner = [](const double edge, const Span& served) {
    return edge > served.lo && edge < served.hi;
  };
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (!is_inner(x[i], temps)) continue;
    for (std::size_t j = 0; j <= y.size(); ++j) {
      if (cell(i, j) == cell(i + 1, j)) continue;
      walk(interval_of(y, j, denss), points, [&](const double dens) {
        visit(EdgeKind::temperature, x[i], dens, cell(i, j), cell(i + 1, j));
      });
    }
  }
  for (std::size_t j = 0; j < y.size(); ++j) {
    if (!is_inner(y[j], denss)) continue;
    for (std::size_t i = 0; i <= x.size(); ++i) {
      if (cell(i, j) == cell(i, j + 1)) continue;
      walk(interval_of(x, i, temps), points, [&](const double temp) {
        visit(EdgeKind::density, temp, y[j], cell(i, j), cell(i, j + 1));
      });
    }
  }
}

}  // namespace co2_properties::accuracy
