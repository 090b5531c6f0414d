#pragma once
// How far the library is from its reference models at one state.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace co2_properties::accuracy {

/// Density at given temperature and pressure, (p - p_ref) / (rho dp/drho), relative; pressure at
/// given temperature and density, relative; h in kJ/kg; s in kJ/(kg K); dh/drho relative to the sum
/// of the moduli of its two terms, (dp/drho + T/rho dp/dT) / rho, because it changes sign; the
/// others relative.
enum Quantity : std::size_t {
  dens,
  pres,
  enth,
  entr,
  cv,
  cp,
  ssnd,
  visc,
  cond,
  dpdd,
  dpdt,
  dhdd,
  dhdt,
  dsdd,
  dsdt,
  quantity_count
};

inline constexpr std::array<const char*, quantity_count> quantity_names = {
    "density",      "p",       "h",     "s",       "cv",    "cp",      "w",    "viscosity",
    "conductivity", "dp/drho", "dp/dT", "dh/drho", "dh/dT", "ds/drho", "ds/dT"};

struct StateErrors {
  double temp;  ///< K
  double dens;  ///< kg/m3
  /// Whether the pressure of the reference rises with density. Next to saturation the library may
  /// call a state single phase that the reference calls two-phase; beyond the spinodal its density,
  /// cp and w have no value.
  bool stable;
  std::array<double, quantity_count> error;  ///< library minus reference
};

/// Errors of `co2_td`, the reference in long double; nothing where the library reports no single
/// phase. The references are Span & Wagner (1996), Fenghour et al. (1998) and Vesovic et al. (1990)
/// as in reference/.
[[nodiscard]] std::optional<StateErrors> measure(double temp, double dens);

/// Index of the element of a single-phase state.
[[nodiscard]] std::int32_t element_of(double temp, double dens);

/// The element or patch that a quantity of a single-phase state comes from: "element 12", "cp patch
/// 3". Elements count from 1, patches from 0, as the tables do.
[[nodiscard]] std::string cell_name(Quantity quantity, double temp, double dens);

}  // namespace co2_properties::accuracy
