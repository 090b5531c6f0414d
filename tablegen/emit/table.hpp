#pragma once
// A generated table: what the program `tablegen` needs to know of it.

#include <functional>
#include <string>
#include <string_view>

namespace co2_properties::tablegen {

/// How far two versions of a table are apart in the values that they give.
struct Difference {
  double size;        ///< largest difference found, in the measure that the table chooses
  double allowed;     ///< what rounding alone can explain, in the same measure
  std::string where;  ///< which record it was, and what the measure is
};

/// One generation of a table.
struct Generated {
  std::string source;   ///< text of the .cpp file, a pure function of the inputs
  std::string report;   ///< fit errors record by record, for people
  std::string summary;  ///< one line: worst errors
  /// Compares the values of this generation with those of another text of the same file. Needed
  /// only when the bytes differ. An unreadable or differently shaped text gives an infinite size.
  std::function<Difference(std::string_view other_source)> difference;
};

/// An entry of the registry in main.cpp.
struct Table {
  std::string name;    ///< on the command line
  std::string output;  ///< file, relative to src/
  std::function<Generated()> generate;
};

}  // namespace co2_properties::tablegen
