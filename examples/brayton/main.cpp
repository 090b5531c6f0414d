// brayton: solves a recompression Brayton cycle with the properties of this library.

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "brayton/cycle.hpp"
#include "brayton/report.hpp"

namespace brayton {
namespace {

enum ExitCode { solved = 0, failed = 1, no_cycle = 2 };

struct Request {
  Design design;
  std::string csv;
  bool help = false;
};

/// An option with a number that is above `low` and at most `high`. The range of the fluid is left
/// to the library.
struct Option {
  std::string_view name;
  double Design::*value;
  double low;
  double high;
  std::string_view meaning;
};

constexpr double any = 1e9;
constexpr std::array<Option, 8> options = {{
    {"--inlet-temp", &Design::inlet_temp, 0.0, any, "main compressor inlet, K"},
    {"--low-pressure", &Design::low_pres, 0.0, any, "cooler side, kPa"},
    {"--high-pressure", &Design::high_pres, 0.0, any, "heater side, kPa"},
    {"--turbine-temp", &Design::turbine_temp, 0.0, any, "turbine inlet, K"},
    {"--compressor-efficiency", &Design::compressor_efficiency, 0.0, 1.0,
     "main compressor, isentropic"},
    {"--recompressor-efficiency", &Design::recompressor_efficiency, 0.0, 1.0,
     "recompressor, isentropic"},
    {"--turbine-efficiency", &Design::turbine_efficiency, 0.0, 1.0, "turbine, isentropic"},
    {"--pinch", &Design::pinch, 0.0, any, "smallest difference in both recuperators, K"},
}};

double read_number(const std::string_view name, const std::string& text, const double low,
                   const double high) {
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0' || !(value > low && value <= high)) {
    throw std::runtime_error(fmt::format("{} needs a number above {}{}, not '{}'", name, low,
                                         high < any ? fmt::format(" and up to {}", high) : "",
                                         text));
  }
  return value;
}

Request read_arguments(const std::span<const char* const> arguments) {
  Request request;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view name = arguments[i];
    if (name == "--help" || name == "-h") {
      request.help = true;
      continue;
    }
    const auto* const option = std::find_if(options.begin(), options.end(),
                                            [&](const Option& o) { return o.name == name; });
    if (option == options.end() && name != "--split" && name != "--csv") {
      throw std::runtime_error(fmt::format("unknown option '{}'; see brayton --help", name));
    }
    if (++i == arguments.size()) throw std::runtime_error(fmt::format("{} needs a value", name));
    const std::string value = arguments[i];
    if (name == "--csv") {
      request.csv = value;
    } else if (name == "--split") {
      request.design.split = read_number(name, value, 0.0, 1.0);
    } else {
      request.design.*(option->value) = read_number(name, value, option->low, option->high);
    }
  }
  if (!(request.design.low_pres < request.design.high_pres)) {
    throw std::runtime_error("the high pressure has to be above the low one");
  }
  return request;
}

void print_help() {
  const Design design;
  fmt::print(
      "Recompression Brayton cycle of carbon dioxide, solved for a given pinch in both "
      "recuperators.\n\nUsage: brayton [OPTION VALUE]...\n\n");
  for (const Option& option : options) {
    fmt::print("  {:<26}{} ({})\n", option.name, option.meaning, design.*(option.value));
  }
  fmt::print(
      "  {:<26}share of the flow through the main compressor (the most efficient)\n"
      "  {:<26}folder for states.csv, lines.csv, recuperators.csv and saturation.csv\n\n"
      "Exit status: 0 solved; 1 wrong usage, or a file cannot be written; 2 there is no such "
      "cycle,\nor a state lies outside the range of the library.\n",
      "--split", "--csv");
}

ExitCode complain(const std::exception& error, const ExitCode code) {
  std::fprintf(stderr, "brayton: %s\n", error.what());
  return code;
}

ExitCode main_program(const std::span<const char* const> arguments) {
  const Request request = read_arguments(arguments);
  if (request.help) {
    print_help();
    return solved;
  }
  const Cycle cycle = solve(request.design);
  print_report(request.design, cycle);
  if (!request.csv.empty()) write_csv(request.csv, request.design, cycle);
  return solved;
}

}  // namespace
}  // namespace brayton

int main(const int argc, const char* const* const argv) {
  using namespace brayton;
  try {
    const ExitCode code = main_program({argv + 1, static_cast<std::size_t>(argc - 1)});
    if (std::fflush(stdout) != 0) throw std::runtime_error("cannot write standard output");
    return code;
  } catch (const Infeasible& error) {
    return complain(error, no_cycle);
  } catch (const StateError& error) {
    return complain(error, no_cycle);
  } catch (const std::exception& error) {
    return complain(error, failed);
  }
}
