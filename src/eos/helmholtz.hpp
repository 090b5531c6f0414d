#pragma once
// Helmholtz energy and its derivatives: the one evaluation of the element polynomials.

#include <cstdint>

#include "cells/pair.hpp"
#include "co2_properties/helmholtz_derivatives.hpp"
#include "eos/element.hpp"

namespace co2_properties {

// Nested multiplication, in tau for every density function and then in delta. The order matters:
// coefficients of the elements near the critical point reach 1e13 and cancel; powers formed
// separately would lose the digits that nesting keeps. The templates run on one state or on lanes,
// which are independent of each other: the bits are the same.

/// step(0), step(1), ..., step(count - 1), without a loop.
template <std::int32_t count, class Step>
[[gnu::always_inline]] inline void unrolled(const Step& step) noexcept {
#if defined(__clang__)
#pragma unroll
#elif defined(__GNUC__)
#pragma GCC unroll 8
#endif
  for (std::int32_t j = 0; j < count; ++j) step(j);
}

/// Sums over the powers of tau for some of the density functions; steps through all of them at
/// once, since each alone waits for its own results.
///
/// \param coef  coef[i][j]: coefficient of power i of tau in density function j
/// \param s     receives s.f[j], s.f_t[j] and the exact half of the second derivative,
///              s.half_f_tt[j]
template <std::int32_t count, class Real, class Sums>
[[gnu::always_inline]] inline void sum_powers(const Real (&coef)[temp_terms][count],
                                              const Real& tau, Sums& s) noexcept {
  unrolled<count>([&](const std::int32_t j) {
    const Real c5 = coef[5][j];
    s.f[j] = c5 * tau;
    s.f_t[j] = 5.0 * c5 * tau;
    s.half_f_tt[j] = s.f_t[j] + s.f_t[j];
  });
  unrolled<count>([&](const std::int32_t j) {
    const Real c4 = coef[4][j];
    s.f[j] = (s.f[j] + c4) * tau;
    s.f_t[j] = (s.f_t[j] + 4.0 * c4) * tau;
    s.half_f_tt[j] = (s.half_f_tt[j] + 6.0 * c4) * tau;
  });
  unrolled<count>([&](const std::int32_t j) {
    const Real c3 = coef[3][j];
    const Real three_c3 = 3.0 * c3;
    s.f[j] = (s.f[j] + c3) * tau;
    s.f_t[j] = (s.f_t[j] + three_c3) * tau;
    s.half_f_tt[j] = (s.half_f_tt[j] + three_c3) * tau;
  });
  unrolled<count>([&](const std::int32_t j) {
    const Real c2 = coef[2][j];
    s.f[j] = (s.f[j] + c2) * tau;
    s.f_t[j] = (s.f_t[j] + 2.0 * c2) * tau;
    s.half_f_tt[j] = s.half_f_tt[j] + c2;
  });
  unrolled<count>([&](const std::int32_t j) {
    const Real c1 = coef[1][j];
    s.f[j] = (s.f[j] + c1) * tau;
    s.f_t[j] = s.f_t[j] + c1;
  });
  unrolled<count>([&](const std::int32_t j) { s.f[j] = s.f[j] + coef[0][j]; });
}

/// Sum over the density functions with the factors k.
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real sum_density(const Real (&k)[dens_terms],
                                                          const Real& delta,
                                                          const Real& log_dens) noexcept {
  return k[0] * log_dens + ((((k[5] * delta + k[4]) * delta + k[3]) * delta + k[2]) * delta + k[1]);
}

/// Its derivative in density without that of the logarithm.
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real sum_slopes(const Real (&k)[dens_terms],
                                                         const Real& delta) noexcept {
  return ((4.0 * k[5] * delta + 3.0 * k[4]) * delta + 2.0 * k[3]) * delta + k[2];
}

/// Its second derivative in density without that of the logarithm.
template <class Real>
[[nodiscard, gnu::always_inline]] inline Real sum_curvatures(const Real (&k)[dens_terms],
                                                             const Real& delta) noexcept {
  return (12.0 * k[5] * delta + 6.0 * k[4]) * delta + 2.0 * k[3];
}

/// One element at one temperature: what its evaluation has in common for all densities.
///
/// The density functions go through the sums over tau in pairs, and the sums for a and a_t through
/// those over delta.
struct Isotherm {
  double dens0;
  Pair k[dens_terms];            ///< factors of the density functions in a and in a_t
  double half_f_tt[dens_terms];  ///< halves of those in a_tt

  [[nodiscard]] double f(const std::int32_t j) const noexcept { return k[j][0]; }
};

[[nodiscard, gnu::always_inline]] inline Isotherm isotherm(const Element& cell,
                                                           const double temp) noexcept {
  struct {
    Pair f[dens_terms / 2], f_t[dens_terms / 2], half_f_tt[dens_terms / 2];
  } s;
  sum_powers(pairs_of(cell.coef), both(temp - cell.temp0), s);
  const auto& h = s.half_f_tt;
  return {cell.dens0,
          {firsts(s.f[0], s.f_t[0]), seconds(s.f[0], s.f_t[0]), firsts(s.f[1], s.f_t[1]),
           seconds(s.f[1], s.f_t[1]), firsts(s.f[2], s.f_t[2]), seconds(s.f[2], s.f_t[2])},
          {h[0][0], h[0][1], h[1][0], h[1][1], h[2][0], h[2][1]}};
}

/// Helmholtz energy and derivatives on an isotherm; `log_dens` is ln `dens`.
[[nodiscard, gnu::always_inline]] inline HelmholtzDerivatives evaluate(
    const Isotherm& at, const double dens, const double log_dens) noexcept {
  const double delta = dens - at.dens0;
  const double f[dens_terms] = {at.f(0), at.f(1), at.f(2), at.f(3), at.f(4), at.f(5)};
  const Pair sums = sum_density(at.k, both(delta), both(log_dens));
  const Pair slopes = sum_slopes(at.k, both(delta));
  const double inverse = 1.0 / dens;
  HelmholtzDerivatives d;
  d.a = sums[0];
  d.a_t = sums[1];
  d.a_tt = 2.0 * sum_density(at.half_f_tt, delta, log_dens);
  // A quotient, rounded once: at low density this term is the whole pressure.
  d.a_d = f[0] / dens + slopes[0];
  d.a_td = at.k[0][1] * inverse + slopes[1];
  d.a_dd = -f[0] * inverse * inverse + sum_curvatures(f, delta);
  return d;
}

/// Evaluation of one element; `log_dens` is ln `dens`, which the caller may have at hand.
[[nodiscard, gnu::always_inline]] inline HelmholtzDerivatives evaluate(
    const Element& cell, const double temp, const double dens, const double log_dens) noexcept {
  return evaluate(isotherm(cell, temp), dens, log_dens);
}

/// Helmholtz energy and derivatives of element `e` at one state.
/// \param e     element index, 1..649; not checked
/// \param temp  temperature, K
/// \param dens  density, kg/m3, positive (zero and below give the infinities and NaN of ln and
///              1/rho)
///
/// Outside the element's rectangle its polynomial is extrapolated. NaN in gives NaN out.
/// Accuracy: that of the table, see docs/accuracy.md. Fitted to Span & Wagner, J. Phys. Chem. Ref.
/// Data 25 (1996) 1509.
[[nodiscard, gnu::visibility("default")]] HelmholtzDerivatives element_derivatives(
    const std::int32_t& e, const double& temp, const double& dens) noexcept;

}  // namespace co2_properties
