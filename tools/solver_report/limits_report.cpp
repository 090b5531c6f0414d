#include "solver_report/limits_report.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <vector>

#include "api/co2_properties.hpp"
#include "solver_report/limit_states.hpp"
#include "solvers/relocate.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::solver_report {
namespace {

constexpr std::uint64_t chunk_size = 10000;

// ---- What counts as a contradiction ------------------------------------------------------------
//
// A result is held against `co2_td` at its own temperature and density. There the phase is decided
// by densities instead of pressure and property, which agree to 6.6e-5 K and 4.5e-5 in pressure;
// and the state may be that of the next element. The bounds are a few times what this makes up.

constexpr double pres_bound = 2e-4;        // relative
constexpr double loose_pres_bound = 1e-2;  // with a warning
constexpr double stiff_bound = 1e-6;       // of rho dp/drho, added to it
constexpr double enth_bound = 0.05;        // kJ/kg
constexpr double entr_bound = 2e-4;        // kJ/(kg K)
constexpr double cv_cp_ssnd_bound = 0.01;  // relative, 1 K off the critical temperature
// Next to the critical point elements are narrower than the margin up to which an iterate keeps
// one.
constexpr double enth_critical_bound = 0.2;
constexpr double entr_critical_bound = 1e-3;
constexpr double limit_rounding = 1e-6;  // relative: as close to a limit either side is right

enum Verdict : std::size_t { agrees, extrapolated, contradicted, wrong_code, verdict_count };

bool off(const double value, const double expected, const double bound) {
  return !(std::abs(value - expected) <= bound);
}

/// Whether single-phase properties are none that a fluid has.
bool is_impossible(const Answer& r) {
  return !r.is_finite() || (!r.is_mixture() && !(r.cv > 0.0 && r.cp > 0.0 && r.ssnd > 0.0));
}

bool differs(const Answer& r, const Answer& td) {
  const bool near_critical = std::abs(r.temp - t_crit) < element_margin;
  const double stiffness = r.dens * std::max(r.dpdd, td.dpdd);
  if (off(td.pres, r.pres, pres_bound * r.pres + stiff_bound * stiffness) ||
      off(td.enth, r.enth, near_critical ? enth_critical_bound : enth_bound) ||
      off(td.entr, r.entr, near_critical ? entr_critical_bound : entr_bound)) {
    return true;
  }
  if (r.is_mixture() || td.is_mixture() || std::abs(r.temp - t_crit) <= 1.0) return false;
  return off(td.cv, r.cv, cv_cp_ssnd_bound * r.cv) || off(td.cp, r.cp, cv_cp_ssnd_bound * r.cp) ||
         off(td.ssnd, r.ssnd, cv_cp_ssnd_bound * r.ssnd);
}

/// A result of an entry that takes a pressure.
/// \param pres  the pressure that was given
Verdict judge_result(const Answer& r, const double pres) {
  if (!r.is_finite()) return contradicted;
  if (r.is_mixture() && r.temp < temp_min) return pres < pres_sat_min ? extrapolated : contradicted;
  const bool loose = r.ierr == status::ph_loosely_converged ||
                     r.ierr == status::ps_loosely_converged ||
                     r.ierr == status::pu_loosely_converged;
  if (off(r.pres, pres, (loose ? loose_pres_bound : pres_bound) * pres)) return contradicted;
  const Answer td(co2_td, r.temp, r.dens);
  if (td.ierr <= 0) return is_impossible(r) || differs(r, td) ? contradicted : agrees;
  const bool at_limit =
      (td.ierr == status::td_pres_below_min && r.pres < pres_min * (1.0 + limit_rounding)) ||
      (td.ierr == status::td_pres_above_max && r.pres > pres_max * (1.0 - limit_rounding));
  return at_limit ? agrees : contradicted;
}

// ---- Temperature and pressure ------------------------------------------------------------------

Verdict judge_tp(const Inputs& in, const Answer& r) {
  const auto [temp, pres] = in;
  const std::int32_t expected = pres < pres_min   ? status::tp_pres_below_min
                                : pres > pres_max ? status::tp_pres_above_max
                                : temp < temp_min ? status::tp_temp_below_min
                                : temp > temp_max ? status::tp_temp_above_max
                                                  : status::success;
  if (r.ierr == status::tp_saturated) return pres == calc_sat_pres(temp) ? agrees : wrong_code;
  if (r.ierr != expected) return wrong_code;
  return r.ierr > 0 ? agrees : judge_result(r, pres);
}

// ---- Temperature and density -------------------------------------------------------------------

double dens_at(const double temp, const double pres) { return Answer(co2_tp, temp, pres).dens; }

/// Whether `co2_tp` gives another density back. Not asked so close to saturation that it may decide
/// for the other phase.
bool comes_back_different(const Answer& r) {
  if (r.is_mixture()) return off(r.pres, calc_sat_pres(r.temp), pres_bound * r.pres);
  if (r.temp < t_crit && !off(r.pres, calc_sat_pres(r.temp), pres_bound * r.pres)) return false;
  const Answer tp(co2_tp, r.temp, std::clamp(r.pres, pres_min, pres_max));
  const double stiffness = std::max(r.dpdd, tp.dpdd);
  return tp.ierr != 0 || off(tp.dens * stiffness, r.dens * stiffness,
                             pres_bound * r.pres + stiff_bound * r.dens * stiffness);
}

Verdict judge_td(const Inputs& in, const Answer& r) {
  const auto [temp, dens] = in;
  const auto verdict = [&](const std::int32_t expected) {
    return r.ierr == expected ? agrees : wrong_code;
  };
  if (dens < dens_min) return verdict(status::td_pres_below_min);
  if (temp < temp_min) return verdict(status::td_temp_below_min);
  if (temp > temp_max) return verdict(status::td_temp_above_max);
  const double lowest = dens_at(temp, pres_min);
  const double highest = dens_at(temp, pres_max);
  if (dens < lowest * (1.0 - limit_rounding)) return verdict(status::td_pres_below_min);
  if (dens > highest * (1.0 + limit_rounding)) return verdict(status::td_pres_above_max);
  if (r.ierr > 0) {
    const bool at_limit =
        dens < lowest * (1.0 + limit_rounding) || dens > highest * (1.0 - limit_rounding);
    return at_limit ? agrees : wrong_code;
  }
  return is_impossible(r) || comes_back_different(r) ? contradicted : agrees;
}

// ---- Pressure and a caloric property -----------------------------------------------------------

/// Whether a code is that of the limit which the property lies beyond, on its isobar.
bool is_right_code(const CaloricPlane& plane, const Inputs& in, const Answer& r) {
  const auto [pres, caloric] = in;
  if (pres < pres_min) return r.ierr == plane.first_code + 3;
  if (pres > pres_max) return r.ierr == plane.first_code + 4;
  const double cold = plane.at(temp_min, pres);
  const double hot = plane.at(temp_max, pres);
  const double rounding = limit_rounding * plane.unit;  // and jumps between elements
  if (r.ierr == plane.first_code + 1) return caloric < cold + rounding;
  if (r.ierr == plane.first_code + 2) return caloric > hot - rounding;
  return r.ierr <= 0 && caloric < hot + rounding &&
         (caloric > cold - rounding || r.temp < temp_min);
}

Verdict judge_caloric(const CaloricPlane& plane, const Inputs& in, const Answer& r) {
  const Verdict verdict = r.ierr <= 0 ? judge_result(r, in.first) : agrees;
  return verdict == agrees && !is_right_code(plane, in, r) ? wrong_code : verdict;
}

// ---- Isentropes --------------------------------------------------------------------------------

/// Whether a value is met to 1e-11 of it, or of one.
bool is_met(const double value, const double wanted) {
  return std::abs(value - wanted) <= 1e-11 * std::max(1.0, std::abs(wanted));
}

Verdict judge_ts(const Inputs& in, const Answer& r) {
  const auto [temp, entr] = in;
  const auto verdict = [](const bool good) { return good ? agrees : wrong_code; };
  if (temp < temp_min) return verdict(r.ierr == status::ts_temp_below_min);
  if (temp > temp_max) return verdict(r.ierr == status::ts_temp_above_max);
  const double rounding = limit_rounding;
  const double thin = Answer(co2_tp, temp, pres_min).entr;
  const double dense = Answer(co2_tp, temp, pres_max).entr;
  if (r.ierr == status::ts_pres_below_min) return verdict(entr > thin - rounding);
  if (r.ierr == status::ts_pres_above_max) return verdict(entr < dense + rounding);
  if (r.ierr > 0 || entr > thin + rounding || entr < dense - rounding) return wrong_code;
  return r.temp == temp && is_met(r.entr, entr) ? judge_result(r, r.pres) : contradicted;
}

/// Where an enthalpy lies to the state with a limit and with the same entropy, if that is in range.
bool beyond(const Answer& limit, const double enth, const double sign) {
  constexpr double rounding = 1e-4;  // kJ/kg
  return limit.ierr > 0 || sign * (enth - limit.enth) > -rounding;
}

Verdict judge_hs(const Inputs& in, const Answer& r) {
  const double enth = in.first;
  const double entr = in.second;
  const Answer cold(co2_ts, temp_min, entr);
  const Answer hot(co2_ts, temp_max, entr);
  const Answer thin(co2_ps, pres_min, entr);
  const Answer dense(co2_ps, pres_max, entr);
  // Where an isentrope does not meet a limit, the others say where it ends.
  const bool is_right = r.ierr == status::hs_temp_below_min   ? beyond(cold, enth, -1.0)
                        : r.ierr == status::hs_temp_above_max ? beyond(hot, enth, 1.0)
                        : r.ierr == status::hs_pres_below_min
                            ? beyond(thin, enth, -1.0) && thin.ierr != status::ps_temp_below_min
                        : r.ierr == status::hs_pres_above_max
                            ? beyond(dense, enth, 1.0) && dense.ierr != status::ps_temp_above_max
                            : r.ierr <= 0;
  if (!is_right) return wrong_code;
  if (r.ierr <= 0) {
    // Where a phase of the mixture lies on the edge between two elements, neither of which has the
    // tie line, the closest one serves.
    constexpr double between_elements = 1e-6;  // kJ/kg
    const bool is_near = r.is_mixture() && !off(r.enth, enth, between_elements);
    if (!(is_met(r.enth, enth) || is_near) || !is_met(r.entr, entr)) return contradicted;
    return judge_result(r, r.pres);
  }
  // A state of the range has no error: all limits that the isentrope meets enclose it.
  const auto inside = [&](const Answer& limit, const double sign) {
    return limit.ierr <= 0 && !beyond(limit, enth, sign);
  };
  const bool above = inside(cold, -1.0) || inside(thin, -1.0);
  const bool below = inside(hot, 1.0) || inside(dense, 1.0);
  return above && below ? wrong_code : agrees;
}

using Judge = Verdict (*)(const Inputs& in, const Answer& r);
constexpr Judge judges[plane_count] = {
    judge_td,
    judge_tp,
    [](const Inputs& in, const Answer& r) { return judge_caloric(ph_plane, in, r); },
    [](const Inputs& in, const Answer& r) { return judge_caloric(ps_plane, in, r); },
    [](const Inputs& in, const Answer& r) { return judge_caloric(pu_plane, in, r); },
    judge_ts,
    judge_hs};

// ---- Report ------------------------------------------------------------------------------------

struct Tally {
  std::map<std::int32_t, std::uint64_t> codes;
  std::array<std::uint64_t, verdict_count> verdicts{};
  struct Example {
    const char* strip;
    Inputs in;
    Answer r;
  };
  std::array<std::vector<Example>, verdict_count> examples;

