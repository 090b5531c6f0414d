#pragma once
// The run over a file of states.

#include <cstddef>
#include <string>
#include <vector>

#include "co2/subcommand.hpp"

namespace co2_properties::tool {

struct CsvJob {
  std::string input;                 ///< file of states; "-" is standard input
  std::string output = "-";          ///< file of results; "-" is standard output
  std::vector<std::size_t> columns;  ///< indices of the wanted properties
  int digits = 0;                    ///< significant digits of results; 0: shortest exact form
  unsigned threads = 1;
};

/// Reads states, writes their properties, reports bad rows and the counts on standard error.
/// \return true if every row was solved (warnings count as solved)
/// Throws std::runtime_error when a file cannot be read or written, or the header lacks an input.
bool run_csv(const Subcommand& subcommand, const CsvJob& job);

}  // namespace co2_properties::tool
