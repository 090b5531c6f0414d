#include "tablegen/fit/element_fit.hpp"

#include <algorithm>
#include <cmath>

#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "tablegen/reference/span_wagner.hpp"

namespace co2_properties::tablegen {
namespace {

/// Errors that weigh the same in the sum of squares.
constexpr Real dens_scale = 2e-7L;  // relative, at given temperature and pressure
constexpr Real pres_scale = 5e-9L;  // relative; takes over where the isotherm is flat
constexpr Real enth_scale = 1e-4L;  // kJ/kg
constexpr Real entr_scale = 3e-7L;  // kJ/(kg K)
constexpr Real cv_scale = 5e-5L;    // relative
constexpr Real cp_scale = 1e-4L;    // relative
constexpr Real ssnd_scale = 3e-5L;  // relative

/// In the box around the critical point the library takes cv, cp and w from fits of their own;
/// there the second derivatives only keep a token weight, for smooth isotherms.
constexpr Real critical_share = 0.01L;
/// Weight of the part of a rectangle that no stable state reaches, below saturation or beyond the
/// highest pressure: enough to keep the polynomial near the continued equation of state, where
/// Newton iterates may pass, too little to be felt in the stable part.
constexpr Real unreachable_weight = 1e-3L;
/// Rounding of the double evaluation, relative to the pressure, that weighs one unit: limits the
/// coefficients of ln rho, which cancel against the polynomial in narrow elements.
constexpr Real rounding_scale = 1e-13L;

/// How far beyond the saturated densities of the reference the full weight goes, as a fraction of
/// the way to the critical density: the library decides with saturated densities of its own.
constexpr Real saturation_margin = 0.02L;

constexpr FitLimits whole_domain = {240.0, 1500.0, 0.0, 1300.0};

constexpr int nodes_per_side = 11;
constexpr int unreachable_nodes = 8;
constexpr int checks_per_side = 14;

bool in_critical_box(const Real temp, const Real dens) {
  return temp > 302.9L && temp < 310.0L && dens > 350.0L && dens < 580.0L;
}

Box box_of(const ElementCell& cell) {
  return {cell.temp_lo, cell.temp_hi, cell.dens_lo, cell.dens_hi};
}

Form derivatives(const reference::Helmholtz<Real>& r) {
  return {r.a, r.a_t, r.a_d, r.a_tt, r.a_dd, r.a_td};
}

/// Property errors as linear forms of the errors of the derivatives, in units of their scales.
std::array<Form, 6> error_forms(const StatePoint& at, const reference::Helmholtz<Real>& r) {
  const auto [temp, dens] = at;
  const Real p = dens * dens * r.a_d;
  const Real slope = 2.0L * r.a_d + dens * r.a_dd;  // (dp/drho) / rho
  const Real share = in_critical_box(temp, dens) ? critical_share : 1.0L;
  std::array<Form, 6> forms{};
  forms[0][2] =
      dens * dens / std::max(std::abs(slope) * dens * dens * dens_scale, std::abs(p) * pres_scale);
  forms[1] = {1.0L / enth_scale, -temp / enth_scale, dens / enth_scale, 0.0L, 0.0L, 0.0L};
  forms[2][1] = -1.0L / entr_scale;
  forms[3][3] = share / (r.a_tt * cv_scale);
  // cp / T = rho a_td^2 / slope - a_tt
  const Real ratio = r.a_td / slope;
  const Real cp = dens * r.a_td * ratio - r.a_tt;
  const Real kp = share / (cp * cp_scale);
  forms[4] = {0.0L,
              0.0L,
              -2.0L * dens * ratio * ratio * kp,
              -kp,
              -dens * dens * ratio * ratio * kp,
              2.0L * dens * ratio * kp};
  // (w / rho)^2 = a_dd - a_td^2 / a_tt + 2 a_d / rho
  const Real bend = r.a_td / r.a_tt;
  const Real w2 = r.a_dd - r.a_td * bend + 2.0L * r.a_d / dens;
  const Real kw = share / (2.0L * w2 * ssnd_scale);
  forms[5] = {0.0L, 0.0L, 2.0L / dens * kw, bend * bend * kw, kw, -2.0L * bend * kw};
  return forms;
}

bool reachable(const Reach& reach, const StatePoint& at) {
  for (const DensityRange& range : reach.densities(at.temp)) {
    if (at.dens >= range.lo && at.dens <= range.hi) return true;
  }
  return false;
}

/// The critical point itself has no finite second derivatives.
bool at_critical_point(const StatePoint& at) {
  return std::abs(at.temp - static_cast<Real>(reference::t_crit)) < 1e-5L &&
         std::abs(at.dens - static_cast<Real>(reference::d_crit)) < 0.05L;
}

HelmholtzDerivatives to_double(const reference::Helmholtz<Real>& r) {
  return {static_cast<double>(r.a),    static_cast<double>(r.a_t),  static_cast<double>(r.a_d),
          static_cast<double>(r.a_tt), static_cast<double>(r.a_dd), static_cast<double>(r.a_td)};
}

PropertyErrors property_errors(const HelmholtzDerivatives& d, const HelmholtzDerivatives& r,
                               const double temp, const double dens) {
  const bool box = in_critical_box(temp, dens);
  const double p = pressure(r, dens);
  const auto relative = [](const double x, const double ref) { return std::abs(x / ref - 1.0); };
  PropertyErrors e;
  e.value[0] = std::abs(pressure(d, dens) - p) / (box ? p : dens * dpdd(r, dens));
  e.value[1] = std::abs(enthalpy(d, temp, dens) - enthalpy(r, temp, dens));
  e.value[2] = std::abs(entropy(d) - entropy(r));
  if (!box) {
    e.value[3] = relative(d.a_tt, r.a_tt);
    e.value[4] =
        relative(isobaric_heat_capacity(d, temp, dens), isobaric_heat_capacity(r, temp, dens));
    e.value[5] = relative(speed_of_sound(d, dens), speed_of_sound(r, dens));
  }
  return e;
}

std::array<Real, 6> chebyshev_coefficients(const EdgePolynomial& edge, const Real lo,
                                           const Real hi) {
  constexpr int n = temp_terms;
  const Real pi = std::acos(-1.0L);
  std::array<Real, n> coef{};
  for (int m = 0; m < n; ++m) {
    Real sum = 0.0L;
    for (int k = 0; k < n; ++k) {
      const Real angle = pi * (static_cast<Real>(k) + 0.5L) / n;
      sum += edge((lo + hi) / 2.0L + (hi - lo) / 2.0L * std::cos(angle)) * std::cos(angle * m);
    }
    coef[static_cast<std::size_t>(m)] = sum * (m == 0 ? 1.0L : 2.0L) / n;
  }
  return coef;
}

}  // namespace

Real EdgePolynomial::operator()(const Real temp) const {
  const Real u = (2.0L * temp - temp_lo - temp_hi) / (temp_hi - temp_lo);
  Real next = 0.0L;
  Real after = 0.0L;
  for (std::size_t n = coef.size(); n-- > 1;) {
    const Real value = coef[n] + 2.0L * u * next - after;
    after = next;
    next = value;
  }
  return coef[0] + u * next - after;
}

ElementFitter::ElementFitter(const ElementCell& cell) : cell_(cell), basis_(cell) {
  const Reach reach(box_of(cell), whole_domain, saturation_margin);
  std::vector<StatePoint> points;
  if (!reach.empty()) points = reach.points(chebyshev_nodes(nodes_per_side));
  std::erase_if(points, at_critical_point);
  const std::size_t full = points.size();
  const Reach stable(box_of(cell), whole_domain, 0.0L);
  if (!stable.empty()) checks_ = stable.points(check_nodes(checks_per_side));

  const auto temp_width = static_cast<Real>(cell.temp_hi) - cell.temp_lo;
  const auto dens_width = static_cast<Real>(cell.dens_hi) - cell.dens_lo;
  for (int i = 0; i < unreachable_nodes; ++i) {
    for (int j = 0; j < unreachable_nodes; ++j) {
      const StatePoint at = {
          cell.temp_lo + temp_width * (static_cast<Real>(i) + 0.5L) / unreachable_nodes,
          cell.dens_lo + dens_width * (static_cast<Real>(j) + 0.5L) / unreachable_nodes};
      if (!reachable(reach, at)) points.push_back(at);
    }
  }

  const auto rows = static_cast<Eigen::Index>(6 * points.size() + temp_terms);
  problem_.a = Matrix::Zero(rows, element_terms);
  problem_.b = Vector::Zero(rows);
  Eigen::Index row = 0;
  for (std::size_t k = 0; k < points.size(); ++k) {
    const Real weight = k < full ? 1.0L : unreachable_weight;
    const auto ref = reference::helmholtz<Real>(points[k].temp, points[k].dens);
    const Form target = derivatives(ref);
    for (const Form& form : error_forms(points[k], ref)) {
      problem_.a.row(row) = weight * basis_.row(form, points[k].temp, points[k].dens).transpose();
      Real value = 0.0L;
      for (std::size_t m = 0; m < form.size(); ++m) value += form[m] * target[m];
      problem_.b(row++) = weight * value;
    }
  }
  // c_0 / rho is one rounded term of a_rho: its rounding error in p = rho^2 a_rho.
  const auto middle = reference::helmholtz<Real>((cell.temp_lo + temp_width / 2.0L),
                                                 (cell.dens_lo + dens_width / 2.0L));
  const Real noise = 1.1e-16L / (static_cast<Real>(cell.dens_lo) * std::abs(middle.a_d));
  for (Eigen::Index i = 0; i < temp_terms; ++i) {
    problem_.a(row++, dens_terms * i + dens_terms - 1) =
        noise * basis_.log_coefficient() / rounding_scale;
  }
}

ElementFit ElementFitter::solve(const std::optional<EdgePolynomial>& lower,
                                const std::optional<EdgePolynomial>& upper) const {
  LeastSquaresProblem problem = problem_;
  const Eigen::Index conditions = temp_terms * (lower.has_value() + upper.has_value());
  problem.fixed = Matrix::Zero(conditions, element_terms);
  problem.fixed_to = Vector::Zero(conditions);
  Eigen::Index row = 0;
  const auto hold = [&](const EdgePolynomial& edge, const double dens) {
    const Functions f = basis_.density_functions(dens);
    const auto coef = chebyshev_coefficients(edge, cell_.temp_lo, cell_.temp_hi);
    // Scaled to order one, so that the conditions are well conditioned among themselves.
    const auto scale = static_cast<Real>(cell_.dens_hi) - cell_.dens_lo;
    for (Eigen::Index i = 0; i < temp_terms; ++i, ++row) {
      for (Eigen::Index j = 0; j < dens_terms; ++j) {
        problem.fixed(row, dens_terms * i + j) = scale * f[static_cast<std::size_t>(j)][1];
      }
      problem.fixed_to(row) = scale * coef[static_cast<std::size_t>(i)];
    }
  };
  if (lower) hold(*lower, cell_.dens_lo);
  if (upper) hold(*upper, cell_.dens_hi);

  ElementFit fit{basis_.to_element(solve_least_squares(problem)), 0.0, {}};
  Real sum = 0.0L;
  std::size_t count = 0;
  for (const StatePoint& point : checks_) {
    const StatePoint at = {static_cast<double>(point.temp), static_cast<double>(point.dens)};
    if (at_critical_point(at)) continue;
    const auto temp = static_cast<double>(at.temp);
    const auto dens = static_cast<double>(at.dens);
    const auto ref = reference::helmholtz<Real>(at.temp, at.dens);
    const HelmholtzDerivatives d = evaluate(fit.element, temp, dens, std::log(dens));
    const Form target = derivatives(ref);
    const Form error = {d.a - target[0],    d.a_t - target[1],  d.a_d - target[2],
                        d.a_tt - target[3], d.a_dd - target[4], d.a_td - target[5]};
    for (const Form& form : error_forms(at, ref)) {
      Real value = 0.0L;
      for (std::size_t m = 0; m < form.size(); ++m) value += form[m] * error[m];
      sum += value * value;
      ++count;
    }
    const PropertyErrors e = property_errors(d, to_double(ref), temp, dens);
    for (std::size_t m = 0; m < e.value.size(); ++m) {
      fit.errors.value[m] = std::max(fit.errors.value[m], e.value[m]);
    }
  }
  if (count > 0) fit.residual = static_cast<double>(std::sqrt(sum / static_cast<Real>(count)));
  return fit;
}

EdgePolynomial fit_edge(const Region region, const double dens, const double temp_lo,
                        const double temp_hi) {
  constexpr int nodes = 24;
  const Real lo = temp_lo;
  const Real hi = temp_hi;
  LeastSquaresProblem problem{Matrix::Zero(2 * nodes, temp_terms), Vector::Zero(2 * nodes)};
  Eigen::Index row = 0;
  const std::vector<Real> at = chebyshev_nodes(nodes);
  // The thinnest box that has the edge as its inner side in the region.
  const Box line = {temp_lo, temp_hi, region == Region::vapour ? dens - 1e-3 : dens,
                    region == Region::vapour ? dens : dens + 1e-3};
  const Reach reach(line, whole_domain, saturation_margin);
  const auto add = [&](const Real temp, const Real weight) {
    if (at_critical_point({temp, dens})) return;
    const auto r = reference::helmholtz<Real>(temp, dens);
    const Real p = dens * dens * r.a_d;
    const Real slope = 2.0L * r.a_d + dens * r.a_dd;
    const Real by_pressure =
        weight * dens * dens /
        std::max(std::abs(slope) * dens * dens * dens_scale, std::abs(p) * pres_scale);
    // cp and w see dp/dT directly.
    const Real by_slope = weight / (std::abs(r.a_td) * ssnd_scale);
    const Real u = (2.0L * temp - lo - hi) / (hi - lo);
    std::array<Real, temp_terms> t = {1.0L, u};
    std::array<Real, temp_terms> t_u = {0.0L, 1.0L};
    for (std::size_t n = 2; n < t.size(); ++n) {
      t[n] = 2.0L * u * t[n - 1] - t[n - 2];
      t_u[n] = 2.0L * t[n - 1] + 2.0L * u * t_u[n - 1] - t_u[n - 2];
    }
    for (Eigen::Index n = 0; n < temp_terms; ++n) {
      problem.a(row, n) = by_pressure * t[static_cast<std::size_t>(n)];
      problem.a(row + 1, n) = by_slope * t_u[static_cast<std::size_t>(n)] * 2.0L / (hi - lo);
    }
    problem.b(row) = by_pressure * r.a_d;
    problem.b(row + 1) = by_slope * r.a_td;
    row += 2;
  };
  if (reach.empty()) {
    for (const Real s : at) add(lo + (hi - lo) * s, 1.0L);
  } else {
    // Two thirds of the nodes where states are stable, the rest over the whole edge.
    for (const Real s : chebyshev_nodes(2 * nodes / 3)) {
      add(reach.temp_lo() + (reach.temp_hi() - reach.temp_lo()) * s, 1.0L);
    }
    for (const Real s : chebyshev_nodes(nodes / 3)) add(lo + (hi - lo) * s, unreachable_weight);
  }
  const Vector x = solve_least_squares(problem);
  EdgePolynomial edge{lo, hi, {}};
  for (Eigen::Index n = 0; n < temp_terms; ++n) edge.coef[static_cast<std::size_t>(n)] = x(n);
  return edge;
}

}  // namespace co2_properties::tablegen
