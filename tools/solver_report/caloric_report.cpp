#include "solver_report/caloric_report.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "api/co2_properties.hpp"
#include "api/entries/caloric_entry.hpp"
#include "api/entries/ph.hpp"
#include "api/entries/ps.hpp"
#include "eos/property_types.hpp"
#include "solver_report/caloric_states.hpp"
#include "solver_report/findings.hpp"
#include "solvers/inverse_cell.hpp"
#include "solvers/solve_caloric.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::solver_report {
namespace {

constexpr std::uint64_t chunk_size = 10000;

// ---- Bounds ------------------------------------------------------------------------------------

constexpr double input_bound = 1e-10;  // pressure, enthalpy and entropy, relative
constexpr double state_bound = 1e-8;   // temperature and density, relative, on firm slopes
constexpr double firm_slope = 10.0;    // rho dp/drho, kPa
constexpr double qual_bound = 1e-4;    // and distance from saturation where the phase may change
constexpr double good_fits = 303.5;    // K, up to which the two bounds on phases hold
constexpr double warning_band = 0.08;  // K
constexpr double mean_bound = 4.0;     // evaluations
constexpr double mean_critical_bound = 6.0;

// ---- The two entries ---------------------------------------------------------------------------

struct ByEnthalpy {
  using Pair = PhPair;
  static constexpr const char* name = "co2_ph";
  static constexpr void (*entry)(const double&, const double&, std::int32_t&,
                                 const OutputSet&) noexcept = co2_ph;
  static constexpr double FullState::*caloric = &FullState::enth;
  static constexpr double FullState::*other = &FullState::entr;
  static const Tiling& temp_tiling() { return temp_from_hp_tiling; }
  static const Tiling& dens_tiling() { return dens_from_hp_tiling; }
};

struct ByEntropy {
  using Pair = PsPair;
  static constexpr const char* name = "co2_ps";
  static constexpr void (*entry)(const double&, const double&, std::int32_t&,
                                 const OutputSet&) noexcept = co2_ps;
  static constexpr double FullState::*caloric = &FullState::entr;
  static constexpr double FullState::*other = &FullState::enth;
  static const Tiling& temp_tiling() { return temp_from_sp_tiling; }
  static const Tiling& dens_tiling() { return dens_from_sp_tiling; }
};

struct Returned {
  std::int32_t ierr;
  FullState state;
};

/// \param solve  the entry, or its stated road alone
template <class Solve>
Returned call(const Solve& solve, const double pres, const double caloric) {
  Returned r{};
  double dpdd = 0.0;
  solve(pres, caloric, r.ierr,
        OutputSet{.temp = &r.state.temp,
                  .pres = &r.state.pres,
                  .dens = &r.state.dens,
                  .qual = &r.state.qual,
                  .enth = &r.state.enth,
                  .entr = &r.state.entr,
                  .dpdd = &dpdd});
  r.state.slope = r.state.dens * dpdd;
  return r;
}

// ---- Measurements ------------------------------------------------------------------------------

struct Counts {
  std::uint64_t states = 0;
  std::uint64_t out_of_range = 0;   ///< codes 301, 302 next to the limits of temperature
  std::uint64_t not_converged = 0;  ///< code 305, or 301, 302 elsewhere
  std::uint64_t warned = 0;         ///< code -302
  std::uint64_t other_codes = 0;
  std::uint64_t other_phase = 0;
  std::uint64_t neighbour = 0;  ///< solved in an element beside that of the state
  std::uint64_t iterated = 0;
  std::uint64_t evaluations = 0;
  std::uint64_t unlike = 0;  ///< the stated road gives another code than the entry

  void add(const Counts& c) {
    states += c.states;
    out_of_range += c.out_of_range;
    not_converged += c.not_converged;
    warned += c.warned;
    other_codes += c.other_codes;
    other_phase += c.other_phase;
    neighbour += c.neighbour;
    iterated += c.iterated;
    evaluations += c.evaluations;
    unlike += c.unlike;
  }
  [[nodiscard]] double mean() const {
    return static_cast<double>(evaluations) / static_cast<double>(iterated);
  }
};

struct Tally {
  std::array<Counts, caloric_stratum_count> strata{};
  std::array<std::uint64_t, last_evaluation + 1> histogram{};
  Worst failed, warned;
  Worst pres, caloric, other, temp, dens;           // single phase
  Worst unlike, iterated;                           // the stated road
  Worst flat, neighbour, neighbour_other;           // beyond what is bounded
  Worst flipped, flipped_hot;                       // phases
  Worst qual, qual_hot, mixed_caloric, mixed_pres;  // two phases

