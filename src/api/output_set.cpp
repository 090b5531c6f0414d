#include "numbers/platform.hpp"

#include "co2_properties/output_set.hpp"

#include "api/co2_properties.hpp"

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

void zero_outputs(double* temp, double* pres, double* dens, double* svol, double* qual,
                  double* inte, double* enth, double* entr, double* cv, double* cp, double* ssnd,
                  double* visc, double* cond, double* dpdd, double* dpdt, double* dhdd,
                  double* dhdt, double* dsdd, double* dsdt) noexcept {
  zero_outputs(OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond,
                         dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}

}  // namespace co2_properties
