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
  double* OutputSet::*output = nullptr;
  double* DerivativeSet::*derivative = nullptr;
  double* SaturationSet::*line = nullptr;  ///< of the saturation line, not of a phase
};

inline constexpr std::size_t property_count =
    (sizeof(OutputSet) + sizeof(DerivativeSet)) / sizeof(double*) + 2;

/// In the order of the sets, which is also the order of the columns that are written.
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
    // derivatives: begin, written by scripts/generate_outputs
    {"dpdd_u", "kPa m3/kg", "dp/drho at constant internal energy", nullptr, &DerivativeSet::dpdd_u},
    {"dpdu_d", "kPa kg/kJ", "dp/du at constant density", nullptr, &DerivativeSet::dpdu_d},
    {"dtdd_u", "K m3/kg", "dT/drho at constant internal energy", nullptr, &DerivativeSet::dtdd_u},
    {"dtdu_d", "K kg/kJ", "dT/du at constant density", nullptr, &DerivativeSet::dtdu_d},
    {"dddp_h", "kg/(m3 kPa)", "drho/dp at constant enthalpy", nullptr, &DerivativeSet::dddp_h},
    {"dddh_p", "kg2/(m3 kJ)", "drho/dh at constant pressure", nullptr, &DerivativeSet::dddh_p},
    {"dtdp_h", "K/kPa", "dT/dp at constant enthalpy, the Joule-Thomson coefficient", nullptr,
     &DerivativeSet::dtdp_h},
    {"dtdh_p", "K kg/kJ", "dT/dh at constant pressure", nullptr, &DerivativeSet::dtdh_p},
    {"dddp_s", "kg/(m3 kPa)", "drho/dp at constant entropy", nullptr, &DerivativeSet::dddp_s},
    {"dtdp_s", "K/kPa", "dT/dp at constant entropy", nullptr, &DerivativeSet::dtdp_s},
    {"dhdd_p", "kJ m3/kg2", "dh/drho at constant pressure", nullptr, &DerivativeSet::dhdd_p},
    {"dhdp_d", "kJ/(kg kPa)", "dh/dp at constant density", nullptr, &DerivativeSet::dhdp_d},
    {"dsdd_p", "kJ m3/(kg2 K)", "ds/drho at constant pressure", nullptr, &DerivativeSet::dsdd_p},
    {"dsdp_d", "kJ/(kg K kPa)", "ds/dp at constant density", nullptr, &DerivativeSet::dsdp_d},
    {"dpdd_t", "kPa m3/kg", "dp/drho at constant temperature", nullptr, &DerivativeSet::dpdd_t},
    {"dpdt_d", "kPa/K", "dp/dT at constant density", nullptr, &DerivativeSet::dpdt_d},
    {"cv_eq", "kJ/(kg K)", "isochoric heat capacity", nullptr, &DerivativeSet::cv_eq},
    {"ssnd_eq", "m/s", "speed of sound", nullptr, &DerivativeSet::ssnd_eq},
    {"compr_s", "1/kPa", "isentropic compressibility", nullptr, &DerivativeSet::compr_s},
    {"compr_t", "1/kPa", "isothermal compressibility", nullptr, &DerivativeSet::compr_t},
    {"expan_p", "1/K", "isobaric expansion", nullptr, &DerivativeSet::expan_p},
    {"fundam", "-", "fundamental derivative of gas dynamics", nullptr, &DerivativeSet::fundam},
    {"dssnddd_t", "m4/(kg s)", "dssnd/drho at constant temperature", nullptr,
     &DerivativeSet::dssnddd_t},
    {"dssnddt_d", "m/(s K)", "dssnd/dT at constant density", nullptr, &DerivativeSet::dssnddt_d},
    {"dviscdd_t", "uPa s m3/kg", "dvisc/drho at constant temperature", nullptr,
     &DerivativeSet::dviscdd_t},
    {"dviscdt_d", "uPa s/K", "dvisc/dT at constant density", nullptr, &DerivativeSet::dviscdt_d},
    {"dconddd_t", "W m2/(kg K)", "dcond/drho at constant temperature", nullptr,
     &DerivativeSet::dconddd_t},
    {"dconddt_d", "W/(m K2)", "dcond/dT at constant density", nullptr, &DerivativeSet::dconddt_d},
    {"dqualdd_t", "m3/kg", "dqual/drho at constant temperature", nullptr,
     &DerivativeSet::dqualdd_t},
    {"dqualdt_d", "1/K", "dqual/dT at constant density", nullptr, &DerivativeSet::dqualdt_d},
    // derivatives: end
    {"latent_heat", "kJ/kg", "enthalpy of vaporization", {}, {}, &SaturationSet::latent_heat},
    {"dpdt_sat", "kPa/K", "slope dp/dT of the saturation line", {}, {}, &SaturationSet::dpdt_sat},
}};

/// Index of the property called `name`; `property_count` if there is none.
[[nodiscard]] constexpr std::size_t find_property(const std::string_view name) noexcept {
  std::size_t i = 0;
  while (i < property_count && properties[i].name != name) ++i;
  return i;
}

}  // namespace co2_properties::tool