  void add(const Tally& t) {
    for (std::size_t s = 0; s < strata.size(); ++s) strata[s].add(t.strata[s]);
    for (std::size_t k = 0; k < histogram.size(); ++k) histogram[k] += t.histogram[k];
    for (Worst Tally::*w :
         {&Tally::failed, &Tally::warned, &Tally::pres, &Tally::caloric, &Tally::other,
          &Tally::temp, &Tally::dens, &Tally::unlike, &Tally::iterated, &Tally::flat,
          &Tally::neighbour, &Tally::neighbour_other, &Tally::flipped, &Tally::flipped_hot,
          &Tally::qual, &Tally::qual_hot, &Tally::mixed_caloric, &Tally::mixed_pres}) {
      (this->*w).add(t.*w);
    }
  }
};

double relative(const double value, const double expected) {
  return std::abs(value / expected - 1.0);
}

/// Relative, but for values below one, whose zero is arbitrary.
double caloric_error(const double value, const double expected) {
  return std::abs(value - expected) / std::max(1.0, std::abs(expected));
}

/// How far the quality is from that of the next saturated state.
double from_saturation(const double qual) { return std::min(std::abs(qual), std::abs(qual - 1.0)); }

std::int32_t element_of(const FullState& s) {
  if (s.temp >= t_crit) return sc_index_from_td(s.temp, s.dens);
  return s.qual >= 1.0 ? vap_index_from_td(s.temp, s.dens) : liq_index_from_td(s.temp, s.dens);
}

bool other_phase(const FullState& s, const FullState& found) {
  if (s.is_mixture() || found.is_mixture()) return s.is_mixture() != found.is_mixture();
  const bool both_cold = s.temp < t_crit && found.temp < t_crit;
  return both_cold && (s.qual >= 1.0) != (found.qual >= 1.0);
}

/// Whether an element gives the results that an entry answers with.
bool gives(const std::int32_t e, const FullState& found) {
  const Derivatives<double> d = evaluate(element(e), found.temp, found.dens);
  return pressure(d, found.dens) == found.pres && enthalpy(d, found.temp) == found.enth &&
         entropy(d) == found.entr;
}

/// Rounding decides which side of a limit of temperature, K, they are on.
bool at_limit(const double temp) {
  constexpr double rounding = 1e-6;
  return std::abs(temp - temp_min) < rounding || std::abs(temp - temp_max) < rounding;
}

/// Follows the stated road and its iteration, where the entry may have taken the common road. Both
/// meet the inputs: ending in one element they agree.
template <class By>
void compare_roads(const double pres, const double caloric, const Returned& r, const Finding& f,
                   Counts& counts, Tally& tally) {
  using Pair = typename By::Pair;
  const Returned stated = call(take_stated_road<Pair>, pres, caloric);
  if (stated.ierr != r.ierr && !at_limit(f.temp)) {
    ++counts.unlike;
    tally.unlike.note(f);
  }
  if (r.state.is_mixture()) return;
  const StartState<double> start = Pair::template start<double>(caloric, pres);
  const CaloricSolution s = solve_caloric<typename Pair::Property>(
      caloric_target(pres, caloric), relocate(start.temp, start.dens), start.temp, start.dens);
  ++counts.iterated;
  counts.evaluations += static_cast<std::uint64_t>(s.evaluations);
  ++tally.histogram[static_cast<std::size_t>(s.evaluations)];
  if (r.state.slope <= firm_slope || !gives(s.element, r.state)) return;
  Finding apart = f;
  apart.size = relative(s.dens, r.state.dens);
  tally.iterated.note(apart);
}

/// Counts the code. \return whether there is a result
bool count_code(const Returned& r, const CaloricCodes& codes, const Finding& f, Counts& counts,
                Tally& tally) {
  if (r.ierr == status::success) return true;
  if (r.ierr == codes.loosely_converged) {
    ++counts.warned;
    Finding warned = f;
    warned.size = std::abs(f.temp - t_crit);
    tally.warned.note(warned);
    return true;
  }
  if ((r.ierr == codes.temp_below_min || r.ierr == codes.temp_above_max) && at_limit(f.temp)) {
    ++counts.out_of_range;
    return false;
  }
  const bool lost = r.ierr == codes.not_converged || r.ierr == codes.temp_below_min ||
                    r.ierr == codes.temp_above_max;
  ++(lost ? counts.not_converged : counts.other_codes);
  Finding failed = f;
  failed.size = r.ierr;
  tally.failed.note(failed);
  return false;
}

template <class By>
void round_trip(const FullState& s, const std::size_t stratum, Tally& tally) {
  Counts& counts = tally.strata[stratum];
  ++counts.states;
  const double in = s.*By::caloric;
  const Returned r = call(By::entry, s.pres, in);
  const FullState& found = r.state;
  const auto finding = [&](const double size) {
    return Finding{
        size, s.temp, s.dens, s.pres, found.temp, found.dens, caloric_strata[stratum].name};
  };
  compare_roads<By>(s.pres, in, r, finding(0.0), counts, tally);
  if (!count_code(r, By::Pair::codes, finding(0.0), counts, tally)) return;
  if (other_phase(s, found)) {
    ++counts.other_phase;
    const double size = s.temp < t_crit ? from_saturation(s.qual) : 0.0;
    (s.temp <= good_fits ? tally.flipped : tally.flipped_hot).note(finding(size));
    return;
  }
  const Finding caloric = finding(caloric_error(found.*By::caloric, in));
  if (s.is_mixture()) {
    tally.mixed_caloric.note(caloric);
    tally.mixed_pres.note(finding(relative(found.pres, s.pres)));
    (s.temp <= good_fits ? tally.qual : tally.qual_hot)
        .note(finding(std::abs(found.qual - s.qual)));
    return;
  }
  tally.caloric.note(caloric);
  tally.pres.note(finding(relative(found.pres, s.pres)));
  const Finding other = finding(caloric_error(found.*By::other, s.*By::other));
  const Finding temp = finding(relative(found.temp, s.temp));
  const Finding dens = finding(relative(found.dens, s.dens));
  if (!gives(element_of(s), found)) {
    ++counts.neighbour;
    tally.neighbour_other.note(other);
    if (s.slope > firm_slope) tally.neighbour.note(dens);
    return;
  }
  tally.other.note(other);
  if (s.slope > firm_slope) {
    tally.temp.note(temp);
    tally.dens.note(dens);
  } else {
    tally.flat.note(dens);
  }
}

/// Inputs as a user gives them: they must be solved and met, and the state that they give goes on a
/// round trip.
template <class By>
void from_inputs(const CaloricSource::Inputs& in, const std::size_t stratum, Tally& tally) {
  Counts& counts = tally.strata[stratum];
  const Returned r = call(By::entry, in.pres, in.caloric);
  const Finding f = {in.caloric,
                     r.state.temp,
                     r.state.dens,
                     in.pres,
                     r.state.temp,
                     r.state.dens,
                     caloric_strata[stratum].name};
  FullState s{};
  if (r.ierr == 0 && full_state(r.state.temp, r.state.dens, s)) round_trip<By>(s, stratum, tally);
  ++counts.states;
  compare_roads<By>(in.pres, in.caloric, r, f, counts, tally);
  if (!count_code(r, By::Pair::codes, f, counts, tally)) return;
  Finding caloric = f;
  caloric.size = caloric_error(r.state.*By::caloric, in.caloric);
  tally.caloric.note(caloric);
}

template <class By>
Tally measure(const Options& options) {
  const std::uint64_t chunks = (options.states + chunk_size - 1) / chunk_size;
  std::vector<Tally> tallies(chunks);
  tablegen::for_each_index(chunks, options.threads, [&](const std::size_t k) {
    CaloricSource source(options.seed * 1000003 + k);
    const CaloricStratumIndex stratum = stratum_of_chunk(k);
    for (std::uint64_t i = 0; i < chunk_size; ++i) {
      if (stratum == cell_edges) {
        from_inputs<By>(source.at_cell_edge(By::temp_tiling(), By::dens_tiling(), By::caloric),
                        stratum, tallies[k]);
      } else {
        round_trip<By>(source.by_density(stratum), stratum, tallies[k]);
      }
    }
  });
  Tally total;
  for (const Tally& tally : tallies) total.add(tally);
  return total;
}

// ---- Report ------------------------------------------------------------------------------------

void print_line(const char* name, const Counts& c) {
  fmt::print("{:<26}{:>10}{:>8}{:>8}{:>8}{:>8}{:>12}{:>11}{:>11}{:>8.3f}\n", name, c.states,
             c.not_converged, c.warned, c.out_of_range, c.other_codes, c.other_phase, c.neighbour,
             c.iterated, c.mean());
}

void print_findings(const Tally& t) {
  t.failed.print("Without a result (size: the code):");
  t.warned.print("Warnings, distance from the critical temperature, K:");
  t.pres.print("Pressure, relative:");
  t.caloric.print("Caloric input, relative:");
  t.other.print("The other of enthalpy and entropy, relative:");
  t.temp.print("Temperature, relative, where rho dp/drho > 10 kPa:");
  t.dens.print("Density, relative, where rho dp/drho > 10 kPa:");
  t.unlike.print("Another code on the stated road:");
  t.iterated.print("Density, relative, likewise, of the iteration against the entry:");
  t.flat.print("Density, relative, where rho dp/drho is at most 10 kPa:");
  t.neighbour.print("Density, relative, solved in a neighbouring element:");
  t.neighbour_other.print("The other of enthalpy and entropy, there:");
  t.flipped.print("Another phase up to 303.5 K, quality off saturation:");
  t.flipped_hot.print("Another phase above, quality off saturation:");
  t.qual.print("Quality of mixtures up to 303.5 K:");
  t.qual_hot.print("Quality of mixtures above:");
  t.mixed_pres.print("Pressure of mixtures, relative:");
}

template <class By>
bool report(const Options& options) {
  fmt::print("{}, {} states, seed {} (std::mt19937_64), {} threads\n\n", By::name, options.states,
             options.seed, options.threads);
  const Tally t = measure<By>(options);
  fmt::print("{:<26}{:>10}{:>8}{:>8}{:>8}{:>8}{:>12}{:>11}{:>11}{:>8}\n", "states", "count",
             "failed", "warned", "range", "others", "other phase", "neighbour", "iterated",
             "evals");
  Counts all;
  Counts critical;
  for (std::size_t k = 0; k < t.strata.size(); ++k) {
    all.add(t.strata[k]);
    if (caloric_strata[k].near_critical) critical.add(t.strata[k]);
    print_line(caloric_strata[k].name, t.strata[k]);
  }
  print_line("all", all);
  fmt::print(
      "failed: no temperature and density found; range: rounded beyond 240 K or 1500 K;\n"
      "neighbour: solved in the element beside that of the state, at most {} K or kg/m3\n"
      "outside of it; at edges of start cells the state that was found makes a second trip.\n\n"
      "Evaluations:",
      element_margin);
  for (std::size_t k = 1; k < t.histogram.size(); ++k) fmt::print(" {}:{}", k, t.histogram[k]);
  fmt::print("\n\n");
  print_findings(t);

  fmt::print("\n");
  const auto count = [](const std::uint64_t n) { return static_cast<double>(n); };
  bool good = check("States without a result", count(all.not_converged + all.other_codes), 0.0);
  good &= check("States with another code on the stated road", count(all.unlike), 0.0);
  good &= check("Warnings, distance from the critical temperature, K", t.warned.largest(),
                warning_band);
  good &= check("Pressure", t.pres.largest(), input_bound);
  good &= check("Caloric input", t.caloric.largest(), input_bound);
  good &= check("The other of enthalpy and entropy", t.other.largest(), input_bound);
  good &= check("Temperature where rho dp/drho > 10 kPa", t.temp.largest(), state_bound);
  good &= check("Density where rho dp/drho > 10 kPa", t.dens.largest(), state_bound);
  good &= check("The same, of the iteration against the entry", t.iterated.largest(), state_bound);
  good &=
      check("Another phase up to 303.5 K: quality off saturation", t.flipped.largest(), qual_bound);
  good &= check("Quality of mixtures up to 303.5 K", t.qual.largest(), qual_bound);
  good &= check("Caloric input of mixtures", t.mixed_caloric.largest(), input_bound);
  good &= check("Mean number of evaluations", all.mean(), mean_bound);
  good &= check("Mean number of evaluations near the critical point", critical.mean(),
                mean_critical_bound);
  fmt::print("\n{}\n", good ? "All bounds hold." : "A bound is exceeded.");
  return good;
}

}  // namespace

bool report_ph(const Options& options) { return report<ByEnthalpy>(options); }
bool report_ps(const Options& options) { return report<ByEntropy>(options); }

}  // namespace co2_properties::solver_report
