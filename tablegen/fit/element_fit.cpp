#include "tablegen/fit/element_fit.hpp"

#include <algorithm>
#include <cmath>

#include "co2_properties/limits.hpp"
#include "eos/properties.hpp"
#include "fits/near_critical.hpp"
#include "reference/elementary.hpp"
#include "reference/phase_equilibrium.hpp"
#include "reference/span_wagner.hpp"
#include "saturation/sat_density.hpp"

namespace co2_properties::tablegen {
namespace {

/// Errors that weigh the same in the sum of squares.
constexpr Real dens_scale = 2e-7L;  // relative, at given temperature and pressure
constexpr Real pres_scale = 5e-8L;  // relative; takes over where the isotherm is flat
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
constexpr Real unreachable_weight = 1e-4L;
/// Largest rounding errors of the double evaluation, of the pressure (relative) and of the term
/// T a_T of the enthalpy: Newton iterations converge to 1e-11 of both, and of the entropy. They
/// limit the coefficients of ln rho, which cancel against the polynomial in narrow elements, and
/// keep element 93 free of given rows. A record of it is known, with c(5, 1) = 6.7e13: at 304.1282
/// K that is a term of 1.1e10 kJ/kg in T a_T, whose rounding, 1.2e-6 kJ/kg, is 4e-9 of h.
constexpr Real pres_rounding_limit = 5e-14L;
constexpr Real enth_rounding_limit = 1e-9L;  // kJ/kg

/// How far beyond the saturated densities of the reference the full weight goes, as a fraction of
/// the way to the critical density: the library decides with saturated densities of its own.
constexpr Real saturation_margin = 0.02L;

/// Weights of the states on saturation and at the lowest temperature (grid states: 1), and of the
/// saturated states where both meet. With 30, cv and w of the saturated liquid at 240 K come out to
/// 3e-7 (1.4e-5 without); the element around loses a tenth.
constexpr Real border_weight = 2.0L;
constexpr Real corner_weight = 30.0L;
/// Above, the saturated densities of the library are off by more than the fit.
constexpr Real saturation_border_end = 301.0L;  // K

/// dp/drho at the critical point, kPa m3/kg. The reference has -6e-10 there and the free fit -5e-8.
/// On an isotherm that is all but flat Newton's method needs more steps than it is given: the slope
/// is raised, and with it the pressure around the critical point, by at most 5.2e-5 kPa.
constexpr Real critical_slope = 1e-5L;
constexpr Real critical_width = 12.0L;  // kg/m3

constexpr FitLimits whole_domain = {temp_min, temp_max, 0.0, 1300.0};

constexpr int nodes_per_side = 11;
constexpr int unreachable_nodes = 8;
constexpr int checks_per_side = 14;

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
  const Real share = near_critical_box.contains(temp, dens) ? critical_share : 1.0L;
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

/// The reference, with the raised slope in the elements that start on the critical isotherm:
/// p + critical_slope x exp(-(x / critical_width)^2), where x = rho - rho_crit.
reference::Helmholtz<Real> fitted_state(const ElementCell& cell, const StatePoint& at) {
  auto r = reference::helmholtz<Real>(at.temp, at.dens);
  if (cell.temp_lo != reference::t_crit) return r;
  const Real x = at.dens - static_cast<Real>(reference::d_crit);
  const Real u = x / critical_width;
  const Real slope = critical_slope * elementary::exp(-u * u);
  const Real pres = slope * x;
  const Real slope_change = slope * (1.0L - 2.0L * u * u);
  r.a_d += pres / (at.dens * at.dens);
  r.a_dd += (slope_change - 2.0L * pres / at.dens) / (at.dens * at.dens);
  return r;
}

Real value_of(const Form& form, const Form& derivatives) {
  Real sum = 0.0L;
  for (std::size_t m = 0; m < form.size(); ++m) sum += form[m] * derivatives[m];
  return sum;
}

/// True unless the library takes the state for two-phase; states closer to saturation than the
/// margin count as single phase.
bool single_phase(const StatePoint& at) {
  constexpr double margin = 0.02;
  const auto temp = static_cast<double>(at.temp);
  const auto dens = static_cast<double>(at.dens);
  return temp >= reference::t_crit || dens < calc_sat_vap_dens(temp) + margin ||
         dens > calc_sat_liq_dens(temp) - margin;
}

bool reachable(const Reach& reach, const StatePoint& at) {
  const std::vector<DensityRange> ranges = reach.densities(at.temp);
  return std::any_of(ranges.begin(), ranges.end(), [&](const DensityRange& range) {
    return at.dens >= range.lo && at.dens <= range.hi;
  });
}

/// Where one property surface ends: on saturation and at the lowest temperature. The second
/// derivatives of a fit are worst at its ends, and these are the states that others print.
struct BorderStates {
  std::vector<StatePoint> along, corner;  ///< `corner`: saturated, at the lowest temperature
};

BorderStates border_states(const ElementCell& cell, const Reach& reach) {
  BorderStates states;
  if (cell.region == Region::supercritical || reach.empty()) return states;
  const std::vector<Real> nodes = chebyshev_nodes(nodes_per_side);
  for (const Real& node : nodes) {
    const Real temp = reach.temp_lo() + (reach.temp_hi() - reach.temp_lo()) * node;
    if (temp > saturation_border_end) break;
    const auto sat = reference::saturation<Real>(temp);
    const Real dens = cell.region == Region::vapour ? sat.dens_vap : sat.dens_liq;
    if (dens < cell.dens_lo || dens > cell.dens_hi) continue;
    (temp == whole_domain.temp_lo ? states.corner : states.along).push_back({temp, dens});
  }
  if (cell.temp_lo > whole_domain.temp_lo) return states;
  for (const DensityRange& range : reach.densities(cell.temp_lo)) {
    for (const Real& node : nodes) {
      const StatePoint at = {cell.temp_lo, range.lo + (range.hi - range.lo) * node};
      if (single_phase(at)) states.along.push_back(at);
    }
  }
  return states;
}

/// The critical point itself has no finite second derivatives.
bool at_critical_point(const StatePoint& at) {
  return std::abs(at.temp - static_cast<Real>(reference::t_crit)) < 1e-5L &&
         std::abs(at.dens - static_cast<Real>(reference::d_crit)) < 0.05L;
}

/// States over the rectangle that are not stable or beyond the highest pressure.
std::vector<StatePoint> unreachable_part(const ElementCell& cell, const Reach& reach) {
  const auto temp_width = static_cast<Real>(cell.temp_hi) - cell.temp_lo;
  const auto dens_width = static_cast<Real>(cell.dens_hi) - cell.dens_lo;
  std::vector<StatePoint> points;
  for (int i = 0; i < unreachable_nodes; ++i) {
    for (int j = 0; j < unreachable_nodes; ++j) {
      const StatePoint at = {
          cell.temp_lo + temp_width * (static_cast<Real>(i) + 0.5L) / unreachable_nodes,
          cell.dens_lo + dens_width * (static_cast<Real>(j) + 0.5L) / unreachable_nodes};
      if (!reachable(reach, at)) points.push_back(at);
    }
  }
  return points;
}

/// The form of which the library makes properties.
Derivatives<double> for_properties(const reference::Helmholtz<Real>& r, const double dens) {
  return {static_cast<double>(r.a),
          static_cast<double>(r.a_t),
          static_cast<double>(r.a_tt),
          static_cast<double>(dens * r.a_d),
          static_cast<double>(dens * r.a_td),
          static_cast<double>(dens * (2.0 * r.a_d + dens * r.a_dd))};
}

PropertyErrors property_errors(const Derivatives<double>& d, const Derivatives<double>& r,
                               const double temp, const double dens) {
  const bool box = near_critical_box.contains(temp, dens);
  const double p = pressure(r, dens);
  const auto relative = [](const double x, const double ref) { return std::abs(x / ref - 1.0); };
  PropertyErrors e;
  e.value[0] = std::abs(pressure(d, dens) - p) / (box ? p : dens * r.dpdd);
  e.value[1] = std::abs(enthalpy(d, temp) - enthalpy(r, temp));
  e.value[2] = std::abs(entropy(d) - entropy(r));
  if (!box) {
    e.value[3] = relative(d.a_tt, r.a_tt);
    e.value[4] = relative(isobaric_heat_capacity(d, temp), isobaric_heat_capacity(r, temp));
    e.value[5] =
        relative(std::sqrt(speed_of_sound_squared(d)), std::sqrt(speed_of_sound_squared(r)));
  }
  return e;
}

/// Temperatures of the Chebyshev nodes of a span.
std::array<Real, temp_terms> span_nodes(const EdgeSpan& span) {
  const Real pi = elementary::acos(-1.0L);
  std::array<Real, temp_terms> nodes{};
  for (std::size_t k = 0; k < nodes.size(); ++k) {
    const Real angle = pi * (static_cast<Real>(k) + 0.5L) / temp_terms;
    nodes[k] = (span.temp_lo + span.temp_hi) / 2.0L +
               (span.temp_hi - span.temp_lo) / 2.0L * elementary::cos(angle);
  }
  return nodes;
}

/// From values at the Chebyshev nodes to coefficients, by discrete orthogonality.
Matrix nodes_to_coefficients() {
  const Real pi = elementary::acos(-1.0L);
  Matrix m(temp_terms, temp_terms);
  for (Eigen::Index n = 0; n < temp_terms; ++n) {
    for (Eigen::Index k = 0; k < temp_terms; ++k) {
      const Real angle = pi * (static_cast<Real>(k) + 0.5L) / temp_terms;
      m(n, k) = elementary::cos(angle * static_cast<Real>(n)) * (n == 0 ? 1.0L : 2.0L) / temp_terms;
    }
  }
  return m;
}

/// Chebyshev coefficients over `part` from those over `whole`.
Matrix restriction(const EdgeSpan& whole, const EdgeSpan& part) {
  Matrix values(temp_terms, temp_terms);
  Eigen::Index k = 0;
  for (const Real temp : span_nodes(part)) {
    const Real u = (2.0L * temp - whole.temp_lo - whole.temp_hi) / (whole.temp_hi - whole.temp_lo);
    values(k, 0) = 1.0L;
    values(k, 1) = u;
    for (Eigen::Index n = 2; n < temp_terms; ++n) {
      values(k, n) = 2.0L * u * values(k, n - 1) - values(k, n - 2);
    }
    ++k;
  }
  return nodes_to_coefficients() * values;
}

void append(const Rows& more, Rows& rows) {
  const Eigen::Index first = rows.b.size();
  rows.a.conservativeResize(first + more.b.size(), element_terms);
  rows.b.conservativeResize(first + more.b.size());
  rows.a.bottomRows(more.b.size()) = more.a;
  rows.b.tail(more.b.size()) = more.b;
}

/// Triangular rows with the same sum of squares as the given ones, up to a constant.
Rows compressed(const Rows& rows) {
  const Eigen::Index columns = rows.a.cols();
  const Eigen::HouseholderQR<Matrix> qr(rows.a);
  const Vector b = qr.householderQ().transpose() * rows.b;
  return {qr.matrixQR().topRows(columns).triangularView<Eigen::Upper>(), b.head(columns)};
}

}  // namespace

ElementFitter::ElementFitter(const ElementCell& cell) : cell_(cell), basis_(cell) {
  const Reach reach(box_of(cell), whole_domain, saturation_margin);
  std::vector<StatePoint> stable;
  if (!reach.empty()) stable = reach.points(chebyshev_nodes(nodes_per_side));
  std::vector<StatePoint> others = unreachable_part(cell, reach);
  // States that the library takes for two-phase are not reached either.
  const auto first_other = std::stable_partition(stable.begin(), stable.end(), single_phase);
  others.insert(others.end(), first_other, stable.end());
  stable.erase(first_other, stable.end());
  problem_.main = sample_rows(stable, 1.0L);
  const BorderStates border = border_states(cell, reach);
  append(sample_rows(border.along, border_weight), problem_.main);
  append(sample_rows(border.corner, corner_weight), problem_.main);
  problem_.soft = sample_rows(others, unreachable_weight);
  if (cell.region == Region::liquid) {
    append(target_rows(dome_tangent(cell, reach)), problem_.soft);
  }
  limit_rounding();
  problem_.fixed = given_rows();

  const Reach exact(box_of(cell), whole_domain, 0.0L);
  if (!exact.empty()) checks_ = exact.points(check_nodes(checks_per_side));
  for (StatePoint& at : checks_) {
    at = {static_cast<double>(at.temp), static_cast<double>(at.dens)};
  }
  std::erase_if(checks_,
                [](const StatePoint& at) { return at_critical_point(at) || !single_phase(at); });
}

Rows ElementFitter::sample_rows(std::vector<StatePoint> points, const Real weight) const {
  std::erase_if(points, at_critical_point);
  const auto count = static_cast<Eigen::Index>(6 * points.size());
  Rows rows{Matrix(count, element_terms), Vector(count)};
  Eigen::Index row = 0;
  for (const StatePoint& at : points) {
    const auto ref = fitted_state(cell_, at);
    for (const Form& form : error_forms(at, ref)) {
      rows.a.row(row) = weight * basis_.row(form, at.temp, at.dens).transpose();
      rows.b(row++) = weight * value_of(form, derivatives(ref));
    }
  }
  return rows;
}

Rows ElementFitter::target_rows(const std::vector<Target>& targets) const {
  const auto count = static_cast<Eigen::Index>(targets.size());
  Rows rows{Matrix(count, element_terms), Vector(count)};
  for (Eigen::Index k = 0; k < count; ++k) {
    const Target& t = targets[static_cast<std::size_t>(k)];
    rows.a.row(k) = t.weight * basis_.row(t.form, t.at.temp, t.at.dens).transpose();
    rows.b(k) = t.weight * t.value;
  }
  return rows;
}

void ElementFitter::limit_rounding() {
  constexpr Real rounding = 1.1e-16L;
  const Real temp = (static_cast<Real>(cell_.temp_lo) + cell_.temp_hi) / 2.0L;
  const Real dens = (static_cast<Real>(cell_.dens_lo) + cell_.dens_hi) / 2.0L;
  const auto middle = reference::helmholtz<Real>(temp, dens);
  // f / rho is one rounded term of a_rho, f' ln rho one of a_T, where f is the factor of ln rho.
  // Powers of tau cancel in both; f' has larger ones, by 2 n^2 in the Chebyshev polynomial n.
  const Real in_pres = rounding * basis_.log_coefficient() / (dens * std::abs(middle.a_d));
  const Real in_enth = rounding * basis_.log_coefficient() * temp * std::abs(elementary::log(dens));
  const auto terms = basis_.temperature_derivative_terms();
  std::array<Real, temp_terms> share{};  // of the limits, for each temperature function
  for (std::size_t i = 0; i < share.size(); ++i) {
    share[i] = std::max(in_pres / pres_rounding_limit, in_enth * terms[i] / enth_rounding_limit);
  }
  const Eigen::Index first = problem_.soft.b.size();
  problem_.soft.a.conservativeResize(first + temp_terms, element_terms);
  problem_.soft.b.conservativeResize(first + temp_terms);
  problem_.soft.a.bottomRows(temp_terms).setZero();
  problem_.soft.b.tail(temp_terms).setZero();
  // The weight rises until the coefficients that the fit asks for are small enough.
  for (Real weight = 1.0L;; weight *= 4.0L) {
    const Vector x = solve_least_squares(problem_);
    Real sum = 0.0L;
    for (std::size_t i = 0; i < share.size(); ++i) {
      const auto k = static_cast<Eigen::Index>(i);
      const Eigen::Index column = dens_terms * k + dens_terms - 1;
      sum += share[i] * std::abs(x(column));
      problem_.soft.a(first + k, column) = weight * share[i];
    }
    if (sum < 1.0L) return;
  }
}

/// The given coefficients as conditions, each scaled to the order of one.
Rows ElementFitter::given_rows() const {
  const auto count = static_cast<Eigen::Index>(dens_terms * cell_.given.size());
  Rows rows{Matrix(count, element_terms), Vector(count)};
  for (Eigen::Index k = 0; k < element_terms; ++k) {
    rows.a.col(k) = basis_.coefficients(Vector::Unit(element_terms, k)).head(count);
  }
  Eigen::Index k = 0;
  for (const auto& row : cell_.given) {
    for (const double c : row) rows.b(k++) = c;
  }
  for (k = 0; k < count; ++k) {
    const Real size = rows.a.row(k).norm();
    rows.a.row(k) /= size;
    rows.b(k) /= size;
  }
  return rows;
}

Rows ElementFitter::given_on_edge(const EdgeSpan& span, const bool upper) const {
  const auto count = static_cast<Eigen::Index>(cell_.given.size());
  Rows rows{Matrix(count, temp_terms), Vector(count)};
  const Matrix own = restriction(span, {cell_.temp_lo, cell_.temp_hi});
  const Real dens = upper ? cell_.dens_hi : cell_.dens_lo;
  const Real d = dens - cell_.dens_lo;
  const auto height = static_cast<Real>(cell_.temp_hi) - cell_.temp_lo;
  Real scale = 1.0L;
  for (Eigen::Index i = 0; i < count; ++i) {
    const auto& c = cell_.given[static_cast<std::size_t>(i)];
    const Real a_d = c[0] / dens + c[2] + d * (2.0L * c[3] + d * (3.0L * c[4] + d * 4.0L * c[5]));
    rows.a.row(i) = scale * basis_.temperature_power(static_cast<std::size_t>(i)).transpose() * own;
    rows.b(i) = scale * a_d;
    scale *= height;
  }
  return rows;
}

ElementFit ElementFitter::solve() const {
  return measured(basis_.to_element(solve_least_squares(problem_)));
}

ElementFit ElementFitter::solve(const std::optional<EdgeSpan>& lower,
                                const std::optional<EdgeSpan>& upper, const Vector& edges) const {
  LeastSquaresProblem problem = problem_;
  const Conditions held = conditions(lower, upper);
  problem.fixed = {held.a, held.from_edges * edges + held.constant};
  return measured(basis_.to_element(solve_least_squares(problem)));
}

Rows ElementFitter::edge_loss(const std::optional<EdgeSpan>& lower,
                              const std::optional<EdgeSpan>& upper) const {
  const Conditions held = conditions(lower, upper);
  const Eigen::Index count = held.a.rows();
  if (count == element_terms) return {Matrix(0, held.from_edges.cols()), Vector(0)};
  // x = particular (from_edges edges + constant) + space z with free z.
  const Eigen::HouseholderQR<Matrix> qr(held.a.transpose());
  const Matrix q = qr.householderQ() * Matrix::Identity(element_terms, element_terms);
  const Matrix r = qr.matrixQR().topRows(count).triangularView<Eigen::Upper>();
  const Matrix particular = q.leftCols(count) * r.transpose().triangularView<Eigen::Lower>().solve(
                                                    Matrix::Identity(count, count));
  const Matrix space = q.rightCols(element_terms - count);
  Rows rows = problem_.main;
  append(problem_.soft, rows);
  const auto& [a, b] = rows;
  // Rows below the triangle of a space are out of reach of z.
  const Eigen::HouseholderQR<Matrix> free(a * space);
  const Matrix by_edges = free.householderQ().transpose() * (a * particular * held.from_edges);
  const Vector rest = free.householderQ().transpose() * (b - a * (particular * held.constant));
  const Eigen::Index left = a.rows() - space.cols();
  return compressed({by_edges.bottomRows(left), rest.tail(left)});
}

ElementFitter::Conditions ElementFitter::conditions(const std::optional<EdgeSpan>& lower,
                                                    const std::optional<EdgeSpan>& upper) const {
  const bool at_critical_point =
      cell_.temp_lo == reference::t_crit &&
      (cell_.dens_lo == reference::d_crit || cell_.dens_hi == reference::d_crit);
  // Given rows hold as many coefficients of an edge themselves (given_on_edge); the Chebyshev
  // coefficients above those settle the rest.
  const auto given = static_cast<Eigen::Index>(cell_.given.size());
  const Eigen::Index free = temp_terms - given;
  const Eigen::Index edges = (lower ? 1 : 0) + (upper ? 1 : 0);
  const Eigen::Index count = problem_.fixed.b.size() + edges * free + (at_critical_point ? 1 : 0);
  Conditions c{Matrix::Zero(count, element_terms), Matrix::Zero(count, edges * temp_terms),
               Vector::Zero(count)};
  c.a.topRows(problem_.fixed.b.size()) = problem_.fixed.a;
  c.constant.head(problem_.fixed.b.size()) = problem_.fixed.b;
  // Scaled to order one, so that the conditions are well conditioned among themselves.
  const auto width = static_cast<Real>(cell_.dens_hi) - cell_.dens_lo;
  Eigen::Index first = problem_.fixed.b.size();
  Eigen::Index column = 0;
  const auto hold = [&](const EdgeSpan& span, const double dens) {
    const Functions f = basis_.density_functions(dens);
    for (Eigen::Index i = 0; i < free; ++i) {
      for (Eigen::Index j = 0; j < dens_terms; ++j) {
        c.a(first + i, dens_terms * (given + i) + j) = width * f[static_cast<std::size_t>(j)][1];
      }
    }
    c.from_edges.block(first, column, free, temp_terms) =
        width * restriction(span, {cell_.temp_lo, cell_.temp_hi}).bottomRows(free);
    first += free;
    column += temp_terms;
  };
  if (lower) hold(*lower, cell_.dens_lo);
  if (upper) hold(*upper, cell_.dens_hi);
  if (at_critical_point) {
    const Real dens = reference::d_crit;
    const Form slope = {0.0L, 0.0L, 2.0L, 0.0L, dens, 0.0L};  // (dp/drho) / rho
    c.a.row(first) = width * width * basis_.row(slope, cell_.temp_lo, dens).transpose();
    c.constant(first) = width * width * critical_slope / dens;
  }
  return c;
}

ElementFit ElementFitter::measured(const Element& element) const {
  ElementFit fit{element, 0.0, {}};
  Real sum = 0.0L;
  for (const StatePoint& at : checks_) {
    const auto temp = static_cast<double>(at.temp);
    const auto dens = static_cast<double>(at.dens);
    const auto ref = reference::helmholtz<Real>(at.temp, at.dens);
    const Derivatives<double> evaluated = evaluate(element, temp, dens);
    const HelmholtzDerivatives d = plain(evaluated, dens);
    const Form target = derivatives(ref);
    const Form error = {d.a - target[0],    d.a_t - target[1],  d.a_d - target[2],
                        d.a_tt - target[3], d.a_dd - target[4], d.a_td - target[5]};
    for (const Form& form : error_forms(at, ref)) {
      const Real off = value_of(form, error);
      sum += off * off;
    }
    const PropertyErrors e = property_errors(evaluated, for_properties(ref, dens), temp, dens);
    for (std::size_t m = 0; m < e.value.size(); ++m) {
      fit.errors.value[m] = std::max(fit.errors.value[m], e.value[m]);
    }
  }
  const auto count = static_cast<Real>(6 * checks_.size());
  if (count > 0.0L) fit.residual = static_cast<double>(std::sqrt(sum / count));
  return fit;
}

EdgeCoefficients interpolate_edge(const EdgeSpan& span, const double dens) {
  Vector values(temp_terms);
  Eigen::Index k = 0;
  for (const Real temp : span_nodes(span)) {
    values(k++) = reference::helmholtz<Real>(temp, dens).a_d;
  }
  return nodes_to_coefficients() * values;
}

}  // namespace co2_properties::tablegen
