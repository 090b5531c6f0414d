// co2: properties of carbon dioxide on the command line.

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <deque>
#include <exception>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "co2/convert.hpp"
#include "co2/print.hpp"
#include "co2/properties.hpp"
#include "co2/quantity.hpp"
#include "co2/rows.hpp"
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
  std::string output;
  std::vector<std::string> columns;
  std::vector<std::string> maps;
  std::string delimiter = ",";
  Format format;
  unsigned threads = std::max(1U, std::thread::hardware_concurrency());
  bool quiet = false;
};

constexpr int digits_on_screen = 10;

constexpr const char* exit_status_help = R"(
Exit status:
  0  solved, also with warnings
  1  wrong usage, or a file cannot be read or written
  2  the state, or at least one row of the file, was rejected or is unreadable
)";

constexpr const char* file_help = R"(Inputs:
  A number, in the unit given or with one of its own: {1}.
  A range start:stop:step, such as {2}, gives a row for each of its values, and so do
  combinations of two; rows are written as those of a file.

Files:
  The header line names {0}; other columns are copied.
  Blank lines and lines that start with '#' are skipped, fields may be quoted and then have
  lines of their own, lines may end in CRLF. Each row gives one row: the columns of the file,
  the properties, and 'ierr', the status of the library (0 solved, negative warning, positive
  error). A column of the file that has the name of one of these is left out, except inputs.
  A property that the state does not have is empty, with --json null. A bad row keeps its
  columns but has no properties and, if unreadable, no ierr; the first ones are reported on
  standard error, then the counts by code, and the run goes on.{3}
)";

[[nodiscard]] std::string program_help() {
  std::string text = "Examples:\n";
  for (const Subcommand& subcommand : subcommands()) {
    text += fmt::format("  co2 {} {}\n", subcommand.name, subcommand.example);
  }
  text += "  co2 sat 4MPa\n  co2 info\n";
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

/// A range that begins at the first input of the example.
[[nodiscard]] std::string range_example(const Subcommand& subcommand) {
  const std::string example = subcommand.example;
  const std::string start = example.substr(0, example.find(' '));
  return fmt::format("{}:{}:{}", start, 1.02 * std::stod(start), 0.01 * std::stod(start));
}

[[nodiscard]] std::string subcommand_help(const Subcommand& subcommand) {
  std::string text = fmt::format(
      fmt::runtime(file_help),
      join_inputs(
          subcommand, [](const Property& p) { return fmt::format("'{}' ({})", p.name, p.unit); },
          " and "),
      join_inputs(
          subcommand,
          [](const Property& p) {
            const std::string known = known_units(p);
            return fmt::format("{} in {}", p.name, known.empty() ? std::string(p.unit) : known);
          },
          "; "),
      range_example(subcommand),
      subcommand.saturation == nullptr
          ? ""
          : " What differs between the\n  phases has two columns, such as dens_liq and dens_vap.");
  const Choice properties = choice(subcommand);
  text += "\nProperties:\n" + property_table(properties.usual);
  text += "\nFurther ones, for --columns; in a mixture those of the mixture in equilibrium:\n" +
          property_table(properties.further);
  std::string example_row = subcommand.example;
  std::replace(example_row.begin(), example_row.end(), ' ', ',');
  std::string with_range = subcommand.example;
  with_range.replace(0, with_range.find(' '), range_example(subcommand));
  text += fmt::format(
      "\nExamples:\n"
      "  co2 {0} {1}\n"
      "  co2 {0} {1} --columns inte,cp,ssnd,dpdd_u\n"
      "  co2 {0} {4} --columns enth\n"
      "  printf '{2}\\n{3}\\n' | co2 {0} --csv -\n",
      subcommand.name, subcommand.example, join_inputs(subcommand, input_name, ","), example_row,
      with_range);
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
        ->type_name("NUMBER|RANGE")
        ->excludes(csv);
  }
  command.add_option("-o,--output", request.output, "File of results; standard output if absent")
      ->type_name("FILE");
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
      ->check(CLI::Validator(
          [names](const std::string& name) {
            if (std::find(names.begin(), names.end(), name) != names.end()) return std::string();
            const std::vector<std::string_view> views(names.begin(), names.end());
            return fmt::format("no property '{}'; did you mean '{}'?", name, nearest(name, views));
          },
          ""));
  command
      .add_option(
          "-d,--digits", request.format.digits,
          fmt::format(
              "Significant digits of results, 1 to 17; if absent {} on the screen and, in files, "
              "as many as are exact",
              digits_on_screen))
      ->type_name("N")
      ->check(CLI::Range(1, 17).description(""));
  command.add_flag("--si", request.format.si,
                   "Results in units of the SI without prefixes: Pa, J/kg, Pa s");
  command.add_flag("--json", request.format.json, "A JSON object in a line for each state");
  command.add_flag("-q,--quiet", request.quiet, "No warnings, reports of bad rows and counts");
  command
      .add_option("--delimiter", request.delimiter,
                  "What separates fields, one character or 'tab'; a comma if absent")
      ->type_name("CHAR");
  command
      .add_option("--map", request.maps,
                  "Columns of the file that hold inputs under other names, such as T=temp")
      ->type_name("COLUMN=INPUT")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->needs(csv);
  command.add_option("-j,--threads", request.threads, "Threads for a file or range of states")
      ->type_name("N")
      ->check(CLI::Range(1, 256).description(""))
      ->capture_default_str();
  command.footer(subcommand_help(subcommand));
}

[[nodiscard]] std::vector<std::size_t> wanted_columns(const Request& request) {
  std::vector<std::size_t> columns;
  for (const std::string& name : request.columns) columns.push_back(find_property(name));
  return columns.empty() ? choice(*request.subcommand).usual : columns;
}

