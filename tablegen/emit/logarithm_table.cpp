#include "numbers/platform.hpp"

#include "tablegen/emit/logarithm_table.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numbers>
#include <string>
#include <vector>

#include "numbers/logarithm.hpp"
#include "reference/elementary.hpp"
#include "tablegen/emit/number.hpp"
#include "tablegen/emit/source.hpp"

namespace co2_properties::tablegen {
namespace {

/// Goes into the digest: to be raised with any change that moves numbers.
constexpr const char* version = "logarithm 1";

constexpr double unit = 0x1p-43;

struct Row {
  double inverse, high, low, excess;
  double reach;  ///< largest |r| of its numbers
};

Row make_row(const std::uint64_t i) {
  const double c = bit_cast<double>(0x3fe6000000000000 + (i << 45U));
  const double ulps = c < 1.0 ? 256.0 : 512.0;  // nine bits
  const double inverse = std::nearbyint(ulps / c) / ulps;
  const double excess = c * inverse - 1.0;
  const elementary::SplitLog log = elementary::split_log(inverse, unit);
  return {inverse, 0.0 - log.high, 0.0 - log.low, excess,
          std::fabs(excess) + inverse / (c < 1.0 ? 512.0 : 256.0)};
}

using Series = std::array<long double, 12>;

/// (ln(1 + r) - r + r^2/2) / r^3 as far as long double feels it.
Series taylor_series() {
  Series a{};
  for (std::size_t k = 0; k < a.size(); ++k) {
    a[k] = (k % 2 == 0 ? 1.0L : -1.0L) / static_cast<long double>(k + 3);
  }
  return a;
}

/// Coefficients of the Chebyshev polynomial of degree n.
Series chebyshev(const std::size_t n) {
  Series before{1.0L};
  Series now{0.0L, 1.0L};
  for (std::size_t k = 1; k < n; ++k) {
    Series next{};
    for (std::size_t j = 0; j <= k; ++j) next[j + 1] = 2.0L * now[j];
    for (std::size_t j = 0; j < k; ++j) next[j] -= before[j];
    before = now;
    now = next;
  }
  return now;
}

/// The series with the powers from `terms` on replaced by lower ones, each by the polynomial that
/// is nearest to it in [-reach, reach].
Series economized(Series a, const std::size_t terms, const long double reach) {
  for (std::size_t n = a.size() - 1; n >= terms; --n) {
    const Series t = chebyshev(n);
    const long double share = a[n] / t[n];
    long double scale = 1.0L;  // reach^(n - j)
    for (std::size_t j = n + 1; j-- > 0; scale *= reach) a[j] -= share * t[j] * scale;
  }
  return a;
}

long double sum(const auto& coef, const long double r) {
  long double value = 0.0L;
  for (std::size_t k = std::size(coef); k-- > 0;) value = value * r + coef[k];
  return value;
}

/// Largest difference to ln(1 + r), in units of it.
double worst_error(const std::vector<double>& coef, const double reach) {
  const Series exact = taylor_series();
  long double worst = 0.0L;
  for (int i = -1000; i <= 1000; ++i) {
    const long double r = reach * i / 1000.0L;
    worst = std::max(worst, std::fabs(r * r * (sum(coef, r) - sum(exact, r))));
  }
  return static_cast<double>(worst);
}

std::string list(const std::vector<double>& numbers) {
  std::string text;
  for (const double x : numbers) text += (text.empty() ? "" : ", ") + hex_literal(x);
  return "{" + text + "}";
}

Generated generate() {
  std::string rows;
  double reach = 0.0;
  for (std::uint64_t i = 0; i < 128; ++i) {
    const Row row = make_row(i);
    rows += "    " + list({row.inverse, row.high, row.low, row.excess}) + ",\n";
    reach = std::max(reach, row.reach);
  }
  const elementary::SplitLog ln2 = elementary::split_log(2.0L, unit);
  constexpr std::size_t terms = std::size(LogarithmTable{}.coef);
  const Series best = economized(taylor_series(), terms, reach);
  std::vector<double> coef;
  for (std::size_t k = 0; k < terms; ++k) coef.push_back(static_cast<double>(best[k]));

  std::array<char, 120> error{};
  std::snprintf(error.data(), error.size(),
                "Largest error of the polynomial, of ln(1 + r) for |r| <= %.6f: %.1e.", reach,
                worst_error(coef, reach));
  const Provenance provenance = {
      "logarithm",
      {"Natural logarithm: rows, ln 2 and polynomial; record: src/numbers/logarithm.hpp."},
      "ln x, rounded correctly.",
      "",
      text_digest({version}),
      {error.data()}};
  const std::string body =
      "\n#include \"numbers/logarithm.hpp\"\n\nnamespace co2_properties {\n\n"
      "alignas(64) constexpr LogarithmTable logarithm_table = {\n  {\n" +
      rows + "  },\n  " + hex_literal(ln2.high) + ", " + hex_literal(ln2.low) + ",\n  " +
      list(coef) + ",\n};\n\n}  // namespace co2_properties\n";
  return {generated_source(provenance, body), "", error.data()};
}

}  // namespace

Table logarithm_table_entry() { return {"logarithm", "numbers/tables/logarithm.cpp", generate}; }

}  // namespace co2_properties::tablegen
