#pragma once

#include "tablegen/emit/table.hpp"

namespace co2_properties::tablegen {

/// The numbers of the library's natural logarithm.
[[nodiscard]] Table logarithm_table_entry();

}  // namespace co2_properties::tablegen
