#pragma once
// The entries side by side, in all forms in which they are called.

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <utility>
#include <vector>

#include "api/batch/levels.hpp"
#include "api/co2_properties.h"
#include "api/co2_properties.hpp"
#include "tests/support/bits.hpp"
#include "tests/support/outputs.hpp"

namespace co2_properties::test {

/// A code and the outputs of one call.
struct Result {
  static constexpr std::int32_t unset = 77;
  std::int32_t ierr = unset;
  Outputs out;

  double operator[](const Output k) const { return out[k]; }
};

/// As many pointers as there are outputs.
template <std::size_t>
using Slot = double*;
template <std::size_t... k>
auto by_position_type(std::index_sequence<k...>)
    -> void (*)(const double&, const double&, std::int32_t&, Slot<k>...) noexcept;
inline constexpr auto all_slots = std::make_index_sequence<output_count>();

struct Entry {
  const char* name;
  std::int32_t base;       ///< of the codes
  Output inputs[2];        ///< the outputs that are inputs
  Mask single_phase_only;  ///< the outputs whose absence in two phases raises a warning
  void (*by_set)(const double&, const double&, std::int32_t&, const OutputSet&) noexcept;
  decltype(by_position_type(all_slots)) by_position;
  bool (*batch)(StridedSpan<const double>, StridedSpan<const double>, StridedSpan<std::int32_t>,
                const BatchOutputSet&) noexcept;
  BatchEntries::Run BatchEntries::*run;
  decltype(&::co2_td) c_by_position;
  decltype(&::co2_td_select) c_by_set;
  decltype(&::co2_td_batch) c_batch;

  [[nodiscard]] Result operator()(const double first, const double second,
                                  const Mask mask = all_outputs) const {
    Result r;
    by_set(first, second, r.ierr, r.out.subset(mask));
    return r;
  }
};
inline constexpr Mask transport = mask_of(visc, cond);
inline constexpr Mask capacities = mask_of(cv, cp, ssnd);
#define CO2_TEST_FORMS(pair)                                                     \
  co2_##pair, co2_##pair, co2_##pair##_batch, &BatchEntries::pair, ::co2_##pair, \
      ::co2_##pair##_select, ::co2_##pair##_batch
inline constexpr Entry td = {
    "co2_td", 100, {temp, dens}, capacities | transport, CO2_TEST_FORMS(td)};
inline constexpr Entry tp = {
    "co2_tp", 200, {temp, pres}, capacities | transport, CO2_TEST_FORMS(tp)};
// Mixtures of (p, h) have transport properties.
inline constexpr Entry ph = {"co2_ph", 300, {pres, enth}, capacities, CO2_TEST_FORMS(ph)};
inline constexpr Entry ps = {
    "co2_ps", 400, {pres, entr}, capacities | transport, CO2_TEST_FORMS(ps)};
inline constexpr Entry du = {
    "co2_du", 500, {dens, inte}, capacities | transport, CO2_TEST_FORMS(du)};
inline constexpr Entry dh = {
    "co2_dh", 600, {dens, enth}, capacities | transport, CO2_TEST_FORMS(dh)};
inline constexpr Entry ds = {
    "co2_ds", 700, {dens, entr}, capacities | transport, CO2_TEST_FORMS(ds)};
inline constexpr Entry dp = {
    "co2_dp", 800, {dens, pres}, capacities | transport, CO2_TEST_FORMS(dp)};
inline constexpr Entry hs = {
    "co2_hs", 900, {enth, entr}, capacities | transport, CO2_TEST_FORMS(hs)};
inline constexpr Entry pu = {
    "co2_pu", 1000, {pres, inte}, capacities | transport, CO2_TEST_FORMS(pu)};
inline constexpr Entry ts = {
    "co2_ts", 1100, {temp, entr}, capacities | transport, CO2_TEST_FORMS(ts)};
inline constexpr Entry tx = {
    "co2_tx", 1400, {temp, qual}, capacities | transport, CO2_TEST_FORMS(tx)};
inline constexpr Entry px = {
    "co2_px", 1500, {pres, qual}, capacities | transport, CO2_TEST_FORMS(px)};
inline constexpr const Entry* density_entries[] = {&du, &dh, &ds, &dp};
inline constexpr const Entry* entries[] = {&td, &tp, &ph, &ps, &du, &dh, &ds,
                                           &dp, &hs, &pu, &ts, &tx, &px};
inline constexpr const Entry* caloric_entries[] = {&ph, &ps, &pu};

/// Every present output of an error is +0.0, every present output of anything else is written, and
/// nothing else is.
inline void expect_written(const Result& r, const Mask mask = all_outputs) {
  for (std::size_t k = 0; k < output_count; ++k) {
    EXPECT_EQ(r.out.value[k] != Outputs::canary, has(mask, k)) << output_names[k];
    if (has(mask, k) && r.ierr > 0) {
      EXPECT_EQ(bits(r.out.value[k]), 0U) << output_names[k];
    }
  }
}

/// The outputs of `mask` have the bits of another result, the others are untouched.
inline void expect_same(const Outputs& value, const Outputs& expected,
                        const Mask mask = all_outputs) {
  for (std::size_t k = 0; k < output_count; ++k) {
    EXPECT_EQ(bits(value.value[k]), bits(has(mask, k) ? expected.value[k] : Outputs::canary))
        << output_names[k];
  }
}

}  // namespace co2_properties::test
