#pragma once
// The tables of the four start-value fits.

#include <string>
#include <vector>

#include "tablegen/emit/table.hpp"
#include "tablegen/fit/inverse_fit.hpp"

namespace co2_properties::tablegen {

/// One of the four tables.
struct InverseTableDesign {
  std::string name;  ///< on the command line and in the names of its files
  Caloric caloric;
  Estimate estimate;
};

[[nodiscard]] const std::vector<InverseTableDesign>& inverse_table_designs();

/// The digest of the inputs of a start-value table, as it stands in its header.
[[nodiscard]] std::string inverse_digest(const std::string& tiling_text);

/// Registry entries of the four tables.
[[nodiscard]] std::vector<Table> inverse_tables();

}  // namespace co2_properties::tablegen
