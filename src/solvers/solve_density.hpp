#pragma once
// Density at given temperature and pressure.

#include <cstdint>

#include "eos/helmholtz.hpp"

namespace co2_properties {

/// The pressure of one element along an isotherm, p = rho^2 g(rho - dens0) + b0 rho, for one state
/// or for lanes.
template <class Real>
struct PressureCurve {
  Real dens0;
  Real b0, g0, g1, g2, g3;

  /// \param f  factors of the density functions at the temperature
  [[nodiscard, gnu::always_inline]] static PressureCurve from(
      const Real& dens0, const Real (&f)[dens_terms]) noexcept {
    return {dens0, f[0], f[2], 2.0 * f[3], 3.0 * f[4], 4.0 * f[5]};
  }
  [[nodiscard, gnu::always_inline]] Real pressure(const Real& dens) const noexcept {
    return dens * dens * g(dens - dens0) + b0 * dens;
  }
  [[nodiscard, gnu::always_inline]] Real slope(const Real& dens) const noexcept {
    const Real dr = dens - dens0;
    const Real g_d = (3.0 * g3 * dr + 2.0 * g2) * dr + g1;
    return (2.0 * g(dr) + dens * g_d) * dens + b0;
  }
  /// One Newton step from the lower edge, where only three of the sums take part.
  [[nodiscard, gnu::always_inline]] Real start(const Real& pres) const noexcept {
    return dens0 +
           (pres - (g0 * dens0 + b0) * dens0) / (2.0 * g0 * dens0 + b0 + g1 * dens0 * dens0);
  }
  [[nodiscard, gnu::always_inline]] Real g(const Real& dr) const noexcept {
    return ((g3 * dr + g2) * dr + g1) * dr + g0;
  }
};

/// How closely the iteration meets the pressure, relative, and the largest step, relative, with
/// which it improves a density that meets it.
inline constexpr double pres_tolerance = 1e-11;
inline constexpr double largest_last_step = 1e-7;

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
