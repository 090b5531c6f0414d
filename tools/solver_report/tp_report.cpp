#include "solver_report/tp_report.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <vector>

#include "co2_properties.hpp"
#include "eos/element.hpp"
#include "eos/locate_tp.hpp"
#include "fits/near_critical.hpp"
#include "reference/phase_equilibrium.hpp"
#include "solver_report/states.hpp"
#include "solvers/relocate.hpp"
#include "solvers/solve_density.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::solver_report {
namespace {

constexpr std::uint64_t chunk_size = 10000;

// ---- Bounds ------------------------------------------------------------------------------------

constexpr double dens_bound = 1e-9;       // relative, where rho dp/drho exceeds firm_slope
constexpr double firm_slope = 1.0;        // kPa
constexpr double pres_bound = 1e-10;      // relative
constexpr double located_bound = 0.9999;  // share of states
constexpr double evaluations_bound = 4.0;

// ---- Round trips -------------------------------------------------------------------------------

/// A state that is worth showing.
struct Case {
  double size;
  State state;
  double found;          ///< density that co2_tp returns, kg/m3
  std::int32_t element;  ///< of the state
  std::int32_t first;    ///< that the locator returns
  std::size_t stratum;
};

/// The largest cases.
class Worst {
 public:
  void note(const Case& c) {
    const auto at = std::find_if(cases_.begin(), cases_.end(),
                                 [&](const Case& other) { return !(other.size >= c.size); });
    if (at == cases_.end() && cases_.size() == most) return;
    cases_.insert(at, c);
    if (cases_.size() > most) cases_.pop_back();
  }
  void add(const Worst& other) {
    for (const Case& c : other.cases_) note(c);
  }
  [[nodiscard]] double largest() const { return cases_.empty() ? 0.0 : cases_.front().size; }
  void print(const char* title) const {
    if (cases_.empty()) return;
    fmt::print("{}\n", title);
    for (const Case& c : cases_) {
      fmt::print(
          "  {:9.2e}  {:.17g} K {:.17g} kg/m3 ({:.12g} kPa, rho dp/drho {:.3g} kPa) -> "
          "{:.12g} kg/m3; element {}, located {}; {}\n",
          c.size, c.state.temp, c.state.dens, c.state.pres, c.state.dens * c.state.dpdd, c.found,
          c.element, c.first, strata[c.stratum].name);
    }
  }

 private:
  static constexpr std::size_t most = 6;
  std::vector<Case> cases_;
};

struct Counts {
  std::uint64_t states = 0;
  std::uint64_t saturated = 0;      ///< code 205
  std::uint64_t not_converged = 0;  ///< code 207
  std::uint64_t other_codes = 0;
  std::uint64_t other_phase = 0;  ///< liquid of at most the saturation pressure, and the reverse
  std::uint64_t misplaced = 0;    ///< solution more than the margin outside the located element
  std::uint64_t off = 0;          ///< density beyond its bound
  std::uint64_t evaluations = 0;

  void add(const Counts& c) {
    states += c.states;
    saturated += c.saturated;
    not_converged += c.not_converged;
    other_codes += c.other_codes;
    other_phase += c.other_phase;
    misplaced += c.misplaced;
    off += c.off;
    evaluations += c.evaluations;
  }
};

struct Tally {
  std::array<Counts, stratum_count> strata{};
  std::array<std::uint64_t, 17> histogram{};
  std::map<std::int32_t, std::uint64_t> failed_elements;
  std::map<std::int32_t, std::uint64_t> misplaced_elements;  ///< by located element
  Worst dens, edge_dens, flat_dens, stated_dens, pres, failed, flipped, misplaced;

