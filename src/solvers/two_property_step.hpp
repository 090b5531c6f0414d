#pragma once
// Steps in temperature and density towards given values of two properties, for one state or for
// several in lanes.

#include "eos/property_types.hpp"

namespace co2_properties {

/// A change of temperature, K, and a relative one of density.
template <class V>
struct Step {
  V temp, dens;
};

/// Two properties around a state.
template <class V>
class TwoProperties {
 public:
  [[gnu::always_inline]] inline TwoProperties(const PropertyExpansion<V>& first,
                                              const PropertyExpansion<V>& second) noexcept
      : p_(first), c_(second), inverse_(1.0 / (p_.t * c_.u - p_.u * c_.t)) {}

  /// Newton's step that adds these amounts to them. By Cramer's rule, which divides once: an
  /// elimination would divide three times in a row.
  [[nodiscard, gnu::always_inline]] inline Step<V> newton_step(const V& to_first,
                                                               const V& to_second) const noexcept {
    return {(to_first * c_.u - to_second * p_.u) * inverse_,
            (to_second * p_.t - to_first * c_.t) * inverse_};
  }

  /// The same with the correction for curvature (Chebyshev's method): the error after it is of
  /// third order in the one before.
  [[nodiscard, gnu::always_inline]] inline Step<V> step_of_third_order(
      const V& to_first, const V& to_second) const noexcept {
    const Step<V> line = newton_step(to_first, to_second);
    const auto half_curve = [&](const PropertyExpansion<V>& f) CO2_INLINE {
      return 0.5 * ((f.tt * line.temp + (f.tu + f.tu) * line.dens) * line.temp +
                    f.uu * line.dens * line.dens);
    };
    const Step<V> bend = newton_step(half_curve(p_), half_curve(c_));
    return {line.temp - bend.temp, line.dens - bend.dens};
  }

 private:
  PropertyExpansion<V> p_, c_;
  V inverse_;
};

}  // namespace co2_properties
