#pragma once
// The subcommands that solve states: what fixes a state, and what is known about it.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "co2/properties.hpp"

namespace co2_properties::tool {

using PairEntry = void (*)(const double&, const double&, std::int32_t&, const OutputSet&,
                           const DerivativeSet&);
using SaturationEntry = void (*)(const double&, std::int32_t&, const SaturationSet&);

/// A subcommand `co2 <name> INPUT...`, with one of the two kinds of entry.
struct Subcommand {
  const char* name;
  const char* summary;
  std::array<const Property*, 2> input_slots;  ///< saturation takes the first alone
  const char* example;                         ///< input values for the help text
  PairEntry pair;                              ///< gives one state
  SaturationEntry saturation = nullptr;        ///< gives liquid and vapour

  [[nodiscard]] std::span<const Property* const> inputs() const noexcept {
    return {input_slots.data(), saturation == nullptr ? std::size_t{2} : std::size_t{1}};
  }
};

/// Every entry of the library.
[[nodiscard]] std::span<const Subcommand> subcommands() noexcept;

/// A value that a subcommand gives: a property of one of two phases. What both phases share, and a
/// state that is one, has the phase 0.
struct Result {
  std::size_t property;  ///< index
  std::size_t phase;     ///< 0 or, of vapour beside liquid, 1
  std::string name;      ///< that of the property, with the phase where the other one differs
};

/// Indices of the properties that a subcommand has: those that nobody has to ask for, and others.
struct Choice {
  std::vector<std::size_t> usual;
  std::vector<std::size_t> further;
};
[[nodiscard]] Choice choice(const Subcommand& subcommand);

/// The values of the properties `wanted`, those of both phases side by side.
[[nodiscard]] std::vector<Result> results_of(const Subcommand& subcommand,
                                             std::span<const std::size_t> wanted);

/// What one call has computed: the values that were asked for.
struct State {
  std::array<std::array<double, property_count>, 2> values{};  ///< by phase and property
  std::int32_t ierr = 0;  ///< 0, a warning (negative) or an error (positive)

  [[nodiscard]] double operator[](const Result& result) const noexcept {
    return values[result.phase][result.property];
  }
};

/// Computes states with one choice of results.
class StateSolver {
 public:
  /// \param results  what is wanted; nothing else is computed
  StateSolver(const Subcommand& subcommand, std::span<const Result> results);
  StateSolver(const StateSolver&) = delete;
  StateSolver& operator=(const StateSolver&) = delete;

  /// The state of as many inputs as the subcommand has; the reference holds until the next call.
  const State& operator()(std::span<const double> inputs) noexcept;

 private:
  const Subcommand* subcommand_;
  State state_;
  DerivativeSet derivatives_[2];  // these point into state_
  SaturationSet out_;
};

/// "CO2_TD: specified temperature ...", without the padding.
[[nodiscard]] std::string message(std::int32_t ierr);

}  // namespace co2_properties::tool
