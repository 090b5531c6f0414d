#pragma once
// The results at saturation, each of them optional.

#include "co2_properties/require_cpp20.hpp"

#include "co2_properties/derivative_set.hpp"
#include "co2_properties/output_set.hpp"

namespace co2_properties {

/// Where the results of a state of saturation go. In both phases `pres` is the pressure of
/// saturation, that of the vapour, and `qual` is 0 or 1; the other outputs and the derivatives are
/// those of `co2_td` at the temperature and the density of the phase.
///
/// At the critical temperature, 304.1282 K, both phases have the critical density and the heat of
/// vaporization is +0.0. The outputs of each phase are those of the element of its region: energies
/// differ by 2e-3 kJ/kg, entropies by 6e-6 kJ/(kg K), from each other and from `co2_td`, which has
/// the supercritical element there; `dpdd`, `dhdt` and `dsdt` are of no use in any of the three.
/// cv, cp, ssnd, visc, cond and the derivatives in sets are those of `co2_td`. The slope is that of
/// the critical isochore.
struct SaturationSet {
  OutputSet liq = {};             ///< saturated liquid
  OutputSet vap = {};             ///< saturated vapour
  double* latent_heat = nullptr;  ///< enthalpy of vaporization, kJ/kg, not negative
  double* dpdt_sat = nullptr;     ///< slope dp/dT of the saturation line, kPa/K

  const DerivativeSet* liq_derivatives = nullptr;  ///< where those of the phases go, if anywhere
  const DerivativeSet* vap_derivatives = nullptr;  ///< those of the vapour
};

}  // namespace co2_properties
