#include "co2/convert.hpp"

#include <fmt/compile.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <utility>

#include "co2/csv.hpp"

namespace co2_properties::tool {
namespace {

void append(fmt::memory_buffer& buffer, const std::string_view text) {
  buffer.append(text.data(), text.data() + text.size());
}

void append_number(fmt::memory_buffer& buffer, const double value, const int digits) {
  if (digits == 0) {
    fmt::format_to(std::back_inserter(buffer), FMT_COMPILE("{}"), value);
  } else {
    fmt::format_to(std::back_inserter(buffer), FMT_COMPILE("{:.{}g}"), value, digits);
  }
}

/// Index of the one field called `name`.
std::size_t find_field(const std::vector<std::string_view>& names, const Property& property) {
  const auto found = std::find(names.begin(), names.end(), property.name);
  if (found == names.end()) {
    throw std::runtime_error(fmt::format("the header has no column '{}' ({}, {})", property.name,
                                         property.meaning, property.unit));
  }
  if (std::find(std::next(found), names.end(), property.name) != names.end()) {
    throw std::runtime_error(fmt::format("the header names the column '{}' twice", property.name));
  }
  return static_cast<std::size_t>(found - names.begin());
}

}  // namespace

ColumnPlan::ColumnPlan(const std::string_view header_line, const InputPair& pair,
                       const std::span<const std::size_t> wanted) {
  std::vector<std::string_view> fields;
  split_fields(header_line, fields);
  field_count = fields.size();
  std::vector<std::string_view> names(fields.size());
  std::transform(fields.begin(), fields.end(), names.begin(), field_text);
  first = find_field(names, pair.first);
  second = find_field(names, pair.second);

  const auto is_input = [&pair](const std::size_t i) {
    return properties[i].name == pair.first.name || properties[i].name == pair.second.name;
  };
  std::copy_if(wanted.begin(), wanted.end(), std::back_inserter(results),
               [&is_input](const std::size_t i) { return !is_input(i); });
  const auto is_replaced = [this, &names](const std::size_t i) {
    const std::size_t property = find_property(names[i]);
    return names[i] == "ierr" ||
           std::find(results.begin(), results.end(), property) != results.end();
  };
  for (std::size_t i = 0; i < field_count; ++i) {
    if (is_replaced(i)) continue;
    kept.push_back(i);
    header += fmt::format("{},", fields[i]);
  }
  for (const std::size_t i : results) header += fmt::format("{},", properties[i].name);
  header += "ierr\n";
}

Tally& Tally::operator+=(const Tally& later) {
  rows += later.rows;
  rejected += later.rejected;
  unreadable += later.unreadable;
  for (const auto& [code, warning] : later.warnings) {
    Warning& mine = warnings[code];
    if (mine.count == 0) mine.first_line = warning.first_line;
    mine.count += warning.count;
  }
  return *this;
}

Converter::Converter(const ColumnPlan& plan, const InputPair& pair, std::string file_name,
                     const int digits)
    : plan_(&plan),
      pair_(&pair),
      file_name_(std::move(file_name)),
      digits_(digits),
      solve_(pair, plan.results) {}

void Converter::convert(std::string_view lines, std::uint64_t line) {
  rows_.clear();
  reports_.clear();
  tally_ = {};
  for (; !lines.empty(); ++line) {
    const std::string_view row = take_line(lines);
    if (!is_comment(row)) convert_row(row, line);
  }
}

void Converter::report(const std::uint64_t line, const std::string_view text) {
  if (reports_.size() == most_reports) return;
  reports_.push_back(fmt::format("{}:{}: {}\n", file_name_, line, text));
}

void Converter::convert_row(const std::string_view row, const std::uint64_t line) {
  ++tally_.rows;
  split_fields(row, fields_);
  double first = 0.0;
  double second = 0.0;
  const bool readable = read_inputs(line, first, second);
  write_kept();
  if (!readable) {
    ++tally_.unreadable;
    write_no_results();
    append(rows_, "\n");
    return;
  }
  const State& state = solve_(first, second);
  if (state.ierr > 0) {
    ++tally_.rejected;
    write_no_results();
    report(line, fmt::format("error {}: {}", state.ierr, message(state.ierr)));
  } else {
    write_results(state);
  }
  if (state.ierr < 0) {
    Tally::Warning& warning = tally_.warnings[state.ierr];
    if (warning.count++ == 0) warning.first_line = line;
  }
  fmt::format_to(std::back_inserter(rows_), FMT_COMPILE("{}\n"), state.ierr);
}

bool Converter::read_inputs(const std::uint64_t line, double& first, double& second) {
  if (fields_.size() != plan_->field_count) {
    report(line, fmt::format("the number of fields is {}, in the header {}", fields_.size(),
                             plan_->field_count));
    return false;
  }
  const auto read = [&](const std::size_t field, const Property& property, double& value) {
    const std::string_view text = field_text(fields_[field]);
    const std::optional<double> number = parse_number(text);
    value = number.value_or(0.0);
    if (!number) report(line, fmt::format("{} is not a number: '{}'", property.name, text));
    return number.has_value();
  };
  const bool first_is_good = read(plan_->first, pair_->first, first);
  return read(plan_->second, pair_->second, second) && first_is_good;
}

void Converter::write_kept() {
  for (const std::size_t i : plan_->kept) {
    if (i < fields_.size()) append(rows_, fields_[i]);
    append(rows_, ",");
  }
}

void Converter::write_results(const State& state) {
  for (const std::size_t i : plan_->results) {
    append_number(rows_, state.values[i], digits_);
    append(rows_, ",");
  }
}

void Converter::write_no_results() {
  for (std::size_t i = 0; i < plan_->results.size(); ++i) append(rows_, ",");
}

}  // namespace co2_properties::tool