/// Columns by the input that they hold.
[[nodiscard]] std::map<std::string, std::string> column_of(const Request& request) {
  std::map<std::string, std::string> columns;
  for (const std::string& map : request.maps) {
    const std::size_t equals = map.rfind('=');
    const std::string input = equals == std::string::npos ? "" : map.substr(equals + 1);
    const auto inputs = request.subcommand->inputs();
    if (std::none_of(inputs.begin(), inputs.end(),
                     [&](const Property* const p) { return p->name == input; })) {
      throw std::runtime_error(
          fmt::format("--map takes COLUMN=INPUT, where the input is {}, not '{}'",
                      join_inputs(*request.subcommand, input_name, " or "), map));
    }
    columns[input] = map.substr(0, equals);
  }
  return columns;
}

[[nodiscard]] char delimiter(const std::string& text) {
  if (text == "tab" || text == "\\t") return '\t';
  const auto is_of_numbers = [](const char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0;
  };
  constexpr std::string_view others = "\"\r\n#+-.";
  if (text.size() == 1 && !is_of_numbers(text[0]) && others.find(text[0]) == others.npos) {
    return text[0];
  }
  throw std::runtime_error(fmt::format(
      "--delimiter is 'tab' or one character that neither numbers nor comments have, not '{}'",
      text));
}

[[nodiscard]] std::vector<Range> read_inputs(const Request& request) {
  const Subcommand& subcommand = *request.subcommand;
  std::vector<Range> ranges;
  for (const Property* const input : subcommand.inputs()) {
    const std::string& text = request.inputs[ranges.size()];
    if (text.empty()) {
      throw std::runtime_error(fmt::format("{0} needs {1}, or --csv; see co2 {0} --help",
                                           subcommand.name,
                                           join_inputs(subcommand, input_name, " and ")));
    }
    ranges.push_back(parse_range(text, *input));
  }
  return ranges;
}

ExitCode run_single(const Request& request, const std::vector<Range>& inputs) {
  const Subcommand& subcommand = *request.subcommand;
  std::vector<double> values;
  values.reserve(inputs.size());
  for (const Range& input : inputs) values.push_back(input[0]);
  const std::vector<Result> results = results_of(subcommand, wanted_columns(request));
  StateSolver solve(subcommand, results);
  const State& state = solve(values);
  if (state.ierr > 0 || (state.ierr < 0 && !request.quiet)) {
    fmt::print(stderr, "co2: {} {}: {}\n", state.ierr < 0 ? "warning" : "error", state.ierr,
               message(state.ierr));
  }
  if (state.ierr > 0) return rejected;
  Format format = request.format;
  if (format.digits == 0) format.digits = digits_on_screen;
  print_state(state, results, format);
  return solved;
}

ExitCode run(const Request& request) {
  RowsJob job{request.input,           {},
              column_of(request),      request.output,
              wanted_columns(request), request.format,
              request.threads,         request.quiet};
  job.format.delimiter = delimiter(request.delimiter);
  if (job.input.empty()) job.ranges = read_inputs(request);
  const bool is_single = std::all_of(job.ranges.begin(), job.ranges.end(),
                                     [](const Range& range) { return range.step == 0.0; });
  if (job.input.empty() && is_single && !job.format.json && job.output.empty()) {
    return run_single(request, job.ranges);
  }
  if (job.output.empty()) job.output = "-";
  return run_rows(*request.subcommand, job) ? solved : rejected;
}

/// `sat` is `sat_p` where a number has a unit of pressure, else `sat_t`.
[[nodiscard]] std::vector<std::string> with_sat_resolved(const int argc,
                                                         const char* const* const argv) {
  std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
  if (arguments.empty() || arguments[0] != "sat") return arguments;
  constexpr const Property& temp = properties[find_property("temp")];
  constexpr const Property& pres = properties[find_property("pres")];
  const auto is_pressure = [](std::string_view text) {
    text.remove_prefix(text.rfind(':') + 1);  // up to the step, if it is a range
    // The analyzer takes elements of the table for uninitialized.
    // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage)
    return !parse_quantity(text, temp).has_value() && parse_quantity(text, pres).has_value();
  };
  const bool any = std::any_of(arguments.begin() + 1, arguments.end(), is_pressure);
  arguments[0] = any ? "sat_p" : "sat_t";
  return arguments;
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
  app.add_subcommand("sat", "sat_p for a number with a unit of pressure, such as 4MPa, else sat_t");
  const CLI::App* const info = app.add_subcommand("info", "Critical point and limits");
  std::vector<std::string> arguments = with_sat_resolved(argc, argv);
  if (arguments.empty()) {
    fmt::print("{}", app.help());
    return failed;
  }
  std::vector<std::string_view> names = {"sat", "info"};
  for (const Subcommand& subcommand : subcommands()) names.emplace_back(subcommand.name);
  if (arguments[0].rfind('-', 0) != 0 &&
      std::find(names.begin(), names.end(), arguments[0]) == names.end()) {
    throw std::runtime_error(
        fmt::format("no subcommand '{}'; did you mean '{}'? co2 --help lists them", arguments[0],
                    nearest(arguments[0], names)));
  }
  app.failure_message([](const CLI::App*, const CLI::Error& error) {
    return fmt::format("co2: {}; --help says more\n", error.what());
  });
  try {
    std::reverse(arguments.begin(), arguments.end());  // as CLI11 takes them
    app.parse(arguments);
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
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
      throw std::runtime_error("cannot write standard output");
    return code;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "co2: %s\n", error.what());
    return co2_properties::tool::failed;
  }
}
