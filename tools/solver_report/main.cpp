// solver_report: measures the entries that iterate.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "solver_report/tp_report.hpp"

int main(const int argc, const char* const* const argv) {
  using co2_properties::solver_report::Options;
  CLI::App app(
      "Measures the entries that iterate. Exit status 1 if a bound is exceeded, 2 if the report "
      "cannot be made.",
      "solver_report");
  app.require_subcommand(1);
  Options options;
  CLI::App* const tp = app.add_subcommand("tp", "co2_tp: round trips and reference densities");
  tp->add_option("-n,--states", options.states, "Random states of the round trips")
      ->type_name("N")
      ->capture_default_str();
  tp->add_option("-r,--reference", options.reference_states, "States compared with the reference")
      ->type_name("N")
      ->capture_default_str();
  tp->add_option("--seed", options.seed, "Seed of the states")
      ->type_name("N")
      ->capture_default_str();
  tp->add_option("-j,--threads", options.threads, "Threads; the results do not depend on them")
      ->type_name("N")
      ->check(CLI::Range(1, 256))
      ->capture_default_str();
  try {
    app.parse(argc, argv);
    return co2_properties::solver_report::report_tp(options) ? 0 : 1;
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "solver_report: %s\n", error.what());
    return 2;
  }
}
