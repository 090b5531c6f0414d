#include "co2/quantity.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>
#include <stdexcept>
#include <system_error>
#include <utility>
#include <vector>

namespace co2_properties::tool {
namespace {

/// `name` in terms of `base`: (value * factor + offset) / divisor. All are whole numbers, so that
/// 8MPa is 8000 kPa and -33.15C 240 K, not a neighbour of it.
struct Unit {
  std::string_view base;
  std::string_view name;
  double factor = 1.0;
  double divisor = 1.0;
  double offset = 0.0;
};
constexpr Unit units[] = {
    {"K", "K"},
    {"K", "C", 100.0, 100.0, 27315.0},
    {"K", "degC", 100.0, 100.0, 27315.0},
    {"kPa", "kPa"},
    {"kPa", "Pa", 1.0, 1000.0},
    {"kPa", "MPa", 1000.0},
    {"kPa", "bar", 100.0},
    {"kPa", "mbar", 1.0, 10.0},
    {"kPa", "atm", 101325.0, 1000.0},
    {"kg/m3", "kg/m3"},
    {"kg/m3", "g/cm3", 1000.0},
    {"kJ/kg", "kJ/kg"},
    {"kJ/kg", "J/kg", 1.0, 1000.0},
    {"kJ/kg", "MJ/kg", 1000.0},
    {"kJ/(kg K)", "kJ/(kgK)"},
    {"kJ/(kg K)", "kJ/kgK"},
    {"kJ/(kg K)", "kJ/kg/K"},
    {"kJ/(kg K)", "J/(kgK)", 1.0, 1000.0},
    {"kJ/(kg K)", "J/kgK", 1.0, 1000.0},
    {"kJ/(kg K)", "J/kg/K", 1.0, 1000.0},
    {"-", "%", 1.0, 100.0},
};

/// The number at the beginning of `text`, whose rest remains.
[[nodiscard]] std::optional<double> take_number(std::string_view& text) noexcept {
  // from_chars takes no plus sign.
  const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
  const char* const last = text.data() + text.size();
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data() + (plus ? 1 : 0), last, value);
  if (error != std::errc{} || !std::isfinite(value)) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return value;
}

constexpr Unit own_unit{};

/// The number with its unit; none if it is no number or the unit is not one of the property.
[[nodiscard]] std::optional<std::pair<double, const Unit*>> parse_with_unit(
    std::string_view text, const Property& property) {
  if (const std::optional<double> number = parse_number(text)) return {{*number, &own_unit}};
  const std::optional<double> number = take_number(text);
  if (!number) return std::nullopt;
  std::string name(text);
  std::erase(name, ' ');
  const auto* const unit = std::find_if(std::begin(units), std::end(units), [&](const Unit& u) {
    return u.base == property.unit && u.name == name;
  });
  if (unit == std::end(units)) return std::nullopt;
  return {{*number, unit}};
}

[[noreturn]] void refuse(const std::string_view text, const Property& property) {
  const std::string known = known_units(property);
  const bool is_range = text.find(':') != std::string_view::npos;
  throw std::runtime_error(
      fmt::format("{} is not {}: '{}' (units: {})", property.name,
                  is_range ? "a range start:stop:step, with a unit at its end alone" : "a number",
                  text, known.empty() ? "none" : known));
}

/// The number times a power of ten: whole, without the error of the product, if it has no more
/// decimals.
[[nodiscard]] double scaled(const double number, const double power) noexcept {
  const double whole = std::round(number * power);
  return whole / power == number ? whole : number * power;
}

}  // namespace

std::optional<double> parse_number(const std::string_view text) noexcept {
  std::string_view rest = text;
  const std::optional<double> number = take_number(rest);
  if (number && rest.empty()) return number;
  if (!number || (rest[0] != 'd' && rest[0] != 'D')) return std::nullopt;
  constexpr std::size_t longest = 63;
  if (text.size() > longest) return std::nullopt;
  char copy[longest];
  std::copy(text.begin(), text.end(), copy);
  copy[text.size() - rest.size()] = 'e';
  std::string_view with_e(copy, text.size());
  const std::optional<double> value = take_number(with_e);
  return with_e.empty() ? value : std::nullopt;
}

