#pragma once
// Start values fitted on a grid of squares.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "eos/helmholtz.hpp"
#include "solvers/start_grid.hpp"

namespace co2_properties::tablegen {

/// A pair of inputs as coordinates of a grid, and what is fitted over them.
struct StartGridDesign {
  std::string name;
  double x_lo, x_hi, y_lo, y_hi;
  bool with_temp;    ///< temperature and ln of the density, or that alone
  double tolerance;  ///< of ln rho and of T, relative: from here on squares are not divided
  struct Point {
    double x, y;
  };
  /// Coordinates of a state.
  std::function<Point(const Derivatives<double>& d, double temp, double dens)> coordinates;
};

/// A grid as it is written.
struct FittedGrid {
  std::vector<StartRoot> roots;
  std::vector<std::uint16_t> squares;
  std::vector<std::vector<float>> patches;  ///< numbers of each
  double worst;                             ///< error of a state, and the mean one
  double mean;
};

/// Fits to single-phase states of the elements. A square is divided until its cubics are good
/// enough, or small enough; where it holds too few states to tell, the larger one serves.
[[nodiscard]] FittedGrid fit_start_grid(const StartGridDesign& design);

}  // namespace co2_properties::tablegen
