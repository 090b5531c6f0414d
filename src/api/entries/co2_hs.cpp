#include "numbers/platform.hpp"

#include <limits>

#include "api/co2_properties.hpp"
#include "api/entries/hs.hpp"
#include "api/entries/rounds.hpp"
#include "solvers/isentrope.hpp"

namespace co2_properties {
namespace {

void finish_mixture(const double temp, const double entr, const SaturatedPhase<double>& liq,
                    const SaturatedPhase<double>& vap, std::int32_t& ierr,
                    const OutputSets out) noexcept {
  write_mixture<MixtureTransport::none>(OutputWriter(out),
                                        mixture_from_caloric<Entropy>(temp, entr, liq, vap));
  ierr = code_of_mixture(status::hs_two_phase, out);
}

/// Steps towards the tie line of a mixture, none for nearly all. \return whether it was found and
/// written
bool finish_on_tie_line(const double enth, const double entr, std::int32_t& ierr,
                        const OutputSets out) noexcept {
  constexpr std::int32_t most_steps = 3;
  auto temp = tie_line_start<Entropy, Enthalpy>(entr, enth);
  for (std::int32_t k = 0; k <= most_steps; ++k) {
    const SaturatedPhase<double> liq = saturated_liquid(temp);
    const SaturatedPhase<double> vap = saturated_vapour(temp);
    const auto [next, met] = step_hs_mixture<double>(temp, liq, vap, enth, entr);
    if (met) {
      finish_mixture(temp, entr, liq, vap, ierr, out);
      return true;
    }
    temp = next;
  }
  return false;
}

/// All states: limits and phase are decided as documented.
[[gnu::noinline]] void take_stated_road(const double enth, const double entr, std::int32_t& ierr,
                                        const OutputSets out) noexcept {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  if (!(absolute(enth) < infinity && absolute(entr) < infinity))
    return fail(status::hs_not_converged, ierr, out);
  const IsentropeState s = state_on_isentrope(enth, entr);
  if (s.beyond == IsentropeState::colder) return fail(status::hs_temp_below_min, ierr, out);
  if (s.beyond == IsentropeState::hotter) return fail(status::hs_temp_above_max, ierr, out);
  const IsentropePoint& at = s.at;
  if (at.kind == IsentropePoint::mixture)
    return finish_mixture(s.temp, entr, at.liq, at.vap, ierr, out);
  if (at.kind == IsentropePoint::lost) return fail(status::hs_not_converged, ierr, out);
  const auto state = SinglePhase<double>::of(at.d, s.temp, at.dens, pressure(at.d, at.dens), true);
  if (at.kind == IsentropePoint::thin || state.mark_pres < pres_min)
    return fail(status::hs_pres_below_min, ierr, out);
  if (at.kind == IsentropePoint::dense || state.mark_pres > pres_max)
    return fail(status::hs_pres_above_max, ierr, out);
  ierr = status::success;
  write_single_phase(OutputWriter(out), &state, 1);
}

}  // namespace

[[gnu::noinline]] void co2_hs(const double enth, const double entr, std::int32_t& ierr,
                              const OutputSets out) noexcept {
  const HsPlace<double> place = place_hs<double>(enth, entr);
  if (place.mixture && finish_on_tie_line(enth, entr, ierr, out)) return;
  if (place.single) {
    const auto evaluated = [&](const Cells<double>& cells, const Iterate<double>& at)
                               CO2_INLINE { return evaluate_hs<double>(cells, at, enth, entr); };
    if (finish_in_rounds<Enthalpy, Entropy>(place.temp, place.dens, enth, entr, evaluated, out)) {
      ierr = status::success;
      return;
    }
  }
  take_stated_road(enth, entr, ierr, out);
}

// entries: begin, written by scripts/generate_entries
void co2_hs(const double& enth_in, const double& entr_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  co2_hs(enth_in, entr_in, ierr, OutputSets(out));
}
void co2_hs(const double& enth_in, const double& entr_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept {
  co2_hs(enth_in, entr_in, ierr, OutputSets(out, &derivatives));
}
// entries: end

}  // namespace co2_properties
