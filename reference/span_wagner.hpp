#pragma once

#include <array>
#include <cmath>
#include <limits>

#include "reference/elementary.hpp"

/// Equation of state of carbon dioxide: R. Span, W. Wagner, J. Phys. Chem. Ref. Data 25 (1996)
/// 1509-1596. Specific Helmholtz energy a(T, rho) = R T [alpha0(tau, delta) + alphar(tau, delta)]
/// with tau = t_crit / T and delta = rho / d_crit, from the triple point to 1100 K and 800 MPa
/// (smooth extrapolation beyond); here with its first and second derivatives in closed form.
///
/// Everything is a template on the real type, double or long double. Published decimals are long
/// double literals, so that a long double run sees them to its own precision.
///
/// Units: K, kg/m3, kPa, kJ/kg, kJ/(kg K), m/s. Nothing here validates: temp > 0 and dens > 0 are
/// meant, NaN in gives NaN out.
namespace co2_properties::reference {

/// Reducing temperature, K. The double nearest to 304.1282 in every real type: callers hold
/// doubles, and the critical isotherm of a table must be tau = 1 exactly.
inline constexpr double t_crit = 304.1282;

/// Reducing density, kg/m3: the published 10624.9063 mol/m3 times 44.0098 g/mol is 467.60000128174;
/// the tables of this library store the double below, 2.1e-16 (relative) smaller. That double is
/// kept in every real type so that the critical isochore of a table is delta = 1 exactly.
inline constexpr double d_crit = 467.6000012817399;

/// Specific gas constant, kJ/(kg K): molar gas constant over molar mass as used in the paper.
inline constexpr long double gas_constant = 8.31451L / 44.0098L;

/// Enthalpy (kJ/kg) and entropy (kJ/(kg K)) at (t_crit, d_crit) that fix the zero points. They
/// realise h = 200 and s = 1 for the saturated liquid at 273.15 K within 2e-6 and 6e-9.
inline constexpr double h_crit = 332.24565247344543;
inline constexpr double s_crit = 1.4336253430402914;

/// Specific Helmholtz energy a (kJ/kg) and its partial derivatives in temperature (t, K) and
/// density (d, kg/m3).
template <class Real>
struct Helmholtz {
  Real a, a_t, a_d, a_tt, a_dd, a_td;
};

namespace span_wagner {

/// Contribution to alpha with its logarithmic-scale derivatives: t = tau d/dtau,
/// tt = tau^2 d2/dtau2, d = delta d/ddelta, dd = delta^2 d2/ddelta2, td = tau delta d2/dtau ddelta.
/// In this form no term divides by delta, so the dilute limit stays exact.
template <class Real>
struct Alpha {
  Real v, t, d, tt, dd, td;

