#pragma once
// Bounds of the saturation line in bins of temperature and of pressure. They tell the phase of
// nearly all states without an evaluation of the line itself, which costs more than the state.
// Where a state lies between the bounds of a phase, only the line decides.

#include "cells/axis.hpp"
#include "co2_properties/limits.hpp"
#include "eos/temperature_bins.hpp"

namespace co2_properties {

// Written by `tablegen saturation_bounds`. In bins above the critical temperature everything is
// vapour, below an infinite bound; other bins off the saturation line decide nothing.

/// Of `calc_sat_vap_dens` and `calc_sat_liq_dens`, kg/m3.
struct alignas(16) SaturatedDensityBounds {
  float vap_lo, vap_hi;
  float liq_lo, liq_hi;
};

/// Of `calc_sat_pres`, kPa.
struct alignas(8) SaturationPressureBounds {
  float lo, hi;
};

/// Valid for the temperatures of a bin of `temp_bins` from `temp_min` on and below `t_crit`; for
/// bins that lie above it as a whole.
extern const SaturatedDensityBounds saturated_density_bounds[temp_bin_count];
extern const SaturationPressureBounds saturation_pressure_bounds[temp_bin_count];

/// Of the entropy of both saturated phases, kJ/(kg K), valid likewise. In bins above the critical
/// temperature all of it is vapour, above an infinite bound.
struct alignas(16) SaturatedEntropyBounds {
  float vap_lo, vap_hi;
  float liq_lo, liq_hi;
};
extern const SaturatedEntropyBounds saturated_entropy_bounds_by_temp[temp_bin_count];

/// Thirty-two bins in a doubling of the distance from the critical pressure, at which the dome
/// closes.
inline constexpr auto pres_bins = DistanceBins<1024, 5>::around(p_crit, p_crit);
inline constexpr std::int32_t pres_bin_count = decltype(pres_bins)::count;

/// Of a property of both saturated phases: that of the element at `calc_sat_temp` of the pressure
/// and the saturated density there.
struct alignas(16) SaturatedCaloricBounds {
  float vap_lo, vap_hi;
  float liq_lo, liq_hi;
};

/// Valid for all pressures of a bin of `pres_bins`. Below `pres_sat_min` they are bounds of the
/// extrapolated line, and those between which mixtures would lie are infinite; far below, and
/// within 0.12 kPa of the critical pressure, all are.
extern const SaturatedCaloricBounds saturated_enthalpy_bounds[pres_bin_count];  ///< kJ/kg
extern const SaturatedCaloricBounds saturated_entropy_bounds[pres_bin_count];   ///< kJ/(kg K)
extern const SaturatedCaloricBounds saturated_energy_bounds[pres_bin_count];    ///< kJ/kg

/// Bins of entropy, kJ/(kg K): the dome ends within them, at the saturated phases of
/// `temp_sat_min`.
inline constexpr EqualBins<1024> entr_bins = {0.72, 1024.0 / 1.3};
inline constexpr std::int32_t entr_bin_count = decltype(entr_bins)::count;

/// Of the enthalpy of the saturated phases by their entropy, less the slope of their bin, K, times
/// the entropy, kJ/kg: single phases lie above it, mixtures below. Along isentropes the enthalpy
/// changes little from there on, so bounds of the enthalpy itself would leave many states
/// undecided. Beyond the ends of the dome all lies above.
struct alignas(16) DomeEnthalpyBounds {
  float slope;
  float lo, hi;
  float unused;
};
extern const DomeEnthalpyBounds dome_enthalpy_bounds[entr_bin_count];

}  // namespace co2_properties
