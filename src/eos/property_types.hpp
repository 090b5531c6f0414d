#pragma once
// Properties as types, for algorithms that are told which ones they work with, for one state or for
// several in lanes.

#include "eos/helmholtz.hpp"
#include "eos/properties.hpp"

namespace co2_properties {

/// A property c(T, rho) with its derivatives in temperature, K (t), and in relative changes of
/// density (u: rho dc/drho, uu: rho^2 d2c/drho2). Those of second order are valid where the
/// evaluation has third derivatives; what is not used costs nothing.
template <class V>
struct PropertyExpansion {
  V value;
  V t, u;
  V tt, tu, uu;
};

/// Pressure, kPa.
struct Pressure {
  template <class V>
  [[nodiscard, gnu::always_inline]] static PropertyExpansion<V> expand(const Evaluation<V>& e,
                                                                       const V& /*temp*/,
                                                                       const V& dens) noexcept {
    return {pressure(e.d, dens),  dens * e.d.pv_t,       dens * e.d.dpdd,
            dens * e.third.pv_tt, dens * e.third.dpdd_t, dens * dens * e.third.dpdd_d};
  }
};

/// Specific volume, m3/kg.
struct SpecificVolume {
  template <class V>
  [[nodiscard, gnu::always_inline]] static PropertyExpansion<V> expand(const Evaluation<V>& /*e*/,
                                                                       const V& /*temp*/,
                                                                       const V& dens) noexcept {
    const V svol = 1.0 / dens;
    const V zero = broadcast<V>(0.0);
    return {svol, zero, -svol, zero, zero, svol + svol};
  }
};

/// Specific internal energy, kJ/kg.
struct InternalEnergy {
  template <class V>
  [[nodiscard, gnu::always_inline]] static V value(const Derivatives<V>& d,
                                                   const V& temp) noexcept {
    return internal_energy(d, temp);
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static PropertyExpansion<V> expand(const Evaluation<V>& e,
                                                                       const V& temp,
                                                                       const V& /*dens*/) noexcept {
    return {value(e.d, temp),
            isochoric_heat_capacity(e.d, temp),
            e.d.pv - temp * e.d.pv_t,
            -(e.d.a_tt + temp * e.third.a_ttt),
            -(temp * e.third.pv_tt),
            (e.d.dpdd - 2.0 * e.d.pv) - temp * (e.third.dpdd_t - 2.0 * e.d.pv_t)};
  }
};

/// Specific enthalpy, kJ/kg.
struct Enthalpy {
  template <class V>
  [[nodiscard, gnu::always_inline]] static V value(const Derivatives<V>& d,
                                                   const V& temp) noexcept {
    return enthalpy(d, temp);
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static PropertyExpansion<V> expand(const Evaluation<V>& e,
                                                                       const V& temp,
                                                                       const V& dens) noexcept {
    const V pv_tu = e.third.dpdd_t - e.d.pv_t;
    return {value(e.d, temp),
            dhdt(e.d, temp),
            e.d.dpdd - temp * e.d.pv_t,
            e.third.pv_tt - (e.d.a_tt + temp * e.third.a_ttt),
            pv_tu - temp * e.third.pv_tt,
            (dens * e.third.dpdd_d - e.d.dpdd) - temp * (pv_tu - e.d.pv_t)};
  }
};

/// Specific entropy, kJ/(kg K).
struct Entropy {
  template <class V>
  [[nodiscard, gnu::always_inline]] static V value(const Derivatives<V>& d,
                                                   const V& /*temp*/) noexcept {
    return entropy(d);
  }
  template <class V>
  [[nodiscard, gnu::always_inline]] static PropertyExpansion<V> expand(const Evaluation<V>& e,
                                                                       const V& temp,
                                                                       const V& /*dens*/) noexcept {
    const V pv_tu = e.third.dpdd_t - e.d.pv_t;
    return {value(e.d, temp), -e.d.a_tt,      -e.d.pv_t,
            -e.third.a_ttt,   -e.third.pv_tt, e.d.pv_t - pv_tu};
  }
};

}  // namespace co2_properties