  constexpr Alpha& operator+=(const Alpha& other) {
    v += other.v;
    t += other.t;
    d += other.d;
    tt += other.tt;
    dd += other.dd;
    td += other.td;
    return *this;
  }
};

/// a ln(1 - exp(-theta tau)), the vibrational part of alpha0.
template <class Real>
struct EinsteinTerm {
  Real a, theta;
};

/// n delta^d tau^(quarters/4), times exp(-delta^l) with the l of the term's group.
template <class Real>
struct PowerTerm {
  Real n;
  int d, quarters;
};

/// n delta^d tau^t exp(-eta (delta - 1)^2 - beta (tau - gamma)^2); second coefficient m multiplies
/// one more factor tau (terms 36 and 37 differ in nothing else).
template <class Real>
struct GaussTerm {
  Real n, m;
  int d, t;
  Real eta, beta, gamma;
};

/// n Delta^b delta exp(-c (delta - 1)^2 - 275 (tau - 1)^2), Delta = theta^2 + b_weight |delta -
/// 1|^(2 a).
template <class Real>
struct NonAnalyticTerm {
  Real n;
  int twice_a;
  Real b, b_weight, c;
};

template <class Real>
inline constexpr std::array<EinsteinTerm<Real>, 5> einstein_terms = {{
    {Real(1.99427042L), Real(3.15163L)},
    {Real(0.62105248L), Real(6.1119L)},
    {Real(0.41195293L), Real(6.77708L)},
    {Real(1.04028922L), Real(11.32384L)},
    {Real(0.08327678L), Real(27.08792L)},
}};

/// Terms 1 to 34 of the paper, in its order.
template <class Real>
inline constexpr std::array<PowerTerm<Real>, 34> power_terms = {{
    {Real(0.388568232032L), 1, 0},     {Real(2.93854759427L), 1, 3},
    {Real(-5.5867188535L), 1, 4},      {Real(-0.767531995925L), 1, 8},
    {Real(0.317290055804L), 2, 3},     {Real(0.548033158978L), 2, 8},
    {Real(0.122794112203L), 3, 3},     {Real(2.16589615432L), 1, 6},
    {Real(1.58417351097L), 2, 6},      {Real(-0.231327054055L), 4, 10},
    {Real(0.0581169164314L), 5, 0},    {Real(-0.553691372054L), 5, 6},
    {Real(0.489466159094L), 5, 8},     {Real(-0.0242757398435L), 6, 0},
    {Real(0.0624947905017L), 6, 4},    {Real(-0.121758602252L), 6, 8},
    {Real(-0.370556852701L), 1, 12},   {Real(-0.0167758797004L), 1, 24},
    {Real(-0.11960736638L), 4, 12},    {Real(-0.0456193625088L), 4, 24},
    {Real(0.0356127892703L), 4, 32},   {Real(-0.00744277271321L), 7, 24},
    {Real(-0.00173957049024L), 8, 0},  {Real(-0.0218101212895L), 2, 28},
    {Real(0.0243321665592L), 3, 48},   {Real(-0.0374401334235L), 3, 64},
    {Real(0.143387157569L), 5, 88},    {Real(-0.134919690833L), 5, 96},
    {Real(-0.0231512250535L), 6, 64},  {Real(0.0123631254929L), 7, 96},
    {Real(0.00210583219729L), 8, 32},  {Real(-0.000339585190264L), 10, 8},
    {Real(0.00559936517716L), 4, 112}, {Real(-0.000303351180556L), 8, 56},
}};

/// power_terms[power_group_ends[l - 1] .. power_group_ends[l]) carry exp(-delta^l); the group l = 0
/// starts at 0 and has no exponential.
inline constexpr std::array<int, 7> power_group_ends = {7, 16, 23, 26, 32, 33, 34};
inline constexpr int max_tau_power = 28;
inline constexpr int max_delta_power = 10;

/// Terms 35 to 39; 36 and 37 are one row.
template <class Real>
inline constexpr std::array<GaussTerm<Real>, 4> gauss_terms = {{
    {Real(-213.654886883L), Real(0), 2, 1, Real(25), Real(325), Real(1.16L)},
    {Real(26641.5691493L), Real(-24027.2122046L), 2, 0, Real(25), Real(300), Real(1.19L)},
    {Real(-283.41603424L), Real(0), 3, 3, Real(15), Real(275), Real(1.25L)},
    {Real(212.472844002L), Real(0), 3, 3, Real(20), Real(275), Real(1.22L)},
}};

/// Terms 40 to 42.
template <class Real>
inline constexpr std::array<NonAnalyticTerm<Real>, 3> non_analytic_terms = {{
    {Real(-0.666422765408L), 7, Real(0.875L), Real(0.3L), Real(10)},
    {Real(0.726086323499L), 7, Real(0.925L), Real(0.3L), Real(10)},
    {Real(0.0550686686128L), 6, Real(0.875L), Real(1), Real(12.5L)},
}};

/// Zero points of entropy and enthalpy: alpha0 carries c1 + c2 tau, s carries -R c1 and h carries
/// R t_crit c2. The usual values, kept beside, put h and s at (t_crit, d_crit) 1.7e-6 kJ/kg and
/// 5.5e-9 kJ/(kg K) too low; c1 and c2 differ from them in the last digits so that the equation
/// gives h_crit and s_crit there (solved with 60 digits).
inline constexpr long double c1_usual = -14.4979156224319L;
inline constexpr long double c2_usual = 8.82013935801453L;
inline constexpr long double c1 = -14.49791565173606685919148L;
inline constexpr long double c2 = 8.82013938733306185109725L;

/// x^0 .. x^max by halving the exponent, which keeps the rounding error at its least.
template <class Real, int max>
constexpr std::array<Real, max + 1> integer_powers(Real x) {
  std::array<Real, max + 1> power{};
  power[0] = Real(1);
  power[1] = x;
  for (unsigned k = 2; k <= max; ++k) power[k] = power[k / 2] * power[k - k / 2];
  return power;
}

/// Sum of 2.5 ln(tau) and the vibrational terms with its first two derivatives in tau: the part of
/// alpha0 that carries the heat capacity. v, t, tt as in Alpha.
template <class Real>
Alpha<Real> thermal_ideal_part(Real tau) {
  using elementary::exp;
  using elementary::log;
  Alpha<Real> sum{Real(2.5L) * log(tau), Real(2.5L), Real(0), -Real(2.5L), Real(0), Real(0)};
  for (const EinsteinTerm<Real>& term : einstein_terms<Real>) {
    const Real x = term.theta * tau;
    const Real decay = exp(-x);
    const Real open = Real(1) - decay;
    const Real occupation = decay / open;
    sum.v += term.a * log(open);
    sum.t += term.a * x * occupation;
    sum.tt -= term.a * x * x * occupation / open;
  }
  return sum;
}

/// alpha0, equation (6.3) of the paper.
template <class Real>
Alpha<Real> ideal_part(Real tau, Real delta) {
  using elementary::log;
  constexpr Real lead_0 = Real(8.37304456L + c1);
  constexpr Real lead_1 = Real(-3.70454304L + c2);
  Alpha<Real> sum = thermal_ideal_part(tau);
  sum.v += log(delta) + lead_0 + lead_1 * tau;
  sum.t += lead_1 * tau;
  sum.d = Real(1);
  sum.dd = Real(-1);
  return sum;
}

/// Terms 1 to 34: one pass per group of equal l, in which the exponential is a common factor.
/// With D = d - l delta^l a term v has d = D v and dd = (D^2 - D - l^2 delta^l) v.
template <class Real>
Alpha<Real> power_part(Real tau, Real delta) {
  using elementary::exp;
  using elementary::sqrt;
  const auto delta_power = integer_powers<Real, max_delta_power>(delta);
  const auto tau_power = integer_powers<Real, max_tau_power>(tau);
  const Real root = sqrt(tau);
  const std::array<Real, 4> tau_quarter = {Real(1), sqrt(root), root, root * sqrt(root)};
  Alpha<Real> sum{};
  unsigned i = 0;
  for (unsigned l = 0; l < power_group_ends.size(); ++l) {
    const Real decay_power = l == 0 ? Real(0) : delta_power[l];
    const Real slope = Real(static_cast<int>(l)) * decay_power;
    const Real curvature = Real(static_cast<int>(l)) * slope;
    Alpha<Real> group{};
    for (; i < static_cast<unsigned>(power_group_ends[l]); ++i) {
      const PowerTerm<Real>& term = power_terms<Real>[i];
      const auto quarters = static_cast<unsigned>(term.quarters);
      const Real v = term.n * delta_power[static_cast<unsigned>(term.d)] * tau_power[quarters / 4] *
                     tau_quarter[quarters % 4];
      const Real t = Real(term.quarters) / Real(4);
      const Real d = Real(term.d) - slope;
      const Real vt = v * t;
      group.v += v;
      group.t += vt;
      group.d += v * d;
      group.tt += vt * (t - Real(1));
      group.dd += v * (d * (d - Real(1)) - curvature);
      group.td += vt * d;
    }
    const Real decay = l == 0 ? Real(1) : exp(-decay_power);
    sum += Alpha<Real>{decay * group.v,  decay * group.t,  decay * group.d,
                       decay * group.tt, decay * group.dd, decay * group.td};
  }
  return sum;
}

/// Where the exponent of a bell is larger, it is below the square of the rounding error.
template <class Real>
inline constexpr Real negligible = Real(2 * std::numeric_limits<Real>::digits);

/// Terms 35 to 39. shift_delta is delta - 1, free of cancellation.
template <class Real>
Alpha<Real> gauss_part(Real tau, Real delta, Real shift_delta) {
  using elementary::exp;
  const auto delta_power = integer_powers<Real, 3>(delta);
  const auto tau_power = integer_powers<Real, 3>(tau);
  Alpha<Real> sum{};
  for (const GaussTerm<Real>& term : gauss_terms<Real>) {
    const Real off = tau - term.gamma;
    const Real spread = term.eta * shift_delta * shift_delta + term.beta * off * off;
    if (spread > negligible<Real>) continue;
    const Real bell = exp(-spread);
    const Real front = delta_power[static_cast<unsigned>(term.d)] *
                       tau_power[static_cast<unsigned>(term.t)] * bell;
    // Logarithmic slopes of the common factor and their own logarithmic derivatives.
    const Real d = Real(term.d) - Real(2) * term.eta * delta * shift_delta;
    const Real t = Real(term.t) - Real(2) * term.beta * tau * off;
    const Real dd = d * (d - Real(1)) - Real(2) * term.eta * delta * (delta + shift_delta);
    const Real tt = t * (t - Real(1)) - Real(2) * term.beta * tau * (tau + off);
    const Real linear = term.m * tau;
    const Real factor = term.n + linear;
    const Real first = factor * t + linear;
    const Real second = factor * tt + Real(2) * linear * t;
    sum += Alpha<Real>{front * factor, front * first,       front * factor * d,
                       front * second, front * factor * dd, front * first * d};
  }
  return sum;
}

/// Terms 40 to 42, the non-analytic ones: n Delta^b delta psi. They share A = 0.7, beta = 0.3 and
/// D = 275, so theta = (1 - tau) + A |delta - 1|^(10/3) and Delta = theta^2 + B |delta - 1|^(2 a).
/// \param below  1 - tau, \param x  delta - 1; both free of cancellation
/// At the critical point Delta = 0: value and first derivatives vanish there, the second derivative
/// in tau diverges like |1 - tau|^(-1/4). The terms are dropped at that one point.
template <class Real>
Alpha<Real> non_analytic_part(Real tau, Real delta, Real below, Real x) {
  using elementary::cbrt;
  using elementary::exp;
  using elementary::fabs;
  using elementary::pow;
  using elementary::sqrt;
  constexpr Real amplitude = Real(0.7L);
  constexpr Real width = Real(275);
  Alpha<Real> sum{};
  const Real spread = width * below * below;
  if (spread > negligible<Real>) return sum;

  const Real absx = fabs(x);
  const Real x2 = x * x;
  const Real root = cbrt(absx);
  const Real theta = below + amplitude * absx * x2 * root;
  const Real theta_d = amplitude * (Real(10) / Real(3)) * x * absx * root;
  const Real theta_dd = amplitude * (Real(70) / Real(9)) * absx * root;
  for (const NonAnalyticTerm<Real>& term : non_analytic_terms<Real>) {
    const Real twice_a = Real(term.twice_a);
    const Real tail = term.b_weight * x2 * x2 * (term.twice_a == 7 ? absx : Real(1));
    const Real dist = theta * theta + tail * x2;
    if (!(dist > Real(0))) continue;
    const Real dist_d = Real(2) * theta * theta_d + twice_a * tail * x;
    const Real dist_t = -Real(2) * theta;
    const Real dist_dd =
        Real(2) * (theta_d * theta_d + theta * theta_dd) + twice_a * (twice_a - Real(1)) * tail;
    const Real dist_td = -Real(2) * theta_d;

    // g = Delta^b and its derivatives by the chain rule.
    const Real g = term.b == Real(0.875L) ? dist / sqrt(sqrt(sqrt(dist))) : pow(dist, term.b);
    const Real slope = term.b * g / dist;
    const Real bend = (term.b - Real(1)) * slope / dist;
    const Real g_d = slope * dist_d;
    const Real g_t = slope * dist_t;
    const Real g_dd = slope * dist_dd + bend * dist_d * dist_d;
    const Real g_tt = slope * Real(2) + bend * dist_t * dist_t;
    const Real g_td = slope * dist_td + bend * dist_d * dist_t;

    // f = n g psi, whose psi has logarithmic derivatives psi_d and psi_t.
    const Real psi = term.n * exp(-term.c * x2 - spread);
    const Real psi_d = -Real(2) * term.c * x;
    const Real psi_t = Real(2) * width * below;
    const Real f = psi * g;
    const Real f_d = psi * (g_d + g * psi_d);
    const Real f_t = psi * (g_t + g * psi_t);
    const Real f_dd = psi * (g_dd + Real(2) * g_d * psi_d + g * (psi_d * psi_d - Real(2) * term.c));
    const Real f_tt = psi * (g_tt + Real(2) * g_t * psi_t + g * (psi_t * psi_t - Real(2) * width));
    const Real f_td = psi * (g_td + g_d * psi_t + g_t * psi_d + g * psi_d * psi_t);

    sum += Alpha<Real>{delta * f,
                       delta * tau * f_t,
                       delta * (f + delta * f_d),
                       delta * tau * tau * f_tt,
                       delta * delta * (Real(2) * f_d + delta * f_dd),
                       delta * tau * (f_t + delta * f_td)};
  }
  return sum;
}

}  // namespace span_wagner

/// Specific Helmholtz energy and its derivatives.
/// \param temp  K, > 0; \param dens  kg/m3, > 0
/// The equation is evaluated where it stands: inside the two-phase region this is the metastable or
/// unstable single-phase value, with its loops. a_tt and a_td are singular at (t_crit, d_crit);
/// there the finite part is returned.
template <class Real>
Helmholtz<Real> helmholtz(Real temp, Real dens) {
  const Real tau = Real(t_crit) / temp;
  const Real delta = dens / Real(d_crit);
  const Real below = (temp - Real(t_crit)) / temp;
  const Real x = (dens - Real(d_crit)) / Real(d_crit);
  span_wagner::Alpha<Real> alpha = span_wagner::power_part(tau, delta);
  alpha += span_wagner::gauss_part(tau, delta, x);
  alpha += span_wagner::non_analytic_part(tau, delta, below, x);
  alpha += span_wagner::ideal_part(tau, delta);
  const Real gas = Real(gas_constant);
  const Real scale = gas * temp;
  return {
      scale * alpha.v,       gas * (alpha.v - alpha.t),        scale * alpha.d / dens,
      gas * alpha.tt / temp, scale * alpha.dd / (dens * dens), gas * (alpha.d - alpha.td) / dens};
}

/// Properties that follow from one evaluation of the Helmholtz energy: pressure p (kPa), internal
/// energy u, enthalpy h (kJ/kg), entropy s, heat capacities cv, cp (kJ/(kg K)), speed of sound w
/// (m/s) and the derivatives of p, h and s in density at constant temperature (dd) and in
/// temperature at constant density (dt).
template <class Real>
struct Properties {
  Real p, u, h, s, cv, cp, w;
  Real dpdd, dpdt, dhdd, dhdt, dsdd, dsdt;
};

/// \param a     Helmholtz energy and derivatives at (temp, dens)
/// \param temp  K; \param dens  kg/m3
/// cp and w are meaningful where dpdd > 0 and cv > 0; w is NaN where its square is negative.
template <class Real>
Properties<Real> properties(const Helmholtz<Real>& a, Real temp, Real dens) {
  using elementary::sqrt;
  constexpr Real j_per_kj = Real(1000);
  Properties<Real> out;
  out.p = dens * dens * a.a_d;
  out.s = -a.a_t;
  out.u = a.a + temp * out.s;
  out.h = out.u + dens * a.a_d;
  out.dpdd = dens * (Real(2) * a.a_d + dens * a.a_dd);
  out.dpdt = dens * dens * a.a_td;
  out.cv = -temp * a.a_tt;
  const Real stress = temp * dens * dens * a.a_td * a.a_td;
  out.cp = out.cv + stress / out.dpdd;
  out.w = sqrt(j_per_kj * (out.dpdd + stress / out.cv));
  out.dsdt = -a.a_tt;
  out.dsdd = -a.a_td;
  out.dhdt = out.cv + dens * a.a_td;
  out.dhdd = out.dpdd / dens - temp * a.a_td;
  return out;
}

/// The same in one call.
template <class Real>
Properties<Real> properties(Real temp, Real dens) {
  return properties(helmholtz(temp, dens), temp, dens);
}

/// Isobaric heat capacity of the ideal gas, kJ/(kg K), at temp in K.
template <class Real>
Real ideal_cp(Real temp) {
  const auto ideal = span_wagner::thermal_ideal_part(Real(t_crit) / temp);
  return Real(gas_constant) * (Real(1) - ideal.tt);
}

}  // namespace co2_properties::reference
