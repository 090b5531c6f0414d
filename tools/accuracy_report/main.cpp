// accuracy_report: measures the library against its reference models and checks the bounds.

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "accuracy_report/criteria.hpp"
#include "accuracy_report/derivatives.hpp"
#include "accuracy_report/jumps.hpp"
#include "accuracy_report/rounding.hpp"
#include "accuracy_report/sampling.hpp"
#include "accuracy_report/saturation_line.hpp"
#include "accuracy_report/stability.hpp"
#include "accuracy_report/transport.hpp"
#include "fits/near_critical.hpp"

namespace co2_properties::accuracy {
namespace {

struct Options {
  std::size_t states = 1000000;
  std::uint64_t seed = 20240229;
  unsigned threads = 2;
  std::string csv_folder;
  std::string update;
  bool transport = false;
  bool derivatives = false;
};

/// A text file that fails loudly.
class Output {
 public:
  explicit Output(const std::string& path) : file_(std::fopen(path.c_str(), "w")) {
    if (file_ == nullptr) throw std::runtime_error("cannot write " + path);
  }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;
  ~Output() {
    if (file_ != nullptr) std::fclose(file_);
  }
  template <class... Args>
  void print(fmt::format_string<Args...> format, Args&&... args) {
    fmt::print(file_, format, std::forward<Args>(args)...);
  }
  void close() {
    if (std::fclose(std::exchange(file_, nullptr)) != 0) throw std::runtime_error("disk full");
  }

 private:
  std::FILE* file_;
};

/// Two files for the plots: the sample and the saturation line.
void write_csv(const std::string& folder, const std::vector<StateErrors>& states,
               const std::vector<SaturationErrors>& line) {
  Output sample(folder + "/states.csv");
  sample.print("temp,dens");
  for (const char* name : quantity_names) sample.print(",{}", name);
  sample.print("\n");
  for (const StateErrors& state : states) {
    sample.print("{:.9g},{:.9g}", state.temp, state.dens);
    for (const double error : state.error) sample.print(",{:.3g}", error);
    sample.print("\n");
  }
  sample.close();
  Output saturation(folder + "/saturation.csv");
  saturation.print("temp,dens_liq,dens_vap,liq,vap\n");
  for (const SaturationErrors& e : line) {
    saturation.print("{:.9f},{:.9g},{:.9g},{:.3g},{:.3g}\n", e.temp, e.dens_liq, e.dens_vap, e.liq,
                     e.vap);
  }
  saturation.close();
}

/// The errors of all derivatives, for the plots.
void write_csv(const std::string& folder, const std::vector<DerivativeErrors>& states) {
  Output file(folder + "/derivatives.csv");
  file.print("temp,dens,mixture");
  for (const NamedDerivative& d : all_derivatives) file.print(",{}", d.name);
  file.print("\n");
  for (const DerivativeErrors& state : states) {
    file.print("{:.9g},{:.9g},{:d}", state.temp, state.dens, state.mixture);
    for (const double error : state.error) file.print(",{:.3g}", error);
    file.print("\n");
  }
  file.close();
}

Section sample_section(const Options& options, const Sample& sample) {
  std::size_t in_box = 0;
  std::size_t unstable = 0;
  for (const StateErrors& state : sample.states) {
    in_box += near_critical_box.contains(state.temp, state.dens) ? 1 : 0;
    unstable += state.stable ? 0 : 1;
  }
  return {"sample",
          fmt::format("{} single-phase states, {} of them in the critical box, seed {}; in {} of "
                      "them the reference is mechanically unstable.\n",
                      sample.states.size(), in_box, options.seed, unstable),
          true};
}

/// Prints the sections and rewrites them in the file that was asked for. \return the exit status
int publish(const Options& options, const std::vector<Section>& sections) {
  bool passed = true;
  for (const Section& section : sections) {
    fmt::print("{}{}\n{}\n", section.name, section.passed ? "" : ": BOUND EXCEEDED", section.text);
    passed = passed && section.passed;
  }
  if (!options.update.empty()) update_sections(options.update, sections);
  return passed ? 0 : 1;
}

int report(const Options& options) {
  constexpr int saturation_temperatures = 20000;
  const Sample sample = draw_sample(options.states, options.seed, options.threads);
  const auto line = saturation_errors(saturation_temperatures, options.threads);
  const int status =
      publish(options, {sample_section(options, sample), bounds_section(sample.states),
                        internal_heat_section(), critical_section(sample.states),
                        derivatives_section(sample.states), saturation_section(line),
                        phases_section(sample), element_jumps_section(), patch_jumps_section(),
                        stability_section(), rounding_section(sample.states)});
  fmt::print("worst\n{}", worst_section(sample.states).text);
  if (!options.csv_folder.empty()) write_csv(options.csv_folder, sample.states, line);
  fmt::print("{}\n", status == 0 ? "All bounds hold." : "A bound is exceeded.");
  return status;
}

int main_program(const int argc, const char* const* const argv) {
  CLI::App app(
      "Measures the library against its reference models. Exit status 1 if a bound is exceeded, 2 "
      "if the report cannot be made.",
      "accuracy_report");
  Options options;
  app.add_option("-n,--states", options.states, "Random single-phase states")
      ->type_name("N")
      ->check(CLI::Range(1000, 100000000))
      ->capture_default_str();
  app.add_option("--seed", options.seed, "Seed of the states")
      ->type_name("N")
      ->capture_default_str();
  app.add_option("-j,--threads", options.threads, "Threads; the results do not depend on them")
      ->type_name("N")
      ->check(CLI::Range(1, 256))
      ->capture_default_str();
  app.add_option(
         "--csv", options.csv_folder,
         "Existing folder for states.csv and saturation.csv, or for derivatives.csv, the input "
         "of the plots")
      ->type_name("FOLDER")
      ->check(CLI::ExistingDirectory);
  app.add_option("--update", options.update, "Markdown file whose marked sections are rewritten")
      ->type_name("FILE")
      ->check(CLI::ExistingFile);
  app.add_flag("--transport", options.transport,
               "Instead of all else: viscosity and conductivity against newer correlations, a "
               "fifth of N states "
               "in each part of the domain");
  app.add_flag("--derivatives", options.derivatives,
               "Instead of all else: the set of derivatives, at a tenth of N states and as many "
               "mixtures");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : 2;
  }
  if (options.transport) {
    return publish(options,
                   {newer_models_section(options.states / 5, options.seed, options.threads)});
  }
  if (options.derivatives) {
    const std::size_t count = options.states / 10;
    const Sample sample = draw_sample(count, options.seed, options.threads);
    const auto errors = derivative_errors(sample.states, count, options.seed, options.threads);
    if (!options.csv_folder.empty()) write_csv(options.csv_folder, errors);
    return publish(options, {derivative_set_section(errors)});
  }
  return report(options);
}

}  // namespace
}  // namespace co2_properties::accuracy

int main(const int argc, const char* const* const argv) {
  try {
    return co2_properties::accuracy::main_program(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "accuracy_report: %s\n", error.what());
    return 2;
  }
}
