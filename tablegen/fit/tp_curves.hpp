#pragma once
// The curves that separate elements in the (T, p) plane.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "eos/element.hpp"
#include "eos/pressure_locator.hpp"
#include "tablegen/tilings/element_tiling.hpp"

namespace co2_properties::tablegen {

/// A density edge within one interval of temperature.
struct TpSegment {
  std::size_t column, row;   ///< the row above the edge
  double temp_lo, temp_hi;   ///< K
  std::size_t below, above;  ///< elements on both sides, from 0
};

/// A stretch of a density edge, in ascending temperature, and its curve.
struct TpCurve {
  double dens;  ///< kg/m3
  std::vector<TpSegment> segments;
  IsochoreCurve stored{};
  std::int32_t degree = 0;  ///< of the polynomial
  bool known = false;       ///< the polynomial is given, not fitted
  double dens_error = 0.0;  ///< largest distance of the curve from the edge, kg/m3
  double error_at = 0.0;    ///< and where, K
  double pres_error = 0.0;  ///< relative, there

  [[nodiscard]] double temp_lo() const { return segments.front().temp_lo; }
  [[nodiscard]] double temp_hi() const { return segments.back().temp_hi; }
};

/// Curves and element lists of one region.
struct TpRegion {
  const char* name;
  Region region;
  std::vector<double> temp_edges{};  ///< inner break points of temperature, K
  std::vector<TpCurve> curves{};
  std::vector<std::vector<TpRow>> columns{};  ///< one list for each interval of temperature
};

/// Lays out the curves of a region and fits them to the pressure of the elements.
/// \param elements  the fitted element of each cell
/// \throws std::invalid_argument if the cells leave a gap, std::runtime_error if a curve is not
/// found
[[nodiscard]] TpRegion fit_tp_region(const std::vector<ElementCell>& cells,
                                     const std::vector<Element>& elements, const char* name,
                                     Region region);

}  // namespace co2_properties::tablegen
