#pragma once
// Density at given temperature and pressure.

#include <cstdint>

#include "eos/helmholtz.hpp"

namespace co2_properties {

/// Where the iteration ended.
struct DensitySolution {
  std::int32_t element;      ///< holds `dens`, or nearly so
  double dens;               ///< kg/m3
  Isotherm isotherm;         ///< of the element
  std::int32_t evaluations;  ///< of the pressure, counted from 1
  bool converged;            ///< the pressure was met, and not later than in evaluation 14
};

/// Newton's method on the isotherm of one element; iterates that leave it are followed.
/// \param first  element to start with; the start value is a Newton step from its lower density
/// \param temp   temperature, K
/// \param pres   pressure, kPa, to be met within 1e-11 of its value
/// NaN and infinities never converge: the last iterate is returned.
[[nodiscard]] DensitySolution solve_density(std::int32_t first, double temp, double pres) noexcept;

}  // namespace co2_properties
