// Whether the bits of the results have moved. Outputs that take part are made of additions,
// multiplications, divisions and square roots alone, so that they are the same on every machine:
// nothing that takes a logarithm from the C library, whose last bits are its own. Where a logarithm
// takes part, any number is given for it.

#include <gtest/gtest.h>

#include <cstdint>

#include "eos/helmholtz.hpp"
#include "fits/near_critical.hpp"
#include "solvers/inverse_cell.hpp"
#include "solvers/relocate.hpp"
#include "tests/support/digest.hpp"
#include "tests/support/entries.hpp"

namespace co2_properties {
namespace {

using test::Digest;
using test::Draws;

void add_elements(const int k, Draws& draws, Digest& digest) {
  const double temp = draws.uniform(240.0, k % 2 == 0 ? 1500.0 : 320.0);
  const double dens = k % 3 == 0 ? draws.uniform(0.0, 1280.0) : draws.magnitude(-8.0, 10.3);
  const test::Result r = test::td(temp, dens,
                                  test::mask_of(test::pres, test::svol, test::qual, test::visc,
                                                test::cond, test::dpdd, test::dpdt, test::dsdd));
  digest.add(r.ierr);
  for (const double value : r.out.value) digest.add(value);
  const HelmholtzDerivatives d =
      evaluate(element(relocate(temp, dens)), temp, dens, draws.uniform(-9.0, 7.0));
  for (const double value : {d.a, d.a_t, d.a_d, d.a_tt, d.a_dd, d.a_td}) digest.add(value);
}

void add_critical_fits(const int k, Draws& draws, Digest& digest) {
  const double temp = k % 2 == 0 ? draws.uniform(302.5, 310.5) : draws.uniform(304.06, 304.25);
  const double dens = draws.uniform(near_critical_box.dens_lo, near_critical_box.dens_hi);
  for (const auto calculate : {calculate_cp, calculate_cv, calculate_ssnd, calculate_cond}) {
    double value = 0.0;
    calculate(dens, temp, value);
    digest.add(value);
  }
}

void add_saturation(const int /*k*/, Draws& draws, Digest& digest) {
  const double temp = draws.uniform(240.0, t_crit);
  digest.add(calc_sat_liq_dens(temp));
  digest.add(calc_sat_vap_dens(temp));
  digest.add(calc_sat_pres(temp));
  digest.add(calc_sat_temp(draws.uniform(1282.5, 7377.0)));
}

void add_start_values(const int k, Draws& draws, Digest& digest) {
  const double pres = k % 2 == 0 ? draws.uniform(1.0, 1e5) : draws.magnitude(0.0, 16.6);
  const double enth = draws.uniform(80.0, k % 3 == 0 ? 2000.0 : 640.0);
  double value = 0.0;
  std::int32_t flag = 0;
  temp_from_hp(enth, pres, value, flag);
  digest.add(value);
  digest.add(flag);
  dens_from_hp(enth, pres, value);
  digest.add(value);
  const double entr = draws.uniform(0.4, k % 3 == 0 ? 5.0 : 2.6);
  const double log_pres = draws.uniform(0.0, 11.5);
  for (const InverseFit* const fit : {&temp_from_sp_fit, &dens_from_sp_fit}) {
    digest.add(evaluate_in_entropy(find_inverse_cell(*fit, pres, entr), pres, log_pres, entr));
  }
  const double cold = draws.uniform(240.0, t_crit);
  digest.add(vap_index_from_tp(cold, pres));
  digest.add(liq_index_from_tp(cold, pres));
  digest.add(sc_index_from_tp(draws.uniform(t_crit, 1500.0), pres));
}

TEST(Bits, AreWhereTheyWere) {
  struct Stored {
    std::uint64_t digest;
    void (*add)(int, Draws&, Digest&);
    const char* what;
  };
  // Renewed by the commit that moves them.
  const Stored stored[] = {
      {0x9ca4dae4c6efc6c3, add_elements, "pressure, its derivatives, viscosity, conductivity"},
      {0x97b3f8338a2808e6, add_critical_fits, "fits around the critical point"},
      {0x8c16de9a0e744566, add_saturation, "saturation"},
      {0x7b80fc64def95cd5, add_start_values, "start values, elements from (T, p)"},
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
