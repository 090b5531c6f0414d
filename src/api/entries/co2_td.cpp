#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/state_writer.hpp"
#include "api/entries/td.hpp"
#include "eos/locate_td.hpp"
#include "saturation/phase.hpp"
#include "saturation/tie_line.hpp"

namespace co2_properties {
namespace {

/// Evaluates and writes a state of one phase in element `e`.
void finish_single(const std::int32_t e, const double temp, const double dens, std::int32_t& ierr,
                   const OutputSets out) noexcept {
  const Element& cell = element(e);
  if (is_beyond(dens - cell.dens0, cell.dens_width))
    return fail(status::td_pres_above_max, ierr, out);
  SinglePhase<double> s = evaluate_td<double>({&cell}, temp, dens, logarithm(dens));
  if (s.mark_pres < pres_min) return fail(status::td_pres_below_min, ierr, out);
  if (s.mark_pres > pres_max) return fail(status::td_pres_above_max, ierr, out);
  s.wanted = true;  // NaN too
  ierr = status::success;
  write_single_phase(OutputWriter(out), &s, 1);
}

void finish_mixture(const double temp, const double dens, std::int32_t& ierr,
                    const OutputSets out) noexcept {
  write_mixture<MixtureTransport::none>(
      OutputWriter(out),
      mixture_from_td(temp, dens, saturated_liquid(temp), saturated_vapour(temp)));
  ierr = code_of_mixture(status::td_two_phase, out);
}

/// All states: limits and phase are decided as documented.
[[gnu::noinline]] void take_stated_road(const double temp, const double dens, std::int32_t& ierr,
                                        const OutputSets out) noexcept {
  if (dens < dens_min) return fail(status::td_pres_below_min, ierr, out);
  if (temp >= t_crit) {
    if (temp > temp_max) return fail(status::td_temp_above_max, ierr, out);
    return finish_single(sc_index_from_td(temp, dens), temp, dens, ierr, out);
  }
  if (temp < temp_min) return fail(status::td_temp_below_min, ierr, out);
  switch (phase_from_td(temp, dens)) {
    case Phase::vapour:
      return finish_single(vap_index_from_td(temp, dens), temp, dens, ierr, out);
    case Phase::liquid:
      return finish_single(liq_index_from_td(temp, dens), temp, dens, ierr, out);
    case Phase::two_phase:
      return finish_mixture(temp, dens, ierr, out);
  }
}

}  // namespace

[[gnu::noinline]] void co2_td(const double temp, const double dens, std::int32_t& ierr,
                              const OutputSets out) noexcept {
  std::int32_t e = 0;
  const TdPlace<double> place = place_td<double>(temp, dens, &e);
  if (place.single) {
    const Cells<double> cells = {&element(e)};
    const SinglePhase<double> s = evaluate_td<double>(cells, temp, dens, logarithm_of_normal(dens));
    if (s.wanted) {
      ierr = status::success;
      return write_single_phase(OutputWriter(out), &s, 1);
    }
  }
  take_stated_road(temp, dens, ierr, out);
}

// entries: begin, written by scripts/generate_entries
void co2_td(const double& temp_in, const double& dens_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  co2_td(temp_in, dens_in, ierr, OutputSets(out));
}
void co2_td(const double& temp_in, const double& dens_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept {
  co2_td(temp_in, dens_in, ierr, OutputSets(out, &derivatives));
}
// entries: end

}  // namespace co2_properties
