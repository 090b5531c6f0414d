#pragma once
// The states that a fit has to serve: stable single-phase states inside the limits of the library.

#include <vector>

#include "tablegen/tilings/cell_grid.hpp"

namespace co2_properties::tablegen {

using Real = long double;

/// Limits of a fit; above density_at the highest pressure, 100000 kPa, no state is reached either.
struct FitLimits {
  double temp_lo, temp_hi;  ///< K
  double dens_lo, dens_hi;  ///< kg/m3
};

struct DensityRange {
  Real lo, hi;
};

/// A state and its place.
struct StatePoint {
  Real temp, dens;
};

/// Reachable part of one cell.
class Reach {
 public:
  /// \param margin  the single-phase region is taken to go this fraction of the way from the
  /// saturated density to the critical density too far (below the critical temperature) and this
  /// fraction of a percent beyond the highest pressure: callers decide with saturation densities
  /// and pressures of their own, which are a little off
  Reach(const Box& cell, const FitLimits& limits, Real margin);

  [[nodiscard]] bool empty() const { return !(temp_lo_ < temp_hi_); }
  /// Temperatures from temp_lo to temp_hi have reachable densities in the cell.
  [[nodiscard]] Real temp_lo() const { return temp_lo_; }
  [[nodiscard]] Real temp_hi() const { return temp_hi_; }

  /// Reachable densities of the cell at one temperature, ascending: none, one or two ranges.
  [[nodiscard]] std::vector<DensityRange> densities(Real temp) const;

  /// Points of a product rule: `nodes`, ascending in [0, 1], laid out over the temperatures and
  /// then over each range of densities.
  [[nodiscard]] std::vector<StatePoint> points(const std::vector<Real>& nodes) const;

  /// The same rule on each side of the critical temperature, `gap` (K) away from it, if the cell
  /// has reachable temperatures closer than that; points nearer to it are left out.
  [[nodiscard]] std::vector<StatePoint> points_off_critical(const std::vector<Real>& nodes,
                                                            Real gap) const;

  /// Points of the same rule over the whole cell, where they lie in the two-phase region.
  [[nodiscard]] std::vector<StatePoint> dome_points(const std::vector<Real>& nodes) const;

 private:
  /// Largest reachable density of the cell at one temperature, margin included.
  [[nodiscard]] Real highest(Real temp) const;
  void add_points(const std::vector<Real>& nodes, Real temp_lo, Real temp_hi,
                  std::vector<StatePoint>& points) const;

  Box cell_;
  Real margin_;
  Real temp_lo_;
  Real temp_hi_;
};

/// Chebyshev points of the second kind on [0, 1], both ends included.
[[nodiscard]] std::vector<Real> chebyshev_nodes(int count);

/// Middles of `count` equal parts of [0, 1], with one more point close to each end.
[[nodiscard]] std::vector<Real> check_nodes(int count);

}  // namespace co2_properties::tablegen
