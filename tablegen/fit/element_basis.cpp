#include "tablegen/fit/element_basis.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "reference/elementary.hpp"
#include "reference/span_wagner.hpp"

namespace co2_properties::tablegen {
namespace {

constexpr int dens_polynomials = dens_terms - 1;

/// Chebyshev polynomials 0..count-1 of (x - mid) / half with derivatives in x.
void chebyshev(const Real x, const Real mid, const Real half, const std::size_t count,
               Functions& f) {
  const Real u = (x - mid) / half;
  f[0] = {1.0L, 0.0L, 0.0L};
  f[1] = {u, 1.0L, 0.0L};
  for (std::size_t n = 2; n < count; ++n) {
    f[n] = {2.0L * u * f[n - 1][0] - f[n - 2][0],
            2.0L * f[n - 1][0] + 2.0L * u * f[n - 1][1] - f[n - 2][1],
            4.0L * f[n - 1][1] + 2.0L * u * f[n - 1][2] - f[n - 2][2]};
  }
  for (std::size_t n = 0; n < count; ++n) {
    f[n][1] /= half;
    f[n][2] /= half * half;
  }
}

/// power[n][k]: coefficient of y^k in the Chebyshev polynomial n of 2 y / width - 1.
std::array<std::array<Real, 6>, 6> chebyshev_powers(const Real width) {
  std::array<std::array<Real, 6>, 6> c{};
  c[0][0] = 1.0L;
  c[1][0] = -1.0L;
  c[1][1] = 2.0L;
  for (std::size_t n = 2; n < 6; ++n) {
    for (std::size_t k = 0; k < 6; ++k) {
      c[n][k] = (k > 0 ? 4.0L * c[n - 1][k - 1] : 0.0L) - 2.0L * c[n - 1][k] - c[n - 2][k];
    }
  }
  Real scale = 1.0L;
  for (std::size_t k = 0; k < 6; ++k) {
    for (std::size_t n = 0; n < 6; ++n) c[n][k] *= scale;
    scale /= width;
  }
  return c;
}

/// Width of an element as one writes it down: 0.0182 and not the difference of two rounded edges.
/// Elements that end on the critical isochore end where the maps separate them, one unit in the
/// last place above the edge that the next element stores.
double width(const double lo, const double hi) {
  constexpr Real decimals = 1e10L;
  constexpr Real edge_rounding = 1e-13L;
  const double end = hi == reference::d_crit ? std::nextafter(hi, 2.0 * hi) : hi;
  const Real exact = static_cast<Real>(end) - lo;
  const Real plain = std::round(exact * decimals) / decimals;
  if (std::abs(plain - exact) < edge_rounding) return static_cast<double>(plain);
  std::array<char, 40> digits{};
  std::snprintf(digits.data(), digits.size(), "%.16Lg", exact);
  return std::strtod(digits.data(), nullptr);
}

}  // namespace

ElementBasis::ElementBasis(const ElementCell& cell)
    : cell_(cell),
      temp_mid_((static_cast<Real>(cell.temp_lo) + cell.temp_hi) / 2.0L),
      temp_half_((static_cast<Real>(cell.temp_hi) - cell.temp_lo) / 2.0L),
      dens_mid_((static_cast<Real>(cell.dens_lo) + cell.dens_hi) / 2.0L),
      dens_half_((static_cast<Real>(cell.dens_hi) - cell.dens_lo) / 2.0L) {
  // Interpolation of ln rho at the five Chebyshev nodes, by discrete orthogonality.
  const Real pi = elementary::acos(-1.0L);
  for (int m = 0; m < dens_polynomials; ++m) {
    Real sum = 0.0L;
    for (int k = 0; k < dens_polynomials; ++k) {
      const Real angle = pi * (static_cast<Real>(k) + 0.5L) / dens_polynomials;
      sum += elementary::log(dens_mid_ + dens_half_ * elementary::cos(angle)) *
             elementary::cos(angle * m);
    }
    log_fit_[static_cast<std::size_t>(m)] = sum * (m == 0 ? 1.0L : 2.0L) / dens_polynomials;
  }
  constexpr int samples = 20;
  Real largest = 0.0L;
  for (int k = 0; k <= samples; ++k) {
    const Real dens = dens_mid_ + dens_half_ * elementary::cos(pi * k / samples);
    largest = std::max(largest, std::abs(density_functions(dens)[dens_polynomials][0]));
  }
  log_scale_ = largest;
}

Functions ElementBasis::temperature_functions(const Real temp) const {
  Functions f{};
  chebyshev(temp, temp_mid_, temp_half_, temp_terms, f);
  return f;
}

Functions ElementBasis::density_functions(const Real dens) const {
  Functions f{};
  chebyshev(dens, dens_mid_, dens_half_, dens_polynomials, f);
  std::array<Real, 3> rest = {elementary::log(dens), 1.0L / dens, -1.0L / (dens * dens)};
  for (std::size_t k = 0; k < rest.size(); ++k) {
    for (std::size_t m = 0; m < log_fit_.size(); ++m) rest[k] -= log_fit_[m] * f[m][k];
    f[dens_polynomials][k] = rest[k] / log_scale_;
  }
  return f;
}

Vector ElementBasis::row(const Form& form, const Real temp, const Real dens) const {
  const Functions t = temperature_functions(temp);
  const Functions d = density_functions(dens);
  Vector row(element_terms);
  Eigen::Index k = 0;
  for (const auto& ti : t) {
    for (const auto& dj : d) {
      row(k++) = form[0] * ti[0] * dj[0] + form[1] * ti[1] * dj[0] + form[2] * ti[0] * dj[1] +
                 form[3] * ti[2] * dj[0] + form[4] * ti[0] * dj[2] + form[5] * ti[1] * dj[1];
    }
  }
  return row;
}

std::array<Real, 6> ElementBasis::temperature_derivative_terms() const {
  const Real width = 2.0L * temp_half_;
  const auto power = chebyshev_powers(width);
  std::array<Real, 6> terms{};
  for (std::size_t n = 0; n < terms.size(); ++n) {
    Real scale = 1.0L;
    for (std::size_t k = 1; k < power[n].size(); ++k) {
      terms[n] += static_cast<Real>(k) * std::abs(power[n][k]) * scale;
      scale *= width;
    }
  }
  return terms;
}

Vector ElementBasis::temperature_power(const std::size_t power) const {
  const auto powers = chebyshev_powers(2.0L * temp_half_);
  Vector factors(temp_terms);
  for (std::size_t n = 0; n < temp_terms; ++n) {
    factors(static_cast<Eigen::Index>(n)) = powers[n][power];
  }
  return factors;
}

Vector ElementBasis::coefficients(const Vector& weights) const {
  const auto temp_power = chebyshev_powers(2.0L * temp_half_);
  const auto dens_power = chebyshev_powers(2.0L * dens_half_);
  Vector coef(element_terms);
  Eigen::Index k = 0;
  for (std::size_t power = 0; power < temp_terms; ++power) {
    std::array<Real, dens_terms> part{};  // of tau^power, for each density function
    for (std::size_t i = 0; i < temp_terms; ++i) {
      for (std::size_t j = 0; j < dens_terms; ++j) {
        part[j] += weights(static_cast<Eigen::Index>(dens_terms * i + j)) * temp_power[i][power];
      }
    }
    const Real log_part = part[dens_polynomials] / log_scale_;
    coef(k++) = log_part;
    for (std::size_t n = 0; n < dens_polynomials; ++n) {
      Real sum = 0.0L;
      for (std::size_t m = 0; m < dens_polynomials; ++m) {
        sum += (part[m] - log_part * log_fit_[m]) * dens_power[m][n];
      }
      coef(k++) = sum;
    }
  }
  return coef;
}

Element ElementBasis::to_element(const Vector& weights) const {
  Element e{cell_.dens_lo,
            cell_.temp_lo,
            width(cell_.dens_lo, cell_.dens_hi),
            width(cell_.temp_lo, cell_.temp_hi),
            {}};
  const Vector coef = coefficients(weights);
  for (std::size_t i = 0; i < temp_terms; ++i) {
    for (std::size_t j = 0; j < dens_terms; ++j) {
      e.coef[i][j] = i < cell_.given.size()
                         ? cell_.given[i][j]
                         : static_cast<double>(coef(static_cast<Eigen::Index>(dens_terms * i + j)));
    }
  }
  return e;
}

}  // namespace co2_properties::tablegen
