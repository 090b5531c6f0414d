#pragma once

#include <cmath>

#include "tablegen/reference/elementary.hpp"
#include "tablegen/reference/span_wagner.hpp"
#include "tablegen/reference/viscosity.hpp"

/// Thermal conductivity of carbon dioxide, W/(m K): V. Vesovic, W. A. Wakeham, G. A. Olchowy,
/// J. V. Sengers, J. T. R. Watson, J. Millat, J. Phys. Chem. Ref. Data 19 (1990) 763-808, with the
/// heat capacities and the compressibility of the Span-Wagner equation, and the simplified
/// crossover of G. A. Olchowy, J. V. Sengers, Int. J. Thermophys. 10 (1989) 417-426 in place of the
/// full one.
namespace co2_properties::reference {

namespace conductivity_parts {

inline constexpr long double watt_per_milliwatt = 1e-3L;

/// Zero-density conductivity, W/(m K); temp in K, 200 to 1000.
template <class Real>
Real dilute(Real temp) {
  using elementary::sqrt;
  const Real inverse = Real(251.196L) / temp;
  const Real inverse2 = inverse * inverse;
  const Real inverse3 = inverse2 * inverse;
  const Real section = Real(0.4226159L) + Real(0.6280115L) * inverse - Real(0.5387661L) * inverse2 +
                       Real(0.6735941L) * inverse3 +
                       inverse3 * inverse3 * (Real(-0.4362677L) + Real(0.2255388L) * inverse);
  // Internal heat capacity over that of translation, (c_int / k) 2 / 5.
  const Real internal = Real(0.4L) * (ideal_cp(temp) / Real(gas_constant) - Real(2.5L));
  return Real(watt_per_milliwatt * 0.475598L) * sqrt(temp) * (Real(1) + internal) / section;
}

/// Excess over the dilute gas without the critical enhancement, W/(m K); dens in kg/m3.
template <class Real>
Real excess(Real dens) {
  return Real(watt_per_milliwatt) * dens *
         (Real(2.447164e-2L) +
          dens * (Real(8.705605e-5L) + dens * (Real(-6.547950e-8L) + dens * Real(6.594919e-11L))));
}

/// Constants of the simplified crossover. Boltzmann's constant is that of the adjustment of 1986,
/// to which the molar gas constant 8.31451 J/(mol K) belongs.
inline constexpr long double k_boltzmann = 1.380658e-23L;  ///< J/K
inline constexpr long double r_0 = 1.01L;                  ///< universal amplitude
inline constexpr long double nu = 0.63L;                   ///< exponent of the correlation length
inline constexpr long double gamma = 1.2415L;              ///< exponent of the susceptibility
inline constexpr long double xi_0 = 1.5e-10L;          ///< m, amplitude of the correlation length
inline constexpr long double amplitude = 0.052L;       ///< of the susceptibility
inline constexpr long double cutoff = 4.0e-10L;        ///< m, 1 / q_d
inline constexpr long double temp_ref = 450.0L;        ///< K, no enhancement from here on
inline constexpr long double p_crit = 7377.3L;         ///< kPa
inline constexpr long double rounded_d_crit = 467.6L;  ///< kg/m3, a scale here, not a boundary

/// Reduced susceptibility p_crit dens / d_crit^2 / (dp/drho).
template <class Real>
Real susceptibility(Real dens, Real dpdd) {
  return Real(p_crit / (rounded_d_crit * rounded_d_crit)) * dens / dpdd;
}

/// Critical enhancement, W/(m K). Zero where the reduced susceptibility does not exceed that at
/// temp_ref (scaled by temp_ref / temp): from 450 K on, at dens = 0 and inside the spinodal. It
/// ends like (temp_ref - temp)^0.51, with a vertical tangent, which shows as a kink in the surface.
template <class Real>
Real enhancement(Real temp, Real dens) {
  using elementary::atan;
  using elementary::exp;
  using elementary::pow;
  constexpr Real pi = Real(3.14159265358979323846264338327950288L);
  const Properties<Real> at = properties(temp, dens);
  const Properties<Real> ref = properties(Real(temp_ref), dens);
  const Real rise =
      susceptibility(dens, at.dpdd) - susceptibility(dens, ref.dpdd) * Real(temp_ref) / temp;
  if (!(rise > Real(0))) return Real(0);
  const Real xi = Real(xi_0) * pow(rise / Real(amplitude), Real(nu / gamma));
  const Real y = xi / Real(cutoff);
  const Real ratio = Real(rounded_d_crit) / dens;
  const Real cv_over_cp = at.cv / at.cp;
  const Real omega = (Real(1) - cv_over_cp) * atan(y) + cv_over_cp * y;
  const Real omega_0 = Real(1) - exp(-Real(1) / (Real(1) / y + y * y * ratio * ratio / Real(3)));
  constexpr Real j_per_kj = Real(1000);
  constexpr Real pa_s = Real(1e-6L);
  return Real(2) / pi * (omega - omega_0) * dens * at.cp * j_per_kj * Real(r_0 * k_boltzmann) *
         temp / (Real(6) * pi * viscosity(temp, dens) * pa_s * xi);
}

}  // namespace conductivity_parts

/// Thermal conductivity, W/(m K), of stable states; between the saturated densities the enhancement
/// has no meaning.
/// \param temp  K, 200 to 1000, smooth beyond; \param dens  kg/m3, >= 0; NaN in gives NaN out
template <class Real>
Real conductivity(Real temp, Real dens) {
  return conductivity_parts::dilute(temp) + conductivity_parts::excess(dens) +
         conductivity_parts::enhancement(temp, dens);
}

}  // namespace co2_properties::reference
