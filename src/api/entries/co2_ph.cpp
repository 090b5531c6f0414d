#include "numbers/platform.hpp"

#include "api/entries/caloric_properties.hpp"

namespace co2_properties {

CaloricStart place_ph(const double pres, const double enth) noexcept {
  return start_caloric<Enthalpy>(pres, enth);
}

void finish_ph(const CaloricStart& start, const double pres, const double enth, std::int32_t& ierr,
               const OutputSet& out) noexcept {
  finish_caloric<Enthalpy>(start, pres, enth, ierr, out);
}

void co2_ph(const double& pres_in, const double& enth_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  const double pres = pres_in;  // copies: an output may lie where an input does
  const double enth = enth_in;
  finish_ph(place_ph(pres, enth), pres, enth, ierr, out);
}

}  // namespace co2_properties
