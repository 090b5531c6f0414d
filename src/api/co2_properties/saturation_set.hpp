#pragma once
// The results at saturation, each of them optional.

#include "co2_properties/require_cpp20.hpp"

#include "co2_properties/derivative_set.hpp"
#include "co2_properties/output_set.hpp"

namespace co2_properties {

/// Where the results of a state of saturation go. In both phases `pres` is the pressure of
/// saturation, that of the vapour, and `qual` is 0 or 1; the other outputs and the derivatives are
/// those of `co2_td` at the temperature and the density of the phase.
struct SaturationSet {
  OutputSet liq = {};             ///< saturated liquid
  OutputSet vap = {};             ///< saturated vapour
  double* latent_heat = nullptr;  ///< enthalpy of vaporization, kJ/kg
  double* dpdt_sat = nullptr;     ///< slope dp/dT of the saturation line, kPa/K

  const DerivativeSet* liq_derivatives = nullptr;  ///< where those of the phases go, if anywhere
  const DerivativeSet* vap_derivatives = nullptr;  ///< those of the vapour
};

}  // namespace co2_properties
