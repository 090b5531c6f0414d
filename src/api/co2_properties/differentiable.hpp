#pragma once
// The state entries for numbers that carry derivatives: dual numbers, numbers on a tape, any type
// of the host. Values are those of the library, to the bit; derivatives are the partial derivatives
// of the state that was found, by the theorem of implicit functions, and not those of the way to
// it.

#include "co2_properties/require_cpp20.hpp"

#include <cstdint>
#include <type_traits>

#include "co2_properties.hpp"

namespace co2_properties::differentiable {

/// What a host says about its numbers, in a specialization with two functions:
///
///   static double value(const Number& x);
///   static Number chain(double value, double by_first, const Number& first,
///                       double by_second, const Number& second);
///
/// `value` is a number without its derivatives; `chain` makes a number from the value of a function
/// of two numbers and its partial derivatives by them: a dual number carries by_first * first' +
/// by_second * second', a tape records both.
template <class Number>
struct NumberTraits;

/// Where results go, in the units of `OutputSet`; null where one is not asked for. The others of
/// the outputs, cv, cp and the six derivatives, have no derivatives here.
template <class Number>
struct NumberSet {
  Number* temp = nullptr;  ///< temperature
  Number* pres = nullptr;  ///< pressure
  Number* dens = nullptr;  ///< density
  Number* svol = nullptr;  ///< specific volume
  Number* qual = nullptr;  ///< vapour mass fraction; its marks 998 and 999 are constants
  Number* inte = nullptr;  ///< specific internal energy
  Number* enth = nullptr;  ///< specific enthalpy
  Number* entr = nullptr;  ///< specific entropy
  Number* ssnd = nullptr;  ///< speed of sound, zero in two phases
  Number* visc = nullptr;  ///< viscosity; in two phases a constant
  Number* cond = nullptr;  ///< thermal conductivity; in two phases a constant
};

namespace detail {

/// How a property changes with temperature at constant density, and with density at constant
/// temperature.
struct Gradient {
  double temp, dens;
};

/// A state and what all its derivatives follow from.
struct State {
  double temp = 0.0, pres = 0.0, dens = 0.0, svol = 0.0, qual = 0.0, inte = 0.0, enth = 0.0,
         entr = 0.0, ssnd = 0.0, visc = 0.0, cond = 0.0;
  double cv = 0.0, dpdd = 0.0, dpdt = 0.0;  ///< of the mixture in two phases
  Gradient of_qual = {0.0, 0.0}, of_ssnd = {0.0, 0.0}, of_visc = {0.0, 0.0}, of_cond = {0.0, 0.0};
};

using GradientOf = Gradient (*)(const State&);

inline Gradient of_temp(const State& /*s*/) { return {1.0, 0.0}; }
inline Gradient of_dens(const State& /*s*/) { return {0.0, 1.0}; }
inline Gradient of_pres(const State& s) { return {s.dpdt, s.dpdd}; }
inline Gradient of_svol(const State& s) { return {0.0, -1.0 / (s.dens * s.dens)}; }
inline Gradient of_inte(const State& s) {
  return {s.cv, (s.pres - s.temp * s.dpdt) / (s.dens * s.dens)};
}
inline Gradient of_enth(const State& s) {
  return {s.cv + s.dpdt / s.dens, (s.dpdd - s.temp * s.dpdt / s.dens) / s.dens};
}
inline Gradient of_entr(const State& s) { return {s.cv / s.temp, -s.dpdt / (s.dens * s.dens)}; }
inline Gradient of_qual(const State& s) { return s.of_qual; }
inline Gradient of_ssnd(const State& s) { return s.of_ssnd; }
inline Gradient of_visc(const State& s) { return s.of_visc; }
inline Gradient of_cond(const State& s) { return s.of_cond; }

}  // namespace detail

/// An entry for numbers of any type that has `NumberTraits`.
/// \tparam first, second  how its inputs change
template <detail::GradientOf first, detail::GradientOf second>
struct Entry {
  void (*of_doubles)(const double&, const double&, std::int32_t&, const OutputSet&,
                     const DerivativeSet&) noexcept;

