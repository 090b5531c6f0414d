#pragma once
// Temperature and density from pressure and a caloric property.
//
// The templates take the property as a type, see eos/property_types.hpp.

#include <cstdint>

#include "co2_properties/limits.hpp"
#include "eos/element.hpp"
#include "eos/helmholtz.hpp"
#include "eos/property_types.hpp"
#include "solvers/relocate.hpp"
#include "solvers/two_property_step.hpp"

namespace co2_properties {

/// What is asked for: pressure, kPa, and the caloric property, with the residuals that are small
/// enough.
struct CaloricTarget {
  double pres;
  double caloric;
  double pres_tolerance;
  double caloric_tolerance;
};

/// Share of the magnitude, but not less than the share of one unit: caloric properties have
/// arbitrary zero points.
template <class V>
[[nodiscard, gnu::always_inline]] inline V at_least_of_unit(const double share,
                                                            const V& value) noexcept {
  const V of_value = share * absolute(value);
  return select<V>(of_value > share, of_value, broadcast<V>(share));
}

[[nodiscard]] inline CaloricTarget caloric_target(const double pres,
                                                  const double caloric) noexcept {
  constexpr double tolerance = 1e-11;
  return {pres, caloric, tolerance * pres, at_least_of_unit(tolerance, caloric)};
}

/// Where the iteration on temperature and density ended.
struct CaloricSolution {
  std::int32_t element;  ///< holds temp and dens, or nearly so
  double temp;
  double dens;
  Derivatives<double> d;    ///< at temp and dens
  double pres_residual;     ///< of the last evaluation in the loop
  double caloric_residual;  ///< likewise
  std::int32_t evaluations;
  bool served = true;  ///< by an element: not lost, nor beyond the elements
};

/// The number of evaluations that ends an iteration which has not met its target.
inline constexpr std::int32_t last_evaluation = 16;

/// Newton's method in temperature and density on the elements.
/// \param first       element to start with
/// \param temp, dens  start values, K and kg/m3
///
/// Steps are neither limited nor damped: from the start values two or three of them lead to the
/// tolerance. The Jacobian is regular also where the isotherm is flat, since its determinant is cv
/// times dp/drho at constant entropy (over T for the entropy), which are both positive. An iterate
/// that leads nowhere, and NaN, ends the iteration as if all evaluations had been made. With an
/// `Other` property in the place of pressure, the target's pressure is its value.
template <class Property, class Other = Pressure>
[[nodiscard]] CaloricSolution solve_caloric(const CaloricTarget& target, const std::int32_t first,
                                            const double temp, const double dens) noexcept {
  CaloricSolution s{first, temp, dens, {}, 0.0, 0.0, 1};
  const auto served = [&s] {
    return Rectangles<double>::of({&element(s.element)}).serve(s.temp, s.dens);
  };
  const auto evaluate_here = [&] {
    s.served = served();
    if (!s.served) {
      if (!is_promising(s.temp, s.dens)) {
        s.evaluations = last_evaluation;
        return false;
      }
      s.element = relocate(s.temp, s.dens);
      s.served = served();
    }
    s.d = evaluate(element(s.element), s.temp, s.dens);
    return true;
  };
  while (evaluate_here()) {
    if (s.evaluations == last_evaluation) break;
    const Evaluation<double> e = {s.d, {}};
    const auto p = Other::expand(e, s.temp, s.dens);
    const auto c = Property::expand(e, s.temp, s.dens);
    s.pres_residual = p.value - target.pres;
    s.caloric_residual = c.value - target.caloric;
    if (absolute(s.pres_residual) < target.pres_tolerance &&
        absolute(s.caloric_residual) < target.caloric_tolerance) {
      break;
    }
    const Step<double> step =
        TwoProperties<double>(p, c).newton_step(-s.pres_residual, -s.caloric_residual);
    s.temp += step.temp;
    s.dens += s.dens * step.dens;
    ++s.evaluations;
  }
  return s;
}

/// Half the width of the band around the critical temperature, K, in which isotherms are flat.
inline constexpr double critical_band = 0.08;

/// How well a result agrees with its target.
enum class Agreement {
  close,
  loose,  ///< to a hundredth, in the band around the critical temperature
  none,   ///< it belongs to another state, or to none
};

/// Verdict on where an iteration ended. One that did not converge in time may still be close. In
/// the band around the critical temperature, where the isotherms are flat, a loose result is still
/// a result; iterations that are lost may pass through the band, though: what is off by more than
/// a hundredth is no result.
[[nodiscard]] inline Agreement judge_agreement(const CaloricSolution& s,
                                               const CaloricTarget& target) noexcept {
  if (s.evaluations < last_evaluation) return Agreement::close;
  const double pres_error = absolute(s.pres_residual);
  const double caloric_error = absolute(s.caloric_residual);
  if (absolute(s.temp - t_crit) <= critical_band) {
    const auto within = [&](const double share) {
      return pres_error <= share * target.pres &&
             caloric_error <= at_least_of_unit(share, target.caloric);
    };
    if (within(1e-4)) return Agreement::close;
    return within(1e-2) ? Agreement::loose : Agreement::none;
  }
  if (pres_error <= 10.0 * target.pres_tolerance &&
      caloric_error <= 100.0 * target.caloric_tolerance) {
    return Agreement::close;
  }
  return Agreement::none;
}

}  // namespace co2_properties
