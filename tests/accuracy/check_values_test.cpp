// The library and its reference models against values that others have printed.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "api/co2_properties.hpp"
#include "reference/conductivity.hpp"
#include "reference/phase_equilibrium.hpp"
#include "reference/viscosity.hpp"
#include "saturation/sat_density.hpp"
#include "saturation/sat_pressure.hpp"
#include "tests/support/outputs.hpp"

namespace co2_properties {
namespace {

using namespace test;  // names of the outputs

/// Columns of the file from the pressure on; before them stand source, kind and temperature, after
/// them the zero of u, h and s.
constexpr std::array columns = {pres, dens, inte, enth, entr, cv, cp, ssnd, visc, cond};
constexpr Output any = temp;  // not among the columns

struct Row {
  std::string source, kind;
  double temp;
  std::array<std::string, columns.size()> printed;
  bool ideal_gas_zero;
  double operator[](std::size_t c) const { return std::strtod(printed[c].c_str(), nullptr); }
};

std::vector<std::string> cells_of(const std::string& line) {
  std::vector<std::string> cells(1);
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      cells.emplace_back();
    } else {
      cells.back() += c;
    }
  }
  return cells;
}

std::vector<Row> check_values() {
  std::ifstream file(std::string(TEST_DATA_DIR) + "/check_values.csv");
  std::vector<Row> rows;
  std::string line;
  for (std::getline(file, line); std::getline(file, line);) {
    const auto cells = cells_of(line);
    Row row{cells.at(0), cells.at(1), std::stod(cells.at(2)), {}, cells.at(13) == "SW"};
    std::copy_n(cells.begin() + 3, columns.size(), row.printed.begin());
    rows.push_back(row);
  }
  return rows;
}

/// Half a unit of the last printed digit.
double half_unit_of(const std::string& number) {
  const std::size_t e = std::min(number.find('E'), number.size());
  const std::size_t point = std::min(number.find('.'), e - 1);
  const int exponent = e == number.size() ? 0 : std::stoi(number.substr(e + 1));
  return 0.5 * std::pow(10.0, exponent - static_cast<int>(e - point - 1));
}

/// What a row calls zero, less what this library does.
double zero_shift(const Row& row, const Output column) {
  if (!row.ideal_gas_zero) return 0.0;
  return column == entr ? 2.739006 : column == enth || column == inte ? 506.7799 : 0.0;
}

/// All values of a row; the pressure of a saturated state is a function of its own.
std::int32_t by_library(const Row& row, Outputs& out) {
  std::int32_t ierr = 0;
  if (row.kind.starts_with("tp")) {
    co2_tp(row.temp, row[0], ierr, out.subset());
    return ierr;
  }
  const double density = row.kind == "sat_l"   ? calc_sat_liq_dens(row.temp)
                         : row.kind == "sat_v" ? calc_sat_vap_dens(row.temp)
                                               : row[1];
  co2_td(row.temp, density, ierr, out.subset());
  if (row.kind.starts_with("sat")) out.value[pres] = calc_sat_pres(row.temp);
  return ierr;
}

void by_reference(const Row& row, Outputs& out) {
  const double density = row.kind.starts_with("tp") ? reference::density(row.temp, row[0])
                         : row.kind == "sat_l"      ? reference::saturation(row.temp).dens_liq
                         : row.kind == "sat_v"      ? reference::saturation(row.temp).dens_vap
                                                    : row[1];
  const auto p = reference::properties(row.temp, density);
  const double mu = reference::viscosity(row.temp, density);
  const double lambda = reference::conductivity(row.temp, density);
  const double values[] = {p.p, density, p.u, p.h, p.s, p.cv, p.cp, p.w, mu, lambda};
  for (std::size_t c = 0; c < columns.size(); ++c) out.value[columns[c]] = values[c];
}

/// Rows of another model than the reference, or with more digits than both share: how far the
/// reference is from them, relative. The first entry that matches counts.
struct OtherModel {
  const char* source;
  double temp;  // 0 for any
  Output column;
  double deviation;
  const char* why;
};
constexpr OtherModel other_models[] = {
    {"REFPROP 7.0", 0, any, 1.5e-8, "ten digits; zeros of h and s 1.7e-6 kJ/kg apart"},
    {"REFPROP 8.0 saturation", 0, any, 2e-8, "twelve digits; the same zeros"},
    {"REFPROP 9.1", 0, cond, 1.2e-5, "other constants of the critical enhancement"},
    {"REFPROP 9.1", 0, any, 5e-12, "the twelfth digit"},
    {"CoolProp", 0, any, 8e-9, "sixteen digits; the same zeros"},
    {"andrsd", 0, any, 4e-9, "sixteen digits; the same zeros"},
    {"critical enhancement", 0, visc, 4.3e-3, "the enhancement, which the model leaves out"},
    {"over (T,p)", 0, visc, 3.0e-3, "densities of an older equation, up to 0.4 % away"},
    {"over (T,p)", 280, cond, 1.7e-2, "near saturation: an enhancement of its own"},
    {"over (T,p)", 0, cond, 4.9e-3, "older densities and ideal-gas heat capacity"},
    {"Vesovic 1990 Appendix", 304, cond, 4.6e-3, "the paper's full crossover"},
    {"Vesovic 1990 Appendix", 0, cond, 1.3e-3, "the paper's ideal-gas heat capacity"},
};

