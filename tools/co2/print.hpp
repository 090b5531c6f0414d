#pragma once
// Tables for people.

#include <cstddef>
#include <cstdio>
#include <span>

#include "co2/convert.hpp"
#include "co2/subcommand.hpp"

namespace co2_properties::tool {

/// Prints name, value, unit and meaning of results of a state, the decimal points aligned; those of
/// liquid and vapour side by side, under a heading. A value that does not exist is a hyphen.
void print_state(const State& state, std::span<const Result> results, const Format& format);

/// Prints the critical point and the limits of the library.
void print_info();

}  // namespace co2_properties::tool
