// The flow example. Its exact solutions are judged by the integral form of the conservation laws,
// its solver by the exact solutions, its two-phase speed of sound by difference quotients.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "co2_properties.hpp"
#include "flow/cases.hpp"
#include "flow/euler.hpp"
#include "flow/ranks.hpp"
#include "flow/report.hpp"
#include "flow/solver.hpp"
#include "tests/support/program.hpp"

namespace flow {
namespace {

double density_of_mixture(const double temp, const double qual) {
  const double liq = 1.0 / co2_properties::calc_sat_liq_dens(temp);
  const double vap = 1.0 / co2_properties::calc_sat_vap_dens(temp);
  return 1.0 / (liq + qual * (vap - liq));
}

double internal_energy(const double temp, const double dens) {
  double inte = 0.0;
  std::int32_t ierr = 0;
  co2_properties::co2_td(temp, dens, ierr, {.inte = &inte});
  EXPECT_EQ(ierr, 0);
  return 1000.0 * inte;
}

// Both sides come from fits beside the line of saturation and differ by the errors of these, which
// grow towards the critical point.
TEST(FlowFluid, SpeedOfSoundOfMixturesIsASlope) {
  struct Row {
    const char* why;
    double temp, qual;
    double bound;
  };
  const Row rows[] = {
      {"bubbles, cold", 242.0, 0.01, 5e-5},  {"bubbles", 285.0, 0.01, 5e-5},
      {"half, cold", 245.0, 0.5, 5e-5},      {"half", 280.0, 0.5, 5e-5},
      {"droplets, cold", 250.0, 0.99, 5e-5}, {"droplets", 290.0, 0.99, 5e-5},
      {"near critical", 303.0, 0.5, 1e-4},   {"bubbles, near critical", 302.0, 0.05, 1e-4},
  };
  Fluid fluid;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const double dens = density_of_mixture(row.temp, row.qual);
    const State s = fluid.from_energy(dens, internal_energy(row.temp, dens));
    ASSERT_TRUE(s.two_phase);
    const double entr = fluid.entropy(s);
    const State above = fluid.from_ps(1.001 * s.pres, entr);
    const State below = fluid.from_ps(0.999 * s.pres, entr);
    ASSERT_TRUE(above.two_phase && below.two_phase);
    const double speed = std::sqrt((above.pres - below.pres) / (above.dens - below.dens));
    EXPECT_NEAR(s.ssnd / speed, 1.0, row.bound);
  }
}

TEST(FlowFluid, EveryPairGivesTheSameState) {
  struct Row {
    const char* why;
    double temp, dens;
    bool two_phase;
  };
  const Row rows[] = {{"gas", 352.0, 90.0, false},
                      {"liquid", 245.0, 1090.0, false},
                      {"critical", 304.5, 467.6, false},
                      {"mixture", 250.0, 300.0, true}};
  Fluid fluid;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const State s = fluid.from_energy(row.dens, internal_energy(row.temp, row.dens));
    EXPECT_EQ(s.two_phase, row.two_phase);
    EXPECT_NEAR(s.temp, row.temp, 1e-9 * row.temp);
    std::vector<State> others = {fluid.from_ph(s.pres, s.enth),
                                 fluid.from_ps(s.pres, fluid.entropy(s))};
    if (!row.two_phase) others.push_back(fluid.from_tp(s.temp, s.pres));
    for (const State& other : others) {
      EXPECT_EQ(other.two_phase, row.two_phase);
      for (double State::*const value :
           {&State::temp, &State::pres, &State::dens, &State::inte, &State::enth, &State::ssnd}) {
        EXPECT_NEAR(other.*value / s.*value, 1.0, 1e-5);
      }
    }
  }
  EXPECT_EQ(fluid.calls().loose, 0);
  EXPECT_THROW((void)fluid.from_energy(600.0, 5e6), StateError) << "hotter than any state";
  EXPECT_THROW((void)fluid.from_energy(600.0, -1e6), StateError);
  EXPECT_THROW((void)fluid.from_energy(NAN, 3e5), StateError);
}

