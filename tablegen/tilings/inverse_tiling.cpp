#include "tablegen/tilings/inverse_tiling.hpp"

#include <stdexcept>

#include "tablegen/tilings/text_reader.hpp"

namespace co2_properties::tablegen {
namespace {

class Reader {
 public:
  void line(const std::string& text) {
    if (text.starts_with("given ")) {
      given(text.substr(6));
    } else if (!numbers_.define(text)) {
      row(split(text, '|'));
    }
  }

  InverseTiling finish() {
    if (cells_.empty()) throw std::invalid_argument("no cells");
    finish_given();
    return std::move(cells_);
  }

 private:
  void row(const std::vector<std::string>& parts) {
    finish_given();
    if (parts.size() != 5 && parts.size() != 6) {
      throw std::invalid_argument("a row has five or six columns");
    }
    if (numbers_.number(parts[0]) != static_cast<double>(cells_.size() + 1)) {
      throw std::invalid_argument("cell out of order: " + parts[0]);
    }
    const Range pres = numbers_.range(parts[1]);
    const Range caloric = numbers_.range(parts[2]);
    const double check = parts.size() == 6 ? numbers_.number(parts[5]) : 0.0;
    if (check != 0.0 && check != 1.0) throw std::invalid_argument("a check is 0 or 1");
    cells_.push_back({{pres.lo, pres.hi, caloric.lo, caloric.hi},
                      numbers_.number(parts[3]),
                      numbers_.number(parts[4]),
                      static_cast<int>(check),
                      {}});
  }

  void given(const std::string& text) {
    const std::vector<std::string> values = split(text, ',');
    if (cells_.empty() || values.size() != inverse_terms || given_rows_ == inverse_terms) {
      throw std::invalid_argument("a cell has four lines of four given coefficients");
    }
    if (given_rows_ == 0) cells_.back().given.emplace();
    for (std::size_t m = 0; m < values.size(); ++m) {
      (*cells_.back().given)[given_rows_][m] = numbers_.number(values[m]);
    }
    ++given_rows_;
  }

  void finish_given() {
    if (given_rows_ != 0 && given_rows_ != inverse_terms) {
      throw std::invalid_argument("the given coefficients of a cell are not complete");
    }
    given_rows_ = 0;
  }

  Numbers numbers_;
  InverseTiling cells_;
  std::size_t given_rows_ = 0;
};

}  // namespace

InverseTiling read_inverse_tiling(const std::string& text) {
  Reader reader;
  InverseTiling tiling;
  read_lines(
      text, [&](const std::string& line) { reader.line(line); }, [&] { tiling = reader.finish(); });
  return tiling;
}

CellGrid inverse_grid(const InverseTiling& tiling) {
  std::vector<Rectangle> rectangles;
  for (const InverseTilingCell& cell : tiling) {
    rectangles.push_back({cell.box, static_cast<std::uint16_t>(rectangles.size())});
  }
  return make_grid(rectangles);
}

}  // namespace co2_properties::tablegen