  /// The state from two inputs; codes, limits and values are those of the entry of this name for
  /// doubles. After an error every present output is a constant zero. The code of a mixture is
  /// negative as well where `visc` or `cond` is asked for, since they change there in a way that is
  /// not given. At 304.1282 K the mixtures of `co2_tx` and `co2_px` do not change with quality, and
  /// have no derivatives by it: every output is a constant. Outputs may overwrite inputs.
  template <class Number>
  void operator()(const Number& first_in, const Number& second_in, std::int32_t& ierr,
                  const NumberSet<Number>& out) const {
    using Traits = NumberTraits<Number>;
    const Number a = first_in;
    const Number b = second_in;
    const detail::State s = state_of(Traits::value(a), Traits::value(b), ierr, out);
    const bool failed = ierr > 0;
    const detail::Gradient of_a = failed ? detail::Gradient{1.0, 0.0} : first(s);
    const detail::Gradient of_b = failed ? detail::Gradient{0.0, 1.0} : second(s);
    const double determinant = of_a.temp * of_b.dens - of_a.dens * of_b.temp;
    const double per_determinant = determinant == 0.0 ? 0.0 : 1.0 / determinant;
    const auto put = [&](Number* const to, const double value, const detail::GradientOf gradient) {
      if (to == nullptr) return;
      const detail::Gradient of = failed ? detail::Gradient{0.0, 0.0} : gradient(s);
      *to = Traits::chain(value, (of.temp * of_b.dens - of.dens * of_b.temp) * per_determinant, a,
                          (of.dens * of_a.temp - of.temp * of_a.dens) * per_determinant, b);
    };
    put(out.temp, s.temp, detail::of_temp);
    put(out.pres, s.pres, detail::of_pres);
    put(out.dens, s.dens, detail::of_dens);
    put(out.svol, s.svol, detail::of_svol);
    put(out.qual, s.qual, detail::of_qual);
    put(out.inte, s.inte, detail::of_inte);
    put(out.enth, s.enth, detail::of_enth);
    put(out.entr, s.entr, detail::of_entr);
    put(out.ssnd, s.ssnd, detail::of_ssnd);
    put(out.visc, s.visc, detail::of_visc);
    put(out.cond, s.cond, detail::of_cond);
  }

 private:
  // By types, as sanitizers keep g++ from comparing addresses in constant expressions.
  template <detail::GradientOf gradient>
  static constexpr bool is_qual =
      std::is_same_v<std::integral_constant<detail::GradientOf, gradient>,
                     std::integral_constant<detail::GradientOf, detail::of_qual>>;

  template <class Number>
  [[nodiscard]] detail::State state_of(const double a, const double b, std::int32_t& ierr,
                                       const NumberSet<Number>& out) const {
    detail::State s;
    OutputSet values = {.temp = &s.temp, .pres = &s.pres, .dens = &s.dens};
    DerivativeSet derivatives = {.dpdd_t = &s.dpdd, .dpdt_d = &s.dpdt, .cv_eq = &s.cv};
    if (out.svol != nullptr) values.svol = &s.svol;
    if (out.inte != nullptr) values.inte = &s.inte;
    if (out.enth != nullptr) values.enth = &s.enth;
    if (out.entr != nullptr) values.entr = &s.entr;
    constexpr bool qual_given = is_qual<first> || is_qual<second>;
    if (out.qual != nullptr) values.qual = &s.qual;
    if (qual_given || out.qual != nullptr) {
      derivatives.dqualdt_d = &s.of_qual.temp;
      derivatives.dqualdd_t = &s.of_qual.dens;
    }
    if (out.ssnd != nullptr) {
      values.ssnd = &s.ssnd;
      derivatives.dssnddt_d = &s.of_ssnd.temp;
      derivatives.dssnddd_t = &s.of_ssnd.dens;
    }
    if (out.visc != nullptr) {
      values.visc = &s.visc;
      derivatives.dviscdt_d = &s.of_visc.temp;
      derivatives.dviscdd_t = &s.of_visc.dens;
    }
    if (out.cond != nullptr) {
      values.cond = &s.cond;
      derivatives.dconddt_d = &s.of_cond.temp;
      derivatives.dconddd_t = &s.of_cond.dens;
    }
    of_doubles(a, b, ierr, values, derivatives);
    return s;
  }
};

// The entries, each by what it is given.
inline constexpr Entry<detail::of_temp, detail::of_dens> co2_td{co2_properties::co2_td};
inline constexpr Entry<detail::of_temp, detail::of_pres> co2_tp{co2_properties::co2_tp};
inline constexpr Entry<detail::of_pres, detail::of_enth> co2_ph{co2_properties::co2_ph};
inline constexpr Entry<detail::of_pres, detail::of_entr> co2_ps{co2_properties::co2_ps};
inline constexpr Entry<detail::of_dens, detail::of_inte> co2_du{co2_properties::co2_du};
inline constexpr Entry<detail::of_dens, detail::of_enth> co2_dh{co2_properties::co2_dh};
inline constexpr Entry<detail::of_dens, detail::of_entr> co2_ds{co2_properties::co2_ds};
inline constexpr Entry<detail::of_dens, detail::of_pres> co2_dp{co2_properties::co2_dp};
inline constexpr Entry<detail::of_enth, detail::of_entr> co2_hs{co2_properties::co2_hs};
inline constexpr Entry<detail::of_pres, detail::of_inte> co2_pu{co2_properties::co2_pu};
inline constexpr Entry<detail::of_temp, detail::of_entr> co2_ts{co2_properties::co2_ts};
inline constexpr Entry<detail::of_temp, detail::of_qual> co2_tx{co2_properties::co2_tx};
inline constexpr Entry<detail::of_pres, detail::of_qual> co2_px{co2_properties::co2_px};

}  // namespace co2_properties::differentiable
