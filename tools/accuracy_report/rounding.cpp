#include "accuracy_report/rounding.hpp"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <vector>

#include "api/co2_properties.hpp"
#include "eos/element.hpp"
#include "eos/properties.hpp"
#include "fits/near_critical.hpp"

namespace co2_properties::accuracy {
namespace {

struct ExactDerivatives {
  long double a, a_t, a_d, a_tt, a_dd, a_td;
};

/// The defining sum of an element and its derivatives, term by term in long double.
ExactDerivatives exact_derivatives(const Element& cell, const double temp, const double dens) {
  const long double tau = static_cast<long double>(temp) - cell.temp0;
  const long double delta = static_cast<long double>(dens) - cell.dens0;
  const long double rho = dens;
  const long double log_rho = std::log(rho);
  // Value and two derivatives of the density functions ln rho, 1, d, d^2, d^3, d^4.
  const long double in_dens[dens_terms][3] = {
      {log_rho, 1.0L / rho, -1.0L / (rho * rho)},
      {1.0L, 0.0L, 0.0L},
      {delta, 1.0L, 0.0L},
      {delta * delta, 2.0L * delta, 2.0L},
      {delta * delta * delta, 3.0L * delta * delta, 6.0L * delta},
      {delta * delta * delta * delta, 4.0L * delta * delta * delta, 12.0L * delta * delta}};
  ExactDerivatives d{};
  for (std::int32_t j = 0; j < dens_terms; ++j) {
    long double f = 0.0L, f_t = 0.0L, f_tt = 0.0L;
    for (std::int32_t i = temp_terms; i-- > 0;) {
      f_tt = f_tt * tau + 2.0L * f_t;
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

struct Row {
  const char* where;
  const char* quantity;
  double worst = 0.0;
  double temp = 0.0, dens = 0.0;
};

}  // namespace

Section rounding_section(const std::span<const StateErrors> states) {
  std::vector<Row> rows;
  for (const char* where : {"outside the critical box", "critical box, off T critical by > 0.05 K",
                            "critical box, within 0.05 K of critical T"}) {
    for (const char* quantity : {"p, relative", "density at given (T, p), relative", "h, kJ/kg",
                                 "s, kJ/(kg K)", "dp/drho, in p/rho", "cv, relative"}) {
      rows.push_back({where, quantity});
    }
  }
  for (const StateErrors& state : states) {
    const double temp = state.temp;
    const double dens = state.dens;
    const std::int32_t e = element_of(temp, dens);
    const HelmholtzDerivatives d = element_derivatives(e, temp, dens);
    const ExactDerivatives x = exact_derivatives(element(e), temp, dens);
    const long double p = x.a_d * dens * dens;
    const long double slope = dens * (2.0L * x.a_d + dens * x.a_dd);
    const long double dp = pressure(d, dens) - p;
    const std::array<long double, 6> differences = {
        dp / p,
        dp / (dens * slope),
        enthalpy(d, temp, dens) - (x.a - temp * x.a_t + dens * x.a_d),
        entropy(d) + x.a_t,
        (co2_properties::dpdd(d, dens) - slope) * dens / p,
        d.a_tt / x.a_tt - 1.0L};
    std::size_t first = 0;
    if (near_critical_box.contains(temp, dens)) first = std::abs(temp - t_crit) > 0.05 ? 6 : 12;
    for (std::size_t k = 0; k < differences.size(); ++k) {
      const auto size = static_cast<double>(std::abs(differences[k]));
      if (size > rows[first + k].worst)
        rows[first + k] = {rows[first + k].where, rows[first + k].quantity, size, temp, dens};
    }
  }
  std::vector<std::vector<std::string>> cells;
  cells.reserve(rows.size());
  for (const Row& row : rows) {
    cells.push_back({row.where, row.quantity, fmt::format("{:.1e}", row.worst),
                     fmt::format("{:.5f} K, {:.4f} kg/m3, element {}", row.temp, row.dens,
                                 element_of(row.temp, row.dens))});
  }
  return {"rounding", text_table({"where", "quantity", "largest rounding error", "at"}, cells),
          true};
}

}  // namespace co2_properties::accuracy
