#pragma once
// The bounds of the saturation line.

#include <string>
#include <string_view>

#include "tablegen/emit/table.hpp"

namespace co2_properties::tablegen {

/// Checks that the linked elements are those of this text of eos/tables/elements.cpp.
/// \param table  what is made of them
/// \throws std::runtime_error if not: the file has changed since the program was built
void require_linked_elements(const std::string& table, const std::string& elements_source);

/// Digest that the bounds carry when they were made from this text of eos/tables/elements.cpp.
[[nodiscard]] std::string saturation_bounds_digest(std::string_view elements_source);

/// Entry of the registry: writes saturation/tables/saturation_bounds.cpp from the saturation line
/// of the linked library. \throws std::runtime_error if eos/tables/elements.cpp has changed since
/// the program was built
[[nodiscard]] Table saturation_bounds_table();

}  // namespace co2_properties::tablegen
