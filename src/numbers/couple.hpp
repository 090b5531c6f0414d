#pragma once
// Two numbers that go through the same operations side by side: for one state a vector of two,
// which every 64-bit processor adds and multiplies in one instruction; for lanes two vectors.

#include "numbers/lanes.hpp"

namespace co2_properties {

namespace couple_detail {

template <class V>
struct Vectors {
  V one, other;

  [[nodiscard, gnu::always_inline]] friend Vectors operator+(const Vectors& a,
                                                             const Vectors& b) noexcept {
    return {a.one + b.one, a.other + b.other};
  }
  [[nodiscard, gnu::always_inline]] friend Vectors operator*(const Vectors& a,
                                                             const Vectors& b) noexcept {
    return {a.one * b.one, a.other * b.other};
  }
};

template <class V>
struct CoupleOf {
  using type = Vectors<V>;
};
template <>
struct CoupleOf<double> {
  using type = Lanes2;
};

}  // namespace couple_detail

template <class V>
using Couple = typename couple_detail::CoupleOf<V>::type;

template <class V>
[[nodiscard, gnu::always_inline]] inline Couple<V> couple(const V& one, const V& other) noexcept {
  return Couple<V>{one, other};
}

/// The same number twice.
template <class V>
[[nodiscard, gnu::always_inline]] inline Couple<V> both(const V& x) noexcept {
  return Couple<V>{x, x};
}

[[nodiscard, gnu::always_inline]] inline double one(const Lanes2& c) noexcept { return c[0]; }
[[nodiscard, gnu::always_inline]] inline double other(const Lanes2& c) noexcept { return c[1]; }
template <class V>
[[nodiscard, gnu::always_inline]] inline V one(const couple_detail::Vectors<V>& c) noexcept {
  return c.one;
}
template <class V>
[[nodiscard, gnu::always_inline]] inline V other(const couple_detail::Vectors<V>& c) noexcept {
  return c.other;
}

}  // namespace co2_properties
