#pragma once
// The set of derivatives against the reference models.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "accuracy_report/errors.hpp"
#include "accuracy_report/text_table.hpp"
#include "co2_properties/derivative_set.hpp"

namespace co2_properties::accuracy {

inline constexpr std::size_t derivative_count = sizeof(DerivativeSet) / sizeof(double*);

/// Values or errors of all derivatives, in the order of the set.
using DerivativeArray = std::array<double, derivative_count>;

/// The derivatives in their order.
struct NamedDerivative {
  const char* name;
  double* DerivativeSet::*member;
};
extern const std::array<NamedDerivative, derivative_count> all_derivatives;

struct DerivativeErrors {
  double temp;            ///< K
  double dens;            ///< kg/m3
  bool mixture;           ///< of liquid and vapour
  DerivativeArray error;  ///< library minus reference, relative; 0 for what mixtures have not
};

/// Errors of `co2_td`; the reference is differenced in long double from its pressure, energy,
/// enthalpy, entropy and their analytic derivatives, in two phases from states in equilibrium. What
/// changes its sign is relative to the sum of the moduli of its terms. Nothing where library and
/// reference are of different phases, or for mixtures within 0.01 K of the critical temperature.
[[nodiscard]] std::optional<DerivativeErrors> measure_derivatives(double temp, double dens);

/// Errors at some of the states of a sample and at as many mixtures.
[[nodiscard]] std::vector<DerivativeErrors> derivative_errors(
    const std::vector<StateErrors>& states, std::size_t count, std::uint64_t seed,
    unsigned threads);

/// The largest error allowed of a derivative at a state; infinite where there is no bound.
[[nodiscard]] double derivative_bound(const DerivativeErrors& e, std::size_t derivative);

/// The table of the worst errors by parts of the plane; passes if the bounds hold.
[[nodiscard]] Section derivative_set_section(const std::vector<DerivativeErrors>& errors);

}  // namespace co2_properties::accuracy
