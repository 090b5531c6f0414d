#pragma once
// The run over many states.

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "co2/convert.hpp"
#include "co2/quantity.hpp"
#include "co2/subcommand.hpp"

namespace co2_properties::tool {

/// What rows are made of and where they go.
struct RowsJob {
  std::string input;          ///< file of states; "-" is standard input; empty: the ranges
  std::vector<Range> ranges;  ///< of the inputs; the last one runs first
  std::map<std::string, std::string>
      column_of;                     ///< columns of the file by the input that they hold
  std::string output = "-";          ///< file of results; "-" is standard output
  std::vector<std::size_t> columns;  ///< indices of the wanted properties
  Format format;
  unsigned threads = 1;
  bool quiet = false;  ///< reports nothing but what ends the run
};

/// Reads or makes states, writes their properties, reports bad rows and the counts on standard
/// error. A file of results has its name once it is complete; until then, and never if the run ends
/// early, it lies beside as `.NAME.PROCESS`. \return true if every row was solved (warnings count
/// as solved) Throws std::runtime_error when a file cannot be read or written, or the header lacks
/// an input.
bool run_rows(const Subcommand& subcommand, const RowsJob& job);

}  // namespace co2_properties::tool
