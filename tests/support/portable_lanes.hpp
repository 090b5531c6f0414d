#pragma once
// The batch entries on lanes for no instruction set in particular: the compiler makes of them what
// the build has. So their code runs on every machine, four and eight lanes wide.

#include <vector>

#include "api/batch/levels.hpp"

namespace co2_properties::test {

extern const BatchEntries portable_four;
extern const BatchEntries portable_eight;

/// All forms of the batch entries that run on a machine.
inline std::vector<Level> levels_here(const InstructionSets machine = instruction_sets()) {
  std::vector<Level> found = {{"four lanes", &portable_four, true},
                              {"eight lanes", &portable_eight, true}};
  for (const Level& level : levels(machine).level) {
    if (level.runs) found.push_back(level);
  }
  return found;
}

}  // namespace co2_properties::test
