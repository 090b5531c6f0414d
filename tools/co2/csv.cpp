#include "co2/csv.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace co2_properties::tool {
namespace {

[[nodiscard]] std::string_view trimmed(std::string_view text) noexcept {
  constexpr std::string_view blanks = " \t";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Index of the character that ends the field which begins at `start`: the delimiter, with
/// `or_line` a line end too, or the size of the text if there is none.
[[nodiscard]] std::size_t field_end(const std::string_view text, const std::size_t start,
                                    const char delimiter, const bool or_line) noexcept {
  std::size_t i = start;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t') && text[i] != delimiter) ++i;
  const bool has_quotes = i < text.size() && text[i] == '"';
  bool quoted = false;  // a doubled quote inside leaves and enters again
  for (; i < text.size(); ++i) {
    if (has_quotes && text[i] == '"') quoted = !quoted;
    if (!quoted && (text[i] == delimiter || (or_line && text[i] == '\n'))) break;
  }
  return i;
}

/// Index of the line end of the first record, or the size of the text if it is not there.
[[nodiscard]] std::size_t record_end(const std::string_view text, const char delimiter) noexcept {
  const std::size_t line_end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, line_end);
  if (line.find('"') == std::string_view::npos || is_comment(line)) return line_end;
  std::size_t end = 0;
  while ((end = field_end(text, end, delimiter, true)) < text.size() && text[end] != '\n') ++end;
  return end;
}

}  // namespace

void split_fields(const std::string_view record, const char delimiter,
                  std::vector<std::string_view>& fields) {
  fields.clear();
  std::size_t start = 0;
  while (true) {
    const std::size_t end = field_end(record, start, delimiter, false);
    fields.push_back(record.substr(start, end - start));
    if (end == record.size()) return;
    start = end + 1;
  }
}

std::string_view field_text(const std::string_view field) noexcept {
  const std::string_view text = trimmed(field);
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return quoted ? trimmed(text.substr(1, text.size() - 2)) : text;
}

bool is_unclosed(const std::string_view field) noexcept {
  const std::string_view text = trimmed(field);
  return !text.empty() && text.front() == '"' && std::count(text.begin(), text.end(), '"') % 2 != 0;
}

bool is_comment(const std::string_view line) noexcept {
  const std::size_t first = line.find_first_not_of(" \t");
  return first == std::string_view::npos || line[first] == '#';
}

std::size_t whole_records(const std::string_view text, const char delimiter) noexcept {
  if (text.find('"') == std::string_view::npos) return text.rfind('\n') + 1;
  std::size_t whole = 0;
  while (whole < text.size()) {
    const std::size_t end = record_end(text.substr(whole), delimiter);
    if (whole + end == text.size()) break;
    whole += end + 1;
  }
  return whole;
}

std::string_view take_record(std::string_view& text, const char delimiter) noexcept {
  const std::size_t end = record_end(text, delimiter);
  std::string_view record = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (!record.empty() && record.back() == '\r') record.remove_suffix(1);
  return record;
}

BlockReader::BlockReader(const std::string& path, const std::size_t block_size,
                         const char delimiter)
    : name_(path == "-" ? "standard input" : path),
      descriptor_(path == "-" ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)),
      delimiter_(delimiter),
      buffer_(block_size + longest_line) {
  if (descriptor_ < 0) {
    throw std::runtime_error(fmt::format("cannot open {}: {}", name_, std::strerror(errno)));
  }
  struct stat status {};
  if (::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode)) {
    size_ = static_cast<std::uint64_t>(status.st_size);
  }
}

BlockReader::~BlockReader() {
  if (descriptor_ != STDIN_FILENO) ::close(descriptor_);
}

std::string_view BlockReader::next() {
  std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(returned_),
            buffer_.begin() + static_cast<std::ptrdiff_t>(filled_), buffer_.begin());
  filled_ -= returned_;
  returned_ = 0;
  while (returned_ == 0) {
    if (filled_ > longest_line) {
      throw std::runtime_error(
          fmt::format("{}: line or quoted field of more than {} bytes", name_, longest_line));
    }
    if (!fill()) {
      returned_ = filled_;
      break;
    }
    returned_ = whole_records({buffer_.data(), filled_}, delimiter_);
  }
  return {buffer_.data(), returned_};
}

bool BlockReader::fill() {
  while (true) {
    const ssize_t count = ::read(descriptor_, buffer_.data() + filled_, buffer_.size() - filled_);
    if (count >= 0) {
      filled_ += static_cast<std::size_t>(count);
      position_ += static_cast<std::uint64_t>(count);
      return count > 0;
    }
    if (errno != EINTR) {
      throw std::runtime_error(fmt::format("cannot read {}: {}", name_, std::strerror(errno)));
    }
  }
}

}  // namespace co2_properties::tool
