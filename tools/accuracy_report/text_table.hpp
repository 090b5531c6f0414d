#pragma once
// Tables that read well both on a terminal and in a Markdown file.

#include <string>
#include <vector>

namespace co2_properties::accuracy {

/// A Markdown table with its columns aligned.
///
/// \param rows  as many cells each as `header`
[[nodiscard]] std::string text_table(const std::vector<std::string>& header,
                                     const std::vector<std::vector<std::string>>& rows);

/// One part of the report, and the name of its place in docs/accuracy.md.
struct Section {
  std::string name;
  std::string text;
  bool passed = true;  ///< whether every bound in it holds
};

/// Replaces what stands between `<!-- begin NAME -->` and `<!-- end NAME -->` of each section in a
/// file. \throws std::runtime_error if the file or one of the marks is missing
void update_sections(const std::string& path, const std::vector<Section>& sections);

}  // namespace co2_properties::accuracy