// d/dt of what lies between two points that move with their own x / t is what flows in there.
TEST(FlowRiemann, SolutionsConserveMassMomentumAndEnergy) {
  Fluid fluid;
  const State dense = fluid.from_tp(350.0, 20e6);
  const State gas = fluid.from_tp(350.0, 5e6);
  const State cool = fluid.from_tp(300.0, 20e6);
  const State thinner = fluid.from_tp(350.0, 20e6 * (1.0 - 1e-9));
  const State liquid = fluid.from_tp(300.0, 12e6);
  struct Row {
    const char* why;
    SelfSimilar solution;
  };
  const Row rows[] = {
      {"fan and shock", solve_riemann(fluid, {dense, 0.0}, {gas, 0.0})},
      {"shock and fan", solve_riemann(fluid, {gas, 0.0}, {dense, 0.0})},
      {"two shocks", solve_riemann(fluid, {dense, 50.0}, {dense, -100.0})},
      {"two fans", solve_riemann(fluid, {gas, -50.0}, {gas, 40.0})},
      {"boiling fan that ends choked", open_end(fluid, {liquid, 0.0}, 1.5e6)},
      {"boiling fan that reaches the pressure outside", open_end(fluid, {liquid, 0.0}, 4e6)},
      {"fan past the critical point into two phases", open_end(fluid, {dense, 0.0}, 3e6)},
      {"a contact at rest and nothing else", solve_riemann(fluid, {dense, 0.0}, {cool, 0.0})},
      {"fan and shock that are all but rounding",
       solve_riemann(fluid, {dense, 0.0}, {thinner, 0.0})},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const auto& p = row.solution.points();
    Conserved missing;
    double fastest = 0.0;
    for (std::size_t i = 1; i < p.size(); ++i) {
      const Conserved a = conserved(p[i - 1].flow);
      const Conserved b = conserved(p[i].flow);
      missing = missing + flux(p[i].flow) - flux(p[i - 1].flow) - p[i].speed * b +
                p[i - 1].speed * a + 0.5 * (p[i].speed - p[i - 1].speed) * (a + b);
      fastest = std::max(fastest, std::abs(p[i].speed));
    }
    const double mass = std::max(p.front().flow.state.dens, p.back().flow.state.dens) * fastest;
    EXPECT_LT(std::abs(missing.dens) / mass, 3e-6);
    EXPECT_LT(std::abs(missing.mome) / (mass * fastest), 3e-6);
    EXPECT_LT(std::abs(missing.ener) / (mass * fastest * fastest), 3e-6);
  }
  const SelfSimilar::Point& exit = rows[4].solution.points().back();
  EXPECT_NEAR(exit.flow.velo, exit.flow.state.ssnd, 1e-3);
  EXPECT_TRUE(exit.flow.state.two_phase);
  EXPECT_EQ(rows[5].solution.points().back().flow.state.pres, 4e6);
}

TEST(FlowRiemann, OpenEndIsAtThePressureOutsideUnlessChoked) {
  Fluid fluid;
  const State liquid = fluid.from_tp(300.0, 12e6);
  const double pres_sat = open_end(fluid, {liquid, 100.0}, 3e6).points().back().flow.state.pres;
  struct Row {
    const char* why;
    double velo;
    double outside, pres;
  };
  const Row rows[] = {
      {"slow and liquid", 0.0, 9e6, 9e6},
      {"boiling", 0.0, 4e6, 4e6},
      {"faster than sound in the mixture: no further than saturation", 100.0, 3e6, pres_sat},
      {"faster than sound: nothing comes in", 500.0, 3e6, 12e6},
      {"pushed back", 50.0, 13e6, 13e6},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const Flowing exit = outflow(fluid, {liquid, row.velo}, row.outside);
    EXPECT_NEAR(exit.state.pres, row.pres, 1e-9 * row.pres);
    EXPECT_EQ(exit.velo > row.velo, row.pres < 12e6);
    EXPECT_EQ(exit.state.two_phase, row.pres == 4e6);
  }
  // The temperature of the isentrope on the line of saturation: entropy of the liquid there.
  const double temp = co2_properties::calc_sat_temp(pres_sat / 1000.0);
  double entr = 0.0;
  std::int32_t ierr = 0;
  co2_properties::co2_td(temp, co2_properties::calc_sat_liq_dens(temp), ierr, {.entr = &entr});
  EXPECT_NEAR(1000.0 * entr, fluid.entropy(liquid), 0.01);
}

