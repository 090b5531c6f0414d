#pragma once
// The entries in two halves: the tests of the inputs with the element that they lead to, and the
// rest.

#include <cstdint>

#include "co2_properties/output_set.hpp"
#include "co2_properties/status.hpp"
#include "saturation/phase.hpp"

namespace co2_properties {

/// The form of the entries for one state.
using SingleEntry = void (*)(const double&, const double&, std::int32_t&,
                             const OutputSet&) noexcept;

/// Where `co2_td` evaluates a state.
struct TdPlace {
  std::int32_t code = status::success;
  std::int32_t element = 0;  ///< 0: two phases
  SaturatedDensities sat{};  ///< as far as they were evaluated; both in two phases
};
/// \param temp, dens  temperature, K, and density, kg/m3; any values
[[nodiscard]] TdPlace place_td(double temp, double dens) noexcept;
/// The rest of `co2_td`.
void finish_td(const TdPlace& place, double temp, double dens, std::int32_t& ierr,
               const OutputSet& out) noexcept;

/// Where `co2_tp` starts to look for the density.
struct TpPlace {
  std::int32_t code = status::success;
  std::int32_t element = 0;
};
/// \param temp, pres  temperature, K, and pressure, kPa; any values
[[nodiscard]] TpPlace place_tp(double temp, double pres) noexcept;
/// The rest of `co2_tp`.
void finish_tp(const TpPlace& place, double temp, double pres, std::int32_t& ierr,
               const OutputSet& out) noexcept;

/// Where `co2_ph` and `co2_ps` start their iteration or, for a mixture, the state itself.
struct CaloricStart {
  std::int32_t code = status::success;
  bool is_mixture = false;
  std::int32_t element = 0;  ///< to start with
  double temp = 0.0;         ///< K
  double dens = 0.0;         ///< kg/m3
  double qual = 0.0;         ///< of the mixture, whose phases follow
  SaturatedPhase liq{};
  SaturatedPhase vap{};
};

/// \param pres, enth  pressure, kPa, and enthalpy, kJ/kg; any values
[[nodiscard]] CaloricStart place_ph(double pres, double enth) noexcept;
/// The rest of `co2_ph`.
void finish_ph(const CaloricStart& start, double pres, double enth, std::int32_t& ierr,
               const OutputSet& out) noexcept;
/// \param pres, entr  pressure, kPa, and entropy, kJ/(kg K); any values
[[nodiscard]] CaloricStart place_ps(double pres, double entr) noexcept;
/// The rest of `co2_ps`.
void finish_ps(const CaloricStart& start, double pres, double entr, std::int32_t& ierr,
               const OutputSet& out) noexcept;

}  // namespace co2_properties
