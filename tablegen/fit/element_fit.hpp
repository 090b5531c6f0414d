#pragma once
// Fit of one Helmholtz element, judged by the properties that are derived from it.

#include <array>
#include <optional>
#include <vector>

#include "tablegen/fit/dome_tangent.hpp"
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

/// A density edge that elements on both sides share. Along it a_rho is one polynomial of degree 5
/// in temperature, given by Chebyshev coefficients over the whole edge; every element at the edge
/// takes it over exactly on its own part, so that the pressure does not jump there.
struct EdgeSpan {
  Real temp_lo, temp_hi;
};
using EdgeCoefficients = Vector;

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

  /// What the given rows of the record say about the polynomial of an edge: conditions a edge = b
  /// on its coefficients; none for most elements.
  /// \param upper  the edge is the upper one of the element
  [[nodiscard]] Rows given_on_edge(const EdgeSpan& span, bool upper) const;

  /// Best fit of the element alone.
  [[nodiscard]] ElementFit solve() const;

  /// Best fit with given polynomials at the shared edges.
  /// \param edges  coefficients of the lower, then of the upper edge, of those that are shared
  [[nodiscard]] ElementFit solve(const std::optional<EdgeSpan>& lower,
                                 const std::optional<EdgeSpan>& upper, const Vector& edges) const;

  /// What the best fit leaves over, as a function of the edges: its sum of squares is that of
  /// a edges - b, up to a constant.
  [[nodiscard]] Rows edge_loss(const std::optional<EdgeSpan>& lower,
                               const std::optional<EdgeSpan>& upper) const;

 private:
  [[nodiscard]] Rows sample_rows(std::vector<StatePoint> points, Real weight) const;
  [[nodiscard]] Rows target_rows(const std::vector<Target>& targets) const;
  void limit_rounding();
  [[nodiscard]] Rows given_rows() const;
  /// Conditions a x = from_edges edges + constant on the weights x of the functions.
  struct Conditions {
    Matrix a;
    Matrix from_edges;
    Vector constant;
  };
  [[nodiscard]] Conditions conditions(const std::optional<EdgeSpan>& lower,
                                      const std::optional<EdgeSpan>& upper) const;
  [[nodiscard]] ElementFit measured(const Element& element) const;

  ElementCell cell_;
  ElementBasis basis_;
  LeastSquaresProblem problem_;
  std::vector<StatePoint> checks_;
};

/// Interpolation of the reference along an edge: a start for the search of its polynomial.
[[nodiscard]] EdgeCoefficients interpolate_edge(const EdgeSpan& span, double dens);

}  // namespace co2_properties::tablegen