  void add(const Tally& t) {
    for (std::size_t s = 0; s < stratum_count; ++s) strata[s].add(t.strata[s]);
    for (std::size_t k = 0; k < histogram.size(); ++k) histogram[k] += t.histogram[k];
    for (const auto& [e, count] : t.failed_elements) failed_elements[e] += count;
    for (const auto& [e, count] : t.misplaced_elements) misplaced_elements[e] += count;
    dens.add(t.dens);
    edge_dens.add(t.edge_dens);
    flat_dens.add(t.flat_dens);
    stated_dens.add(t.stated_dens);
    pres.add(t.pres);
    failed.add(t.failed);
    flipped.add(t.flipped);
    misplaced.add(t.misplaced);
  }
};

/// Element of a single-phase state.
std::int32_t element_of(const State& s) {
  if (s.temp >= t_crit) return sc_index_from_td(s.temp, s.dens);
  return s.dens <= calc_sat_vap_dens(s.temp) ? vap_index_from_td(s.temp, s.dens)
                                             : liq_index_from_td(s.temp, s.dens);
}

/// Element that the iteration starts with; 0 on the saturation line.
std::int32_t first_element(const double temp, const double pres) {
  if (temp >= t_crit) return sc_index_from_tp(temp, pres);
  const double pres_sat = calc_sat_pres(temp);
  if (pres == pres_sat) return 0;
  return pres < pres_sat ? vap_index_from_tp(temp, pres) : liq_index_from_tp(temp, pres);
}

/// Whether an iteration may end in the element on the other side of a density edge.
bool at_density_edge(const double dens, const std::int32_t e) {
  const double offset = dens - element(e).dens0;
  return std::min(std::abs(offset), std::abs(offset - element(e).dens_width)) <= element_margin;
}

bool is_vapour(const std::int32_t e) { return e <= 93; }

/// Counts where the iteration starts and ends, and compares it with what the entry found, perhaps
/// without it.
void count_iteration(const State& state, const double found, const std::int32_t first,
                     const std::size_t stratum, Tally& tally) {
  const DensitySolution s = solve_density(first, state.temp, state.pres);
  Counts& counts = tally.strata[stratum];
  counts.evaluations += static_cast<std::uint64_t>(s.evaluations);
  ++tally.histogram[static_cast<std::size_t>(s.evaluations)];
  const Element& e = element(first);
  if (state.dens * state.dpdd > firm_slope && !at_density_edge(found, s.element)) {
    const double size = std::abs(s.dens / found - 1.0);
    tally.stated_dens.note({size, state, found, s.element, first, stratum});
  }
  if (keeps_element(s.dens - e.dens0, e.dens_width)) return;
  ++counts.misplaced;
  ++tally.misplaced_elements[first];
  const double outside = std::max(e.dens0 - s.dens, s.dens - e.dens0 - e.dens_width);
  tally.misplaced.note({outside, state, s.dens, s.element, first, stratum});
}

void round_trip(const State& state, const std::size_t stratum, Tally& tally) {
  Counts& counts = tally.strata[stratum];
  ++counts.states;
  std::int32_t ierr = 0;
  double dens = 0.0;
  double pres = 0.0;
  co2_tp(state.temp, state.pres, ierr, {.pres = &pres, .dens = &dens});
  const std::int32_t first = first_element(state.temp, state.pres);
  if (ierr == status::tp_saturated) {
    ++counts.saturated;
    return;
  }
  const std::int32_t e = element_of(state);
  const double dens_error = std::abs(dens / state.dens - 1.0);
  const Case found = {dens_error, state, dens, e, first, stratum};
  if (ierr != 0) {
    Case c = found;
    c.size = state.dens * state.dpdd;
    tally.failed.note(c);
    ++tally.failed_elements[e];
    ++(ierr == status::tp_not_converged ? counts.not_converged : counts.other_codes);
    return;
  }
  count_iteration(state, dens, first, stratum, tally);
  Case by_pressure = found;
  by_pressure.size = std::abs(pres / state.pres - 1.0);
  tally.pres.note(by_pressure);
  if (state.temp < t_crit && is_vapour(e) != is_vapour(first)) {
    ++counts.other_phase;
    Case c = found;
    c.size = std::abs(state.pres / calc_sat_pres(state.temp) - 1.0);
    tally.flipped.note(c);
    return;
  }
  if (!(state.dens * state.dpdd > firm_slope)) {
    tally.flat_dens.note(found);
    return;
  }
  if (!(dens_error <= dens_bound)) ++counts.off;
  (at_density_edge(state.dens, e) ? tally.edge_dens : tally.dens).note(found);
}

/// (T, p) as a user gives it: it must be solved, and the density that it gives goes on a round
/// trip.
void from_pressure(const StateSource::Inputs& in, const std::size_t stratum, Tally& tally) {
  std::int32_t ierr = 0;
  double dens = 0.0;
  co2_tp(in.temp, in.pres, ierr, {.dens = &dens});
  State state{};
  if (ierr == 0 && single_phase(in.temp, dens, state)) {
    round_trip(state, stratum, tally);
    return;
  }
  state = {in.temp, dens, in.pres, 0.0};
  // An error, or a density that co2_td finds inside the dome or whose pressure rounds to outside.
  Counts& counts = tally.strata[stratum];
  ++counts.states;
  if (ierr == status::tp_saturated) {
    ++counts.saturated;
  } else if (ierr != 0) {
    ++(ierr == status::tp_not_converged ? counts.not_converged : counts.other_codes);
    const std::int32_t first = first_element(in.temp, in.pres);
    ++tally.failed_elements[first];
    tally.failed.note({0.0, state, dens, first, first, stratum});
  } else {
    count_iteration(state, dens, first_element(in.temp, in.pres), stratum, tally);
  }
}

std::size_t stratum_of_chunk(const std::uint64_t chunk) {
  std::uint64_t place = chunk * 37 % 100;  // 37 is prime to 100: any hundred chunks fill the shares
  std::size_t s = 0;
  while (place >= strata[s].share) place -= strata[s++].share;
  return s;
}

Tally round_trips(const Options& options) {
  const std::uint64_t chunks = (options.states + chunk_size - 1) / chunk_size;
  std::vector<Tally> tallies(chunks);
  tablegen::for_each_index(chunks, options.threads, [&](const std::size_t k) {
    StateSource source(options.seed * 1000003 + k);
    const std::size_t s = stratum_of_chunk(k);
    const auto stratum = static_cast<StratumIndex>(s);
    for (std::uint64_t i = 0; i < chunk_size; ++i) {
      if (strata[s].by_pressure) {
        from_pressure(source.by_pressure(stratum), s, tallies[k]);
      } else {
        round_trip(source.by_density(stratum), s, tallies[k]);
      }
    }
  });
  Tally total;
  for (const Tally& tally : tallies) total.add(tally);
  return total;
}

bool check(const char* what, const double value, const double bound, const bool good) {
  fmt::print("{:<62} {:10.4g}  bound {:<8.4g} {}\n", what, value, bound, good ? "" : "EXCEEDED");
  return good;
}

void print_elements(const std::map<std::int32_t, std::uint64_t>& counts) {
  if (counts.empty()) return;
  fmt::print("  elements:");
  for (const auto& [e, count] : counts) fmt::print(" {} ({})", e, count);
  fmt::print("\n");
}

bool print_round_trips(const Tally& tally) {
  fmt::print("{:<24}{:>10}{:>8}{:>8}{:>8}{:>11}{:>11}{:>8}{:>8}\n", "states", "count", "205", "207",
             "others", "other side", "misplaced", "off", "evals");
  Counts all;
  const auto line = [](const char* name, const Counts& c) {
    fmt::print("{:<24}{:>10}{:>8}{:>8}{:>8}{:>11}{:>11}{:>8}{:>8.3f}\n", name, c.states,
               c.saturated, c.not_converged, c.other_codes, c.other_phase, c.misplaced, c.off,
               static_cast<double>(c.evaluations) /
                   static_cast<double>(c.states - c.saturated - c.not_converged));
  };
  for (std::size_t s = 0; s < stratum_count; ++s) {
    all.add(tally.strata[s]);
    line(strata[s].name, tally.strata[s]);
  }
  line("all", all);
  fmt::print(
      "205: on the saturation line; other side: liquid of a pressure below saturation, or\n"
      "vapour above it, which comes back as the other phase; misplaced: more than {} kg/m3\n"
      "outside the located element; off: density beyond its bound. At density edges, which may be\n"
      "overrun by as much, the element on the other side may answer.\n\nEvaluations:",
      element_margin);
  for (std::size_t k = 1; k < tally.histogram.size(); ++k) {
    fmt::print(" {}:{}", k, tally.histogram[k]);
  }
  fmt::print("\n\n");
  tally.failed.print("Not converged, by rho dp/drho:");
  print_elements(tally.failed_elements);
  tally.misplaced.print("Misplaced, kg/m3 outside the located element:");
  print_elements(tally.misplaced_elements);
  tally.dens.print("Density, relative:");
  tally.edge_dens.print("Density, relative, at density edges:");
  tally.flat_dens.print("Density, relative, where rho dp/drho is at most 1 kPa:");
  tally.stated_dens.print("Density, relative, of the iteration alone:");
  tally.pres.print("Pressure, relative:");
  tally.flipped.print("Other side of saturation, distance from the saturation pressure, relative:");

  const auto solved =
      static_cast<double>(all.states - all.saturated - all.not_converged - all.other_codes);
  const double mean = static_cast<double>(all.evaluations) / solved;
  const double located = 1.0 - static_cast<double>(all.misplaced) / solved;
  fmt::print("\n");
  bool good = check("States that are not solved", static_cast<double>(all.not_converged), 0.0,
                    all.not_converged == 0);
  good &= check("States with another code than 0, 205, 207", static_cast<double>(all.other_codes),
                0.0, all.other_codes == 0);
  good &= check("Density off density edges, where rho dp/drho > 1 kPa", tally.dens.largest(),
                dens_bound, tally.dens.largest() <= dens_bound);
  good &= check("The same, of the iteration against the entry", tally.stated_dens.largest(),
                dens_bound, tally.stated_dens.largest() <= dens_bound);
  good &= check("Pressure after a round trip", tally.pres.largest(), pres_bound,
                tally.pres.largest() <= pres_bound);
  good &= check("Share of states inside the located element", located, located_bound,
                located >= located_bound);
  good &= check("Mean number of evaluations", mean, evaluations_bound, mean <= evaluations_bound);
  return good;
}

// ---- Reference ---------------------------------------------------------------------------------

struct DensityError {
  double error, temp, pres, dens;
};

bool compare_densities(const Options& options) {
  constexpr double most_bound = 5e-7;  // of 99.9 % of the states
  constexpr double all_bound = 1e-6;
  std::vector<DensityError> errors(options.reference_states);
  tablegen::for_each_index(errors.size(), options.threads, [&](const std::size_t k) {
    StateSource source(options.seed * 1000033 + k);
    DensityError& e = errors[k];
    for (;;) {
      const auto [temp, pres] = source.by_pressure(k % 2 == 0 ? log_pressure : subcritical);
      std::int32_t ierr = 0;
      co2_tp(temp, pres, ierr, {.dens = &e.dens});
      if (ierr != 0 || near_critical_box.contains(temp, e.dens)) continue;
      using reference::Phase;
      const Phase phase = temp >= t_crit    ? Phase::supercritical
                          : e.dens > d_crit ? Phase::liquid
                                            : Phase::vapour;
      e = {std::abs(e.dens / reference::density(temp, pres, phase) - 1.0), temp, pres, e.dens};
      return;
    }
  });
  std::sort(errors.begin(), errors.end(),
            [](const DensityError& a, const DensityError& b) { return a.error > b.error; });
  fmt::print(
      "\nDensity at (T, p) against the reference, {} states, half of them below the critical\n"
      "temperature, outside 302.9 K < T < 310 K, 350 < rho < 580; the worst:\n",
      errors.size());
  for (std::size_t k = 0; k < std::min<std::size_t>(5, errors.size()); ++k) {
    fmt::print("  {:9.2e}  {:.9g} K {:.9g} kPa {:.9g} kg/m3\n", errors[k].error, errors[k].temp,
               errors[k].pres, errors[k].dens);
  }
  const double most = errors[errors.size() / 1000].error;
  bool good = check("Density, relative", errors.front().error, all_bound,
                    errors.front().error <= all_bound);
  return check("Density, relative, of 99.9 % of the states", most, most_bound,
               most <= most_bound) &&
         good;
}

bool compare_saturation(const Options& options) {
  constexpr std::size_t count = 4000;
  constexpr double split = 303.5;
  struct Error {
    double temp, pres, by_pres, by_temp;
  };
  std::vector<Error> errors(count);
  tablegen::for_each_index(count, options.threads, [&](const std::size_t k) {
    const double s = (static_cast<double>(k) + 0.5) / count;
    // A quarter of the temperatures close in on the critical one, down to 1e-4 K below it.
    const double temp =
        k % 4 == 0 ? t_crit - std::pow(10.0, 1.0 - 5.0 * s) : temp_min + (t_crit - temp_min) * s;
    const auto sat = reference::saturation<long double>(temp);
    const auto pres = static_cast<double>(sat.pres);
    errors[k] = {temp, pres, std::abs(calc_sat_pres(temp) / pres - 1.0),
                 std::abs(calc_sat_temp(pres) - temp)};
  });
  Error below{};
  Error above{};
  Error by_temp{};
  for (const Error& e : errors) {
    Error& worst = e.temp <= split ? below : above;
    if (!(e.by_pres <= worst.by_pres)) worst = e;
    if (!(e.by_temp <= by_temp.by_temp)) by_temp = e;
  }
  fmt::print(
      "\nSaturation line against the reference, {} temperatures: worst at {:.6f} K, above\n"
      "{} K at {:.6f} K; saturation temperature worst at {:.2f} kPa.\n",
      count, below.temp, split, above.temp, by_temp.pres);
  bool good = check("Saturation pressure up to 303.5 K, relative", below.by_pres, 2e-6,
                    below.by_pres <= 2e-6);
  good &= check("Saturation pressure above, relative", above.by_pres, 2e-5, above.by_pres <= 2e-5);
  return check("Saturation temperature, K", by_temp.by_temp, 5e-4, by_temp.by_temp <= 5e-4) && good;
}

}  // namespace

bool report_tp(const Options& options) {
  fmt::print("co2_tp, {} states, seed {} (std::mt19937_64)\n\n", options.states, options.seed);
  bool good = print_round_trips(round_trips(options));
  good &= compare_densities(options);
  good &= compare_saturation(options);
  fmt::print("\n{}\n", good ? "All bounds hold." : "A bound is exceeded.");
  return good;
}

}  // namespace co2_properties::solver_report
