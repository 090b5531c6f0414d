#include "solver_report/density_report.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "api/co2_properties.hpp"
#include "api/entries/density_entry.hpp"
#include "api/entries/density_pairs.hpp"
#include "solver_report/caloric_states.hpp"
#include "solver_report/findings.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::solver_report {
namespace {

constexpr std::size_t chunk_size = 10000;

// ---- Bounds ------------------------------------------------------------------------------------

constexpr double value_bound = 1e-11;  // of the property, relative, but at least of one unit
// Relative, in the element of the state. The sums of some elements round by 1e-12 of their value.
constexpr double temp_bound = 2e-12;
constexpr double qual_bound = 1e-9;
// Distance from saturation where the phase may change; the pressures of both phases differ.
constexpr double phase_bound = 1e-9;
constexpr double phase_bound_by_pressure = 1e-4;
constexpr double jump_bound = 1e-5;  // of a value that no state has
constexpr double good_fits = 303.5;  // K, up to which the bounds on phases hold

// ---- The entries -------------------------------------------------------------------------------

/// The outputs that are compared.
struct Answer {
  double temp, pres, dens, qual, inte, enth, entr;
};

using Single = void (*)(const double&, const double&, std::int32_t&, const OutputSet&) noexcept;

struct Entry {
  const char* name;
  Single single, stated;
  bool (*batch)(StridedSpan<const double>, StridedSpan<const double>, StridedSpan<std::int32_t>,
                const BatchOutputSet&) noexcept;
  double Answer::*value;
  std::int32_t base;
  double phase_bound;
};

template <class Pair>
void by_stated_road(const double& dens, const double& value, std::int32_t& ierr,
                    const OutputSet& out) noexcept {
  take_isochore_road<Pair>(dens, value, ierr, out);
}

constexpr Entry entries[] = {
    {"co2_du", co2_du, by_stated_road<DuPair>, co2_du_batch, &Answer::inte, 500, phase_bound},
    {"co2_dh", co2_dh, by_stated_road<DhPair>, co2_dh_batch, &Answer::enth, 600, phase_bound},
    {"co2_ds", co2_ds, by_stated_road<DsPair>, co2_ds_batch, &Answer::entr, 700, phase_bound},
    {"co2_dp", co2_dp, by_stated_road<DpPair>, co2_dp_batch, &Answer::pres, 800,
     phase_bound_by_pressure},
};

Answer call(const Single solve, const double first, const double second, std::int32_t& ierr) {
  Answer a{};
  solve(first, second, ierr,
        {.temp = &a.temp,
         .pres = &a.pres,
         .dens = &a.dens,
         .qual = &a.qual,
         .inte = &a.inte,
         .enth = &a.enth,
         .entr = &a.entr});
  return a;
}

bool is_mixture(const Answer& a) { return a.temp < t_crit && a.qual > 0.0 && a.qual < 1.0; }

// ---- Measurements ------------------------------------------------------------------------------

struct Tally {
  std::uint64_t states = 0;
  std::uint64_t failed = 0;
  std::uint64_t at_limit = 0;    ///< refused within 1e-7 of a limit of the range
  std::uint64_t neighbours = 0;  ///< solved in the element beside that of the state
  std::uint64_t unlike = 0;      ///< another code on the stated road
  std::uint64_t other_bits = 0;  ///< of a batch
  std::uint64_t any_inputs = 0;  ///< of any bits
  std::uint64_t no_code = 0;     ///< of those, answers that are neither states nor errors
  Worst failures, value, temp, next_temp, flipped, flipped_hot, qual, qual_hot, stated, like_td,
      in_jump;

