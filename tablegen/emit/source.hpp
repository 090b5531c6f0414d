#pragma once
// Pieces of text that all generated sources share.

#include <string>
#include <vector>

namespace co2_properties::tablegen {

/// What the comment at the top of a generated source says.
struct Provenance {
  std::string table;  ///< command-line name
  std::vector<std::string>
      content;            ///< lines: what the data is, units, where its record is declared
  std::string fitted_to;  ///< papers
  std::string tiling;     ///< input file, from the root of the repository
  std::string digest;     ///< of the inputs
  std::vector<std::string> errors;  ///< lines: worst fit errors and where
};

/// A comment with the provenance and a digest of the body, then the body.
[[nodiscard]] std::string generated_source(const Provenance& provenance, const std::string& body);

/// Whether the body of a generated source is the one that its digest was made of.
[[nodiscard]] bool has_own_body(const std::string& source);

/// `items` separated by commas, broken so that no line is longer than 100 columns and indented by
/// two; ends with a line break.
[[nodiscard]] std::string wrapped_list(const std::vector<std::string>& items);

/// `constexpr <type> <name>[] = {...};` with the items as they stand.
[[nodiscard]] std::string array_definition(const std::string& type, const std::string& name,
                                           const std::vector<std::string>& items);

}  // namespace co2_properties::tablegen
