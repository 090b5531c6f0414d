#pragma once
// Isochoric heat capacity near the critical point: the patch fit.

namespace co2_properties {

/// Isochoric heat capacity of a single-phase state near the critical point.
/// \param dens  density, kg/m3; meant for 350 to 580
/// \param temp  temperature, K; meant for 302.9 to 310
/// \param cv  receives the isochoric heat capacity, kJ/(kg K)
/// Outside this box, and between the saturated densities, the nearest patch extrapolates; NaN in
/// gives NaN out. There is no failure: `cv` is always written.
/// Accuracy against R. Span, W. Wagner, J. Phys. Chem. Ref. Data 25 (1996) 1509: 1e-4 relative
/// above 304.14 K, 1.2e-4 below 304.1 K and 4.2e-3 in between down to 1 mK from the critical point,
/// where the property diverges and the fit does not.
[[gnu::visibility("default")]] void calculate_cv(const double& dens, const double& temp,
                                                 double& cv) noexcept;

}  // namespace co2_properties
