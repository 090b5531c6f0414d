#include "numbers/platform.hpp"

#include "saturation/sat_pressure.hpp"

#include "cells/axis.hpp"
#include "eos/properties.hpp"
#include "saturation/curves.hpp"
#include "saturation/tie_line.hpp"

namespace co2_properties {
namespace {

constexpr double quintic_edges[temp_quintic_count - 1] = {2000.0, 3000.0, 4000.0, 5000.0,
                                                          6000.0, 6500.0, 7000.0};

}  // namespace

constexpr PieceAxis temp_quintic_axis(quintic_edges, temp_quintic_count - 1, 1);

// Origins in kPa, coefficients in K kPa^-k. The first one starts at the saturation pressure of 240
// K.
constexpr Quintic temp_quintics[temp_quintic_count] = {
    {1282.483498444739,
     {240.000002896017, 0.02256621699355332, -6.469079887466315e-6, 2.83461705171135e-9,
      -1.195743177366561e-12, 2.94358564877655e-16}},
    {2000.0,
     {253.6473135019189, 0.01628418423391002, -2.97369510716e-6, 8.335386120957523e-10,
      -2.324486245596036e-13, 3.896694675965549e-17}},
    {3000.0,
     {267.5978595629647, 0.01210245009143714, -1.47810155063381e-6, 2.757513733819829e-10,
      -5.557708004089138e-14, 7.32706603087059e-18}},
    {4000.0,
     {278.44970946314, 0.009787828120306258, -9.110392504245034e-7, 1.289200533527131e-10,
      -2.671944409276251e-14, 5.179880880813613e-18}},
    {5000.0,
     {287.4338788231626, 0.00827153140754841, -6.327969461148031e-7, 6.222384046485e-11,
      -7.33490408251541e-15, 3.539233424578191e-19}},
    {6000.0,
     {295.127856144321, 0.007165039037095581, -4.865956157907673e-7, 3.848015434370134e-11,
      -1.967983128396673e-14, 7.24846962671848e-18}},
    {6500.0,
     {298.5925333034346, 0.006699728768178956, -4.493345441677673e-7, 6.1640349122286e-11,
      -1.492494562043817e-13, 1.289015184086548e-16}},
    {7000.0,
     {301.8324691765599, 0.006262281482253418, -4.196213067800921e-7, -3.352417993077831e-10,
      1.332679464356267e-12, -2.130971649508581e-15}},
};

double calc_sat_temp(const double& pres) noexcept { return saturation_temperature<double>(pres); }

double calc_sat_pres(const double& temp) noexcept {
  // The compiler drops the logarithm and all derivatives but one.
  const SaturatedPhase<double> vap = saturated_vapour(temp);
  return pressure(vap.d, vap.dens);
}

}  // namespace co2_properties
