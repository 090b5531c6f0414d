#include "co2/rows.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

#include "co2/csv.hpp"
#include "co2/progress.hpp"

namespace co2_properties::tool {
namespace {

/// Bytes of input that are worth a thread of their own: about ten thousand states.
constexpr std::size_t bytes_per_thread = std::size_t{1} << 18;

[[nodiscard]] std::string_view view(const fmt::memory_buffer& buffer) {
  return {buffer.data(), buffer.size()};
}

/// The name of the unfinished file, for the handler of signals; empty if there is none.
char unfinished[4096] = "";

/// Removes the unfinished file and ends as if there were no handler.
extern "C" void end_early(const int signal) {
  if (unfinished[0] != '\0') ::unlink(unfinished);
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

/// The file of results, or standard output. A regular file is written under another name beside it,
/// and gets its own in the end; what is a device or a pipe is written at once.
class Output {
 public:
  explicit Output(const std::string& path) : name_(path == "-" ? "standard output" : path) {
    if (path == "-") {
      file_ = stdout;
      return;
    }
    std::error_code ignored;
    const auto status = std::filesystem::status(path, ignored);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
      file_ = std::fopen(path.c_str(), "wb");
      if (file_ == nullptr) fail("open");
      return;
    }
    // A link is followed, and stays one.
    final_ = std::filesystem::exists(status) ? std::filesystem::canonical(path, ignored)
                                             : std::filesystem::path(path);
    const std::string beside =
        (final_.parent_path() / fmt::format(".{}.{}", final_.filename().string(), ::getpid()))
            .string();
    if (beside.size() >= sizeof(unfinished)) throw std::runtime_error("name too long: " + path);
    const int descriptor = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) fail("open");
    std::copy(beside.c_str(), beside.c_str() + beside.size() + 1, unfinished);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
      if (std::signal(signal, end_early) == SIG_IGN) std::signal(signal, SIG_IGN);  // nohup
    }
    if (std::filesystem::exists(status)) {
      std::filesystem::permissions(beside, status.permissions(), ignored);
    }
    file_ = ::fdopen(descriptor, "wb");
    if (file_ == nullptr) fail("open");
  }
  ~Output() {
    if (file_ != nullptr && file_ != stdout) std::fclose(file_);
    if (unfinished[0] != '\0') ::unlink(unfinished);
    unfinished[0] = '\0';
  }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  /// Rows appear as soon as they are known: a reader at the other end of a pipe may wait for them.
  void write(const std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), file_) != text.size() || std::fflush(file_) != 0) {
      fail("write");
    }
  }

  /// After the last row.
  void finish() {
    if (file_ == stdout) return;
    if (std::fclose(std::exchange(file_, nullptr)) != 0) fail("write");
    if (unfinished[0] == '\0') return;
    if (std::rename(unfinished, final_.c_str()) != 0) fail("write");
    unfinished[0] = '\0';
  }

 private:
  [[noreturn]] void fail(const std::string_view what) const {
    throw std::runtime_error(fmt::format("cannot {} {}: {}", what, name_, std::strerror(errno)));
  }

  std::string name_;
  std::filesystem::path final_;
  std::FILE* file_ = nullptr;
};

/// Rows of all combinations of the values of ranges, under a header.
class RangeSource : public Source {
 public:
  RangeSource(const Subcommand& subcommand, std::vector<Range> ranges, const char delimiter,
              const std::size_t block_size)
      : ranges_(std::move(ranges)), delimiter_(delimiter), block_size_(block_size) {
    for (const Property* const input : subcommand.inputs()) {
      append(input->name, input == subcommand.inputs().back());
    }
    for (const Range& range : ranges_) count_ *= range.count;
  }

  [[nodiscard]] std::string_view next() override {
    if (is_header_taken_) text_.clear();
    is_header_taken_ = true;
    for (; row_ < count_ && text_.size() < block_size_; ++row_) {
      const std::uint64_t fast = ranges_.back().count;
      if (ranges_.size() > 1) append(fmt::format("{}", ranges_.front()[row_ / fast]), false);
      append(fmt::format("{}", ranges_.back()[row_ % fast]), true);
    }
    return view(text_);
  }
  [[nodiscard]] std::uint64_t size() const noexcept override { return count_; }
  [[nodiscard]] std::uint64_t position() const noexcept override { return row_; }

 private:
  void append(const std::string_view field, const bool is_last) {
    text_.append(field.data(), field.data() + field.size());
    text_.push_back(is_last ? '\n' : delimiter_);
  }
  std::vector<Range> ranges_;
  char delimiter_;
  std::size_t block_size_;
  fmt::memory_buffer text_;
  bool is_header_taken_ = false;
  std::uint64_t count_ = 1;
  std::uint64_t row_ = 0;
};

