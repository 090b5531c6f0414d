#pragma once
// What liquid elements are asked for inside the dome.

#include <vector>

#include "tablegen/fit/element_basis.hpp"
#include "tablegen/fit/reach.hpp"

namespace co2_properties::tablegen {

/// Something asked of a fit: weight (form . derivatives) ~ weight value.
struct Target {
  StatePoint at;
  Form form;
  Real value;
  Real weight;
};

/// The tangent of the isotherm at saturated liquid, continued to the lower edge of an element next
/// to the critical point. The isotherm of the reference turns around right below saturation there:
/// Newton iterates that fall a little short of it would be thrown out of the liquid, those on the
/// tangent come back.
/// \param cell   element of the liquid
/// \param reach  its states in single phase
/// \return pressures and slopes; empty for elements that do not need them
[[nodiscard]] std::vector<Target> dome_tangent(const ElementCell& cell, const Reach& reach);

}  // namespace co2_properties::tablegen
