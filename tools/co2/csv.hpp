#pragma once
// Lines, fields and numbers of comma-separated text.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace co2_properties::tool {

/// Splits one line at its commas into `fields`, which view the line as it stands. A comma between
/// double quotes does not separate. A field cannot go on in the next line, quoted or not.
void split_fields(std::string_view line, std::vector<std::string_view>& fields);

/// The text of a field without surrounding blanks and, if it is quoted, without the quotes.
[[nodiscard]] std::string_view field_text(std::string_view field) noexcept;

/// The number that the whole of `text` denotes, whatever the locale; none if it is something else,
/// infinite or NaN.
[[nodiscard]] std::optional<double> parse_number(std::string_view text) noexcept;

/// True for lines that hold no data: blank ones and those that start with '#'.
[[nodiscard]] bool is_comment(std::string_view line) noexcept;

/// Takes the first line off `text` and returns it without its end, LF or CRLF.
std::string_view take_line(std::string_view& text) noexcept;

/// Reads a file as blocks of whole lines through one buffer, so that memory does not grow with the
/// file. A block ends where the data at hand end: a pipe is not waited for until the buffer is
/// full.
class BlockReader {
 public:
  static constexpr std::size_t longest_line = std::size_t{1} << 20;

  /// \param path        file name, or "-" for standard input
  /// \param block_size  bytes to read at once
  /// Throws std::runtime_error when the file cannot be opened.
  BlockReader(const std::string& path, std::size_t block_size);
  ~BlockReader();
  BlockReader(const BlockReader&) = delete;
  BlockReader& operator=(const BlockReader&) = delete;

  /// The next lines, valid until the next call; empty at the end of the file. Only the last line of
  /// a file can lack its line end. Throws std::runtime_error when reading fails and for a line
  /// of more than `longest_line` bytes.
  [[nodiscard]] std::string_view next();

  /// Bytes of the file, 0 if it is not a regular file.
  [[nodiscard]] std::uint64_t size() const noexcept { return size_; }
  /// Bytes read so far.
  [[nodiscard]] std::uint64_t position() const noexcept { return position_; }

 private:
  bool fill();  // appends what one read gives to the buffer; false at the end of the file

  std::string name_;
  int descriptor_;
  std::uint64_t size_ = 0;
  std::uint64_t position_ = 0;
  std::vector<char> buffer_;
  std::size_t returned_ = 0;  // buffer_[0, returned_) is the last block
  std::size_t filled_ = 0;    // buffer_[returned_, filled_) is the start of a line
};

}  // namespace co2_properties::tool
