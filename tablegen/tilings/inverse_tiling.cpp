#include "tablegen/tilings/inverse_tiling.hpp"

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
    if (text.starts_with("given ")) {
      given(text.substr(6));
    } else if (const std::size_t equals = text.find(" = "); equals != std::string::npos) {
      names_[text.substr(0, equals)] = number(text.substr(equals + 3));
    } else {
      row(split(text, '|'));
    }
  }

  InverseTiling finish() {
    if (cells_.empty()) throw std::invalid_argument("no cells");
    finish_given();
    return std::move(cells_);
  }

 private:
  [[nodiscard]] double number(const std::string& text) const {
    if (const auto name = names_.find(text); name != names_.end()) return name->second;
    double value = 0.0;
    const char* const end = text.data() + text.size();
    if (text.empty() || std::from_chars(text.data(), end, value).ptr != end) {
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
    finish_given();
    if (parts.size() != 5 && parts.size() != 6) {
      throw std::invalid_argument("a row has five or six columns");
    }
    if (number(parts[0]) != static_cast<double>(cells_.size() + 1)) {
      throw std::invalid_argument("cell out of order: " + parts[0]);
    }
    const Range pres = range(parts[1]);
    const Range caloric = range(parts[2]);
    const double check = parts.size() == 6 ? number(parts[5]) : 0.0;
    if (check != 0.0 && check != 1.0) throw std::invalid_argument("a check is 0 or 1");
    cells_.push_back({{pres.lo, pres.hi, caloric.lo, caloric.hi},
                      number(parts[3]),
                      number(parts[4]),
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
      (*cells_.back().given)[given_rows_][m] = number(values[m]);
    }
    ++given_rows_;
  }

  void finish_given() {
    if (given_rows_ != 0 && given_rows_ != inverse_terms) {
      throw std::invalid_argument("the given coefficients of a cell are not complete");
    }
    given_rows_ = 0;
  }

  std::map<std::string, double> names_;
  InverseTiling cells_;
  std::size_t given_rows_ = 0;
};

}  // namespace

InverseTiling read_inverse_tiling(const std::string& text) {
  Reader reader;
  std::istringstream stream(text);
  int count = 0;
  const auto located = [&count](const std::exception& error) {
    return std::invalid_argument("line " + std::to_string(count) + ": " + error.what());
  };
  for (std::string line; std::getline(stream, line);) {
    ++count;
    const std::string content = trimmed(line.substr(0, line.find('#')));
    if (content.empty()) continue;
    try {
      reader.line(content);
    } catch (const std::exception& error) {
      throw located(error);
    }
  }
  try {
    return reader.finish();
  } catch (const std::exception& error) {
    throw located(error);
  }
}

std::string inverse_tiling_text(const std::string& name) {
  std::ifstream stream(TABLEGEN_TILINGS_DIR "/" + name + ".txt", std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read the tiling " + name);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

CellGrid inverse_grid(const InverseTiling& tiling) {
  std::vector<Rectangle> rectangles;
  for (const InverseTilingCell& cell : tiling) {
    rectangles.push_back({cell.box, static_cast<std::uint16_t>(rectangles.size())});
  }
  return make_grid(rectangles);
}

}  // namespace co2_properties::tablegen
