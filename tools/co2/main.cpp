// co2: properties of carbon dioxide on the command line.

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <deque>
#include <exception>
#include <numeric>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "co2/csv.hpp"
#include "co2/csv_run.hpp"
#include "co2/input_pair.hpp"
#include "co2/print.hpp"
#include "co2/properties.hpp"

namespace co2_properties::tool {
namespace {

enum ExitCode { solved = 0, failed = 1, rejected = 2 };

/// What the user asked of one subcommand.
struct Request {
  const InputPair* pair = nullptr;
  CLI::App* command = nullptr;
  std::string first;
  std::string second;
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
  The header line names the columns '{}' ({}) and '{}' ({}), in any order; other columns
  are copied. Blank lines and lines that start with '#' are skipped, fields may be quoted,
  lines may end in CRLF. Each row gives one row: the columns of the file, the properties,
  and 'ierr', the status of the library (0 solved, negative warning, positive error). A
  column of the file that has the name of one of these is left out, except the two inputs.
  A bad row keeps its columns but has no properties and, if unreadable, no ierr; it is
  reported with its line number on standard error (the first 100), and the run goes on.
)";

[[nodiscard]] std::string program_help() {
  std::string text = "Examples:\n";
  for (const InputPair& pair : input_pairs()) {
    text += fmt::format("  co2 {} {}\n", pair.command, pair.example);
  }
  text += "  co2 info\n";
  return text + exit_status_help;
}

[[nodiscard]] std::string pair_help(const InputPair& pair) {
  std::string text = fmt::format(fmt::runtime(file_help), pair.first.name, pair.first.unit,
                                 pair.second.name, pair.second.unit);
  text += "\nProperties:\n";
  for (const Property& property : properties) {
    text += fmt::format("  {:<6}{:<15}{}\n", property.name, property.unit, property.meaning);
  }
  std::string example_row = pair.example;
  std::replace(example_row.begin(), example_row.end(), ' ', ',');
  text += fmt::format(
      "\nExamples:\n"
      "  co2 {0} {1}\n"
      "  co2 {0} {1} --columns inte,cp,ssnd\n"
      "  printf '{2},{3}\\n{4}\\n' | co2 {0} --csv -\n",
      pair.command, pair.example, pair.first.name, pair.second.name, example_row);
  return text + exit_status_help;
}

void add_options(Request& request) {
  const InputPair& pair = *request.pair;
  CLI::App& command = *request.command;
  const auto describe = [](const Property& property) {
    return fmt::format("{}, {}", property.meaning, property.unit);
  };
  CLI::Option* const csv = command.add_option(
      "--csv", request.input, "Comma-separated file of states; - for standard input");
  csv->type_name("FILE");
  command.add_option(std::string(pair.first.name), request.first, describe(pair.first))
      ->type_name("NUMBER")
      ->excludes(csv);
  command.add_option(std::string(pair.second.name), request.second, describe(pair.second))
      ->type_name("NUMBER");
  command.add_option("-o,--output", request.output, "File of results; standard output if absent")
      ->type_name("FILE")
      ->needs(csv);
  std::vector<std::string> names(property_count);
  std::transform(properties.begin(), properties.end(), names.begin(),
                 [](const Property& property) { return std::string(property.name); });
  command
      .add_option("-c,--columns", request.columns,
                  "Properties wanted, separated by commas; all if absent")
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
  command.footer(pair_help(pair));
}

[[nodiscard]] std::vector<std::size_t> wanted_columns(const Request& request) {
  std::vector<std::size_t> columns;
  for (const std::string& name : request.columns) columns.push_back(find_property(name));
  if (columns.empty()) {
    columns.resize(property_count);
    std::iota(columns.begin(), columns.end(), std::size_t{0});
  }
  return columns;
}

[[nodiscard]] double read_argument(const Property& property, const std::string& text) {
  if (const std::optional<double> value = parse_number(text)) return *value;
  throw std::runtime_error(fmt::format("{} is not a number: '{}'", property.name, text));
}

ExitCode run_single(const Request& request) {
  const InputPair& pair = *request.pair;
  if (request.first.empty() || request.second.empty()) {
    throw std::runtime_error(fmt::format("{0} needs {1} and {2}, or --csv; see co2 {0} --help",
                                         pair.command, pair.first.name, pair.second.name));
  }
  const double first = read_argument(pair.first, request.first);
  const double second = read_argument(pair.second, request.second);
  const std::vector<std::size_t> columns = wanted_columns(request);
  StateSolver solve(pair, columns);
  const State& state = solve(first, second);
  if (state.ierr != 0) {
    fmt::print(stderr, "co2: {} {}: {}\n", state.ierr < 0 ? "warning" : "error", state.ierr,
               message(state.ierr));
  }
  if (state.ierr > 0) return rejected;
  print_state(state, columns, request.digits == 0 ? digits_on_screen : request.digits);
  return solved;
}

ExitCode run(const Request& request) {
  if (request.input.empty()) return run_single(request);
  const CsvJob job{request.input, request.output, wanted_columns(request), request.digits,
                   request.threads};
  return run_csv(*request.pair, job) ? solved : rejected;
}

ExitCode main_program(const int argc, const char* const* const argv) {
  CLI::App app("Properties of carbon dioxide, 240 K to 1500 K and 1 kPa to 100 MPa.", "co2");
  app.set_version_flag("--version", "co2 " CO2_VERSION);
  app.require_subcommand(1);
  app.footer(program_help());
  std::deque<Request> requests;
  for (const InputPair& pair : input_pairs()) {
    Request& request = requests.emplace_back();
    request.pair = &pair;
    request.command = app.add_subcommand(pair.command, pair.summary);
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
