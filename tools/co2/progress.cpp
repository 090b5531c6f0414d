#include "co2/progress.hpp"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace co2_properties::tool {

Progress::Progress(const std::uint64_t total, const bool to_screen) noexcept
    : total_(total),
      is_wanted_(::isatty(STDERR_FILENO) != 0 && !(to_screen && ::isatty(STDOUT_FILENO) != 0)) {}

void Progress::update(const std::uint64_t bytes, const std::uint64_t rows) {
  if (!is_wanted_ || Clock::now() < next_) return;
  next_ = Clock::now() + std::chrono::milliseconds(200);
  is_shown_ = true;
  if (total_ == 0) {
    fmt::print(stderr, "\r{} rows, {:.0f} s", rows, seconds());
    return;
  }
  constexpr int width = 40;
  const double part = std::min(1.0, static_cast<double>(bytes) / static_cast<double>(total_));
  fmt::print(stderr, "\r[{:<{}}] {:3.0f} % {} rows, {:.0f} s",
             std::string(static_cast<std::size_t>(part * width), '#'), width, 100.0 * part, rows,
             seconds());
}

void Progress::clear() noexcept {
  if (!is_shown_) return;
  std::fputs("\r\033[K", stderr);
  is_shown_ = false;
}

double Progress::seconds() const noexcept {
  return std::chrono::duration<double>(Clock::now() - start_).count();
}

}  // namespace co2_properties::tool
