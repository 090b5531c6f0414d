#include "api/solve_density.hpp"

#include <cmath>

#include "api/relocate.hpp"
#include "eos/element.hpp"

namespace co2_properties {
namespace {

/// The pressure of one element along an isotherm, p = rho^2 g(rho - dens0) + b0 rho.
class PressureCurve {
 public:
  PressureCurve(const std::int32_t e, const double temp) noexcept
      : element_(e),
        dens_width_(element(e).dens_width),
        isotherm_(co2_properties::isotherm(element(e), temp)) {
    b0_ = isotherm_.f(0);
    g0_ = isotherm_.f(2);
    g1_ = 2.0 * isotherm_.f(3);
    g2_ = 3.0 * isotherm_.f(4);
    g3_ = 4.0 * isotherm_.f(5);
  }

  [[nodiscard]] std::int32_t element_index() const noexcept { return element_; }
  [[nodiscard]] const Isotherm& isotherm() const noexcept { return isotherm_; }
  [[nodiscard]] bool keeps(const double dens) const noexcept {
    return keeps_element(dens - isotherm_.dens0, dens_width_);
  }
  [[nodiscard]] double pressure(const double dens) const noexcept {
    return dens * dens * g(dens - isotherm_.dens0) + b0_ * dens;
  }
  [[nodiscard]] double slope(const double dens) const noexcept {
    const double dr = dens - isotherm_.dens0;
    const double g_d = (3.0 * g3_ * dr + 2.0 * g2_) * dr + g1_;
    return (2.0 * g(dr) + dens * g_d) * dens + b0_;
  }
  /// One Newton step from the lower edge, where only three of the sums take part.
  [[nodiscard]] double start(const double pres) const noexcept {
    const double dens0 = isotherm_.dens0;
    return dens0 +
           (pres - (g0_ * dens0 + b0_) * dens0) / (2.0 * g0_ * dens0 + b0_ + g1_ * dens0 * dens0);
  }

 private:
  [[nodiscard]] double g(const double dr) const noexcept {
    return ((g3_ * dr + g2_) * dr + g1_) * dr + g0_;
  }

  std::int32_t element_;
  double dens_width_;
  Isotherm isotherm_;
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
  PressureCurve curve(first, temp);
  double dens = curve.start(pres);
  for (std::int32_t k = 1;;) {
    if (!curve.keeps(dens)) curve = PressureCurve(relocate(temp, dens), temp);
    const double residual = curve.pressure(dens) - pres;
    const double step = residual / curve.slope(dens);
    if (std::abs(residual) < tolerance) {
      // The residual that is left may still be 1e-7 of the density where the isotherm is flat. The
      // next step removes it without another evaluation, unless there is no slope to rely on.
      if (std::abs(step) < largest_last_step * dens) dens -= step;
      return {curve.element_index(), dens, curve.isotherm(), k, k <= last_accepted};
    }
    dens -= step;
    if (++k == most_evaluations) return {curve.element_index(), dens, curve.isotherm(), k, false};
  }
}

}  // namespace co2_properties
