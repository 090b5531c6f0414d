#pragma once
// Elementary functions of the reference models and of the fits.
//
// Those of the C library, and those of the x87 that it may use for long double, differ in their
// last bits between makers of processors and between versions, and a fit can magnify such a bit
// 1e10 times. In long double they are therefore taken from MPFR and rounded correctly: the same
// bits on every machine. Those in double are the C library's; nothing that goes into a table uses
// them.

#include <cmath>

namespace co2_properties::reference::elementary {

// Exactly rounded everywhere.
using std::fabs;
using std::sqrt;

[[nodiscard]] long double exp(long double x);
[[nodiscard]] long double log(long double x);
[[nodiscard]] long double pow(long double x, long double y);
[[nodiscard]] long double cbrt(long double x);
[[nodiscard]] long double sin(long double x);
[[nodiscard]] long double cos(long double x);
[[nodiscard]] long double acos(long double x);
[[nodiscard]] long double atan(long double x);

[[nodiscard]] inline double exp(const double x) { return std::exp(x); }
[[nodiscard]] inline double log(const double x) { return std::log(x); }
[[nodiscard]] inline double pow(const double x, const double y) { return std::pow(x, y); }
[[nodiscard]] inline double cbrt(const double x) { return std::cbrt(x); }
[[nodiscard]] inline double atan(const double x) { return std::atan(x); }

/// ln x in double, rounded from that in long double.
[[nodiscard]] inline double rounded_log(const double x) {
  return static_cast<double>(log(static_cast<long double>(x)));
}

/// ln x in two parts: its nearest multiple of a power of two, and the rest, rounded.
struct SplitLog {
  double high, low;
};
[[nodiscard]] SplitLog split_log(long double x, double unit);

}  // namespace co2_properties::reference::elementary

namespace co2_properties::tablegen {

namespace elementary = reference::elementary;

}  // namespace co2_properties::tablegen
