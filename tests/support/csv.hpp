#pragma once

#include <cstddef>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace co2_properties::test {

/// Columns of a text CSV file with one header line, by name. Throws where the file is missing,
/// empty or ragged, so that a sweep over it cannot pass by seeing nothing.
inline std::map<std::string, std::vector<double>> read_csv(const std::string& path) {
  std::ifstream file(path);
  std::string line;
  if (!std::getline(file, line)) throw std::runtime_error("cannot read " + path);
  std::vector<std::string> names;
  std::string cell;
  for (std::stringstream header(line); std::getline(header, cell, ',');) names.push_back(cell);
  std::map<std::string, std::vector<double>> columns;
  std::size_t rows = 0;
  while (std::getline(file, line)) {
    std::stringstream cells(line);
    for (const std::string& name : names) {
      if (!std::getline(cells, cell, ',')) throw std::runtime_error("short row in " + path);
      columns[name].push_back(std::stod(cell));
    }
    ++rows;
  }
  if (rows == 0) throw std::runtime_error("no rows in " + path);
  return columns;
}

/// Largest error of a sweep and the state (x, y) where it occurs. NaN counts as infinite.
struct WorstError {
  double error = 0.0, x = 0.0, y = 0.0;

  void note(double candidate, double at_x, double at_y) {
    if (candidate <= error) return;
    error = candidate == candidate ? candidate : 1e300;
    x = at_x;
    y = at_y;
  }
};

}  // namespace co2_properties::test
