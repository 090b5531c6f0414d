#pragma once
// The transport models behind the tables against others: newer correlations, and the paper's own
// form where the library departs from it.

#include <cstddef>
#include <cstdint>

#include "accuracy_report/text_table.hpp"

namespace co2_properties::accuracy {

/// Viscosity and conductivity of the library against Laesecke and Muzny (2017) and Huber et al.
/// (2016): over gas, liquid and supercritical states, log-uniform in temperature and pressure; over
/// all of them, uniform in both; outside the box around the critical point so far; in the box,
/// uniform in temperature and density.
/// \param count  states in each of the five parts
[[nodiscard]] Section newer_models_section(std::size_t count, std::uint64_t seed, unsigned threads);

/// Conductivity of the dilute gas with the internal heat capacity of the equation of state, as in
/// the tables, against that of Vesovic et al. (1990), over temperature.
[[nodiscard]] Section internal_heat_section();

}  // namespace co2_properties::accuracy
