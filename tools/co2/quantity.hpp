#pragma once
// Numbers with units as people type them, and the units of what is printed.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "co2/properties.hpp"

namespace co2_properties::tool {

/// The number that the whole of `text` denotes, whatever the locale; none if it is something else,
/// infinite or NaN. As Fortran writes it, 310d0, too.
[[nodiscard]] std::optional<double> parse_number(std::string_view text) noexcept;

/// The same in the unit of the property, from a number without a unit or with one that is known,
/// such as 8MPa or 37C.
[[nodiscard]] std::optional<double> parse_quantity(std::string_view text, const Property& property);

/// Units that `parse_quantity` knows for a property, separated by commas.
[[nodiscard]] std::string known_units(const Property& property);

/// Values of an input: one, or from `start` on as many as do not pass the stop.
struct Range {
  double start = 0.0;  ///< these two in a decimal fraction of the unit that was typed
  double step = 0.0;
  std::uint64_t count = 1;
  double factor = 1.0;  ///< from there to the unit of the property
  double divisor = 1.0;
  double offset = 0.0;

  [[nodiscard]] double operator[](const std::uint64_t i) const noexcept {
    return ((start + static_cast<double>(i) * step) * factor + offset) / divisor;
  }
};

/// Reads `8MPa`, or `start:stop:step`, where a unit behind the step is that of all three. Throws
/// std::runtime_error that says what is wrong.
[[nodiscard]] Range parse_range(std::string_view text, const Property& property);

/// A unit of the SI without prefixes, and what a value is multiplied with and then divided by.
struct SiUnit {
  std::string name;
  double factor = 1.0;
  double divisor = 1.0;
};
[[nodiscard]] SiUnit si_unit(std::string_view unit);

/// The name that takes the fewest letters to turn into `name`; none if there are no names.
[[nodiscard]] std::string_view nearest(std::string_view name,
                                       std::span<const std::string_view> names);

}  // namespace co2_properties::tool
