#pragma once
// Enthalpy and entropy as `caloric_entry` takes them.

#include <cmath>
#include <cstdint>

#include "api/co2_properties.hpp"
#include "api/entries/caloric_entry.hpp"
#include "api/entries/places.hpp"
#include "solvers/inverse_cell.hpp"

namespace co2_properties {

/// The two halves of `co2_ph` and `co2_ps`: `start_caloric`, for pressure, kPa, and enthalpy or
/// entropy, and `finish_caloric`.
[[nodiscard]] CaloricStart place_ph(double pres, double enth) noexcept;
void finish_ph(const CaloricStart& start, double pres, double enth, std::int32_t& ierr,
               const OutputSet& out) noexcept;
[[nodiscard]] CaloricStart place_ps(double pres, double entr) noexcept;
void finish_ps(const CaloricStart& start, double pres, double entr, std::int32_t& ierr,
               const OutputSet& out) noexcept;

struct Enthalpy {
  static constexpr CaloricCodes codes = {status::ph_temp_below_min,   status::ph_temp_above_max,
                                         status::ph_pres_below_min,   status::ph_pres_above_max,
                                         status::ph_not_converged,    status::ph_two_phase,
                                         status::ph_loosely_converged};

  // Far outside of any state, also of extrapolated mixtures, kJ/kg.
  static constexpr double least = -1000.0;
  static constexpr double greatest = 5000.0;

  static constexpr SingleEntry entry = co2_ph;
  static constexpr auto place = place_ph;
  static constexpr auto finish = finish_ph;

  static bool start(const double enth, const double pres, double& temp, double& dens) noexcept {
    const InverseCell& cell = find_inverse_cell(temp_from_hp_fit, pres, enth);
    temp = evaluate_in_enthalpy(cell, pres, enth);
    dens = evaluate_in_enthalpy(find_inverse_cell(dens_from_hp_fit, pres, enth), pres, enth);
    return cell.saturation_check != 0;
  }
  template <class Derivatives, class Real>
  [[gnu::always_inline]] static Real value(const Derivatives& d, const Real& temp,
                                           const Real& dens) noexcept {
    return enthalpy(d, temp, dens);
  }
  template <class Derivatives, class Real>
  [[gnu::always_inline]] static Real by_dens(const Derivatives& d, const Real& temp,
                                             const Real& dens) noexcept {
    return dhdd(d, temp, dens);
  }
  template <class Derivatives, class Real>
  [[gnu::always_inline]] static Real by_temp(const Derivatives& d, const Real& temp,
                                             const Real& dens) noexcept {
    return dhdt(d, temp, dens);
  }

  /// Viscosity and conductivity of a mixture are those of its phases weighted by quality; they
  /// raise no warning.
  static std::int32_t write_mixture(const double temp, const double dens, const double qual,
                                    const SaturatedPhase& liq, const SaturatedPhase& vap,
                                    const OutputSet& out) noexcept {
    write_two_phase(temp, dens, qual, liq, vap, out);
    const auto mix = [&](void (*property)(const double&, const double&, double&) noexcept,
                         double* result) {
      if (result == nullptr) return;
      double of_liq = 0.0;
      double of_vap = 0.0;
      property(liq.dens, temp, of_liq);
      property(vap.dens, temp, of_vap);
      *result = of_liq + qual * (of_vap - of_liq);
    };
    mix(calculate_visc, out.visc);
    mix(calculate_cond, out.cond);
    return wants_cv_cp_ssnd(out) ? codes.two_phase : status::success;
  }
};

struct Entropy {
  static constexpr CaloricCodes codes = {status::ps_temp_below_min,   status::ps_temp_above_max,
                                         status::ps_pres_below_min,   status::ps_pres_above_max,
                                         status::ps_not_converged,    status::ps_two_phase,
                                         status::ps_loosely_converged};

  // Far outside of any state, also of extrapolated mixtures, kJ/(kg K).
  static constexpr double least = -5.0;
  static constexpr double greatest = 15.0;

  static constexpr SingleEntry entry = co2_ps;
  static constexpr auto place = place_ps;
  static constexpr auto finish = finish_ps;

  static bool start(const double entr, const double pres, double& temp, double& dens) noexcept {
    const InverseCell& cell = find_inverse_cell(temp_from_sp_fit, pres, entr);
    const double log_pres = std::log(pres);
    temp = evaluate_in_entropy(cell, pres, log_pres, entr);
    dens =
        evaluate_in_entropy(find_inverse_cell(dens_from_sp_fit, pres, entr), pres, log_pres, entr);
    return cell.saturation_check != 0;
  }
  template <class Derivatives, class Real>
  [[gnu::always_inline]] static Real value(const Derivatives& d, const Real& /*temp*/,
                                           const Real& /*dens*/) noexcept {
    return entropy(d);
  }
  template <class Derivatives, class Real>
  [[gnu::always_inline]] static Real by_dens(const Derivatives& d, const Real& /*temp*/,
                                             const Real& /*dens*/) noexcept {
    return dsdd(d);
  }
  template <class Derivatives, class Real>
  [[gnu::always_inline]] static Real by_temp(const Derivatives& d, const Real& /*temp*/,
                                             const Real& /*dens*/) noexcept {
    return dsdt(d);
  }

  /// Unlike in `co2_ph`, transport properties of a mixture stay zero and raise the warning.
  static std::int32_t write_mixture(const double temp, const double dens, const double qual,
                                    const SaturatedPhase& liq, const SaturatedPhase& vap,
                                    const OutputSet& out) noexcept {
    write_two_phase(temp, dens, qual, liq, vap, out);
    return wants_cv_cp_ssnd(out) || wants_transport(out) ? codes.two_phase : status::success;
  }
};

}  // namespace co2_properties
