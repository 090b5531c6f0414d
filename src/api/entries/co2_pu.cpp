#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/caloric_entry.hpp"
#include "api/entries/pu.hpp"

namespace co2_properties {

[[gnu::noinline]] void co2_pu(const double pres, const double inte, std::int32_t& ierr,
                              const OutputSets out) noexcept {
  run_caloric<PuPair>(pres, inte, ierr, out);
}

// entries: begin, written by scripts/generate_entries
void co2_pu(const double& pres_in, const double& inte_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  co2_pu(pres_in, inte_in, ierr, OutputSets(out));
}
void co2_pu(const double& pres_in, const double& inte_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept {
  co2_pu(pres_in, inte_in, ierr, OutputSets(out, &derivatives));
}
// entries: end

}  // namespace co2_properties
