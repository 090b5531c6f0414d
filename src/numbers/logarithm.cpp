#include "numbers/platform.hpp"

#include "numbers/logarithm.hpp"

#include <cstdint>
#include <limits>

namespace co2_properties {

double logarithm_of_special(const double x) noexcept {
  constexpr std::uint64_t infinity = 0x7ff0000000000000;
  // Comparisons of doubles would raise exceptions for NaN.
  const std::uint64_t bits = bits_of(x);
  const std::uint64_t magnitude = bits_of(absolute(x));
  if (magnitude == 0) return -std::numeric_limits<double>::infinity();
  if (magnitude > infinity) return x + x;  // quiet
  if (bits != magnitude) return std::numeric_limits<double>::quiet_NaN();
  if (bits == infinity) return x;
  return logarithm_of_bits<double>(bits_of(x * 0x1p52) - (std::uint64_t{52} << 52U));
}

}  // namespace co2_properties
