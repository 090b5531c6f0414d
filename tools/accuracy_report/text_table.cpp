#include "accuracy_report/text_table.hpp"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace co2_properties::accuracy {

std::string text_table(const std::vector<std::string>& header,
                       const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> width;
  width.reserve(header.size());
  for (const std::string& title : header) width.push_back(std::max<std::size_t>(3, title.size()));
  for (const auto& row : rows) {
    for (std::size_t k = 0; k < row.size(); ++k) width[k] = std::max(width[k], row[k].size());
  }
  std::string text;
  const auto line = [&](const auto& cell) {
    for (std::size_t k = 0; k < header.size(); ++k) {
      const std::string content = cell(k);
      text += "| " + content + std::string(width[k] - content.size() + 1, ' ');
    }
    text += "|\n";
  };
  line([&](const std::size_t k) { return header[k]; });
  line([&](const std::size_t k) { return std::string(width[k], '-'); });
  for (const auto& row : rows) {
    line([&](const std::size_t k) { return row[k]; });
  }
  return text;
}

void update_sections(const std::string& path, const std::vector<Section>& sections) {
  std::ifstream input(path, std::ios::binary);
  if (!input) throw std::runtime_error("cannot read " + path);
  std::string text{std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};
  for (const Section& section : sections) {
    const std::string begin = "<!-- begin " + section.name + " -->\n";
    const std::string end = "<!-- end " + section.name + " -->";
    const std::size_t from = text.find(begin);
    const std::size_t to = text.find(end);
    if (from == std::string::npos || to == std::string::npos || to < from + begin.size()) {
      throw std::runtime_error(path + " has no marked section " + section.name);
    }
    text.replace(from + begin.size(), to - from - begin.size(), "\n" + section.text + "\n");
  }
  std::ofstream output(path, std::ios::binary);
  output.exceptions(std::ios::failbit | std::ios::badbit);
  output << text;
}

}  // namespace co2_properties::accuracy
