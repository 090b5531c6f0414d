#include "solver_report/edges_report.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <vector>

#include "co2_properties.hpp"
#include "eos/element.hpp"
#include "solver_report/caloric_states.hpp"
#include "solver_report/findings.hpp"
#include "solver_report/states.hpp"

namespace co2_properties::solver_report {
namespace {

double percent(const std::uint64_t part, const std::uint64_t all) {
  return 100.0 * static_cast<double>(part) / static_cast<double>(std::max<std::uint64_t>(all, 1));
}

// ---- On the limits -----------------------------------------------------------------------------

/// Takes back a state of `co2_td`. \return the code
using WayBack = std::int32_t (*)(const FullState&);

std::int32_t through_ph(const FullState& s) {
  std::int32_t ierr = 0;
  co2_ph(s.pres, s.enth, ierr);
  return ierr;
}

std::int32_t through_ps(const FullState& s) {
  std::int32_t ierr = 0;
  co2_ps(s.pres, s.entr, ierr);
  return ierr;
}

struct Limit {
  const char* states;
  const char* trip;
  double value;    ///< of the temperature, K, or the pressure, kPa
  double inwards;  ///< sign
  WayBack back;    ///< null: on a limit of pressure, where `co2_td` itself decides
  bool at_edges;   ///< densities next to those of edges of elements
};
constexpr Limit limits[] = {{"240 K", "td, ph", temp_min, 1.0, through_ph, false},
                            {"240 K", "td, ps", temp_min, 1.0, through_ps, false},
                            {"240 K, edges", "td, ph", temp_min, 1.0, through_ph, true},
                            {"240 K, edges", "td, ps", temp_min, 1.0, through_ps, true},
                            {"1500 K", "td, ph", temp_max, -1.0, through_ph, false},
                            {"1500 K", "td, ps", temp_max, -1.0, through_ps, false},
                            {"1500 K, edges", "td, ph", temp_max, -1.0, through_ph, true},
                            {"1500 K, edges", "td, ps", temp_max, -1.0, through_ps, true},
                            {"1 kPa", "tp, td", pres_min, 1.0, nullptr, false},
                            {"100000 kPa", "tp, td", pres_max, -1.0, nullptr, false}};

/// Draws a state on a limit, `value` being the limit or next to it, and takes it back.
/// \return whether the entry after `co2_td`, or `co2_td` itself, refuses it
bool is_refused(const Limit& limit, const double value, Draws& draws) {
  for (;;) {
    const bool isobar = limit.back == nullptr;
    const double temp = isobar ? draws.uniform(temp_min, temp_max) : value;
    double dens = draws.close_to(elements[draws.below(element_count)].dens0);
    std::int32_t ierr = 0;
    if (!limit.at_edges) {
      const double pres = isobar ? value : draws.log_uniform(pres_min, pres_max);
      co2_tp(temp, pres, ierr, {.dens = &dens});
    }
    FullState s{};
    const bool accepted = ierr == status::success && full_state(temp, dens, s);
    if (isobar) return !accepted;
    if (accepted && !s.is_mixture()) return limit.back(s) > 0;
  }
}

bool report_limits(const Options& options, const std::uint64_t count) {
  constexpr double distances[] = {0.0, 1e-12, 1e-11, 1e-10, 1e-9, 1e-8, 1e-7};
  fmt::print(
      "Refused, %, of {} states each on a limit and inside of it by a relative distance; T "
      "uniform,\n"
      "p log-uniform; at edges: within 0.1 kg/m3 of a density edge of an element\n\n{:<16}{:<8}",
      count, "states", "trip");
  for (const double distance : distances) fmt::print("{:>9}", distance);
  fmt::print("\n");
  std::uint64_t refused_inside = 0;
  for (const Limit& limit : limits) {
    fmt::print("{:<16}{:<8}", limit.states, limit.trip);
    std::uint64_t refused = 0;  // at the last distance
    for (const double distance : distances) {
      Draws draws(options.seed);
      refused = 0;
      const double value = limit.value * (1.0 + limit.inwards * distance);
      for (std::uint64_t k = 0; k < count; ++k) refused += is_refused(limit, value, draws) ? 1 : 0;
      fmt::print("{:>9.3f}", percent(refused, count));
    }
    fmt::print("\n");
    refused_inside += refused;
  }
  fmt::print("\n");
  return check("States refused 1e-7 inside the limits", static_cast<double>(refused_inside), 0.0);
}

// ---- Mixtures below 240 K ----------------------------------------------------------------------

bool report_cold_mixtures(const Options& options, const std::uint64_t count) {
  constexpr struct {
    double lo, hi;
  } ranges[] = {{pres_min, 100.0}, {100.0, 300.0},         {300.0, 600.0},          {600.0, 900.0},
                {900.0, 1200.0},   {1200.0, pres_sat_min}, {pres_min, pres_sat_min}};
  fmt::print(
      "\nMixtures of co2_ph colder than 240 K among {} states in each range of pressure, uniform "
      "in p\n"
      "and in h from -100 kJ/kg to 450 kJ/kg: their own p against the one given\n\n"
      "{:<18}{:>10}{:>12}{:>12}{:>12}{:>14}{:>14}\n",
      count, "p, kPa", "mixtures", "off > 1 %", "median off", "most off", "cond < 0", "visc < 0");
  Draws draws(options.seed);
  std::uint64_t untold = 0;
  for (const auto& [lo, hi] : ranges) {
    std::vector<double> off;
    std::uint64_t beyond = 0;
    std::uint64_t negative_cond = 0;
    std::uint64_t negative_visc = 0;
    for (std::uint64_t k = 0; k < count; ++k) {
      const double given = draws.uniform(lo, hi);
      std::int32_t ierr = 0;
      double temp, pres, visc, cond;
      co2_ph(given, draws.uniform(-100.0, 450.0), ierr,
             {.temp = &temp, .pres = &pres, .visc = &visc, .cond = &cond});
      if (ierr > 0 || temp != calc_sat_temp(given)) continue;
      off.push_back(std::abs(pres / given - 1.0));
      beyond += off.back() > 0.01 ? 1 : 0;
      negative_cond += cond < 0.0 ? 1 : 0;
      negative_visc += visc < 0.0 ? 1 : 0;
      untold += temp < temp_min ? 0 : 1;
    }
    std::sort(off.begin(), off.end());
    const bool none = off.empty();
    fmt::print("{:<18}{:>10}{:>10.1f} %{:>10.2g} %{:>10.2g} %{:>12.1f} %{:>12.1f} %\n",
               fmt::format("{} .. {}", lo, hi), off.size(), percent(beyond, off.size()),
               none ? 0.0 : 100.0 * off[off.size() / 2], none ? 0.0 : 100.0 * off.back(),
               percent(negative_cond, off.size()), percent(negative_visc, off.size()));
  }
  fmt::print("\n");
  return check("Such mixtures that are not colder than 240 K", static_cast<double>(untold), 0.0);
}

// ---- Deciders of saturation --------------------------------------------------------------------

bool report_deciders(const Options& options, const std::uint64_t count) {
  constexpr double good_fits = 303.5;  // K, beyond which saturated densities drift apart
  Draws draws(options.seed);
  double off_temp = 0.0;
  double off_temp_at = 0.0;
  double off_pres = 0.0;
  double off_pres_at = 0.0;
  double lost_qual = 0.0;
  std::uint64_t lost = 0;
  std::uint64_t mixtures = 0;
  std::uint64_t liquid = 0;
  std::uint64_t saturated = 0;
  for (std::uint64_t k = 0; k < count; ++k) {
    const double temp = draws.uniform(temp_min, t_crit);
    const double pres = calc_sat_pres(temp);
    const double temp_error = std::abs(calc_sat_temp(pres) - temp);
    if (temp_error > off_temp) off_temp = temp_error, off_temp_at = temp;
    const double given = draws.uniform(pres_sat_min, p_crit);
    const double temp_sat = calc_sat_temp(given);
    const double pres_error = std::abs(calc_sat_pres(temp_sat) / given - 1.0);
    if (pres_error > off_pres) off_pres = pres_error, off_pres_at = given;

    // A mixture at the pressure that was given to co2_ph, asked for by its temperature.
    std::int32_t ierr = 0;
    co2_tp(temp_sat, given, ierr);
    ++mixtures;
    saturated += ierr == status::tp_saturated ? 1 : 0;
    liquid += ierr != status::tp_saturated && given > calc_sat_pres(temp_sat) ? 1 : 0;

    // A mixture of co2_td, with next to no vapour or liquid, asked for by p and h.
    if (temp > good_fits) continue;
    const double part = draws.log_uniform(1e-8, 1e-3);
    const double qual = draws.coin() ? part : 1.0 - part;
    FullState s{};
    const double dens =
        1.0 / (qual / calc_sat_vap_dens(temp) + (1.0 - qual) / calc_sat_liq_dens(temp));
    if (!full_state(temp, dens, s) || !s.is_mixture()) continue;
    double found = 0.0;
    co2_ph(s.pres, s.enth, ierr, {.qual = &found});
    if (found >= 0.0 && found <= 1.0) continue;
    ++lost;
    lost_qual = std::max(lost_qual, part);
  }
  fmt::print(
      "\nThe deciders of saturation, {} temperatures and pressures\n\n"
      "calc_sat_temp(calc_sat_pres(T)) - T                 {:.2g} K at {:.4f} K\n"
      "calc_sat_pres(calc_sat_temp(p)) / p - 1             {:.2g} at {:.2f} kPa\n"
      "co2_tp at a p and the T of its mixture in co2_ph    liquid {:.1f} %, vapour {:.1f} %, 205 "
      "{:.1f} %\n"
      "mixtures of co2_td that co2_ph finds in one phase   {} up to {} K, the largest share of "
      "the\n"
      "                                                    other phase {:.2g}\n\n",
      count, off_temp, off_temp_at, off_pres, off_pres_at, percent(liquid, mixtures),
      percent(mixtures - liquid - saturated, mixtures), percent(saturated, mixtures), lost,
      good_fits, lost_qual);
  bool good = check("Saturation temperature, K", off_temp, 1e-4);
  good &= check("Saturation pressure, relative", off_pres, 3e-6);
  return check("Mixtures found in one phase: share of the other", lost_qual, 5e-5) && good;
}

}  // namespace

bool report_edges(const Options& options) {
  const std::uint64_t count = std::max<std::uint64_t>(1000, options.states / 200);
  fmt::print("Edges, seed {} (std::mt19937_64)\n\n", options.seed);
  bool good = report_limits(options, count);
  good &= report_cold_mixtures(options, count);
  good &= report_deciders(options, 4 * count);
  fmt::print("\n{}\n", good ? "All bounds hold." : "A bound is exceeded.");
  return good;
}

}  // namespace co2_properties::solver_report
