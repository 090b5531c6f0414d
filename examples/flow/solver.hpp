#pragma once
// Finite volumes: linear reconstruction, HLLC flux, two-stage Runge-Kutta steps. The cells are
// divided among the ranks; no result depends on how.

#include <array>
#include <cstdint>
#include <vector>

#include "flow/cases.hpp"
#include "flow/euler.hpp"
#include "flow/ranks.hpp"

namespace flow {

/// Where the wall-clock time goes, s.
struct Times {
  double energy = 0.0;    ///< states of cells from (dens, inte)
  double faces = 0.0;     ///< states at faces from (p, h)
  double opening = 0.0;   ///< states in an open end from (p, s)
  double exchange = 0.0;  ///< between the ranks, waiting included
  double all = 0.0;
};

/// What is in the pipe and what went through its ends, by the time integration's own fluxes.
struct Budget {
  Conserved inside;  ///< per m2 of cross-section
  Conserved passed;  ///< in through the left end less out through the right one, per m2
};

class Solver {
 public:
  /// \param cells  in all; each rank needs two
  /// \param cfl    step as a part of the time in which the fastest wave crosses a cell, below 1
  Solver(Case flow_case, std::int64_t cells, double cfl, const Ranks& ranks);

  /// Steps until a time, s, which the last step meets.
  void run_until(double time);

  /// All cells in order, at the first rank; elsewhere nothing.
  [[nodiscard]] std::vector<Flowing> profile() const;
  /// At the first rank. Sums run over the cells in order.
  [[nodiscard]] Budget budget() const;

  [[nodiscard]] double place(std::size_t cell) const;  ///< x of its middle, m
  [[nodiscard]] double time() const { return time_; }
  [[nodiscard]] std::int64_t steps() const { return steps_; }
  [[nodiscard]] const Times& times() const { return times_; }
  [[nodiscard]] const Fluid::Calls& calls() const { return fluid_.calls(); }

 private:
  struct Rates {
    std::vector<Conserved> cells;
    Conserved left, right;  ///< flux through the ends of the pipe
  };

  void fill_halo();
  void reconstruct();
  [[nodiscard]] Rates rates();
  void update_states();
  void step(double dt);

  Case case_;
  const Ranks& ranks_;
  Fluid fluid_;
  double dx_;
  double cfl_;
  std::size_t own_;     ///< cells of this rank
  std::size_t before_;  ///< cells of the ranks to the left
  // Own cells with two cells of the neighbours on each side.
  std::vector<Flowing> flow_;
  std::vector<std::array<Flowing, 2>> faces_;  ///< states of a cell at its left and right face
  std::vector<Conserved> inside_;              ///< own cells only
  Conserved passed_left_, passed_right_;
  double time_ = 0.0;
  std::int64_t steps_ = 0;
  Times times_;
};

}  // namespace flow
