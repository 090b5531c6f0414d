#include "tablegen/fit/patch_fit.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

#include "reference/span_wagner.hpp"

namespace co2_properties::tablegen {
namespace {

constexpr int terms = patch_terms;

/// Rounds of reweighting towards the minimax; more gain nothing that could be seen.
constexpr int rounds = 12;

using Row = std::array<Real, terms>;
using Square = std::array<Row, terms>;

/// Relative weight of the pull on each coefficient. Where the samples fill only a corner of the
/// cell, columns become nearly dependent; the pull keeps their coefficients small. It lies far
/// enough below the errors of any fit not to be felt in them.
constexpr Real damping = 1e-10L;

/// Relative weight of a two-phase state.
constexpr Real dome_weight = 1e-9L;

Row chebyshev_values(const Real u) {
  Row t{1.0L, u};
  for (std::size_t p = 2; p < terms; ++p) t[p] = 2.0L * u * t[p - 1] - t[p - 2];
  return t;
}

/// power[p][i]: coefficient of (x - origin)^i in T_p((x - mid) / half).
Square powers_about(const Real origin, const Real mid, const Real half) {
  const Real shift = (origin - mid) / half;
  const Real slope = 1.0L / half;
  Square power{};
  power[0][0] = 1.0L;
  power[1][0] = shift;
  power[1][1] = slope;
  for (std::size_t p = 2; p < terms; ++p) {
    for (std::size_t i = 0; i < terms; ++i) {
      const Real lower = i > 0 ? power[p - 1][i - 1] : 0.0L;
      power[p][i] = 2.0L * (shift * power[p - 1][i] + slope * lower) - power[p - 2][i];
    }
  }
  return power;
}

struct Spread {
  Real lo, hi;

