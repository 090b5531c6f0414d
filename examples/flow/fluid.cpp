#include "flow/fluid.hpp"

#include <fmt/format.h>

#include <string>

#include "co2_properties.hpp"

namespace flow {
namespace {

using co2_properties::DerivativeSet;
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

/// An entry of the library.
struct Entry {
  const char* name;
  void (*call)(const double&, const double&, std::int32_t&, const OutputSet&,
               const DerivativeSet&) noexcept;
  std::int32_t two_phase = status::success;  ///< its warning of two phases, if it has one
};
constexpr Entry tp = {"co2_tp", co2_properties::co2_tp};
constexpr Entry ph = {"co2_ph", co2_properties::co2_ph, status::ph_two_phase};
constexpr Entry ps = {"co2_ps", co2_properties::co2_ps, status::ps_two_phase};
constexpr Entry du = {"co2_du", co2_properties::co2_du, status::du_two_phase};

/// \param loose  counts other warnings
State solve(const Entry& entry, const double first, const double second, std::int64_t& loose) {
  State s;
  double single_only = 0.0;  // asked for because the entry warns of two phases then
  std::int32_t ierr = 0;
  entry.call(first, second, ierr,
             {.temp = &s.temp,
              .pres = &s.pres,
              .dens = &s.dens,
              .qual = &s.qual,
              .inte = &s.inte,
              .enth = &s.enth},
             {.ssnd_eq = &s.ssnd, .compr_t = &single_only});
  if (ierr > status::success) complain(entry.name, first, second, ierr);
  const bool warned = ierr < status::success;
  s.two_phase = warned && ierr == entry.two_phase;
  if (warned && !s.two_phase) ++loose;
  s.pres *= pa_per_kpa;
  s.inte *= j_per_kj;
  s.enth *= j_per_kj;
  return s;
}

}  // namespace

State Fluid::from_tp(const double temp, const double pres) {
  return solve(tp, temp, pres / pa_per_kpa, calls_.loose);
}

State Fluid::from_ph(const double pres, const double enth) {
  ++calls_.ph;
  State s = solve(ph, pres / pa_per_kpa, enth / j_per_kj, calls_.loose);
  s.pres = pres;
  return s;
}

State Fluid::from_ps(const double pres, const double entr) {
  ++calls_.ps;
  State s = solve(ps, pres / pa_per_kpa, entr / j_per_kj, calls_.loose);
  s.pres = pres;
  return s;
}

State Fluid::from_energy(const double dens, const double inte) {
  ++calls_.du;
  State s = solve(du, dens, inte / j_per_kj, calls_.loose);
  s.inte = inte;
  return s;
}

double Fluid::entropy(const State& state) {
  double entr = 0.0;
  std::int32_t ierr = 0;
  co2_properties::co2_td(state.temp, state.dens, ierr, {.entr = &entr});
  if (ierr != status::success) complain("co2_td", state.temp, state.dens, ierr);
  return entr * j_per_kj;
}

}  // namespace flow
