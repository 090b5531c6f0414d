#pragma once
// A generated table: what the program `tablegen` needs to know of it.

#include <functional>
#include <string>

namespace co2_properties::tablegen {

/// One generation of a table.
struct Generated {
  std::string source;   ///< text of the .cpp file, a pure function of the inputs
  std::string report;   ///< fit errors record by record, for people
  std::string summary;  ///< one line: worst errors
};

/// An entry of the registry.
struct Table {
  std::string name;    ///< on the command line
  std::string output;  ///< file, relative to src/
  std::function<Generated()> generate;
};

}  // namespace co2_properties::tablegen
