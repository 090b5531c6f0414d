#include "numbers/platform.hpp"

#include "api/co2_properties.hpp"
#include "api/entries/caloric_entry.hpp"
#include "api/entries/ph.hpp"

namespace co2_properties {

void co2_ph(const double& pres_in, const double& enth_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  const double pres = pres_in;  // copies: an output may lie where an input does
  const double enth = enth_in;
  run_caloric<PhPair>(pres, enth, ierr, out);
}

}  // namespace co2_properties
