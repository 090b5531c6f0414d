#include "brayton/fluid.hpp"

#include <fmt/format.h>

#include <cstdint>
#include <string>

#include "co2_properties.hpp"

namespace brayton {
namespace {

using co2_properties::OutputSet;
namespace status = co2_properties::status;

/// Any of the entries.
using Entry = void (*)(const double&, const double&, std::int32_t&, const OutputSet&) noexcept;

void call(const Entry entry, const char* const name, const double first, const double second,
          const OutputSet& out) {
  std::int32_t ierr = 0;
  entry(first, second, ierr, out);
  // Without cp and ssnd a mixture is still a state of the cycle.
  if (ierr == status::success || ierr == status::ph_two_phase || ierr == status::ps_two_phase) {
    return;
  }
  const auto text = co2_properties::co2_error_message(ierr);
  std::string message(text.begin(), text.end());
  message.erase(message.find_last_not_of(' ') + 1);
  throw StateError(fmt::format("{}({}, {}): {} {}: {}", name, first, second,
                               ierr < 0 ? "warning" : "error", ierr, message));
}

State state(const Entry entry, const char* const name, const double first, const double second) {
  State s;
  call(entry, name, first, second,
       {.temp = &s.temp,
        .pres = &s.pres,
        .dens = &s.dens,
        .enth = &s.enth,
        .entr = &s.entr,
        .cp = &s.cp,
        .ssnd = &s.ssnd});
  return s;
}

}  // namespace

State state_tp(const double temp, const double pres) {
  return state(co2_properties::co2_tp, "co2_tp", temp, pres);
}

State state_ph(const double pres, const double enth) {
  return state(co2_properties::co2_ph, "co2_ph", pres, enth);
}

State state_ps(const double pres, const double entr) {
  return state(co2_properties::co2_ps, "co2_ps", pres, entr);
}

double temp_from_ph(const double pres, const double enth) {
  double temp = 0.0;
  call(co2_properties::co2_ph, "co2_ph", pres, enth, {.temp = &temp});
  return temp;
}

State saturated_liquid(const double temp) {
  return state(co2_properties::co2_td, "co2_td", temp, co2_properties::calc_sat_liq_dens(temp));
}

State saturated_vapour(const double temp) {
  return state(co2_properties::co2_td, "co2_td", temp, co2_properties::calc_sat_vap_dens(temp));
}

}  // namespace brayton
