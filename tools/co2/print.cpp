#include "co2/print.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "co2_properties.hpp"

namespace co2_properties::tool {
namespace {

struct Row {
  std::string_view name;
  std::vector<std::string> values;  ///< one or, of liquid and vapour, two
  std::string unit;
  std::string_view meaning;
};

/// Digits before the decimal point, sign included.
[[nodiscard]] std::size_t integer_width(const std::string& number) {
  return std::min(number.find_first_of(".e"), number.size());
}

/// The numbers of one column, blank where a row has none, as wide as the widest of them.
[[nodiscard]] std::vector<std::string> column(const std::vector<Row>& rows, const std::size_t k) {
  std::vector<std::string> numbers;
  std::size_t before = 0;
  for (const Row& row : rows) {
    std::string& number = numbers.emplace_back();
    if (k >= row.values.size()) continue;
    number = row.values[k];
    before = std::max(before, integer_width(number));
  }
  std::size_t width = 0;
  for (std::string& number : numbers) {
    number.insert(0, before - integer_width(number), ' ');
    width = std::max(width, number.size());
  }
  for (std::string& number : numbers) number.resize(width, ' ');
  return numbers;
}

void print_rows(const std::vector<Row>& rows) {
  std::size_t columns = 0;
  std::size_t name_width = 6;
  for (const Row& row : rows) {
    columns = std::max(columns, row.values.size());
    name_width = std::max(name_width, row.name.size());
  }
  std::vector<std::string> numbers(rows.size());
  std::string heading(name_width + 2, ' ');
  for (std::size_t k = 0; k < columns; ++k) {
    const std::vector<std::string> values = column(rows, k);
    const std::string_view title = columns == 1 ? "" : k == 0 ? "liquid" : "vapour";
    const std::size_t width = std::max(values.front().size(), title.size());
    heading += fmt::format("{:<{}}  ", title, width);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      numbers[i] += fmt::format("{:<{}}  ", values[i], width);
    }
  }
  if (columns > 1) fmt::print("{}\n", heading.substr(0, heading.find_last_not_of(' ') + 1));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    fmt::print("{:<{}}  {}{:<15}{}\n", rows[i].name, name_width, numbers[i], rows[i].unit,
               rows[i].meaning);
  }
}

}  // namespace

void print_state(const State& state, const std::span<const Result> results, const Format& format) {
  std::vector<Row> rows;
  for (const Result& result : results) {
    const Property& property = properties[result.property];
    const SiUnit unit = format.si ? si_unit(property.unit) : SiUnit{std::string(property.unit)};
    if (result.phase == 0) rows.push_back({property.name, {}, unit.name, property.meaning});
    const double value = state[result];
    rows.back().values.push_back(
        is_missing(property, value)
            ? "-"
            : fmt::format("{:.{}g}", value * unit.factor / unit.divisor, format.digits));
  }
  print_rows(rows);
}

void print_info() {
  std::array<double, 9> value{};
  auto& [tcrit, dcrit, pcrit, tmin, tmax, pmin, pmax, tsatmin, psatmin] = value;
  co2_info(&tcrit, &dcrit, &pcrit, &tmin, &tmax, &pmin, &pmax, &tsatmin, &psatmin);
  const auto row = [](const char* const name, const double constant, const char* const unit,
                      const char* const meaning) {
    return Row{name, {fmt::format("{}", constant)}, unit, meaning};
  };
  print_rows({row("tcrit", tcrit, "K", "critical temperature"),
              row("dcrit", dcrit, "kg/m3", "critical density"),
              row("pcrit", pcrit, "kPa", "critical pressure"),
              row("tmin", tmin, "K", "lowest temperature accepted"),
              row("tmax", tmax, "K", "highest temperature accepted"),
              row("pmin", pmin, "kPa", "lowest pressure accepted"),
              row("pmax", pmax, "kPa", "highest pressure accepted"),
              row("tsatmin", tsatmin, "K", "lowest temperature of the saturation line"),
              row("psatmin", psatmin, "kPa", "saturation pressure at that temperature")});
}

}  // namespace co2_properties::tool
