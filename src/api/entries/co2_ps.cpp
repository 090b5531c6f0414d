#include "numbers/platform.hpp"

#include "api/entries/caloric_properties.hpp"

namespace co2_properties {

CaloricStart place_ps(const double pres, const double entr) noexcept {
  return start_caloric<Entropy>(pres, entr);
}

void finish_ps(const CaloricStart& start, const double pres, const double entr, std::int32_t& ierr,
               const OutputSet& out) noexcept {
  finish_caloric<Entropy>(start, pres, entr, ierr, out);
}

void co2_ps(const double& pres_in, const double& entr_in, std::int32_t& ierr,
            const OutputSet& out) noexcept {
  const double pres = pres_in;  // copies: an output may lie where an input does
  const double entr = entr_in;
  finish_ps(place_ps(pres, entr), pres, entr, ierr, out);
}

}  // namespace co2_properties
