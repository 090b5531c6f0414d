#pragma once
// Helmholtz energy and its derivatives: the one evaluation of the element polynomials, for one
// state or for several in lanes.

#include <cstdint>

#include "co2_properties/helmholtz_derivatives.hpp"
#include "eos/element.hpp"
#include "numbers/couple.hpp"
#include "numbers/logarithm.hpp"
#include "numbers/polynomial.hpp"

namespace co2_properties {

/// One element at one temperature: what its evaluation has in common for all densities. Factors of
/// the density functions, ln rho first; no arrays, which some compilers would copy through memory.
template <class Real>
struct Isotherm {
  Real dens0;
  Couple<Real> a0, a1, a2, a3, a4, a5;  ///< factors in a and in a_T
  Couple<Real> b0, b1, b2, b3, b4, b5;  ///< halves of those in a_TT, sixths of those in a_TTT
};

/// Whether sums go as far as third derivatives, for steps of third order.
enum class Order { second, third };

template <Order order = Order::second>
[[nodiscard, gnu::always_inline]] inline Isotherm<double> isotherm(const Element& cell,
                                                                   const double temp) noexcept {
  const double tau = temp - cell.temp0;
  const auto columns = [&](const std::int32_t at) CO2_INLINE {
    auto e = expand_two<PowersBy::ascending_rows>(&cell.coef[0][0], at, tau);
    if constexpr (order == Order::second) e.third = e.second;  // not used, and so not summed
    return e;
  };
  const auto firsts = [](const Lanes2& a, const Lanes2& b)
                          CO2_INLINE { return __builtin_shufflevector(a, b, 0, 2); };
  const auto seconds = [](const Lanes2& a, const Lanes2& b)
                           CO2_INLINE { return __builtin_shufflevector(a, b, 1, 3); };
  const Expansion<Lanes2> e = columns(0);
  const Expansion<Lanes2> f = columns(2);
  const Expansion<Lanes2> g = columns(4);
  return {cell.dens0,
          firsts(e.value, e.first),
          seconds(e.value, e.first),
          firsts(f.value, f.first),
          seconds(f.value, f.first),
          firsts(g.value, g.first),
          seconds(g.value, g.first),
          firsts(e.second, e.third),
          seconds(e.second, e.third),
          firsts(f.second, f.third),
          seconds(f.second, f.third),
          firsts(g.second, g.third),
          seconds(g.second, g.third)};
}

/// The same for one state or for lanes; lanes sum third derivatives in any case, where they are
/// used.
template <class V, Order order>
[[nodiscard, gnu::always_inline]] inline Isotherm<V> isotherm(const Cells<V>& cells,
                                                              const V& temp) noexcept {
  if constexpr (lane_count<V> == 1) {
    return isotherm<order>(*cells[0], temp);
  } else {
    Rows<V> origins;
    Rows<V> matrices;
    for_each_lane<V>([&](const int k) CO2_INLINE {
      origins[k] = &cells[k]->dens0;
      matrices[k] = &cells[k]->coef[0][0];
    });
    const Two<V> origin = load_two<V>(origins);  // density, temperature
    alignas(V) double tau[lane_count<V>];
    store(temp - origin.second, tau);
    const Columns<V> c = expand_columns<PowersBy::ascending_rows>(matrices, tau);
    const auto slopes = [](const Expansion<V>& e) CO2_INLINE { return couple(e.value, e.first); };
    const auto bends = [](const Expansion<V>& e) CO2_INLINE { return couple(e.second, e.third); };
    return {origin.first, slopes(c.c0), slopes(c.c1), slopes(c.c2), slopes(c.c3),
            slopes(c.c4), slopes(c.c5), bends(c.c0),  bends(c.c1),  bends(c.c2),
            bends(c.c3),  bends(c.c4),  bends(c.c5)};
  }
}

/// Derivatives of the Helmholtz energy in the form of which properties are made: products with the
/// density, where those in a_rho and so on would have to be divided by it again.
template <class Real>
struct Derivatives {
  Real a;     ///< kJ/kg
  Real a_t;   ///< a_T, kJ/(kg K)
  Real a_tt;  ///< a_TT, kJ/(kg K2)
  Real pv;    ///< rho a_rho = p / rho, kJ/kg
  Real pv_t;  ///< rho a_Trho, its derivative in T, kJ/(kg K)
  Real dpdd;  ///< (dp/drho) at constant T, kPa m3/kg
};

/// Derivatives that steps of third order use beside the others.
template <class Real>
struct ThirdDerivatives {
  Real a_ttt;   ///< kJ/(kg K3)
  Real pv_tt;   ///< rho a_TTrho, kJ/(kg K2)
  Real dpdd_t;  ///< d2p/(dT drho), kPa m3/(kg K)
  Real dpdd_d;  ///< d2p/drho2, kPa m6/kg2
};

template <class Real>
struct Evaluation {
  Derivatives<Real> d;
  ThirdDerivatives<Real> third;  ///< valid on an isotherm of third order; else costs nothing
};

/// Helmholtz energy and derivatives on an isotherm; `log_dens` is ln `dens`.
template <class Real>
[[nodiscard, gnu::always_inline]] inline Evaluation<Real> expand_density(
    const Isotherm<Real>& at, const Real& dens, const Real& log_dens) noexcept {
  const Real delta = dens - at.dens0;
  const Couple<Real> x = both(delta);
  // Polynomials of a and a_T ...
  const Couple<Real> v3 = at.a5 * x + at.a4;
  const Couple<Real> f3 = at.a5 * x + v3;
  const Couple<Real> v2 = v3 * x + at.a3;
  const Couple<Real> f2 = f3 * x + v2;
  const Couple<Real> s2 = at.a5 * x + f3;
  const Couple<Real> v1 = v2 * x + at.a2;
  const Couple<Real> f1 = f2 * x + v1;
  const Couple<Real> s1 = s2 * x + f2;
  const Real t1 = one(at.a5) * delta + one(s2);
  const Couple<Real> v0 = v1 * x + at.a1;
  // ... and of half of a_TT and a sixth of a_TTT.
  const Couple<Real> w3 = at.b5 * x + at.b4;
  const Couple<Real> w2 = w3 * x + at.b3;
  const Couple<Real> w1 = w2 * x + at.b2;
  const Couple<Real> w0 = w1 * x + at.b1;
  const Real g3 = one(at.b5) * delta + one(w3);
  const Real g2 = g3 * delta + one(w2);
  const Real g1 = g2 * delta + one(w1);

  const Couple<Real> values = at.a0 * both(log_dens) + v0;
  const Couple<Real> bends = at.b0 * both(log_dens) + w0;
  const Couple<Real> pv = at.a0 + both(dens) * f1;
  const Real curve = one(f1) + dens * (one(s1) + one(s1));
  const Real half_pv_tt = one(at.b0) + dens * g1;
  const Real half_dpdd_t = dens * (other(f1) + dens * other(s1));
  const Real half_dpdd_d = one(f1) + dens * (4.0 * one(s1) + 3.0 * dens * t1);
  return {{one(values), other(values), one(bends) + one(bends), one(pv), other(pv),
           one(pv) + dens * curve},
          {6.0 * other(bends), half_pv_tt + half_pv_tt, other(at.a0) + (half_dpdd_t + half_dpdd_t),
           half_dpdd_d + half_dpdd_d}};
}

template <class Real>
[[nodiscard, gnu::always_inline]] inline Derivatives<Real> evaluate(const Isotherm<Real>& at,
                                                                    const Real& dens,
                                                                    const Real& log_dens) noexcept {
  return expand_density(at, dens, log_dens).d;
}

/// Evaluation of one element at any numbers.
[[nodiscard, gnu::always_inline]] inline Derivatives<double> evaluate(const Element& cell,
                                                                      const double temp,
                                                                      const double dens) noexcept {
  return evaluate(isotherm(cell, temp), dens, logarithm(dens));
}

/// Evaluation for one state or for lanes; densities are normal numbers.
template <class V>
[[nodiscard, gnu::always_inline]] inline Derivatives<V> evaluate(const Cells<V>& cells,
                                                                 const V& temp,
                                                                 const V& dens) noexcept {
  return evaluate(isotherm<V, Order::second>(cells, temp), dens, logarithm_of_normal<V>(dens));
}

/// The plain derivatives.
[[nodiscard]] constexpr HelmholtzDerivatives plain(const Derivatives<double>& d,
                                                   const double dens) noexcept {
  return {d.a, d.a_t, d.pv / dens, d.a_tt, (d.dpdd - 2.0 * d.pv) / (dens * dens), d.pv_t / dens};
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
