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

struct Outcome {
  int status;
  std::string printed;
};

/// What a child process prints and how it ends; it must not come back from the call.
Outcome run_child(const double temp, const double pres) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return {-1, "no pipe"};
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    dup2(ends[1], STDOUT_FILENO);
    dup2(ends[1], STDERR_FILENO);
    std::array<double, 6> out{};
    fittp_(&temp, &pres, &out[0], &out[1], &out[2], &out[3], &out[4], &out[5]);
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
    const Outcome outcome = run_child(c.temp, c.pres);
    EXPECT_TRUE(WIFEXITED(outcome.status) && WEXITSTATUS(outcome.status) == 0) << outcome.status;
    std::string padded = c.text;
    padded.resize(255, ' ');
    EXPECT_EQ(outcome.printed, " error in FIT - stopping\n " + padded + "\n");
  }
}

}  // namespace
}  // namespace co2_properties
