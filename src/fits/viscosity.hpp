#pragma once
// Viscosity: the patch fit.

namespace co2_properties {

/// Viscosity of a single-phase state.
/// \param dens  density, kg/m3; meant for 0.0035287466 up to that at 100000 kPa
/// \param temp  temperature, K; meant for 240 to 1500
/// \param visc  receives the viscosity, uPa s
/// Outside this range, and between the saturated densities, the nearest patch extrapolates; NaN in
/// gives NaN out. There is no failure: `visc` is always written.
/// Accuracy: 3.1e-6 relative to A. Fenghour, W. A. Wakeham, V. Vesovic, J. Phys. Chem. Ref. Data 27
/// (1998) 31, without its critical enhancement; worst near 630 K for the dilute gas, where
/// coefficients of the patch are held at known values, elsewhere mostly below 2e-7.
[[gnu::visibility("default")]] void calculate_visc(const double& dens, const double& temp,
                                                   double& visc) noexcept;

}  // namespace co2_properties
