#include "co2/csv_run.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <thread>

#include "co2/convert.hpp"
#include "co2/csv.hpp"
#include "co2/progress.hpp"

namespace co2_properties::tool {
namespace {

/// Bytes of input that are worth a thread of their own: about ten thousand states.
constexpr std::size_t bytes_per_thread = std::size_t{1} << 18;

/// The file of results, or standard output.
class Output {
 public:
  explicit Output(const std::string& path)
      : name_(path == "-" ? "standard output" : path),
        file_(path == "-" ? stdout : std::fopen(path.c_str(), "wb")) {
    if (file_ == nullptr) fail("open");
  }
  ~Output() {
    if (file_ != nullptr && file_ != stdout) std::fclose(file_);
  }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  /// Rows appear as soon as they are known: a reader at the other end of a pipe may wait for them.
  void write(const std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), file_) != text.size() || std::fflush(file_) != 0) {
      fail("write");
    }
  }

 private:
  [[noreturn]] void fail(const std::string_view what) const {
    throw std::runtime_error(fmt::format("cannot {} {}: {}", what, name_, std::strerror(errno)));
  }

  std::string name_;
  std::FILE* file_;
};

[[nodiscard]] std::string_view view(const fmt::memory_buffer& buffer) {
  return {buffer.data(), buffer.size()};
}

/// Cuts whole lines into at most `count` pieces of whole lines.
[[nodiscard]] std::vector<std::string_view> cut(std::string_view lines, const std::size_t count) {
  std::vector<std::string_view> pieces;
  while (!lines.empty()) {
    const std::size_t left = count - pieces.size();
    const std::size_t target = std::max(lines.size() / left, bytes_per_thread / 2);
    std::size_t end = left == 1 ? std::string_view::npos : lines.find('\n', target);
    end = std::min(end, lines.size() - 1) + 1;
    pieces.push_back(lines.substr(0, end));
    lines.remove_prefix(end);
  }
  return pieces;
}

/// The first line that is neither blank nor a comment; `line` counts the lines taken.
[[nodiscard]] std::string_view take_header(std::string_view& lines, std::uint64_t& line) {
  while (!lines.empty()) {
    ++line;
    const std::string_view header = take_line(lines);
    if (!is_comment(header)) return header;
  }
  return {};
}

void check_not_same_file(const CsvJob& job) {
  std::error_code ignored;
  if (job.output != "-" && std::filesystem::equivalent(job.input, job.output, ignored)) {
    throw std::runtime_error(fmt::format("{} would overwrite the input", job.output));
  }
}

/// Prints the reports of a run as long as there are not too many.
class FirstReports {
 public:
  void print(const std::vector<std::string>& reports) {
    for (const std::string& report : reports) {
      if (printed_ == Converter::most_reports) return;
      std::fputs(report.c_str(), stderr);
      if (++printed_ == Converter::most_reports) {
        fmt::print(stderr, "Further bad rows are only counted.\n");
      }
    }
  }

 private:
  std::size_t printed_ = 0;
};

void print_summary(const Tally& tally, const std::string& name, const double seconds) {
  for (const auto& [code, warning] : tally.warnings) {
    fmt::print(stderr, "{}:{}: warning {} ({} row{} in all): {}\n", name, warning.first_line, code,
               warning.count, warning.count == 1 ? "" : "s", message(code));
  }
  fmt::print(stderr, "{}: {} row{}, {} solved, {} rejected, {} unreadable", name, tally.rows,
             tally.rows == 1 ? "" : "s", tally.rows - tally.rejected - tally.unreadable,
             tally.rejected, tally.unreadable);
  // A rate over a shorter time tells about the start of the program.
  if (seconds > 0.2) {
    fmt::print(stderr, "; {:.2f} s, {:.3g} rows/s", seconds,
               static_cast<double>(tally.rows) / seconds);
  }
  fmt::print(stderr, "\n");
}

/// The converters of a run, one for each thread.
class Workers {
 public:
  Workers(const ColumnPlan& plan, const Subcommand& subcommand, const std::string& name,
          const CsvJob& job) {
    for (unsigned i = 0; i < job.threads; ++i) {
      converters_.push_back(std::make_unique<Converter>(plan, subcommand, name, job.digits));
    }
  }

  /// Converts `lines`, whose first has the number `line`, and returns the converters that hold the
  /// results, in the order of the lines.
  std::span<const std::unique_ptr<Converter>> convert(const std::string_view lines,
                                                      std::uint64_t line) {
    const std::vector<std::string_view> pieces = cut(lines, converters_.size());
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
      threads.emplace_back(
          [this, i, piece = pieces[i], line] { converters_[i]->convert(piece, line); });
      line += static_cast<std::uint64_t>(std::count(pieces[i].begin(), pieces[i].end(), '\n'));
    }
    if (!pieces.empty()) converters_[pieces.size() - 1]->convert(pieces.back(), line);
    threads.clear();  // joins
    return {converters_.data(), pieces.size()};
  }

 private:
  std::vector<std::unique_ptr<Converter>> converters_;
};

}  // namespace

bool run_csv(const Subcommand& subcommand, const CsvJob& job) {
  const std::string name = job.input == "-" ? "standard input" : job.input;
  BlockReader reader(job.input, job.threads * bytes_per_thread);
  Progress progress(reader.size(), job.output == "-");

  std::string_view lines = reader.next();
  constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
  if (lines.substr(0, byte_order_mark.size()) == byte_order_mark)
    lines.remove_prefix(byte_order_mark.size());
  std::uint64_t line = 0;
  std::string_view header = take_header(lines, line);
  while (header.empty()) {
    lines = reader.next();
    if (lines.empty()) throw std::runtime_error(fmt::format("{}: no header line", name));
    header = take_header(lines, line);
  }
  const ColumnPlan plan(header, subcommand, job.columns);

  check_not_same_file(job);
  Output output(job.output);
  output.write(plan.header);
  Workers workers(plan, subcommand, name, job);
  Tally tally;
  FirstReports reports;
  // What follows the header in its block may be nothing, if a pipe gave the header alone.
  for (bool more = true; more; lines = reader.next(), more = !lines.empty()) {
    for (const auto& converter : workers.convert(lines, line + 1)) {
      output.write(view(converter->rows()));
      tally += converter->tally();
      if (!converter->reports().empty()) progress.clear();
      reports.print(converter->reports());
    }
    line += static_cast<std::uint64_t>(std::count(lines.begin(), lines.end(), '\n'));
    progress.update(reader.position(), tally.rows);
  }
  progress.clear();
  print_summary(tally, name, progress.seconds());
  return tally.rejected + tally.unreadable == 0;
}

}  // namespace co2_properties::tool
