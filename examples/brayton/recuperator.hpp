#pragma once
// Counterflow heat exchanger without pressure loss or loss of heat, for two streams of carbon
// dioxide. Flows are fractions of the flow through the turbine; so duties are kJ per kg of it.

#include <cstddef>
#include <vector>

namespace brayton {

/// What enters on one side.
struct Stream {
  double pres = 0.0;     ///< kPa
  double enth_in = 0.0;  ///< kJ/kg
  double flow = 0.0;     ///< mass flow through the turbine = 1
};

/// Temperatures where `duty` has passed between here and the cold end.
struct Station {
  double duty = 0.0;       ///< kJ/kg
  double temp_hot = 0.0;   ///< K
  double temp_cold = 0.0;  ///< K

  [[nodiscard]] double difference() const { return temp_hot - temp_cold; }
};

struct Recuperator {
  Stream hot;
  Stream cold;
  double duty = 0.0;  ///< kJ/kg

  [[nodiscard]] double enth_hot_out() const { return hot.enth_in - duty / hot.flow; }
  [[nodiscard]] double enth_cold_out() const { return cold.enth_in + duty / cold.flow; }

  /// Stations from the cold to the hot end, equally far apart in duty: each stream's temperature
  /// follows from its pressure and from the enthalpy that the balance up to the station gives.
  [[nodiscard]] std::vector<Station> profile(std::size_t intervals) const;

  /// Duty at which one stream would leave at the inlet temperature of the other.
  [[nodiscard]] double largest_duty() const;
};

/// Station of the smallest temperature difference, the pinch.
[[nodiscard]] Station find_pinch(const std::vector<Station>& profile);

/// Conductance UA, kJ/(kg K): integral of d(duty) / (temperature difference).
[[nodiscard]] double conductance(const std::vector<Station>& profile);

/// The recuperator whose pinch is `difference` (K); its duty is 0 if the inlets are closer. More
/// duty brings the streams closer everywhere, so the bracket from 0 to the largest duty holds one
/// solution.
[[nodiscard]] Recuperator recuperator_with_pinch(const Stream& hot, const Stream& cold,
                                                 double difference, std::size_t intervals);

}  // namespace brayton
