// The entries with fixed arguments. They end the process on an error, so each error is provoked in
// a child process.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "api/co2_properties.hpp"
#include "tests/support/bits.hpp"

namespace co2_properties {
namespace {

using test::bits;

TEST(Fittp, GivesTheValuesOfTheEntryWithViscosityInPascalSeconds) {
  struct Case {
    double temp, pres;
    const char* why;
  };
  const Case cases[] = {
      {300.0, 100.0, "gas"}, {280.0, 9000.0, "liquid"}, {305.0, 7500.0, "critical"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.why);
    double enth = 0.0, dens = 0.0, cv = 0.0, cp = 0.0, cond = 0.0, visc = 0.0;
    fittp_(&c.temp, &c.pres, &enth, &dens, &cv, &cp, &cond, &visc);
    std::int32_t ierr = 77;
    double e = 0.0, d = 0.0, v = 0.0, p = 0.0, l = 0.0, m = 0.0;
    co2_tp(c.temp, c.pres, ierr,
           {.dens = &d, .enth = &e, .cv = &v, .cp = &p, .visc = &m, .cond = &l});
    ASSERT_EQ(ierr, 0);
    EXPECT_EQ(bits(enth), bits(e));
    EXPECT_EQ(bits(dens), bits(d));
    EXPECT_EQ(bits(cv), bits(v));
    EXPECT_EQ(bits(cp), bits(p));
    EXPECT_EQ(bits(cond), bits(l));
    EXPECT_EQ(bits(visc), bits(m * 9.999999974752427e-7));
    EXPECT_NE(bits(visc), bits(m * 1e-6)) << "the factor is the single-precision one";
  }
}

TEST(Fitph, GivesTheValuesOfTheEntryWithQualityWithinItsLimits) {
  struct Case {
    double pres, enth, qual;
    const char* why;
  };
  const Case cases[] = {{1000.0, 460.0, 1.0, "gas: above 1"},
                        {9000.0, 200.0, 0.0, "liquid: below 0"},
                        {7000.0, 600.0, 1.0, "the mark 998"},
                        {9000.0, 600.0, 1.0, "the mark 999"},
                        {3000.0, 300.0, -1.0, "two phases: as it is, with a warning"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.why);
    double temp = 0.0, dens = 0.0, cv = 77.0, cp = 77.0, cond = 0.0, visc = 0.0, qual = 0.0;
    fitph_(&c.pres, &c.enth, &temp, &dens, &cv, &cp, &cond, &visc, &qual);
    std::int32_t ierr = 77;
    double t = 0.0, d = 0.0, q = 0.0, v = 0.0, p = 0.0, m = 0.0, l = 0.0;
    co2_ph(c.pres, c.enth, ierr,
           {.temp = &t, .dens = &d, .qual = &q, .cv = &v, .cp = &p, .visc = &m, .cond = &l});
    ASSERT_LE(ierr, 0);
    EXPECT_EQ(ierr == status::ph_two_phase, c.qual < 0.0);
    EXPECT_EQ(bits(temp), bits(t));
    EXPECT_EQ(bits(dens), bits(d));
    EXPECT_EQ(bits(cv), bits(v));
    EXPECT_EQ(bits(cp), bits(p));
    EXPECT_EQ(bits(cond), bits(l));
    EXPECT_EQ(bits(visc), bits(m * 9.999999974752427e-7));
    EXPECT_EQ(bits(qual), bits(c.qual < 0.0 ? q : c.qual));
    if (c.qual < 0.0) {
      EXPECT_TRUE(q > 0.0 && q < 1.0 && visc > 0.0) << q;
      EXPECT_EQ(bits(cv), 0U);
    }
  }
}

struct Outcome {
  int status;
  std::string printed;
};

/// What a child process prints and how it ends; `call` must not come back.
template <class Call>
Outcome run_child(const Call& call) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return {-1, "no pipe"};
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    dup2(ends[1], STDOUT_FILENO);
    dup2(ends[1], STDERR_FILENO);
    call();
    std::_Exit(99);
  }
  close(ends[1]);
  std::string printed;
  std::array<char, 512> block{};
  for (ssize_t n = 0; (n = read(ends[0], block.data(), block.size())) > 0;) {
    printed.append(block.data(), static_cast<std::size_t>(n));
  }
  close(ends[0]);
  int status = -1;
  waitpid(child, &status, 0);
  return {status, printed};
}

/// Both wrappers end in the same way.
void expect_two_records(const Outcome& outcome, std::string text) {
  EXPECT_TRUE(WIFEXITED(outcome.status) && WEXITSTATUS(outcome.status) == 0) << outcome.status;
  text.resize(255, ' ');
  EXPECT_EQ(outcome.printed, " error in FIT - stopping\n " + text + "\n");
}

TEST(Fittp, PrintsTwoRecordsAndEndsTheProcessOnAnError) {
  struct Case {
    double temp, pres;
    std::string text;
  };
  const Case cases[] = {
      {250.0, 0.5, "CO2_TP: specified pressure below minimum value of 1 kPa"},
      {200.0, 100.0, "CO2_TP: specified temperature below minimum value of 240 K"},
      {270.0, calc_sat_pres(270.0),
       "CO2_TP: specified temperature and pressure correspond to saturation point; state is "
       "undefined"},
  };
  for (const Case& c : cases) {
    double out[6] = {};
    expect_two_records(run_child([&] {
                         fittp_(&c.temp, &c.pres, &out[0], &out[1], &out[2], &out[3], &out[4],
                                &out[5]);
                       }),
                       c.text);
  }
}

TEST(Fitph, PrintsTwoRecordsAndEndsTheProcessOnAnError) {
  struct Case {
    double pres, enth;
    std::string text;
  };
  const Case cases[] = {
      {0.5, 400.0, "CO2_PH: specified pressure below minimum value of 1 kPa"},
      {5000.0, 20.0, "CO2_PH: specified inputs result in temperature below minimum value of 240 K"},
      {5000.0, 2000.0,
       "CO2_PH: specified inputs result in temperature above maximum value of 1500 K"},
  };
  for (const Case& c : cases) {
    double out[7] = {};
    expect_two_records(run_child([&] {
                         fitph_(&c.pres, &c.enth, &out[0], &out[1], &out[2], &out[3], &out[4],
                                &out[5], &out[6]);
                       }),
                       c.text);
  }
}

}  // namespace
}  // namespace co2_properties
