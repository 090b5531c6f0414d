// The entries, constants and messages for C. Each hands over to its namesake in C++.
//
// The procedures without a prefix are in a file of their own, so that a program linked with the
// static library gets them only if it calls one.

#include "numbers/platform.hpp"

#include <algorithm>

#include "api/co2_properties.h"
#include "api/co2_properties.hpp"

namespace {

using co2_properties::BatchOutputSet;
using co2_properties::OutputSet;
using co2_properties::StridedSpan;

/// The same nineteen pointers in the same order.
OutputSet from_c(const co2_output_set& out) noexcept {
  return co2_properties::bit_cast<OutputSet>(out);
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

}  // namespace

void co2_td(const double* temp_in, const double* dens_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_td(*temp_in, *dens_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_tp(const double* temp_in, const double* pres_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_tp(*temp_in, *pres_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_ph(const double* pres_in, const double* enth_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_ph(*pres_in, *enth_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_ps(const double* pres_in, const double* entr_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt) {
  co2_properties::co2_ps(*pres_in, *entr_in, *ierr,
                         OutputSet{temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd,
                                   visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt});
}

void co2_td_select(const double* temp_in, const double* dens_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_td(*temp_in, *dens_in, *ierr, from_c(*out));
}

void co2_tp_select(const double* temp_in, const double* pres_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_tp(*temp_in, *pres_in, *ierr, from_c(*out));
}

void co2_ph_select(const double* pres_in, const double* enth_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_ph(*pres_in, *enth_in, *ierr, from_c(*out));
}

void co2_ps_select(const double* pres_in, const double* entr_in, int32_t* ierr,
                   const co2_output_set* out) {
  co2_properties::co2_ps(*pres_in, *entr_in, *ierr, from_c(*out));
}

void co2_td_batch(const size_t* count, const co2_inputs* temp_in, const co2_inputs* dens_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_td_batch(with_length(*temp_in, *count), with_length(*dens_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}

void co2_tp_batch(const size_t* count, const co2_inputs* temp_in, const co2_inputs* pres_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_tp_batch(with_length(*temp_in, *count), with_length(*pres_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}

void co2_ph_batch(const size_t* count, const co2_inputs* pres_in, const co2_inputs* enth_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_ph_batch(with_length(*pres_in, *count), with_length(*enth_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}

void co2_ps_batch(const size_t* count, const co2_inputs* pres_in, const co2_inputs* entr_in,
                  const co2_codes* ierr, const co2_batch_output_set* out) {
  co2_properties::co2_ps_batch(with_length(*pres_in, *count), with_length(*entr_in, *count),
                               with_length(*ierr, *count), with_length(*out, *count));
}

void co2_info(double* tcrit, double* dcrit, double* pcrit, double* tmin, double* tmax, double* pmin,
              double* pmax, double* tsatmin, double* psatmin) {
  co2_properties::co2_info(tcrit, dcrit, pcrit, tmin, tmax, pmin, pmax, tsatmin, psatmin);
}

void co2_error_message(const int32_t* ierr, char* text) {
  const auto message = co2_properties::co2_error_message(*ierr);
  std::copy(message.begin(), message.end(), text);
}
