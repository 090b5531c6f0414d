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

/// A text of JSON. What is not ASCII goes through as it is.
[[nodiscard]] std::string json_text(const std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      quoted += {'\\', c};
    } else if (static_cast<unsigned char>(c) < 0x20) {
      quoted += fmt::format("\\u{:04x}", c);
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

/// What a report shows of a field, which may have lines.
[[nodiscard]] std::string one_line(const std::string_view text) {
  const std::size_t end = std::min(text.find_first_of("\r\n"), std::size_t{60});
  return std::string(text.substr(0, end)) + (end < text.size() ? "..." : "");
}

/// The text of a quoted field, its doubled quotes made single.
[[nodiscard]] std::string without_quotes(const std::string_view field) {
  std::string text(field_text(field));
  for (std::size_t at = 0; (at = text.find("\"\"", at)) != std::string::npos; ++at) {
    text.erase(at, 1);
  }
  return text;
}

/// Adds a field of a file: numbers of JSON as they stand, others (1d3, +5, .5) rewritten, all else
/// as text, labels such as 007, too.
void append_json(fmt::memory_buffer& buffer, const std::string_view field) {
  const std::string_view text = field_text(field);
  const auto is_digit = [text](const std::size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '9';
  };
  const std::optional<double> number = parse_number(text);
  if (!number || (text[0] == '0' && is_digit(1))) {
    append(buffer, json_text(without_quotes(field)));
    return;
  }
  const std::size_t first = text[0] == '-' ? 1 : 0;
  const std::size_t point = text.find('.');
  const bool is_json = is_digit(first) && !(text[first] == '0' && is_digit(first + 1)) &&
                       text.find_first_of("dD") == text.npos &&
                       (point == text.npos || is_digit(point + 1));
  is_json ? append(buffer, text) : append_number(buffer, *number, 0);
}

/// Index of the one field that holds the input `k`, of the column `columns[k]`.
std::size_t find_field(const std::vector<std::string_view>& names,
                       const std::vector<std::string_view>& columns, const std::size_t k,
                       const Property& property, const std::string_view header) {
  const auto found = std::find(names.begin(), names.end(), columns[k]);
  if (found == names.end()) {
    std::string text = fmt::format("no column '{}' ({}, {}) in the header '{}'; ", columns[k],
                                   property.meaning, property.unit, one_line(header));
    std::vector<std::string_view> others;  // those of other inputs are none of this one
    std::copy_if(names.begin(), names.end(), std::back_inserter(others), [&](const auto name) {
      return std::find(columns.begin(), columns.end(), name) == columns.end();
    });
    const std::string_view close = nearest(columns[k], others);
    text += others.empty() || names.size() < columns.size()
                ? "--delimiter says what separates columns"
                : fmt::format("the nearest name is '{0}', which --map {0}={1} takes", close,
                              property.name);
    throw std::runtime_error(text);
  }
  if (std::find(std::next(found), names.end(), columns[k]) != names.end()) {
    throw std::runtime_error(fmt::format("the header names the column '{}' twice", columns[k]));
  }
  return static_cast<std::size_t>(found - names.begin());
}

}  // namespace

ColumnPlan::ColumnPlan(const std::string_view header_line, const Subcommand& subcommand,
                       const std::span<const std::size_t> wanted,
                       const std::map<std::string, std::string>& column_of, const Format& written,
                       const bool inputs_computed)
    : format(written), computed(inputs_computed), results(results_of(subcommand, wanted)) {
  std::vector<std::string_view> fields;
  split_fields(header_line, format.delimiter, fields);
  if (is_unclosed(fields.back())) {
    throw std::runtime_error(
        fmt::format("a quote of the header is not closed: '{}'", one_line(fields.back())));
  }
  field_count = fields.size();
  std::vector<std::string_view> names(fields.size());
  std::transform(fields.begin(), fields.end(), names.begin(), field_text);
  std::vector<std::string_view> columns;
  for (const Property* const input : subcommand.inputs()) {
    const auto mapped = column_of.find(std::string(input->name));
    columns.push_back(mapped == column_of.end() ? input->name : std::string_view(mapped->second));
  }
  for (const Property* const input : subcommand.inputs()) {
    inputs.push_back(find_field(names, columns, inputs.size(), *input, header_line));
    std::erase_if(results, [input](const Result& r) { return r.name == input->name; });
  }
  const auto is_replaced = [this, &names](const std::size_t i) {
    return names[i] == "ierr" || std::any_of(results.begin(), results.end(),
                                             [&](const Result& r) { return r.name == names[i]; });
  };
  const auto add = [this](const std::string_view raw, const std::string& name) {
    header += header.empty() ? "" : std::string(1, format.delimiter);
    header += raw;
    keys.push_back(json_text(name) + ':');
  };
  for (std::size_t i = 0; i < field_count; ++i) {
    if (is_replaced(i)) continue;
    if (!computed) kept.push_back(i);
    add(fields[i], without_quotes(fields[i]));
  }
  for (const Result& result : results) add(result.name, result.name);
  add("ierr", "ierr");
  header = format.json ? "" : header + '\n';
}

