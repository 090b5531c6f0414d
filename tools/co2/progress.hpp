#pragma once
// A line on the terminal that shows how far a long run is.

#include <chrono>
#include <cstdint>

namespace co2_properties::tool {

/// Shows itself on standard error once a run has taken a second, and only on a terminal.
class Progress {
 public:
  /// \param total      bytes to read; 0 if unknown
  /// \param to_screen  results go to standard output: on a terminal they show the progress
  Progress(std::uint64_t total, bool to_screen) noexcept;
  ~Progress() { clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Draws the line anew if it is time to.
  void update(std::uint64_t bytes, std::uint64_t rows);
  /// Takes the line away, before other text is written.
  void clear() noexcept;
  [[nodiscard]] double seconds() const noexcept;

 private:
  using Clock = std::chrono::steady_clock;

  std::uint64_t total_;
  bool is_wanted_;
  bool is_shown_ = false;
  Clock::time_point start_ = Clock::now();
  Clock::time_point next_ = start_ + std::chrono::seconds(1);
};

}  // namespace co2_properties::tool
