#pragma once
// The rectangles of the element table and the maps that find them.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "eos/temperature_bins.hpp"
#include "tablegen/tilings/cell_grid.hpp"

namespace co2_properties::tablegen {

/// A rectangle of the tiling; its index is its place in the list plus one.
struct ElementCell {
  Region region;
  double temp_lo, temp_hi;  ///< K
  double dens_lo, dens_hi;  ///< kg/m3
  double band_lo;           ///< lower temperature of the block that the element belongs to, K
  std::vector<std::array<double, 6>>
      given{};  ///< rows of the record that are known, from the first
};

/// Reads the text of tilings/elements.txt.
/// \throws std::invalid_argument for a line that is not understood, naming it
[[nodiscard]] std::vector<ElementCell> parse_element_tiling(std::string_view text);

/// The look-up grid of one region, temperature by density. Where the region has no element: the
/// temperature selects a band (clamped to the region), the density is clamped to the rows of that
/// band, and in the row so found the element nearest in temperature is taken. The critical density
/// separates elements one unit in the last place above the edge that they store.
[[nodiscard]] CellGrid element_grid(const std::vector<ElementCell>& cells, Region region);

}  // namespace co2_properties::tablegen
