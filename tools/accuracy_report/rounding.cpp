#include "accuracy_report/rounding.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <vector>

#include "api/co2_properties.hpp"
#include "eos/element.hpp"
#include "fits/near_critical.hpp"

namespace co2_properties::accuracy {
namespace {

/// 113 bits: 34 digits, eighteen more than the library's.
using Quad = __float128;

/// ln((1 + s) / (1 - s)) for |s| <= 1/3, by its series.
Quad twice_atanh(const Quad s) {
  Quad sum = 0;
  for (int k = 71; k >= 1; k -= 2) sum = sum * s * s + Quad{2} / k;  // the next term: 2e-36
  return sum * s;
}

Quad exact_log(const double x) {
  int exponent = 0;
  const Quad fraction = std::frexp(x, &exponent);  // 1/2 to 1
  return exponent * twice_atanh(Quad{1} / 3) + twice_atanh((fraction - 1) / (fraction + 1));
}

struct Derivatives {
  Quad a, a_t, a_d, a_tt, a_dd, a_td;
};

/// The defining sum of an element and its derivatives, term by term.
Derivatives exact_derivatives(const Element& cell, const double temp, const double dens) {
  const Quad tau = Quad{temp} - cell.temp0;
  const Quad delta = Quad{dens} - cell.dens0;
  const Quad rho = dens;
  // Value and two derivatives of the density functions ln rho, 1, d, d^2, d^3, d^4.
  const Quad in_dens[dens_terms][3] = {
      {exact_log(dens), 1 / rho, -1 / (rho * rho)},
      {1, 0, 0},
      {delta, 1, 0},
      {delta * delta, 2 * delta, 2},
      {delta * delta * delta, 3 * delta * delta, 6 * delta},
      {delta * delta * delta * delta, 4 * delta * delta * delta, 12 * delta * delta}};
  Derivatives d{};
  for (std::int32_t j = 0; j < dens_terms; ++j) {
    Quad f = 0, f_t = 0, f_tt = 0;
    for (std::int32_t i = temp_terms; i-- > 0;) {
      f_tt = f_tt * tau + 2 * f_t;
      f_t = f_t * tau + f;
      f = f * tau + cell.coef[i][j];
    }
    d.a += f * in_dens[j][0];
    d.a_t += f_t * in_dens[j][0];
    d.a_tt += f_tt * in_dens[j][0];
    d.a_d += f * in_dens[j][1];
    d.a_td += f_t * in_dens[j][1];
    d.a_dd += f * in_dens[j][2];
  }
  return d;
}

enum Rounded : std::size_t {
  r_pres,
  r_dens,
  r_enth,
  r_entr,
  r_dpdd,
  r_dsdt,
  r_cp,
  r_ssnd,
  r_count
};
constexpr const char* names[r_count] = {"p, relative",       "density at given (T, p), relative",
                                        "h, kJ/kg",          "s, kJ/(kg K)",
                                        "dp/drho, in p/rho", "cv and ds/dT, relative",
                                        "cp, relative",      "w, relative"};

/// Outputs of `co2_td` less the same formulas of exact derivatives. In the critical box cp and w
/// come from patches and mean nothing here; ds/dT stands for cv, which does too.
std::array<double, r_count> rounding_errors(const double temp, const double dens) {
  std::int32_t ierr = 0;
  double p, h, s, p_d, s_t, cp, w;
  co2_td(temp, dens, ierr,
         {.pres = &p, .enth = &h, .entr = &s, .cp = &cp, .ssnd = &w, .dpdd = &p_d, .dsdt = &s_t});
  const Derivatives x = exact_derivatives(element(element_of(temp, dens)), temp, dens);
  const Quad rho = dens;
  const Quad pres = rho * rho * x.a_d;
  const Quad slope = rho * (2 * x.a_d + rho * x.a_dd);
  const Quad exact_cp = temp * (rho * rho * x.a_td * x.a_td / slope - x.a_tt);
  const Quad exact_w2 = 1000 * (slope - rho * rho * x.a_td * x.a_td / x.a_tt);
  const Quad differences[r_count] = {
      (p - pres) / pres, (p - pres) / (rho * slope),      h - (x.a - temp * x.a_t + rho * x.a_d),
      s + x.a_t,         (p_d - slope) * rho / pres,      s_t / -x.a_tt - 1,
      cp / exact_cp - 1, (Quad{w} * w / exact_w2 - 1) / 2};
  std::array<double, r_count> sizes;
  for (std::size_t k = 0; k < r_count; ++k)
    sizes[k] = std::abs(static_cast<double>(differences[k]));
  return sizes;
}

struct Error {
  double size, temp, dens;
};
bool smaller(const Error& a, const Error& b) { return a.size < b.size; }

std::vector<std::string> row(const char* where, const char* quantity, std::vector<Error>& errors) {
  const auto quantile = [&](const double fraction) {
    const auto count = static_cast<double>(errors.size() - 1);
    const auto at = errors.begin() + static_cast<std::ptrdiff_t>(fraction * count);
    std::nth_element(errors.begin(), at, errors.end(), smaller);
    return *at;
  };
  const Error worst = quantile(1.0);
  return {where,
          quantity,
          fmt::format("{:.1e}", quantile(0.5).size),
          fmt::format("{:.1e}", quantile(0.99).size),
          fmt::format("{:.1e}", worst.size),
          fmt::format("{:.5f} K, {:.4f} kg/m3, element {}", worst.temp, worst.dens,
                      element_of(worst.temp, worst.dens))};
}

}  // namespace

Section rounding_section(const std::span<const StateErrors> states) {
  constexpr const char* places[] = {"outside the critical box",
                                    "critical box, off T critical by > 0.05 K",
                                    "critical box, within 0.05 K of critical T"};
  std::vector<Error> errors[std::size(places)][r_count];
  for (const auto& [temp, dens, stable, deviations] : states) {
    const bool in_box = near_critical_box.contains(temp, dens);
    const std::size_t place = !in_box ? 0 : std::abs(temp - t_crit) > 0.05 ? 1 : 2;
    const auto sizes = rounding_errors(temp, dens);
    for (std::size_t k = 0; k < (in_box ? r_cp : r_count); ++k) {
      errors[place][k].push_back({sizes[k], temp, dens});
    }
  }
  std::vector<std::vector<std::string>> cells;
  for (std::size_t place = 0; place < std::size(places); ++place) {
    for (std::size_t k = 0; k < r_count; ++k) {
      if (!errors[place][k].empty()) {
        cells.push_back(row(places[place], names[k], errors[place][k]));
      }
    }
  }
  return {"rounding", text_table({"where", "quantity", "median", "99 %", "largest", "at"}, cells),
          true};
}

}  // namespace co2_properties::accuracy