TEST(FlowEuler, FluxKnowsUpstreamFromDownstream) {
  Fluid fluid;
  const State dense = fluid.from_tp(350.0, 20e6);
  const State gas = fluid.from_tp(350.0, 5e6);
  const auto off = [](const Conserved& a, const Conserved& b) {
    return std::max({std::abs(a.dens - b.dens) / 1e5, std::abs(a.mome - b.mome) / 1e7,
                     std::abs(a.ener - b.ener) / 1e10});
  };
  for (const double velo : {-500.0, -50.0, 0.0, 50.0, 500.0}) {
    SCOPED_TRACE(velo);
    EXPECT_LT(off(hllc_flux({gas, velo}, {gas, velo}), flux({gas, velo})), 1e-14) << "consistent";
    const Conserved there = hllc_flux({dense, velo}, {gas, 20.0});
    const Conserved back = hllc_flux({gas, -20.0}, {dense, -velo});
    EXPECT_LT(off(there, {-back.dens, back.mome, -back.ener}), 1e-14) << "seen in a mirror";
    const Conserved meet = hllc_flux({gas, velo / 2.0}, {gas, -velo / 2.0});
    EXPECT_LT(off(meet, {0.0, meet.mome, 0.0}), 1e-14) << "streams that meet, or a wall";
    EXPECT_GE((meet.mome - gas.pres) * velo, 0.0);
  }
  EXPECT_EQ(off(hllc_flux({gas, 500.0}, {dense, 500.0}), flux({gas, 500.0})), 0.0);
  EXPECT_EQ(off(hllc_flux({gas, -500.0}, {dense, -500.0}), flux({dense, -500.0})), 0.0);

  // A contact that moves slowly: what is behind it flows through.
  const State other = fluid.from_tp(400.0, 5e6);
  EXPECT_LT(off(hllc_flux({gas, 1.0}, {other, 1.0}), flux({gas, 1.0})), 1e-12);
}

Snapshot solve(const Case& c, const std::int64_t cells, const Ranks& ranks) {
  Solver solver(c, cells, 0.5, ranks);
  const Budget start = solver.budget();
  solver.run_until(c.times.front());
  Snapshot s{c.times.front(), {}, solver.profile(), {}};
  for (std::size_t i = 0; i < s.flow.size(); ++i)
    s.exact.push_back(c.exact(solver.place(i), s.time));
  const Imbalance left = imbalance(start, solver.budget(), s, c.length);
  EXPECT_LT(std::max({left.dens, left.mome, left.ener}), 2e-13) << cells;
  return s;
}

struct Convergence {
  const char* why;
  Case (*make)(Fluid&, const Choice&);
  Choice choice;
  Errors fine;   ///< bound on 200 cells
  double order;  ///< least order of density, velocity and pressure between 50 and 200 cells
};

TEST(FlowSolver, ErrorsFallAsTheCellsShrink) {
  const Convergence rows[] = {
      {"shock tube", shock_tube, tube_default, {1.3e-2, 2.2e-2, 7e-3}, 0.6},
      {"shock tube to the left", shock_tube, {350, 5e6, 350, 20e6}, {1.3e-2, 2.2e-2, 7e-3}, 0.6},
      {"boiling in an open pipe", depressurisation, pipe_default, {3.3e-3, 3.1e-2, 9.5e-3}, 0.9},
      {"smooth wave", simple_wave, wave_default, {4.1e-5, 2.9e-3, 1.5e-4}, 1.8},
  };
  const Ranks ranks;
  for (const Convergence& row : rows) {
    SCOPED_TRACE(row.why);
    Fluid fluid;
    const Case c = row.make(fluid, row.choice);
    const Errors coarse = errors(solve(c, 50, ranks));
    const Errors fine = errors(solve(c, 200, ranks));
    for (double Errors::*const part : {&Errors::dens, &Errors::velo, &Errors::pres}) {
      EXPECT_LT(fine.*part, row.fine.*part);
      EXPECT_GT(0.5 * std::log2(coarse.*part / (fine.*part)), row.order);
    }
  }
}

