#pragma once
// Everything that a call can give for a state: the outputs, then the derivatives, in the order of
// the library's sets.

#include <cstddef>

#include "co2_properties.hpp"

namespace co2_properties::python {

struct Quantity {
  const char* name;
  const char* unit;
  const char* meaning;
  bool zero_is_none;  ///< a zero says that there is no value, as in two phases; none other occurs
};

inline constexpr Quantity quantities[] = {
    // outputs: begin, written by scripts/generate_outputs
    {"temp", "K", "temperature", false},
    {"pres", "kPa", "pressure", false},
    {"dens", "kg/m3", "density", false},
    {"svol", "m3/kg", "specific volume", false},
    {"qual", "-", "vapour mass fraction (998, 999: supercritical)", false},
    {"inte", "kJ/kg", "specific internal energy", false},
    {"enth", "kJ/kg", "specific enthalpy", false},
    {"entr", "kJ/(kg K)", "specific entropy", false},
    {"cv", "kJ/(kg K)", "isochoric heat capacity", true},
    {"cp", "kJ/(kg K)", "isobaric heat capacity", true},
    {"ssnd", "m/s", "speed of sound", true},
    {"visc", "uPa s", "viscosity", true},
    {"cond", "W/(m K)", "thermal conductivity", true},
    {"dpdd", "kPa m3/kg", "dp/drho at constant temperature", true},
    {"dpdt", "kPa/K", "dp/dT at constant density", true},
    {"dhdd", "kJ m3/kg2", "dh/drho at constant temperature", true},
    {"dhdt", "kJ/(kg K)", "dh/dT at constant density", true},
    {"dsdd", "kJ m3/(kg2 K)", "ds/drho at constant temperature", true},
    {"dsdt", "kJ/(kg K2)", "ds/dT at constant density", true},
    // outputs: end
    // derivatives: begin, written by scripts/generate_outputs
    {"dpdd_u", "kPa m3/kg", "dp/drho at constant internal energy", false},
    {"dpdu_d", "kPa kg/kJ", "dp/du at constant density", false},
    {"dtdd_u", "K m3/kg", "dT/drho at constant internal energy", false},
    {"dtdu_d", "K kg/kJ", "dT/du at constant density", false},
    {"dddp_h", "kg/(m3 kPa)", "drho/dp at constant enthalpy", false},
    {"dddh_p", "kg2/(m3 kJ)", "drho/dh at constant pressure", false},
    {"dtdp_h", "K/kPa", "dT/dp at constant enthalpy, the Joule-Thomson coefficient", false},
    {"dtdh_p", "K kg/kJ", "dT/dh at constant pressure", false},
    {"dddp_s", "kg/(m3 kPa)", "drho/dp at constant entropy", false},
    {"dtdp_s", "K/kPa", "dT/dp at constant entropy", false},
    {"dhdd_p", "kJ m3/kg2", "dh/drho at constant pressure", false},
    {"dhdp_d", "kJ/(kg kPa)", "dh/dp at constant density", false},
    {"dsdd_p", "kJ m3/(kg2 K)", "ds/drho at constant pressure", false},
    {"dsdp_d", "kJ/(kg K kPa)", "ds/dp at constant density", false},
    {"dpdd_t", "kPa m3/kg", "dp/drho at constant temperature", false},
    {"dpdt_d", "kPa/K", "dp/dT at constant density", false},
    {"cv_eq", "kJ/(kg K)", "isochoric heat capacity", false},
    {"ssnd_eq", "m/s", "speed of sound", false},
    {"compr_s", "1/kPa", "isentropic compressibility", false},
    {"compr_t", "1/kPa", "isothermal compressibility", true},
    {"expan_p", "1/K", "isobaric expansion", true},
    {"fundam", "-", "fundamental derivative of gas dynamics", false},
    {"dssnddd_t", "m4/(kg s)", "dssnd/drho at constant temperature", true},
    {"dssnddt_d", "m/(s K)", "dssnd/dT at constant density", true},
    {"dviscdd_t", "uPa s m3/kg", "dvisc/drho at constant temperature", true},
    {"dviscdt_d", "uPa s/K", "dvisc/dT at constant density", true},
    {"dconddd_t", "W m2/(kg K)", "dcond/drho at constant temperature", true},
    {"dconddt_d", "W/(m K2)", "dcond/dT at constant density", true},
    {"dqualdd_t", "m3/kg", "dqual/drho at constant temperature", true},
    {"dqualdt_d", "1/K", "dqual/dT at constant density", true},
    // derivatives: end
};

inline constexpr std::size_t output_count = sizeof(OutputSet) / sizeof(double*);
inline constexpr std::size_t derivative_count = sizeof(DerivativeSet) / sizeof(double*);
inline constexpr std::size_t quantity_count = output_count + derivative_count;
static_assert(sizeof quantities / sizeof *quantities == quantity_count);

}  // namespace co2_properties::python
