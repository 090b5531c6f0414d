#pragma once
// Speed of sound near the critical point: the patch fit.

namespace co2_properties {

/// Speed of sound of a single-phase state near the critical point.
/// \param dens  density, kg/m3; meant for 350 to 580
/// \param temp  temperature, K; meant for 302.9 to 310
/// \param ssnd  receives the speed of sound, m/s
/// Outside this box, and between the saturated densities, the nearest patch extrapolates; NaN in
/// gives NaN out. There is no failure: `ssnd` is always written.
/// Accuracy against R. Span, W. Wagner, J. Phys. Chem. Ref. Data 25 (1996) 1509: 5e-5 relative
/// above 304.14 K, 4e-5 below 304.1 K and 2e-3 in between down to 1 mK from the critical point,
/// where the property goes to zero and the fit does not.
[[gnu::visibility("default")]] void calculate_ssnd(const double& dens, const double& temp,
                                                   double& ssnd) noexcept;

}  // namespace co2_properties
