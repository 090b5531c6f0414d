#pragma once
// The common maps of the start values of temperature and density.

#include <string>

#include "tablegen/emit/table.hpp"

namespace co2_properties::tablegen {

/// Digest that the maps carry when they were made from the tilings of the four start-value fits.
[[nodiscard]] std::string start_maps_digest();

/// Entry of the registry: writes solvers/tables/start_maps.cpp.
[[nodiscard]] Table start_maps_table();

}  // namespace co2_properties::tablegen
