#pragma once
// Derivatives along other lines than isotherms and isochores, and what follows from them, each of
// them optional.

#include "co2_properties/require_cpp20.hpp"

namespace co2_properties {

/// Where derivatives go; as in `OutputSet`, a null pointer means that one is not asked for. A name
/// is d, what changes, d, by what, and what stays as it is: d density, t temperature, p pressure, u
/// internal energy, h enthalpy, s entropy.
///
/// In a mixture of liquid and vapour these are the derivatives of the mixture, whose phases stay in
/// equilibrium while it changes. What it has not is +0.0 and raises the warning of the entry:
/// compr_t and expan_p, which are infinite, and those of ssnd, visc and cond.
///
/// Around the critical point (302.9 K < T < 310 K, 350 < rho < 580 kg/m3) they are made from the
/// fits of cv, cp and speed of sound. Those of `qual` are of the lever value, zero where it is a
/// mark. In mixtures of 304.1282 K, which `co2_tx` and `co2_px` have, the phases are one: `fundam`
/// and the derivatives of `qual` are infinite, and given as +0.0, without a warning.
///
/// Accuracy: docs/accuracy.md. `fundam`, which takes third derivatives, is good to 4e-2 in one
/// phase; in mixtures, of 1 + |fundam - 1|, to 2e-3 up to 301 K, to 2e-2 up to 303.9 K and to 7e-2
/// up to 304.118 K. Closer to the critical temperature, and in the box between 304.1 K and 304.14
/// K, it has not been measured.
struct DerivativeSet {
  // derivatives: begin, written by scripts/generate_outputs
  double* dpdd_u = nullptr;  ///< dp/drho at constant internal energy, kPa m3/kg
  double* dpdu_d = nullptr;  ///< dp/du at constant density, kPa kg/kJ
  double* dtdd_u = nullptr;  ///< dT/drho at constant internal energy, K m3/kg
  double* dtdu_d = nullptr;  ///< dT/du at constant density, K kg/kJ
  double* dddp_h = nullptr;  ///< drho/dp at constant enthalpy, kg/(m3 kPa)
  double* dddh_p = nullptr;  ///< drho/dh at constant pressure, kg2/(m3 kJ)
  double* dtdp_h = nullptr;  ///< dT/dp at constant enthalpy, the Joule-Thomson coefficient, K/kPa
  double* dtdh_p = nullptr;  ///< dT/dh at constant pressure, K kg/kJ
  double* dddp_s = nullptr;  ///< drho/dp at constant entropy, kg/(m3 kPa)
  double* dtdp_s = nullptr;  ///< dT/dp at constant entropy, K/kPa
  double* dhdd_p = nullptr;  ///< dh/drho at constant pressure, kJ m3/kg2
  double* dhdp_d = nullptr;  ///< dh/dp at constant density, kJ/(kg kPa)
  double* dsdd_p = nullptr;  ///< ds/drho at constant pressure, kJ m3/(kg2 K)
  double* dsdp_d = nullptr;  ///< ds/dp at constant density, kJ/(kg K kPa)
  double* dpdd_t = nullptr;  ///< dp/drho at constant temperature, kPa m3/kg
  double* dpdt_d = nullptr;  ///< dp/dT at constant density, kPa/K
  /// Isochoric heat capacity, kJ/(kg K). In one phase `cv`, in two that of the mixture in
  /// equilibrium.
  double* cv_eq = nullptr;
  /// Speed of sound, m/s. In one phase `ssnd`, in two that of the mixture in equilibrium.
  double* ssnd_eq = nullptr;
  /// Isentropic compressibility, 1/kPa. (drho/dp) / rho at constant entropy.
  double* compr_s = nullptr;
  /// Isothermal compressibility, 1/kPa. (drho/dp) / rho at constant temperature. Infinite in two
  /// phases, and given as zero.
  double* compr_t = nullptr;
  /// Isobaric expansion, 1/K. -(drho/dT) / rho at constant pressure. Infinite in two phases, and
  /// given as zero.
  double* expan_p = nullptr;
  /// Fundamental derivative of gas dynamics. 1 + rho/w (dw/drho) at constant entropy, w the speed
  /// of sound, in two phases that of equilibrium.
  double* fundam = nullptr;
  double* dssnddd_t = nullptr;  ///< dssnd/drho at constant temperature, m4/(kg s)
  double* dssnddt_d = nullptr;  ///< dssnd/dT at constant density, m/(s K)
  double* dviscdd_t = nullptr;  ///< dvisc/drho at constant temperature, uPa s m3/kg
  double* dviscdt_d = nullptr;  ///< dvisc/dT at constant density, uPa s/K
  double* dconddd_t = nullptr;  ///< dcond/drho at constant temperature, W m2/(kg K)
  double* dconddt_d = nullptr;  ///< dcond/dT at constant density, W/(m K2)
  double* dqualdd_t = nullptr;  ///< dqual/drho at constant temperature, m3/kg
  double* dqualdt_d = nullptr;  ///< dqual/dT at constant density, 1/K
  // derivatives: end
};

}  // namespace co2_properties
