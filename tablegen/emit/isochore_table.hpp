#pragma once
// The start values of entries with density, and the nodes of the saturation line.

#include <string>
#include <string_view>

#include "tablegen/emit/table.hpp"

namespace co2_properties::tablegen {

/// Digests that the two tables carry when they were made from this text of eos/tables/elements.cpp.
[[nodiscard]] std::string isochores_digest(std::string_view elements_source);
[[nodiscard]] std::string saturated_nodes_digest(std::string_view elements_source);

/// Entries of the registry: write solvers/tables/isochores.cpp and solvers/tables/
/// saturated_nodes.cpp from the elements and the saturation line of the linked library.
/// \throws std::runtime_error if eos/tables/elements.cpp has changed since the program was built
[[nodiscard]] Table isochores_table();
[[nodiscard]] Table saturated_nodes_table();

}  // namespace co2_properties::tablegen