/// Cuts whole records into at most `count` pieces of whole records.
[[nodiscard]] std::vector<std::string_view> cut(std::string_view records, const std::size_t count,
                                                const char delimiter) {
  std::vector<std::string_view> pieces;
  // Where a quote may hide line ends one has to begin at the beginning.
  const bool has_quotes = records.find('"') != std::string_view::npos;
  while (!records.empty()) {
    const std::size_t left = count - pieces.size();
    const std::size_t target = std::max(records.size() / left, bytes_per_thread / 2);
    std::size_t end = records.size();
    if (left > 1 && target < records.size()) {
      const std::size_t whole = has_quotes ? whole_records(records.substr(0, target), delimiter)
                                           : records.find('\n', target) + 1;
      if (whole != 0) end = whole;
    }
    pieces.push_back(records.substr(0, end));
    records.remove_prefix(end);
  }
  return pieces;
}

/// The first record that is neither blank nor a comment; `line` counts the lines taken.
[[nodiscard]] std::string_view take_header(std::string_view& records, std::uint64_t& line,
                                           const char delimiter) {
  while (!records.empty()) {
    const char* const start = records.data();
    const std::string_view header = take_record(records, delimiter);
    line += static_cast<std::uint64_t>(std::count(start, records.data(), '\n'));
    if (!is_comment(header)) return header;
  }
  return {};
}

void check_not_same_file(const RowsJob& job) {
  std::error_code ignored;
  if (!job.input.empty() && job.output != "-" &&
      std::filesystem::equivalent(job.input, job.output, ignored)) {
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
        fmt::print(stderr, "co2: further unreadable rows are only counted\n");
      }
    }
  }

 private:
  std::size_t printed_ = 0;
};

void print_summary(const Tally& tally, const std::string& name, const double seconds) {
  for (const auto& [number, code] : tally.codes) {
    fmt::print(stderr, "co2: {}:{}: {} {} ({} row{}{}{}): {}\n", name, code.first_lines.front(),
               number < 0 ? "warning" : "error", number, code.count, code.count == 1 ? "" : "s",
               code.count == 1 ? "" : fmt::format(", lines {}", fmt::join(code.first_lines, ", ")),
               code.count > code.first_lines.size() ? ", ..." : "", message(number));
  }
  fmt::print(stderr, "co2: {}: {} row{}, {} solved, {} rejected, {} unreadable", name, tally.rows,
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
          const RowsJob& job)
      : delimiter_(plan.format.delimiter) {
    for (unsigned i = 0; i < job.threads; ++i) {
      converters_.push_back(std::make_unique<Converter>(plan, subcommand, name));
    }
  }

  /// Converts `lines`, whose first has the number `line`, and returns the converters that hold the
  /// results, in the order of the lines.
  std::span<const std::unique_ptr<Converter>> convert(const std::string_view lines,
                                                      std::uint64_t line) {
    const std::vector<std::string_view> pieces = cut(lines, converters_.size(), delimiter_);
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
  char delimiter_;
  std::vector<std::unique_ptr<Converter>> converters_;
};

}  // namespace

bool run_rows(const Subcommand& subcommand, const RowsJob& job) {
  const bool computed = job.input.empty();
  const char delimiter = job.format.delimiter;
  const std::string name = computed ? "range" : job.input == "-" ? "standard input" : job.input;
  const std::size_t block_size = job.threads * bytes_per_thread;
  std::unique_ptr<Source> source;
  if (computed) {
    source = std::make_unique<RangeSource>(subcommand, job.ranges, delimiter, block_size);
  } else {
    source = std::make_unique<BlockReader>(job.input, block_size, delimiter);
  }
  Progress progress(source->size(), job.output == "-");

  std::string_view lines = source->next();
  constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
  if (lines.substr(0, byte_order_mark.size()) == byte_order_mark)
    lines.remove_prefix(byte_order_mark.size());
  std::uint64_t line = 0;
  std::string_view header = take_header(lines, line, delimiter);
  while (header.empty()) {
    lines = source->next();
    if (lines.empty()) throw std::runtime_error(fmt::format("{}: no header line", name));
    header = take_header(lines, line, delimiter);
  }
  const ColumnPlan plan = [&] {
    try {
      return ColumnPlan(header, subcommand, job.columns, job.column_of, job.format, computed);
    } catch (const std::runtime_error& error) {
      throw std::runtime_error(fmt::format("{}: {}", name, error.what()));
    }
  }();

  check_not_same_file(job);
  Output output(job.output);
  output.write(plan.header);
  Workers workers(plan, subcommand, name, job);
  Tally tally;
  FirstReports reports;
  // What follows the header in its block may be nothing, if a pipe gave the header alone.
  for (bool more = true; more; lines = source->next(), more = !lines.empty()) {
    for (const auto& converter : workers.convert(lines, line + 1)) {
      output.write(view(converter->rows()));
      tally += converter->tally();
      if (job.quiet) continue;
      if (!converter->reports().empty()) progress.clear();
      reports.print(converter->reports());
    }
    line += static_cast<std::uint64_t>(std::count(lines.begin(), lines.end(), '\n'));
    if (!job.quiet) progress.update(source->position(), tally.rows);
  }
  output.finish();
  progress.clear();
  const bool all_solved = tally.rejected + tally.unreadable == 0;
  // Who typed a range need not be told how many values it has.
  if (!job.quiet && !(computed && tally.codes.empty())) {
    print_summary(tally, name, progress.seconds());
  }
  return all_solved;
}

}  // namespace co2_properties::tool
