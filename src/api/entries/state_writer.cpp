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

void zero_derivatives(const DerivativeSet& derivatives) noexcept {
  double* const slots[] = {
      // derivatives: begin, written by scripts/generate_outputs
      derivatives.dpdd_u,    derivatives.dpdu_d,    derivatives.dtdd_u,    derivatives.dtdu_d,
      derivatives.dddp_h,    derivatives.dddh_p,    derivatives.dtdp_h,    derivatives.dtdh_p,
      derivatives.dddp_s,    derivatives.dtdp_s,    derivatives.dhdd_p,    derivatives.dhdp_d,
      derivatives.dsdd_p,    derivatives.dsdp_d,    derivatives.dpdd_t,    derivatives.dpdt_d,
      derivatives.cv_eq,     derivatives.ssnd_eq,   derivatives.compr_s,   derivatives.compr_t,
      derivatives.expan_p,   derivatives.fundam,    derivatives.dssnddd_t, derivatives.dssnddt_d,
      derivatives.dviscdd_t, derivatives.dviscdt_d, derivatives.dconddd_t, derivatives.dconddt_d,
      derivatives.dqualdd_t, derivatives.dqualdt_d,
      // derivatives: end
  };
  static_assert(sizeof slots == sizeof(DerivativeSet), "one slot for each derivative");
  for (double* const slot : slots) {
    if (slot != nullptr) *slot = 0.0;
  }
}

void fail(const std::int32_t code, std::int32_t& ierr, const OutputSets out) noexcept {
  ierr = code;
  zero_outputs(out.state);
  if (out.derivatives != nullptr) zero_derivatives(*out.derivatives);
}

}  // namespace co2_properties
