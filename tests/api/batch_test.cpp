// Batches against single calls, for every instruction set, and their forms for C++ and C.

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <cfenv>
#include <cmath>
#include <ostream>
#include <random>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/support/entries.hpp"
#include "tests/support/portable_lanes.hpp"

namespace co2_properties {

static void PrintTo(const Level& level, std::ostream* const stream) { *stream << level.name; }

namespace {

using test::bits;
using test::Entry;
using test::infinity;
using test::not_a_number;
using test::Outputs;
using test::Result;

#define CO2_TEST_ARRAY(name) &BatchOutputSet::name
constexpr std::array array_members = {CO2_TEST_OUTPUTS(CO2_TEST_ARRAY)};
#define CO2_TEST_C_ARRAY(name) &co2_batch_output_set::name
constexpr std::array c_array_members = {CO2_TEST_OUTPUTS(CO2_TEST_C_ARRAY)};

/// Arrays for all results of `count` states, filled with a value that no state has; result k of
/// state i is at `value[k][at(i)]`.
struct Arrays {
  std::vector<std::int32_t> ierr;
  std::array<std::vector<double>, test::output_count> value;
  std::size_t count;
  std::ptrdiff_t stride;

  explicit Arrays(const std::size_t n, const std::ptrdiff_t step = 1)
      : ierr(room(n, step), Result::unset), count(n), stride(step) {
    value.fill(std::vector<double>(room(n, step), Outputs::canary));
  }
  static std::size_t room(const std::size_t n, const std::ptrdiff_t step) {
    return n * static_cast<std::size_t>(std::abs(step));
  }
  /// Where element 0 lies.
  [[nodiscard]] std::size_t origin() const {
    return stride < 0 && count > 0 ? room(count - 1, stride) : 0;
  }
  [[nodiscard]] std::size_t at(const std::size_t i) const {
    return origin() + i * static_cast<std::size_t>(stride);
  }
  StridedSpan<std::int32_t> codes() { return {ierr.data() + origin(), count, stride}; }
  StridedSpan<double> output(const std::size_t k) {
    return {value[k].data() + origin(), count, stride};
  }
  BatchOutputSet subset(const test::Mask mask = test::all_outputs) {
    BatchOutputSet out;
    for (std::size_t k = 0; k < test::output_count; ++k) {
      if (test::has(mask, k)) out.*array_members[k] = output(k);
    }
    return out;
  }
};

struct Inputs {
  std::vector<double> first, second;
};

/// Compares the results of a batch with the single calls; absent outputs keep the canary.
void expect_as_single(const Entry& entry, const Inputs& in, const Arrays& result,
                      const test::Mask mask = test::all_outputs) {
  std::size_t failures = 0;
  for (std::size_t i = 0; i < in.first.size() && failures < 5; ++i) {
    const Result single = entry(in.first[i], in.second[i], mask);
    bool equal = result.ierr[result.at(i)] == single.ierr;
    for (std::size_t k = 0; k < test::output_count; ++k) {
      equal = equal && bits(result.value[k][result.at(i)]) == bits(single.out.value[k]);
    }
    if (!equal) ++failures;
    EXPECT_TRUE(equal) << "state " << i << ": " << std::hexfloat << in.first[i] << ", "
                       << in.second[i];
  }
}

/// Random states all over the range and a little beyond, a tenth of them close to the saturation
/// line or the critical point, the first ones with inputs that are no numbers of a state. Runs of
/// states have a single phase alone, so that whole blocks go the same way.
Inputs random_inputs(const Entry& entry, const std::size_t count) {
  struct Range {
    double lo, hi;
  };
  const auto range_of = [](const test::Output k) -> Range {
    if (k == test::temp) return {236.0, 1510.0};
    if (k == test::dens) return {1e-3, 1250.0};
    if (k == test::pres) return {0.5, 101000.0};
    if (k == test::qual) return {1e-3, 1.1};
    if (k == test::inte) return {60.0, 1700.0};
    return k == test::enth ? Range{80.0, 2000.0} : Range{0.5, 4.0};
  };
  std::mt19937_64 engine(5);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  const auto within = [&](const Range& r, const bool by_ratio) {
    const double u = unit(engine);
    return by_ratio ? r.lo * std::pow(r.hi / r.lo, u) : r.lo + u * (r.hi - r.lo);
  };
  const double odd[] = {not_a_number, infinity, -infinity, 0.0, -0.0, 1e300, 5e-324, -1.0};
  Inputs in;
  for (std::size_t i = 0; i < count; ++i) {
    double x = within(range_of(entry.inputs[0]), i % 2 == 0);
    double y = within(range_of(entry.inputs[1]), i % 4 < 2);
    if (i % 10 == 9) {  // from a state near the dome or the critical point
      const Range temps = i % 20 == 9 ? Range{240.0, 304.2} : Range{302.0, 311.0};
      const Result near = test::td(within(temps, false), within({20.0, 1100.0}, i % 3 == 0));
      x = near[entry.inputs[0]];
      y = near[entry.inputs[1]];
    }
    if (i / 200 % 3 == 2) {
      const Result hot = test::td(within({310.0, 1400.0}, false), within({1.0, 600.0}, true));
      x = hot[entry.inputs[0]];
      y = hot[entry.inputs[1]];
    }
    if (i < 64) x = odd[i % 8];
    if (i >= 32 && i < 96) y = odd[i / 8 % 8];
    in.first.push_back(x);
    in.second.push_back(y);
  }
  return in;
}

// ---- Instruction sets --------------------------------------------------------------------------

class BatchLevel : public testing::TestWithParam<Level> {
 protected:
  void run(const Entry& entry, const Batch& batch) { (GetParam().entries->*entry.run)(batch); }
};
INSTANTIATE_TEST_SUITE_P(Every, BatchLevel, testing::ValuesIn(test::levels_here()),
                         [](const auto& level) {
                           std::string name = level.param.name;
                           std::erase_if(name, [](const char c) { return !std::isalnum(c); });
                           return name;
                         });

TEST_P(BatchLevel, GivesTheBitsOfTheSingleEntries) {
  for (const Entry* const entry : test::entries) {
    SCOPED_TRACE(entry->name);
    for (const test::Mask mask : {test::all_outputs, 0x4F2U, 0x1800U, 0U}) {
      const std::size_t count = mask == test::all_outputs ? 100'003 : 20'011;
      const Inputs in = random_inputs(*entry, count);
      Arrays result(count);
      const BatchOutputSet out = result.subset(mask);
      run(*entry, {in.first, in.second, result.ierr, out});
      expect_as_single(*entry, in, result, mask);
    }
  }
}

// Up to three blocks and some more, so that each remainder occurs, with strides and subsets in
// turn.
TEST_P(BatchLevel, ServesEveryLength) {
  constexpr std::ptrdiff_t strides[] = {1, 3, -1, -2, 1};
  constexpr test::Mask masks[] = {test::all_outputs, 0x4F2U, 0x1800U};
  for (const Entry* const entry : test::entries) {
    const Inputs all = random_inputs(*entry, 700);
    for (std::size_t count = 0; count <= 200; ++count) {
      SCOPED_TRACE(testing::Message() << entry->name << ", " << count << " states");
      const std::size_t skip = count % 2 == 0 ? 150 : 420;  // mixed ones, and of a single phase
      Arrays in(count, strides[count % 5]);
      Arrays result(count, strides[count % 5]);
      Inputs some;
      for (std::size_t i = 0; i < count; ++i) {
        some.first.push_back(in.value[0][in.at(i)] = all.first[skip + i]);
        some.second.push_back(in.value[1][in.at(i)] = all.second[skip + i]);
      }
      const test::Mask mask = masks[count % 3];
      const BatchOutputSet out = result.subset(mask);
      run(*entry, {in.output(0), in.output(1), result.codes(), out});
      expect_as_single(*entry, some, result, mask);
    }
  }
}

TEST_P(BatchLevel, TakesOneInputForAllStatesAndOverwritesInputs) {
  for (const Entry* const entry : test::entries) {
    SCOPED_TRACE(entry->name);
    Inputs in = random_inputs(*entry, 700);
    Arrays in_place(700);
    in_place.value[5] = in.first;
    in_place.value[6] = in.second;
    const BatchOutputSet over = in_place.subset();
    run(*entry, {in_place.value[5], in_place.value[6], in_place.ierr, over});
    expect_as_single(*entry, in, in_place);

    Arrays result(700);
    const double one = in.first[500];
    const BatchOutputSet out = result.subset();
    run(*entry, {{&one, 700, 0}, in.second, result.ierr, out});
    in.first.assign(700, one);
    expect_as_single(*entry, in, result);
  }
}

// No host that traps invalid operations may stop at what is not used: the square of the speed of
// sound is negative next to the critical point, where a fit gives the result, and where elements
// are extrapolated, in lanes whose state is not written.
TEST_P(BatchLevel, RaisesNoInvalidOperationForWhatIsNotUsed) {
  struct Case {
    const Entry& entry;
    double first, second;
    bool is_error;
    const char* why;
  };
  const Case cases[] = {
      {test::ps, 7377.5372075565047, 1.4237040658699698, false, "critical point"},
      {test::td, 1028.0, 780.0, true, "pressure too high"},
      {test::td, 1400.0, 1700.0, true, "denser than all elements"},
      {test::ph, 33000.0, -160.0, true, "an iterate in extrapolated liquid"},
      {test::ps, 32800.0, 4.85, true, "an iterate in extrapolated gas"},
  };
  for (const Case& c : cases) {
    const std::vector<double> first(16, c.first);
    const std::vector<double> second(16, c.second);
    std::vector<std::int32_t> ierr(16, Result::unset);
    std::vector<double> ssnd(16);
    const BatchOutputSet out = {.ssnd = ssnd};
    std::feclearexcept(FE_ALL_EXCEPT);
    run(c.entry, {first, second, ierr, out});
    EXPECT_EQ(std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW), 0) << c.why;
    EXPECT_EQ(ierr[15] > 0, c.is_error) << c.why;
  }
}

// A slower level gives the same bits, so that nothing else would tell that a machine is not used.
TEST(BatchLevels, TheWidestOneOfTheMachineIsTaken) {
  struct Case {
    InstructionSets machine;
    const BatchEntries* expected;
  };
  const Case cases[] = {
      {{.avx2 = false, .avx512f = false}, &one_by_one},
      {{.avx2 = true, .avx512f = false}, avx2_lanes != nullptr ? avx2_lanes : &one_by_one},
      {{.avx2 = true, .avx512f = true}, avx512_lanes != nullptr ? avx512_lanes : &one_by_one},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(&widest_entries(c.machine), c.expected) << c.machine.avx2 << c.machine.avx512f;
  }
#if defined(__x86_64__) && defined(__GNUC__)
  EXPECT_EQ(instruction_sets().avx2, __builtin_cpu_supports("avx2") != 0);
  EXPECT_EQ(instruction_sets().avx512f, __builtin_cpu_supports("avx512f") != 0);
#endif
}

// ---- Arrays ------------------------------------------------------------------------------------

/// The batch for C on the same arrays.
void run_in_c(const Entry& entry, Arrays& in, Arrays& result) {
  const auto view = [](Arrays& arrays, const std::size_t k) -> co2_outputs {
    return {arrays.output(k).data(), arrays.stride};
  };
  const co2_inputs first = {view(in, 0).data, in.stride};
  const co2_inputs second = {view(in, 1).data, in.stride};
  const co2_codes ierr = {result.codes().data(), result.stride};
  co2_batch_output_set out = {};
  for (std::size_t k = 0; k < test::output_count; ++k) out.*c_array_members[k] = view(result, k);
  entry.c_batch(&result.count, &first, &second, &ierr, &out);
}

// Some of the states are in error, which leaves their neighbours alone.
TEST(Batch, ServesStridesInBothLanguages) {
  for (const Entry* const entry : test::entries) {
    const Inputs all = random_inputs(*entry, 200);
    for (const std::size_t count : {1U, 7U, 50U}) {
      const auto skip = std::ptrdiff_t{150};  // the odd inputs
      const auto end = skip + static_cast<std::ptrdiff_t>(count);
      const Inputs some = {{all.first.begin() + skip, all.first.begin() + end},
                           {all.second.begin() + skip, all.second.begin() + end}};
      for (const std::ptrdiff_t stride : {1, 3, -1, -2}) {
        SCOPED_TRACE(testing::Message()
                     << entry->name << ", " << count << " states, stride " << stride);
        Arrays in(count, stride);
        for (std::size_t i = 0; i < count; ++i) {
          in.value[0][in.at(i)] = some.first[i];
          in.value[1][in.at(i)] = some.second[i];
        }
        Arrays results[2] = {Arrays(count, stride), Arrays(count, stride)};
        ASSERT_TRUE(
            entry->batch(in.output(0), in.output(1), results[0].codes(), results[0].subset()));
        run_in_c(*entry, in, results[1]);
        for (const Arrays& result : results) {
          expect_as_single(*entry, some, result);
          // Between the elements nothing is written.
          std::size_t canaries = 0;
          for (const double v : result.value[5]) canaries += v == Outputs::canary ? 1 : 0;
          EXPECT_EQ(canaries, result.value[5].size() - count);
        }
      }
    }
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
  for (const Entry* const entry : test::entries) {
    const bool by_quality = entry->inputs[1] == test::qual;
    const Result good = test::td(280.0, by_quality ? 200.0 : 20.0);
    for (const Case& c : cases) {
      SCOPED_TRACE(testing::Message() << entry->name << ": " << c.why);
      const std::vector<double> first(4, good[entry->inputs[0]]);
      const std::vector<double> second(c.second, good[entry->inputs[1]]);
      std::vector<std::int32_t> codes(c.codes, Result::unset);
      std::vector<double> last(c.output, Outputs::canary);
      std::vector<double> other(4, Outputs::canary);
      EXPECT_EQ(entry->batch(first, second, codes, {.enth = other, .dsdt = last}), c.accepted);
      for (const std::int32_t code : codes) EXPECT_EQ(code, c.accepted ? 0 : Result::unset);
      EXPECT_EQ(last[0] == Outputs::canary, !c.accepted);
      EXPECT_EQ(other[0] == Outputs::canary, !c.accepted);
    }
    EXPECT_TRUE(entry->batch({}, {}, {}, {})) << entry->name << ": no states";
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
