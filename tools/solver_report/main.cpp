// solver_report: measures the entries that iterate.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "solver_report/caloric_report.hpp"
#include "solver_report/cycle_report.hpp"
#include "solver_report/density_report.hpp"
#include "solver_report/edges_report.hpp"
#include "solver_report/limits_report.hpp"
#include "solver_report/pair_report.hpp"
#include "solver_report/saturation_report.hpp"
#include "solver_report/tp_report.hpp"

namespace co2_properties::solver_report {
namespace {

int run(const int argc, const char* const* const argv) {
  CLI::App app(
      "Measures the entries that iterate. Exit status 1 if a bound is exceeded, 2 if the report "
      "cannot be made.",
      "solver_report");
  app.require_subcommand(1);
  Options options;
  const auto add = [&](const char* name, const char* description) {
    CLI::App* const command = app.add_subcommand(name, description);
    command->add_option("-n,--states", options.states, "Random states of the round trips")
        ->type_name("N")
        ->capture_default_str();
    command->add_option("--seed", options.seed, "Seed of the states")
        ->type_name("N")
        ->capture_default_str();
    command
        ->add_option("-j,--threads", options.threads, "Threads; the results do not depend on them")
        ->type_name("N")
        ->check(CLI::Range(1, 256))
        ->capture_default_str();
    return command;
  };
  CLI::App* const tp = add("tp", "co2_tp: round trips and reference densities");
  tp->add_option("-r,--reference", options.reference_states, "States compared with the reference")
      ->type_name("N")
      ->capture_default_str();
  const CLI::App* const ph = add("ph", "co2_ph: round trips from co2_td");
  const CLI::App* const ps = add("ps", "co2_ps: round trips from co2_td");
  const CLI::App* const density =
      add("density", "co2_du, co2_dh, co2_ds, co2_dp: round trips from co2_td, batches, any bits");
  const CLI::App* const hs = add("hs", "co2_hs: round trips from co2_td");
  const CLI::App* const pu = add("pu", "co2_pu: round trips from co2_td");
  const CLI::App* const ts = add("ts", "co2_ts: round trips from co2_td");
  const CLI::App* const saturation =
      add("saturation", "co2_sat_t, co2_sat_p, co2_tx, co2_px: against each other and co2_td");
  const CLI::App* const edges = add("edges", "States on limits, below 240 K and on saturation");
  const CLI::App* const limits =
      add("limits", "All entries, inside and far outside the range, against co2_td");
  CLI::App* const exceptions =
      add("exceptions", "Floating-point exceptions of all entries, for any finite input");
  exceptions->add_flag("--trap", options.trap, "Let them end the process, where the system can");
  add("cycle", "Round trips through co2_tp, co2_ph and co2_ps");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : 2;
  }
  const auto report = tp->parsed()           ? report_tp
                      : ph->parsed()         ? report_ph
                      : ps->parsed()         ? report_ps
                      : density->parsed()    ? report_density
                      : hs->parsed()         ? report_hs
                      : pu->parsed()         ? report_pu
                      : ts->parsed()         ? report_ts
                      : saturation->parsed() ? report_saturation
                      : edges->parsed()      ? report_edges
                      : limits->parsed()     ? report_limits
                      : exceptions->parsed() ? report_exceptions
                                             : report_cycle;
  return report(options) ? 0 : 1;
}

}  // namespace
}  // namespace co2_properties::solver_report

int main(const int argc, const char* const* const argv) {
  try {
    return co2_properties::solver_report::run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "solver_report: %s\n", error.what());
    return 2;
  }
}
