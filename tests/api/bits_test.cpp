// Whether the bits of the results have moved. They are the same on every machine: all that takes
// part are additions, multiplications, divisions and square roots.

#include <gtest/gtest.h>

#include <cstdint>
#include <span>

#include "tests/support/digest.hpp"
#include "tests/support/entries.hpp"

namespace co2_properties {
namespace {

using test::Digest;
using test::Draws;

/// A state through entries; every fourth around the critical point.
void add_entries(const std::span<const test::Entry* const> entries, const int k, Draws& draws,
                 Digest& digest) {
  const bool critical = k % 4 == 0;
  const double temp =
      critical ? draws.uniform(302.5, 310.5) : draws.uniform(240.0, k % 2 == 0 ? 1500.0 : 320.0);
  const double dens = critical     ? draws.uniform(350.0, 600.0)
                      : k % 3 == 0 ? draws.uniform(0.0, 1280.0)
                                   : draws.magnitude(-8.0, 10.3);
  const test::Result state = test::td(temp, dens);
  for (const test::Entry* const entry : entries) {
    const test::Result r = (*entry)(state[entry->inputs[0]], state[entry->inputs[1]]);
    digest.add(r.ierr);
    for (const double value : r.out.value) digest.add(value);
  }
}

void add_first_entries(const int k, Draws& draws, Digest& digest) {
  add_entries(std::span(test::entries).first<4>(), k, draws, digest);
}

void add_other_entries(const int k, Draws& draws, Digest& digest) {
  add_entries(std::span(test::entries).subspan<4>(), k, draws, digest);
}

void add_saturation(const int /*k*/, Draws& draws, Digest& digest) {
  const double temp = draws.uniform(240.0, t_crit);
  digest.add(calc_sat_liq_dens(temp));
  digest.add(calc_sat_vap_dens(temp));
  digest.add(calc_sat_pres(temp));
  digest.add(calc_sat_temp(draws.uniform(1282.5, 7377.0)));
}

TEST(Bits, AreWhereTheyWere) {
  struct Stored {
    std::uint64_t digest;
    void (*add)(int, Draws&, Digest&);
    const char* what;
  };
  // Renewed by the commit that moves them.
  const Stored stored[] = {
      {0x397de6813f250c95, add_first_entries,
       "by temperature or pressure, with density or a caloric"},
      {0x37a321cb31e412aa, add_other_entries, "all other pairs"},
      {0x3610100ae084613d, add_saturation, "saturation"},
  };
  for (const Stored& s : stored) {
    Digest digest;
    Draws draws;
    for (int k = 0; k < 40000; ++k) s.add(k, draws, digest);
    const std::uint64_t now = digest.value();
    EXPECT_EQ(now, s.digest) << std::hex << s.what << ": bits moved. Say in the commit that moves "
                             << "them by how much, and store 0x" << now << " here.";
  }
}

}  // namespace
}  // namespace co2_properties
