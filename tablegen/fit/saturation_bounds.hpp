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
  [[nodiscard]] static Bounds below();
};

/// Bounds of a property of both saturated phases.
struct CaloricBounds {
  Bounds vap, liq;
};

/// Bounds of both saturated densities and entropies and of the saturation pressure in a bin of
/// temperature.
struct TemperatureBounds {
  Bounds vap, liq, pres;
  CaloricBounds entr;
};

/// One entry for each bin of `temp_bins`.
[[nodiscard]] std::vector<TemperatureBounds> bound_by_temperature();

/// One entry for each bin of `pres_bins`: enthalpies, entropies and internal
/// energies.
struct PressureBounds {
  CaloricBounds enth, entr, inte;
};
[[nodiscard]] std::vector<PressureBounds> bound_by_pressure();

/// One entry for each bin of `entr_bins`: of the enthalpy on the saturation line less the slope
/// times the entropy.
struct DomeBounds {
  float slope;
  Bounds height;
};
[[nodiscard]] std::vector<DomeBounds> bound_by_entropy();

}  // namespace co2_properties::tablegen
