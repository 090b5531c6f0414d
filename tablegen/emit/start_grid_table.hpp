#pragma once
// The tables of start values on grids of squares.

#include <string>
#include <string_view>
#include <vector>

#include "tablegen/emit/table.hpp"

namespace co2_properties::tablegen {

/// Digest that they carry when they were made from this text of eos/tables/elements.cpp.
[[nodiscard]] std::string start_grid_digest(std::string_view elements_source);

/// Entries of the registry: write solvers/tables/start_from_*.cpp from the elements and the
/// saturation line of the linked library.
/// \throws std::runtime_error if eos/tables/elements.cpp has changed since the program was built
[[nodiscard]] std::vector<Table> start_grid_tables();

}  // namespace co2_properties::tablegen
