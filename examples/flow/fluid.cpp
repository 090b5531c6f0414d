#include "flow/fluid.hpp"

#include <fmt/format.h>

#include <cmath>
#include <numeric>
#include <string>

#include "co2_properties.hpp"

namespace flow {
namespace {

using co2_properties::OutputSet;
namespace status = co2_properties::status;

constexpr double pa_per_kpa = 1000.0;
constexpr double j_per_kj = 1000.0;

[[noreturn]] void complain(const char* const name, const double first, const double second,
                           const std::int32_t ierr) {
  const auto text = co2_properties::co2_error_message(ierr);
  std::string message(text.begin(), text.end());
  message.erase(message.find_last_not_of(' ') + 1);
  throw StateError(fmt::format("{}({}, {}): status {}: {}", name, first, second, ierr, message));
}

OutputSet outputs(State& s) {
  return {.temp = &s.temp,
          .pres = &s.pres,
          .dens = &s.dens,
          .qual = &s.qual,
          .inte = &s.inte,
          .enth = &s.enth,
          .ssnd = &s.ssnd};
}

/// From the units of the library, with the speed of sound that it leaves open in two phases.
void complete(State& s, Fluid::Calls& calls) {
  s.pres *= pa_per_kpa;
  s.inte *= j_per_kj;
  s.enth *= j_per_kj;
  if (s.two_phase) {
    ++calls.saturated;
    s.ssnd = mixture(s.temp, s.qual, s.dens).ssnd;
  }
}

struct SaturatedPhase {
  double svol = 0.0, entr = 0.0, cv = 0.0, dpdd = 0.0, dpdt = 0.0;

  SaturatedPhase(const double temp, const double dens) {
    std::int32_t ierr = 0;
    co2_properties::co2_td(temp, dens, ierr,
                           {.svol = &svol, .entr = &entr, .cv = &cv, .dpdd = &dpdd, .dpdt = &dpdt});
    if (ierr != status::success) complain("co2_td", temp, dens, ierr);
  }

  /// (de/dT) at constant volume of what stays a mixture, per kg of this phase, kJ/(kg K).
  [[nodiscard]] double share_of_cv(const double temp, const double slope) const {
    const double excess = svol * (slope - dpdt);
    return cv + temp * excess * excess / dpdd;
  }
};

}  // namespace

Mixture mixture(const double temp, const double qual, const double dens) {
  const SaturatedPhase liq(temp, co2_properties::calc_sat_liq_dens(temp));
  const SaturatedPhase vap(temp, co2_properties::calc_sat_vap_dens(temp));
  const double slope = (vap.entr - liq.entr) / (vap.svol - liq.svol);  // kPa/K
  const double cv =
      (1.0 - qual) * liq.share_of_cv(temp, slope) + qual * vap.share_of_cv(temp, slope);
  return {cv * j_per_kj, slope / dens * std::sqrt(j_per_kj * temp / cv)};
}

State Fluid::from_tp(const double temp, const double pres) {
  State s;
  std::int32_t ierr = 0;
  ++calls_.tp;
  co2_properties::co2_tp(temp, pres / pa_per_kpa, ierr, outputs(s));
  if (ierr != status::success) complain("co2_tp", temp, pres / pa_per_kpa, ierr);
  complete(s, calls_);
  return s;
}

State Fluid::from_ph(const double pres, const double enth) {
  State s;
  std::int32_t ierr = 0;
  ++calls_.ph;
  co2_properties::co2_ph(pres / pa_per_kpa, enth / j_per_kj, ierr, outputs(s));
  s.two_phase = ierr == status::ph_two_phase;
  if (ierr == status::ph_loosely_converged) {
    ++calls_.loose;
  } else if (ierr != status::success && !s.two_phase) {
    complain("co2_ph", pres / pa_per_kpa, enth / j_per_kj, ierr);
  }
  complete(s, calls_);
  s.pres = pres;
  return s;
}

State Fluid::from_ps(const double pres, const double entr) {
  State s;
  std::int32_t ierr = 0;
  ++calls_.ps;
  co2_properties::co2_ps(pres / pa_per_kpa, entr / j_per_kj, ierr, outputs(s));
  s.two_phase = ierr == status::ps_two_phase;
  if (ierr == status::ps_loosely_converged) {
    ++calls_.loose;
  } else if (ierr != status::success && !s.two_phase) {
    complain("co2_ps", pres / pa_per_kpa, entr / j_per_kj, ierr);
  }
  complete(s, calls_);
  s.pres = pres;
  return s;
}

State Fluid::from_energy(const double dens, const double inte, const double temp_start) {
  constexpr double tolerance = 1e-5;      // J/kg, some 1e-8 K
  constexpr double bracket_width = 1e-9;  // K
  constexpr int newton_steps = 8;
  constexpr int all_steps = 80;
  double cold = co2_properties::temp_min;
  double hot = co2_properties::temp_max;
  double temp = temp_start;
  ++calls_.solved;
  for (int step = 1; step <= all_steps; ++step) {
    State s;
    double cv = 0.0;
    std::int32_t ierr = 0;
    OutputSet out = outputs(s);
    out.cv = &cv;
    ++calls_.td;
    co2_properties::co2_td(temp, dens, ierr, out);
    double next = 0.0;
    if (ierr == status::td_pres_above_max) {
      hot = temp;
    } else if (ierr == status::td_pres_below_min) {
      cold = temp;
    } else if (ierr != status::success && ierr != status::td_two_phase) {
      complain("co2_td", temp, dens, ierr);
    } else {
      s.two_phase = ierr == status::td_two_phase;
      const double excess = s.inte * j_per_kj - inte;
      const bool met = std::abs(excess) <= tolerance;
      // Where the fits of two elements meet, e(T) jumps by up to 0.1 J/kg.
      const bool at_jump = !met && hot - cold < bracket_width && std::abs(excess) < 1.0;
      if (met || at_jump) {
        if (at_jump) ++calls_.at_jumps;
        complete(s, calls_);
        return s;
      }
      (excess > 0.0 ? hot : cold) = temp;
      if (s.two_phase) {
        ++calls_.saturated;
        next = temp - excess / mixture(temp, s.qual, dens).cv;
      } else {
        next = temp - excess / (cv * j_per_kj);
      }
    }
    const bool keep = step < newton_steps && next > cold && next < hot;
    temp = keep ? next : std::midpoint(cold, hot);
  }
  throw StateError(fmt::format(
      "no temperature of 240 K to 1500 K gives a density of {} kg/m3 the internal energy {} kJ/kg",
      dens, inte / j_per_kj));
}

double Fluid::entropy(const State& state) {
  double entr = 0.0;
  std::int32_t ierr = 0;
  ++calls_.td;
  co2_properties::co2_td(state.temp, state.dens, ierr, {.entr = &entr});
  if (ierr != status::success) complain("co2_td", state.temp, state.dens, ierr);
  return entr * j_per_kj;
}

}  // namespace flow
