#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/caloric_entry.hpp"
#include "api/entries/ph.hpp"

namespace co2_properties {

[[gnu::noinline]] void co2_ph(const double pres, const double enth, std::int32_t& ierr,
                              const OutputSets out) noexcept {
  run_caloric<PhPair>(pres, enth, ierr, out);
}

// entries: begin, written by scripts/generate_entries
void co2_ph(const double& pres_in, const double& enth_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  co2_ph(pres_in, enth_in, ierr, OutputSets(out));
}
void co2_ph(const double& pres_in, const double& enth_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept {
  co2_ph(pres_in, enth_in, ierr, OutputSets(out, &derivatives));
}
// entries: end

}  // namespace co2_properties
