#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/caloric_entry.hpp"
#include "api/entries/places.hpp"
#include "eos/property_types.hpp"
#include "fits/conductivity.hpp"
#include "fits/viscosity.hpp"
#include "solvers/start_values.hpp"

namespace co2_properties {
namespace {

struct PhEntry {
  using Property = Enthalpy;
  static constexpr CaloricCodes codes = ph_codes;

  // Far outside of any state, also of extrapolated mixtures, kJ/kg.
  static constexpr double least = -1000.0;
  static constexpr double greatest = 5000.0;

  static constexpr auto start = start_from_hp;

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

}  // namespace

CaloricStart place_ph(const double pres, const double enth) noexcept {
  return start_caloric<PhEntry>(pres, enth);
}

void finish_ph(const CaloricStart& start, const double pres, const double enth, std::int32_t& ierr,
               const OutputSet& out) noexcept {
  finish_caloric<PhEntry>(start, pres, enth, ierr, out);
}

void co2_ph(const double& pres_in, const double& enth_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  const double pres = pres_in;  // copies: an output may lie where an input does
  const double enth = enth_in;
  finish_ph(place_ph(pres, enth), pres, enth, ierr, out);
}

}  // namespace co2_properties
