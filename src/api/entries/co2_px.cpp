#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/quality_entry.hpp"

namespace co2_properties {

[[gnu::noinline]] void co2_px(const double pres, const double qual, std::int32_t& ierr,
                              const OutputSets out) noexcept {
  run_quality<PxPair>(pres, qual, ierr, out);
}

// entries: begin, written by scripts/generate_entries
void co2_px(const double& pres_in, const double& qual_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  co2_px(pres_in, qual_in, ierr, OutputSets(out));
}
void co2_px(const double& pres_in, const double& qual_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept {
  co2_px(pres_in, qual_in, ierr, OutputSets(out, &derivatives));
}
// entries: end

}  // namespace co2_properties
