// Entries with fixed arguments for callers that cannot leave any out. Only here does the library
// print and end the process.

#include "numbers/platform.hpp"

#include <array>
#include <cstdio>
#include <cstdlib>

#include "api/co2_properties.hpp"

namespace {

/// uPa s to Pa s: 1e-6 in single precision, as these entries have always multiplied.
constexpr double pa_s = 9.999999974752427e-7;
static_assert(pa_s == double{1e-6F});

/// Prints why, each record behind one blank, and ends the process like a program that is done.
[[noreturn]] void stop(const std::int32_t ierr) {
  const std::array<char, 255> text = co2_properties::co2_error_message(ierr);
  std::printf(" error in FIT - stopping\n %.*s\n", static_cast<int>(text.size()), text.data());
  std::exit(EXIT_SUCCESS);
}

}  // namespace

void fittp_(const double* temp, const double* pres, double* enth, double* dens, double* cv,
            double* cp, double* cond, double* visc) {
  std::int32_t ierr = 0;
  co2_properties::co2_tp(
      *temp, *pres, ierr,
      {.dens = dens, .enth = enth, .cv = cv, .cp = cp, .visc = visc, .cond = cond});
  if (ierr > 0) stop(ierr);
  *visc *= pa_s;
}

void fitph_(const double* pres, const double* enth, double* temp, double* dens, double* cv,
            double* cp, double* cond, double* visc, double* qual) {
  std::int32_t ierr = 0;
  co2_properties::co2_ph(
      *pres, *enth, ierr,
      {.temp = temp, .dens = dens, .qual = qual, .cv = cv, .cp = cp, .visc = visc, .cond = cond});
  if (ierr > 0) stop(ierr);
  *visc *= pa_s;
  if (*qual > 1.0) {
    *qual = 1.0;
  } else if (*qual < 0.0) {
    *qual = 0.0;
  }
}
