#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/caloric_entry.hpp"
#include "api/entries/ps.hpp"

namespace co2_properties {

void co2_ps(const double& pres_in, const double& entr_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  const double pres = pres_in;  // copies: an output may lie where an input does
  const double entr = entr_in;
  run_caloric<PsPair>(pres, entr, ierr, out);
}

}  // namespace co2_properties
