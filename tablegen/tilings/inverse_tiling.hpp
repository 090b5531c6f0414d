#pragma once
// The rectangles of a start-value fit, as read from tablegen/tilings/{temp,dens}_from_{hp,sp}.txt.

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "solvers/inverse_cell.hpp"
#include "tablegen/tilings/cell_grid.hpp"

namespace co2_properties::tablegen {

using InverseCoefficients = std::array<std::array<double, inverse_terms>, inverse_terms>;

struct InverseTilingCell {
  Box box;       ///< x pressure, kPa; y enthalpy, kJ/kg, or entropy, kJ/(kg K)
  double pres0;  ///< origin of the polynomial
  double caloric0;
  int saturation_check;                      ///< 0 in the tilings of density
  std::optional<InverseCoefficients> given;  ///< coefficients that the fit must keep
};

/// The cells in file order; cell k of the file is cell k - 1 of the table.
using InverseTiling = std::vector<InverseTilingCell>;

/// Reads the text form, whose rules stand at the top of each file.
/// \throws std::invalid_argument with the line number if a line is not understood or a cell is out
/// of its order
[[nodiscard]] InverseTiling read_inverse_tiling(const std::string& text);

/// The map of a tiling; its values count the cells from 0.
/// \throws std::invalid_argument if the cells overlap or leave a gap
[[nodiscard]] CellGrid inverse_grid(const InverseTiling& tiling);

}  // namespace co2_properties::tablegen
