#pragma once
// How far the pieces of the library are apart where they meet.

#include "accuracy_report/text_table.hpp"

namespace co2_properties::accuracy {

/// Jumps of pressure, h and s between elements, along edges of constant density and of constant
/// temperature; along the critical isotherm between the subcritical and the supercritical elements.
[[nodiscard]] Section element_jumps_section();

/// Jumps of the patch fits between their patches and, for cv, cp and w, to the values that the
/// elements give outside their box.
[[nodiscard]] Section patch_jumps_section();

}  // namespace co2_properties::accuracy
