#pragma once
// Thermodynamic and transport properties of carbon dioxide: the interface for C++.
//
// One call gives the state at one point. All procedures are pure: no memory of earlier calls, no
// allocation, no exception, no input or output; any number of them may run at once.
//
// Units: temperature K, pressure kPa, density kg/m3, energies kJ/kg, entropy and heat capacities
// kJ/(kg K), speed of sound m/s, viscosity uPa s, thermal conductivity W/(m K).
// Range: 240 K to 1500 K and 1 kPa to 100000 kPa, gas, liquid, supercritical and two-phase.
//
// Equilibrium properties are local fits of the equation of state of R. Span and W. Wagner, J. Phys.
// Chem. Ref. Data 25 (1996) 1509; accuracy: docs/accuracy.md.

#include "co2_properties/require_cpp20.hpp"

#include <array>
#include <cstdint>

#include "co2_properties/batch.hpp"
#include "co2_properties/derivative_set.hpp"
#include "co2_properties/helmholtz_derivatives.hpp"
#include "co2_properties/limits.hpp"
#include "co2_properties/output_set.hpp"
#include "co2_properties/saturation_set.hpp"
#include "co2_properties/status.hpp"

// The shared library exports what is declared between these lines, and nothing else. The headers of
// the parts mark the same procedures.
#if defined(__GNUC__)
#pragma GCC visibility push(default)
#endif

