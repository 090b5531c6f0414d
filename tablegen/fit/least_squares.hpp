#pragma once
// Linear least squares in extended precision, with fixed linear combinations and towards the
// minimax.

#include <Eigen/QR>
#include <algorithm>
#include <limits>
#include <optional>

namespace co2_properties::tablegen {

using Real = long double;
using Matrix = Eigen::Matrix<Real, Eigen::Dynamic, Eigen::Dynamic>;
using Vector = Eigen::Matrix<Real, Eigen::Dynamic, 1>;

/// a x ~ b by rows, rows scaled so that their residuals weigh the same; fixed x = fixed_to exactly.
struct LeastSquaresProblem {
  Matrix a;
  Vector b;
  Matrix fixed{};  ///< one row per condition, linearly independent; may be empty
  Vector fixed_to{};
};

/// The same problem in the null space of its conditions: x = offset + space z.
class ReducedProblem {
 public:
  /// \param damping  every direction z is pulled towards its start by a row of this weight; keeps
  /// columns that the rows hardly tell apart from taking large values that cancel
  explicit ReducedProblem(const LeastSquaresProblem& problem, const Real damping = 0.0L) {
    const Eigen::Index columns = problem.a.cols();
    if (problem.fixed.rows() > 0) {
      // Q of the transposed conditions: its first columns span them, the others their null space.
      const Eigen::HouseholderQR<Matrix> qr(problem.fixed.transpose());
      const Eigen::Index held = problem.fixed.rows();
      const Matrix q = qr.householderQ() * Matrix::Identity(columns, columns);
      const Matrix r = qr.matrixQR().topRows(held).template triangularView<Eigen::Upper>();
      offset_ = q.leftCols(held) *
                r.transpose().template triangularView<Eigen::Lower>().solve(problem.fixed_to);
      space_ = q.rightCols(columns - held);
    } else {
      offset_ = Vector::Zero(columns);
      space_ = Matrix::Identity(columns, columns);
    }
    a_ = problem.a * space_;
    b_ = problem.b - problem.a * offset_;
    damping_ = damping;
  }

  /// Solution for row weights `weight` (they multiply squared residuals).
  [[nodiscard]] Vector solve(const Vector& weight) const {
    const Eigen::Index free = a_.cols();
    if (free == 0) return offset_;
    const Eigen::Index damped = damping_ > 0.0L ? free : 0;
    const Vector root = weight.cwiseSqrt();
    Matrix a(a_.rows() + damped, free);
    Vector b = Vector::Zero(a.rows());
    a.topRows(a_.rows()) = root.asDiagonal() * a_;
    b.head(b_.size()) = root.cwiseProduct(b_);
    if (damped > 0) a.bottomRows(damped) = damping_ * Matrix::Identity(free, free);
    return offset_ + space_ * a.colPivHouseholderQr().solve(b);
  }

 private:
  Vector offset_;
  Matrix space_;
  Matrix a_;
  Vector b_;
  Real damping_;
};

/// Least-squares solution.
[[nodiscard]] inline Vector solve_least_squares(const LeastSquaresProblem& problem,
                                                const Real damping = 0.0L) {
  return ReducedProblem(problem, damping).solve(Vector::Ones(problem.a.rows()));
}

/// Solution of least largest residual among `rounds` rounds of Lawson's reweighting (each weight is
/// multiplied by the size of its residual). The first round is the least-squares solution, so the
/// result is never worse than that. A fixed number of rounds keeps the result a smooth function of
/// the data.
[[nodiscard]] inline Vector solve_minimax(const LeastSquaresProblem& problem, const int rounds,
                                          const Real damping = 0.0L) {
  const ReducedProblem reduced(problem, damping);
  Vector weight = Vector::Ones(problem.a.rows());
  Vector best;
  Real least = std::numeric_limits<Real>::infinity();
  for (int round = 0; round < rounds; ++round) {
    const Vector x = reduced.solve(weight);
    const Vector size = (problem.a * x - problem.b).cwiseAbs();
    const Real largest = size.maxCoeff();
    if (best.size() == 0 || largest < least) {
      best = x;
      least = largest;
    }
    if (!(largest > 0.0L)) break;
    weight = weight.cwiseProduct(size);
    weight *= static_cast<Real>(weight.size()) / weight.sum();
  }
  return best;
}

}  // namespace co2_properties::tablegen
