#include "solver_report/pair_report.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <vector>

#include "api/batch/levels.hpp"
#include "api/co2_properties.hpp"
#include "eos/properties.hpp"
#include "solver_report/caloric_states.hpp"
#include "solver_report/findings.hpp"
#include "solvers/relocate.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::solver_report {
namespace {

constexpr std::uint64_t chunk_size = 10000;

// ---- Bounds ------------------------------------------------------------------------------------

constexpr double input_bound =
    1.0001e-11;  // inputs, relative, caloric ones to one unit at least; and rounding
constexpr double state_bound = 1e-9;  // temperature and density, relative, on firm slopes
constexpr double firm_slope = 10.0;   // rho dp/drho, kPa
constexpr double good_fits = 303.5;   // K, up to which bounds of qualities hold

// ---- The entries -------------------------------------------------------------------------------

struct Pair {
  const char* name;
  SingleEntry entry;
  BatchEntries::Run BatchEntries::*batch;
  double FullState::*first;
  double FullState::*second;
  std::int32_t base;  ///< of the codes
  bool by_pressure;   ///< the saturation temperature of the pressure decides phases, not densities
  /// Of qualities, and of the distance from saturation where the phase may change: the saturation
  /// temperature is another fit than the densities; and where phases lie on the edge between two
  /// elements, either may give the tie line.
  double qual_bound;
};
constexpr Pair pu = {"co2_pu", co2_pu, &BatchEntries::pu, &FullState::pres, &FullState::inte, 1000,
                     true,     1e-4};
constexpr Pair ts = {"co2_ts", co2_ts, &BatchEntries::ts, &FullState::temp, &FullState::entr, 1100,
                     false,    1e-9};
constexpr Pair hs = {"co2_hs", co2_hs, &BatchEntries::hs, &FullState::enth, &FullState::entr, 900,
                     false,    1e-6};

/// What an entry answers.
struct Returned {
  std::int32_t ierr;
  FullState state;
  double dpdd;

  OutputSet slots() {
    return {.temp = &state.temp,
            .pres = &state.pres,
            .dens = &state.dens,
            .qual = &state.qual,
            .inte = &state.inte,
            .enth = &state.enth,
            .entr = &state.entr,
            .dpdd = &dpdd};
  }
};

Returned call(const Pair& pair, const double first, const double second) {
  Returned r{};
  pair.entry(first, second, r.ierr, r.slots());
  r.state.slope = r.state.dens * r.dpdd;
  return r;
}

// ---- Measurements ------------------------------------------------------------------------------

struct Counts {
  std::uint64_t states = 0, failed = 0, range = 0, warned = 0, other_phase = 0, neighbour = 0,
                flat = 0;

  void add(const Counts& c) {
    states += c.states;
    failed += c.failed;
    range += c.range;
    warned += c.warned;
    other_phase += c.other_phase;
    neighbour += c.neighbour;
    flat += c.flat;
  }
};

struct Tally {
  std::array<Counts, caloric_stratum_count> strata{};
  std::uint64_t unlike_batch = 0;  ///< states whose batch gave other bits
  std::uint64_t raw = 0;           ///< inputs of any bits
  std::uint64_t wrong_raw = 0;     ///< of them with a code or outputs that are not documented
  Worst failed, first, second, temp, dens, flat, neighbour, flipped, flipped_hot, qual, qual_hot,
      mixed, raw_miss;

