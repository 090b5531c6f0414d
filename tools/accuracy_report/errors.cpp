#include "accuracy_report/errors.hpp"

#include <cmath>
#include <cstdint>

#include "api/co2_properties.hpp"
#include "fits/patch.hpp"
#include "reference/conductivity.hpp"
#include "reference/span_wagner.hpp"
#include "reference/viscosity.hpp"

namespace co2_properties::accuracy {
namespace {

double relative(const double value, const long double expected) {
  return static_cast<double>(value / expected - 1.0L);
}

std::string patch_name(const char* table, const PatchFit& fit, const double temp,
                       const double dens) {
  return std::string(table) + " patch " + std::to_string(fit.map->find(temp, dens));
}

}  // namespace

std::optional<StateErrors> measure(const double temp, const double dens) {
  std::int32_t ierr = 0;
  double p, h, s, cv_td, cp_td, w, eta, lambda, p_d, p_t, h_d, h_t, s_d, s_t;
  co2_td(temp, dens, ierr,
         {.pres = &p,
          .enth = &h,
          .entr = &s,
          .cv = &cv_td,
          .cp = &cp_td,
          .ssnd = &w,
          .visc = &eta,
          .cond = &lambda,
          .dpdd = &p_d,
          .dpdt = &p_t,
          .dhdd = &h_d,
          .dhdt = &h_t,
          .dsdd = &s_d,
          .dsdt = &s_t});
  if (ierr != status::success) return std::nullopt;

  const auto ref = reference::properties<long double>(temp, dens);
  const long double slope = dens * ref.dpdd;
  StateErrors e{temp, dens, ref.dpdd > 0.0L, {}};
  e.error[Quantity::dens] = static_cast<double>((p - ref.p) / slope);
  e.error[pres] = relative(p, ref.p);
  e.error[enth] = static_cast<double>(h - ref.h);
  e.error[entr] = static_cast<double>(s - ref.s);
  e.error[cv] = relative(cv_td, ref.cv);
  e.error[cp] = relative(cp_td, ref.cp);
  e.error[ssnd] = relative(w, ref.w);
  e.error[visc] = relative(eta, reference::viscosity<long double>(temp, dens));
  e.error[cond] = relative(lambda, reference::conductivity<long double>(temp, dens));
  e.error[dpdd] = relative(p_d, ref.dpdd);
  e.error[dpdt] = relative(p_t, ref.dpdt);
  const long double h_d_scale = (std::abs(ref.dpdd) + temp / dens * std::abs(ref.dpdt)) / dens;
  e.error[dhdd] = static_cast<double>((h_d - ref.dhdd) / h_d_scale);
  e.error[dhdt] = relative(h_t, ref.dhdt);
  e.error[dsdd] = relative(s_d, ref.dsdd);
  e.error[dsdt] = relative(s_t, ref.dsdt);
  return e;
}

std::int32_t element_of(const double temp, const double dens) {
  if (temp >= t_crit) return sc_index_from_td(temp, dens);
  return dens >= calc_sat_liq_dens(temp) ? liq_index_from_td(temp, dens)
                                         : vap_index_from_td(temp, dens);
}

std::string cell_name(const Quantity quantity, const double temp, const double dens) {
  // cv, cp and w come from a patch exactly where the entry gives the value of the patch.
  const auto from_patch = [&](double* OutputSet::*const output, const auto& calculate) {
    std::int32_t ierr = 0;
    double value = 0.0;
    OutputSet out;
    out.*output = &value;
    co2_td(temp, dens, ierr, out);
    double patch_value = 0.0;
    calculate(dens, temp, patch_value);
    return value == patch_value;
  };
  switch (quantity) {
    case cv:
      if (from_patch(&OutputSet::cv, calculate_cv)) return patch_name("cv", cv_fit, temp, dens);
      break;
    case cp:
      if (from_patch(&OutputSet::cp, calculate_cp)) return patch_name("cp", cp_fit, temp, dens);
      break;
    case ssnd:
      if (from_patch(&OutputSet::ssnd, calculate_ssnd)) {
        return patch_name("w", sound_speed_fit, temp, dens);
      }
      break;
    case visc:
      return patch_name("viscosity", viscosity_fit, temp, dens);
    case cond:
      return patch_name("conductivity", conductivity_fit, temp, dens);
    default:
      break;
  }
  return "element " + std::to_string(element_of(temp, dens));
}

}  // namespace co2_properties::accuracy
