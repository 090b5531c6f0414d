#include "accuracy_report/saturation_line.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "api/co2_properties.hpp"
#include "eos/properties.hpp"
#include "reference/phase_equilibrium.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::accuracy {
namespace {

SaturationErrors errors_at(const double temp) {
  const auto ref = reference::saturation<long double>(temp);
  SaturationErrors e{};
  e.temp = temp;
  e.dens_liq = calc_sat_liq_dens(temp);
  e.dens_vap = calc_sat_vap_dens(temp);
  const auto relative = [](const double value, const long double expected) {
    return static_cast<double>(value / expected - 1.0L);
  };
  e.liq = relative(e.dens_liq, ref.dens_liq);
  e.vap = relative(e.dens_vap, ref.dens_vap);
  e.pres = relative(calc_sat_pres(temp), ref.pres);
  e.temp_of_pres = calc_sat_temp(static_cast<double>(ref.pres)) - temp;
  const auto pressure_at = [&](const std::int32_t index, const double dens) {
    return pressure(evaluate(element(index), temp, dens), dens);
  };
  e.pres_gap = pressure_at(liq_index_from_td(temp, e.dens_liq), e.dens_liq) /
                   pressure_at(vap_index_from_td(temp, e.dens_vap), e.dens_vap) -
               1.0;
  return e;
}

}  // namespace

std::vector<SaturationErrors> saturation_errors(const int count, const unsigned threads) {
  constexpr double closest = 2e-6;
  std::vector<SaturationErrors> line(static_cast<std::size_t>(count));
  const int half = count / 2;
  for (int n = 0; n < count; ++n) {
    const double below =
        n < half ? (t_crit - temp_sat_min) * (1.0 - static_cast<double>(n) / half)
                 : closest * std::pow(10.0 / closest, static_cast<double>(n - half) / half);
    line[static_cast<std::size_t>(n)].temp = std::max(temp_sat_min, t_crit - below);
  }
  tablegen::for_each_index(line.size(), threads,
                           [&](const std::size_t k) { line[k] = errors_at(line[k].temp); });
  std::sort(line.begin(), line.end(), [](const auto& a, const auto& b) { return a.temp < b.temp; });
  return line;
}

Section saturation_section(const std::vector<SaturationErrors>& line) {
  struct Column {
    const char* title;
    double SaturationErrors::*value;
  };
  constexpr Column columns[] = {{"liquid density", &SaturationErrors::liq},
                                {"vapour density", &SaturationErrors::vap},
                                {"p(T)", &SaturationErrors::pres},
                                {"T(p), K", &SaturationErrors::temp_of_pres},
                                {"p liquid - p vapour", &SaturationErrors::pres_gap}};
  std::vector<std::string> header = {"T, K"};
  for (const Column& column : columns) header.emplace_back(column.title);
  std::vector<std::vector<std::string>> rows;
  double begin = temp_sat_min;
  for (const double end : {301.0, 304.0, 304.12, t_crit}) {
    std::vector<std::string> row = {fmt::format("{} .. {}", begin, end)};
    for (const Column& column : columns) {
      double worst = 0.0;
      double at = begin;
      for (const SaturationErrors& e : line) {
        if (e.temp < begin || e.temp >= end || std::abs(e.*column.value) <= worst) continue;
        worst = std::abs(e.*column.value);
        at = e.temp;
      }
      row.push_back(fmt::format("{:.1e} at {:.5f} K", worst, at));
    }
    rows.push_back(row);
    begin = end;
  }
  return {"saturation", text_table(header, rows), true};
}

Section phases_section(const Sample& sample) {
  std::vector<std::vector<std::string>> rows;
  double begin = temp_sat_min;
  for (const PhaseDifference& d : sample.phase_differences) {
    rows.push_back({fmt::format("{} .. {}", begin, d.temp_end), std::to_string(d.tried),
                    std::to_string(d.only_in_library), std::to_string(d.only_in_reference),
                    fmt::format("{:.1e}", d.farthest)});
    begin = d.temp_end;
  }
  return {"phases",
          text_table({"T, K", "states near saturation", "single phase in the library only",
                      "single phase in the reference only",
                      "farthest from the saturated density, relative"},
                     rows),
          true};
}

}  // namespace co2_properties::accuracy
