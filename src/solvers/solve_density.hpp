#pragma once
// Density at given temperature and pressure.

#include <cstdint>

#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"
#include "numbers/reverted_series.hpp"

namespace co2_properties {

/// The pressure of one element along an isotherm, p = rho (f0 + rho g(rho - dens0)), g a cubic; for
/// one state or for several in lanes.
template <class V>
struct PressureCurve {
  V dens0;
  V f0, g0, g1, g2, g3;

  [[nodiscard, gnu::always_inline]] static inline PressureCurve of(const Isotherm<V>& at) noexcept {
    const V third = one(at.a3);
    return {at.dens0, one(at.a0), one(at.a2), third + third, 3.0 * one(at.a4), 4.0 * one(at.a5)};
  }

  /// The pressure less a given one, and its slope.
  struct Residual {
    V value, slope;
  };
  [[nodiscard, gnu::always_inline]] inline Residual residual(const V& dens,
                                                             const V& pres) const noexcept {
    const V delta = dens - dens0;
    const V v2 = g3 * delta + g2;
    const V v1 = v2 * delta + g1;
    const V g = v1 * delta + g0;
    const V g_d = (g3 * delta + v2) * delta + v1;
    return {dens * (f0 + dens * g) - pres, f0 + dens * ((g + g) + dens * g_d)};
  }

  /// One Newton step from the lower edge, where only three of the sums take part.
  [[nodiscard, gnu::always_inline]] inline V start(const V& pres) const noexcept {
    return dens0 +
           (pres - (g0 * dens0 + f0) * dens0) / (2.0 * g0 * dens0 + f0 + g1 * dens0 * dens0);
  }

  /// One step of the reverted Taylor series of p.
  [[nodiscard, gnu::always_inline]] inline V improved(const V& dens, const V& pres) const noexcept {
    const V delta = dens - dens0;
    const V v2 = g3 * delta + g2;
    const V v1 = v2 * delta + g1;
    const V g = v1 * delta + g0;
    const V f2 = g3 * delta + v2;
    const V slope = f2 * delta + v1;
    const V bend = g3 * delta + f2;  // half of g''
    return dens + reverted_step<V>(pres - dens * (f0 + dens * g),
                                   f0 + dens * ((g + g) + dens * slope),
                                   g + dens * ((slope + slope) + dens * bend),
                                   slope + dens * ((bend + bend) + dens * g3));
  }
};

// ---- Without a loop ----------------------------------------------------------------------------

/// Density from two such steps, the first from the middle of the element. Nearly all states meet
/// the pressure (`meets_pressure`); to be verified.
/// \param width  of the element in density, kg/m3
template <class V>
[[nodiscard, gnu::always_inline]] inline V density_in_two_steps(const PressureCurve<V>& curve,
                                                                const V& width,
                                                                const V& pres) noexcept {
  const V first = curve.improved(curve.dens0 + 0.5 * width, pres);
  // A step that leads far out is lost, but shall not overflow.
  const V low = curve.dens0 - width;
  const V high = curve.dens0 + 2.0 * width;
  const V above = select<V>(first > low, first, low);
  return curve.improved(select<V>(above < high, above, high), pres);
}

/// Whether a state has a pressure, kPa, so closely that no iteration would improve it: 1e-12 of it
/// and, where isotherms are flat, of the density too, as far as rounding lets it.
template <class V>
[[nodiscard, gnu::always_inline]] inline Mask<V> meets_pressure(const Derivatives<V>& d,
                                                                const V& dens,
                                                                const V& pres) noexcept {
  constexpr double share = 1e-12;
  constexpr double rounding = 2e-15;
  const V miss = absolute(pressure(d, dens) - pres);
  return (miss <= share * pres) & (miss <= share * (dens * d.dpdd) + rounding * pres);
}

// ---- With a loop -------------------------------------------------------------------------------

/// How closely the iteration meets the pressure, relative, and the largest step, relative, with
/// which it improves a density that meets it.
inline constexpr double pres_tolerance = 1e-11;
inline constexpr double largest_last_step = 1e-7;

/// Where the iteration ended.
struct DensitySolution {
  std::int32_t element;       ///< holds `dens`, or nearly so
  double dens;                ///< kg/m3
  Isotherm<double> isotherm;  ///< of the element
  std::int32_t evaluations;   ///< of the pressure, counted from 1
  bool converged;             ///< the pressure was met, and not later than in evaluation 14
};

/// Newton's method on the isotherm of one element; iterates that leave it are followed.
/// \param first  element to start with; the start value is a Newton step from its lower density
/// \param temp   temperature, K
/// \param pres   pressure, kPa, to be met within 1e-11 of its value
/// NaN and infinities never converge: the last iterate is returned.
[[nodiscard]] DensitySolution solve_density(std::int32_t first, double temp, double pres) noexcept;

}  // namespace co2_properties
