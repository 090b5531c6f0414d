#pragma once
// The saturation line against the equilibrium of the reference.

#include <string>
#include <vector>

#include "accuracy_report/sampling.hpp"
#include "accuracy_report/text_table.hpp"

namespace co2_properties::accuracy {

struct SaturationErrors {
  double temp;                ///< K
  double dens_liq, dens_vap;  ///< kg/m3, of the library
  double liq, vap;            ///< of the densities, relative
  double pres;                ///< of `calc_sat_pres`, relative
  double temp_of_pres;        ///< of `calc_sat_temp` at the pressure of the reference, K
  double pres_gap;            ///< liquid minus vapour pressure at the library's densities, relative
};

/// \param count  temperatures, half of them equidistant from 240 K, half closing in on the critical
///               temperature down to 2e-6 K; ascending. The reference is solved in long double.
[[nodiscard]] std::vector<SaturationErrors> saturation_errors(int count, unsigned threads);

[[nodiscard]] Section saturation_section(const std::vector<SaturationErrors>& line);

/// States near saturation that the library and the reference assign to different phases.
[[nodiscard]] Section phases_section(const Sample& sample);

}  // namespace co2_properties::accuracy
