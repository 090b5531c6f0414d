#include "tablegen/tilings/patch_tiling.hpp"

#include <charconv>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>

namespace co2_properties::tablegen {
namespace {

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::vector<std::string> split(const std::string& text, const char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(trimmed(part));
  return parts;
}

struct Range {
  double lo, hi;
};

class Reader {
 public:
  void line(const std::string& text) {
    const std::vector<std::string> parts = split(text, '|');
    if (text.starts_with("pin ")) {
      pin(parts);
    } else if (const std::size_t equals = text.find(" = "); equals != std::string::npos) {
      names_[text.substr(0, equals)] = number(text.substr(equals + 3));
    } else {
      row(parts);
    }
  }

  PatchTiling cells;

 private:
  [[nodiscard]] double number(const std::string& text) const {
    if (const auto name = names_.find(text); name != names_.end()) return name->second;
    double value = 0.0;
    const char* const end = text.data() + text.size();
    if (std::from_chars(text.data(), end, value).ptr != end || text.empty()) {
      throw std::invalid_argument("not a number: '" + text + "'");
    }
    return value;
  }

  [[nodiscard]] Range range(const std::string& text) const {
    if (text.starts_with("<")) return {-open_side, number(text.substr(1))};
    if (text.starts_with(">=")) return {number(text.substr(2)), open_side};
    const std::size_t dots = text.find("..");
    if (dots == std::string::npos) throw std::invalid_argument("not a range: '" + text + "'");
    return {number(text.substr(0, dots)), number(text.substr(dots + 2))};
  }

  void row(const std::vector<std::string>& parts) {
    if (parts.size() != 3) throw std::invalid_argument("a row has three columns");
    const Range temp = range(parts[0]);
    const double temp0 = number(parts[1]);
    for (const std::string& cell : split(parts[2], ',')) {
      const std::vector<std::string> pieces = split(cell, '@');
      const Range dens = range(pieces.at(0));
      const double dens0 = pieces.size() > 1 ? number(pieces[1]) : dens.lo;
      if (dens0 == -open_side) throw std::invalid_argument("no origin: '" + cell + "'");
      cells.push_back({{temp.lo, temp.hi, dens.lo, dens.hi}, temp0, dens0, {}});
    }
  }

  void pin(const std::vector<std::string>& parts) {
    if (parts.size() != 3) throw std::invalid_argument("a pin has three columns");
    const std::vector<std::string> origin = split(parts[0].substr(4), '@');
    const double temp0 = number(origin.at(0));
    const double dens0 = number(origin.at(1));
    PatchCell* target = nullptr;
    for (PatchCell& cell : cells) {
      if (cell.temp0 != temp0 || cell.dens0 != dens0) continue;
      if (target != nullptr) throw std::invalid_argument("two patches have that origin");
      target = &cell;
    }
    if (target == nullptr) throw std::invalid_argument("no patch has that origin");
    const int j = static_cast<int>(number(parts[1]));
    int i = 0;
    for (const std::string& value : split(parts[2], ',')) {
      target->pins.push_back({i, j, number(value)});
      ++i;
    }
  }

  std::map<std::string, double> names_;
};

}  // namespace

PatchTiling read_patch_tiling(const std::string& text) {
  Reader reader;
  std::istringstream stream(text);
  int count = 0;
  for (std::string line; std::getline(stream, line);) {
    ++count;
    const std::string content = trimmed(line.substr(0, line.find('#')));
    if (content.empty()) continue;
    try {
      reader.line(content);
    } catch (const std::exception& error) {
      throw std::invalid_argument("line " + std::to_string(count) + ": " + error.what());
    }
  }
  return std::move(reader.cells);
}

CellGrid patch_grid(const PatchTiling& tiling) {
  std::vector<Rectangle> rectangles;
  for (const PatchCell& cell : tiling) {
    rectangles.push_back({cell.box, static_cast<std::uint16_t>(rectangles.size())});
  }
  return make_grid(rectangles);
}

std::string tiling_text(const std::string& file_name) {
  std::ifstream stream(std::string(TABLEGEN_TILINGS_DIR "/") + file_name, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read the tiling " + file_name);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace co2_properties::tablegen