std::optional<double> parse_quantity(const std::string_view text, const Property& property) {
  // Most fields of files have no unit.
  if (const std::optional<double> number = parse_number(text)) return number;
  const auto parsed = parse_with_unit(text, property);
  if (!parsed) return std::nullopt;
  const auto& [number, unit] = *parsed;
  return (number * unit->factor + unit->offset) / unit->divisor;
}

std::string known_units(const Property& property) {
  std::string text;
  for (const Unit& unit : units) {
    if (unit.base != property.unit) continue;
    text += text.empty() ? "" : ", ";
    text += unit.name;
  }
  return text;
}

Range parse_range(const std::string_view text, const Property& property) {
  const std::size_t first = text.find(':');
  const std::size_t second = text.find(':', first + 1);
  if (first == std::string_view::npos || second == std::string_view::npos) {
    const auto parsed = parse_with_unit(text, property);
    if (!parsed) refuse(text, property);
    const auto& [number, unit] = *parsed;
    return {number, 0.0, 1, unit->factor, unit->divisor, unit->offset};
  }
  const std::optional<double> start = parse_number(text.substr(0, first));
  const std::optional<double> stop = parse_number(text.substr(first + 1, second - first - 1));
  const auto step = parse_with_unit(text.substr(second + 1), property);
  if (!start || !stop || !step) refuse(text, property);
  // Computed with whole numbers, values do not pass the stop because of an error of rounding.
  double power = 1.0;
  const auto is_whole = [&power](const double number) {
    return std::round(number * power) / power == number;
  };
  while (power < 1e12 && !(is_whole(*start) && is_whole(step->first))) power *= 10.0;
  const double first_value = scaled(*start, power), width = scaled(step->first, power);
  // A stop that is a multiple of the step away belongs to the range, whatever rounding says.
  const double steps = std::floor((scaled(*stop, power) - first_value) / width + 1e-9);
  constexpr double most = 4e9;  // of two ranges, the combinations can be counted
  if (!(steps >= 0.0 && steps < most)) {
    throw std::runtime_error(fmt::format(
        "{} does not reach the stop, or in more than {} steps: '{}'", property.name, most, text));
  }
  const Unit& unit = *step->second;
  return {first_value,
          width,
          static_cast<std::uint64_t>(steps) + 1,
          unit.factor,
          unit.divisor * power,
          unit.offset * power};
}

SiUnit si_unit(const std::string_view unit) {
  SiUnit si{std::string(unit)};
  const auto replace = [&si](const std::string_view from, const std::string_view to,
                             const double large, const double small) {
    const std::size_t at = si.name.find(from);
    if (at == std::string::npos) return;
    const bool below = si.name.rfind('/', at) != std::string::npos;
    (below ? si.divisor : si.factor) *= large;
    (below ? si.factor : si.divisor) *= small;
    si.name.replace(at, from.size(), to);
  };
  for (int each = 0; each < 2; ++each) {
    replace("kPa", "Pa", 1000.0, 1.0);
    replace("kJ", "J", 1000.0, 1.0);
  }
  replace("uPa", "Pa", 1.0, 1e6);
  return si;
}

std::string_view nearest(const std::string_view name,
                         const std::span<const std::string_view> names) {
  const auto lower = [](const char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c; };
  // Letters to insert, remove or exchange, row by row.
  const auto distance = [name, lower](const std::string_view other) {
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < name.size(); ++i) {
      std::size_t diagonal = std::exchange(row[0], i + 1);
      for (std::size_t j = 0; j < other.size(); ++j) {
        const std::size_t exchanged = diagonal + (lower(name[i]) == lower(other[j]) ? 0 : 1);
        diagonal = row[j + 1];
        row[j + 1] = std::min({exchanged, row[j] + 1, diagonal + 1});
      }
    }
    return row.back();
  };
  std::string_view best;
  std::size_t least = std::string_view::npos;
  for (const std::string_view other : names) {
    const std::size_t letters = distance(other);
    if (letters >= least) continue;
    least = letters;
    best = other;
  }
  return best;
}

}  // namespace co2_properties::tool
