#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/density_entry.hpp"
#include "api/entries/density_pairs.hpp"

namespace co2_properties {

[[gnu::noinline]] void co2_dp(const double dens, const double pres, std::int32_t& ierr,
                              const OutputSets out) noexcept {
  run_density<DpPair>(dens, pres, ierr, out);
}

// entries: begin, written by scripts/generate_entries
void co2_dp(const double& dens_in, const double& pres_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  co2_dp(dens_in, pres_in, ierr, OutputSets(out));
}
void co2_dp(const double& dens_in, const double& pres_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept {
  co2_dp(dens_in, pres_in, ierr, OutputSets(out, &derivatives));
}
// entries: end

}  // namespace co2_properties
