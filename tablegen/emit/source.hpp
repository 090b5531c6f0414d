#pragma once
// Pieces of text that all generated sources share.

#include <string>
#include <vector>

#include "tablegen/tilings/cell_grid.hpp"

namespace co2_properties::tablegen {

/// What the comment at the top of a generated source says.
struct Provenance {
  std::string table;  ///< command-line name
  std::vector<std::string>
      content;            ///< lines: what the data is, units, where its record is declared
  std::string fitted_to;  ///< papers
  std::string tiling;     ///< input file, from the root of the repository; may be empty
  std::string digest;     ///< of the inputs
  std::vector<std::string> errors;  ///< lines: worst fit errors and where
};

/// A comment with the provenance and a digest of the body, then the body.
[[nodiscard]] std::string generated_source(const Provenance& provenance, const std::string& body);

/// Whether the body of a generated source is the one that its digest was made of.
[[nodiscard]] bool has_own_body(const std::string& source);

/// `items` separated by commas, broken so that no line is longer than 100 columns and indented by
/// two; ends with a line break.
[[nodiscard]] std::string wrapped_list(const std::vector<std::string>& items);

/// `constexpr <type> <name>[] = {...};` with the items as they stand.
[[nodiscard]] std::string array_definition(const std::string& type, const std::string& name,
                                           const std::vector<std::string>& items);

/// "240.0 to 247.0", "below 15.0" or "from 60.0".
[[nodiscard]] std::string range_text(double lo, double hi);

/// Definitions of `<name>_x_edges`, `<name>_y_edges` and `<name>_cells`, for an unnamed namespace,
/// the last with one row of the grid (one interval of x) after the other.
[[nodiscard]] std::string grid_arrays(const std::string& name, const CellGrid& grid);

/// Definition of the Tiling `<name>_tiling` on the arrays of `grid_arrays`.
[[nodiscard]] std::string tiling_definition(const std::string& name, const CellGrid& grid);

}  // namespace co2_properties::tablegen
