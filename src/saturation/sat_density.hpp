#pragma once
// Densities of saturated liquid and saturated vapour.

namespace co2_properties {

/// Density of the saturated liquid. Sixteen quintics in temperature up to 301 K; from there on
/// cubics T(rho), solved for the density in closed form, which follow the vertical tangent at the
/// critical point.
/// \param temp  temperature, K; meant for 240 to 304.1282, the end pieces extrapolate. NaN in gives
///              NaN out; there is no failure.
/// \return density, kg/m3. At exactly 304.1282 K it is 467.6; the last cubic ends there at 473.62.
/// Accuracy, relative to the saturation line of Span & Wagner, J. Phys. Chem. Ref. Data 25 (1996)
/// 1509: 1.4e-8 up to 301 K, 2.2e-5 up to 304 K, 4e-4 up to 304.12 K.
[[nodiscard, gnu::visibility("default")]] double calc_sat_liq_dens(const double& temp) noexcept;

/// Density of the saturated vapour; as `calc_sat_liq_dens`.
/// \param temp  temperature, K
/// \return density, kg/m3. At exactly 304.1282 K it is 467.6; the last cubic ends there at 465.87.
/// Accuracy: 1.8e-7 up to 301 K, 6.3e-6 up to 304 K, 5e-5 up to 304.12 K.
[[nodiscard, gnu::visibility("default")]] double calc_sat_vap_dens(const double& temp) noexcept;

}  // namespace co2_properties
