#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/caloric_entry.hpp"
#include "api/entries/ps.hpp"

namespace co2_properties {

[[gnu::noinline]] void co2_ps(const double pres, const double entr, std::int32_t& ierr,
                              const OutputSets out) noexcept {
  run_caloric<PsPair>(pres, entr, ierr, out);
}

// entries: begin, written by scripts/generate_entries
void co2_ps(const double& pres_in, const double& entr_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  co2_ps(pres_in, entr_in, ierr, OutputSets(out));
}
void co2_ps(const double& pres_in, const double& entr_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept {
  co2_ps(pres_in, entr_in, ierr, OutputSets(out, &derivatives));
}
// entries: end

}  // namespace co2_properties
