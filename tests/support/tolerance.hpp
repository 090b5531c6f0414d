#pragma once

// Tolerances of the tests, each explained once. Equality of bits, which needs none, is asked for
// wherever the same operations must have run on the same numbers.

namespace co2_properties::test::tolerance {

/// Constants printed with sixteen digits that must satisfy a relation, and values that differ by
/// rounding alone: some tens of units in the last place, relative.
inline constexpr double rounding = 1e-14;

/// Fits of the saturation line against the published equation of state: what was measured over
/// tests/data/sat.csv, rounded up.
inline constexpr double sat_temp_fit = 6e-5;  // K
inline constexpr double sat_pres_fit = 3e-7;  // relative

}  // namespace co2_properties::test::tolerance
