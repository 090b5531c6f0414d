#pragma once
// Where the fits of heat capacities and speed of sound around the critical point serve.

#include "numbers/lanes.hpp"

namespace co2_properties {

/// Temperatures, K, and densities, kg/m3; its edges do not belong to it.
struct CriticalBox {
  double temp_lo, temp_hi;
  double dens_lo, dens_hi;

  /// False for NaN. For one state or for several in lanes.
  template <class V>
  [[nodiscard, gnu::always_inline]] constexpr Mask<V> contains(const V& temp,
                                                               const V& dens) const noexcept {
    // For one state as branches, temperature first: it is what makes most states fail.
    if constexpr (lane_count<V> == 1) {
      return temp < temp_hi && temp > temp_lo && dens < dens_hi && dens > dens_lo;
    } else {
      return (temp < temp_hi) & (temp > temp_lo) & (dens < dens_hi) & (dens > dens_lo);
    }
  }
};

/// Of cv and speed of sound: around the critical point elements resolve second derivatives worst.
inline constexpr CriticalBox near_critical_box = {302.9, 310.0, 350.0, 580.0};
/// Of cp.
inline constexpr CriticalBox near_critical_box_for_cp = {302.9, 310.0, 380.0, 580.0};

}  // namespace co2_properties
