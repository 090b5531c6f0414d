#pragma once
// How a state leaves the library: the only code that writes outputs.

#include <cstdint>

#include "co2_properties/helmholtz_derivatives.hpp"
#include "co2_properties/output_set.hpp"
#include "saturation/phase.hpp"

namespace co2_properties {

/// Reports an error: the code, and every present output +0.0.
void fail(std::int32_t code, std::int32_t& ierr, const OutputSet& out) noexcept;

/// `qual` of a single phase: the lever value or, where there is no saturation, a mark.
/// \param mark_pres, sat  as for `write_single_phase`
[[nodiscard]] double single_phase_quality(double temp, double dens, double mark_pres,
                                          const SaturatedDensities& sat) noexcept;

/// Writes a single-phase state.
/// \param d          derivatives of its element at `temp`, K, and `dens`, kg/m3
/// \param mark_pres  pressure, kPa, that sets the mark in `qual` from the critical temperature on
/// \param sat        saturated densities at `temp`; `qual` evaluates those that are unknown
///
/// Around the critical point, where elements resolve second derivatives worst, the heat capacities
/// and the speed of sound come from their own fits.
void write_single_phase(const HelmholtzDerivatives& d, double temp, double dens, double mark_pres,
                        const SaturatedDensities& sat, const OutputSet& out) noexcept;

/// Writes a mixture of saturated liquid and vapour: the pressure of the vapour, energies and
/// entropy weighted by `qual`, and +0.0 for everything that has no value in two phases.
///
/// \param dens  density of the mixture, kg/m3
/// \param qual  mass fraction of the vapour
void write_two_phase(double temp, double dens, double qual, const SaturatedPhase& liq,
                     const SaturatedPhase& vap, const OutputSet& out) noexcept;

/// Whether an output is present that only a single phase has, transport properties aside.
[[nodiscard]] inline bool wants_cv_cp_ssnd(const OutputSet& out) noexcept {
  return out.cv != nullptr || out.cp != nullptr || out.ssnd != nullptr;
}

[[nodiscard]] inline bool wants_transport(const OutputSet& out) noexcept {
  return out.visc != nullptr || out.cond != nullptr;
}

}  // namespace co2_properties
