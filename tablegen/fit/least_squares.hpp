#pragma once
// Linear least squares in extended precision, with fixed linear combinations and towards the
// minimax.

#include <Eigen/QR>
#include <limits>

namespace co2_properties::tablegen {

using Real = long double;
using Matrix = Eigen::Matrix<Real, Eigen::Dynamic, Eigen::Dynamic>;
using Vector = Eigen::Matrix<Real, Eigen::Dynamic, 1>;

/// Rows a x ~ b, scaled so that their residuals weigh the same.
struct Rows {
  Matrix a;
  Vector b;
};

/// Search for x with small residuals in `main`.
struct LeastSquaresProblem {
  Rows main;
  Rows soft{};   ///< take part in every sum of squares but are never reweighted; may be empty
  Rows fixed{};  ///< hold exactly; linearly independent; may be empty
};

/// A problem in the null space of its fixed rows: x = offset + space z.
class ReducedProblem {
 public:
  explicit ReducedProblem(const LeastSquaresProblem& problem) {
    const Eigen::Index columns = problem.main.a.cols();
    const Eigen::Index held = problem.fixed.b.size();
    if (held > 0) {
      // Q of the transposed conditions: its first columns span them, the others their null space.
      const Eigen::HouseholderQR<Matrix> qr(problem.fixed.a.transpose());
      const Matrix q = qr.householderQ() * Matrix::Identity(columns, columns);
      const Matrix r = qr.matrixQR().topRows(held).triangularView<Eigen::Upper>();
      offset_ =
          q.leftCols(held) * r.transpose().triangularView<Eigen::Lower>().solve(problem.fixed.b);
      space_ = q.rightCols(columns - held);
    } else {
      offset_ = Vector::Zero(columns);
      space_ = Matrix::Identity(columns, columns);
    }
    main_ = reduced(problem.main);
    if (problem.soft.b.size() > 0) soft_ = reduced(problem.soft);
  }

  /// Solution for weights of the main rows (they multiply squared residuals).
  [[nodiscard]] Vector solve(const Vector& weight) const {
    if (space_.cols() == 0) return offset_;
    const Eigen::Index rows = main_.b.size();
    const Eigen::Index softs = soft_.b.size();
    const Vector root = weight.cwiseSqrt();
    Matrix a(rows + softs, space_.cols());
    Vector b(rows + softs);
    a.topRows(rows) = root.asDiagonal() * main_.a;
    b.head(rows) = root.cwiseProduct(main_.b);
    if (softs > 0) {
      a.bottomRows(softs) = soft_.a;
      b.tail(softs) = soft_.b;
    }
    return offset_ + space_ * a.colPivHouseholderQr().solve(b);
  }

 private:
  [[nodiscard]] Rows reduced(const Rows& rows) const {
    return {rows.a * space_, rows.b - rows.a * offset_};
  }

  Vector offset_;
  Matrix space_;
  Rows main_;
  Rows soft_;
};

/// Least-squares solution.
[[nodiscard]] inline Vector solve_least_squares(const LeastSquaresProblem& problem) {
  return ReducedProblem(problem).solve(Vector::Ones(problem.main.b.size()));
}

/// Solution of least largest main residual among `rounds` rounds of Lawson's reweighting, in which
/// each weight is multiplied by the size of its residual. The first round is the least-squares
/// solution, so the result is never worse than that. The number of rounds is fixed, so that close
/// data give close results.
[[nodiscard]] inline Vector solve_minimax(const LeastSquaresProblem& problem, const int rounds) {
  const ReducedProblem reduced(problem);
  const auto& [a, b] = problem.main;
  Vector weight = Vector::Ones(b.size());
  Vector best;
  Real least = std::numeric_limits<Real>::infinity();
  for (int round = 0; round < rounds; ++round) {
    const Vector x = reduced.solve(weight);
    const Vector size = (a * x - b).cwiseAbs();
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
