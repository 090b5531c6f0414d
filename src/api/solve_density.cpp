#include "api/solve_density.hpp"

#include <cmath>

#include "api/relocate.hpp"
#include "eos/element.hpp"

namespace co2_properties {
namespace {

/// The pressure of one element along an isotherm, p = rho^2 g(rho - dens0) + b0 rho, with the sums
/// over powers of temperature taken once.
class Isotherm {
 public:
  Isotherm(const std::int32_t e, const double temp) noexcept
      : element_(e), dens0_(element(e).dens0), dens_width_(element(e).dens_width) {
    const auto& c = element(e).coef;
    const double tau = temp - element(e).temp0;
    double b[dens_terms];
    for (std::int32_t j = 0; j < dens_terms; ++j) {
      b[j] = ((((c[5][j] * tau + c[4][j]) * tau + c[3][j]) * tau + c[2][j]) * tau + c[1][j]) * tau +
             c[0][j];
    }
    b0_ = b[0];
    g0_ = b[2];
    g1_ = 2.0 * b[3];
    g2_ = 3.0 * b[4];
    g3_ = 4.0 * b[5];
  }

  [[nodiscard]] std::int32_t element_index() const noexcept { return element_; }
  [[nodiscard]] bool keeps(const double dens) const noexcept {
    return keeps_element(dens - dens0_, dens_width_);
  }
  [[nodiscard]] double pressure(const double dens) const noexcept {
    return dens * dens * g(dens - dens0_) + b0_ * dens;
  }
  [[nodiscard]] double slope(const double dens) const noexcept {
    const double dr = dens - dens0_;
    const double g_d = (3.0 * g3_ * dr + 2.0 * g2_) * dr + g1_;
    return (2.0 * g(dr) + dens * g_d) * dens + b0_;
  }
  /// One Newton step from the lower edge, where only three of the sums take part.
  [[nodiscard]] double start(const double pres) const noexcept {
    return dens0_ + (pres - (g0_ * dens0_ + b0_) * dens0_) /
                        (2.0 * g0_ * dens0_ + b0_ + g1_ * dens0_ * dens0_);
  }

 private:
  [[nodiscard]] double g(const double dr) const noexcept {
    return ((g3_ * dr + g2_) * dr + g1_) * dr + g0_;
  }

  std::int32_t element_;
  double dens0_;
  double dens_width_;
  double b0_, g0_, g1_, g2_, g3_;
};

}  // namespace

DensitySolution solve_density(const std::int32_t first, const double temp,
                              const double pres) noexcept {
  constexpr double relative_tolerance = 1e-11;
  constexpr double largest_last_step = 1e-7;  // relative
  constexpr std::int32_t last_accepted = 14;
  constexpr std::int32_t most_evaluations = 16;
  const double tolerance = relative_tolerance * pres;
  Isotherm isotherm(first, temp);
  double dens = isotherm.start(pres);
  for (std::int32_t k = 1;;) {
    if (!isotherm.keeps(dens)) isotherm = Isotherm(relocate(temp, dens), temp);
    const double residual = isotherm.pressure(dens) - pres;
    const double step = residual / isotherm.slope(dens);
    if (std::abs(residual) < tolerance) {
      // The residual that is left may still be 1e-7 of the density where the isotherm is flat. The
      // next step removes it without another evaluation, unless there is no slope to rely on.
      if (std::abs(step) < largest_last_step * dens) dens -= step;
      return {isotherm.element_index(), dens, k, k <= last_accepted};
    }
    dens -= step;
    if (++k == most_evaluations) return {isotherm.element_index(), dens, k, false};
  }
}

}  // namespace co2_properties
