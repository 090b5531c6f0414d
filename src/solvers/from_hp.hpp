#pragma once
// Start values of temperature and density from pressure and enthalpy.

#include <cstdint>

namespace co2_properties {

/// Estimate of the temperature of a single-phase state, and whether the state has to be compared
/// with saturation before the estimate can be trusted.
/// \param enth  enthalpy, kJ/kg
/// \param pres  pressure, kPa; meant for 1 to 100000 and temperatures of 240 K to 1500 K
/// \param temp  temperature, K
/// \param flag  1 in the cells that can hold saturated or two-phase states, else 0: always 0 from
///              7377.3 kPa and from 465 kJ/kg on
/// Both outputs are always written. Outside its cell's states the polynomial extrapolates, between
/// cells it may jump; nothing is clamped. NaN in gives NaN out, its flag is that of the cell above
/// every edge.
/// Accuracy within the limits: 5e-5, relative to Span & Wagner, J. Phys. Chem. Ref. Data 25 (1996)
/// 1509; two Newton steps for (p, h) from both estimates reach the rounding of the element table.
[[gnu::visibility("default")]] void temp_from_hp(const double& enth, const double& pres,
                                                 double& temp, std::int32_t& flag) noexcept;

/// Estimate of the density of a single-phase state.
/// \param enth  enthalpy, kJ/kg
/// \param pres  pressure, kPa; range as for `temp_from_hp`
/// \param dens  density, kg/m3
/// As `temp_from_hp`, with cells of its own: the two estimates are not exactly one state.
/// Accuracy: 5e-5; below 1000 kPa and 475 kJ/kg, where the same cells lead to cold liquid, 3e-3.
[[gnu::visibility("default")]] void dens_from_hp(const double& enth, const double& pres,
                                                 double& dens) noexcept;

}  // namespace co2_properties