namespace co2_properties {

// ---- State entries -----------------------------------------------------------------------------
//
// Two inputs, a status and any subset of the outputs; `OutputSet` says what each of them is. An
// output that is absent is neither computed nor written. The values do not depend on the subset
// asked for, nor on the form of the call:
//
//   double p, h;
//   std::int32_t ierr;
//   co2_td(300.0, 50.0, ierr, {.pres = &p, .enth = &h});
//   co2_td(300.0, 50.0, ierr, nullptr, &p);
//
// `ierr` is always written (see co2_properties/status.hpp). After an error every present output is
// +0.0. A range test asks whether a value lies beyond its limit: the limits are accepted, and so is
// NaN, for which nothing tests; it comes out in the outputs that depend on it. Outputs may
// overwrite the inputs.

/// State from temperature and density.
/// \param temp_in  temperature, K, 240 to 1500
/// \param dens_in  density, kg/m3, from 0.0035287466 up to that of 100000 kPa
/// \param ierr     0; -101 two phases and one of cv, cp, ssnd, visc, cond is present; the errors,
///                 in the order of the tests: 103 density below its lowest value, 102 temperature
///                 above 1500, 101 temperature below 240, 103 pressure below 1, 104 pressure above
///                 100000
///
/// Below the critical temperature a density up to that of saturated vapour is vapour, one from that
/// of saturated liquid on is liquid, and in between two phases coexist: then `pres` is the pressure
/// of the vapour, `inte`, `enth` and `entr` are weighted by `qual`, and cv, cp, ssnd, visc, cond
/// and the six derivatives are zero. `qual` is the lever value, also outside [0, 1].
///
/// Around the critical point (302.9 K < T < 310 K, rho < 580 kg/m3, and rho > 350 for cv and ssnd,
/// rho > 380 for cp) cv, cp and ssnd come from `calculate_cv`, `calculate_cp` and `calculate_ssnd`.
///
/// NaN as temperature gives NaN outputs, NaN as density NaN in those that depend on it; `ierr` is
/// that of a two-phase state or, for NaN density from 304.1282 K on, 0.
void co2_td(const double& temp_in, const double& dens_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

/// State from temperature and pressure; never two-phase.
/// \param temp_in  temperature, K, 240 to 1500
/// \param pres_in  pressure, kPa, 1 to 100000
/// \param ierr     0 or, in the order of the tests: 203 pressure below 1, 204 pressure above
///                 100000, 201 temperature below 240, 205 pressure equal to `calc_sat_pres` of the
///                 temperature, where the state is undefined, 202 temperature above 1500, 207 the
///                 density was not found
///
/// Below the critical temperature a pressure below saturation is vapour and one above it liquid.
/// The density is that at which an element's pressure meets the given one to 1e-11; the outputs are
/// those of `co2_td` there, but the mark in `qual` goes by the given pressure.
///
/// NaN as pressure gives 205 below the critical temperature and 207 from it on; NaN as temperature
/// gives 207.
void co2_tp(const double& temp_in, const double& pres_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

/// State from pressure and enthalpy.
/// \param pres_in  pressure, kPa, 1 to 100000
/// \param enth_in  specific enthalpy, kJ/kg, of a temperature of 240 K to 1500 K
/// \param ierr     0; -301 two phases and one of cv, cp, ssnd is present; -302 within 0.08 K of the
///                 critical temperature, pressure or enthalpy are met to 1e-2 instead of 1e-4; the
///                 errors 303 pressure below 1, 304 pressure above 100000, 301 temperature below
///                 240, 302 temperature above 1500, both however far, 305 not a finite number
///
/// An enthalpy between those of saturated liquid and vapour is a mixture at the saturation
/// temperature, which is not tested: below 1282.4835 kPa it is extrapolated. `pres` is then that of
/// the saturated vapour, `visc` and `cond` are those of the phases weighted by `qual`, cv, cp, ssnd
/// and the six derivatives zero. Otherwise temperature and density meet pressure and enthalpy to
/// 1e-11, and the outputs are those of `co2_td` there; the mark in `qual` goes by the given
/// pressure. NaN gives 305.
void co2_ph(const double& pres_in, const double& enth_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

/// State from pressure and entropy; as `co2_ph`, with its own codes.
/// \param pres_in  pressure, kPa, 1 to 100000
/// \param entr_in  specific entropy, kJ/(kg K), of a temperature of 240 K to 1500 K
/// \param ierr     0; -401 two phases and one of cv, cp, ssnd, visc, cond is present: all of them
///                 are zero then; -402 and 401 to 405 as -302 and 301 to 305 in `co2_ph`
void co2_ps(const double& pres_in, const double& entr_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

/// State from density and internal energy.
/// \param dens_in  density, kg/m3, from 0.0035287466 up to that of 100000 kPa
/// \param inte_in  specific internal energy, kJ/kg, of a temperature of 240 K to 1500 K
/// \param ierr     0; -501 two phases and one of cv, cp, ssnd, visc, cond is present; the errors,
///                 in the order of the tests: 505 not a finite number, 503 density below its lowest
///                 value, then for an energy that no state of the range has at the density the
///                 limit that it lies beyond: 501 temperature below 240, 503 pressure below 1, 502
///                 temperature above 1500, 504 pressure above 100000
///
/// Energy rises with temperature at any density, and the states of one density end where the first
/// limit is reached: 240 K or 1 kPa below, 1500 K or 100000 kPa above. An energy beyond an end gets
/// the code of the limit there, however far it lies; a density that has more than 100000 kPa at 240
/// K gets 504.
///
/// The phase is the one that `co2_td` decides at the temperature found, and so are the outputs:
/// with the energy met to 5e-12 and temperature to 1e-12, as far as rounding lets them. Where two
/// elements meet energies jump by up to 1e-4 kJ/kg, and closer to an edge than 0.01 K a state may
/// belong to either of them. At 304.1282 K itself and 463 to 474 kg/m3 they jump by 4e-6 of their
/// value: what lies inside the jump gets the nearest state.
void co2_du(const double& dens_in, const double& inte_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

/// State from density and enthalpy; as `co2_du`, with its own codes.
/// \param dens_in  density, kg/m3, from 0.0035287466 up to that of 100000 kPa
/// \param enth_in  specific enthalpy, kJ/kg, of a temperature of 240 K to 1500 K
/// \param ierr     0; -601 and 601 to 605 as -501 and 501 to 505 in `co2_du`
void co2_dh(const double& dens_in, const double& enth_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

/// State from density and entropy; as `co2_du`, with its own codes.
/// \param dens_in  density, kg/m3, from 0.0035287466 up to that of 100000 kPa
/// \param entr_in  specific entropy, kJ/(kg K), of a temperature of 240 K to 1500 K
/// \param ierr     0; -701 and 701 to 705 as -501 and 501 to 505 in `co2_du`
void co2_ds(const double& dens_in, const double& entr_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

/// State from density and pressure; as `co2_du`, with its own codes.
/// \param dens_in  density, kg/m3, from 0.0035287466 up to that of 100000 kPa
/// \param pres_in  pressure, kPa, 1 to 100000
/// \param ierr     0; -801 as -501 in `co2_du`; the errors, in the order of the tests: 805 not a
///                 finite number, 803 density below its lowest value or pressure below 1, 804
///                 pressure above 100000, 801 temperature below 240, 802 temperature above 1500,
///                 804 a density that 100000 kPa does not reach at 240 K
///
/// In two phases the temperature is that of `calc_sat_pres`. Pressure rises with temperature
/// at any density: there is one state.
void co2_dp(const double& dens_in, const double& pres_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

/// State from enthalpy and entropy.
/// \param enth_in  specific enthalpy, kJ/kg
/// \param entr_in  specific entropy, kJ/(kg K)
/// \param ierr     0; -901 two phases and one of cv, cp, ssnd, visc, cond is present; the errors,
///                 in the order of the tests: 905 not a finite number, 901 temperature below 240,
///                 902 temperature above 1500, 903 pressure below 1, 904 pressure above 100000, all
///                 of them however far
///
/// Along an isentrope enthalpy, temperature and pressure rise together: the state is unique, of one
/// phase or two, which are told apart as by `co2_ts` at its temperature. Both inputs are met to
/// 1e-11 of them, or of 1, but for one in some 10^6 mixtures, of which a phase lies on the edge
/// between two elements and the enthalpy is met to 1e-9; the outputs are those of `co2_td`.
void co2_hs(const double& enth_in, const double& entr_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

/// State from pressure and internal energy.
/// \param pres_in  pressure, kPa, 1 to 100000
/// \param inte_in  specific internal energy, kJ/kg, of a temperature of 240 K to 1500 K
/// \param ierr     0; -1001 two phases and one of cv, cp, ssnd, visc, cond is present: all of them
///                 are zero then; -1002 as -302 in `co2_ph`; the errors 1003 pressure below 1, 1004
///                 pressure above 100000, 1001 temperature below 240, 1002 temperature above 1500,
///                 both however far, 1005 NaN or an infinite energy
///
/// An energy between those of saturated liquid and vapour is a mixture at the saturation
/// temperature; unlike in `co2_ph` there are none below 1282.4835 kPa, where it would be less than
/// 240 K. Otherwise as `co2_ph`.
void co2_pu(const double& pres_in, const double& inte_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

/// State from temperature and entropy.
/// \param temp_in  temperature, K, 240 to 1500
/// \param entr_in  specific entropy, kJ/(kg K), of a pressure of 1 kPa to 100000 kPa
/// \param ierr     0; -1101 two phases and one of cv, cp, ssnd, visc, cond is present; the errors,
///                 in the order of the tests: 1105 not a finite number, 1101 temperature below 240,
///                 1102 temperature above 1500, 1103 pressure below 1, 1104 pressure above 100000,
///                 both however far
///
/// Entropy falls with density. Below the critical temperature one between those of saturated liquid
/// and vapour is a mixture, with the outputs of `co2_td`. Otherwise the density is that at which an
/// element's entropy meets the given one to 1e-11 of it, or of 1, and the outputs are those of
/// `co2_td` there.
void co2_ts(const double& temp_in, const double& entr_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

/// Mixture from temperature and quality.
/// \param temp_in  temperature, K, 240 to 304.1282
/// \param qual_in  vapour mass fraction, 0 to 1: both ends are mixtures too, see `co2_sat_t` for
///                 the phases
/// \param ierr     0; -1401 one of cv, cp, ssnd, visc, cond is present: they are zero; the
///                 errors, in the order of the tests: 1401 temperature below 240, 1402 above
///                 304.1282, 1405 NaN, 1406 quality below 0 or above 1
///
/// The outputs are those of `co2_td` at the density of the mixture; `qual` is the given one.
void co2_tx(const double& temp_in, const double& qual_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

/// Mixture from pressure and quality.
/// \param pres_in  pressure, kPa, 1282.4835 to 7377.3
/// \param qual_in  as for `co2_tx`
/// \param ierr     as for `co2_tx`, from -1501 on: 1503 pressure below 1282.4835, 1504 above
///                 7377.3, 1505 NaN, 1506 quality below 0 or above 1
///
/// The temperature is that of `co2_sat_p`. `co2_ph`, `co2_ps` and `co2_pu` take it from
/// `calc_sat_temp`, up to 7e-5 K away.
void co2_px(const double& pres_in, const double& qual_in, std::int32_t& ierr,
            const OutputSet& out) noexcept;

// The same with derivatives; one that mixtures have not raises the warning, too.
// entries: begin, written by scripts/generate_entries
void co2_td(const double& temp_in, const double& dens_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
void co2_tp(const double& temp_in, const double& pres_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
void co2_ph(const double& pres_in, const double& enth_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
void co2_ps(const double& pres_in, const double& entr_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
void co2_du(const double& dens_in, const double& inte_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
void co2_dh(const double& dens_in, const double& enth_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
void co2_ds(const double& dens_in, const double& entr_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
void co2_dp(const double& dens_in, const double& pres_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
void co2_hs(const double& enth_in, const double& entr_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
void co2_pu(const double& pres_in, const double& inte_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
void co2_ts(const double& temp_in, const double& entr_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
void co2_tx(const double& temp_in, const double& qual_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
void co2_px(const double& pres_in, const double& qual_in, std::int32_t& ierr, const OutputSet& out,
            const DerivativeSet& derivatives) noexcept;
// entries: end

// The same with the outputs in their fixed order.
// entries: begin, written by scripts/generate_entries
void co2_td(const double& temp_in, const double& dens_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
void co2_tp(const double& temp_in, const double& pres_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
void co2_ph(const double& pres_in, const double& enth_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
void co2_ps(const double& pres_in, const double& entr_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
void co2_du(const double& dens_in, const double& inte_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
void co2_dh(const double& dens_in, const double& enth_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
void co2_ds(const double& dens_in, const double& entr_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
void co2_dp(const double& dens_in, const double& pres_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
void co2_hs(const double& enth_in, const double& entr_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
void co2_pu(const double& pres_in, const double& inte_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
void co2_ts(const double& temp_in, const double& entr_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
void co2_tx(const double& temp_in, const double& qual_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
void co2_px(const double& pres_in, const double& qual_in, std::int32_t& ierr,
            double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
            double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
            double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
            double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
            double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
            double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
            double* dsdt = nullptr) noexcept;
// entries: end

// ---- Saturation --------------------------------------------------------------------------------

/// Both phases at a saturation temperature.
/// \param temp_in  temperature, K, 240 to 304.1282
/// \param ierr     0; 1201 temperature below 240, 1202 above 304.1282, 1205 NaN. An error zeroes
///                 every present output.
/// \param out      any subset of the outputs of both phases, latent heat and slope of the line
///
/// The slope is that of the equation of Clapeyron with entropies and volumes of the phases. At the
/// critical temperature both phases are the critical state, see `SaturationSet`; just below it the
/// densities of the fits are 473.62 kg/m3 and 465.87 kg/m3.
///
/// From 240 K to 240.000003 K the pressure is below 1282.4835 kPa, by up to 1.2e-4 kPa, and
/// `co2_sat_p` and `co2_px` refuse it.
void co2_sat_t(const double& temp_in, std::int32_t& ierr, const SaturationSet& out) noexcept;

/// Both phases at a saturation pressure.
/// \param pres_in  pressure, kPa, 1282.4835 to 7377.3
/// \param ierr     0; 1303 pressure below 1282.4835, 1304 above 7377.3, 1305 NaN
/// \param out      as for `co2_sat_t`
///
/// The temperature is the one at which `calc_sat_pres` meets the pressure to 1e-12, or 1e-11 within
/// 0.3 kPa of its end, 7377.298376 kPa. A pressure from there to 7377.3 gives the critical
/// temperature, and `pres` is that of the end.
void co2_sat_p(const double& pres_in, std::int32_t& ierr, const SaturationSet& out) noexcept;

// ---- Constants, messages, outputs --------------------------------------------------------------

/// Reference constants and limits; each present argument receives its value.
/// \param tcrit    critical temperature, 304.1282 K
/// \param dcrit    critical density, 467.6 kg/m3
/// \param pcrit    critical pressure, 7377.3 kPa, rounded: at tcrit `co2_tp` gives it 481.08 kg/m3
/// \param tmin     lowest temperature accepted, 240 K
/// \param tmax     highest temperature accepted, 1500 K
/// \param pmin     lowest pressure accepted, 1 kPa
/// \param pmax     highest pressure accepted, 100000 kPa
/// \param tsatmin  lowest temperature of the saturation line, 240 K
/// \param psatmin  saturation pressure there, 1282.4835 kPa
void co2_info(double* tcrit = nullptr, double* dcrit = nullptr, double* pcrit = nullptr,
              double* tmin = nullptr, double* tmax = nullptr, double* pmin = nullptr,
              double* pmax = nullptr, double* tsatmin = nullptr,
              double* psatmin = nullptr) noexcept;

/// Text of a status code, padded with blanks; not terminated by a zero.
/// \param ierr  any value; a code without a text of its own (0, 306 and -402 among them) gives that
///              of an unknown error
[[nodiscard]] std::array<char, 255> co2_error_message(const std::int32_t& ierr) noexcept;

/// Sets every present output to +0.0.
void zero_outputs(const OutputSet& out) noexcept;
void zero_outputs(double* temp = nullptr, double* pres = nullptr, double* dens = nullptr,
                  double* svol = nullptr, double* qual = nullptr, double* inte = nullptr,
                  double* enth = nullptr, double* entr = nullptr, double* cv = nullptr,
                  double* cp = nullptr, double* ssnd = nullptr, double* visc = nullptr,
                  double* cond = nullptr, double* dpdd = nullptr, double* dpdt = nullptr,
                  double* dhdd = nullptr, double* dhdt = nullptr, double* dsdd = nullptr,
                  double* dsdt = nullptr) noexcept;

// ---- The parts of which the entries are made ---------------------------------------------------
//
// For hosts that need one quantity and know their phase. None of them tests its arguments or can
// fail: outside its range a fit extrapolates, and NaN in gives NaN out.

/// Density of the saturated liquid or vapour, kg/m3, at a temperature of 240 K to 304.1282 K.
[[nodiscard]] double calc_sat_liq_dens(const double& temp) noexcept;
[[nodiscard]] double calc_sat_vap_dens(const double& temp) noexcept;

/// Saturation temperature, K, at a pressure of 1282.4835 kPa to 7377.3 kPa.
[[nodiscard]] double calc_sat_temp(const double& pres) noexcept;

/// Saturation pressure, kPa, at a temperature of 240 K to 304.1282 K.
[[nodiscard]] double calc_sat_pres(const double& temp) noexcept;

/// Element, 1..649, that holds a state given by temperature and density, for each region: vapour
/// and liquid below the critical temperature, supercritical from it on. Always an element of the
/// region; states outside it, NaN included, are sent to one of its outer elements.
[[nodiscard]] std::int32_t vap_index_from_td(const double& temp, const double& dens) noexcept;
[[nodiscard]] std::int32_t liq_index_from_td(const double& temp, const double& dens) noexcept;
[[nodiscard]] std::int32_t sc_index_from_td(const double& temp, const double& dens) noexcept;

/// Start values of `co2_ph` and `co2_ps`: temperature, K, with a flag that is 1 where the state may
/// be two-phase, and density, kg/m3, from enthalpy, kJ/kg, or entropy, kJ/(kg K), and pressure,
/// kPa.
void temp_from_hp(const double& enth, const double& pres, double& temp,
                  std::int32_t& flag) noexcept;
void dens_from_hp(const double& enth, const double& pres, double& dens) noexcept;
void temp_from_sp(const double& entr, const double& pres, double& temp,
                  std::int32_t& flag) noexcept;
void dens_from_sp(const double& entr, const double& pres, double& dens) noexcept;

/// Element that holds a state given by temperature and pressure, as above. The pressure has to lie
/// on the region's side of saturation, which is not looked at.
[[nodiscard]] std::int32_t vap_index_from_tp(const double& temp, const double& pres) noexcept;
[[nodiscard]] std::int32_t liq_index_from_tp(const double& temp, const double& pres) noexcept;
[[nodiscard]] std::int32_t sc_index_from_tp(const double& temp, const double& pres) noexcept;

/// Helmholtz energy and its derivatives from element `e`.
/// \param e     1..649, not tested: one of the indices above
/// \param temp  temperature, K
/// \param dens  density, kg/m3, above 0
[[nodiscard]] HelmholtzDerivatives element_derivatives(const std::int32_t& e, const double& temp,
                                                       const double& dens) noexcept;

/// Viscosity, uPa s, and thermal conductivity, W/(m K), of a single-phase state.
void calculate_visc(const double& dens, const double& temp, double& visc) noexcept;
void calculate_cond(const double& dens, const double& temp, double& cond) noexcept;

/// Heat capacities, kJ/(kg K), and speed of sound, m/s, near the critical point.
void calculate_cp(const double& dens, const double& temp, double& cp) noexcept;
void calculate_cv(const double& dens, const double& temp, double& cv) noexcept;
void calculate_ssnd(const double& dens, const double& temp, double& ssnd) noexcept;

}  // namespace co2_properties

// ---- Entries with fixed arguments --------------------------------------------------------------

extern "C" {
// NOLINTBEGIN(readability-identifier-naming): Fortran appends the underscore to link names

/// `co2_tp` for callers that cannot leave out arguments. On an error it prints the message to
/// standard output and ends the process.
/// \param temp  temperature, K
/// \param pres  pressure, kPa
/// \param enth  enthalpy, kJ/kg; `dens` density, kg/m3; `cv`, `cp` heat capacities, kJ/(kg K);
///              `cond` thermal conductivity, W/(m K); `visc` viscosity, Pa s
void fittp_(const double* temp, const double* pres, double* enth, double* dens, double* cv,
            double* cp, double* cond, double* visc);

/// `co2_ph` for callers that cannot leave out arguments; an error ends the process as in `fittp_`.
/// Warnings are dropped: cv and cp of a mixture are zero.
/// \param pres  pressure, kPa
/// \param enth  specific enthalpy, kJ/kg
/// \param temp  temperature, K; `dens` density, kg/m3; `cv`, `cp` heat capacities, kJ/(kg K);
///              `cond` thermal conductivity, W/(m K); `visc` viscosity, Pa s
/// \param qual  vapour mass fraction within [0, 1]: 0 in liquid, 1 in vapour and from the critical
///              temperature on
void fitph_(const double* pres, const double* enth, double* temp, double* dens, double* cv,
            double* cp, double* cond, double* visc, double* qual);
// NOLINTEND(readability-identifier-naming)
}

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif
