#pragma once
// Exact waves of the Euler equations with the equation of state of carbon dioxide, two phases
// included: rarefactions are integrated along isentropes with `co2_ps`, shocks solved with
// `co2_ph`. Valid where rho w grows with pressure along the isentrope, which is tested for every
// fan; on the line of saturation w jumps, and a fan parts in two with a plateau between.
// R. Menikoff, B. J. Plohr, Rev. Mod. Phys. 61 (1989) 75.

#include <vector>

#include "flow/fluid.hpp"

namespace flow {

struct Flowing {
  State state;
  double velo = 0.0;  ///< m/s
};

/// States of one entropy between two pressures, with the velocity gained when the pressure falls
/// through a wave that runs against the flow: the integral of dp / (rho w), m/s.
class Isentrope {
 public:
  struct Node {
    State state;
    double gain = 0.0;
  };

  /// Nodes in geometric progression of pressure from a state to `pres_end`, Pa, above or below it;
  /// where the isentrope meets saturation two more, one on each side.
  Isentrope(Fluid& fluid, const State& start, double pres_end, int intervals);

  [[nodiscard]] const std::vector<Node>& nodes() const { return nodes_; }
  /// \param pres  between the ends, Pa
  [[nodiscard]] Node at(Fluid& fluid, double pres) const;

 private:
  [[nodiscard]] Node next(Fluid& fluid, const Node& from, double pres) const;

  double entr_;
  std::vector<Node> nodes_;
};

/// Flow that depends on x / t alone, as points in order of x / t with straight lines between them;
/// a discontinuity is a pair of points in one place.
class SelfSimilar {
 public:
  struct Point {
    double speed = 0.0;  ///< x / t, m/s
    Flowing flow;
  };

  explicit SelfSimilar(std::vector<Point> points) : points_(std::move(points)) {}
  [[nodiscard]] Flowing at(double speed) const;
  [[nodiscard]] const std::vector<Point>& points() const { return points_; }

 private:
  std::vector<Point> points_;
};

/// Solution of the Riemann problem. Throws StateError where the library has no state and
/// std::domain_error where a fan would fold.
[[nodiscard]] SelfSimilar solve_riemann(Fluid& fluid, const Flowing& left, const Flowing& right);

/// Fan that runs into a pipe whose right end is opened to a pressure, Pa. It ends at x = 0, with
/// that pressure or, where the velocity reaches the speed of sound before, choked.
[[nodiscard]] SelfSimilar open_end(Fluid& fluid, const Flowing& inside, double pres_outside);

/// State in the opening alone, at little cost.
[[nodiscard]] Flowing outflow(Fluid& fluid, const Flowing& inside, double pres_outside);

}  // namespace flow
