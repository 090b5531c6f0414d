#include <gtest/gtest.h>

#include <array>
#include <cfenv>
#include <cmath>
#include <cstdlib>
#include <random>
#include <span>
#include <type_traits>
#include <vector>

#include "api/batch_levels.hpp"
#include "api/co2_properties.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/outputs.hpp"

namespace co2_properties {
namespace {

using test::bits;
using test::infinity;
using test::not_a_number;
using test::Outputs;

using Single = void (*)(const double&, const double&, std::int32_t&, const OutputSet&) noexcept;
using Batch = bool (*)(StridedSpan<const double>, StridedSpan<const double>,
                       StridedSpan<std::int32_t>, const BatchOutputSet&) noexcept;

struct Range {
  double lo, hi;
};

struct Entry {
  const char* name;
  Single single;
  Batch batch;
  Range first, second;           ///< somewhat beyond the range of validity
  double good_first[3];          ///< vapour, supercritical, compressed liquid
  double good_second[3];         ///< likewise
  double bad_first, bad_second;  ///< an error
};
constexpr Entry entries[] = {
    {"td",
     co2_td,
     co2_td_batch,
     {236.0, 1510.0},
     {1e-3, 1250.0},
     {280.0, 500.0, 270.0},
     {20.0, 300.0, 1000.0},
     300.0,
     -1.0},
    {"tp",
     co2_tp,
     co2_tp_batch,
     {236.0, 1510.0},
     {0.5, 101000.0},
     {280.0, 500.0, 270.0},
     {1000.0, 30000.0, 20000.0},
     200.0,
     1000.0},
    {"ph",
     co2_ph,
     co2_ph_batch,
     {0.5, 101000.0},
     {80.0, 2000.0},
     {1000.0, 30000.0, 20000.0},
     {480.0, 500.0, 200.0},
     1000.0,
     -1000.0},
    {"ps",
     co2_ps,
     co2_ps_batch,
     {0.5, 101000.0},
     {0.5, 4.0},
     {1000.0, 30000.0, 20000.0},
     {2.2, 1.9, 1.0},
     1000.0,
     -1.0},
};

constexpr std::array<StridedSpan<double> BatchOutputSet::*, test::output_count> array_members = {
    &BatchOutputSet::temp, &BatchOutputSet::pres, &BatchOutputSet::dens, &BatchOutputSet::svol,
    &BatchOutputSet::qual, &BatchOutputSet::inte, &BatchOutputSet::enth, &BatchOutputSet::entr,
    &BatchOutputSet::cv,   &BatchOutputSet::cp,   &BatchOutputSet::ssnd, &BatchOutputSet::visc,
    &BatchOutputSet::cond, &BatchOutputSet::dpdd, &BatchOutputSet::dpdt, &BatchOutputSet::dhdd,
    &BatchOutputSet::dhdt, &BatchOutputSet::dsdd, &BatchOutputSet::dsdt};

/// Arrays for all results of `count` states, filled with a value that no state has; result k of
/// state i is at `value[k][at(i)]`.
struct Arrays {
  std::vector<std::int32_t> ierr;
  std::array<std::vector<double>, test::output_count> value;
  std::size_t count;
  std::ptrdiff_t stride;

