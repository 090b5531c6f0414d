#pragma once
// The pairs of inputs that fix a state, one subcommand each.

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "co2/properties.hpp"

namespace co2_properties::tool {

using Entry = void (*)(const double&, const double&, std::int32_t&, const OutputSet&);

/// A subcommand `co2 <command> FIRST SECOND`.
struct InputPair {
  const char* command;
  const char* summary;
  const Property& first;
  const Property& second;
  Entry entry;          ///< computes the state
  const char* example;  ///< two input values for the help text
};

/// Every pair that the library solves. A new subcommand is a new row here.
[[nodiscard]] std::span<const InputPair> input_pairs() noexcept;

/// A state that one entry has computed: the values of the properties that were asked for.
struct State {
  std::array<double, property_count> values{};  ///< in the order of `properties`
  std::int32_t ierr = 0;                        ///< 0, a warning (negative) or an error (positive)
};

/// Computes states of one pair of inputs with one choice of results.
class StateSolver {
 public:
  /// \param results  indices of the wanted properties; the others are not computed
  StateSolver(const InputPair& pair, std::span<const std::size_t> results);
  StateSolver(const StateSolver&) = delete;
  StateSolver& operator=(const StateSolver&) = delete;

  /// The state of two inputs in the units of `pair`; the reference holds until the next call.
  const State& operator()(double first, double second) noexcept;

 private:
  Entry entry_;
  State state_;
  OutputSet outputs_;  // points into state_
};

/// "CO2_TD: specified temperature ...", without the padding.
[[nodiscard]] std::string message(std::int32_t ierr);

}  // namespace co2_properties::tool
