#include "tablegen/fit/inverse_fit.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "reference/elementary.hpp"
#include "reference/span_wagner.hpp"
#include "tablegen/fit/least_squares.hpp"

namespace co2_properties::tablegen {
namespace {

constexpr std::size_t terms = inverse_terms;
using Row = std::array<Real, terms>;
using Square = std::array<Row, terms>;

/// Distance from the critical density, kg/m3, below which weights grow no more.
constexpr Real least_distance = 20.0L;

/// Relative weight of the pull on each coefficient: keeps those small that the states hardly tell
/// apart, and lies too far below the fit errors to be felt in them.
constexpr Real damping = 1e-10L;

/// Weight of residuals in cold liquid against those of the states served: it leaves vapour of the
/// same cell good to 0.3 %.
constexpr Real cold_weight = 0.006L;

struct Interval {
  Real mid, half;

  [[nodiscard]] Real scaled(const Real x) const { return (x - mid) / half; }
};

template <class Member>
Interval interval_of(const std::vector<InverseState>& states, const Member member) {
  const auto [lo, hi] =
      std::minmax_element(states.begin(), states.end(),
                          [member](const auto& a, const auto& b) { return a.*member < b.*member; });
  return {((*lo).*member + (*hi).*member) / 2.0L, ((*hi).*member - (*lo).*member) / 2.0L};
}

/// Four functions of one variable, well told apart on an interval, and how they are made of the
/// stored ones.
struct Basis {
  Interval on;
  bool logarithmic;
  Row quadratic{};  ///< Chebyshev coefficients of the parabola that is taken out of the logarithm
  Real log_size{};  ///< largest size of what remains
  Square stored{};  ///< stored[n][m]: part of the stored function m in function n

  /// The Chebyshev polynomials T_0 .. T_3.
  static Basis polynomials(const Interval& on, const Real origin) {
    Basis basis{on, false};
    const Real shift = on.scaled(origin);
    const Real slope = 1.0L / on.half;
    Square& power = basis.stored;
    power[0][0] = 1.0L;
    power[1] = {shift, slope};
    for (std::size_t n = 2; n < terms; ++n) {
      for (std::size_t m = 0; m < terms; ++m) {
        const Real lower = m > 0 ? power[n - 1][m - 1] : 0.0L;
        power[n][m] = 2.0L * (shift * power[n - 1][m] + slope * lower) - power[n - 2][m];
      }
    }
    return basis;
  }

  /// T_0 .. T_2 and the logarithm, less the parabola through it at the three Chebyshev points, over
  /// the largest size of the rest: on a narrow interval the bare logarithm would repeat the others.
  static Basis with_logarithm(const Interval& on, const Real origin) {
    Basis basis = polynomials(on, origin);
    basis.logarithmic = true;
    const Real node = std::sqrt(0.75L);
    const Real middle = elementary::log(on.mid);
    const Real above = elementary::log(on.mid + on.half * node) - middle;
    const Real below = elementary::log(on.mid - on.half * node) - middle;
    const Real bend = (above + below) / (2.0L * node * node);
    basis.quadratic = {middle + bend / 2.0L, (above - below) / (2.0L * node), bend / 2.0L};
    basis.log_size = 1.0L;
    constexpr int samples = 64;
    Real largest = 0.0L;
    for (int k = 0; k <= samples; ++k) {
      const Real x = on.mid + on.half * (2.0L * static_cast<Real>(k) / samples - 1.0L);
      largest = std::max(largest, std::fabs(basis.values(x)[3]));
    }
    basis.log_size = largest;
    Row& row = basis.stored[3];
    row = {0.0L, 0.0L, 0.0L, 1.0L / largest};
    for (std::size_t m = 0; m < 3; ++m) {
      for (std::size_t n = 0; n < 3; ++n) {
        row[m] -= basis.quadratic[n] * basis.stored[n][m] / largest;
      }
    }
    return basis;
  }

