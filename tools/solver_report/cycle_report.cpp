#include "solver_report/cycle_report.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "co2_properties.hpp"
#include "eos/element.hpp"
#include "solver_report/caloric_states.hpp"
#include "solver_report/findings.hpp"
#include "solvers/relocate.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::solver_report {
namespace {

constexpr std::uint64_t chunk_size = 10000;
constexpr double value_bound = 1e-10;  // pressure, enthalpy, entropy, relative
constexpr double state_bound = 1e-8;   // temperature and density, relative, on firm slopes
constexpr double firm_slope = 10.0;    // rho dp/drho, kPa
constexpr double good_fits = 303.5;    // K
constexpr double qual_bound = 1e-4;    // distance from saturation where the phase may change
constexpr double critical_band = 0.1;  // K, where co2_tp may give up on a flat isotherm

struct Tally {
  std::array<std::uint64_t, 4> stopped{};  ///< at co2_tp, co2_ph, co2_ps, co2_td
  std::uint64_t states = 0, other_side = 0, at_limits = 0, flat_tp = 0, at_edges = 0;
  Worst failed, flat_failed, side, side_hot, pres, enth, entr, temp, dens, flat, edges;

  void add(const Tally& t) {
    for (std::size_t k = 0; k < stopped.size(); ++k) stopped[k] += t.stopped[k];
    states += t.states;
    other_side += t.other_side;
    at_limits += t.at_limits;
    flat_tp += t.flat_tp;
    at_edges += t.at_edges;
    for (Worst Tally::*w :
         {&Tally::failed, &Tally::flat_failed, &Tally::side, &Tally::side_hot, &Tally::pres,
          &Tally::enth, &Tally::entr, &Tally::temp, &Tally::dens, &Tally::flat, &Tally::edges}) {
      (this->*w).add(t.*w);
    }
  }
};

/// Whether a neighbouring element may keep an iterate that ends at this state.
bool within_margin(const FullState& s) {
  const Element& e = element(relocate(s.temp, s.dens));
  constexpr double margin = 2.0 * element_margin;  // the last step may lead out of it
  const double dt = s.temp - e.temp0;
  const double dr = s.dens - e.dens0;
  return dt < margin || dt > e.temp_width - margin || dr < margin || dr > e.dens_width - margin;
}

/// Whether rounding or the neighbouring element may lead beyond the limits of the library.
bool at_limits(const FullState& s) {
  constexpr double temp_share = 1e-6;  // K
  constexpr double pres_share = 1e-6;  // relative
  return s.temp < temp_min + temp_share || s.temp > temp_max - temp_share ||
         s.pres < pres_min * (1.0 + pres_share) || s.pres > pres_max * (1.0 - pres_share);
}

/// The states after each entry; the trip ends with the first error.
struct Trip {
  std::size_t stations = 0;  ///< entries that gave a result
  std::int32_t ierr = 0;     ///< of the entry that did not
  FullState at{};            ///< after the last of them
  bool two_phases = false;
};

Trip travel(const FullState& s) {
  Trip t{0, 0, s, false};
  std::int32_t& ierr = t.ierr;
  double dpdd = 0.0;
  const auto out = [&](FullState& to) {
    return OutputSet{.temp = &to.temp,
                     .pres = &to.pres,
                     .dens = &to.dens,
                     .qual = &to.qual,
                     .enth = &to.enth,
                     .entr = &to.entr,
                     .dpdd = &dpdd};
  };
  const auto arrive = [&] {
    if (ierr != 0) return false;
    ++t.stations;
    t.two_phases = t.two_phases || dpdd == 0.0;
    return true;
  };
  co2_tp(s.temp, s.pres, ierr, out(t.at));
  if (!arrive()) return t;
  co2_ph(t.at.pres, t.at.enth, ierr, out(t.at));
  if (!arrive()) return t;
  co2_ps(t.at.pres, t.at.entr, ierr, out(t.at));
  if (!arrive()) return t;
  co2_td(t.at.temp, t.at.dens, ierr, out(t.at));
  arrive();
  return t;
}

void round_trip(const FullState& s, const char* where, Tally& tally) {
  ++tally.states;
  const Trip trip = travel(s);
  const FullState& end = trip.at;
  const auto finding = [&](const double value, const double expected, const double least) {
    const double size = std::abs(value - expected) / std::max(least, std::abs(expected));
    return Finding{size, s.temp, s.dens, s.pres, end.temp, end.dens, where};
  };
  // The fits of saturation may put a state on its other side, or on the line, where it is
  // undefined.
  const bool cold = s.temp < t_crit;
  const bool swapped =
      trip.stations == 4 && end.temp < t_crit && (s.qual >= 1.0) != (end.qual >= 1.0);
  const bool undefined = trip.stations == 0 && trip.ierr == status::tp_saturated;
  if (cold && (trip.two_phases || undefined || swapped)) {
    ++tally.other_side;
    const double off = std::min(std::abs(s.qual), std::abs(s.qual - 1.0));
    (s.temp <= good_fits ? tally.side : tally.side_hot).note(finding(off, 0.0, 1.0));
    return;
  }
  if (trip.stations < 4) {
    const bool flat = trip.stations == 0 && std::abs(s.temp - t_crit) < critical_band;
    const Finding f = finding(s.slope, 0.0, 1.0);
    if (at_limits(s)) {
      ++tally.at_limits;
    } else if (flat) {
      ++tally.flat_tp;
      tally.flat_failed.note(f);
    } else {
      ++tally.stopped[trip.stations];
      tally.failed.note(f);
    }
    return;
  }
  const Finding dens = finding(end.dens, s.dens, 0.0);
  if (within_margin(s)) {
    ++tally.at_edges;
    if (s.slope > firm_slope) tally.edges.note(dens);
    return;
  }
  tally.pres.note(finding(end.pres, s.pres, 0.0));
  tally.enth.note(finding(end.enth, s.enth, 1.0));
  tally.entr.note(finding(end.entr, s.entr, 1.0));
  if (s.slope > firm_slope) {
    tally.temp.note(finding(end.temp, s.temp, 0.0));
    tally.dens.note(dens);
  } else {
    tally.flat.note(dens);
  }
}

}  // namespace

