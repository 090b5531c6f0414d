#pragma once
// Steps in temperature and density towards given values of two properties, for one state or for
// several in lanes.

#include <cstdint>

#include "eos/property_types.hpp"
#include "numbers/logarithm.hpp"
#include "solvers/relocate.hpp"

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

/// How many steps the common road takes at most, each followed by an evaluation that tells whether
/// it sufficed. One suffices for nearly all states; around the critical point some per cent take
/// two.
inline constexpr std::int32_t step_rounds = 2;

/// Start values in their elements.
template <class V>
[[nodiscard, gnu::always_inline]] inline Iterate<V> start_in_element(const V& temp, const V& dens,
                                                                     Cells<V>& cells) noexcept {
  relocate<V>(temp, dens, cells);
  return follow<V>(temp, dens, cells);
}

/// One step of third order towards values of two properties (types of eos/property_types.hpp), and
/// the elements that hold the result. What was not served before is not afterwards.
template <class First, class Second, class V>
[[nodiscard, gnu::always_inline]] inline Iterate<V> step_towards(const Iterate<V>& at,
                                                                 const V& first, const V& second,
                                                                 Cells<V>& cells) noexcept {
  const Evaluation<V> e = expand_density(isotherm<V, Order::third>(cells, at.temp), at.dens,
                                         logarithm_of_normal<V>(at.dens));
  const PropertyExpansion<V> p = First::expand(e, at.temp, at.dens);
  const PropertyExpansion<V> c = Second::expand(e, at.temp, at.dens);
  const Step<V> step =
      TwoProperties<V>(p, c).step_of_third_order(first - p.value, second - c.value);
  Iterate<V> next = follow<V>(at.temp + step.temp, at.dens + at.dens * step.dens, cells);
  next.served = next.served & at.served;
  return next;
}

}  // namespace co2_properties
