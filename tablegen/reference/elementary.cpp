#include "tablegen/reference/elementary.hpp"

#include <mpfr.h>

#include <limits>

// The rest of the arithmetic is that of IEEE 754, the same in every implementation of a format;
// this is the format for which the tables are made.
static_assert(std::numeric_limits<long double>::digits == 64,
              "tables are made in the 80-bit long double of x86 processors");

namespace co2_properties::reference::elementary {
namespace {

/// A number of MPFR with the digits of a long double, in memory of its own.
class Number {
 public:
  Number() noexcept {
    mpfr_custom_init(limbs_, digits);
    mpfr_custom_init_set(value_, MPFR_NAN_KIND, 0, digits, limbs_);
  }
  explicit Number(const long double x) noexcept : Number() { mpfr_set_ld(value_, x, MPFR_RNDN); }
  // It points into itself.
  Number(const Number&) = delete;
  Number& operator=(const Number&) = delete;

  [[nodiscard]] mpfr_ptr get() noexcept { return value_; }
  [[nodiscard]] long double rounded() const noexcept { return mpfr_get_ld(value_, MPFR_RNDN); }

 private:
  static constexpr mpfr_prec_t digits = std::numeric_limits<long double>::digits;
  mp_limb_t limbs_[(digits + GMP_NUMB_BITS - 1) / GMP_NUMB_BITS];
  mpfr_t value_;
};

template <int (*function)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t)>
long double call(const long double x) {
  Number argument(x);
  Number result;
  function(result.get(), argument.get(), MPFR_RNDN);
  return result.rounded();
}

}  // namespace

long double exp(const long double x) { return call<mpfr_exp>(x); }
long double log(const long double x) { return call<mpfr_log>(x); }
long double cbrt(const long double x) { return call<mpfr_cbrt>(x); }
long double sin(const long double x) { return call<mpfr_sin>(x); }
long double cos(const long double x) { return call<mpfr_cos>(x); }
long double acos(const long double x) { return call<mpfr_acos>(x); }
long double atan(const long double x) { return call<mpfr_atan>(x); }

long double pow(const long double x, const long double y) {
  Number base(x);
  Number exponent(y);
  Number result;
  mpfr_pow(result.get(), base.get(), exponent.get(), MPFR_RNDN);
  return result.rounded();
}

}  // namespace co2_properties::reference::elementary
