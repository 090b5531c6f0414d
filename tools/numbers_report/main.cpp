// numbers_report: measures the library's own elementary functions against MPFR.

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <limits>
#include <random>

#include "numbers/elementary.hpp"
#include "numbers/lanes.hpp"
#include "numbers/logarithm.hpp"
#include "reference/elementary.hpp"

namespace co2_properties {
namespace {

/// Arguments from 64 random bits.
using Draw = double (*)(std::uint64_t bits);

double fraction(const std::uint64_t bits) { return static_cast<double>(bits >> 11U) * 0x1p-53; }

double any_normal(const std::uint64_t bits) {
  constexpr std::uint64_t smallest = 0x0010000000000000;
  return from_bits<double>(smallest + bits % (0x7ff0000000000000 - smallest));
}
double one_binade(const std::uint64_t bits) { return 0.6875 * (1.0 + fraction(bits)); }
/// Every distance from 1 alike, from 2^-40 to 1/2.
double around_one(const std::uint64_t bits) {
  return 1.0 + (fraction(bits) - 0.5) * std::ldexp(1.0, -static_cast<int>(bits % 40));
}
double density(const std::uint64_t bits) { return 1300.0 * fraction(bits) + 1e-3; }
double three_binades(const std::uint64_t bits) { return 1.0 + 7.0 * fraction(bits); }
double any_cosine(const std::uint64_t bits) { return 1.0 - 2.0 * fraction(bits); }

struct Claim {
  const char* function;
  const char* arguments;
  Draw draw;
  double (*own)(double x);
  long double (*rough)(long double x);      // of the C library
  long double (*reference)(long double x);  // of MPFR
  double bound;                             // units in the last place
};

namespace elementary = reference::elementary;

double own_cube_root(const double x) { return cube_root(x); }
double own_cosine(const double x) { return cosine_of_third(x); }
double own_logarithm(const double x) { return logarithm(x); }

long double rough_cube_root(const long double x) { return std::cbrt(x); }
long double rough_cosine(const long double x) { return std::cos(std::acos(x) / 3.0L); }
long double rough_logarithm(const long double x) { return std::log(x); }
long double cosine(const long double x) { return elementary::cos(elementary::acos(x) / 3.0L); }

constexpr Claim claims[] = {
    {"logarithm", "all exponents", any_normal, own_logarithm, rough_logarithm, elementary::log,
     logarithm_error},
    {"logarithm", "0.6875 to 1.375", one_binade, own_logarithm, rough_logarithm, elementary::log,
     logarithm_error},
    {"logarithm", "around 1", around_one, own_logarithm, rough_logarithm, elementary::log,
     logarithm_error},
    {"logarithm", "densities", density, own_logarithm, rough_logarithm, elementary::log,
     logarithm_error},
    {"cube_root", "1 to 8", three_binades, own_cube_root, rough_cube_root, elementary::cbrt,
     cube_root_error},
    {"cosine_of_third", "-1 to 1", any_cosine, own_cosine, rough_cosine, cosine,
     cosine_of_third_error},
};

/// |value - exact| in units in the last place of `exact`.
double error(const double value, const long double exact) {
  if (exact == 0.0L) return value == 0.0 ? 0.0 : std::numeric_limits<double>::infinity();
  const long double unit = std::ldexp(1.0L, std::ilogb(exact) - 52);
  return static_cast<double>(std::fabs(value - exact) / unit);
}

/// Of the functions of the C library in long double, with room to spare: only what may be the worst
/// is worth a microsecond of MPFR.
constexpr double rough_error = 0.01;

bool report(const std::uint64_t count, const std::uint64_t seed) {
  bool good = true;
  fmt::print("{} arguments each; largest errors in units in the last place\n", count);
  for (const Claim& claim : claims) {
    std::mt19937_64 bits(seed);
    double worst = 0.0;
    double where = 0.0;
    for (std::uint64_t i = 0; i < count; ++i) {
      const double x = claim.draw(bits());
      const double y = claim.own(x);
      if (error(y, claim.rough(x)) + rough_error < worst) continue;
      const double e = error(y, claim.reference(x));
      if (!(e <= worst)) {
        worst = e;
        where = x;
      }
    }
    const bool holds = worst <= claim.bound;
    fmt::print("{:<16} {:<16} {:.4f} at {:<24} bound {:.2f}{}\n", claim.function, claim.arguments,
               worst, where, claim.bound, holds ? "" : "  EXCEEDED");
    good = good && holds;
  }
  return good;
}

int run(const int argc, const char* const* const argv) {
  CLI::App app(
      "Measures the library's own elementary functions. Exit status 1 if a bound is exceeded.",
      "numbers_report");
  std::uint64_t count = 1000000;
  std::uint64_t seed = 1;
  app.add_option("-n,--arguments", count, "Random arguments of each function and range")
      ->type_name("N")
      ->capture_default_str();
  app.add_option("--seed", seed, "Seed of the arguments")->type_name("N")->capture_default_str();
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& wrong) {
    return app.exit(wrong) == 0 ? 0 : 2;
  }
  return report(count, seed) ? 0 : 1;
}

}  // namespace
}  // namespace co2_properties

int main(const int argc, const char* const* const argv) {
  try {
    return co2_properties::run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "numbers_report: %s\n", error.what());
    return 2;
  }
}
