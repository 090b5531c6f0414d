// The procedures for C that are no entries against their namesakes in C++: the same bits, argument
// by argument. The entries are in tests/api.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string_view>

#include "api/co2_properties.h"
#include "api/co2_properties.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/outputs.hpp"

namespace {

using co2_properties::test::bits;
using co2_properties::test::not_a_number;
using co2_properties::test::output_count;
using co2_properties::test::output_names;
using co2_properties::test::Outputs;

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
  const double constants[] = {304.1282, 467.6,    7377.3, 240.0,    1500.0,
                              1.0,      100000.0, 240.0,  1282.4835};
  decltype(&co2_info) const infos[] = {co2_info, cpp::co2_info};
  for (const auto info : infos) {
    for (std::size_t k = 0; k < std::size(constants); ++k) {
      double value[9] = {};
      double* slot[9] = {};
      slot[k] = &value[k];
      info(slot[0], slot[1], slot[2], slot[3], slot[4], slot[5], slot[6], slot[7], slot[8]);
      for (std::size_t i = 0; i < std::size(constants); ++i) {
        EXPECT_EQ(value[i], i == k ? constants[i] : 0.0) << "argument " << i << ", present " << k;
      }
    }
  }
  cpp::co2_info();

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
