#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/caloric_entry.hpp"
#include "api/entries/places.hpp"
#include "eos/property_types.hpp"
#include "solvers/start_values.hpp"

namespace co2_properties {
namespace {

struct PsEntry {
  using Property = Entropy;
  static constexpr CaloricCodes codes = ps_codes;

  // Far outside of any state, also of extrapolated mixtures, kJ/(kg K).
  static constexpr double least = -5.0;
  static constexpr double greatest = 15.0;

  static constexpr auto start = start_from_sp;

  /// Unlike in `co2_ph`, transport properties of a mixture stay zero and raise the warning.
  static std::int32_t write_mixture(const double temp, const double dens, const double qual,
                                    const SaturatedPhase& liq, const SaturatedPhase& vap,
                                    const OutputSet& out) noexcept {
    write_two_phase(temp, dens, qual, liq, vap, out);
    return wants_cv_cp_ssnd(out) || wants_transport(out) ? codes.two_phase : status::success;
  }
};

}  // namespace

CaloricStart place_ps(const double pres, const double entr) noexcept {
  return start_caloric<PsEntry>(pres, entr);
}

void finish_ps(const CaloricStart& start, const double pres, const double entr, std::int32_t& ierr,
               const OutputSet& out) noexcept {
  finish_caloric<PsEntry>(start, pres, entr, ierr, out);
}

void co2_ps(const double& pres_in, const double& entr_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  const double pres = pres_in;  // copies: an output may lie where an input does
  const double entr = entr_in;
  finish_ps(place_ps(pres, entr), pres, entr, ierr, out);
}

}  // namespace co2_properties
