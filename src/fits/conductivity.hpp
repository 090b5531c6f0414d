#pragma once
// Thermal conductivity: the patch fit.

namespace co2_properties {

/// Thermal conductivity of a single-phase state, with its critical enhancement.
/// \param dens  density, kg/m3; meant for 0.0035287466 up to that at 100000 kPa
/// \param temp  temperature, K; meant for 240 to 1500
/// \param cond  receives the thermal conductivity, W/(m K)
/// Outside this range, and between the saturated densities, the nearest patch extrapolates; NaN in
/// gives NaN out. There is no failure: `cond` is always written.
/// Accuracy against V. Vesovic et al., J. Phys. Chem. Ref. Data 19 (1990) 763, with the simplified
/// crossover of Olchowy and Sengers: 2.6e-4 relative farther than 0.05 K from the critical
/// temperature, worst just below 304 K; 7e-2 down to 1 mK from the critical point, where the
/// property diverges and the fit does not.
[[gnu::visibility("default")]] void calculate_cond(const double& dens, const double& temp,
                                                   double& cond) noexcept;

}  // namespace co2_properties
