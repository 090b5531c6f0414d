#pragma once
// What the example tells about a cycle.

#include <filesystem>

#include "brayton/cycle.hpp"

namespace brayton {

/// Prints the state points, the energy balance and the recuperators.
void print_report(const Design& design, const Cycle& cycle);

/// Writes states.csv, lines.csv (changes of state between the points), recuperators.csv (profiles)
/// and saturation.csv into a folder, which is made if it is not there. Units are those of the
/// library. Throws std::runtime_error where a file cannot be written.
void write_csv(const std::filesystem::path& folder, const Design& design, const Cycle& cycle);

}  // namespace brayton
