#pragma once
// Both sets of outputs of an entry, as the library passes them on.

#include <cstdint>

#include "co2_properties/derivative_set.hpp"
#include "co2_properties/output_set.hpp"

namespace co2_properties {

/// In registers, by value.
struct OutputSets {
  const OutputSet& state;
  const DerivativeSet* derivatives;  ///< null where none are asked for

  // NOLINTNEXTLINE(google-explicit-constructor): one set is as good as two
  [[gnu::always_inline]] inline OutputSets(
      const OutputSet& state_in, const DerivativeSet* const derivatives_in = nullptr) noexcept
      : state(state_in), derivatives(derivatives_in) {}
};

/// Where the results of one state of saturation, or of states in groups of lanes, go.
struct SaturationOutputs {
  OutputSets liq;
  OutputSets vap;
  double* latent_heat;
  double* dpdt_sat;
};

// The entries with both sets: what all their other forms call.
// entries: begin, written by scripts/generate_entries
void co2_td(double temp, double dens, std::int32_t& ierr, OutputSets out) noexcept;
void co2_tp(double temp, double pres, std::int32_t& ierr, OutputSets out) noexcept;
void co2_ph(double pres, double enth, std::int32_t& ierr, OutputSets out) noexcept;
void co2_ps(double pres, double entr, std::int32_t& ierr, OutputSets out) noexcept;
void co2_du(double dens, double inte, std::int32_t& ierr, OutputSets out) noexcept;
void co2_dh(double dens, double enth, std::int32_t& ierr, OutputSets out) noexcept;
void co2_ds(double dens, double entr, std::int32_t& ierr, OutputSets out) noexcept;
void co2_dp(double dens, double pres, std::int32_t& ierr, OutputSets out) noexcept;
void co2_hs(double enth, double entr, std::int32_t& ierr, OutputSets out) noexcept;
void co2_pu(double pres, double inte, std::int32_t& ierr, OutputSets out) noexcept;
void co2_ts(double temp, double entr, std::int32_t& ierr, OutputSets out) noexcept;
void co2_tx(double temp, double qual, std::int32_t& ierr, OutputSets out) noexcept;
void co2_px(double pres, double qual, std::int32_t& ierr, OutputSets out) noexcept;
// entries: end

}  // namespace co2_properties
