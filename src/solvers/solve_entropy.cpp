#include "numbers/platform.hpp"

#include "solvers/solve_entropy.hpp"

#include "numbers/logarithm.hpp"
#include "solvers/relocate.hpp"

namespace co2_properties {
namespace {

/// Steps from `start`, in elements that are kept as far as their margins.
EntropySolution iterate(const Region region, const double temp, const double entr,
                        const double thinnest, const double densest, const double start) noexcept {
  constexpr std::int32_t most_steps = 10;
  constexpr double tolerance = 1e-11;
  constexpr double margin = 1e-3;  // of the density; rounding may lead beyond the ends
  double dens = start;
  std::int32_t e = element_locator.find(region, temp, dens);
  for (std::int32_t k = 0; k < most_steps; ++k) {
    if (!(dens >= thinnest * (1.0 - margin) && dens <= densest * (1.0 + margin))) break;
    if (!Rectangles<double>::of({&element(e)}).keeps_density(dens)) {
      e = element_locator.find(region, temp, dens);
    }
    const Isotherm<double> at = isotherm(element(e), temp);
    const double log_dens = logarithm(dens);
    const double miss = entropy(evaluate(at, dens, log_dens)) - entr;
    const double better = EntropyCurve<double>::of(at).improved(dens, log_dens, entr);
    // The last step removes what is left without another evaluation.
    if (absolute(miss) <= at_least_of_unit(tolerance, entr)) return {e, better, true};
    dens = better;
  }
  return {e, dens, false};
}

}  // namespace

double end_of_elements(const Region region, const double temp) noexcept {
  constexpr double densest = 1e4;
  const Element& last = element(element_locator.find(region, temp, densest));
  return last.dens0 + last.dens_width;
}

EntropySolution solve_entropy(const Region region, const double temp, const double entr,
                              const double thinnest, const double densest,
                              const double start) noexcept {
  const EntropySolution s = iterate(region, temp, entr, thinnest, densest, start);
  if (s.converged) return s;
  double lo = thinnest;
  double hi = densest;
  // Equal ratios until the whole range is at the rounding of the density.
  for (std::int32_t k = 0; k < 64; ++k) {
    const auto mid = root<double>(lo * hi);
    const Element& cell = element(element_locator.find(region, temp, mid));
    (entropy(evaluate(cell, temp, mid)) > entr ? lo : hi) = mid;
  }
  return iterate(region, temp, entr, thinnest, densest, lo);
}

}  // namespace co2_properties
