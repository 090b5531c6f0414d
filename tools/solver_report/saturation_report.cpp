#include "solver_report/saturation_report.hpp"

#include <fmt/format.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "api/co2_properties.hpp"
#include "solver_report/findings.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::solver_report {
namespace {

constexpr std::uint64_t chunk_size = 10000;
constexpr double close_to_critical = 1e-3;  // K below the critical temperature

struct Tally {
  std::uint64_t states = 0, refused = 0, other_bits = 0;
  Worst pres, pres_critical, temp, temp_critical, clapeyron, qual, enth;

  void add(const Tally& t) {
    states += t.states;
    refused += t.refused;
    other_bits += t.other_bits;
    for (Worst Tally::*w : {&Tally::pres, &Tally::pres_critical, &Tally::temp,
                            &Tally::temp_critical, &Tally::clapeyron, &Tally::qual, &Tally::enth}) {
      (this->*w).add(t.*w);
    }
  }
};

/// A phase, as the entries of saturation and `co2_td` give it.
struct Phase {
  double temp, pres, dens, enth, entr, cv, cp, ssnd;

  OutputSet slots() {
    return {.temp = &temp,
            .pres = &pres,
            .dens = &dens,
            .enth = &enth,
            .entr = &entr,
            .cv = &cv,
            .cp = &cp,
            .ssnd = &ssnd};
  }
  [[nodiscard]] bool is_that_of_td() const {
    Phase td{};
    std::int32_t ierr = 0;
    co2_td(temp, dens, ierr, td.slots());
    td.pres = pres;  // of the vapour in both phases
    return ierr == status::success && std::bit_cast<std::array<char, sizeof td>>(td) ==
                                          std::bit_cast<std::array<char, sizeof td>>(*this);
  }
};

void measure_state(const double temp, const double qual, Tally& tally) {
  ++tally.states;
  std::int32_t ierr = 0;
  const auto note = [&](Worst& worst, const double size, const double dens, const double pres) {
    worst.note({size, temp, dens, pres, temp, dens, "saturation"});
  };
  Phase liq{};
  Phase vap{};
  double latent_heat = 0.0;
  double slope = 0.0;
  co2_sat_t(
      temp, ierr,
      {.liq = liq.slots(), .vap = vap.slots(), .latent_heat = &latent_heat, .dpdt_sat = &slope});
  if (ierr != status::success) return void(++tally.refused);
  if (!liq.is_that_of_td() || !vap.is_that_of_td()) ++tally.other_bits;
  if (temp < t_crit - close_to_critical) {
    const double by_slope = temp * slope * (1.0 / vap.dens - 1.0 / liq.dens);
    note(tally.clapeyron, std::abs(by_slope / latent_heat - 1.0), vap.dens, vap.pres);
  }

  Phase back{};
  co2_sat_p(vap.pres, ierr, {.vap = back.slots()});
  if (vap.pres < pres_sat_min) {
    if (ierr != status::sat_p_pres_below_min) ++tally.refused;
  } else if (ierr != status::success) {
    ++tally.refused;
  } else {
    const bool critical = temp > t_crit - close_to_critical;
    note(critical ? tally.pres_critical : tally.pres, std::abs(back.pres / vap.pres - 1.0),
         vap.dens, vap.pres);
    note(critical ? tally.temp_critical : tally.temp, std::abs(back.temp / temp - 1.0), vap.dens,
         vap.pres);
  }

  Phase mixture{};
  Phase td{};
  co2_tx(temp, qual, ierr, {.dens = &mixture.dens, .enth = &mixture.enth});
  if (ierr != status::success) ++tally.refused;
  double td_qual = 0.0;
  co2_td(temp, mixture.dens, ierr, {.qual = &td_qual, .enth = &td.enth});
  note(tally.qual, std::abs(td_qual - qual), mixture.dens, vap.pres);
  note(tally.enth, std::abs(td.enth / mixture.enth - 1.0), mixture.dens, vap.pres);
}

void measure_chunk(const std::uint64_t seed, const std::uint64_t chunk, Tally& tally) {
  std::mt19937_64 engine(seed);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (std::uint64_t k = 0; k < chunk_size; ++k) {
    const double u = unit(engine);
    // Evenly, towards the critical point, and around the temperature where the curves change.
    const double temp = chunk % 3 == 0   ? temp_sat_min + u * (t_crit - temp_sat_min)
                        : chunk % 3 == 1 ? t_crit - std::pow(10.0, 1.8 - 12.0 * u)
                                         : 301.0 + (u - 0.5) * 1e-3;
    measure_state(std::fmax(temp, temp_sat_min), unit(engine), tally);
  }
}

}  // namespace

bool report_saturation(const Options& options) {
  fmt::print("Saturation, {} states, seed {} (std::mt19937_64), {} threads\n\n", options.states,
             options.seed, options.threads);
  const std::uint64_t chunks = (options.states + chunk_size - 1) / chunk_size;
  std::vector<Tally> tallies(chunks);
  tablegen::for_each_index(chunks, options.threads, [&](const std::size_t k) {
    measure_chunk(options.seed * 1000003 + k, k, tallies[k]);
  });
  Tally t;
  for (const Tally& tally : tallies) t.add(tally);
  t.pres.print("Pressure of co2_sat_p, relative:");
  t.pres_critical.print("The same within 1e-3 K of the critical temperature:");
  t.temp.print("Temperature of co2_sat_p, relative:");
  t.temp_critical.print("The same within 1e-3 K of the critical temperature:");
  t.clapeyron.print("T dp/dT (v'' - v') to the latent heat, relative:");
  t.qual.print("Quality of co2_td at the density of co2_tx:");
  t.enth.print("Enthalpy of co2_td at the density of co2_tx, relative:");
  fmt::print("\n");
  const auto count = [](const std::uint64_t n) { return static_cast<double>(n); };
  bool good = check("States refused", count(t.refused), 0.0);
  good &= check("Phases with other bits than co2_td gives", count(t.other_bits), 0.0);
  good &= check("Pressure of co2_sat_p", t.pres.largest(), 2e-12);
  good &=
      check("Pressure of co2_sat_p next to the critical point", t.pres_critical.largest(), 1e-11);
  good &= check("Temperature of co2_sat_p", t.temp.largest(), 1e-12);
  good &= check("Temperature of co2_sat_p next to the critical point", t.temp_critical.largest(),
                2e-12);
  good &= check("Latent heat by the slope", t.clapeyron.largest(), 1e-6);
  good &= check("Quality through co2_tx and co2_td", t.qual.largest(), 1e-12);
  good &= check("Enthalpy through co2_tx and co2_td", t.enth.largest(), 1e-13);
  fmt::print("\n{}\n", good ? "All bounds hold." : "A bound is exceeded.");
  return good;
}

}  // namespace co2_properties::solver_report
