#pragma once
// Records and fields of delimited text.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace co2_properties::tool {

/// Splits one record at its delimiters into `fields`, which view the record as it stands. Between
/// double quotes a delimiter does not separate.
void split_fields(std::string_view record, char delimiter, std::vector<std::string_view>& fields);

/// The text of a field without surrounding blanks and, if it is quoted, without the quotes.
[[nodiscard]] std::string_view field_text(std::string_view field) noexcept;

/// Whether a quote begins in the field and does not end: what follows it in the file is lost.
[[nodiscard]] bool is_unclosed(std::string_view field) noexcept;

/// True for lines that hold no data: blank ones and those that start with '#'.
[[nodiscard]] bool is_comment(std::string_view line) noexcept;

/// Bytes up to and with the end of the last record that ends within `text`: lines, but for line
/// ends between double quotes.
[[nodiscard]] std::size_t whole_records(std::string_view text, char delimiter) noexcept;

/// Takes the first record off `text` and returns it without its end, LF or CRLF.
std::string_view take_record(std::string_view& text, char delimiter) noexcept;

/// Where rows come from: text in blocks of whole records.
class Source {
 public:
  Source() = default;
  virtual ~Source() = default;
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;

  /// The next records, valid until the next call; empty at the end.
  [[nodiscard]] virtual std::string_view next() = 0;
  /// Bytes in all, 0 if that is not known.
  [[nodiscard]] virtual std::uint64_t size() const noexcept = 0;
  /// Bytes so far.
  [[nodiscard]] virtual std::uint64_t position() const noexcept = 0;
};

/// Reads a file through one buffer, so that memory does not grow with the file. A block ends where
/// the data at hand end: a pipe is not waited for until the buffer is full.
class BlockReader : public Source {
 public:
  static constexpr std::size_t longest_line = std::size_t{1} << 20;

  /// \param path        file name, or "-" for standard input
  /// \param block_size  bytes to read at once
  /// Throws std::runtime_error when the file cannot be opened.
  BlockReader(const std::string& path, std::size_t block_size, char delimiter);
  ~BlockReader() override;

  /// Only the last record of a file can lack its line end. Throws std::runtime_error when reading
  /// fails and for a record of more than `longest_line` bytes.
  [[nodiscard]] std::string_view next() override;

  /// 0 if it is not a regular file.
  [[nodiscard]] std::uint64_t size() const noexcept override { return size_; }
  [[nodiscard]] std::uint64_t position() const noexcept override { return position_; }

 private:
  bool fill();  // appends what one read gives to the buffer; false at the end of the file

  std::string name_;
  int descriptor_;
  char delimiter_;
  std::uint64_t size_ = 0;
  std::uint64_t position_ = 0;
  std::vector<char> buffer_;
  std::size_t returned_ = 0;  // buffer_[0, returned_) is the last block
  std::size_t filled_ = 0;    // buffer_[returned_, filled_) is the start of a record
};

}  // namespace co2_properties::tool
