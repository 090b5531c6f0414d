#include "tablegen/tilings/element_tiling.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>
#include <stdexcept>

#include "reference/span_wagner.hpp"

namespace co2_properties::tablegen {
namespace {

Region parse_region(const std::string& word, const std::string& line) {
  if (word == "vapour") return Region::vapour;
  if (word == "liquid") return Region::liquid;
  if (word == "supercritical") return Region::supercritical;
  throw std::invalid_argument("element tiling: not understood: " + line);
}

/// Reads `element row : six coefficients` into the cell it belongs to.
void read_given(std::istringstream& words, const std::string& line,
                std::vector<ElementCell>& cells) {
  std::size_t index = 0;
  std::size_t row = 0;
  std::string colon;
  std::array<double, 6> coef{};
  bool good = words >> index >> row >> colon && colon == ":" && index >= 1 &&
              index <= cells.size() && row == cells[index - 1].given.size() && row < coef.size();
  for (double& c : coef) good = good && words >> c;
  if (!good || !(words >> std::ws).eof()) {
    throw std::invalid_argument("element tiling: not understood: " + line);
  }
  cells[index - 1].given.push_back(coef);
}

double edge_in_map(const double dens) {
  return dens == reference::d_crit ? std::nextafter(dens, 2.0 * dens) : dens;
}

double distance(const double value, const double lo, const double hi) {
  return std::max({lo - value, value - hi, 0.0});
}

/// A value inside an interval of the grid; the outermost intervals are clamped to their finite end.
double inside(const double lo, const double hi) {
  if (lo == -open_side) return hi - 1e-6;
  if (hi == open_side) return lo + 1e-6;
  return lo + (hi - lo) / 2.0;
}

/// The element that stands in where none covers the state.
std::uint16_t nearest(const std::vector<ElementCell>& cells, const Region region,
                      const Box& interval) {
  const double temp = inside(interval.x_lo, interval.x_hi);
  const double dens = inside(interval.y_lo, interval.y_hi);
  // Bands are ordered; the last one that starts at or below the temperature holds it.
  double band = std::numeric_limits<double>::infinity();
  for (const ElementCell& c : cells) {
    if (c.region == region) band = std::min(band, c.band_lo);
  }
  for (const ElementCell& c : cells) {
    if (c.region == region && c.band_lo <= temp) band = std::max(band, c.band_lo);
  }
  double best_dens = std::numeric_limits<double>::infinity();
  double best_temp = best_dens;
  std::size_t best = 0;
  for (std::size_t k = 0; k < cells.size(); ++k) {
    const ElementCell& c = cells[k];
    if (c.region != region || c.band_lo != band) continue;
    const double in_dens = distance(dens, c.dens_lo, c.dens_hi);
    const double in_temp = distance(temp, c.temp_lo, c.temp_hi);
    if (in_dens < best_dens || (in_dens == best_dens && in_temp < best_temp)) {
      best_dens = in_dens;
      best_temp = in_temp;
      best = k;
    }
  }
  return static_cast<std::uint16_t>(best + 1);
}

}  // namespace

std::vector<ElementCell> parse_element_tiling(const std::string_view text) {
  std::vector<ElementCell> cells;
  Region region = Region::vapour;
  double band_lo = 0.0;
  std::istringstream stream{std::string(text)};
  for (std::string line; std::getline(stream, line);) {
    if (line.empty() || line.front() == '#') continue;
    std::istringstream words(line);
    if (line.front() != ' ') {
      std::string name;
      double band_hi = 0.0;
      words >> name;
      if (name == "given") {
        read_given(words, line, cells);
        continue;
      }
      if (!(words >> band_lo >> band_hi)) {
        throw std::invalid_argument("element tiling: not understood: " + line);
      }
      region = parse_region(name, line);
      continue;
    }
    ElementCell cell{region, 0.0, 0.0, 0.0, 0.0, band_lo};
    std::string colon;
    if (!(words >> cell.dens_lo >> cell.dens_hi >> colon >> cell.temp_lo) || colon != ":") {
      throw std::invalid_argument("element tiling: not understood: " + line);
    }
    while (words >> cell.temp_hi) {
      cells.push_back(cell);
      cell.temp_lo = cell.temp_hi;
    }
  }
  return cells;
}

CellGrid element_grid(const std::vector<ElementCell>& cells, const Region region) {
  std::vector<Rectangle> rectangles;
  for (std::size_t k = 0; k < cells.size(); ++k) {
    const ElementCell& c = cells[k];
    if (c.region != region) continue;
    rectangles.push_back({{c.temp_lo, c.temp_hi, edge_in_map(c.dens_lo), edge_in_map(c.dens_hi)},
                          static_cast<std::uint16_t>(k + 1)});
  }
  return make_grid(rectangles,
                   [&](const Box& interval) { return nearest(cells, region, interval); });
}

}  // namespace co2_properties::tablegen
