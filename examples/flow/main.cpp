// flow: one-dimensional flow of carbon dioxide with the properties of this library.

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "flow/cases.hpp"
#include "flow/ranks.hpp"
#include "flow/report.hpp"
#include "flow/solver.hpp"

namespace flow {
namespace {

enum ExitCode { solved = 0, failed = 1, no_state = 2 };

struct Request {
  Case (*make)(Fluid&, const Choice&) = nullptr;
  Choice choice{};
  std::int64_t cells = 400;
  double cfl = 0.5;
  std::string csv;
};

/// Adds a flow to the command line; pressures are read in kPa.
void add_case(CLI::App& app, Request& request, const std::string& name, const std::string& what,
              Case (*const make)(Fluid&, const Choice&), const Choice& choice,
              const std::string& right, const bool temp_right) {
  CLI::App* const command = app.add_subcommand(name, what);
  command->parse_complete_callback([&request, make] { request.make = make; });
  const auto option = [&](const std::string& flag, double Choice::*const part, const double unit,
                          const std::string& meaning) {
    command
        ->add_option_function<double>(
            flag,
            [&request, part, unit](const double value) { request.choice.*part = value * unit; },
            meaning)
        ->default_str(fmt::format("{}", choice.*part / unit));
  };
  command->preparse_callback([&request, choice](std::size_t) { request.choice = choice; });
  option("--temp", &Choice::temp_left, 1.0, "temperature, K");
  option("--pres", &Choice::pres_left, 1000.0, "pressure, kPa");
  if (temp_right) option("--temp-right", &Choice::temp_right, 1.0, "temperature on the right, K");
  option("--pres-right", &Choice::pres_right, 1000.0, right);
  command->add_option("--cells", request.cells, "number of cells")
      ->check(CLI::Range(4, 1000000))
      ->capture_default_str();
  command->add_option("--cfl", request.cfl, "Courant number")
      ->check(CLI::Range(0.01, 0.9))
      ->capture_default_str();
  command->add_option("--csv", request.csv, "folder for the profiles");
}

void run(const Request& request, const Ranks& ranks) {
  Fluid fluid;
  const Case c = request.make(fluid, request.choice);
  Solver solver(c, request.cells, request.cfl, ranks);
  const Budget start = solver.budget();
  std::vector<Snapshot> snapshots;
  for (const double time : c.times) {
    solver.run_until(time);
    Snapshot& s = snapshots.emplace_back();
    s.time = time;
    s.flow = solver.profile();
    for (std::size_t i = 0; i < s.flow.size(); ++i) {
      s.x.push_back(solver.place(i));
      if (time <= c.exact_until) s.exact.push_back(c.exact(s.x[i], time));
    }
  }
  const Budget end = solver.budget();
  const Work own = {solver.times(), solver.calls()};
  const std::vector<Work> work = ranks.gather<Work>(std::span(&own, 1));
  if (!ranks.first()) return;

  fmt::print("{}: {} cells on {} rank{}, {} steps to {:.6g} s\n", c.name, request.cells,
             ranks.size(), ranks.size() > 1 ? "s" : "", solver.steps(), solver.time());
  for (const Snapshot& s : snapshots) {
    if (s.exact.empty()) continue;
    const Errors e = errors(s);
    fmt::print("error at {:.6g} s, relative: density {:.3e}, velocity {:.3e}, pressure {:.3e}\n",
               s.time, e.dens, e.velo, e.pres);
  }
  const Imbalance i = imbalance(start, end, snapshots.back(), c.length);
  fmt::print("conservation, relative: mass {:.1e}, momentum {:.1e}, energy {:.1e}\n", i.dens,
             i.mome, i.ener);
  print_work(work);
  if (!request.csv.empty()) write_csv(request.csv, c.name, snapshots);
}

/// One process tells; all end.
int complain(const std::exception& error, const int code, const Ranks& ranks) {
  std::fprintf(stderr, "flow: %s\n", error.what());
  if (ranks.size() > 1) ranks.abort(code);
  return code;
}

}  // namespace
}  // namespace flow

int main(const int argc, const char* const* const argv) {
  using namespace flow;
  Request request;
  CLI::App app("One-dimensional flow of carbon dioxide; runs on the ranks of mpirun.", "flow");
  app.require_subcommand(1);
  add_case(app, request, "tube", "shock tube", shock_tube, tube_default,
           "pressure on the right, kPa", true);
  add_case(app, request, "pipe", "pipe opened at its right end", depressurisation, pipe_default,
           "pressure outside, kPa", false);
  add_case(app, request, "wave", "smooth wave around a ring", simple_wave, wave_default,
           "lowest pressure, kPa", false);

  const Ranks ranks;
  try {
    app.parse(argc, argv);
    run(request, ranks);
    if (std::fflush(stdout) != 0) throw std::runtime_error("cannot write standard output");
    return solved;
  } catch (const CLI::ParseError& error) {
    const int code = app.exit(error) == 0 ? solved : failed;
    return code;
  } catch (const StateError& error) {
    return complain(error, no_state, ranks);
  } catch (const std::exception& error) {
    return complain(error, failed, ranks);
  }
}
