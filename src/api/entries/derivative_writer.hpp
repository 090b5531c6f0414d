#pragma once
// How derivatives leave the library, for one state or for several in lanes.

#include <cstdint>

#include "api/entries/state_writer.hpp"
#include "eos/state_derivatives.hpp"

namespace co2_properties {

/// What the derivatives of a phase are made of in the box of the fits around the critical point.
/// The elements resolve second derivatives worst there, while cv, cp and speed of sound have fits:
/// (dp/drho) at constant T is w^2 cv / cp, (dp/dT) follows from w^2 - dp/drho = T (dp/dT)^2 /
/// (rho^2 cv), and the determinant is cv w^2. Where cp has no fit, up to 380 kg/m3, dp/drho is that
/// of the element, which is good here.
///
/// \param of_element  what the element gives
[[nodiscard]] StateDerivatives<double> near_critical_derivatives(
    const StateDerivatives<double>& of_element) noexcept;

/// Whether one of these members is present.
template <double* DerivativeSet::*... members>
[[nodiscard, gnu::always_inline]] inline bool wants(const DerivativeSet& out) noexcept {
  return (reinterpret_cast<std::uintptr_t>(out.*members) | ...) != 0;
}

/// Writes a derivative, if it is asked for, to element `at` of its array.
template <class V>
struct PutDerivative {
  const DerivativeSet& out;
  std::int32_t at;

  /// \param value  computes it
  template <class Value>
  [[gnu::always_inline]] inline void operator()(double* DerivativeSet::*const output,
                                                const Value& value) const noexcept {
    double* const slot = out.*output;
    if (slot != nullptr) store<V>(value(), slot + at);
  }
};

/// Writes derivatives of first order; with e = (dp/dT) / rho and D the determinant, from
///   dp = rho e dT + (dp/drho) drho, dh = (cv + e) dT + (dp/drho - T e) / rho drho,
///   du = cv dT + (p/rho - T e) / rho drho, T ds = cv dT - T e / rho drho.
/// \param at  element of the arrays
template <class V>
[[gnu::always_inline]] inline void put_derivatives(const DerivativeSet& out, const std::int32_t at,
                                                   const StateDerivatives<V>& d) noexcept {
  using O = DerivativeSet;
  const PutDerivative<V> put = {out, at};
  const V e = d.pv_t;
  const V te = d.temp * e;
  const V dpdt = d.dens * e;
  const V det = d.determinant();
  const V per_dens = 1.0 / d.dens;
  const V per_cv = 1.0 / d.cv;
  const V per_det = 1.0 / det;
  const V dtdd_u = (te - d.pv) * per_dens * per_cv;
  put(&O::dpdd_u, [&]() CO2_INLINE -> V { return d.dpdd + dpdt * dtdd_u; });
  put(&O::dpdu_d, [&]() CO2_INLINE -> V { return dpdt * per_cv; });
  put(&O::dtdd_u, [&]() CO2_INLINE -> V { return dtdd_u; });
  put(&O::dtdu_d, [&]() CO2_INLINE -> V { return per_cv; });
  put(&O::dddp_h, [&]() CO2_INLINE -> V { return (d.cv + e) * per_det; });
  put(&O::dddh_p, [&]() CO2_INLINE -> V { return -(dpdt * per_det); });
  put(&O::dtdp_h, [&]() CO2_INLINE -> V { return (te - d.dpdd) * per_dens * per_det; });
  put(&O::dtdh_p, [&]() CO2_INLINE -> V { return d.dpdd * per_det; });
  // Most hosts ask for no more.
  if (!wants<&O::dddp_s, &O::dtdp_s, &O::dhdd_p, &O::dhdp_d, &O::dsdd_p, &O::dsdp_d, &O::dpdd_t,
             &O::dpdt_d, &O::cv_eq, &O::ssnd_eq, &O::compr_s>(out)) {
    return;
  }
  put(&O::dddp_s, [&]() CO2_INLINE -> V { return d.cv * per_det; });
  put(&O::dtdp_s, [&]() CO2_INLINE -> V { return te * per_dens * per_det; });
  put(&O::dhdd_p, [&]() CO2_INLINE -> V { return -(det / dpdt); });
  put(&O::dhdp_d, [&]() CO2_INLINE -> V { return (d.cv + e) / dpdt; });
  put(&O::dsdd_p, [&]() CO2_INLINE -> V { return -(det / (d.temp * dpdt)); });
  put(&O::dsdp_d, [&]() CO2_INLINE -> V { return d.cv / (d.temp * dpdt); });
  put(&O::dpdd_t, [&]() CO2_INLINE -> V { return d.dpdd; });
  put(&O::dpdt_d, [&]() CO2_INLINE -> V { return dpdt; });
  put(&O::cv_eq, [&]() CO2_INLINE -> V { return d.cv; });
  constexpr double j_per_kj = 1000.0;
  put(&O::ssnd_eq, [&]() CO2_INLINE -> V { return root<V>(j_per_kj * det * per_cv); });
  put(&O::compr_s, [&]() CO2_INLINE -> V { return d.cv * per_dens * per_det; });
}

/// Writes what a mixture has not and a single phase has from the same numbers.
template <class V>
[[gnu::always_inline]] inline void put_single_derivatives(const DerivativeSet& out,
                                                          const std::int32_t at,
                                                          const StateDerivatives<V>& d) noexcept {
  using O = DerivativeSet;
  const PutDerivative<V> put = {out, at};
  put(&O::compr_t, [&]() CO2_INLINE -> V { return 1.0 / (d.dens * d.dpdd); });
  put(&O::expan_p, [&]() CO2_INLINE -> V { return d.pv_t / d.dpdd; });
}

/// Whether something is asked for that takes more than these numbers: another evaluation of the
/// element, of a fit or of the saturation line.
[[nodiscard]] bool wants_more_derivatives(const DerivativeSet& out) noexcept;

/// Writes that for a single phase.
void put_more_derivatives(const DerivativeSet& out, std::int32_t at,
                          const StateDerivatives<double>& d) noexcept;

}  // namespace co2_properties
