#pragma once
// Density at given temperature and entropy.

#include <cstdint>

#include "eos/element_locator.hpp"
#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "numbers/reverted_series.hpp"
#include "solvers/solve_caloric.hpp"

namespace co2_properties {

/// The derivative of one element's Helmholtz energy in T along an isotherm, less whose value is the
/// entropy; for one state or for several in lanes. In the logarithm of the density it is a straight
/// line in thin gas, and rises everywhere.
template <class V>
struct EntropyCurve {
  V dens0;
  V c0, c1, c2, c3, c4, c5;

  [[nodiscard, gnu::always_inline]] static inline EntropyCurve of(const Isotherm<V>& at) noexcept {
    return {at.dens0,     other(at.a0), other(at.a1), other(at.a2),
            other(at.a3), other(at.a4), other(at.a5)};
  }

  /// A density from one step of the reverted Taylor series to third powers, in ln rho: the error
  /// after it is of fourth order in the one before.
  [[nodiscard, gnu::always_inline]] inline V improved(const V& dens, const V& log_dens,
                                                      const V& entr) const noexcept {
    const V delta = dens - dens0;
    const V v3 = c5 * delta + c4;
    const V v2 = v3 * delta + c3;
    const V v1 = v2 * delta + c2;
    const V v0 = v1 * delta + c1;
    const V f3 = c5 * delta + v3;
    const V f2 = f3 * delta + v2;
    const V f1 = f2 * delta + v1;  // the slope
    const V s3 = c5 * delta + f3;
    const V s2 = s3 * delta + f2;  // half of the second derivative
    const V t2 = c5 * delta + s3;  // a sixth of the third
    const V in_first = dens * f1;
    const V in_second = 2.0 * (dens * dens) * s2;
    const V in_third = 6.0 * (dens * dens) * (dens * t2);
    const V x = reverted_step<V>(-((c0 * log_dens + v0) + entr), c0 + in_first,
                                 0.5 * (in_first + in_second),
                                 (1.0 / 6.0) * (in_first + 3.0 * in_second + in_third));
    return dens + dens * (x * (1.0 + x * (0.5 + x * (1.0 / 6.0 + x * (1.0 / 24.0)))));
  }
};

/// Whether a state has an entropy, kJ/(kg K), so closely that no iteration would improve it.
template <class V>
[[nodiscard, gnu::always_inline]] inline Mask<V> meets_entropy(const Derivatives<V>& d,
                                                               const V& entr) noexcept {
  constexpr double share = 1e-12;
  return absolute(entropy(d) - entr) <= at_least_of_unit(share, entr);
}

/// Where the search ended.
struct EntropySolution {
  std::int32_t element;  ///< holds `dens`, or nearly so
  double dens;           ///< kg/m3
  bool converged;        ///< the entropy is met to 1e-11 of its value, or of one
};

/// The density of a region with an entropy at a temperature: Newton's method and, where that does
/// not arrive, bisection before it.
/// \param temp      K, finite
/// \param entr      kJ/(kg K), finite
/// \param thinnest, densest  between which it lies, kg/m3
/// \param start     within them
[[nodiscard]] EntropySolution solve_entropy(Region region, double temp, double entr,
                                            double thinnest, double densest, double start) noexcept;

/// Density at which the elements of a region end, kg/m3: the pressure there is above `pres_max`.
[[nodiscard]] double end_of_elements(Region region, double temp) noexcept;

}  // namespace co2_properties
