#pragma once
// From lines of inputs to lines of properties.

#include <fmt/format.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "co2/quantity.hpp"
#include "co2/subcommand.hpp"

namespace co2_properties::tool {

/// How rows are written.
struct Format {
  char delimiter = ',';
  bool json = false;  ///< a JSON object for each row
  bool si = false;    ///< results in units of the SI without prefixes
  int digits = 0;  ///< significant digits of results; 0: as many as tell a number from all others
};

/// What the columns of a file hold and which columns are written.
///
/// Every column of the file is written as it stands, in its place, except a column that bears the
/// name of a result (and is not an input) or `ierr`: that one is left out, because the new value
/// follows. After them come the wanted results other than the inputs, then `ierr`.
struct ColumnPlan {
  /// \param wanted           indices of properties
  /// \param column_of        names of columns by the input that they hold, where these differ
  /// \param inputs_computed  they are values of this program: written in the units of results
  /// Throws std::runtime_error if the header lacks an input or names one twice.
  ColumnPlan(std::string_view header_line, const Subcommand& subcommand,
             std::span<const std::size_t> wanted,
             const std::map<std::string, std::string>& column_of, const Format& written,
             bool inputs_computed);

  Format format;
  std::size_t field_count;          ///< fields of the header
  std::vector<std::size_t> inputs;  ///< fields of the inputs
  std::vector<std::size_t> kept;    ///< fields that are written
  bool computed;                    ///< inputs are written before the results
  std::vector<Result> results;      ///< what is written after them
  std::vector<std::string> keys;    ///< of a JSON object, `"name":`, for every column
  std::string header;               ///< the header line of the result; empty for JSON
};

/// Counts over the rows of a file.
struct Tally {
  struct Code {
    static constexpr std::size_t most_lines = 3;
    std::uint64_t count = 0;
    std::vector<std::uint64_t> first_lines;  ///< of the first rows, `most_lines` at most
  };

  std::uint64_t rows = 0;
  std::uint64_t rejected = 0;          ///< rows for which the library reports an error
  std::uint64_t unreadable = 0;        ///< rows that are not numbers in the right places
  std::map<std::int32_t, Code> codes;  ///< by code, errors and warnings

  /// Adds the counts of later rows.
  Tally& operator+=(const Tally& later);
};

/// Converts records of one file. Converters do not share anything that changes: each thread has
/// one.
class Converter {
 public:
  /// A file full of unreadable rows shall not bury its first ones.
  static constexpr std::size_t most_reports = 10;

  /// \param plan       must outlive the converter
  /// \param file_name  name of the file in reports
  Converter(const ColumnPlan& plan, const Subcommand& subcommand, std::string file_name);

  /// Converts whole records, of which the first begins in the line `line`. Each row gives one row;
  /// an unreadable one, with empty results, also gives a line of `reports()`, of which there are at
  /// most `most_reports`. Replaces what the last call made.
  void convert(std::string_view records, std::uint64_t line);

  [[nodiscard]] const fmt::memory_buffer& rows() const noexcept { return rows_; }
  [[nodiscard]] const std::vector<std::string>& reports() const noexcept { return reports_; }
  [[nodiscard]] const Tally& tally() const noexcept { return tally_; }

 private:
  void report(std::uint64_t line, std::string_view text);
  void convert_row(std::string_view row, std::uint64_t line);
  bool read_inputs(std::uint64_t line);
  void begin_column();
  void write_number(double value, const Property& property);
  void write_none();
  void write_kept();
  void write_results(const State& state);
  void write_no_results();

  const ColumnPlan* plan_;
  const Subcommand* subcommand_;
  std::string file_name_;
  StateSolver solve_;
  std::vector<SiUnit> units_;  // of the properties
  std::vector<std::string_view> fields_;
  std::vector<double> inputs_;
  std::size_t column_ = 0;
  fmt::memory_buffer rows_;
  std::vector<std::string> reports_;
  Tally tally_;
};

}  // namespace co2_properties::tool