bool report_cycle(const Options& options) {
  fmt::print("td -> tp -> ph -> ps -> td, {} states, seed {} (std::mt19937_64), {} threads\n\n",
             options.states, options.seed, options.threads);
  const std::uint64_t chunks = (options.states + chunk_size - 1) / chunk_size;
  std::vector<Tally> tallies(chunks);
  tablegen::for_each_index(chunks, options.threads, [&](const std::size_t k) {
    CaloricSource source(options.seed * 1000003 + k);
    CaloricStratumIndex stratum = stratum_of_chunk(k);
    // Mixtures have no way through co2_tp, and start-cell edges depend on the entry.
    if (stratum == two_phases) stratum = cold;
    if (stratum == cell_edges) stratum = any_log_density;
    for (std::uint64_t i = 0; i < chunk_size;) {
      const FullState s = source.by_density(stratum);
      if (s.is_mixture()) continue;
      round_trip(s, caloric_strata[stratum].name, tallies[k]);
      ++i;
    }
  });
  Tally t;
  for (const Tally& tally : tallies) t.add(tally);

  fmt::print(
      "{} states: {} on the other side of saturation, {} rounded beyond a limit, {} with an\n"
      "isotherm too flat for co2_tp, {} within {} K or kg/m3 of an edge, where the neighbouring\n"
      "element may answer. Stopped by an error: {} at co2_tp, {} at co2_ph, {} at co2_ps, {} at\n"
      "co2_td.\n\n",
      t.states, t.other_side, t.at_limits, t.flat_tp, t.at_edges, 2.0 * element_margin,
      t.stopped[0], t.stopped[1], t.stopped[2], t.stopped[3]);
  t.failed.print("Stopped, rho dp/drho, kPa:");
  t.flat_failed.print("Too flat for co2_tp, rho dp/drho, kPa:");
  t.side.print("Other side up to 303.5 K, quality off saturation:");
  t.side_hot.print("Other side above:");
  t.pres.print("Pressure, relative:");
  t.enth.print("Enthalpy, relative:");
  t.entr.print("Entropy, relative:");
  t.temp.print("Temperature, relative, where rho dp/drho > 10 kPa:");
  t.dens.print("Density, relative, where rho dp/drho > 10 kPa:");
  t.flat.print("Density, relative, where rho dp/drho is at most 10 kPa:");
  t.edges.print("Density, relative, next to edges:");

  fmt::print("\n");
  const std::uint64_t stopped = t.stopped[0] + t.stopped[1] + t.stopped[2] + t.stopped[3];
  bool good = check("Trips stopped by an error", static_cast<double>(stopped), 0.0);
  good &= check("Other side up to 303.5 K: quality off saturation", t.side.largest(), qual_bound);
  good &= check("Pressure", t.pres.largest(), value_bound);
  good &= check("Enthalpy", t.enth.largest(), value_bound);
  good &= check("Entropy", t.entr.largest(), value_bound);
  good &= check("Temperature where rho dp/drho > 10 kPa", t.temp.largest(), state_bound);
  good &= check("Density where rho dp/drho > 10 kPa", t.dens.largest(), state_bound);
  fmt::print("\n{}\n", good ? "All bounds hold." : "A bound is exceeded.");
  return good;
}

}  // namespace co2_properties::solver_report
