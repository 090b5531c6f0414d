#pragma once
// Inputs at, around and far beyond the limits of the entries.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "api/batch/levels.hpp"
#include "api/co2_properties.hpp"
#include "solver_report/states.hpp"

namespace co2_properties::solver_report {

/// What an entry answers.
struct Answer {
  std::int32_t ierr = 0;
  double temp = 0, pres = 0, dens = 0, qual = 0, inte = 0, enth = 0, entr = 0, cv = 0, cp = 0;
  double ssnd = 0, dpdd = 0;

  Answer(const SingleEntry entry, const double first, const double second) {
    entry(first, second, ierr, slots());
  }
  OutputSet slots() {
    return {.temp = &temp,
            .pres = &pres,
            .dens = &dens,
            .qual = &qual,
            .inte = &inte,
            .enth = &enth,
            .entr = &entr,
            .cv = &cv,
            .cp = &cp,
            .ssnd = &ssnd,
            .dpdd = &dpdd};
  }
  [[nodiscard]] bool is_mixture() const { return cp == 0.0; }
  [[nodiscard]] bool is_finite() const {
    return std::isfinite(temp + pres + dens + qual + inte + enth + entr + cv + cp + ssnd + dpdd);
  }
};

/// An entry that takes a pressure and a caloric property.
struct CaloricPlane {
  double Answer::*caloric;
  double unit;             ///< kJ/kg, kJ/(kg K): a hundredth of what the range spans, or so
  double least, greatest;  ///< of the range, rounded outwards
  std::int32_t first_code;

  /// The property at a temperature, K, on an isobar; on the cold side of the dome below 240 K.
  [[nodiscard]] double at(const double temp, const double pres) const {
    return Answer(co2_tp, temp, pres).*caloric;
  }
};
inline constexpr CaloricPlane ph_plane = {&Answer::enth, 20.0, 90.0, 1900.0, 300};
inline constexpr CaloricPlane ps_plane = {&Answer::entr, 0.05, 0.4, 5.0, 400};
inline constexpr CaloricPlane pu_plane = {&Answer::inte, 20.0, 70.0, 1650.0, 1000};

struct Inputs {
  double first, second;
};

/// An entry and the strips of its plane of inputs: all of it, and the surroundings of each limit.
struct InputPlane {
  const char* name;
  SingleEntry single;
  BatchEntries::Run BatchEntries::*batch;
  std::vector<const char*> strips;
  std::function<Inputs(std::size_t strip, Draws& draws)> draw;
};
/// Of `co2_td`, `co2_tp`, `co2_ph`, `co2_ps`, `co2_pu`, `co2_ts` and `co2_hs`.
inline constexpr std::size_t plane_count = 7;
extern const InputPlane input_planes[plane_count];

}  // namespace co2_properties::solver_report
