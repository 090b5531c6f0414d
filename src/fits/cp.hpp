#pragma once
// Isobaric heat capacity near the critical point: the patch fit.

namespace co2_properties {

/// Isobaric heat capacity of a single-phase state near the critical point.
/// \param dens  density, kg/m3; meant for 380 to 580
/// \param temp  temperature, K; meant for 302.9 to 310
/// \param cp  receives the isobaric heat capacity, kJ/(kg K)
/// Outside this box, and between the saturated densities, the nearest patch extrapolates; NaN in
/// gives NaN out. There is no failure: `cp` is always written.
/// Accuracy against R. Span, W. Wagner, J. Phys. Chem. Ref. Data 25 (1996) 1509: 2.3e-4 relative
/// above 304.14 K, 8e-4 below 304.1 K and 2e-2 in between down to 1 mK from the critical point,
/// where the property diverges and the fit does not.
[[gnu::visibility("default")]] void calculate_cp(const double& dens, const double& temp,
                                                 double& cp) noexcept;

}  // namespace co2_properties
