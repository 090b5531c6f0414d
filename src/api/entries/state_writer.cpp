#include "numbers/platform.hpp"

#include "api/entries/state_writer.hpp"

namespace co2_properties {

void zero_outputs(const OutputSet& out) noexcept {
  double* const slots[] = {out.temp, out.pres, out.dens, out.svol, out.qual, out.inte, out.enth,
                           out.entr, out.cv,   out.cp,   out.ssnd, out.visc, out.cond, out.dpdd,
                           out.dpdt, out.dhdd, out.dhdt, out.dsdd, out.dsdt};
  static_assert(sizeof slots == sizeof(OutputSet), "one slot for each output");
  for (double* const slot : slots) {
    if (slot != nullptr) *slot = 0.0;
  }
}

void fail(const std::int32_t code, std::int32_t& ierr, const OutputSet& out) noexcept {
  ierr = code;
  zero_outputs(out);
}

}  // namespace co2_properties
