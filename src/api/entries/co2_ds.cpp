#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/density_entry.hpp"
#include "api/entries/density_pairs.hpp"

namespace co2_properties {

[[gnu::noinline]] void co2_ds(const double dens, const double entr, std::int32_t& ierr,
                              const OutputSets out) noexcept {
  run_density<DsPair>(dens, entr, ierr, out);
}

// entries: begin, written by scripts/generate_entries
void co2_ds(const double& dens_in, const double& entr_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  co2_ds(dens_in, entr_in, ierr, OutputSets(out));
}
void co2_ds(const double& dens_in, const double& entr_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept {
  co2_ds(dens_in, entr_in, ierr, OutputSets(out, &derivatives));
}
// entries: end

}  // namespace co2_properties
