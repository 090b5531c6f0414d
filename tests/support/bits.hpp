#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace co2_properties::test {

inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

/// The bit pattern: tells +0.0 from -0.0 and compares NaN.
inline std::uint64_t bits(const double value) { return std::bit_cast<std::uint64_t>(value); }

inline double next_below(const double value) { return std::nextafter(value, -infinity); }
inline double next_above(const double value) { return std::nextafter(value, infinity); }

}  // namespace co2_properties::test
