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
  double value;
  std::string_view unit;
  std::string_view meaning;
};

/// Digits before the decimal point, sign included.
[[nodiscard]] std::size_t integer_width(const std::string& number) {
  return std::min(number.find_first_of(".e"), number.size());
}

void print_rows(const std::vector<Row>& rows, const int digits) {
  std::vector<std::string> numbers;
  std::size_t before = 0;
  for (const Row& row : rows) {
    numbers.push_back(digits == 0 ? fmt::format("{}", row.value)
                                  : fmt::format("{:.{}g}", row.value, digits));
    before = std::max(before, integer_width(numbers.back()));
  }
  std::size_t width = 0;
  for (std::string& number : numbers) {
    number.insert(0, before - integer_width(number), ' ');
    width = std::max(width, number.size());
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    fmt::print("{:<8}{:<{}}  {:<15}{}\n", rows[i].name, numbers[i], width, rows[i].unit,
               rows[i].meaning);
  }
}

}  // namespace

void print_state(const State& state, const std::span<const std::size_t> results, const int digits) {
  std::vector<Row> rows;
  for (const std::size_t i : results) {
    const Property& property = properties[i];
    rows.push_back({property.name, state.values[i], property.unit, property.meaning});
  }
  print_rows(rows, digits);
}

void print_info() {
  std::array<double, 9> value{};
  auto& [tcrit, dcrit, pcrit, tmin, tmax, pmin, pmax, tsatmin, psatmin] = value;
  co2_info(&tcrit, &dcrit, &pcrit, &tmin, &tmax, &pmin, &pmax, &tsatmin, &psatmin);
  print_rows({{"tcrit", tcrit, "K", "critical temperature"},
              {"dcrit", dcrit, "kg/m3", "critical density"},
              {"pcrit", pcrit, "kPa", "critical pressure"},
              {"tmin", tmin, "K", "lowest temperature accepted"},
              {"tmax", tmax, "K", "highest temperature accepted"},
              {"pmin", pmin, "kPa", "lowest pressure accepted"},
              {"pmax", pmax, "kPa", "highest pressure accepted"},
              {"tsatmin", tsatmin, "K", "lowest temperature of the saturation line"},
              {"psatmin", psatmin, "kPa", "saturation pressure at that temperature"}},
             0);
}

}  // namespace co2_properties::tool
