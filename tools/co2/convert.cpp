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

ColumnPlan::ColumnPlan(const std::string_view header_line, const Subcommand& subcommand,
                       const std::span<const std::size_t> wanted)
    : results(results_of(subcommand, wanted)) {
  std::vector<std::string_view> fields;
  split_fields(header_line, fields);
  field_count = fields.size();
  std::vector<std::string_view> names(fields.size());
  std::transform(fields.begin(), fields.end(), names.begin(), field_text);
  for (const Property* const input : subcommand.inputs()) {
    inputs.push_back(find_field(names, *input));
    std::erase_if(results, [input](const Result& r) { return r.name == input->name; });
  }
  const auto is_replaced = [this, &names](const std::size_t i) {
    return names[i] == "ierr" || std::any_of(results.begin(), results.end(),
                                             [&](const Result& r) { return r.name == names[i]; });
  };
  for (std::size_t i = 0; i < field_count; ++i) {
    if (is_replaced(i)) continue;
    kept.push_back(i);
    header += fmt::format("{},", fields[i]);
  }
  for (const Result& result : results) header += fmt::format("{},", result.name);
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

Converter::Converter(const ColumnPlan& plan, const Subcommand& subcommand, std::string file_name,
                     const int digits)
    : plan_(&plan),
      subcommand_(&subcommand),
      file_name_(std::move(file_name)),
      digits_(digits),
      solve_(subcommand, plan.results),
      inputs_(plan.inputs.size()) {}

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
  const bool readable = read_inputs(line);
  write_kept();
  if (!readable) {
    ++tally_.unreadable;
    write_no_results();
    append(rows_, "\n");
    return;
  }
  const State& state = solve_(inputs_);
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

bool Converter::read_inputs(const std::uint64_t line) {
  if (fields_.size() != plan_->field_count) {
    report(line, fmt::format("the number of fields is {}, in the header {}", fields_.size(),
                             plan_->field_count));
    return false;
  }
  bool readable = true;
  for (std::size_t k = 0; k < inputs_.size(); ++k) {
    const std::string_view text = field_text(fields_[plan_->inputs[k]]);
    const std::optional<double> number = parse_number(text);
    inputs_[k] = number.value_or(0.0);
    if (number) continue;
    readable = false;
    report(line, fmt::format("{} is not a number: '{}'", subcommand_->inputs()[k]->name, text));
  }
  return readable;
}

void Converter::write_kept() {
  for (const std::size_t i : plan_->kept) {
    if (i < fields_.size()) append(rows_, fields_[i]);
    append(rows_, ",");
  }
}

void Converter::write_results(const State& state) {
  for (const Result& result : plan_->results) {
    append_number(rows_, state[result], digits_);
    append(rows_, ",");
  }
}

void Converter::write_no_results() {
  for (std::size_t i = 0; i < plan_->results.size(); ++i) append(rows_, ",");
}

}  // namespace co2_properties::tool
