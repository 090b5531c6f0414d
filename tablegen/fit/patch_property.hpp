#pragma once
// The properties that have a patch fit: reference values and what is asked of the fit.

#include <string>
#include <vector>

#include "tablegen/fit/reach.hpp"

namespace co2_properties::tablegen {

struct PatchProperty {
  std::string table;    ///< name on the command line, of the tiling and of the variable <table>_fit
  std::string content;  ///< property and unit
  std::string source;   ///< papers
  FitLimits limits;     ///< of the states that callers send to the fit
  Real (*value)(Real temp, Real dens);
  bool regular;  ///< no trace of the phase boundary or the critical point in `value`
  /// Errors at these temperatures, around the critical one, are quoted apart.
  double critical_from;
  double critical_to;

  [[nodiscard]] bool critical(const Real temp) const {
    return temp >= critical_from && temp <= critical_to;
  }
};

[[nodiscard]] const std::vector<PatchProperty>& patch_properties();

/// Distance of a state from the critical point in K: |T - Tc| plus the distance below Tc at which
/// the saturation line, taken as cubic, has the density of the state. Every property but the
/// viscosity is singular where it vanishes.
[[nodiscard]] Real critical_distance(const StatePoint& at);

/// States from `nodes` over the reachable part of a cell, but none nearer to the critical point
/// than `gap` where the property is singular there.
[[nodiscard]] std::vector<StatePoint> regular_points(const PatchProperty& property,
                                                     const Reach& reach,
                                                     const std::vector<Real>& nodes, Real gap);

/// Value in the two-phase region, which no caller asks for: something finite that joins the
/// outside. Metastable states keep their own value as long as their compressibility is less than
/// twice that on the saturation line at the same density; the others take the value 0.01 K above
/// that line.
[[nodiscard]] Real value_in_dome(const PatchProperty& property, const StatePoint& at);

}  // namespace co2_properties::tablegen
