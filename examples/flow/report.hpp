#pragma once
// What the example tells about a flow.

#include <filesystem>
#include <span>
#include <vector>

#include "flow/solver.hpp"

namespace flow {

/// All cells at one time.
struct Snapshot {
  double time = 0.0;
  std::vector<double> x;
  std::vector<Flowing> flow;
  std::vector<Flowing> exact;  ///< empty where there is no exact solution
};

/// Mean of the absolute error over that of the exact value, or itself where that one is zero.
struct Errors {
  double dens = 0.0, velo = 0.0, pres = 0.0;
};
[[nodiscard]] Errors errors(const Snapshot& snapshot);

/// Greatest of the three quantities in a pipe that is neither accounted for by its start nor by
/// what passed its ends; relative to mass, to mass times (velocity + speed of sound), to energy.
struct Imbalance {
  double dens = 0.0, mome = 0.0, ener = 0.0;
};
[[nodiscard]] Imbalance imbalance(const Budget& start, const Budget& end, const Snapshot& last,
                                  double length);

/// What the ranks report of their work.
struct Work {
  Times times;
  Fluid::Calls calls;
};
void print_work(std::span<const Work> ranks);

/// Writes <name>.csv with all snapshots into a folder, which is made if it is not there. Units are
/// those of the library. Throws std::runtime_error where the file cannot be written.
void write_csv(const std::filesystem::path& folder, const std::string& name,
               std::span<const Snapshot> snapshots);

}  // namespace flow
