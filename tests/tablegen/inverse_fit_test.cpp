#include "tablegen/fit/inverse_fit.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <string>

#include "reference/span_wagner.hpp"
#include "tablegen/emit/inverse_table.hpp"
#include "tablegen/tilings/text_reader.hpp"

namespace co2_properties::tablegen {
namespace {

struct Given {
  std::size_t table;  ///< in inverse_table_designs()
  std::size_t cell;   ///< counted from 0
  double values;      ///< largest relative difference of values
  double factor;      ///< largest ratio of coefficients
  const char* why;
};

// The given coefficients come from a fit to the same equation of state. Values must agree to the
// fit errors of the cells (measured: 8.3e-7, 7.7e-6, 2.0e-6, 1.6e-5). The coefficients without a
// pressure offset must agree in sign and size; with a logarithm beside them, which a short range of
// pressure hardly tells apart, only roughly (measured: 1.11, 1.09, 1.55, 1.74).
const Given given[] = {{0, 0, 2.5e-6, 1.25, "liquid temperature from (p, h)"},
                       {1, 17, 2.3e-5, 1.25, "liquid density from (p, h)"},
                       {2, 57, 6e-6, 2.0, "liquid temperature from (p, s)"},
                       {3, 0, 5e-5, 2.5, "density of superheated liquid from (p, s)"}};

TEST(InverseFit, ComesCloseToTheGivenCoefficients) {
  for (const Given& g : given) {
    SCOPED_TRACE(g.why);
    const auto& [name, caloric, estimate] = inverse_table_designs()[g.table];
    const InverseTilingCell cell =
        read_inverse_tiling(tiling_text(std::string(name) + ".txt"))[g.cell];
    ASSERT_TRUE(cell.given);
    ServedStates served = served_states(caloric, cell.box, chebyshev_nodes(14));
    served.cold_liquid.clear();  // beyond the limits that the given fit kept to
    const InverseCell mine = fit_inverse_cell(caloric, estimate, cell, served);
    InverseCell theirs = mine;
    for (std::size_t i = 0; i < 16; ++i) theirs.coef[i % 4][i / 4] = (*cell.given)[i / 4][i % 4];
    double largest = 0.0;
    for (const InverseState& state : served.states) {
      const auto pres = static_cast<double>(state.pres);
      const auto value = static_cast<double>(state.caloric);
      largest = std::max(largest, std::abs(evaluate(caloric, mine, pres, value) /
                                               evaluate(caloric, theirs, pres, value) -
                                           1.0));
    }
    EXPECT_LT(largest, g.values);
    for (int k = 0; k < 4; ++k) {
      const double ratio = mine.coef[0][k] / theirs.coef[0][k];
      EXPECT_GT(ratio, 1.0 / g.factor) << "power " << k;
      EXPECT_LT(ratio, g.factor) << "power " << k;
    }
  }
}

// Conditions of a state, whatever way it was found.
TEST(InverseStates, HaveTheirPressureAndCaloricProperty) {
  struct Case {
    Caloric caloric;
    Box box;
    ServedStates::Kind kind;
    bool cold;
    const char* why;
  };
  using enum Caloric;
  using Kind = ServedStates::Kind;
  const Case cases[] = {
      {enthalpy, {7340.0, 7377.3, 320.0, 345.0}, Kind::stable, false, "around the critical point"},
      {enthalpy, {5000.0, 7000.0, 200.0, 450.0}, Kind::stable, false, "both sides of the dome"},
      {enthalpy, {50000.0, open_side, 1300.0, open_side}, Kind::stable, false, "hot end"},
      {enthalpy, {200.0, 1000.0, -open_side, 475.0}, Kind::stable, true, "vapour, open to cold"},
      {entropy, {-open_side, 1000.0, 1.0, 1.05}, Kind::superheated_liquid, false, "in the dome"},
      {entropy, {-open_side, 1000.0, 1.1, 1.9}, Kind::two_phase, false, "deeper in the dome"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.why);
    const ServedStates served = served_states(c.caloric, c.box, chebyshev_nodes(5));
    EXPECT_EQ(served.kind, c.kind);
    EXPECT_EQ(served.cold_liquid.empty(), !c.cold);
    EXPECT_GE(served.states.size(), 25U);
    for (const auto& [pres, value, at] : served.states) {
      EXPECT_GE(pres, std::max(c.box.x_lo, 1.0));
      EXPECT_LE(pres, std::min(c.box.x_hi, 100000.0));
      EXPECT_GE(value, c.box.y_lo);
      EXPECT_LE(value, c.box.y_hi);
      if (c.kind == Kind::two_phase) continue;
      const auto here = reference::properties<Real>(at.temp, at.dens);
      EXPECT_LT(std::fabs(here.p - pres), 1e-12L * here.dpdd * at.dens + 1e-12L * pres);
      EXPECT_LT(std::fabs((c.caloric == enthalpy ? here.h : here.s) - value), 1e-10L);
      EXPECT_GT(here.dpdd, 0.0L);
      EXPECT_TRUE(at.temp > 239.9999L && at.temp < 1500.0001L) << static_cast<double>(at.temp);
    }
  }
}

TEST(InverseTable, StoredCellsAreTheirFits) {
  const InverseCell* const records[] = {temp_from_hp_records, dens_from_hp_records,
                                        temp_from_sp_records, dens_from_sp_records};
  for (std::size_t t = 0; t < 4; ++t) {
    const auto& [name, caloric, estimate] = inverse_table_designs()[t];
    SCOPED_TRACE(name);
    const std::string text = tiling_text(std::string(name) + ".txt");
    const InverseTiling tiling = read_inverse_tiling(text);
    for (const std::size_t k : {std::size_t{4}, tiling.size() / 2, tiling.size() - 1}) {
      const ServedStates served = served_states(caloric, tiling[k].box, chebyshev_nodes(14));
      const InverseCell fresh = fit_inverse_cell(caloric, estimate, tiling[k], served);
      for (const InverseState& state : served.states) {
        const auto pres = static_cast<double>(state.pres);
        const auto value = static_cast<double>(state.caloric);
        const double stored = evaluate(caloric, records[t][k], pres, value);
        ASSERT_NEAR(evaluate(caloric, fresh, pres, value), stored, 1e-9 * stored)
            << "cell " << k + 1;
      }
    }
    std::ifstream stream(TABLEGEN_SOURCE_DIR "/solvers/tables/" + name + ".cpp");
    const std::string source{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_NE(source.find("Input digest " + inverse_digest(text) + "."), std::string::npos)
        << "the tiling or the fit changed: run `tablegen " << name << "`";
  }
}

}  // namespace
}  // namespace co2_properties::tablegen
