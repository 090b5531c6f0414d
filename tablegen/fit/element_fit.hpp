#pragma once
// Fit of one Helmholtz element, judged by the properties that are derived from it.

#include <array>
#include <optional>
#include <vector>

#include "tablegen/fit/element_basis.hpp"
#include "tablegen/fit/reach.hpp"

namespace co2_properties::tablegen {

/// Errors of the derived properties: of density at given temperature and pressure, relative,
/// (p - p_ref) / (rho dp/drho); of h, kJ/kg; of s, kJ/(kg K); of cv, cp and w, relative. Inside the
/// box around the critical point, where the library takes cv, cp and w from fits of their own, the
/// first is (p - p_ref) / p and the last three are zero.
struct PropertyErrors {
  std::array<double, 6> value{};
};
inline constexpr std::array<const char*, 6> property_error_names = {"density", "h",  "s",
                                                                    "cv",      "cp", "w"};

/// Pressure slope a_rho along the isochore of an edge: a polynomial of degree 5 in temperature, by
/// its Chebyshev coefficients over [temp_lo, temp_hi]. The elements on both sides take it over
/// exactly, so that the pressure does not jump at the edge.
struct EdgePolynomial {
  Real temp_lo, temp_hi;
  std::array<Real, temp_terms> coef;

  [[nodiscard]] Real operator()(Real temp) const;
};

struct ElementFit {
  Element element;
  double residual;        ///< weighted root mean square over states that the fit did not use
  PropertyErrors errors;  ///< largest over the same states, of the shipped evaluation in double
};

/// The samples and the least-squares problem of one element; built once, solved with and without
/// conditions at its density edges.
class ElementFitter {
 public:
  explicit ElementFitter(const ElementCell& cell);

  [[nodiscard]] ElementFit solve(const std::optional<EdgePolynomial>& lower,
                                 const std::optional<EdgePolynomial>& upper) const;

 private:
  ElementCell cell_;
  ElementBasis basis_;
  LeastSquaresProblem problem_;
  std::vector<StatePoint> checks_;
};

/// The polynomial for an edge at `dens` from temp_lo to temp_hi, fitted to the reference along the
/// stable part of the isochore.
[[nodiscard]] EdgePolynomial fit_edge(Region region, double dens, double temp_lo, double temp_hi);

}  // namespace co2_properties::tablegen
