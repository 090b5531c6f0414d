#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/state_writer.hpp"
#include "api/entries/tp.hpp"
#include "eos/locate_tp.hpp"
#include "saturation/phase.hpp"
#include "solvers/solve_density.hpp"

namespace co2_properties {
namespace {

/// Finds the density from element `e` on, evaluates and writes.
void finish(const std::int32_t e, const double temp, const double pres, std::int32_t& ierr,
            const OutputSets out) noexcept {
  const DensitySolution s = solve_density(e, temp, pres);
  if (!s.converged) return fail(status::tp_not_converged, ierr, out);
  ierr = status::success;
  const auto state = SinglePhase<double>::of(evaluate(s.isotherm, s.dens, logarithm(s.dens)), temp,
                                             s.dens, pres, true);
  write_single_phase(OutputWriter(out), &state, 1);
}

/// All states: limits and phase are decided as documented.
[[gnu::noinline]] void take_stated_road(const double temp, const double pres, std::int32_t& ierr,
                                        const OutputSets out) noexcept {
  if (pres < pres_min) return fail(status::tp_pres_below_min, ierr, out);
  if (pres > pres_max) return fail(status::tp_pres_above_max, ierr, out);
  if (temp < t_crit) {
    if (temp < temp_min) return fail(status::tp_temp_below_min, ierr, out);
    switch (phase_from_tp(temp, pres)) {
      case Phase::vapour:
        return finish(vap_index_from_tp(temp, pres), temp, pres, ierr, out);
      case Phase::liquid:
        return finish(liq_index_from_tp(temp, pres), temp, pres, ierr, out);
      case Phase::two_phase:
        return fail(status::tp_saturated, ierr, out);
    }
  }
  if (temp > temp_max) return fail(status::tp_temp_above_max, ierr, out);
  finish(sc_index_from_tp(temp, pres), temp, pres, ierr, out);
}

}  // namespace

[[gnu::noinline]] void co2_tp(const double temp, const double pres, std::int32_t& ierr,
                              const OutputSets out) noexcept {
  std::int32_t e = 0;
  if (place_tp<double>(temp, pres, &e)) {
    const Cells<double> cells = {&element(e)};
    const Isotherm<double> at = isotherm<double, Order::second>(cells, temp);
    const auto dens = density_tp<double>(cells, at, pres);
    const SinglePhase<double> s =
        evaluate_tp<double>(at, temp, dens, logarithm_of_normal(dens), pres);
    if (s.wanted) {
      ierr = status::success;
      return write_single_phase(OutputWriter(out), &s, 1);
    }
  }
  take_stated_road(temp, pres, ierr, out);
}

// entries: begin, written by scripts/generate_entries
void co2_tp(const double& temp_in, const double& pres_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  co2_tp(temp_in, pres_in, ierr, OutputSets(out));
}
void co2_tp(const double& temp_in, const double& pres_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept {
  co2_tp(temp_in, pres_in, ierr, OutputSets(out, &derivatives));
}
// entries: end

}  // namespace co2_properties
