#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/saturation.hpp"

namespace co2_properties {
namespace {

void write_phase(const OutputSets out, const SinglePhase<double>* const s,
                 const std::int32_t /*groups*/) noexcept {
  write_single_phase(OutputWriter(out), s, 1);
}

template <class Given>
void run_saturation(const double given, const SaturationCodes& codes, std::int32_t& ierr,
                    const SaturationSet& out) noexcept {
  const SaturationOutputs outputs = {OutputSets(out.liq, out.liq_derivatives),
                                     OutputSets(out.vap, out.vap_derivatives), out.latent_heat,
                                     out.dpdt_sat};
  const std::int32_t code = code_on_line<Given>(given, codes);
  if (code != status::success) {
    fail(code, ierr, outputs.liq);
    fail(code, ierr, outputs.vap);
    for (double* const slot : {out.latent_heat, out.dpdt_sat}) {
      if (slot != nullptr) *slot = 0.0;
    }
    return;
  }
  const auto state = Given::state(given, TieLine<double>::at);
  SinglePhase<double> room;
  write_saturation(outputs, &state, 1, &room, write_phase);
  ierr = status::success;
}

}  // namespace

void co2_sat_t(const double& temp_in, std::int32_t& ierr, const SaturationSet& out) noexcept {
  run_saturation<GivenTemperature>(
      temp_in,
      {status::sat_t_temp_below_min, status::sat_t_temp_above_max, status::sat_t_not_a_number},
      ierr, out);
}

void co2_sat_p(const double& pres_in, std::int32_t& ierr, const SaturationSet& out) noexcept {
  run_saturation<GivenPressure>(
      pres_in,
      {status::sat_p_pres_below_min, status::sat_p_pres_above_max, status::sat_p_not_a_number},
      ierr, out);
}

}  // namespace co2_properties
