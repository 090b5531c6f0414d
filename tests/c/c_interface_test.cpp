// The procedures for C against their namesakes in C++: the same bits, argument by argument. Both
// headers are included in one file, as a host may do.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string_view>
#include <utility>

#include "api/co2_properties.h"
#include "api/co2_properties.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/outputs.hpp"

namespace {

using co2_properties::OutputSet;
using co2_properties::test::bits;
using co2_properties::test::not_a_number;
using co2_properties::test::output_count;
using co2_properties::test::output_names;
using co2_properties::test::Outputs;

using Positional = decltype(&::co2_td);
using Select = decltype(&::co2_td_select);
using Batch = decltype(&::co2_td_batch);
using Cpp = void (*)(const double&, const double&, std::int32_t&, const OutputSet&) noexcept;

struct Entry {
  const char* name;
  Positional positional;
  Select select;
  Batch batch;
  Cpp cpp;
  double states[4][2];  ///< gas, supercritical, two-phase (liquid for tp), beyond a limit
};
constexpr Entry entries[] = {
    {"td",
     ::co2_td,
     ::co2_td_select,
     ::co2_td_batch,
     co2_properties::co2_td,
     {{280.0, 20.0}, {310.0, 600.0}, {280.0, 300.0}, {1600.0, 1.0}}},
    {"tp",
     ::co2_tp,
     ::co2_tp_select,
     ::co2_tp_batch,
     co2_properties::co2_tp,
     {{280.0, 1000.0}, {310.0, 9000.0}, {270.0, 20000.0}, {300.0, 0.5}}},
    {"ph",
     ::co2_ph,
     ::co2_ph_select,
     ::co2_ph_batch,
     co2_properties::co2_ph,
     {{1000.0, 480.0}, {9000.0, 320.0}, {3000.0, 300.0}, {3000.0, 2500.0}}},
    {"ps",
     ::co2_ps,
     ::co2_ps_select,
     ::co2_ps_batch,
     co2_properties::co2_ps,
     {{1000.0, 2.2}, {9000.0, 1.4}, {3000.0, 1.4}, {200000.0, 2.0}}},
};

template <std::size_t... k>
void call(const Positional entry, const double (&state)[2], std::int32_t& ierr,
          double* const (&slots)[output_count], std::index_sequence<k...> /*all*/) {
  entry(&state[0], &state[1], &ierr, slots[k]...);
}

void expect_same(const Outputs& expected, const Outputs& value) {
  for (std::size_t k = 0; k < output_count; ++k) {
    EXPECT_EQ(bits(value.value[k]), bits(expected.value[k])) << output_names[k];
  }
}

/// Every second output, and every one.
constexpr std::uint32_t masks[] = {0x2AAAA, 0x55555, co2_properties::test::all_outputs};

TEST(CInterface, EntriesGiveTheBitsOfCppForAnyOutputs) {
  for (const Entry& entry : entries) {
    SCOPED_TRACE(entry.name);
    for (const auto& state : entry.states) {
      SCOPED_TRACE(testing::Message() << state[0] << ", " << state[1]);
      for (const std::uint32_t mask : masks) {
        Outputs expected, by_position, by_name;
        std::int32_t expected_ierr = 77, ierr = 77;
        entry.cpp(state[0], state[1], expected_ierr, expected.subset(mask));

        double* slots[output_count] = {};
        for (std::size_t k = 0; k < output_count; ++k) {
          if ((mask >> k & 1U) != 0) slots[k] = &by_position.value[k];
        }
        call(entry.positional, state, ierr, slots, std::make_index_sequence<output_count>());
        EXPECT_EQ(ierr, expected_ierr);
        expect_same(expected, by_position);

        const OutputSet named = by_name.subset(mask);
        const co2_output_set out = {.temp = named.temp,
                                    .pres = named.pres,
                                    .dens = named.dens,
                                    .svol = named.svol,
                                    .qual = named.qual,
                                    .inte = named.inte,
                                    .enth = named.enth,
                                    .entr = named.entr,
                                    .cv = named.cv,
                                    .cp = named.cp,
                                    .ssnd = named.ssnd,
                                    .visc = named.visc,
                                    .cond = named.cond,
                                    .dpdd = named.dpdd,
                                    .dpdt = named.dpdt,
                                    .dhdd = named.dhdd,
                                    .dhdt = named.dhdt,
                                    .dsdd = named.dsdd,
                                    .dsdt = named.dsdt};
        ierr = 77;
        entry.select(&state[0], &state[1], &ierr, &out);
        EXPECT_EQ(ierr, expected_ierr);
        expect_same(expected, by_name);
      }
    }
  }
}

TEST(CInterface, BatchesGiveTheBitsOfTheEntriesAtAnyStride) {
  constexpr std::size_t count = 4;
  for (const Entry& entry : entries) {
    SCOPED_TRACE(entry.name);
    // The states as rows of a table, the codes backwards, the outputs of a state side by side, of
    // which every third is absent.
    std::array<std::int32_t, count> codes{};
    std::array<std::array<double, output_count>, count> results{};
    for (auto& row : results) row.fill(Outputs::canary);
    co2_batch_output_set out = {};
    std::array<co2_outputs, output_count> slots{};
    static_assert(sizeof slots == sizeof out);
    for (std::size_t k = 0; k < output_count; ++k) {
      if (k % 3 != 0) slots[k] = {&results[0][k], output_count};
    }
    std::memcpy(&out, slots.data(), sizeof out);
    const co2_inputs first{&entry.states[0][0], 2};
    const co2_inputs second{&entry.states[0][1], 2};
    const co2_codes ierr{&codes[count - 1], -1};
    entry.batch(&count, &first, &second, &ierr, &out);
    for (std::size_t i = 0; i < count; ++i) {
      SCOPED_TRACE(i);
      Outputs expected, result;
      std::int32_t code = 77;
      entry.cpp(entry.states[i][0], entry.states[i][1], code, expected.subset(0x36DB6));
      result.value = results[i];
      EXPECT_EQ(codes[count - 1 - i], code);
      expect_same(expected, result);
    }
  }
}

namespace cpp = co2_properties;

/// Parts with two inputs and one output.
struct Fit {
  void (*c)(const double*, const double*, double*);
  void (*cpp)(const double&, const double&, double&) noexcept;
};
constexpr Fit fits[] = {
    {calculate_visc, cpp::calculate_visc}, {calculate_cond, cpp::calculate_cond},
    {calculate_cp, cpp::calculate_cp},     {calculate_cv, cpp::calculate_cv},
    {calculate_ssnd, cpp::calculate_ssnd}, {dens_from_hp, cpp::dens_from_hp},
    {dens_from_sp, cpp::dens_from_sp}};

struct StartTemperature {
  void (*c)(const double*, const double*, double*, std::int32_t*);
  void (*cpp)(const double&, const double&, double&, std::int32_t&) noexcept;
  double caloric;
};
constexpr StartTemperature start_temperatures[] = {{temp_from_hp, cpp::temp_from_hp, 300.0},
                                                   {temp_from_sp, cpp::temp_from_sp, 1.4}};

TEST(CInterface, PartsGiveTheBitsOfCpp) {
  const double states[][2] = {{280.0, 20.0}, {304.13, 470.0}, {not_a_number, 900.0}};
  for (const auto& [t, d] : states) {
    SCOPED_TRACE(t);
    EXPECT_EQ(bits(calc_sat_liq_dens(&t)), bits(cpp::calc_sat_liq_dens(t)));
    EXPECT_EQ(bits(calc_sat_vap_dens(&t)), bits(cpp::calc_sat_vap_dens(t)));
    EXPECT_EQ(bits(calc_sat_pres(&t)), bits(cpp::calc_sat_pres(t)));
    const double pres = 3000.0;
    EXPECT_EQ(bits(calc_sat_temp(&pres)), bits(cpp::calc_sat_temp(pres)));

    EXPECT_EQ(vap_index_from_td(&t, &d), cpp::vap_index_from_td(t, d));
    EXPECT_EQ(liq_index_from_td(&t, &d), cpp::liq_index_from_td(t, d));
    EXPECT_EQ(sc_index_from_td(&t, &d), cpp::sc_index_from_td(t, d));
    EXPECT_EQ(vap_index_from_tp(&t, &pres), cpp::vap_index_from_tp(t, pres));
    EXPECT_EQ(liq_index_from_tp(&t, &pres), cpp::liq_index_from_tp(t, pres));
    EXPECT_EQ(sc_index_from_tp(&t, &pres), cpp::sc_index_from_tp(t, pres));

    const std::int32_t e = sc_index_from_td(&t, &d);
    const co2_helmholtz_derivatives c = element_derivatives(&e, &t, &d);
    const cpp::HelmholtzDerivatives h = cpp::element_derivatives(e, t, d);
    const double in_c[] = {c.a, c.a_t, c.a_d, c.a_tt, c.a_dd, c.a_td};
    const double in_cpp[] = {h.a, h.a_t, h.a_d, h.a_tt, h.a_dd, h.a_td};
    EXPECT_EQ(std::memcmp(in_c, in_cpp, sizeof in_c), 0);

    for (const Fit& fit : fits) {
      double value = 0.0, expected = 0.0;
      fit.c(&d, &t, &value);
      fit.cpp(d, t, expected);
      EXPECT_EQ(bits(value), bits(expected)) << &fit - fits;
    }
    for (const StartTemperature& start : start_temperatures) {
      double value = 0.0, expected = 0.0;
      std::int32_t flag = 77, expected_flag = 78;
      start.c(&start.caloric, &pres, &value, &flag);
      start.cpp(start.caloric, pres, expected, expected_flag);
      EXPECT_EQ(bits(value), bits(expected));
      EXPECT_EQ(flag, expected_flag);
    }
  }
}

TEST(CInterface, ConstantsMessagesAndZeros) {
  double c[9], expected_values[9];
  co2_info(c, c + 1, c + 2, c + 3, c + 4, c + 5, c + 6, c + 7, c + 8);
  double* const e = expected_values;
  cpp::co2_info(e, e + 1, e + 2, e + 3, e + 4, e + 5, e + 6, e + 7, e + 8);
  EXPECT_EQ(std::memcmp(c, e, sizeof c), 0);

  char text[257];
  std::memset(text, '#', sizeof text);
  const std::int32_t code = co2_properties::status::tp_pres_below_min;
  co2_error_message(&code, text + 1);
  const auto expected = co2_properties::co2_error_message(code);
  EXPECT_EQ(std::string_view(text + 1, 255), std::string_view(expected.data(), expected.size()));
  EXPECT_TRUE(text[0] == '#' && text[256] == '#') << "255 characters and nothing beside them";

  double values[output_count];
  std::fill(std::begin(values), std::end(values), Outputs::canary);
  double* const v = values;
  zero_outputs(v, v + 1, v + 2, v + 3, nullptr, v + 5, v + 6, v + 7, v + 8, v + 9, v + 10, v + 11,
               v + 12, v + 13, v + 14, v + 15, v + 16, v + 17, v + 18);
  for (std::size_t k = 0; k < output_count; ++k) {
    EXPECT_EQ(bits(values[k]), bits(k == 4 ? Outputs::canary : 0.0)) << output_names[k];
  }
}

}  // namespace
