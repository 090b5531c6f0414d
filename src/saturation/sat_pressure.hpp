#pragma once
// The saturation line between temperature and pressure.

namespace co2_properties {

/// Saturation temperature. Eight quintics in p; the last one ends on the critical point.
/// \param pres  pressure, kPa; meant for 1282.4835 to 7377.3, the end pieces extrapolate. NaN in
///              gives NaN out; there is no failure.
/// \return temperature, K
/// Accuracy against the saturation line of Span & Wagner, J. Phys. Chem. Ref. Data 25 (1996) 1509:
/// 6e-5 K, worst near 7280 kPa.
[[nodiscard, gnu::visibility("default")]] double calc_sat_temp(const double& pres) noexcept;

/// Saturation pressure: that of the vapour element at the saturated vapour density, bit for bit the
/// pressure which `co2_td` reports for a two-phase state.
/// \param temp  temperature, K; meant for 240 to 304.1282, outside both fits extrapolate. NaN in
///              gives NaN out; there is no failure.
/// \return pressure, kPa. It agrees with the inverse of `calc_sat_temp` to the accuracy of the two
/// fits. Accuracy as above, relative: 3e-7, worst near 301.8 K.
[[nodiscard, gnu::visibility("default")]] double calc_sat_pres(const double& temp) noexcept;

}  // namespace co2_properties
