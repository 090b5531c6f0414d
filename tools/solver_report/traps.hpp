#pragma once
// Traps for the floating-point exceptions that no entry raises.

#include <cfenv>

namespace co2_properties::solver_report {

inline constexpr int unwanted_exceptions = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW;

/// Clears their flags and, if wanted, lets them end the process while it lives; the latter without
/// effect where the C library cannot.
class Traps {
 public:
  explicit Traps(const bool wanted) {
    std::feclearexcept(unwanted_exceptions);
#if defined(__GLIBC__) && (defined(__x86_64__) || defined(__i386__))
    if (wanted) feenableexcept(unwanted_exceptions);
#endif
  }
  ~Traps() {
#if defined(__GLIBC__) && (defined(__x86_64__) || defined(__i386__))
    fedisableexcept(unwanted_exceptions);
#endif
  }
  Traps(const Traps&) = delete;
  Traps& operator=(const Traps&) = delete;
};

}  // namespace co2_properties::solver_report
