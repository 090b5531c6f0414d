#include "tablegen/tilings/text_reader.hpp"

#include <charconv>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "tablegen/tilings/cell_grid.hpp"

namespace co2_properties::tablegen {
namespace {

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace

std::vector<std::string> split(const std::string& text, const char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(trimmed(part));
  return parts;
}

bool Numbers::define(const std::string& line) {
  const std::size_t equals = line.find(" = ");
  if (equals == std::string::npos) return false;
  names_[line.substr(0, equals)] = number(line.substr(equals + 3));
  return true;
}

double Numbers::number(const std::string& text) const {
  if (const auto name = names_.find(text); name != names_.end()) return name->second;
  double value = 0.0;
  const char* const end = text.data() + text.size();
  if (text.empty() || std::from_chars(text.data(), end, value).ptr != end) {
    throw std::invalid_argument("not a number: '" + text + "'");
  }
  return value;
}

Range Numbers::range(const std::string& text) const {
  if (text.starts_with("<")) return {-open_side, number(text.substr(1))};
  if (text.starts_with(">=")) return {number(text.substr(2)), open_side};
  const std::size_t dots = text.find("..");
  if (dots == std::string::npos) throw std::invalid_argument("not a range: '" + text + "'");
  return {number(text.substr(0, dots)), number(text.substr(dots + 2))};
}

void read_lines(const std::string& text, const std::function<void(const std::string&)>& line,
                const std::function<void()>& finish) {
  std::istringstream stream(text);
  int count = 0;
  try {
    for (std::string raw; std::getline(stream, raw);) {
      ++count;
      const std::string content = trimmed(raw.substr(0, raw.find('#')));
      if (!content.empty()) line(content);
    }
    finish();
  } catch (const std::exception& error) {
    throw std::invalid_argument("line " + std::to_string(count) + ": " + error.what());
  }
}

std::string tiling_text(const std::string& file_name) {
  std::ifstream stream(std::string(TABLEGEN_TILINGS_DIR "/") + file_name, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read the tiling " + file_name);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace co2_properties::tablegen
