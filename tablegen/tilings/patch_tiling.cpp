#include "tablegen/tilings/patch_tiling.hpp"

#include <stdexcept>

#include "tablegen/tilings/text_reader.hpp"

namespace co2_properties::tablegen {
namespace {

class Reader {
 public:
  void line(const std::string& text) {
    const std::vector<std::string> parts = split(text, '|');
    if (text.starts_with("pin ")) {
      pin(parts);
    } else if (!numbers_.define(text)) {
      row(parts);
    }
  }

  PatchTiling cells;

 private:
  void row(const std::vector<std::string>& parts) {
    if (parts.size() != 3) throw std::invalid_argument("a row has three columns");
    const Range temp = numbers_.range(parts[0]);
    const double temp0 = numbers_.number(parts[1]);
    for (const std::string& cell : split(parts[2], ',')) {
      const std::vector<std::string> pieces = split(cell, '@');
      const Range dens = numbers_.range(pieces.at(0));
      const double dens0 = pieces.size() > 1 ? numbers_.number(pieces[1]) : dens.lo;
      if (dens0 == -open_side) throw std::invalid_argument("no origin: '" + cell + "'");
      cells.push_back({{temp.lo, temp.hi, dens.lo, dens.hi}, temp0, dens0, {}});
    }
  }

  void pin(const std::vector<std::string>& parts) {
    if (parts.size() != 3) throw std::invalid_argument("a pin has three columns");
    const std::vector<std::string> origin = split(parts[0].substr(4), '@');
    const double temp0 = numbers_.number(origin.at(0));
    const double dens0 = numbers_.number(origin.at(1));
    PatchCell* target = nullptr;
    for (PatchCell& cell : cells) {
      if (cell.temp0 != temp0 || cell.dens0 != dens0) continue;
      if (target != nullptr) throw std::invalid_argument("two patches have that origin");
      target = &cell;
    }
    if (target == nullptr) throw std::invalid_argument("no patch has that origin");
    const int j = static_cast<int>(numbers_.number(parts[1]));
    int i = 0;
    for (const std::string& value : split(parts[2], ',')) {
      target->pins.push_back({i, j, numbers_.number(value)});
      ++i;
    }
  }

  Numbers numbers_;
};

}  // namespace

PatchTiling read_patch_tiling(const std::string& text) {
  Reader reader;
  read_lines(
      text, [&](const std::string& line) { reader.line(line); }, [] {});
  return std::move(reader.cells);
}

CellGrid patch_grid(const PatchTiling& tiling) {
  std::vector<Rectangle> rectangles;
  for (const PatchCell& cell : tiling) {
    rectangles.push_back({cell.box, static_cast<std::uint16_t>(rectangles.size())});
  }
  return make_grid(rectangles);
}

}  // namespace co2_properties::tablegen
