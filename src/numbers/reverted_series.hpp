#pragma once
// One step towards the root of a function of one variable, for one or for several side by side.

#include "numbers/lanes.hpp"

namespace co2_properties {

/// The step of the reverted Taylor series to third powers, whose error is of fourth order in the
/// distance: x = s - A s^2 + (2 A^2 - B) s^3 with s = missing / f', A = f'' / (2 f') and
/// B = f''' / (6 f').
/// \param missing          the value wanted less that of the function
/// \param half, sixth      second derivative over 2, third derivative over 6
template <class V>
[[nodiscard, gnu::always_inline]] inline V reverted_step(const V& missing, const V& slope,
                                                         const V& half, const V& sixth) noexcept {
  const V inverse = 1.0 / slope;
  const V s = missing * inverse;
  const V a = half * inverse;
  const V b = sixth * inverse;
  return s * (1.0 - s * (a - s * ((a + a) * a - b)));
}

}  // namespace co2_properties
