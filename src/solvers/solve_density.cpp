#include "numbers/platform.hpp"

#include "solvers/solve_density.hpp"

#include "eos/element.hpp"
#include "solvers/relocate.hpp"

namespace co2_properties {
namespace {

/// Isotherm of element `e` and what the iteration needs of it.
struct Branch {
  std::int32_t e;
  Isotherm<double> isotherm;
  PressureCurve<double> curve;

  Branch(const std::int32_t index, const double temp) noexcept
      : e(index),
        isotherm(co2_properties::isotherm(element(e), temp)),
        curve(PressureCurve<double>::of(isotherm)) {}
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
    const auto [residual, slope] = branch.curve.residual(dens, pres);
    const double step = residual / slope;
    if (absolute(residual) < tolerance) {
      // The residual that is left may still be 1e-7 of the density where the isotherm is flat. The
      // next step removes it without another evaluation, unless there is no slope to rely on.
      if (absolute(step) < largest_last_step * dens) dens -= step;
      return {branch.e, dens, branch.isotherm, k, k <= last_accepted};
    }
    dens -= step;
    if (++k == most_evaluations) return {branch.e, dens, branch.isotherm, k, false};
  }
}

}  // namespace co2_properties