Tally& Tally::operator+=(const Tally& later) {
  rows += later.rows;
  rejected += later.rejected;
  unreadable += later.unreadable;
  for (const auto& [number, code] : later.codes) {
    Code& mine = codes[number];
    mine.count += code.count;
    for (const std::uint64_t line : code.first_lines) {
      if (mine.first_lines.size() < Code::most_lines) mine.first_lines.push_back(line);
    }
  }
  return *this;
}

Converter::Converter(const ColumnPlan& plan, const Subcommand& subcommand, std::string file_name)
    : plan_(&plan),
      subcommand_(&subcommand),
      file_name_(std::move(file_name)),
      solve_(subcommand, plan.results),
      inputs_(plan.inputs.size()) {
  for (const Property& property : properties) {
    units_.push_back(plan.format.si ? si_unit(property.unit) : SiUnit{});
  }
}

void Converter::convert(std::string_view records, std::uint64_t line) {
  rows_.clear();
  reports_.clear();
  tally_ = {};
  while (!records.empty()) {
    const char* const start = records.data();
    const std::string_view row = take_record(records, plan_->format.delimiter);
    if (!is_comment(row)) convert_row(row, line);
    line += static_cast<std::uint64_t>(std::count(start, records.data(), '\n'));
  }
}

void Converter::report(const std::uint64_t line, const std::string_view text) {
  if (reports_.size() == most_reports) return;
  reports_.push_back(fmt::format("co2: {}:{}: {}\n", file_name_, line, text));
}

void Converter::convert_row(const std::string_view row, const std::uint64_t line) {
  ++tally_.rows;
  split_fields(row, plan_->format.delimiter, fields_);
  const bool readable = read_inputs(line);
  column_ = 0;
  write_kept();
  if (!readable) {
    ++tally_.unreadable;
    write_no_results();
    begin_column();
    write_none();
  } else {
    const State& state = solve_(inputs_);
    if (state.ierr > 0) {
      ++tally_.rejected;
      write_no_results();
    } else {
      write_results(state);
    }
    begin_column();
    fmt::format_to(std::back_inserter(rows_), FMT_COMPILE("{}"), state.ierr);
    if (state.ierr != 0) {
      Tally::Code& code = tally_.codes[state.ierr];
      if (code.count++ < Tally::Code::most_lines) code.first_lines.push_back(line);
    }
  }
  append(rows_, plan_->format.json ? "}\n" : "\n");
}

bool Converter::read_inputs(const std::uint64_t line) {
  if (is_unclosed(fields_.back())) {
    report(line, fmt::format("a quote is not closed: '{}'", one_line(fields_.back())));
    return false;
  }
  if (fields_.size() != plan_->field_count) {
    report(line, fmt::format("the number of fields is {}, in the header {}", fields_.size(),
                             plan_->field_count));
    return false;
  }
  bool readable = true;
  for (std::size_t k = 0; k < inputs_.size(); ++k) {
    const Property& input = *subcommand_->inputs()[k];
    const std::string_view text = field_text(fields_[plan_->inputs[k]]);
    const std::optional<double> number = parse_quantity(text, input);
    inputs_[k] = number.value_or(0.0);
    if (number) continue;
    readable = false;
    report(line, fmt::format("{} is not a number: '{}'", input.name, one_line(text)));
  }
  return readable;
}

void Converter::begin_column() {
  if (!plan_->format.json) {
    if (column_ != 0) rows_.push_back(plan_->format.delimiter);
  } else {
    rows_.push_back(column_ == 0 ? '{' : ',');
    append(rows_, plan_->keys[column_]);
  }
  ++column_;
}

void Converter::write_number(const double value, const Property& property) {
  begin_column();
  if (is_missing(property, value)) return write_none();
  const SiUnit& unit = units_[static_cast<std::size_t>(&property - properties.data())];
  append_number(rows_, value * unit.factor / unit.divisor, plan_->format.digits);
}

void Converter::write_none() {
  if (plan_->format.json) append(rows_, "null");
}

void Converter::write_kept() {
  for (std::size_t k = 0; plan_->computed && k < inputs_.size(); ++k) {
    write_number(inputs_[k], *subcommand_->inputs()[k]);
  }
  for (const std::size_t i : plan_->kept) {
    begin_column();
    if (i >= fields_.size()) {
      write_none();
    } else if (!plan_->format.json) {
      append(rows_, fields_[i]);
    } else {
      append_json(rows_, fields_[i]);
    }
  }
}

void Converter::write_results(const State& state) {
  for (const Result& result : plan_->results) {
    write_number(state[result], properties[result.property]);
  }
}

void Converter::write_no_results() {
  for (std::size_t i = 0; i < plan_->results.size(); ++i) {
    begin_column();
    write_none();
  }
}

}  // namespace co2_properties::tool
