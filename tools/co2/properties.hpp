#pragma once
// Names, units and meanings of the quantities that the command line reads and writes.

#include <array>
#include <cstddef>
#include <string_view>

#include "co2_properties/output_set.hpp"

namespace co2_properties::tool {

/// One of the nineteen results of a state.
struct Property {
  std::string_view name;
  std::string_view unit;
  std::string_view meaning;
  double* OutputSet::*slot;  ///< where an `OutputSet` takes the address of the result
};

inline constexpr std::size_t property_count = 19;

/// In the order of `OutputSet`, which is also the order of the columns that are written.
inline constexpr std::array<Property, property_count> properties = {{
    // outputs: begin, written by scripts/generate_outputs
    {"temp", "K", "temperature", &OutputSet::temp},
    {"pres", "kPa", "pressure", &OutputSet::pres},
    {"dens", "kg/m3", "density", &OutputSet::dens},
    {"svol", "m3/kg", "specific volume", &OutputSet::svol},
    {"qual", "-", "vapour mass fraction (998, 999: supercritical)", &OutputSet::qual},
    {"inte", "kJ/kg", "specific internal energy", &OutputSet::inte},
    {"enth", "kJ/kg", "specific enthalpy", &OutputSet::enth},
    {"entr", "kJ/(kg K)", "specific entropy", &OutputSet::entr},
    {"cv", "kJ/(kg K)", "isochoric heat capacity", &OutputSet::cv},
    {"cp", "kJ/(kg K)", "isobaric heat capacity", &OutputSet::cp},
    {"ssnd", "m/s", "speed of sound", &OutputSet::ssnd},
    {"visc", "uPa s", "viscosity", &OutputSet::visc},
    {"cond", "W/(m K)", "thermal conductivity", &OutputSet::cond},
    {"dpdd", "kPa m3/kg", "dp/drho at constant temperature", &OutputSet::dpdd},
    {"dpdt", "kPa/K", "dp/dT at constant density", &OutputSet::dpdt},
    {"dhdd", "kJ m3/kg2", "dh/drho at constant temperature", &OutputSet::dhdd},
    {"dhdt", "kJ/(kg K)", "dh/dT at constant density", &OutputSet::dhdt},
    {"dsdd", "kJ m3/(kg2 K)", "ds/drho at constant temperature", &OutputSet::dsdd},
    {"dsdt", "kJ/(kg K2)", "ds/dT at constant density", &OutputSet::dsdt},
    // outputs: end
}};

/// Index of the property called `name`; `property_count` if there is none.
[[nodiscard]] constexpr std::size_t find_property(const std::string_view name) noexcept {
  std::size_t i = 0;
  while (i < property_count && properties[i].name != name) ++i;
  return i;
}

}  // namespace co2_properties::tool
