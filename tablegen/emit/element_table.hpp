#pragma once
// The element table.

#include "tablegen/emit/table.hpp"

namespace co2_properties::tablegen {

/// Entry of the registry: writes eos/tables/elements.cpp.
[[nodiscard]] Table elements_table();

}  // namespace co2_properties::tablegen