  void note(const Verdict verdict, const Example& example) {
    ++codes[example.r.ierr];
    ++verdicts[verdict];
    keep(verdict, example);
  }
  void add(const Tally& t) {
    for (const auto& [code, count] : t.codes) codes[code] += count;
    for (std::size_t k = 0; k < verdict_count; ++k) {
      verdicts[k] += t.verdicts[k];
      for (const Example& e : t.examples[k]) keep(static_cast<Verdict>(k), e);
    }
  }

 private:
  void keep(const Verdict verdict, const Example& example) {
    if (verdict >= contradicted && examples[verdict].size() < 4) {
      examples[verdict].push_back(example);
    }
  }
};

Tally search_chunk(const InputPlane& plane, const Judge judge, const std::size_t strip,
                   const std::uint64_t seed, const std::uint64_t count) {
  Draws draws(seed);
  Tally tally;
  for (std::uint64_t k = 0; k < count; ++k) {
    const Inputs in = plane.draw(strip, draws);
    const Answer r(plane.single, in.first, in.second);
    tally.note(judge(in, r), {plane.strips[strip], in, r});
  }
  return tally;
}

void print_examples(const InputPlane& plane, const Tally& tally) {
  for (const auto& [verdict, title] :
       {std::pair{contradicted, "Contradicted"}, std::pair{wrong_code, "Wrong code"}}) {
    for (const auto& [strip, in, r] : tally.examples[verdict]) {
      fmt::print("  {}: {}({:a}, {:a}) = ({:.9g}, {:.9g}) -> {}: {:.9g} K {:.9g} kg/m3; {}\n",
                 title, plane.name, in.first, in.second, in.first, in.second, r.ierr, r.temp,
                 r.dens, strip);
    }
  }
}

bool search(const InputPlane& plane, const Judge judge, const Options& options) {
  const std::uint64_t in_strip = std::max<std::uint64_t>(1, options.states / plane.strips.size());
  const std::uint64_t in_chunk = std::min(chunk_size, in_strip);
  const std::uint64_t chunks = in_strip / in_chunk;
  fmt::print("{}\n{:<36}{:>10}{:>14}{:>14}{:>12}  codes\n", plane.name, "inputs", "count",
             "extrapolated", "contradicted", "wrong code");
  Tally all;
  for (std::size_t strip = 0; strip < plane.strips.size(); ++strip) {
    std::vector<Tally> tallies(chunks);
    tablegen::for_each_index(chunks, options.threads, [&](const std::size_t chunk) {
      const std::uint64_t seed = (options.seed * plane.strips.size() + strip) * chunks + chunk;
      tallies[chunk] = search_chunk(plane, judge, strip, seed, in_chunk);
    });
    Tally tally;
    for (const Tally& t : tallies) tally.add(t);
    fmt::print("{:<36}{:>10}{:>14}{:>14}{:>12} ", plane.strips[strip], chunks * in_chunk,
               tally.verdicts[extrapolated], tally.verdicts[contradicted],
               tally.verdicts[wrong_code]);
    for (const auto& [code, count] : tally.codes) fmt::print(" {}:{}", code, count);
    fmt::print("\n");
    all.add(tally);
  }
  print_examples(plane, all);
  fmt::print("\n");
  return all.verdicts[contradicted] + all.verdicts[wrong_code] == 0;
}

}  // namespace

bool report_limits(const Options& options) {
  fmt::print("{} inputs of each entry, seed {} (std::mt19937_64)\n\n", options.states,
             options.seed);
  bool good = true;
  for (std::size_t k = 0; k < plane_count; ++k) {
    good &= search(input_planes[k], judges[k], options);
  }
  fmt::print("{}\n", good ? "No result is contradicted, every code is that of its limit."
                          : "There are wrong answers.");
  return good;
}

}  // namespace co2_properties::solver_report
