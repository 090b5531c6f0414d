#include "co2/csv.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
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

/// Index of the comma that ends the field which begins at `start`, or the size of the line.
[[nodiscard]] std::size_t field_end(const std::string_view line, const std::size_t start) noexcept {
  const std::size_t first = line.find_first_not_of(" \t", start);
  if (first == std::string_view::npos || line[first] != '"') {
    return std::min(line.find(',', start), line.size());
  }
  bool quoted = false;  // a doubled quote inside leaves and enters again
  for (std::size_t i = first; i < line.size(); ++i) {
    if (line[i] == '"') quoted = !quoted;
    if (line[i] == ',' && !quoted) return i;
  }
  return line.size();
}

}  // namespace

void split_fields(const std::string_view line, std::vector<std::string_view>& fields) {
  fields.clear();
  std::size_t start = 0;
  while (true) {
    const std::size_t end = field_end(line, start);
    fields.push_back(line.substr(start, end - start));
    if (end == line.size()) return;
    start = end + 1;
  }
}

std::string_view field_text(const std::string_view field) noexcept {
  const std::string_view text = trimmed(field);
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return quoted ? trimmed(text.substr(1, text.size() - 2)) : text;
}

std::optional<double> parse_number(const std::string_view text) noexcept {
  // from_chars takes no plus sign.
  const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
  const char* const first = text.data() + (plus ? 1 : 0);
  const char* const last = text.data() + text.size();
  double value = 0.0;
  const auto [end, error] = std::from_chars(first, last, value);
  if (error != std::errc{} || end != last || !std::isfinite(value)) return std::nullopt;
  return value;
}

bool is_comment(const std::string_view line) noexcept {
  const std::size_t first = line.find_first_not_of(" \t");
  return first == std::string_view::npos || line[first] == '#';
}

std::string_view take_line(std::string_view& text) noexcept {
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

BlockReader::BlockReader(const std::string& path, const std::size_t block_size)
    : name_(path == "-" ? "standard input" : path),
      descriptor_(path == "-" ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)),
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
      throw std::runtime_error(fmt::format("{}: line of more than {} bytes", name_, longest_line));
    }
    const std::size_t start = filled_;
    if (!fill()) {
      returned_ = filled_;
      break;
    }
    const std::string_view added(buffer_.data() + start, filled_ - start);
    const std::size_t line_end = added.rfind('\n');
    if (line_end != std::string_view::npos) returned_ = start + line_end + 1;
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
