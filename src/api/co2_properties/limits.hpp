#pragma once
// Reference constants of the fluid and the range of validity of the library.

#include "co2_properties/require_cpp20.hpp"

namespace co2_properties {

// Critical point: R. Span and W. Wagner, J. Phys. Chem. Ref. Data 25 (1996) 1509.
inline constexpr double t_crit = 304.1282;  ///< critical temperature, K
inline constexpr double d_crit = 467.6;     ///< critical density, kg/m3
inline constexpr double p_crit = 7377.3;    ///< critical pressure, kPa

// Accepted states; the limits themselves belong to the range.
inline constexpr double temp_min = 240.0;     ///< lowest temperature, K
inline constexpr double temp_max = 1500.0;    ///< highest temperature, K
inline constexpr double pres_min = 1.0;       ///< lowest pressure, kPa
inline constexpr double pres_max = 100000.0;  ///< highest pressure, kPa
/// Lowest density of `co2_td`, kg/m3: that of `pres_min` at `temp_max`.
inline constexpr double dens_min = 0.0035287466;

// Cold end of the saturation line.
inline constexpr double temp_sat_min = 240.0;      ///< lowest temperature, K
inline constexpr double pres_sat_min = 1282.4835;  ///< saturation pressure there, kPa

}  // namespace co2_properties
