#include "numbers/platform.hpp"

#include "api/entries/state_writer.hpp"

#include "api/co2_properties.hpp"
#include "co2_properties/limits.hpp"
#include "eos/properties.hpp"
#include "fits/near_critical.hpp"
#include "fits/patch.hpp"
#include "saturation/sat_density.hpp"

namespace co2_properties {
namespace {

double mix(const double liq, const double vap, const double qual) noexcept {
  return (vap - liq) * qual + liq;
}

}  // namespace

double single_phase_quality(const double temp, const double dens, const double mark_pres,
                            const SaturatedDensities& sat) noexcept {
  constexpr double below_crit_pres = 998.0;
  constexpr double above_crit_pres = 999.0;
  if (temp < t_crit) {
    const double dens_liq = sat.liq < 0.0 ? calc_sat_liq_dens(temp) : sat.liq;
    const double dens_vap = sat.vap < 0.0 ? calc_sat_vap_dens(temp) : sat.vap;
    return lever_quality(dens, dens_liq, dens_vap);
  }
  return mark_pres < p_crit ? below_crit_pres : above_crit_pres;
}

void zero_outputs(const OutputSet& out) noexcept {
  double* const slots[] = {out.temp, out.pres, out.dens, out.svol, out.qual, out.inte, out.enth,
                           out.entr, out.cv,   out.cp,   out.ssnd, out.visc, out.cond, out.dpdd,
                           out.dpdt, out.dhdd, out.dhdt, out.dsdd, out.dsdt};
  static_assert(sizeof slots == sizeof(OutputSet), "one slot for each output");
  for (double* const slot : slots) {
    if (slot != nullptr) *slot = 0.0;
  }
}

void fail(const std::int32_t code, std::int32_t& ierr, const OutputSet& out) noexcept {
  ierr = code;
  zero_outputs(out);
}

void write_single_phase(const HelmholtzDerivatives& d, const double temp, const double dens,
                        const double mark_pres, const SaturatedDensities& sat,
                        const OutputSet& out) noexcept {
  const bool near = near_critical_box.contains(temp, dens);
  const bool near_for_cp = near_critical_box_for_cp.contains(temp, dens);
  if (out.temp != nullptr) *out.temp = temp;
  if (out.pres != nullptr) *out.pres = pressure(d, dens);
  if (out.dens != nullptr) *out.dens = dens;
  if (out.svol != nullptr) *out.svol = 1.0 / dens;
  if (out.qual != nullptr) *out.qual = single_phase_quality(temp, dens, mark_pres, sat);
  if (out.inte != nullptr) *out.inte = internal_energy(d, temp);
  if (out.enth != nullptr) *out.enth = enthalpy(d, temp, dens);
  if (out.entr != nullptr) *out.entr = entropy(d);
  if (out.cv != nullptr) {
    *out.cv = near ? evaluate_fit(cv_fit, temp, dens) : isochoric_heat_capacity(d, temp);
  }
  if (out.cp != nullptr) {
    *out.cp =
        near_for_cp ? evaluate_fit(cp_fit, temp, dens) : isobaric_heat_capacity(d, temp, dens);
  }
  if (out.ssnd != nullptr) {
    *out.ssnd = near ? evaluate_fit(sound_speed_fit, temp, dens) : speed_of_sound(d, dens);
  }
  if (out.visc != nullptr) *out.visc = evaluate_fit(viscosity_fit, temp, dens);
  if (out.cond != nullptr) *out.cond = evaluate_fit(conductivity_fit, temp, dens);
  if (out.dpdd != nullptr) *out.dpdd = dpdd(d, dens);
  if (out.dpdt != nullptr) *out.dpdt = dpdt(d, dens);
  if (out.dhdd != nullptr) *out.dhdd = dhdd(d, temp, dens);
  if (out.dhdt != nullptr) *out.dhdt = dhdt(d, temp, dens);
  if (out.dsdd != nullptr) *out.dsdd = dsdd(d);
  if (out.dsdt != nullptr) *out.dsdt = dsdt(d);
}

void write_two_phase(const double temp, const double dens, const double qual,
                     const SaturatedPhase& liq, const SaturatedPhase& vap,
                     const OutputSet& out) noexcept {
  zero_outputs(out);
  if (out.temp != nullptr) *out.temp = temp;
  if (out.pres != nullptr) *out.pres = pressure(vap.d, vap.dens);
  if (out.dens != nullptr) *out.dens = dens;
  if (out.svol != nullptr) *out.svol = 1.0 / dens;
  if (out.qual != nullptr) *out.qual = qual;
  if (out.inte != nullptr) {
    *out.inte = mix(internal_energy(liq.d, temp), internal_energy(vap.d, temp), qual);
  }
  if (out.enth != nullptr) {
    *out.enth = mix(enthalpy(liq.d, temp, liq.dens), enthalpy(vap.d, temp, vap.dens), qual);
  }
  if (out.entr != nullptr) *out.entr = mix(entropy(liq.d), entropy(vap.d), qual);
}

}  // namespace co2_properties
