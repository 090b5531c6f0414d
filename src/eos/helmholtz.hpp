#pragma once
// Helmholtz energy and its derivatives: the one evaluation of the element polynomials.

#include <cmath>
#include <cstdint>

#include "api/helmholtz_derivatives.hpp"
#include "eos/element.hpp"

namespace co2_properties {

/// Evaluation of one element; `log_dens` is ln `dens`, which the caller may have at hand.
///
/// Nested multiplication, in tau for every density function and then in delta. The order matters:
/// coefficients of the elements near the critical point reach 1e13 and cancel; powers formed
/// separately would lose the digits that nesting keeps.
[[nodiscard]] inline HelmholtzDerivatives evaluate(const Element& cell, const double temp,
                                                   const double dens,
                                                   const double log_dens) noexcept {
  const double tau = temp - cell.temp0;
  const double delta = dens - cell.dens0;
  const auto& c = cell.coef;
  double f[dens_terms];
  double f_t[dens_terms];
  double f_tt[dens_terms];
  for (std::int32_t j = 0; j < dens_terms; ++j) {
    f[j] = ((((c[5][j] * tau + c[4][j]) * tau + c[3][j]) * tau + c[2][j]) * tau + c[1][j]) * tau +
           c[0][j];
    f_t[j] = (((5.0 * c[5][j] * tau + 4.0 * c[4][j]) * tau + 3.0 * c[3][j]) * tau + 2.0 * c[2][j]) *
                 tau +
             c[1][j];
    f_tt[j] = ((20.0 * c[5][j] * tau + 12.0 * c[4][j]) * tau + 6.0 * c[3][j]) * tau + 2.0 * c[2][j];
  }
  HelmholtzDerivatives d;
  d.a = f[0] * log_dens + ((((f[5] * delta + f[4]) * delta + f[3]) * delta + f[2]) * delta + f[1]);
  d.a_t = f_t[0] * log_dens +
          ((((f_t[5] * delta + f_t[4]) * delta + f_t[3]) * delta + f_t[2]) * delta + f_t[1]);
  d.a_tt = f_tt[0] * log_dens +
           ((((f_tt[5] * delta + f_tt[4]) * delta + f_tt[3]) * delta + f_tt[2]) * delta + f_tt[1]);
  const double inverse = 1.0 / dens;
  // A quotient, rounded once: at low density this term is the whole pressure.
  d.a_d = f[0] / dens + (((4.0 * f[5] * delta + 3.0 * f[4]) * delta + 2.0 * f[3]) * delta + f[2]);
  d.a_dd = -f[0] * inverse * inverse + ((12.0 * f[5] * delta + 6.0 * f[4]) * delta + 2.0 * f[3]);
  d.a_td = f_t[0] * inverse +
           (((4.0 * f_t[5] * delta + 3.0 * f_t[4]) * delta + 2.0 * f_t[3]) * delta + f_t[2]);
  return d;
}

/// Helmholtz energy and derivatives of element `e` at one state.
/// \param e     element index, 1..649; not checked
/// \param temp  temperature, K
/// \param dens  density, kg/m3, positive (zero and below give the infinities and NaN of ln and
/// 1/rho) Outside the element's rectangle its polynomial is extrapolated. NaN in gives NaN out.
/// Accuracy: that of the table, see docs/accuracy.md. Fitted to Span & Wagner, J. Phys. Chem. Ref.
/// Data 25 (1996) 1509.
[[nodiscard, gnu::visibility("default")]] HelmholtzDerivatives element_derivatives(
    const std::int32_t& e, const double& temp, const double& dens) noexcept;

}  // namespace co2_properties
