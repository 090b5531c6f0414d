// The entries, constants and messages for C. Each hands over to its namesake in C++.
//
// The procedures without a prefix are in a file of their own, so that a program linked with the
// static library gets them only if it calls one.

#include "numbers/platform.hpp"

#include <algorithm>

#include "api/co2_properties.h"
#include "api/co2_properties.hpp"

namespace {

using co2_properties::BatchDerivativeSet;
using co2_properties::BatchOutputSet;
using co2_properties::BatchSaturationSet;
using co2_properties::DerivativeSet;
using co2_properties::OutputSet;
using co2_properties::SaturationSet;
using co2_properties::StridedSpan;

/// The same nineteen pointers in the same order.
OutputSet from_c(const co2_output_set& out) noexcept {
  return co2_properties::bit_cast<OutputSet>(out);
}

/// The same of the derivatives.
DerivativeSet from_c(const co2_derivative_set& out) noexcept {
  return co2_properties::bit_cast<DerivativeSet>(out);
}

/// An array for C knows no length: all have that of the batch.
StridedSpan<const double> with_length(const co2_inputs& array, const std::size_t count) noexcept {
  return {array.data, count, array.stride};
}
StridedSpan<double> with_length(const co2_outputs& array, const std::size_t count) noexcept {
  return {array.data, count, array.stride};
}
StridedSpan<std::int32_t> with_length(const co2_codes& array, const std::size_t count) noexcept {
  return {array.data, count, array.stride};
}
BatchOutputSet with_length(const co2_batch_output_set& out, const std::size_t n) noexcept {
  return {
      // outputs: begin, written by scripts/generate_outputs
      .temp = with_length(out.temp, n), .pres = with_length(out.pres, n),
      .dens = with_length(out.dens, n), .svol = with_length(out.svol, n),
      .qual = with_length(out.qual, n), .inte = with_length(out.inte, n),
      .enth = with_length(out.enth, n), .entr = with_length(out.entr, n),
      .cv = with_length(out.cv, n),     .cp = with_length(out.cp, n),
      .ssnd = with_length(out.ssnd, n), .visc = with_length(out.visc, n),
      .cond = with_length(out.cond, n), .dpdd = with_length(out.dpdd, n),
      .dpdt = with_length(out.dpdt, n), .dhdd = with_length(out.dhdd, n),
      .dhdt = with_length(out.dhdt, n), .dsdd = with_length(out.dsdd, n),
      .dsdt = with_length(out.dsdt, n),
      // outputs: end
  };
}
BatchDerivativeSet with_length(const co2_batch_derivative_set& out, const std::size_t n) noexcept {
  return {
      // derivatives: begin, written by scripts/generate_outputs
      .dpdd_u = with_length(out.dpdd_u, n),       .dpdu_d = with_length(out.dpdu_d, n),
      .dtdd_u = with_length(out.dtdd_u, n),       .dtdu_d = with_length(out.dtdu_d, n),
      .dddp_h = with_length(out.dddp_h, n),       .dddh_p = with_length(out.dddh_p, n),
      .dtdp_h = with_length(out.dtdp_h, n),       .dtdh_p = with_length(out.dtdh_p, n),
      .dddp_s = with_length(out.dddp_s, n),       .dtdp_s = with_length(out.dtdp_s, n),
      .dhdd_p = with_length(out.dhdd_p, n),       .dhdp_d = with_length(out.dhdp_d, n),
      .dsdd_p = with_length(out.dsdd_p, n),       .dsdp_d = with_length(out.dsdp_d, n),
      .dpdd_t = with_length(out.dpdd_t, n),       .dpdt_d = with_length(out.dpdt_d, n),
      .cv_eq = with_length(out.cv_eq, n),         .ssnd_eq = with_length(out.ssnd_eq, n),
      .compr_s = with_length(out.compr_s, n),     .compr_t = with_length(out.compr_t, n),
      .expan_p = with_length(out.expan_p, n),     .fundam = with_length(out.fundam, n),
      .dssnddd_t = with_length(out.dssnddd_t, n), .dssnddt_d = with_length(out.dssnddt_d, n),
      .dviscdd_t = with_length(out.dviscdd_t, n), .dviscdt_d = with_length(out.dviscdt_d, n),
      .dconddd_t = with_length(out.dconddd_t, n), .dconddt_d = with_length(out.dconddt_d, n),
      .dqualdd_t = with_length(out.dqualdd_t, n), .dqualdt_d = with_length(out.dqualdt_d, n),
      // derivatives: end
  };
}

/// Calls an entry of saturation with the sets of C as those of C++.
template <class Set, class CSet, class Derivatives, class Convert, class Call>
void with_sets(const CSet& out, const Convert& convert, const Call& call) noexcept {
  Set set = {.liq = convert(out.liq),
             .vap = convert(out.vap),
             .latent_heat = convert(out.latent_heat),
             .dpdt_sat = convert(out.dpdt_sat)};
  Derivatives liq;
  Derivatives vap;
  if (out.liq_derivatives != nullptr) {
    liq = convert(*out.liq_derivatives);
    set.liq_derivatives = &liq;
  }
  if (out.vap_derivatives != nullptr) {
    vap = convert(*out.vap_derivatives);
    set.vap_derivatives = &vap;
  }
  call(set);
}

using SaturationEntry = void (*)(const double&, std::int32_t&, const SaturationSet&) noexcept;
void run_saturation(const SaturationEntry entry, const double given, std::int32_t& ierr,
                    const co2_saturation_set& out) noexcept {
  struct Convert {
    OutputSet operator()(const co2_output_set& set) const noexcept { return from_c(set); }
    DerivativeSet operator()(const co2_derivative_set& set) const noexcept { return from_c(set); }
    double* operator()(double* const slot) const noexcept { return slot; }
  };
  with_sets<SaturationSet, co2_saturation_set, DerivativeSet>(
      out, Convert{}, [&](const SaturationSet& set) { entry(given, ierr, set); });
}

using SaturationBatchEntry = bool (*)(StridedSpan<const double>, StridedSpan<std::int32_t>,
                                      const BatchSaturationSet&) noexcept;
void run_saturation(const SaturationBatchEntry entry, const std::size_t count,
                    const co2_inputs& given, const co2_codes& ierr,
                    const co2_batch_saturation_set& out) noexcept {
  with_sets<BatchSaturationSet, co2_batch_saturation_set, BatchDerivativeSet>(
      out, [&](const auto& set) { return with_length(set, count); },
      [&](const BatchSaturationSet& set) {
        entry(with_length(given, count), with_length(ierr, count), set);
      });
}

}  // namespace

