#pragma once
// Bounds of the saturation line of the library in bins.

#include <array>
#include <cstdint>
#include <vector>

namespace co2_properties::tablegen {

/// Bounds of a function; the default decides nothing.
struct Bounds {
  double lo, hi;
  [[nodiscard]] static Bounds unknown();
  [[nodiscard]] static Bounds above();  ///< all numbers
};

/// Bounds of both saturated densities and of the saturation pressure in a bin of temperature.
struct TemperatureBounds {
  Bounds vap, liq, pres;
};

/// Bounds of a property of both saturated phases in a bin of pressure.
struct CaloricBounds {
  Bounds vap, liq;
};

/// One entry for each bin of `temp_bins`.
[[nodiscard]] std::vector<TemperatureBounds> bound_by_temperature();

/// One entry for each bin of `pres_bins`: enthalpies and entropies.
struct PressureBounds {
  CaloricBounds enth, entr;
};
[[nodiscard]] std::vector<PressureBounds> bound_by_pressure();

}  // namespace co2_properties::tablegen