  void add(const Tally& t) {
    for (std::uint64_t Tally::*n :
         {&Tally::states, &Tally::failed, &Tally::at_limit, &Tally::neighbours, &Tally::unlike,
          &Tally::other_bits, &Tally::any_inputs, &Tally::no_code})
      this->*n += t.*n;
    for (Worst Tally::*w : {&Tally::failures, &Tally::value, &Tally::temp, &Tally::next_temp,
                            &Tally::flipped, &Tally::flipped_hot, &Tally::qual, &Tally::qual_hot,
                            &Tally::stated, &Tally::like_td, &Tally::in_jump})
      (this->*w).add(t.*w);
  }
};

double relative(const double value, const double expected) {
  return std::abs(value / expected - 1.0);
}

double error_of(const double value, const double expected) {
  return std::abs(value - expected) / std::max(1.0, std::abs(expected));
}

/// Largest difference of what two answers say of one state.
double difference(const Answer& a, const Answer& b) {
  return std::max({error_of(a.pres, b.pres), error_of(a.inte, b.inte), error_of(a.enth, b.enth),
                   error_of(a.entr, b.entr)});
}

/// The elements of a state by the look-up: one, or those of liquid and vapour.
std::array<std::int32_t, 2> elements_of(const Answer& s) {
  if (s.temp >= t_crit) return {sc_index_from_td(s.temp, s.dens), 0};
  if (s.qual <= 0.0) return {liq_index_from_td(s.temp, s.dens), 0};
  if (s.qual >= 1.0) return {vap_index_from_td(s.temp, s.dens), 0};
  return {liq_index_from_td(s.temp, calc_sat_liq_dens(s.temp)),
          vap_index_from_td(s.temp, calc_sat_vap_dens(s.temp))};
}

bool near_limit(const Answer& s) {
  constexpr double close = 1e-7;  // both sides of saturation differ by that much
  return relative(s.temp, temp_min) < close || relative(s.temp, temp_max) < close ||
         relative(s.pres, pres_min) < close || relative(s.pres, pres_max) < close;
}

void round_trip(const Entry& entry, const Answer& s, const char* const where, Tally& t) {
  ++t.states;
  const double in = s.*entry.value;
  std::int32_t ierr = 0;
  const Answer found = call(entry.single, s.dens, in, ierr);
  const auto finding = [&](const double size) {
    return Finding{size, s.temp, s.dens, s.pres, found.temp, found.dens, where};
  };
  std::int32_t stated_code = 0;
  const Answer stated = call(entry.stated, s.dens, in, stated_code);
  if (stated_code != ierr) {
    ++t.unlike;
    t.stated.note(finding(stated_code));
  }
  if (ierr != 0) {
    ++(near_limit(s) ? t.at_limit : t.failed);
    if (!near_limit(s)) t.failures.note(finding(ierr));
    return;
  }
  t.value.note(finding(error_of(found.*entry.value, in)));
  if (is_mixture(found) != is_mixture(s)) {
    const double off = std::min(std::abs(s.qual), std::abs(s.qual - 1.0));
    (s.temp <= good_fits ? t.flipped : t.flipped_hot).note(finding(off));
    return;
  }
  // What is found is the state of co2_td there, unless an edge of elements lies next to it.
  std::int32_t td_code = 0;
  const Answer td = call(co2_td, found.temp, found.dens, td_code);
  if (td_code != 0 || difference(td, found) != 0.0 || elements_of(s) != elements_of(found)) {
    ++t.neighbours;
    t.next_temp.note(finding(relative(found.temp, s.temp)));
    t.like_td.note(finding(difference(td, found)));
    return;
  }
  t.temp.note(finding(relative(found.temp, s.temp)));
  if (is_mixture(s))
    (s.temp <= good_fits ? t.qual : t.qual_hot).note(finding(std::abs(found.qual - s.qual)));
  if (elements_of(stated) == elements_of(found))
    t.stated.note(finding(relative(stated.temp, found.temp)));
}

/// Batches give the bits of single calls.
void compare_batch(const Entry& entry, const std::vector<double>& first,
                   const std::vector<double>& second, Tally& t) {
  const std::size_t n = first.size();
  std::vector<std::int32_t> ierr(n);
  std::array<std::vector<double>, 4> out;
  for (auto& values : out) values.resize(n);
  entry.batch(first, second, ierr,
              {.temp = out[0], .pres = out[1], .qual = out[2], .enth = out[3]});
  for (std::size_t i = 0; i < n; ++i) {
    std::int32_t code = 0;
    const Answer a = call(entry.single, first[i], second[i], code);
    const double expected[] = {a.temp, a.pres, a.qual, a.enth};
    bool same = code == ierr[i];
    for (std::size_t k = 0; k < out.size(); ++k)
      same = same && bit_cast<std::uint64_t>(out[k][i]) == bit_cast<std::uint64_t>(expected[k]);
    t.other_bits += same ? 0 : 1;
  }
}

/// Inputs of any bits, and the special numbers: a state within the range, or zeros and a code.
void try_any_bits(const Entry& entry, std::mt19937_64& engine, Tally& t, std::vector<double>& first,
                  std::vector<double>& second) {
  constexpr double inf = std::numeric_limits<double>::infinity();
  constexpr double specials[] = {std::numeric_limits<double>::quiet_NaN(),
                                 inf,
                                 -inf,
                                 0.0,
                                 -1.0,
                                 1e300,
                                 5e-324,
                                 500.0,
                                 1.0,
                                 800.0};
  const auto any = [&]() -> double {
    const std::uint64_t bits = engine();
    if (engine() % 3 == 0) return specials[bits % std::size(specials)];
    return bit_cast<double>(bits);
  };
  for (std::size_t i = 0; i < chunk_size / 10; ++i) {
    first.push_back(engine() % 2 == 0 ? 1250.0 * static_cast<double>(engine() >> 11U) * 0x1p-53
                                      : any());
    second.push_back(any());
    std::int32_t ierr = 77;
    const Answer a = call(entry.single, first.back(), second.back(), ierr);
    const bool finite = std::isfinite(first.back()) && std::isfinite(second.back());
    const bool state = ierr == 0 && finite && a.temp >= temp_min && a.temp <= temp_max &&
                       error_of(a.*entry.value, second.back()) < value_bound;
    const bool error = ierr > entry.base && ierr <= entry.base + (finite ? 4 : 5) &&
                       a.temp == 0.0 && a.enth == 0.0 && (finite || ierr == entry.base + 5);
    ++t.any_inputs;
    t.no_code += state || error ? 0 : 1;
  }
}

/// Values between states on both sides of the critical temperature, where those in the jump of the
/// saturated densities belong to no state.
void try_critical_jumps(const Entry& entry, Draws& draws, Tally& t) {
  for (std::size_t i = 0; i < chunk_size / 10; ++i) {
    const double dens = draws.uniform(400.0, 540.0);
    const double step = draws.log_uniform(1e-9, 1e-3);
    std::int32_t ierr = 0;
    const double low = call(co2_td, t_crit - step, dens, ierr).*entry.value;
    const double high = call(co2_td, t_crit + step, dens, ierr).*entry.value;
    const double value = draws.uniform(low, high);
    const Answer a = call(entry.single, dens, value, ierr);
    t.in_jump.note({ierr == 0 ? error_of(a.*entry.value, value) : NAN, t_crit, dens, a.pres, a.temp,
                    a.dens, "between states"});
  }
}

Tally measure(const Entry& entry, const Options& options) {
  const std::uint64_t chunks = (options.states + chunk_size - 1) / chunk_size;
  std::vector<Tally> tallies(chunks);
  tablegen::for_each_index(chunks, options.threads, [&](const std::size_t k) {
    CaloricSource source(options.seed * 1000003 + k);
    CaloricStratumIndex stratum = stratum_of_chunk(k);
    if (stratum == cell_edges) stratum = any_log_density;  // no cells here
    std::vector<double> first, second;
    for (std::size_t i = 0; i < chunk_size; ++i) {
      const FullState drawn = source.by_density(stratum);
      std::int32_t ierr = 0;
      const Answer s = call(co2_td, drawn.temp, drawn.dens, ierr);
      round_trip(entry, s, caloric_strata[stratum].name, tallies[k]);
      first.push_back(s.dens);
      second.push_back(s.*entry.value);
    }
    std::mt19937_64 engine(options.seed * 999983 + k);
    try_any_bits(entry, engine, tallies[k], first, second);
    Draws draws(options.seed * 999979 + k);
    try_critical_jumps(entry, draws, tallies[k]);
    compare_batch(entry, first, second, tallies[k]);
  });
  Tally total;
  for (const Tally& tally : tallies) total.add(tally);
  return total;
}

// ---- Report ------------------------------------------------------------------------------------

bool report(const Entry& entry, const Options& options) {
  const Tally t = measure(entry, options);
  fmt::print(
      "{}: {} states, {} of them refused within 1e-7 of a limit; {} solved in the element\n"
      "beside that of the state, at most {} K or kg/m3 outside of it, where property or\n"
      "temperature differ by the jump between the two; {} inputs of any bits\n\n",
      entry.name, t.states, t.at_limit, t.neighbours, element_margin, t.any_inputs);
  t.failures.print("Without a result (size: the code):");
  t.value.print("The property, relative:");
  t.temp.print("Temperature, relative:");
  t.next_temp.print("Temperature, relative, in a neighbouring element:");
  t.like_td.print("Outputs there, against those of co2_td at temperature and density:");
  t.flipped.print("Another phase up to 303.5 K, quality off saturation:");
  t.flipped_hot.print("Another phase above, quality off saturation:");
  t.qual.print("Quality of mixtures up to 303.5 K:");
  t.qual_hot.print("Quality of mixtures above:");
  t.in_jump.print("Values between states at the critical temperature, relative:");
  t.stated.print("The stated road: another code, or temperature, relative:");
  fmt::print("\n");
  const auto count = [](const std::uint64_t n) { return static_cast<double>(n); };
  bool good = check("States without a result", count(t.failed), 0.0);
  good &= check("The property", t.value.largest(), value_bound);
  good &= check("Temperature", t.temp.largest(), temp_bound);
  good &= check("Another phase up to 303.5 K: quality off saturation", t.flipped.largest(),
                entry.phase_bound);
  good &= check("Quality of mixtures up to 303.5 K", t.qual.largest(), qual_bound);
  good &= check("States with another code on the stated road", count(t.unlike), 0.0);
  good &= check("Temperature on the stated road", t.stated.largest(), temp_bound);
  good &=
      check("Values between states at the critical temperature", t.in_jump.largest(), jump_bound);
  good &= check("Inputs with neither a state nor a code", count(t.no_code), 0.0);
  good &= check("States with other bits in a batch", count(t.other_bits), 0.0);
  fmt::print("\n");
  return good;
}

}  // namespace

bool report_density(const Options& options) {
  fmt::print("{} states for each entry, seed {} (std::mt19937_64), {} threads\n\n", options.states,
             options.seed, options.threads);
  bool good = true;
  for (const Entry& entry : entries) good &= report(entry, options);
  fmt::print("{}\n", good ? "All bounds hold." : "A bound is exceeded.");
  return good;
}

}  // namespace co2_properties::solver_report