TEST(FlowSolver, PipesEmptyThroughTwoPhasesWithoutAStateError) {
  struct Row {
    const char* why;
    Choice choice;
  };
  const Row rows[] = {
      {"from liquid", pipe_default},
      {"from dense fluid, past the critical point", {350.0, 20e6, 0.0, 3e6}},
      {"from near the critical point, with flow that turns", {305.0, 8e6, 0.0, 4e6}},
  };
  const Ranks ranks;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    Fluid fluid;
    const Case c = depressurisation(fluid, row.choice);
    Solver solver(c, 60, 0.5, ranks);
    const Budget start = solver.budget();
    double lowest = solver.profile().front().state.pres;
    for (const double time : c.times) {
      ASSERT_NO_THROW(solver.run_until(time));
      double pres = 0.0;
      for (const Flowing& f : solver.profile()) pres = std::max(pres, f.state.pres);
      EXPECT_LT(pres, lowest * (1.0 + 1e-12)) << "the highest pressure never rises";
      lowest = pres;
    }
    const Snapshot last{solver.time(), {}, solver.profile(), {}};
    for (const Flowing& f : last.flow) EXPECT_TRUE(f.state.two_phase);
    EXPECT_LT(last.flow.front().state.pres, row.choice.pres_right) << "thrown back at both ends";
    const Budget end = solver.budget();
    EXPECT_LT(end.passed.dens, -0.3 * start.inside.dens) << "what has left";
    const Imbalance left = imbalance(start, end, last, c.length);
    EXPECT_LT(std::max({left.dens, left.mome, left.ener}), 2e-13);
  }
}

class FlowProgram : public co2_properties::test::ProgramTest {
 protected:
  /// MPI may run as root, on more ranks than cores, and leave memory behind.
  [[nodiscard]] co2_properties::test::Outcome run(const std::string& launcher,
                                                  const std::string& options) const {
    return shell(
        "export ASAN_OPTIONS=detect_leaks=0 OMPI_ALLOW_RUN_AS_ROOT=1 "
        "OMPI_ALLOW_RUN_AS_ROOT_CONFIRM=1 OMPI_MCA_rmaps_base_oversubscribe=1 "
        "OMPI_MCA_mpi_yield_when_idle=1; " +
        launcher + " '" FLOW_PROGRAM "' " + options);
  }
};

TEST_F(FlowProgram, ResultsDoNotDependOnTheNumberOfRanks) {
  const std::string launcher = FLOW_MPIEXEC;
  if (launcher.empty()) GTEST_SKIP() << "built without MPI";
  for (const std::string name : {"tube", "pipe", "wave"}) {
    SCOPED_TRACE(name);
    std::string alone;
    std::string summary;
    for (const std::string ranks : {"1", "2", "3"}) {
      SCOPED_TRACE(ranks);
      const auto [status, out, err] =
          run(launcher + " -n " + ranks, name + " --cells 41 --csv " + ranks);
      ASSERT_EQ(status, 0) << err;
      const std::string profile = read(ranks + "/" + name + ".csv");
      const std::size_t line = out.find("error at");
      const std::string told = out.substr(line, out.find("work of") - line);
      if (ranks == "1") {
        alone = profile;
        summary = told;
        EXPECT_GE(std::count(alone.begin(), alone.end(), '\n'), 42);
        EXPECT_EQ(alone.find("nan"), std::string::npos);
      }
      EXPECT_TRUE(profile == alone);
      EXPECT_EQ(told, summary);
      EXPECT_NE(out.find("on " + ranks + " rank"), std::string::npos);
    }
  }
}

TEST_F(FlowProgram, ExitStatusTellsWhatWentWrong) {
  const co2_properties::test::Exit rows[] = {
      {"help", "--help", 0, ""},
      {"too cold", "tube --temp 200", 2, "co2_tp(200, 20000): status 201"},
      {"colder and colder", "pipe --temp 245 --pres 3000 --pres-right 1100 --cells 20", 2,
       "below minimum value of 240 K"},
      {"no cells", "tube --cells 0", 1, "--cells"},
      {"no value", "tube --pres", 1, "--pres"},
      {"no case", "", 1, "subcommand"},
      {"a file as folder", "tube --cells 20 --csv stdout/x", 1, "cannot write stdout/x"},
      {"no wave at all", "tube --pres 5000 --cells 20", 0, ""},
      {"nothing flows out", "pipe --pres-right 12000", 1, "has to be below"},
      {"no wave", "wave --pres-right 20000", 1, "has to be below"},
  };
  for (const auto& row : rows) {
    const auto outcome = run("", row.arguments);
    row.expect(outcome);
    EXPECT_EQ(outcome.err.find("MPI"), std::string::npos) << "one process ends by itself";
  }
}

}  // namespace
}  // namespace flow
