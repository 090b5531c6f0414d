// co2: properties of carbon dioxide on the command line.

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstdio>
#include <deque>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "co2/csv.hpp"
#include "co2/csv_run.hpp"
#include "co2/print.hpp"
#include "co2/properties.hpp"
#include "co2/subcommand.hpp"

namespace co2_properties::tool {
namespace {

enum ExitCode { solved = 0, failed = 1, rejected = 2 };

/// What the user asked of one subcommand.
struct Request {
  const Subcommand* subcommand = nullptr;
  CLI::App* command = nullptr;
  std::array<std::string, 2> inputs;
  std::string input;
  std::string output = "-";
  std::vector<std::string> columns;
  int digits = 0;
  unsigned threads = std::max(1U, std::thread::hardware_concurrency());
};

constexpr int digits_on_screen = 10;

constexpr const char* exit_status_help = R"(
Exit status:
  0  solved, also with warnings
  1  wrong usage, or a file cannot be read or written
  2  the state, or at least one row of the file, was rejected or is unreadable
)";

constexpr const char* file_help = R"(Files:
  The header line names {}; other columns are copied.
  Blank lines and lines that start with '#' are skipped, fields may be quoted, lines may
  end in CRLF. Each row gives one row: the columns of the file, the properties, and 'ierr',
  the status of the library (0 solved, negative warning, positive error). A column of the
  file that has the name of one of these is left out, except inputs. A bad row keeps its
  columns but has no properties and, if unreadable, no ierr; it is reported with its line
  number on standard error (the first 100), and the run goes on.{}
)";

[[nodiscard]] std::string program_help() {
  std::string text = "Examples:\n";
  for (const Subcommand& subcommand : subcommands()) {
    text += fmt::format("  co2 {} {}\n", subcommand.name, subcommand.example);
  }
  text += "  co2 info\n";
  return text + exit_status_help;
}

/// The inputs, each as `pattern` says, with `separator` between them.
template <class Pattern>
[[nodiscard]] std::string join_inputs(const Subcommand& subcommand, const Pattern pattern,
                                      const char* const separator) {
  std::string text;
  for (const Property* const input : subcommand.inputs()) {
    text += text.empty() ? "" : separator;
    text += pattern(*input);
  }
  return text;
}

[[nodiscard]] std::string input_name(const Property& input) { return std::string(input.name); }

[[nodiscard]] std::string property_table(const std::vector<std::size_t>& indices) {
  std::string text;
  for (const std::size_t i : indices) {
    const Property& property = properties[i];
    text += fmt::format("  {:<13}{:<15}{}\n", property.name, property.unit, property.meaning);
  }
  return text;
}

[[nodiscard]] std::string subcommand_help(const Subcommand& subcommand) {
  std::string text = fmt::format(
      fmt::runtime(file_help),
      join_inputs(
          subcommand, [](const Property& p) { return fmt::format("'{}' ({})", p.name, p.unit); },
          " and "),
      subcommand.saturation == nullptr
          ? ""
          : " What differs between the\n  phases has two columns, such as dens_liq and dens_vap.");
  const Choice properties = choice(subcommand);
  text += "\nProperties:\n" + property_table(properties.usual);
  text += "\nFurther ones, for --columns; in a mixture those of the mixture in equilibrium:\n" +
          property_table(properties.further);
  std::string example_row = subcommand.example;
  std::replace(example_row.begin(), example_row.end(), ' ', ',');
  text += fmt::format(
      "\nExamples:\n"
      "  co2 {0} {1}\n"
      "  co2 {0} {1} --columns inte,cp,ssnd,dpdd_u\n"
      "  printf '{2}\\n{3}\\n' | co2 {0} --csv -\n",
      subcommand.name, subcommand.example, join_inputs(subcommand, input_name, ","), example_row);
  return text + exit_status_help;
}

