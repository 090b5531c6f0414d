#include "tablegen/emit/start_map_table.hpp"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>
#include <vector>

#include "tablegen/emit/number.hpp"
#include "tablegen/emit/source.hpp"
#include "tablegen/tilings/cell_grid.hpp"
#include "tablegen/tilings/inverse_tiling.hpp"
#include "tablegen/tilings/text_reader.hpp"

namespace co2_properties::tablegen {
namespace {

/// Part of the input digest: raise it when the maps change without the tilings.
constexpr const char* version = "start_maps 1";

/// Two tilings of the same plane laid on one grid; its values count the pairs of their cells.
struct CommonGrid {
  CellGrid grid;
  std::vector<std::pair<std::uint16_t, std::uint16_t>> pairs;
};

std::vector<double> merged(const std::vector<double>& a, const std::vector<double>& b) {
  std::vector<double> all;
  std::set_union(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(all));
  return all;
}

/// The cell that holds an interval, by its lower sides.
std::uint16_t cell_at(const CellGrid& grid, const Box& interval) {
  const auto place = [](const std::vector<double>& edges, const double lower) {
    return static_cast<std::size_t>(std::upper_bound(edges.begin(), edges.end(), lower) -
                                    edges.begin());
  };
  return grid
      .cell[place(grid.x, interval.x_lo) * (grid.y.size() + 1) + place(grid.y, interval.y_lo)];
}

CommonGrid common_grid(const CellGrid& first, const CellGrid& second) {
  CommonGrid common{{merged(first.x, second.x), merged(first.y, second.y), {}}, {}};
  std::map<std::pair<std::uint16_t, std::uint16_t>, std::uint16_t> known;
  for (std::size_t i = 0; i <= common.grid.x.size(); ++i) {
    for (std::size_t j = 0; j <= common.grid.y.size(); ++j) {
      const Box interval = common.grid.interval(i, j);
      const std::pair pair = {cell_at(first, interval), cell_at(second, interval)};
      const auto next = static_cast<std::uint16_t>(common.pairs.size());
      const auto [entry, is_new] = known.emplace(pair, next);
      if (is_new) common.pairs.push_back(pair);
      common.grid.cell.push_back(entry->second);
    }
  }
  return common;
}

std::string tiling_of(const std::string& table) { return tiling_text(table + ".txt"); }

std::string map_text(const std::string& from) {
  const std::string name = "start_from_" + from;
  const auto grid = [&](const std::string& estimate) {
    return inverse_grid(read_inverse_tiling(tiling_of(estimate + "_from_" + from)));
  };
  const CommonGrid common = common_grid(grid("temp"), grid("dens"));
  std::vector<std::string> pairs;
  for (const auto& [temp, dens] : common.pairs) {
    pairs.push_back("{" + std::to_string(temp) + ", " + std::to_string(dens) + "}");
  }
  return "namespace {\n\n" + grid_arrays(name, common.grid) +
         array_definition("StartCells", name + "_pairs", pairs) + "\n}  // namespace\n\n" +
         tiling_definition(name, common.grid) + "static constexpr StartMap " + name + "_map(" +
         name + "_tiling);\nconstexpr StartFit " + name + "_fit = {&" + name + "_map, " + name +
         "_pairs, temp_from_" + from + "_records, dens_from_" + from + "_records};\n\n";
}

Generated generate() {
  const std::string text =
      "\n#include \"solvers/inverse_cell.hpp\"\n\nnamespace co2_properties {\n\n" + map_text("hp") +
      map_text("sp") + "}  // namespace co2_properties\n";
  const Provenance provenance = {
      "start_maps",
      {"Cells of the start values of temperature and density by one look-up over p (kPa) and h",
       "(kJ/kg) or s (kJ/(kg K)): src/solvers/inverse_cell.hpp."},
      "the tilings tablegen/tilings/{temp,dens}_from_{hp,sp}.txt.",
      "",
      start_maps_digest(),
      {}};
  return {generated_source(provenance, text), "", "laid on common grids"};
}

}  // namespace

std::string start_maps_digest() {
  return text_digest({version, tiling_of("temp_from_hp"), tiling_of("dens_from_hp"),
                      tiling_of("temp_from_sp"), tiling_of("dens_from_sp")});
}

Table start_maps_table() { return {"start_maps", "solvers/tables/start_maps.cpp", generate}; }

}  // namespace co2_properties::tablegen
