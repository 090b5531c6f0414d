#include "reference/elementary.hpp"

#include <mpfr.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

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

/// MPFR keeps constants and memory for each thread until it is told that the thread ends.
struct CachesOfThread {
  CachesOfThread() = default;
  CachesOfThread(const CachesOfThread&) = delete;
  CachesOfThread& operator=(const CachesOfThread&) = delete;
  ~CachesOfThread() { mpfr_free_cache(); }
};

/// The results of one function for the arguments that came last. States are sampled on grids and
/// iterations stay on isotherms, so that most arguments come again, and a call costs 1 to 3 us.
template <class Arguments>
class Memo {
 public:
  /// \param compute  result for arguments that are not known
  template <class Compute>
  long double operator()(const Arguments& arguments, const Compute& compute) {
    Entry& entry = entries_[place(arguments)];
    if (!entry.known || entry.arguments != arguments) entry = {true, arguments, compute()};
    return entry.result;
  }

 private:
  struct Entry {
    bool known;
    Arguments arguments;
    long double result;
  };
  static constexpr unsigned index_bits = 12;

  static std::size_t place(const Arguments& arguments) noexcept {
    std::uint64_t hash = 0;
    for (const long double x : arguments) {
      std::uint64_t mantissa{};
      std::memcpy(&mantissa, &x, sizeof mantissa);
      hash = (hash ^ mantissa) * 0x9e3779b97f4a7c15U;
    }
    return hash >> (64 - index_bits);
  }

  std::vector<Entry> entries_{std::size_t{1} << index_bits};
};

template <auto function, class... Reals>
long double call(const Reals... arguments) {
  thread_local const CachesOfThread caches;
  thread_local Memo<std::array<long double, sizeof...(Reals)>> memo;
  return memo({arguments...}, [&] {
    Number result;
    function(result.get(), Number(arguments).get()..., MPFR_RNDN);
    return result.rounded();
  });
}

}  // namespace

long double exp(const long double x) { return call<mpfr_exp>(x); }
long double log(const long double x) { return call<mpfr_log>(x); }
long double cbrt(const long double x) { return call<mpfr_cbrt>(x); }
long double sin(const long double x) { return call<mpfr_sin>(x); }
long double cos(const long double x) { return call<mpfr_cos>(x); }
long double acos(const long double x) { return call<mpfr_acos>(x); }
long double atan(const long double x) { return call<mpfr_atan>(x); }

long double pow(const long double x, const long double y) { return call<mpfr_pow>(x, y); }

SplitLog split_log(const long double x, const double unit) {
  const CachesOfThread caches;
  mpfr_t log;
  mpfr_init2(log, 256);
  mpfr_set_ld(log, x, MPFR_RNDN);
  mpfr_log(log, log, MPFR_RNDN);
  mpfr_t high;
  mpfr_init2(high, 256);
  mpfr_div_d(high, log, unit, MPFR_RNDN);
  mpfr_rint(high, high, MPFR_RNDN);
  mpfr_mul_d(high, high, unit, MPFR_RNDN);
  mpfr_sub(log, log, high, MPFR_RNDN);
  const SplitLog split = {mpfr_get_d(high, MPFR_RNDN), mpfr_get_d(log, MPFR_RNDN)};
  mpfr_clears(log, high, static_cast<mpfr_ptr>(nullptr));
  return split;
}

}  // namespace co2_properties::reference::elementary
