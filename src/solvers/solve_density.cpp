#include "numbers/platform.hpp"

#include "solvers/solve_density.hpp"

#include <cmath>

#include "eos/element.hpp"
#include "solvers/relocate.hpp"

namespace co2_properties {
namespace {

/// Isotherm of element `e` and what the iteration needs of it.
struct Branch {
  std::int32_t e;
  Isotherm isotherm;
  PressureCurve<double> curve;

  Branch(const std::int32_t index, const double temp) noexcept
      : e(index), isotherm(co2_properties::isotherm(element(e), temp)) {
    const double f[dens_terms] = {isotherm.f(0), isotherm.f(1), isotherm.f(2),
                                  isotherm.f(3), isotherm.f(4), isotherm.f(5)};
    curve = PressureCurve<double>::from(isotherm.dens0, f);
  }
  [[nodiscard]] bool keeps(const double dens) const noexcept {
    return keeps_element(dens - isotherm.dens0, element(e).dens_width);
  }
};

}  // namespace

DensitySolution solve_density(const std::int32_t first, const double temp,
                              const double pres) noexcept {
  constexpr std::int32_t last_accepted = 14;
  constexpr std::int32_t most_evaluations = 16;
  const double tolerance = pres_tolerance * pres;
  Branch branch(first, temp);
  double dens = branch.curve.start(pres);
  for (std::int32_t k = 1;;) {
    if (!branch.keeps(dens)) branch = Branch(relocate(temp, dens), temp);
    const double residual = branch.curve.pressure(dens) - pres;
    const double step = residual / branch.curve.slope(dens);
    if (std::abs(residual) < tolerance) {
      // The residual that is left may still be 1e-7 of the density where the isotherm is flat. The
      // next step removes it without another evaluation, unless there is no slope to rely on.
      if (std::abs(step) < largest_last_step * dens) dens -= step;
      return {branch.e, dens, branch.isotherm, k, k <= last_accepted};
    }
    dens -= step;
    if (++k == most_evaluations) return {branch.e, dens, branch.isotherm, k, false};
  }
}

}  // namespace co2_properties
