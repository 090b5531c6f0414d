#pragma once
// The functions of a Helmholtz element in a well-conditioned form.

#include <array>

#include "eos/element.hpp"
#include "tablegen/fit/least_squares.hpp"
#include "tablegen/tilings/element_tiling.hpp"

namespace co2_properties::tablegen {

inline constexpr int element_terms = temp_terms * dens_terms;

/// A linear form in (a, a_T, a_rho, a_TT, a_rhorho, a_Trho).
using Form = std::array<Real, 6>;

/// Value, first and second derivative of the six functions of one variable.
using Functions = std::array<std::array<Real, 3>, 6>;

/// The 36 functions of an element: Chebyshev polynomials of degree 0..5 in T times six functions of
/// density, the Chebyshev polynomials of degree 0..4 and what ln rho has beyond them (its remainder
/// after interpolation by the other five, scaled to 1). In narrow elements that remainder is some
/// 1e-12 of ln rho: in this basis it is a function like the others, in the stored one its
/// coefficient is large and cancels against the polynomial.
///
/// Function 6 i + j is temperature function i times density function j.
class ElementBasis {
 public:
  explicit ElementBasis(const ElementCell& cell);

  [[nodiscard]] Functions temperature_functions(Real temp) const;
  [[nodiscard]] Functions density_functions(Real dens) const;

  /// A linear form of the derivatives at a state, for each of the 36 functions.
  [[nodiscard]] Vector row(const Form& form, Real temp, Real dens) const;

  /// Coefficients of the record of the sum of `weights` times the functions, row by row.
  [[nodiscard]] Vector coefficients(const Vector& weights) const;

  /// The record with the sum of `weights` times the functions, rounded to double at the end only;
  /// rows that are given stand as they are.
  [[nodiscard]] Element to_element(const Vector& weights) const;

  /// Coefficient of ln rho in the last density function.
  [[nodiscard]] Real log_coefficient() const { return 1.0L / log_scale_; }

  /// Factor of a power of tau in each temperature function.
  [[nodiscard]] Vector temperature_power(std::size_t power) const;

  /// For each temperature function the sum of the magnitudes of the powers of tau that make up its
  /// derivative, at the upper edge.
  [[nodiscard]] std::array<Real, 6> temperature_derivative_terms() const;

 private:
  ElementCell cell_;
  Real temp_mid_, temp_half_;
  Real dens_mid_, dens_half_;
  std::array<Real, 5> log_fit_{};  ///< Chebyshev coefficients of the interpolant of ln rho
  Real log_scale_ = 1.0L;
};

}  // namespace co2_properties::tablegen
