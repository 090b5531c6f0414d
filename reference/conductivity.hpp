#pragma once

#include "reference/elementary.hpp"
#include "reference/span_wagner.hpp"
#include "reference/viscosity.hpp"

/// Thermal conductivity of carbon dioxide, W/(m K): V. Vesovic, W. A. Wakeham, G. A. Olchowy,
/// J. V. Sengers, J. T. R. Watson, J. Millat, J. Phys. Chem. Ref. Data 19 (1990) 763-808, with the
/// heat capacities and the compressibility of the Span-Wagner equation, and the simplified
/// crossover of G. A. Olchowy, J. V. Sengers, Int. J. Thermophys. 10 (1989) 417-426 in place of the
/// full one. The internal heat capacity of the ideal gas is that of the Span-Wagner equation too:
/// with the paper's own the dilute gas differs by up to 0.14 % between 240 K and 1000 K.
namespace co2_properties::reference {

namespace conductivity_parts {

inline constexpr long double watt_per_milliwatt = 1e-3L;

/// Zero-density conductivity, W/(m K); temp in K, 200 to 1000.
/// \param internal_heat  internal heat capacity of a molecule over Boltzmann's constant
template <class Real>
Real dilute(Real temp, Real internal_heat) {
  using elementary::sqrt;
  const Real inverse = Real(251.196L) / temp;
  const Real inverse2 = inverse * inverse;
  const Real inverse3 = inverse2 * inverse;
  const Real section = Real(0.4226159L) + Real(0.6280115L) * inverse - Real(0.5387661L) * inverse2 +
                       Real(0.6735941L) * inverse3 +
                       inverse3 * inverse3 * (Real(-0.4362677L) + Real(0.2255388L) * inverse);
  return Real(watt_per_milliwatt * 0.475598L) * sqrt(temp) *
         (Real(1) + Real(0.4L) * internal_heat) / section;
}

/// The same with the internal heat capacity of the Span-Wagner equation.
template <class Real>
Real dilute(Real temp) {
  return dilute(temp, ideal_cp(temp) / Real(gas_constant) - Real(2.5L));
}

/// Internal heat capacity over Boltzmann's constant of Vesovic et al. (1990); temp in K, 200 to
/// 1000. Only for comparison.
template <class Real>
Real internal_heat_1990(Real temp) {
  using elementary::exp;
  const Real t = temp / Real(100);
  const Real sum = Real(2.387869e-2L) * t + Real(4.350794L) +
                   (Real(-10.33404L) + (Real(7.981590L) + Real(-1.940558L) / t) / t) / t;
  return Real(1) + exp(Real(-183.5L) / temp) * sum;
}

/// Excess over the dilute gas without the critical enhancement, W/(m K); dens in kg/m3.
template <class Real>
Real excess(Real dens) {
  return Real(watt_per_milliwatt) * dens *
         (Real(2.447164e-2L) +
          dens * (Real(8.705605e-5L) + dens * (Real(-6.547950e-8L) + dens * Real(6.594919e-11L))));
}

/// Boltzmann's constant, J/K, of the adjustment of 1986, to which the molar gas constant
/// 8.31451 J/(mol K) belongs.
inline constexpr long double k_boltzmann = 1.380658e-23L;
inline constexpr long double p_crit = 7377.3L;         ///< kPa
inline constexpr long double rounded_d_crit = 467.6L;  ///< kg/m3, a scale here, not a boundary

/// Constants of the simplified crossover.
struct Crossover {
  long double r_0;        ///< universal amplitude
  long double nu;         ///< exponent of the correlation length
  long double gamma;      ///< exponent of the susceptibility
  long double xi_0;       ///< m, amplitude of the correlation length
  long double amplitude;  ///< of the susceptibility
  long double cutoff;     ///< m, 1 / q_d
  long double temp_ref;   ///< K, no enhancement from here on
};
inline constexpr Crossover crossover_1990 = {1.01L,  0.63L,    1.2415L, 1.5e-10L,
                                             0.052L, 4.0e-10L, 450.0L};

/// Reduced susceptibility p_crit dens / d_crit^2 / (dp/drho).
template <class Real>
Real susceptibility(Real dens, Real dpdd) {
  return Real(p_crit / (rounded_d_crit * rounded_d_crit)) * dens / dpdd;
}

/// Critical enhancement, W/(m K). Zero where the reduced susceptibility does not exceed that at
/// temp_ref (scaled by temp_ref / temp): from temp_ref on, at dens = 0 and inside the spinodal. It
/// ends like (temp_ref - temp)^0.51, with a vertical tangent, which shows as a kink in the surface.
/// \param visc  of the state, uPa s
template <class Real>
Real enhancement(const Crossover& c, Real temp, Real dens, Real visc) {
  using elementary::atan;
  using elementary::exp;
  using elementary::pow;
  constexpr Real pi = Real(3.14159265358979323846264338327950288L);
  const Properties<Real> at = properties(temp, dens);
  const Properties<Real> ref = properties(Real(c.temp_ref), dens);
  const Real rise =
      susceptibility(dens, at.dpdd) - susceptibility(dens, ref.dpdd) * Real(c.temp_ref) / temp;
  if (!(rise > Real(0))) return Real(0);
  const Real xi = Real(c.xi_0) * pow(rise / Real(c.amplitude), Real(c.nu / c.gamma));
  const Real y = xi / Real(c.cutoff);
  const Real ratio = Real(rounded_d_crit) / dens;
  const Real cv_over_cp = at.cv / at.cp;
  const Real omega = (Real(1) - cv_over_cp) * atan(y) + cv_over_cp * y;
  const Real omega_0 = Real(1) - exp(-Real(1) / (Real(1) / y + y * y * ratio * ratio / Real(3)));
  constexpr Real j_per_kj = Real(1000);
  constexpr Real pa_s = Real(1e-6L);
  return Real(2) / pi * (omega - omega_0) * dens * at.cp * j_per_kj * Real(c.r_0 * k_boltzmann) *
         temp / (Real(6) * pi * visc * pa_s * xi);
}

}  // namespace conductivity_parts

/// Thermal conductivity, W/(m K), of stable states; between the saturated densities the enhancement
/// has no meaning.
/// \param temp  K, 200 to 1000, smooth beyond; \param dens  kg/m3, >= 0; NaN in gives NaN out
template <class Real>
Real conductivity(Real temp, Real dens) {
  return conductivity_parts::dilute(temp) + conductivity_parts::excess(dens) +
         conductivity_parts::enhancement(conductivity_parts::crossover_1990, temp, dens,
                                         viscosity(temp, dens));
}

}  // namespace co2_properties::reference
