#pragma once
// Names, units and meanings of the quantities that the command line reads and writes.

#include <array>
#include <cstddef>
#include <string_view>

#include "co2_properties/saturation_set.hpp"

namespace co2_properties::tool {

/// A quantity, and which member of one of three sets takes the address of its value.
struct Property {
  std::string_view name;
  std::string_view unit;
  std::string_view meaning;
  bool zero_is_none = false;  ///< a zero says that the state has no such value: mixtures lack many
  double* OutputSet::*output = nullptr;
  double* DerivativeSet::*derivative = nullptr;
  double* SaturationSet::*line = nullptr;  ///< of the saturation line, not of a phase
};

inline constexpr std::size_t property_count =
    (sizeof(OutputSet) + sizeof(DerivativeSet)) / sizeof(double*) + 2;

/// In the order of the sets, which is also the order of the columns that are written.
inline constexpr std::array<Property, property_count> properties = {{
    // outputs: begin, written by scripts/generate_outputs
    {"temp", "K", "temperature", false, &OutputSet::temp},
    {"pres", "kPa", "pressure", false, &OutputSet::pres},
    {"dens", "kg/m3", "density", false, &OutputSet::dens},
    {"svol", "m3/kg", "specific volume", false, &OutputSet::svol},
    {"qual", "-", "vapour mass fraction (998, 999: supercritical)", false, &OutputSet::qual},
    {"inte", "kJ/kg", "specific internal energy", false, &OutputSet::inte},
    {"enth", "kJ/kg", "specific enthalpy", false, &OutputSet::enth},
    {"entr", "kJ/(kg K)", "specific entropy", false, &OutputSet::entr},
    {"cv", "kJ/(kg K)", "isochoric heat capacity", true, &OutputSet::cv},
    {"cp", "kJ/(kg K)", "isobaric heat capacity", true, &OutputSet::cp},
    {"ssnd", "m/s", "speed of sound", true, &OutputSet::ssnd},
    {"visc", "uPa s", "viscosity", true, &OutputSet::visc},
    {"cond", "W/(m K)", "thermal conductivity", true, &OutputSet::cond},
    {"dpdd", "kPa m3/kg", "dp/drho at constant temperature", true, &OutputSet::dpdd},
    {"dpdt", "kPa/K", "dp/dT at constant density", true, &OutputSet::dpdt},
    {"dhdd", "kJ m3/kg2", "dh/drho at constant temperature", true, &OutputSet::dhdd},
    {"dhdt", "kJ/(kg K)", "dh/dT at constant density", true, &OutputSet::dhdt},
    {"dsdd", "kJ m3/(kg2 K)", "ds/drho at constant temperature", true, &OutputSet::dsdd},
    {"dsdt", "kJ/(kg K2)", "ds/dT at constant density", true, &OutputSet::dsdt},
    // outputs: end
    // derivatives: begin, written by scripts/generate_outputs
    {"dpdd_u", "kPa m3/kg", "dp/drho at constant internal energy", false, nullptr,
     &DerivativeSet::dpdd_u},
    {"dpdu_d", "kPa kg/kJ", "dp/du at constant density", false, nullptr, &DerivativeSet::dpdu_d},
    {"dtdd_u", "K m3/kg", "dT/drho at constant internal energy", false, nullptr,
     &DerivativeSet::dtdd_u},
    {"dtdu_d", "K kg/kJ", "dT/du at constant density", false, nullptr, &DerivativeSet::dtdu_d},
    {"dddp_h", "kg/(m3 kPa)", "drho/dp at constant enthalpy", false, nullptr,
     &DerivativeSet::dddp_h},
    {"dddh_p", "kg2/(m3 kJ)", "drho/dh at constant pressure", false, nullptr,
     &DerivativeSet::dddh_p},
    {"dtdp_h", "K/kPa", "dT/dp at constant enthalpy, the Joule-Thomson coefficient", false, nullptr,
     &DerivativeSet::dtdp_h},
    {"dtdh_p", "K kg/kJ", "dT/dh at constant pressure", false, nullptr, &DerivativeSet::dtdh_p},
    {"dddp_s", "kg/(m3 kPa)", "drho/dp at constant entropy", false, nullptr,
     &DerivativeSet::dddp_s},
    {"dtdp_s", "K/kPa", "dT/dp at constant entropy", false, nullptr, &DerivativeSet::dtdp_s},
    {"dhdd_p", "kJ m3/kg2", "dh/drho at constant pressure", false, nullptr, &DerivativeSet::dhdd_p},
    {"dhdp_d", "kJ/(kg kPa)", "dh/dp at constant density", false, nullptr, &DerivativeSet::dhdp_d},
    {"dsdd_p", "kJ m3/(kg2 K)", "ds/drho at constant pressure", false, nullptr,
     &DerivativeSet::dsdd_p},
    {"dsdp_d", "kJ/(kg K kPa)", "ds/dp at constant density", false, nullptr,
     &DerivativeSet::dsdp_d},
    {"dpdd_t", "kPa m3/kg", "dp/drho at constant temperature", false, nullptr,
     &DerivativeSet::dpdd_t},
    {"dpdt_d", "kPa/K", "dp/dT at constant density", false, nullptr, &DerivativeSet::dpdt_d},
    {"cv_eq", "kJ/(kg K)", "isochoric heat capacity", false, nullptr, &DerivativeSet::cv_eq},
    {"ssnd_eq", "m/s", "speed of sound", false, nullptr, &DerivativeSet::ssnd_eq},
    {"compr_s", "1/kPa", "isentropic compressibility", false, nullptr, &DerivativeSet::compr_s},
    {"compr_t", "1/kPa", "isothermal compressibility", true, nullptr, &DerivativeSet::compr_t},
    {"expan_p", "1/K", "isobaric expansion", true, nullptr, &DerivativeSet::expan_p},
    {"fundam", "-", "fundamental derivative of gas dynamics", false, nullptr,
     &DerivativeSet::fundam},
    {"dssnddd_t", "m4/(kg s)", "dssnd/drho at constant temperature", true, nullptr,
     &DerivativeSet::dssnddd_t},
    {"dssnddt_d", "m/(s K)", "dssnd/dT at constant density", true, nullptr,
     &DerivativeSet::dssnddt_d},
    {"dviscdd_t", "uPa s m3/kg", "dvisc/drho at constant temperature", true, nullptr,
     &DerivativeSet::dviscdd_t},
    {"dviscdt_d", "uPa s/K", "dvisc/dT at constant density", true, nullptr,
     &DerivativeSet::dviscdt_d},
    {"dconddd_t", "W m2/(kg K)", "dcond/drho at constant temperature", true, nullptr,
     &DerivativeSet::dconddd_t},
    {"dconddt_d", "W/(m K2)", "dcond/dT at constant density", true, nullptr,
     &DerivativeSet::dconddt_d},
    {"dqualdd_t", "m3/kg", "dqual/drho at constant temperature", true, nullptr,
     &DerivativeSet::dqualdd_t},
    {"dqualdt_d", "1/K", "dqual/dT at constant density", true, nullptr, &DerivativeSet::dqualdt_d},
    // derivatives: end
    {"latent_heat",
     "kJ/kg",
     "enthalpy of vaporization",
     false,
     {},
     {},
     &SaturationSet::latent_heat},
    {"dpdt_sat",
     "kPa/K",
     "slope dp/dT of the saturation line",
     false,
     {},
     {},
     &SaturationSet::dpdt_sat},
}};

/// Whether the state has no such value.
[[nodiscard]] constexpr bool is_missing(const Property& property, const double value) noexcept {
  return value == 0.0 && property.zero_is_none;
}

/// Index of the property called `name`; `property_count` if there is none.
[[nodiscard]] constexpr std::size_t find_property(const std::string_view name) noexcept {
  std::size_t i = 0;
  while (i < property_count && properties[i].name != name) ++i;
  return i;
}

}  // namespace co2_properties::tool
