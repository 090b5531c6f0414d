#pragma once

#include "reference/elementary.hpp"

namespace co2_properties::reference {

/// Viscosity of carbon dioxide, uPa s: A. Laesecke, C. D. Muzny, J. Phys. Chem. Ref. Data 46 (2017)
/// 013107. Dilute gas, term linear in density (second viscosity virial coefficient of E. Vogel et
/// al.) and residual part; without the critical enhancement. Newer than the model of the tables and
/// only compared with it.
///
/// \param temp  K, 100 to 2000
/// \param dens  kg/m3, 0 to some 1500
///
/// NaN in gives NaN out. Meets the nine values that the authors print for verification.
template <class Real>
Real viscosity_2017(Real temp, Real dens) {
  using elementary::cbrt;
  using elementary::exp;
  using elementary::pow;
  using elementary::sqrt;
  constexpr Real upa_s_per_mpa_s = Real(1000);
  const Real root3 = cbrt(temp);
  const Real dilute = upa_s_per_mpa_s * Real(1.0055L) * sqrt(temp) /
                      (Real(1749.354893188350L) + Real(-369.069300007128L) * sqrt(root3) +
                       Real(5423856.34887691L) * exp(Real(-2.21283852168356L) * root3) +
                       (Real(-269503.247933569L) + Real(73145.021531826L) * root3) * exp(-root3) +
                       Real(5.34368649509278L) * sqrt(temp));

  constexpr struct {
    long double factor, exponent;
  } virial_terms[] = {{-19.572881L, 0.0L},   {219.73999L, -0.25L}, {-1015.3226L, -0.5L},
                      {2471.01251L, -0.75L}, {-3375.1717L, -1.0L}, {2491.6597L, -1.25L},
                      {-787.26086L, -1.5L},  {14.085455L, -2.5L},  {-0.34664158L, -5.5L}};
  constexpr long double sigma = 0.378421e-9L;  // m
  constexpr long double avogadro = 6.022140857e23L;
  constexpr long double molar_mass = 44.0095e-3L;  // kg/mol
  Real virial = Real(0);                           // over sigma^3
  for (const auto& term : virial_terms) {
    virial += Real(term.factor) * pow(temp / Real(200.760L), Real(term.exponent));
  }
  virial *= Real(sigma * sigma * sigma * avogadro / molar_mass);  // m3/kg

  // Reduced by the liquid at the triple point; 8.3144598 J/(mol K) is the molar gas constant.
  constexpr long double temp_triple = 216.592L;
  constexpr long double dens_triple = 1178.53L;
  const Real unit = Real(1e6L) * pow(Real(dens_triple), Real(2) / Real(3)) *
                    sqrt(Real(8.3144598L * temp_triple)) /
                    (pow(Real(molar_mass), Real(1) / Real(6)) * cbrt(Real(avogadro)));
  const Real t = temp / Real(temp_triple);
  const Real d = dens / Real(dens_triple);
  const Real residual =
      unit * (Real(0.360603235428487L) * t * d * d * d +
              (d * d + pow(d, Real(8.06282737481277L))) / (t - Real(0.121550806591497L)));
  return dilute * (Real(1) + virial * dens) + residual;
}

}  // namespace co2_properties::reference