void add_options(Request& request) {
  const Subcommand& subcommand = *request.subcommand;
  CLI::App& command = *request.command;
  CLI::Option* const csv = command.add_option(
      "--csv", request.input, "Comma-separated file of states; - for standard input");
  csv->type_name("FILE");
  for (std::size_t k = 0; k < subcommand.inputs().size(); ++k) {
    const Property& input = *subcommand.inputs()[k];
    command
        .add_option(input_name(input), request.inputs[k],
                    fmt::format("{}, {}", input.meaning, input.unit))
        ->type_name("NUMBER")
        ->excludes(csv);
  }
  command.add_option("-o,--output", request.output, "File of results; standard output if absent")
      ->type_name("FILE")
      ->needs(csv);
  const auto [usual, further] = choice(subcommand);
  std::vector<std::string> names;
  for (const auto* const part : {&usual, &further}) {
    for (const std::size_t i : *part) names.emplace_back(properties[i].name);
  }
  command
      .add_option("-c,--columns", request.columns,
                  "Properties wanted, separated by commas; all but the further ones if absent")
      ->type_name("NAMES")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->check(CLI::IsMember(names).description(""));
  command
      .add_option(
          "-d,--digits", request.digits,
          fmt::format(
              "Significant digits of results, 1 to 17; if absent {} on the screen and, in files, "
              "as many as are exact",
              digits_on_screen))
      ->type_name("N")
      ->check(CLI::Range(1, 17).description(""));
  command.add_option("-j,--threads", request.threads, "Threads for a file of states")
      ->type_name("N")
      ->check(CLI::Range(1, 256).description(""))
      ->needs(csv)
      ->capture_default_str();
  command.footer(subcommand_help(subcommand));
}

[[nodiscard]] std::vector<std::size_t> wanted_columns(const Request& request) {
  std::vector<std::size_t> columns;
  for (const std::string& name : request.columns) columns.push_back(find_property(name));
  return columns.empty() ? choice(*request.subcommand).usual : columns;
}

[[nodiscard]] double read_argument(const Property& property, const std::string& text) {
  if (const std::optional<double> value = parse_number(text)) return *value;
  throw std::runtime_error(fmt::format("{} is not a number: '{}'", property.name, text));
}

ExitCode run_single(const Request& request) {
  const Subcommand& subcommand = *request.subcommand;
  std::vector<double> inputs;
  for (const Property* const input : subcommand.inputs()) {
    const std::string& text = request.inputs[inputs.size()];
    if (text.empty()) {
      throw std::runtime_error(fmt::format("{0} needs {1}, or --csv; see co2 {0} --help",
                                           subcommand.name,
                                           join_inputs(subcommand, input_name, " and ")));
    }
    inputs.push_back(read_argument(*input, text));
  }
  const std::vector<Result> results = results_of(subcommand, wanted_columns(request));
  StateSolver solve(subcommand, results);
  const State& state = solve(inputs);
  if (state.ierr != 0) {
    fmt::print(stderr, "co2: {} {}: {}\n", state.ierr < 0 ? "warning" : "error", state.ierr,
               message(state.ierr));
  }
  if (state.ierr > 0) return rejected;
  print_state(state, results, request.digits == 0 ? digits_on_screen : request.digits);
  return solved;
}

ExitCode run(const Request& request) {
  if (request.input.empty()) return run_single(request);
  const CsvJob job{request.input, request.output, wanted_columns(request), request.digits,
                   request.threads};
  return run_csv(*request.subcommand, job) ? solved : rejected;
}

ExitCode main_program(const int argc, const char* const* const argv) {
  CLI::App app("Properties of carbon dioxide, 240 K to 1500 K and 1 kPa to 100 MPa.", "co2");
  app.set_version_flag("--version", "co2 " CO2_VERSION);
  app.require_subcommand(1);
  app.footer(program_help());
  std::deque<Request> requests;
  for (const Subcommand& subcommand : subcommands()) {
    Request& request = requests.emplace_back();
    request.subcommand = &subcommand;
    request.command = app.add_subcommand(subcommand.name, subcommand.summary);
    add_options(request);
  }
  const CLI::App* const info = app.add_subcommand("info", "Critical point and limits");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? solved : failed;
  }
  if (info->parsed()) print_info();
  for (const Request& request : requests) {
    if (request.command->parsed()) return run(request);
  }
  return solved;
}

}  // namespace
}  // namespace co2_properties::tool

int main(const int argc, const char* const* const argv) {
  try {
    const co2_properties::tool::ExitCode code = co2_properties::tool::main_program(argc, argv);
    if (std::fflush(stdout) != 0) throw std::runtime_error("cannot write standard output");
    return code;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "co2: %s\n", error.what());
    return co2_properties::tool::failed;
  }
}
