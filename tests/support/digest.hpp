#pragma once
// Fixed states, the same on every machine, and a digest of what comes out for them: equal digests
// mean equal bits.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace co2_properties::test {

/// FNV-1a, 64 bits, over the bytes of each number from the lowest on.
class Digest {
 public:
  template <class Number>
  void add(const Number& number) {
    std::conditional_t<sizeof number == 8, std::uint64_t, std::uint32_t> word;
    std::memcpy(&word, &number, sizeof word);
    for (std::size_t k = 0; k < sizeof word; ++k) {
      value_ = (value_ ^ (word >> 8 * k & 0xFFU)) * 1099511628211U;
    }
  }
  [[nodiscard]] std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 14695981039346656037U;
};

class Draws {
 public:
  double uniform(const double lo, const double hi) {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return lo + (hi - lo) * (static_cast<double>(state_ >> 11) * 0x1p-53);
  }
  /// Between these powers of two, each magnitude alike.
  double magnitude(const double lo, const double hi) {
    const double exponent = uniform(lo, hi);
    const double whole = std::floor(exponent);
    return std::ldexp(1.0 + (exponent - whole), static_cast<int>(whole));
  }

 private:
  std::uint64_t state_ = 1;
};

}  // namespace co2_properties::test