  void include(const Real value) {
    lo = std::min(lo, value);
    hi = std::max(hi, value);
  }
  [[nodiscard]] Real mid() const { return (lo + hi) / 2.0L; }
  [[nodiscard]] Real half() const { return (hi - lo) / 2.0L; }
};

/// Hull of the samples, the finite edges of the cell and its origin along one axis.
template <class Member>
Spread hull(const std::vector<Sample>& samples, const Member member, const Real lo, const Real hi,
            const Real origin) {
  Spread spread{origin, origin};
  for (const Sample& sample : samples) spread.include(sample.at.*member);
  for (const Real edge : {lo, hi}) {
    if (std::isfinite(edge)) spread.include(edge);
  }
  return spread;
}

/// Rows of the polynomial values over the scales; unknowns are multiples of `typical`.
Rows rows_of(const std::vector<Sample>& samples, const ScaledPatch& frame, const Real typical) {
  const auto count = static_cast<Eigen::Index>(samples.size());
  Rows rows{Matrix(count, terms * terms), Vector(count)};
  for (Eigen::Index k = 0; k < count; ++k) {
    const Sample& sample = samples[static_cast<std::size_t>(k)];
    const Row t = chebyshev_values((sample.at.temp - frame.temp_mid) / frame.temp_half);
    const Row d = chebyshev_values((sample.at.dens - frame.dens_mid) / frame.dens_half);
    for (int p = 0; p < terms; ++p) {
      for (int q = 0; q < terms; ++q) {
        rows.a(k, p * terms + q) = typical / sample.scale * t[static_cast<std::size_t>(p)] *
                                   d[static_cast<std::size_t>(q)];
      }
    }
    rows.b(k) = sample.value / sample.scale;
  }
  return rows;
}

/// Conditions that fix the pinned coefficients, each scaled to a row of unit length.
Rows rows_of(const PatchCell& cell, const ScaledPatch& frame, const Real typical) {
  const Square in_temp = powers_about(cell.temp0, frame.temp_mid, frame.temp_half);
  const Square in_dens = powers_about(cell.dens0, frame.dens_mid, frame.dens_half);
  const auto count = static_cast<Eigen::Index>(cell.pins.size());
  Rows rows{Matrix(count, terms * terms), Vector(count)};
  for (Eigen::Index k = 0; k < count; ++k) {
    const Pin& pin = cell.pins[static_cast<std::size_t>(k)];
    for (std::size_t p = 0; p < terms; ++p) {
      for (std::size_t q = 0; q < terms; ++q) {
        rows.a(k, static_cast<Eigen::Index>(p * terms + q)) =
            in_temp[p][static_cast<std::size_t>(pin.i)] *
            in_dens[q][static_cast<std::size_t>(pin.j)];
      }
    }
    const Real size = rows.a.row(k).norm();
    rows.a.row(k) /= size;
    rows.b(k) = pin.value / size / typical;
  }
  return rows;
}

}  // namespace

Real ScaledPatch::operator()(const StatePoint& at) const {
  const Row t = chebyshev_values((at.temp - temp_mid) / temp_half);
  const Row d = chebyshev_values((at.dens - dens_mid) / dens_half);
  Real sum = 0.0L;
  for (int p = 0; p < terms; ++p) {
    for (int q = 0; q < terms; ++q) {
      sum += coef[p * terms + q] * t[static_cast<std::size_t>(p)] * d[static_cast<std::size_t>(q)];
    }
  }
  return sum;
}

CellSamples sample_cell(const PatchProperty& property, const PatchCell& cell) {
  constexpr int reach_nodes = 16;
  constexpr int dome_nodes = 12;
  constexpr Real margin = 0.01L;         // see Reach
  constexpr Real soft_width = 0.005L;    // K from the critical temperature: weights fall off
  constexpr Real widest_gap = 8e-4L;     // K from the critical point: nearer nothing is sampled
  constexpr Real singular_from = 2e-2L;  // K from the critical point, see CellSamples

  const Reach reach(cell.box, property.limits, margin);
  if (reach.empty()) throw std::logic_error("a patch that no state reaches");
  const auto off_critical = [](const Real temp) { return std::fabs(temp - reference::t_crit); };
  const Real gap = std::min(
      widest_gap, 0.25L * std::max(off_critical(reach.temp_lo()), off_critical(reach.temp_hi())));
  CellSamples samples;
  for (const StatePoint& at : regular_points(property, reach, chebyshev_nodes(reach_nodes), gap)) {
    const Real value = property.value(at.temp, at.dens);
    // The margin can reach unstable states close to the critical point.
    if (!(value > 0.0L)) continue;
    if (property.regular) {
      samples.reachable.push_back({at, value, value});
    } else {
      const Real softness = soft_width / (off_critical(at.temp) + widest_gap);
      samples.reachable.push_back({at, value, value * (1.0L + softness)});
      samples.singular = samples.singular || critical_distance(at) < singular_from;
    }
  }
  for (const StatePoint& at : reach.dome_points(chebyshev_nodes(dome_nodes))) {
    const Real value = value_in_dome(property, at);
    samples.dome.push_back({at, value, value / dome_weight});
  }
  return samples;
}

ScaledPatch fit_patch(const PatchCell& cell, const CellSamples& samples,
                      const FitOptions& options) {
  const auto& [box, temp0, dens0, pins] = cell;
  const Spread temp = hull(samples.reachable, &StatePoint::temp, box.x_lo, box.x_hi, temp0);
  const Spread dens = hull(samples.reachable, &StatePoint::dens, box.y_lo, box.y_hi, dens0);
  ScaledPatch fit{temp.mid(), temp.half(), dens.mid(), dens.half(), {}};
  Real typical = 0.0L;
  for (const Sample& sample : samples.reachable) typical += sample.value;
  typical /= static_cast<Real>(samples.reachable.size());

  LeastSquaresProblem problem{rows_of(samples.reachable, fit, typical)};
  const Rows dome = rows_of(samples.dome, fit, typical);
  constexpr int columns = terms * terms;
  problem.soft = {Matrix(dome.a.rows() + columns, columns), Vector::Zero(dome.b.size() + columns)};
  problem.soft.a << dome.a, damping * Matrix::Identity(columns, columns);
  problem.soft.b.head(dome.b.size()) = dome.b;
  if (options.pins_on && !pins.empty()) problem.fixed = rows_of(cell, fit, typical);
  fit.coef =
      typical * (options.minimax ? solve_minimax(problem, rounds) : solve_least_squares(problem));
  return fit;
}

Patch stored_patch(const PatchCell& cell, const ScaledPatch& fit) {
  const Square in_temp = powers_about(cell.temp0, fit.temp_mid, fit.temp_half);
  const Square in_dens = powers_about(cell.dens0, fit.dens_mid, fit.dens_half);
  Patch patch{cell.temp0, cell.dens0, {}};
  for (std::size_t i = 0; i < terms; ++i) {
    for (std::size_t j = 0; j < terms; ++j) {
      Real sum = 0.0L;
      for (std::size_t p = 0; p < terms; ++p) {
        for (std::size_t q = 0; q < terms; ++q) {
          sum += fit.coef[static_cast<Eigen::Index>(p * terms + q)] * in_temp[p][i] * in_dens[q][j];
        }
      }
      patch.coef[terms - 1 - i][j] = static_cast<double>(sum);
    }
  }
  for (const Pin& pin : cell.pins) patch.coef[terms - 1 - pin.i][pin.j] = pin.value;
  return patch;
}

}  // namespace co2_properties::tablegen
