#pragma once

#include "reference/elementary.hpp"

namespace co2_properties::reference {

/// Viscosity of carbon dioxide, uPa s: A. Fenghour, W. A. Wakeham, V. Vesovic, J. Phys. Chem. Ref.
/// Data 27 (1998) 31-44. Dilute gas plus excess; the critical enhancement, small and confined to
/// the neighbourhood of the critical point, is left out.
///
/// \param temp  K, 200 to 1500
/// \param dens  kg/m3, 0 to 1400
///
/// NaN in gives NaN out. Valid to 300 MPa below 1000 K and to 30 MPa up to 1500 K; the authors
/// state 0.3 % to 5 %.
template <class Real>
Real viscosity(Real temp, Real dens) {
  using elementary::exp;
  using elementary::log;
  using elementary::sqrt;
  // Energy scale of the intermolecular potential, 251.196 K.
  const Real reduced = temp / Real(251.196L);
  const Real x = log(reduced);
  const Real log_section =
      Real(0.235156L) +
      x * (Real(-0.491266L) +
           x * (Real(5.211155e-2L) + x * (Real(5.347906e-2L) + x * Real(-1.537102e-2L))));
  const Real dilute = Real(1.00697L) * sqrt(temp) / exp(log_section);
  const Real dens2 = dens * dens;
  const Real dens6 = dens2 * dens2 * dens2;
  const Real excess = Real(0.4071119e-2L) * dens + Real(0.7198037e-4L) * dens2 +
                      Real(0.2411697e-16L) * dens6 / (reduced * reduced * reduced) +
                      dens6 * dens2 * (Real(0.2971072e-22L) + Real(-0.1627888e-22L) / reduced);
  return dilute + excess;
}

}  // namespace co2_properties::reference