  explicit Arrays(const std::size_t n, const std::ptrdiff_t step = 1)
      : ierr(room(n, step), 77), count(n), stride(step) {
    value.fill(std::vector<double>(room(n, step), Outputs::canary));
  }
  static std::size_t room(const std::size_t n, const std::ptrdiff_t step) {
    return n * static_cast<std::size_t>(std::abs(step));
  }
  /// Where element 0 lies.
  [[nodiscard]] std::size_t origin() const { return stride < 0 ? room(count - 1, stride) : 0; }
  [[nodiscard]] std::size_t at(const std::size_t i) const {
    return origin() + i * static_cast<std::size_t>(stride);
  }
  StridedSpan<std::int32_t> codes() { return {ierr.data() + origin(), count, stride}; }
  BatchOutputSet subset(const std::uint32_t mask = test::all_outputs) {
    BatchOutputSet out;
    for (std::size_t k = 0; k < test::output_count; ++k) {
      if ((mask >> k & 1U) != 0) {
        out.*array_members[k] = {value[k].data() + origin(), count, stride};
      }
    }
    return out;
  }
};

/// Compares the results of a batch with the single calls; absent outputs keep the canary.
void expect_as_single(const Entry& entry, const std::vector<double>& first,
                      const std::vector<double>& second, const Arrays& result,
                      const std::uint32_t mask) {
  std::size_t failures = 0;
  for (std::size_t i = 0; i < first.size() && failures < 5; ++i) {
    std::int32_t ierr = 77;
    Outputs out;
    entry.single(first[i], second[i], ierr, out.subset(mask));
    bool equal = result.ierr[result.at(i)] == ierr;
    for (std::size_t k = 0; k < test::output_count; ++k) {
      equal = equal && bits(result.value[k][result.at(i)]) == bits(out.value[k]);
    }
    if (!equal) ++failures;
    EXPECT_TRUE(equal) << "state " << i << ": " << std::hexfloat << first[i] << ", " << second[i];
  }
}

/// Random states all over the range and a little beyond, a tenth of them close to the saturation
/// line or the critical point, the first ones with inputs that are no numbers of a state.
void random_inputs(const Entry& entry, const std::size_t count, std::vector<double>& first,
                   std::vector<double>& second) {
  std::mt19937_64 engine(5);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  const auto within = [&](const Range& r, const bool by_ratio) {
    const double u = unit(engine);
    return by_ratio ? r.lo * std::pow(r.hi / r.lo, u) : r.lo + u * (r.hi - r.lo);
  };
  const double odd[] = {not_a_number, infinity, -infinity, 0.0, -0.0, 1e300, 5e-324, -1.0};
  while (first.size() < count) {
    const std::size_t i = first.size();
    double x = within(entry.first, i % 2 == 0);
    double y = within(entry.second, i % 4 < 2);
    if (i % 10 == 9) {  // from a state near the dome or the critical point
      const double temp =
          i % 20 == 9 ? within({240.0, 304.2}, false) : within({302.0, 311.0}, false);
      const double dens = within({20.0, 1100.0}, i % 3 == 0);
      double pres = 0.0;
      double enth = 0.0;
      double entr = 0.0;
      std::int32_t ierr = 0;
      co2_td(temp, dens, ierr, {.pres = &pres, .enth = &enth, .entr = &entr});
      const bool by_temp = entry.batch == co2_td_batch || entry.batch == co2_tp_batch;
      x = by_temp ? temp : pres;
      y = entry.batch == co2_td_batch   ? dens
          : by_temp                     ? pres
          : entry.batch == co2_ph_batch ? enth
                                        : entr;
    }
    if (i < 64) x = odd[i % 8];
    if (i >= 32 && i < 96) y = odd[i / 8 % 8];
    first.push_back(x);
    second.push_back(y);
  }
}

TEST(Batch, GivesTheBitsOfTheSingleEntries) {
  constexpr std::size_t count = 20011;
  for (const Entry& entry : entries) {
    SCOPED_TRACE(entry.name);
    std::vector<double> first;
    std::vector<double> second;
    random_inputs(entry, count, first, second);
    for (const std::uint32_t mask : {test::all_outputs, 0x4F2U, 0x1800U, 0U}) {
      Arrays result(count);
      ASSERT_TRUE(entry.batch(first, second, result.ierr, result.subset(mask)));
      expect_as_single(entry, first, second, result, mask);
    }
  }
}

// 10^6 states for each instruction set that this machine has.
TEST(Batch, EveryInstructionSetGivesTheSameBits) {
  struct Level {
    const char* name;
    const BatchEntries* entries;
  };
  std::vector<Level> levels = {{"one by one", &one_by_one}};
#if defined(__x86_64__) && defined(__GNUC__)
  if (four_lanes != nullptr && __builtin_cpu_supports("avx2") != 0) {
    levels.push_back({"AVX2", four_lanes});
  }
  if (eight_lanes != nullptr && __builtin_cpu_supports("avx512f") != 0) {
    levels.push_back({"AVX-512", eight_lanes});
  }
#endif
  constexpr std::size_t count = 250'000;
  constexpr BatchEntries::Run BatchEntries::*runs[] = {&BatchEntries::td, &BatchEntries::tp,
                                                       &BatchEntries::ph, &BatchEntries::ps};
  for (std::size_t k = 0; k < std::size(entries); ++k) {
    std::vector<double> first;
    std::vector<double> second;
    random_inputs(entries[k], count, first, second);
    for (const Level& level : levels) {
      SCOPED_TRACE(testing::Message() << entries[k].name << ", " << level.name);
      Arrays result(count);
      const BatchOutputSet out = result.subset();
      (level.entries->*runs[k])({first, second, result.ierr, out});
      expect_as_single(entries[k], first, second, result, test::all_outputs);
    }
  }
}

// Every length up to three of the widest blocks, so that each remainder occurs.
TEST(Batch, ServesEveryLengthAndStride) {
  for (const Entry& entry : entries) {
    SCOPED_TRACE(entry.name);
    std::vector<double> first;
    std::vector<double> second;
    random_inputs(entry, 200, first, second);
    for (std::size_t count = 1; count <= 50; ++count) {
      const auto skip = std::ptrdiff_t{150};  // the odd inputs
      const auto end = skip + static_cast<std::ptrdiff_t>(count);
      const std::vector<double> x(first.begin() + skip, first.begin() + end);
      const std::vector<double> y(second.begin() + skip, second.begin() + end);
      for (const std::ptrdiff_t stride : {1, 3, -1, -2}) {
        SCOPED_TRACE(testing::Message() << count << " states, stride " << stride);
        Arrays in(count, stride);
        for (std::size_t i = 0; i < count; ++i) {
          in.value[0][in.at(i)] = x[i];
          in.value[1][in.at(i)] = y[i];
        }
        Arrays result(count, stride);
        ASSERT_TRUE(entry.batch({in.value[0].data() + in.origin(), count, stride},
                                {in.value[1].data() + in.origin(), count, stride}, result.codes(),
                                result.subset()));
        expect_as_single(entry, x, y, result, test::all_outputs);
        // Between the elements nothing is written.
        std::size_t canaries = 0;
        for (const double v : result.value[5]) canaries += v == Outputs::canary ? 1 : 0;
        EXPECT_EQ(canaries, result.value[5].size() - count);
      }
    }
  }
}

TEST(Batch, TakesOneInputForAllStates) {
  for (const Entry& entry : entries) {
    SCOPED_TRACE(entry.name);
    const std::vector<double> one(21, entry.good_first[1]);
    std::vector<double> many;
    for (std::size_t i = 0; i < one.size(); ++i) {
      many.push_back(entry.good_second[1] * (1.0 + 0.001 * static_cast<double>(i)));
    }
    Arrays result(one.size());
    ASSERT_TRUE(entry.batch({one.data(), one.size(), 0}, many, result.ierr, result.subset()));
    expect_as_single(entry, one, many, result, test::all_outputs);
  }
}

TEST(Batch, MayOverwriteItsInputs) {
  for (const Entry& entry : entries) {
    SCOPED_TRACE(entry.name);
    std::vector<double> first;
    std::vector<double> second;
    random_inputs(entry, 300, first, second);
    Arrays result(first.size());
    Arrays in_place(first.size());
    in_place.value[5] = first;
    in_place.value[6] = second;
    ASSERT_TRUE(entry.batch(first, second, result.ierr, result.subset()));
    ASSERT_TRUE(
        entry.batch(in_place.value[5], in_place.value[6], in_place.ierr, in_place.subset()));
    for (std::size_t k = 0; k < test::output_count; ++k) {
      for (std::size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ(bits(in_place.value[k][i]), bits(result.value[k][i]))
            << test::output_names[k] << " of state " << i;
      }
    }
  }
}

// Next to the critical point the elements lose the square of the speed of sound, which comes from a
// fit there: no host that traps invalid operations may stop at what is not used.
TEST(Batch, RaisesNoInvalidOperationAtTheCriticalPoint) {
  const std::vector<double> pres(16, 7377.5372075565047);
  const std::vector<double> entr(16, 1.4237040658699698);
  std::vector<std::int32_t> ierr(16, 77);
  std::vector<double> ssnd(16);
  std::feclearexcept(FE_ALL_EXCEPT);
  ASSERT_TRUE(co2_ps_batch(pres, entr, ierr, {.ssnd = ssnd}));
  EXPECT_EQ(std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW), 0);
  EXPECT_EQ(ierr[15], 0);
}

TEST(Batch, KeepsABadStateToItself) {
  for (const Entry& entry : entries) {
    SCOPED_TRACE(entry.name);
    std::vector<double> first;
    std::vector<double> second;
    for (std::size_t i = 0; i < 24; ++i) {
      first.push_back(i % 4 == 3 ? entry.bad_first : entry.good_first[i % 4]);
      second.push_back(i % 4 == 3 ? entry.bad_second : entry.good_second[i % 4]);
    }
    Arrays result(first.size());
    ASSERT_TRUE(entry.batch(first, second, result.ierr, result.subset()));
    for (std::size_t i = 0; i < first.size(); ++i) {
      SCOPED_TRACE(i);
      const bool bad = i % 4 == 3;
      EXPECT_EQ(result.ierr[i] > 0, bad) << result.ierr[i];
      for (const std::vector<double>& value : result.value) {
        EXPECT_EQ(bits(value[i]) == 0, bad);
      }
    }
    expect_as_single(entry, first, second, result, test::all_outputs);
  }
}

TEST(Batch, RefusesLengthsThatDiffer) {
  struct Case {
    std::size_t second, codes, output;
    bool accepted;
    const char* why;
  };
  const Case cases[] = {
      {4, 4, 4, true, "all agree"},
      {3, 4, 4, false, "second input too short"},
      {5, 4, 4, false, "second input too long"},
      {4, 3, 4, false, "codes too short"},
      {4, 5, 4, false, "codes too long"},
      {4, 4, 3, false, "an output too short"},
      {4, 4, 5, false, "an output too long"},
      {4, 0, 4, false, "no codes"},
  };
  for (const Entry& entry : entries) {
    for (const Case& c : cases) {
      SCOPED_TRACE(testing::Message() << entry.name << ": " << c.why);
      const std::vector<double> first(4, entry.good_first[0]);
      const std::vector<double> second(c.second, entry.good_second[0]);
      std::vector<std::int32_t> codes(c.codes, 77);
      std::vector<double> last(c.output, Outputs::canary);
      std::vector<double> other(4, Outputs::canary);
      EXPECT_EQ(entry.batch(first, second, codes, {.enth = other, .dsdt = last}), c.accepted);
      for (const std::int32_t code : codes) EXPECT_EQ(code, c.accepted ? 0 : 77);
      EXPECT_EQ(last[0] == Outputs::canary, !c.accepted);
      EXPECT_EQ(other[0] == Outputs::canary, !c.accepted);
    }
    EXPECT_TRUE(entry.batch({}, {}, {}, {})) << entry.name << ": no states";
  }
}

// Containers, arrays and spans convert, const ones to inputs only.
static_assert(std::is_convertible_v<const std::vector<double>&, StridedSpan<const double>>);
static_assert(std::is_convertible_v<std::array<double, 3>&, StridedSpan<double>>);
static_assert(std::is_convertible_v<std::span<const double>, StridedSpan<const double>>);
static_assert(!std::is_convertible_v<const std::vector<double>&, StridedSpan<double>>);
static_assert(!std::is_convertible_v<std::vector<float>&, StridedSpan<const double>>);

}  // namespace
}  // namespace co2_properties
