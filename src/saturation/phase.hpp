#pragma once
// The phase decision, and the two ends of a tie line.

#include <cstdint>

#include "co2_properties/helmholtz_derivatives.hpp"
#include "co2_properties/limits.hpp"
#include "saturation/sat_density.hpp"
#include "saturation/sat_pressure.hpp"

namespace co2_properties {

// ---- Before a solution: from the inputs ---------------------------------------------------------

enum class Phase { vapour, liquid, two_phase };

/// Saturated densities at one temperature, kg/m3, as far as they have been evaluated.
struct SaturatedDensities {
  static constexpr double unknown = -100.0;
  double liq = unknown;
  double vap = unknown;
};

/// Phase at a temperature, K, below the critical one, and a density, kg/m3. The densities of
/// saturation are evaluated only where the decision needs them: the vapour is never denser than
/// 467.61 kg/m3 and, above 301 K, the two lie between 286.14 and 658.70 kg/m3.
[[nodiscard]] inline Phase phase_from_td(const double temp, const double dens,
                                         SaturatedDensities& sat) noexcept {
  if (temp > 301.0) {
    if (dens < 286.0) return Phase::vapour;
    if (dens > 659.0) return Phase::liquid;
  }
  if (dens <= 468.0) {
    sat.vap = calc_sat_vap_dens(temp);
    if (dens <= sat.vap) return Phase::vapour;
  }
  sat.liq = calc_sat_liq_dens(temp);
  if (dens >= sat.liq) return Phase::liquid;
  if (sat.vap < 0.0) sat.vap = calc_sat_vap_dens(temp);
  return Phase::two_phase;
}

/// Phase at a temperature, K, below the critical one, and a pressure, kPa; two phases on the
/// saturation line itself. The saturation pressure lies between 1282 and 7378 kPa and is evaluated
/// only where it decides.
[[nodiscard]] inline Phase phase_from_tp(const double temp, const double pres) noexcept {
  if (pres < 1282.0) return Phase::vapour;
  if (pres > 7378.0) return Phase::liquid;
  const double pres_sat = calc_sat_pres(temp);
  if (pres < pres_sat) return Phase::vapour;
  if (pres > pres_sat) return Phase::liquid;
  return Phase::two_phase;
}

// ---- After a solution ---------------------------------------------------------------------------
//
// Polynomials extrapolated from one side of the dome to the other may meet pressure and property
// too. Below the critical temperature the saturation temperature of the pressure tells them from
// states: liquid is colder, vapour hotter.

/// Whether that is certain without the saturation temperature, which curves down over pressure: it
/// lies below any tangent and, on the saturation line, above the chord. For one state or for lanes.
template <class Real>
[[nodiscard, gnu::always_inline]] inline auto surely_has_phase(const Real& pres, const Real& temp,
                                                               const Real& dens) noexcept {
  constexpr double chord = (t_crit - temp_sat_min) / (p_crit - pres_sat_min);
  const auto liq = (pres > p_crit + 1.0) | (temp < temp_sat_min + chord * (pres - pres_sat_min));
  const auto vap = temp > 278.5 + 0.0098 * (pres - 4000.0);
  return (temp >= t_crit) | ((dens > d_crit) & liq) | ((dens <= d_crit) & vap);
}

/// Whether a solution at `pres`, kPa, lies on its own side of the dome. This close to it the other
/// deciders, densities and saturation pressures, may differ; see docs/errors.md.
[[nodiscard]] inline bool has_phase(const double pres, const double temp,
                                    const double dens) noexcept {
  if (surely_has_phase(pres, temp, dens) != 0) return true;
  constexpr double undecided = 1e-4;  // K
  constexpr double highest = 7400.0;  // kPa, where the last piece still rises
  const double temp_sat = calc_sat_temp(pres < highest ? pres : highest);
  return dens > d_crit ? temp < temp_sat + undecided : temp > temp_sat - undecided;
}

// ---- Tie lines ----------------------------------------------------------------------------------

/// Vapour mass fraction by the lever rule; not clipped, exactly 1 at `dens_vap`, 0 at `dens_liq`.
[[nodiscard]] inline double lever_quality(const double dens, const double dens_liq,
                                          const double dens_vap) noexcept {
  return (dens_liq - dens) * dens_vap / ((dens_liq - dens_vap) * dens);
}

/// One end of the tie line at a temperature.
struct SaturatedPhase {
  std::int32_t element;
  double dens;  ///< kg/m3
  HelmholtzDerivatives d;
};

/// \param dens  saturated density of the phase at `temp`, K
[[nodiscard]] SaturatedPhase saturated_liquid(double temp, double dens) noexcept;
[[nodiscard]] SaturatedPhase saturated_vapour(double temp, double dens) noexcept;

}  // namespace co2_properties
