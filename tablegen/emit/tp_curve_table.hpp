#pragma once
// The table of the curves that separate elements in the (T, p) plane.

#include <string>
#include <string_view>

#include "tablegen/emit/table.hpp"

namespace co2_properties::tablegen {

/// Digest that the curves carry when they were made from this text of eos/tables/elements.cpp.
[[nodiscard]] std::string tp_curves_digest(std::string_view elements_source);

/// Entry of the registry: writes eos/tables/tp_curves.cpp. It reads the element table from
/// eos/tables/elements.cpp, not from the linked library, so that it follows a table that the same
/// run of the program has written.
[[nodiscard]] Table tp_curves_table();

}  // namespace co2_properties::tablegen