  void add(const Tally& t) {
    for (std::size_t s = 0; s < strata.size(); ++s) strata[s].add(t.strata[s]);
    unlike_batch += t.unlike_batch;
    raw += t.raw;
    wrong_raw += t.wrong_raw;
    for (Worst Tally::*w :
         {&Tally::failed, &Tally::first, &Tally::second, &Tally::temp, &Tally::dens, &Tally::flat,
          &Tally::neighbour, &Tally::flipped, &Tally::flipped_hot, &Tally::qual, &Tally::qual_hot,
          &Tally::mixed, &Tally::raw_miss}) {
      (this->*w).add(t.*w);
    }
  }
};

double relative(const double value, const double expected) {
  return std::abs(value / expected - 1.0);
}

/// Relative, but for values of caloric properties below one, whose zero is arbitrary.
double miss_of(double FullState::*const member, const double value, const double expected) {
  if (member == &FullState::pres || member == &FullState::temp) return relative(value, expected);
  return std::abs(value - expected) / std::max(1.0, std::abs(expected));
}

bool other_phase(const FullState& s, const FullState& found) {
  if (s.is_mixture() || found.is_mixture()) return s.is_mixture() != found.is_mixture();
  const bool both_cold = s.temp < t_crit && found.temp < t_crit;
  return both_cold && (s.qual >= 1.0) != (found.qual >= 1.0);
}

/// Whether the element of a state gives the results that an entry answers with.
bool in_same_element(const FullState& s, const FullState& found) {
  const std::int32_t e = s.temp >= t_crit ? sc_index_from_td(s.temp, s.dens)
                         : s.qual >= 1.0  ? vap_index_from_td(s.temp, s.dens)
                                          : liq_index_from_td(s.temp, s.dens);
  const Derivatives<double> d = evaluate(element(e), found.temp, found.dens);
  return pressure(d, found.dens) == found.pres && entropy(d) == found.entr;
}

/// Whether rounding decides which side of a limit a state is on.
bool at_limit(const FullState& s) {
  constexpr double rounding = 1e-6;
  return std::abs(s.temp - temp_min) < rounding || std::abs(s.temp - temp_max) < rounding ||
         relative(s.pres, pres_min) < rounding || relative(s.pres, pres_max) < rounding;
}

/// From the inputs of a state of `co2_td` back to it.
void round_trip(const Pair& pair, const FullState& s, const Returned& r, const std::size_t stratum,
                Tally& tally) {
  Counts& counts = tally.strata[stratum];
  ++counts.states;
  const FullState& found = r.state;
  const auto finding = [&](const double size) {
    return Finding{
        size, s.temp, s.dens, s.pres, found.temp, found.dens, caloric_strata[stratum].name};
  };
  if (r.ierr > 0) {
    if (at_limit(s)) {
      ++counts.range;
      return;
    }
    ++counts.failed;
    return tally.failed.note(finding(r.ierr));
  }
  counts.warned += r.ierr < 0 ? 1 : 0;
  if (other_phase(s, found)) {
    ++counts.other_phase;
    const double off = std::min(std::abs(s.qual), std::abs(s.qual - 1.0));
    return (s.temp <= good_fits ? tally.flipped : tally.flipped_hot).note(finding(off));
  }
  const double first = miss_of(pair.first, found.*pair.first, s.*pair.first);
  const double second = miss_of(pair.second, found.*pair.second, s.*pair.second);
  if (s.is_mixture()) {
    tally.mixed.note(finding(pair.by_pressure ? second : std::max(first, second)));
    return (s.temp <= good_fits ? tally.qual : tally.qual_hot)
        .note(finding(std::abs(found.qual - s.qual)));
  }
  tally.first.note(finding(first));
  tally.second.note(finding(second));
  const Finding dens = finding(relative(found.dens, s.dens));
  if (s.slope <= firm_slope) {
    ++counts.flat;
    return tally.flat.note(dens);
  }
  if (!in_same_element(s, found)) {
    ++counts.neighbour;
    return tally.neighbour.note(dens);
  }
  tally.temp.note(finding(relative(found.temp, s.temp)));
  tally.dens.note(dens);
}

/// What holds for inputs of any bits: a documented code, zeros after an error, else the inputs.
void judge_raw(const Pair& pair, const double first, const double second, Tally& tally) {
  const Returned r = call(pair, first, second);
  const FullState& s = r.state;
  ++tally.raw;
  const bool finite = std::isfinite(first) && std::isfinite(second);
  const std::int32_t code = std::abs(r.ierr) - pair.base;
  bool good = r.ierr == 0 || (r.ierr > 0 ? code >= 1 && code <= (finite ? 4 : 5) : code <= 2);
  if (r.ierr > 0) {
    for (const double value : {s.temp, s.pres, s.dens, s.qual, s.inte, s.enth, s.entr, r.dpdd}) {
      good = good && std::bit_cast<std::uint64_t>(value) == 0;
    }
  } else {
    const bool in_range = s.temp >= temp_min && s.temp <= temp_max;
    const double miss = std::max(
        pair.by_pressure && s.is_mixture() ? 0.0 : miss_of(pair.first, s.*pair.first, first),
        miss_of(pair.second, s.*pair.second, second));
    good = good && finite && in_range && miss <= input_bound;
    if (!(miss <= input_bound)) {
      tally.raw_miss.note({miss, s.temp, s.dens, s.pres, s.temp, s.dens, "any inputs"});
    }
  }
  tally.wrong_raw += good ? 0 : 1;
}

double draw_raw(Draws& draws, const double typical) {
  constexpr double special[] = {std::numeric_limits<double>::quiet_NaN(),
                                std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity(), 0.0, -0.0};
  switch (draws.below(8)) {
    case 0:
      return special[draws.below(std::size(special))];
    case 1:
      return typical;
    case 2:
      return draws.close_to(typical);
    case 3:
    case 4:
      return typical * draws.uniform(-2.0, 4.0);
    default:
      return std::bit_cast<double>((draws.below(1ULL << 32U) << 32U) | draws.below(1ULL << 32U));
  }
}

/// A chunk of states, one at a time and as a batch.
void measure_chunk(const Pair& pair, const std::uint64_t seed, const CaloricStratumIndex stratum,
                   Tally& tally) {
  CaloricSource source(seed);
  Draws draws(seed + 1);
  std::vector<FullState> states;
  std::vector<double> first, second;
  std::vector<Returned> answers;
  for (std::uint64_t i = 0; i < chunk_size; ++i) {
    // Inputs themselves at rounding's distance from a state, which need not come back.
    const FullState s = source.by_density(stratum == cell_edges ? any_log_density : stratum);
    states.push_back(s);
    first.push_back(s.*pair.first);
    second.push_back(s.*pair.second);
    answers.push_back(call(pair, first.back(), second.back()));
    if (stratum == cell_edges) {
      judge_raw(pair, draw_raw(draws, s.*pair.first), draw_raw(draws, s.*pair.second), tally);
    }
    round_trip(pair, s, answers.back(), stratum, tally);
  }
  std::array<std::vector<double>, 8> columns;
  for (auto& column : columns) column.resize(chunk_size);
  std::vector<std::int32_t> ierr(chunk_size);
  const BatchOutputSet out = {.temp = columns[0],
                              .pres = columns[1],
                              .dens = columns[2],
                              .qual = columns[3],
                              .inte = columns[4],
                              .enth = columns[5],
                              .entr = columns[6],
                              .dpdd = columns[7]};
  const BatchEntries& entries = widest_entries(instruction_sets());
  (entries.*pair.batch)({first, second, ierr, out});
  for (std::size_t i = 0; i < chunk_size; ++i) {
    const Returned& r = answers[i];
    const double single[] = {r.state.temp, r.state.pres, r.state.dens, r.state.qual,
                             r.state.inte, r.state.enth, r.state.entr, r.dpdd};
    bool same = ierr[i] == r.ierr;
    for (std::size_t k = 0; k < columns.size(); ++k) {
      same = same &&
             std::bit_cast<std::uint64_t>(single[k]) == std::bit_cast<std::uint64_t>(columns[k][i]);
    }
    tally.unlike_batch += same ? 0 : 1;
  }
}

Tally measure(const Pair& pair, const Options& options) {
  const std::uint64_t chunks = (options.states + chunk_size - 1) / chunk_size;
  std::vector<Tally> tallies(chunks);
  tablegen::for_each_index(chunks, options.threads, [&](const std::size_t k) {
    measure_chunk(pair, options.seed * 1000003 + k, stratum_of_chunk(k), tallies[k]);
  });
  Tally total;
  for (const Tally& tally : tallies) total.add(tally);
  return total;
}

// ---- Report ------------------------------------------------------------------------------------

void print_line(const char* name, const Counts& c) {
  fmt::print("{:<26}{:>10}{:>8}{:>8}{:>8}{:>13}{:>11}{:>10}\n", name, c.states, c.failed, c.warned,
             c.range, c.other_phase, c.neighbour, c.flat);
}

bool report(const Pair& pair, const Options& options) {
  fmt::print("{}, {} states, seed {} (std::mt19937_64), {} threads\n\n", pair.name, options.states,
             options.seed, options.threads);
  const Tally t = measure(pair, options);
  fmt::print("{:<26}{:>10}{:>8}{:>8}{:>8}{:>13}{:>11}{:>10}\n", "states", "count", "failed",
             "warned", "range", "other phase", "neighbour", "flat");
  Counts all;
  for (std::size_t k = 0; k < t.strata.size(); ++k) {
    all.add(t.strata[k]);
    print_line(k == cell_edges ? "beside inputs of any bits" : caloric_strata[k].name, t.strata[k]);
  }
  print_line("all", all);
  fmt::print(
      "range: rounded beyond a limit; neighbour: solved in the element beside that of the state;\n"
      "flat: rho dp/drho at most {} kPa.\n\n",
      firm_slope);
  t.failed.print("Without a result (size: the code):");
  t.first.print("First input, relative:");
  t.second.print("Second input, relative:");
  t.temp.print("Temperature, relative, where rho dp/drho > 10 kPa:");
  t.dens.print("Density, relative, likewise:");
  t.flat.print("Density, relative, where rho dp/drho is at most 10 kPa:");
  t.neighbour.print("Density, relative, solved in a neighbouring element:");
  t.flipped.print("Another phase up to 303.5 K, quality off saturation:");
  t.flipped_hot.print("Another phase above, quality off saturation:");
  t.mixed.print("Inputs of mixtures, relative:");
  t.qual.print("Quality of mixtures up to 303.5 K:");
  t.qual_hot.print("Quality of mixtures above:");
  t.raw_miss.print("Any inputs that are not met:");
  fmt::print("\n");
  const auto count = [](const std::uint64_t n) { return static_cast<double>(n); };
  const double phases = pair.qual_bound;
  bool good = check("States without a result", count(all.failed), 0.0);
  good &= check("Warnings", count(all.warned), 0.0);
  good &= check("First input", t.first.largest(), input_bound);
  good &= check("Second input", t.second.largest(), input_bound);
  good &= check("Temperature where rho dp/drho > 10 kPa", t.temp.largest(), state_bound);
  good &= check("Density where rho dp/drho > 10 kPa", t.dens.largest(), state_bound);
  good &= check("Another phase up to 303.5 K: quality off saturation", t.flipped.largest(), phases);
  good &= check("Quality of mixtures up to 303.5 K", t.qual.largest(), phases);
  good &= check("Inputs of mixtures", t.mixed.largest(), input_bound);
  good &= check("States with other bits in a batch", count(t.unlike_batch), 0.0);
  good &= check("Inputs of any bits with another answer than documented", count(t.wrong_raw), 0.0);
  fmt::print("\n{} ({} inputs of any bits)\n", good ? "All bounds hold." : "A bound is exceeded.",
             t.raw);
  return good;
}

}  // namespace

bool report_pu(const Options& options) { return report(pu, options); }
bool report_ts(const Options& options) { return report(ts, options); }
bool report_hs(const Options& options) { return report(hs, options); }

}  // namespace co2_properties::solver_report
