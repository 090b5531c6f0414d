#pragma once
// The index that finds the curves around a state in the (T, p) plane.

#include <cstdint>
#include <vector>

#include "eos/pressure_locator.hpp"
#include "tablegen/fit/tp_curves.hpp"

namespace co2_properties::tablegen {

/// Index of one interval of temperature.
struct TpIndex {
  Shear shear;
  std::vector<std::uint16_t> entries;  ///< one per sheared bin
};

/// The indices of all intervals of a region.
[[nodiscard]] std::vector<TpIndex> index_tp_region(const TpRegion& table);

}  // namespace co2_properties::tablegen
