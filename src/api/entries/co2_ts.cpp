#include "numbers/platform.hpp"

#include <limits>

#include "api/co2_properties.hpp"
#include "api/entries/state_writer.hpp"
#include "api/entries/ts.hpp"
#include "saturation/tie_line.hpp"
#include "solvers/isentrope.hpp"

namespace co2_properties {
namespace {

void finish_mixture(const double temp, const double entr, const SaturatedPhase<double>& liq,
                    const SaturatedPhase<double>& vap, std::int32_t& ierr,
                    const OutputSets out) noexcept {
  write_mixture<MixtureTransport::none>(OutputWriter(out),
                                        mixture_from_caloric<Entropy>(temp, entr, liq, vap));
  ierr = code_of_mixture(status::ts_two_phase, out);
}

/// All states: limits and phase are decided as documented.
[[gnu::noinline]] void take_stated_road(const double temp, const double entr, std::int32_t& ierr,
                                        const OutputSets out) noexcept {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  if (!(absolute(temp) < infinity && absolute(entr) < infinity))
    return fail(status::ts_not_converged, ierr, out);
  if (temp < temp_min) return fail(status::ts_temp_below_min, ierr, out);
  if (temp > temp_max) return fail(status::ts_temp_above_max, ierr, out);
  const IsentropePoint at = point_of_isentrope(temp, entr);
  if (at.kind == IsentropePoint::mixture)
    return finish_mixture(temp, entr, at.liq, at.vap, ierr, out);
  if (at.kind == IsentropePoint::lost) return fail(status::ts_not_converged, ierr, out);
  SinglePhase<double> s =
      SinglePhase<double>::of(at.d, temp, at.dens, pressure(at.d, at.dens), true);
  if (at.kind == IsentropePoint::thin || s.mark_pres < pres_min)
    return fail(status::ts_pres_below_min, ierr, out);
  if (at.kind == IsentropePoint::dense || s.mark_pres > pres_max)
    return fail(status::ts_pres_above_max, ierr, out);
  ierr = status::success;
  write_single_phase(OutputWriter(out), &s, 1);
}

}  // namespace

[[gnu::noinline]] void co2_ts(const double temp, const double entr, std::int32_t& ierr,
                              const OutputSets out) noexcept {
  std::int32_t e = 0;
  const TsPlace<double> place = place_ts<double>(temp, entr, &e);
  if (place.mixture) {
    return finish_mixture(temp, entr, saturated_liquid(temp), saturated_vapour(temp), ierr, out);
  }
  if (place.single) {
    const Cells<double> cells = {&element(e)};
    const Isotherm<double> at = isotherm<double, Order::second>(cells, temp);
    const auto dens =
        density_ts<double>(cells, at, place.dens, logarithm_of_normal<double>(place.dens), entr);
    const SinglePhase<double> s =
        evaluate_ts<double>(at, temp, dens, logarithm_of_normal<double>(dens), entr);
    if (s.wanted) {
      ierr = status::success;
      return write_single_phase(OutputWriter(out), &s, 1);
    }
  }
  take_stated_road(temp, entr, ierr, out);
}

// entries: begin, written by scripts/generate_entries
void co2_ts(const double& temp_in, const double& entr_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  co2_ts(temp_in, entr_in, ierr, OutputSets(out));
}
void co2_ts(const double& temp_in, const double& entr_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept {
  co2_ts(temp_in, entr_in, ierr, OutputSets(out, &derivatives));
}
// entries: end

}  // namespace co2_properties
