#pragma once
// The unit in which all times are stated: six properties of a state whose element is known, on a
// copy of the elements. Nothing of the library enters but the numbers in its table, so that no
// change of its code, of the layout of its table or of its flags moves the unit; and this code is
// not to be changed either, or figures of different revisions cannot be compared any more.

#include <span>

namespace bench_floor {

/// a(T, rho) = sum_i (T - temp0)^i [ coef[i][0] ln rho + sum_{j=1..5} coef[i][j] (rho -
/// dens0)^(j-1) ], kJ/kg, T in K, rho in kg/m3.
struct alignas(64) Record {
  double dens0;
  double temp0;
  double widths[2];  ///< not needed; they keep the distance between records
  double coef[6][6];
};

/// A state, K and kg/m3, and the record that serves it.
struct Located {
  double temp, dens;
  const Record* record;
};

struct Six {
  double pres, enth, entr, cv, cp, ssnd;  ///< kPa, kJ/kg, kJ/(kg K) three times, m/s
};

/// What one turn of the timed loop computes.
[[nodiscard]] Six evaluate(const Located& s) noexcept;

/// The timed loop: evaluates all states and keeps nothing.
void evaluate_all(std::span<const Located> states) noexcept;

}  // namespace bench_floor