// entries: begin, written by scripts/generate_entries

void co2_td(const double* temp_in, const double* dens_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_td(*temp_in, *dens_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_td_select(const double* temp_in, const double* dens_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_td(*temp_in, *dens_in, *ierr, from_c(*out));
}
void co2_td_batch(const size_t* count, const co2_inputs* temp_in, const co2_inputs* dens_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_td_batch(with_length(*temp_in, *count), with_length(*dens_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_td_derivatives(const double* temp_in, const double* dens_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_td(*temp_in, *dens_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_td_batch_derivatives(const size_t* count, const co2_inputs* temp_in,
                              const co2_inputs* dens_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_td_batch(with_length(*temp_in, *count), with_length(*dens_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}

void co2_tp(const double* temp_in, const double* pres_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_tp(*temp_in, *pres_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_tp_select(const double* temp_in, const double* pres_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_tp(*temp_in, *pres_in, *ierr, from_c(*out));
}
void co2_tp_batch(const size_t* count, const co2_inputs* temp_in, const co2_inputs* pres_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_tp_batch(with_length(*temp_in, *count), with_length(*pres_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_tp_derivatives(const double* temp_in, const double* pres_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_tp(*temp_in, *pres_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_tp_batch_derivatives(const size_t* count, const co2_inputs* temp_in,
                              const co2_inputs* pres_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_tp_batch(with_length(*temp_in, *count), with_length(*pres_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}

void co2_ph(const double* pres_in, const double* enth_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_ph(*pres_in, *enth_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_ph_select(const double* pres_in, const double* enth_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_ph(*pres_in, *enth_in, *ierr, from_c(*out));
}
void co2_ph_batch(const size_t* count, const co2_inputs* pres_in, const co2_inputs* enth_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_ph_batch(with_length(*pres_in, *count), with_length(*enth_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_ph_derivatives(const double* pres_in, const double* enth_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_ph(*pres_in, *enth_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_ph_batch_derivatives(const size_t* count, const co2_inputs* pres_in,
                              const co2_inputs* enth_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_ph_batch(with_length(*pres_in, *count), with_length(*enth_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}

void co2_ps(const double* pres_in, const double* entr_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_ps(*pres_in, *entr_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_ps_select(const double* pres_in, const double* entr_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_ps(*pres_in, *entr_in, *ierr, from_c(*out));
}
void co2_ps_batch(const size_t* count, const co2_inputs* pres_in, const co2_inputs* entr_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_ps_batch(with_length(*pres_in, *count), with_length(*entr_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_ps_derivatives(const double* pres_in, const double* entr_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_ps(*pres_in, *entr_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_ps_batch_derivatives(const size_t* count, const co2_inputs* pres_in,
                              const co2_inputs* entr_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_ps_batch(with_length(*pres_in, *count), with_length(*entr_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}

void co2_du(const double* dens_in, const double* inte_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_du(*dens_in, *inte_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_du_select(const double* dens_in, const double* inte_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_du(*dens_in, *inte_in, *ierr, from_c(*out));
}
void co2_du_batch(const size_t* count, const co2_inputs* dens_in, const co2_inputs* inte_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_du_batch(with_length(*dens_in, *count), with_length(*inte_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_du_derivatives(const double* dens_in, const double* inte_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_du(*dens_in, *inte_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_du_batch_derivatives(const size_t* count, const co2_inputs* dens_in,
                              const co2_inputs* inte_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_du_batch(with_length(*dens_in, *count), with_length(*inte_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}

void co2_dh(const double* dens_in, const double* enth_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_dh(*dens_in, *enth_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_dh_select(const double* dens_in, const double* enth_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_dh(*dens_in, *enth_in, *ierr, from_c(*out));
}
void co2_dh_batch(const size_t* count, const co2_inputs* dens_in, const co2_inputs* enth_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_dh_batch(with_length(*dens_in, *count), with_length(*enth_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_dh_derivatives(const double* dens_in, const double* enth_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_dh(*dens_in, *enth_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_dh_batch_derivatives(const size_t* count, const co2_inputs* dens_in,
                              const co2_inputs* enth_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_dh_batch(with_length(*dens_in, *count), with_length(*enth_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}

void co2_ds(const double* dens_in, const double* entr_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_ds(*dens_in, *entr_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_ds_select(const double* dens_in, const double* entr_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_ds(*dens_in, *entr_in, *ierr, from_c(*out));
}
void co2_ds_batch(const size_t* count, const co2_inputs* dens_in, const co2_inputs* entr_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_ds_batch(with_length(*dens_in, *count), with_length(*entr_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_ds_derivatives(const double* dens_in, const double* entr_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_ds(*dens_in, *entr_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_ds_batch_derivatives(const size_t* count, const co2_inputs* dens_in,
                              const co2_inputs* entr_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_ds_batch(with_length(*dens_in, *count), with_length(*entr_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}

void co2_dp(const double* dens_in, const double* pres_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_dp(*dens_in, *pres_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_dp_select(const double* dens_in, const double* pres_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_dp(*dens_in, *pres_in, *ierr, from_c(*out));
}
void co2_dp_batch(const size_t* count, const co2_inputs* dens_in, const co2_inputs* pres_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_dp_batch(with_length(*dens_in, *count), with_length(*pres_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_dp_derivatives(const double* dens_in, const double* pres_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_dp(*dens_in, *pres_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_dp_batch_derivatives(const size_t* count, const co2_inputs* dens_in,
                              const co2_inputs* pres_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_dp_batch(with_length(*dens_in, *count), with_length(*pres_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}

void co2_hs(const double* enth_in, const double* entr_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_hs(*enth_in, *entr_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_hs_select(const double* enth_in, const double* entr_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_hs(*enth_in, *entr_in, *ierr, from_c(*out));
}
void co2_hs_batch(const size_t* count, const co2_inputs* enth_in, const co2_inputs* entr_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_hs_batch(with_length(*enth_in, *count), with_length(*entr_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_hs_derivatives(const double* enth_in, const double* entr_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_hs(*enth_in, *entr_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_hs_batch_derivatives(const size_t* count, const co2_inputs* enth_in,
                              const co2_inputs* entr_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_hs_batch(with_length(*enth_in, *count), with_length(*entr_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}

void co2_pu(const double* pres_in, const double* inte_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_pu(*pres_in, *inte_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_pu_select(const double* pres_in, const double* inte_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_pu(*pres_in, *inte_in, *ierr, from_c(*out));
}
void co2_pu_batch(const size_t* count, const co2_inputs* pres_in, const co2_inputs* inte_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_pu_batch(with_length(*pres_in, *count), with_length(*inte_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_pu_derivatives(const double* pres_in, const double* inte_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_pu(*pres_in, *inte_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_pu_batch_derivatives(const size_t* count, const co2_inputs* pres_in,
                              const co2_inputs* inte_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_pu_batch(with_length(*pres_in, *count), with_length(*inte_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}

void co2_ts(const double* temp_in, const double* entr_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_ts(*temp_in, *entr_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_ts_select(const double* temp_in, const double* entr_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_ts(*temp_in, *entr_in, *ierr, from_c(*out));
}
void co2_ts_batch(const size_t* count, const co2_inputs* temp_in, const co2_inputs* entr_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_ts_batch(with_length(*temp_in, *count), with_length(*entr_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_ts_derivatives(const double* temp_in, const double* entr_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_ts(*temp_in, *entr_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_ts_batch_derivatives(const size_t* count, const co2_inputs* temp_in,
                              const co2_inputs* entr_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_ts_batch(with_length(*temp_in, *count), with_length(*entr_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}

void co2_tx(const double* temp_in, const double* qual_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_tx(*temp_in, *qual_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_tx_select(const double* temp_in, const double* qual_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_tx(*temp_in, *qual_in, *ierr, from_c(*out));
}
void co2_tx_batch(const size_t* count, const co2_inputs* temp_in, const co2_inputs* qual_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_tx_batch(with_length(*temp_in, *count), with_length(*qual_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_tx_derivatives(const double* temp_in, const double* qual_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_tx(*temp_in, *qual_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_tx_batch_derivatives(const size_t* count, const co2_inputs* temp_in,
                              const co2_inputs* qual_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_tx_batch(with_length(*temp_in, *count), with_length(*qual_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}

void co2_px(const double* pres_in, const double* qual_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_px(*pres_in, *qual_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}
void co2_px_select(const double* pres_in, const double* qual_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_px(*pres_in, *qual_in, *ierr, from_c(*out));
}
void co2_px_batch(const size_t* count, const co2_inputs* pres_in, const co2_inputs* qual_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_px_batch(with_length(*pres_in, *count), with_length(*qual_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}
void co2_px_derivatives(const double* pres_in, const double* qual_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives) {
  co2_properties::co2_px(*pres_in, *qual_in, *ierr, from_c(*out), from_c(*derivatives));
}
void co2_px_batch_derivatives(const size_t* count, const co2_inputs* pres_in,
                              const co2_inputs* qual_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives) {
  co2_properties::co2_px_batch(with_length(*pres_in, *count), with_length(*qual_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count),
                               with_length(*derivatives, *count));
}
// entries: end

void co2_sat_t(const double* temp_in, int32_t* ierr, const co2_saturation_set* out) {
  run_saturation(co2_properties::co2_sat_t, *temp_in, *ierr, *out);
}
void co2_sat_p(const double* pres_in, int32_t* ierr, const co2_saturation_set* out) {
  run_saturation(co2_properties::co2_sat_p, *pres_in, *ierr, *out);
}
void co2_sat_t_batch(const size_t* count, const co2_inputs* temp_in, const co2_codes* ierr,
                     const co2_batch_saturation_set* out) {
  run_saturation(co2_properties::co2_sat_t_batch, *count, *temp_in, *ierr, *out);
}
void co2_sat_p_batch(const size_t* count, const co2_inputs* pres_in, const co2_codes* ierr,
                     const co2_batch_saturation_set* out) {
  run_saturation(co2_properties::co2_sat_p_batch, *count, *pres_in, *ierr, *out);
}

void co2_info(double* tcrit, double* dcrit, double* pcrit, double* tmin, double* tmax, double* pmin,
              double* pmax, double* tsatmin, double* psatmin) {
  co2_properties::co2_info(tcrit, dcrit, pcrit, tmin, tmax, pmin, pmax, tsatmin, psatmin);
}

void co2_error_message(const int32_t* ierr, char* text) {
  const auto message = co2_properties::co2_error_message(*ierr);
  std::copy(message.begin(), message.end(), text);
}