/// Largest errors of the library against its reference models, relative, for rows that show them.
double fit_error(const Output column) {
  switch (column) {
    case cv:
    case cp:
      return 1e-5;
    case ssnd:
      return 1e-6;
    case cond:
      return 3e-4;
    case visc:
      return 4e-6;
    default:
      return 3e-7;
  }
}

/// Printed digits that the library misses although its reference has them.
struct Missed {
  const char* kind;
  double temp;
  Output column;
  double half_units;  // of the last printed digit
};
constexpr Missed missed[] = {
    // 1.8e-6 off; the reference itself, 2.255353, is 1.3e-6 above the limit of the digits 2.2554.
    {"sat_l", 260, cp, -1.01},
    // The saturated densities are 7.2e-6 (liquid) and 1.2e-6 (vapour) off here. At these densities
    // the reference gives cp 387.021 and 555.608, which is what the library has to 3e-5.
    {"sat_l", 304, cv, 2.2},
    {"sat_l", 304, cp, 29.7},
    {"sat_l", 304, ssnd, -1.75},
    {"sat_v", 304, cp, 7.0},
};

TEST(CheckValues, ThePrintedDigitsComeOut) {
  const std::vector<Row> rows = check_values();
  int outside = 0;
  std::array<double, std::size(other_models)> seen{};
  for (const Row& row : rows) {
    // Wrong in itself: the conductivity is less than half of its own background.
    if (row.kind == "tp_trans" && row.temp == 306.0) continue;
    Outputs library, model;
    by_reference(row, model);
    const bool inside = by_library(row, library) <= 0;
    if (!inside) {
      EXPECT_TRUE(row.temp < 240.0 || model[pres] > 1e5) << row.source << ", " << row.temp << " K";
      ++outside;
      // The saturation temperature of its pressure, which does not settle the phase.
      if (row.temp == 233.0282499) continue;
    }
    for (std::size_t c = 0; c < columns.size(); ++c) {
      if (row.printed[c].empty()) continue;
      const Output column = columns[c];
      const double printed = row[c] + zero_shift(row, column);
      const double half_unit = half_unit_of(row.printed[c]);
      SCOPED_TRACE(testing::Message()
                   << row.source << ", " << row.kind << ' ' << row.temp << " K " << row.printed[0]
                   << ", " << output_names[column] << ' ' << printed);
      double model_allowed = half_unit;
      double allowed = half_unit;
      const auto* const other =
          std::find_if(std::begin(other_models), std::end(other_models), [&](const OtherModel& o) {
            return row.source.find(o.source) != std::string::npos &&
                   (o.temp == 0.0 || o.temp == row.temp) && (o.column == any || o.column == column);
          });
      if (other != std::end(other_models)) {
        model_allowed = std::max(half_unit, other->deviation * printed);
        allowed = model_allowed + fit_error(column) * printed;
        double& most = seen[static_cast<std::size_t>(other - other_models)];
        most = std::max(most, std::fabs(model[column] / printed - 1.0));
      }
      EXPECT_NEAR(model[column], printed, model_allowed) << "the reference model";
      if (!inside) continue;
      const auto* const miss =
          std::find_if(std::begin(missed), std::end(missed), [&](const Missed& m) {
            return row.kind == m.kind && row.temp == m.temp && column == m.column;
          });
      if (miss != std::end(missed)) {
        EXPECT_NEAR((library[column] - printed) / half_unit, miss->half_units, 0.5);
      } else {
        EXPECT_NEAR(library[column], printed, allowed) << "the library";
      }
    }
  }
  EXPECT_EQ(rows.size(), 220U);
  EXPECT_EQ(outside, 26);
  // No deviation is stated larger than it is.
  for (std::size_t k = 0; k < seen.size(); ++k) {
    EXPECT_GT(seen[k], 0.5 * other_models[k].deviation) << other_models[k].why;
  }
}

}  // namespace
}  // namespace co2_properties
