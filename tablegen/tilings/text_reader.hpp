#pragma once
// What the texts of patches and start-value cells have in common: lines of columns, `#` comments,
// names for numbers and ranges.

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace co2_properties::tablegen {

/// Parts between the separators, without blanks around them.
[[nodiscard]] std::vector<std::string> split(const std::string& text, char separator);

struct Range {
  double lo, hi;
};

/// Numbers of a tiling, plain or by name.
class Numbers {
 public:
  /// Takes a line `name = number`; false, and nothing is done, if it is none.
  bool define(const std::string& line);

  /// Throws std::invalid_argument if `text` is neither a number nor a name.
  [[nodiscard]] double number(const std::string& text) const;

  /// `lo..hi`, `<hi` or `>=lo`; open sides are `open_side`.
  [[nodiscard]] Range range(const std::string& text) const;

 private:
  std::map<std::string, double> names_;
};

/// Hands every line with content to `line`, without comment and blanks around it, then calls
/// `finish`. What they throw is thrown on as std::invalid_argument with the number of the line.
void read_lines(const std::string& text, const std::function<void(const std::string&)>& line,
                const std::function<void()>& finish);

/// Text of a file in the folder of the tilings.
[[nodiscard]] std::string tiling_text(const std::string& file_name);

}  // namespace co2_properties::tablegen