  [[nodiscard]] Row values(const Real x) const {
    const Real u = on.scaled(x);
    Row t = {1.0L, u, 2.0L * u * u - 1.0L, (4.0L * u * u - 3.0L) * u};
    if (logarithmic) {
      const auto& q = quadratic;
      t[3] = (elementary::log(x) - (q[0] + q[1] * t[1] + q[2] * t[2])) / log_size;
    }
    return t;
  }
};

constexpr auto unknowns = static_cast<Eigen::Index>(terms * terms);

/// The products of the functions of a cell at one state, caloric index first.
Vector products(const Basis& in_caloric, const Basis& in_pres, const InverseState& state) {
  const Row c = in_caloric.values(state.caloric);
  const Row p = in_pres.values(state.pres);
  Vector all(unknowns);
  for (std::size_t k = 0; k < terms; ++k) {
    for (std::size_t m = 0; m < terms; ++m) {
      all(static_cast<Eigen::Index>(k * terms + m)) = c[k] * p[m];
    }
  }
  return all;
}

}  // namespace

InverseCell fit_inverse_cell(const Caloric caloric, const Estimate estimate,
                             const InverseTilingCell& cell, const ServedStates& served) {
  std::vector<InverseState> states = served.states;
  states.insert(states.end(), served.cold_liquid.begin(), served.cold_liquid.end());
  const Interval pres = interval_of(states, &InverseState::pres);
  const Basis in_pres = caloric == Caloric::enthalpy ? Basis::polynomials(pres, cell.pres0)
                                                     : Basis::with_logarithm(pres, cell.pres0);
  const Basis in_caloric =
      Basis::polynomials(interval_of(states, &InverseState::caloric), cell.caloric0);

  // Unknowns are multiples of a typical value, so that the pull on them is relative.
  Real typical = 0.0L;
  for (const InverseState& state : states) typical += estimated(estimate, state);
  typical /= static_cast<Real>(states.size());
  const auto count = static_cast<Eigen::Index>(states.size());
  LeastSquaresProblem problem{{Matrix(count, unknowns), Vector(count)}};
  for (Eigen::Index i = 0; i < count; ++i) {
    const InverseState& state = states[static_cast<std::size_t>(i)];
    const bool cold = i >= static_cast<Eigen::Index>(served.states.size());
    const Real distance = std::fabs(state.at.dens - Real(reference::d_crit)) + least_distance;
    const Real weight = (cold ? cold_weight : 1.0L) * Real(reference::d_crit) / distance /
                        estimated(estimate, state);
    problem.main.a.row(i) = typical * weight * products(in_caloric, in_pres, state).transpose();
    problem.main.b(i) = weight * estimated(estimate, state);
  }
  problem.soft = {damping * Matrix::Identity(unknowns, unknowns), Vector::Zero(unknowns)};
  const Vector x = typical * solve_least_squares(problem);

  InverseCell stored{
      {}, cell.pres0, cell.caloric0, static_cast<double>(cell.saturation_check), 0.0};
  for (std::size_t k = 0; k < terms; ++k) {
    for (std::size_t m = 0; m < terms; ++m) {
      Real sum = 0.0L;
      for (std::size_t a = 0; a < terms; ++a) {
        for (std::size_t b = 0; b < terms; ++b) {
          sum += x(static_cast<Eigen::Index>(a * terms + b)) * in_caloric.stored[a][k] *
                 in_pres.stored[b][m];
        }
      }
      stored.coef[m][k] = static_cast<double>(sum);
    }
  }
  return stored;
}

double evaluate(const Caloric caloric, const InverseCell& cell, const double pres,
                const double value) {
  return caloric == Caloric::enthalpy ? evaluate_cell<InverseForm::cubic>(cell, pres, value, 0.0)
                                      : evaluate_cell<InverseForm::logarithm>(
                                            cell, pres, value, elementary::rounded_log(pres));
}

}  // namespace co2_properties::tablegen
