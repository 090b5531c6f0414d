#pragma once
// Two numbers side by side: what every 64-bit processor adds and multiplies in one instruction.

#include "numbers/platform.hpp"

#include <cstddef>

namespace co2_properties {

#if defined(__GNUC__)

using Pair = double __attribute__((vector_size(16), may_alias));

[[nodiscard]] inline Pair both(const double x) noexcept { return Pair{x, x}; }

#else

struct Pair {
  double x[2];
  [[nodiscard]] constexpr double operator[](const int k) const noexcept { return x[k]; }
};
[[nodiscard]] inline Pair operator+(const Pair a, const Pair b) noexcept {
  return {{a.x[0] + b.x[0], a.x[1] + b.x[1]}};
}
[[nodiscard]] inline Pair operator*(const Pair a, const Pair b) noexcept {
  return {{a.x[0] * b.x[0], a.x[1] * b.x[1]}};
}
[[nodiscard]] inline Pair operator*(const double a, const Pair b) noexcept {
  return {{a * b.x[0], a * b.x[1]}};
}
[[nodiscard]] inline Pair both(const double x) noexcept { return {{x, x}}; }

#endif

/// \param numbers  aligned to sixteen bytes
template <std::size_t rows, std::size_t columns>
[[nodiscard]] inline const Pair (
    &pairs_of(const double (&numbers)[rows][columns]) noexcept)[rows][columns / 2] {
  return reinterpret_cast<const Pair(&)[rows][columns / 2]>(numbers);
}

[[nodiscard]] inline Pair firsts(const Pair a, const Pair b) noexcept { return Pair{a[0], b[0]}; }
[[nodiscard]] inline Pair seconds(const Pair a, const Pair b) noexcept { return Pair{a[1], b[1]}; }

}  // namespace co2_properties
