#pragma once

#include "reference/conductivity.hpp"

/// Thermal conductivity of carbon dioxide, W/(m K): M. L. Huber, E. A. Sykioti, M. J. Assael,
/// R. A. Perkins, J. Phys. Chem. Ref. Data 45 (2016) 013102, 217 K to 1100 K and up to 200 MPa,
/// with heat capacities and compressibility of the Span-Wagner equation. Newer than the model of
/// the tables and only compared with it. Meets the values published for verification.
namespace co2_properties::reference {

namespace conductivity_parts {

inline constexpr Crossover crossover_2016 = {1.02L,  0.63L,    1.239L, 1.5e-10L,
                                             0.052L, 4.0e-10L, 456.19L};

/// Zero-density conductivity, W/(m K); temp in K.
template <class Real>
Real dilute_2016(Real temp) {
  using elementary::sqrt;
  const Real t = temp / Real(t_crit);
  return Real(watt_per_milliwatt) * sqrt(t) /
         (Real(1.51874307e-2L) +
          (Real(2.80674040e-2L) + (Real(2.28564190e-2L) + Real(-7.41624210e-3L) / t) / t) / t);
}

/// Excess over the dilute gas without the critical enhancement, W/(m K).
template <class Real>
Real excess_2016(Real temp, Real dens) {
  constexpr struct {
    long double constant, slope;
  } terms[] = {{1.00128e-2L, 4.30829e-3L},  {5.60488e-2L, -3.58563e-2L},
               {-8.11620e-2L, 6.71480e-2L}, {6.24337e-2L, -5.22855e-2L},
               {-2.06336e-2L, 1.74571e-2L}, {2.53248e-3L, -1.96414e-3L}};
  const Real t = temp / Real(t_crit);
  const Real d = dens / Real(rounded_d_crit);
  Real power = Real(1);
  Real sum = Real(0);
  for (const auto& term : terms) {
    power *= d;
    sum += (Real(term.constant) + Real(term.slope) * t) * power;
  }
  return sum;
}

}  // namespace conductivity_parts

/// Thermal conductivity, W/(m K), of stable states; NaN in gives NaN out.
/// \param temp  K; \param dens  kg/m3, >= 0
/// \param visc  of the state, uPa s; it counts in the critical enhancement only
template <class Real>
Real conductivity_2016(Real temp, Real dens, Real visc) {
  using namespace conductivity_parts;
  return dilute_2016(temp) + excess_2016(temp, dens) +
         enhancement(crossover_2016, temp, dens, visc);
}

}  // namespace co2_properties::reference
