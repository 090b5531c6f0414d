#ifndef CO2_PROPERTIES_H
#define CO2_PROPERTIES_H
/*
 * Thermodynamic and transport properties of carbon dioxide: the interface for C (from C99 on) and
 * for every language that can call C. The same library as co2_properties.hpp, to the bit.
 *
 *   double temp = 310.0, dens = 600.0, enth, cp;
 *   int32_t ierr;
 *   co2_td_select(&temp, &dens, &ierr, &(co2_output_set){.enth = &enth, .cp = &cp});
 *
 * Every argument is a pointer. Inputs and `ierr` must not be null; an output that is null is
 * absent: neither computed nor written. An output may be the variable of an input. No procedure
 * keeps state or allocates; any number of them may run at once.
 *
 * Units: temperature K, pressure kPa, density kg/m3, energies kJ/kg, entropy and heat capacities
 * kJ/(kg K), speed of sound m/s, viscosity uPa s, thermal conductivity W/(m K).
 * Range: 240 K to 1500 K and 1 kPa to 100000 kPa, gas, liquid, supercritical and two-phase.
 *
 * Equilibrium properties are local fits of the equation of state of R. Span and W. Wagner, J. Phys.
 * Chem. Ref. Data 25 (1996) 1509; accuracy: docs/accuracy.md.
 */

/* NOLINTBEGIN(modernize-*, readability-identifier-naming): C has its own ways */
#include <stddef.h>
#include <stdint.h>

#if defined(__GNUC__)
#pragma GCC visibility push(default) /* what the shared library exports */
#endif
#ifdef __cplusplus
extern "C" {
#endif

/* ---- State entries -------------------------------------------------------------------------- */

/**
 * Where the results of a state go; members that are not named in an initializer are null.
 */
typedef struct co2_output_set {
  /* outputs: begin, written by scripts/generate_outputs */
  double* temp; /**< temperature, K */
  double* pres; /**< pressure, kPa */
  double* dens; /**< density, kg/m3 */
  double* svol; /**< specific volume, m3/kg */
  /** Vapour mass fraction (998, 999: supercritical). Below the critical temperature the lever
      value, not clipped: below 0 in liquid, above 1 in vapour. At or above it 998 below the
      critical pressure, else 999. */
  double* qual;
  double* inte; /**< specific internal energy, kJ/kg */
  /** Specific enthalpy, kJ/kg. 200 for saturated liquid at 273.15 K. */
  double* enth;
  /** Specific entropy, kJ/(kg K). 1 for saturated liquid at 273.15 K. */
  double* entr;
  double* cv;   /**< isochoric heat capacity, kJ/(kg K) */
  double* cp;   /**< isobaric heat capacity, kJ/(kg K) */
  double* ssnd; /**< speed of sound, m/s */
  double* visc; /**< viscosity, uPa s */
  double* cond; /**< thermal conductivity, W/(m K) */
  double* dpdd; /**< dp/drho at constant temperature, kPa m3/kg */
  double* dpdt; /**< dp/dT at constant density, kPa/K */
  double* dhdd; /**< dh/drho at constant temperature, kJ m3/kg2 */
  double* dhdt; /**< dh/dT at constant density, kJ/(kg K) */
  double* dsdd; /**< ds/drho at constant temperature, kJ m3/(kg2 K) */
  double* dsdt; /**< ds/dT at constant density, kJ/(kg K2) */
  /* outputs: end */
} co2_output_set;

/*
 * Each entry takes two inputs, writes a code to `ierr` in any case, and takes the outputs one by
 * one in the order of co2_output_set.
 *
 * A negative code is a warning: the outputs hold what could be computed. A positive one is an
 * error: every present output is +0.0. The limits of the range are accepted.
 *
 * Where two phases coexist, `pres` is that of the vapour, `inte`, `enth` and `entr` are weighted by
 * `qual`, and cv, cp, ssnd, visc, cond and the six derivatives are zero.
 */
/* entries: begin, written by scripts/generate_entries */

/**
 * State from temperature and density. Codes: 0; -101 two phases and one of cv, cp, ssnd, visc,
 * cond is present; the errors, in the order of the tests: 103 density below 0.0035287466, 102
 * temperature above 1500, 101 temperature below 240, 103 pressure below 1, 104 pressure above
 * 100000. NaN comes out in the outputs that depend on it.
 */
void co2_td(const double* temp_in, const double* dens_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);

/**
 * State from temperature and pressure; never two-phase. Codes: 0; 203 pressure below 1, 204
 * pressure above 100000, 201 temperature below 240, 205 pressure equal to that of saturation,
 * where the state is undefined, 202 temperature above 1500, 207 the density was not found. NaN
 * as pressure gives 205 below the critical temperature and 207 from it on; NaN as temperature
 * gives 207.
 */
void co2_tp(const double* temp_in, const double* pres_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);

/**
 * State from pressure and enthalpy. Codes: 0; -301 two phases and one of cv, cp, ssnd is
 * present: visc and cond are those of the phases weighted by quality; -302 within 0.08 K of the
 * critical temperature, pressure or enthalpy are met to 1e-2 instead of 1e-4; the errors 303
 * pressure below 1, 304 pressure above 100000, 301 temperature below 240, 302 temperature above
 * 1500, both however far, 305 not a finite number.
 */
void co2_ph(const double* pres_in, const double* enth_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);

/**
 * State from pressure and entropy. Codes: 0; as those of co2_ph, from 401 on; in two phases visc
 * and cond have no value either.
 */
void co2_ps(const double* pres_in, const double* entr_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);

/**
 * State from density and internal energy. Codes: 0; -501 two phases and one of cv, cp, ssnd,
 * visc, cond is present; the errors 503 density below 0.0035287466 or pressure below 1, 501
 * temperature below 240, 502 temperature above 1500, 504 pressure above 100000, 505 an input is
 * not a finite number or no state was found.
 */
void co2_du(const double* dens_in, const double* inte_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);

/**
 * State from density and enthalpy. Codes: 0; -601 two phases and one of cv, cp, ssnd, visc, cond
 * is present; the errors 603 density below 0.0035287466 or pressure below 1, 601 temperature
 * below 240, 602 temperature above 1500, 604 pressure above 100000, 605 an input is not a finite
 * number or no state was found.
 */
void co2_dh(const double* dens_in, const double* enth_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);

/**
 * State from density and entropy. Codes: 0; -701 two phases and one of cv, cp, ssnd, visc, cond
 * is present; the errors 703 density below 0.0035287466 or pressure below 1, 701 temperature
 * below 240, 702 temperature above 1500, 704 pressure above 100000, 705 an input is not a finite
 * number or no state was found.
 */
void co2_ds(const double* dens_in, const double* entr_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);

/**
 * State from density and pressure. Codes: 0; -801 two phases and one of cv, cp, ssnd, visc, cond
 * is present; the errors 803 density below 0.0035287466 or pressure below 1, 801 temperature
 * below 240, 802 temperature above 1500, 804 pressure above 100000, 805 an input is not a finite
 * number or no state was found.
 */
void co2_dp(const double* dens_in, const double* pres_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);

/**
 * State from enthalpy and entropy. Codes: 0; -901 two phases and one of cv, cp, ssnd, visc, cond
 * is present; the errors 901 temperature below 240, 902 temperature above 1500, 903 pressure
 * below 1, 904 pressure above 100000, 905 an input is not a finite number or no state was found.
 */
void co2_hs(const double* enth_in, const double* entr_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);

/**
 * State from pressure and internal energy. Codes: 0; as those of co2_ph, from 1001 on; in two
 * phases visc and cond have no value either.
 */
void co2_pu(const double* pres_in, const double* inte_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);

/**
 * State from temperature and entropy. Codes: 0; -1101 two phases and one of cv, cp, ssnd, visc,
 * cond is present; the errors 1101 temperature below 240, 1102 temperature above 1500, 1103 the
 * state has a pressure below 1, 1104 above 100000, 1105 an input is not a finite number or no
 * state was found.
 */
void co2_ts(const double* temp_in, const double* entr_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);

/**
 * State from temperature and quality. Codes: 0; -1401 one of cv, cp, ssnd, visc, cond is
 * present; the errors 1401 temperature below 240, 1402 above 304.1282, 1405 an input is not a
 * number, 1406 quality below 0 or above 1.
 */
void co2_tx(const double* temp_in, const double* qual_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);

/**
 * State from pressure and quality. Codes: 0; -1501 one of cv, cp, ssnd, visc, cond is present;
 * the errors 1503 pressure below 1282.4835, 1504 above 7377.3, 1505 an input is not a number,
 * 1506 quality below 0 or above 1.
 */
void co2_px(const double* pres_in, const double* qual_in, int32_t* ierr, double* temp, double* pres,
            double* dens, double* svol, double* qual, double* inte, double* enth, double* entr,
            double* cv, double* cp, double* ssnd, double* visc, double* cond, double* dpdd,
            double* dpdt, double* dhdd, double* dhdt, double* dsdd, double* dsdt);
/* entries: end */

/** The same with the outputs selected in a set; `out` must not be null. */
/* entries: begin, written by scripts/generate_entries */
void co2_td_select(const double* temp_in, const double* dens_in, int32_t* ierr,
                   const co2_output_set* out);
void co2_tp_select(const double* temp_in, const double* pres_in, int32_t* ierr,
                   const co2_output_set* out);
void co2_ph_select(const double* pres_in, const double* enth_in, int32_t* ierr,
                   const co2_output_set* out);
void co2_ps_select(const double* pres_in, const double* entr_in, int32_t* ierr,
                   const co2_output_set* out);
void co2_du_select(const double* dens_in, const double* inte_in, int32_t* ierr,
                   const co2_output_set* out);
void co2_dh_select(const double* dens_in, const double* enth_in, int32_t* ierr,
                   const co2_output_set* out);
void co2_ds_select(const double* dens_in, const double* entr_in, int32_t* ierr,
                   const co2_output_set* out);
void co2_dp_select(const double* dens_in, const double* pres_in, int32_t* ierr,
                   const co2_output_set* out);
void co2_hs_select(const double* enth_in, const double* entr_in, int32_t* ierr,
                   const co2_output_set* out);
void co2_pu_select(const double* pres_in, const double* inte_in, int32_t* ierr,
                   const co2_output_set* out);
void co2_ts_select(const double* temp_in, const double* entr_in, int32_t* ierr,
                   const co2_output_set* out);
void co2_tx_select(const double* temp_in, const double* qual_in, int32_t* ierr,
                   const co2_output_set* out);
void co2_px_select(const double* pres_in, const double* qual_in, int32_t* ierr,
                   const co2_output_set* out);
/* entries: end */

/**
 * Where derivatives go; members that are not named in an initializer are null.
 */
typedef struct co2_derivative_set {
  /* derivatives: begin, written by scripts/generate_outputs */
  double* dpdd_u; /**< dp/drho at constant internal energy, kPa m3/kg */
  double* dpdu_d; /**< dp/du at constant density, kPa kg/kJ */
  double* dtdd_u; /**< dT/drho at constant internal energy, K m3/kg */
  double* dtdu_d; /**< dT/du at constant density, K kg/kJ */
  double* dddp_h; /**< drho/dp at constant enthalpy, kg/(m3 kPa) */
  double* dddh_p; /**< drho/dh at constant pressure, kg2/(m3 kJ) */
  double* dtdp_h; /**< dT/dp at constant enthalpy, the Joule-Thomson coefficient, K/kPa */
  double* dtdh_p; /**< dT/dh at constant pressure, K kg/kJ */
  double* dddp_s; /**< drho/dp at constant entropy, kg/(m3 kPa) */
  double* dtdp_s; /**< dT/dp at constant entropy, K/kPa */
  double* dhdd_p; /**< dh/drho at constant pressure, kJ m3/kg2 */
  double* dhdp_d; /**< dh/dp at constant density, kJ/(kg kPa) */
  double* dsdd_p; /**< ds/drho at constant pressure, kJ m3/(kg2 K) */
  double* dsdp_d; /**< ds/dp at constant density, kJ/(kg K kPa) */
  double* dpdd_t; /**< dp/drho at constant temperature, kPa m3/kg */
  double* dpdt_d; /**< dp/dT at constant density, kPa/K */
  /** Isochoric heat capacity, kJ/(kg K). In one phase `cv`, in two that of the mixture in
      equilibrium. */
  double* cv_eq;
  /** Speed of sound, m/s. In one phase `ssnd`, in two that of the mixture in equilibrium. */
  double* ssnd_eq;
  /** Isentropic compressibility, 1/kPa. (drho/dp) / rho at constant entropy. */
  double* compr_s;
  /** Isothermal compressibility, 1/kPa. (drho/dp) / rho at constant temperature. Infinite in
      two phases, and given as zero. */
  double* compr_t;
  /** Isobaric expansion, 1/K. -(drho/dT) / rho at constant pressure. Infinite in two phases,
      and given as zero. */
  double* expan_p;
  /** Fundamental derivative of gas dynamics. 1 + rho/w (dw/drho) at constant entropy, w the
      speed of sound, in two phases that of equilibrium. */
  double* fundam;
  double* dssnddd_t; /**< dssnd/drho at constant temperature, m4/(kg s) */
  double* dssnddt_d; /**< dssnd/dT at constant density, m/(s K) */
  double* dviscdd_t; /**< dvisc/drho at constant temperature, uPa s m3/kg */
  double* dviscdt_d; /**< dvisc/dT at constant density, uPa s/K */
  double* dconddd_t; /**< dcond/drho at constant temperature, W m2/(kg K) */
  double* dconddt_d; /**< dcond/dT at constant density, W/(m K2) */
  double* dqualdd_t; /**< dqual/drho at constant temperature, m3/kg */
  double* dqualdt_d; /**< dqual/dT at constant density, 1/K */
  /* derivatives: end */
} co2_derivative_set;

/** The same with derivatives. */
/* entries: begin, written by scripts/generate_entries */
void co2_td_derivatives(const double* temp_in, const double* dens_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
void co2_tp_derivatives(const double* temp_in, const double* pres_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
void co2_ph_derivatives(const double* pres_in, const double* enth_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
void co2_ps_derivatives(const double* pres_in, const double* entr_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
void co2_du_derivatives(const double* dens_in, const double* inte_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
void co2_dh_derivatives(const double* dens_in, const double* enth_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
void co2_ds_derivatives(const double* dens_in, const double* entr_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
void co2_dp_derivatives(const double* dens_in, const double* pres_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
void co2_hs_derivatives(const double* enth_in, const double* entr_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
void co2_pu_derivatives(const double* pres_in, const double* inte_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
void co2_ts_derivatives(const double* temp_in, const double* entr_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
void co2_tx_derivatives(const double* temp_in, const double* qual_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
void co2_px_derivatives(const double* pres_in, const double* qual_in, int32_t* ierr,
                        const co2_output_set* out, const co2_derivative_set* derivatives);
/* entries: end */

/* ---- Saturation ----------------------------------------------------------------------------- */

/**
 * Where the results of a state of saturation go. In both phases `pres` is the pressure of
 * saturation, that of the vapour, and `qual` is 0 or 1; the other outputs and the derivatives are
 * those of co2_td at the temperature and the density of the phase.
 */
typedef struct co2_saturation_set {
  co2_output_set liq;  /**< saturated liquid */
  co2_output_set vap;  /**< saturated vapour */
  double* latent_heat; /**< enthalpy of vaporization, kJ/kg, or null */
  double* dpdt_sat;    /**< slope dp/dT of the saturation line, kPa/K, or null */

  const co2_derivative_set* liq_derivatives; /**< those of the liquid, or null */
  const co2_derivative_set* vap_derivatives; /**< those of the vapour, or null */
} co2_saturation_set;

/**
 * Both phases at a saturation temperature, K. Codes: 0; the errors 1201 temperature below 240, 1202
 * above 304.1282, 1205 NaN. An error zeroes every present output.
 */
void co2_sat_t(const double* temp_in, int32_t* ierr, const co2_saturation_set* out);

/**
 * Both phases at a saturation pressure, kPa. Codes: 0; the errors 1303 pressure below 1282.4835,
 * 1304 above 7377.3, 1305 NaN.
 */
void co2_sat_p(const double* pres_in, int32_t* ierr, const co2_saturation_set* out);

/* ---- State entries for arrays --------------------------------------------------------------- */

/**
 * A caller's array: element i is data[i * stride]. Strides count elements and may be negative; 0 on
 * an input means one value for all states.
 */
typedef struct co2_inputs {
  const double* data; /**< element 0 */
  ptrdiff_t stride;   /**< elements from one to the next */
} co2_inputs;

/** An array of results; absent if `data` is null. */
typedef struct co2_outputs {
  double* data;     /**< element 0, or null */
  ptrdiff_t stride; /**< elements from one to the next */
} co2_outputs;

/** An array of status codes. */
typedef struct co2_codes {
  int32_t* data;    /**< element 0 */
  ptrdiff_t stride; /**< elements from one to the next */
} co2_codes;

/** co2_output_set with an array for each result. */
typedef struct co2_batch_output_set {
  /* outputs: begin, written by scripts/generate_outputs */
  co2_outputs temp; /**< temperature, K */
  co2_outputs pres; /**< pressure, kPa */
  co2_outputs dens; /**< density, kg/m3 */
  co2_outputs svol; /**< specific volume, m3/kg */
  co2_outputs qual; /**< vapour mass fraction (998, 999: supercritical) */
  co2_outputs inte; /**< specific internal energy, kJ/kg */
  co2_outputs enth; /**< specific enthalpy, kJ/kg */
  co2_outputs entr; /**< specific entropy, kJ/(kg K) */
  co2_outputs cv;   /**< isochoric heat capacity, kJ/(kg K) */
  co2_outputs cp;   /**< isobaric heat capacity, kJ/(kg K) */
  co2_outputs ssnd; /**< speed of sound, m/s */
  co2_outputs visc; /**< viscosity, uPa s */
  co2_outputs cond; /**< thermal conductivity, W/(m K) */
  co2_outputs dpdd; /**< dp/drho at constant temperature, kPa m3/kg */
  co2_outputs dpdt; /**< dp/dT at constant density, kPa/K */
  co2_outputs dhdd; /**< dh/drho at constant temperature, kJ m3/kg2 */
  co2_outputs dhdt; /**< dh/dT at constant density, kJ/(kg K) */
  co2_outputs dsdd; /**< ds/drho at constant temperature, kJ m3/(kg2 K) */
  co2_outputs dsdt; /**< ds/dT at constant density, kJ/(kg K2) */
  /* outputs: end */
} co2_batch_output_set;

/**
 * Each of these does for `count` states what the entry without _batch does for one, to the bit. A
 * state in error gets its code and +0.0 and leaves the others alone.
 *
 * An output may be the very array of an input, with the same data and stride. Otherwise no array
 * that is written may overlap another one. No argument may be null.
 */
/* entries: begin, written by scripts/generate_entries */
void co2_td_batch(const size_t* count, const co2_inputs* temp_in, const co2_inputs* dens_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
void co2_tp_batch(const size_t* count, const co2_inputs* temp_in, const co2_inputs* pres_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
void co2_ph_batch(const size_t* count, const co2_inputs* pres_in, const co2_inputs* enth_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
void co2_ps_batch(const size_t* count, const co2_inputs* pres_in, const co2_inputs* entr_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
void co2_du_batch(const size_t* count, const co2_inputs* dens_in, const co2_inputs* inte_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
void co2_dh_batch(const size_t* count, const co2_inputs* dens_in, const co2_inputs* enth_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
void co2_ds_batch(const size_t* count, const co2_inputs* dens_in, const co2_inputs* entr_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
void co2_dp_batch(const size_t* count, const co2_inputs* dens_in, const co2_inputs* pres_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
void co2_hs_batch(const size_t* count, const co2_inputs* enth_in, const co2_inputs* entr_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
void co2_pu_batch(const size_t* count, const co2_inputs* pres_in, const co2_inputs* inte_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
void co2_ts_batch(const size_t* count, const co2_inputs* temp_in, const co2_inputs* entr_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
void co2_tx_batch(const size_t* count, const co2_inputs* temp_in, const co2_inputs* qual_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
void co2_px_batch(const size_t* count, const co2_inputs* pres_in, const co2_inputs* qual_in,
                  const co2_codes* ierr, const co2_batch_output_set* out);
/* entries: end */

/** co2_derivative_set with an array for each result. */
typedef struct co2_batch_derivative_set {
  /* derivatives: begin, written by scripts/generate_outputs */
  co2_outputs dpdd_u;    /**< dp/drho at constant internal energy, kPa m3/kg */
  co2_outputs dpdu_d;    /**< dp/du at constant density, kPa kg/kJ */
  co2_outputs dtdd_u;    /**< dT/drho at constant internal energy, K m3/kg */
  co2_outputs dtdu_d;    /**< dT/du at constant density, K kg/kJ */
  co2_outputs dddp_h;    /**< drho/dp at constant enthalpy, kg/(m3 kPa) */
  co2_outputs dddh_p;    /**< drho/dh at constant pressure, kg2/(m3 kJ) */
  co2_outputs dtdp_h;    /**< dT/dp at constant enthalpy, the Joule-Thomson coefficient, K/kPa */
  co2_outputs dtdh_p;    /**< dT/dh at constant pressure, K kg/kJ */
  co2_outputs dddp_s;    /**< drho/dp at constant entropy, kg/(m3 kPa) */
  co2_outputs dtdp_s;    /**< dT/dp at constant entropy, K/kPa */
  co2_outputs dhdd_p;    /**< dh/drho at constant pressure, kJ m3/kg2 */
  co2_outputs dhdp_d;    /**< dh/dp at constant density, kJ/(kg kPa) */
  co2_outputs dsdd_p;    /**< ds/drho at constant pressure, kJ m3/(kg2 K) */
  co2_outputs dsdp_d;    /**< ds/dp at constant density, kJ/(kg K kPa) */
  co2_outputs dpdd_t;    /**< dp/drho at constant temperature, kPa m3/kg */
  co2_outputs dpdt_d;    /**< dp/dT at constant density, kPa/K */
  co2_outputs cv_eq;     /**< isochoric heat capacity, kJ/(kg K) */
  co2_outputs ssnd_eq;   /**< speed of sound, m/s */
  co2_outputs compr_s;   /**< isentropic compressibility, 1/kPa */
  co2_outputs compr_t;   /**< isothermal compressibility, 1/kPa */
  co2_outputs expan_p;   /**< isobaric expansion, 1/K */
  co2_outputs fundam;    /**< fundamental derivative of gas dynamics */
  co2_outputs dssnddd_t; /**< dssnd/drho at constant temperature, m4/(kg s) */
  co2_outputs dssnddt_d; /**< dssnd/dT at constant density, m/(s K) */
  co2_outputs dviscdd_t; /**< dvisc/drho at constant temperature, uPa s m3/kg */
  co2_outputs dviscdt_d; /**< dvisc/dT at constant density, uPa s/K */
  co2_outputs dconddd_t; /**< dcond/drho at constant temperature, W m2/(kg K) */
  co2_outputs dconddt_d; /**< dcond/dT at constant density, W/(m K2) */
  co2_outputs dqualdd_t; /**< dqual/drho at constant temperature, m3/kg */
  co2_outputs dqualdt_d; /**< dqual/dT at constant density, 1/K */
  /* derivatives: end */
} co2_batch_derivative_set;

/** The same with derivatives. */
/* entries: begin, written by scripts/generate_entries */
void co2_td_batch_derivatives(const size_t* count, const co2_inputs* temp_in,
                              const co2_inputs* dens_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
void co2_tp_batch_derivatives(const size_t* count, const co2_inputs* temp_in,
                              const co2_inputs* pres_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
void co2_ph_batch_derivatives(const size_t* count, const co2_inputs* pres_in,
                              const co2_inputs* enth_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
void co2_ps_batch_derivatives(const size_t* count, const co2_inputs* pres_in,
                              const co2_inputs* entr_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
void co2_du_batch_derivatives(const size_t* count, const co2_inputs* dens_in,
                              const co2_inputs* inte_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
void co2_dh_batch_derivatives(const size_t* count, const co2_inputs* dens_in,
                              const co2_inputs* enth_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
void co2_ds_batch_derivatives(const size_t* count, const co2_inputs* dens_in,
                              const co2_inputs* entr_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
void co2_dp_batch_derivatives(const size_t* count, const co2_inputs* dens_in,
                              const co2_inputs* pres_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
void co2_hs_batch_derivatives(const size_t* count, const co2_inputs* enth_in,
                              const co2_inputs* entr_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
void co2_pu_batch_derivatives(const size_t* count, const co2_inputs* pres_in,
                              const co2_inputs* inte_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
void co2_ts_batch_derivatives(const size_t* count, const co2_inputs* temp_in,
                              const co2_inputs* entr_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
void co2_tx_batch_derivatives(const size_t* count, const co2_inputs* temp_in,
                              const co2_inputs* qual_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
void co2_px_batch_derivatives(const size_t* count, const co2_inputs* pres_in,
                              const co2_inputs* qual_in, const co2_codes* ierr,
                              const co2_batch_output_set* out,
                              const co2_batch_derivative_set* derivatives);
/* entries: end */

/** co2_saturation_set with an array for each result. */
typedef struct co2_batch_saturation_set {
  co2_batch_output_set liq; /**< saturated liquid */
  co2_batch_output_set vap; /**< saturated vapour */
  co2_outputs latent_heat;  /**< enthalpy of vaporization, kJ/kg */
  co2_outputs dpdt_sat;     /**< slope dp/dT of the saturation line, kPa/K */

  const co2_batch_derivative_set* liq_derivatives; /**< those of the liquid, or null */
  const co2_batch_derivative_set* vap_derivatives; /**< those of the vapour, or null */
} co2_batch_saturation_set;

/** States of saturation. */
void co2_sat_t_batch(const size_t* count, const co2_inputs* temp_in, const co2_codes* ierr,
                     const co2_batch_saturation_set* out);
void co2_sat_p_batch(const size_t* count, const co2_inputs* pres_in, const co2_codes* ierr,
                     const co2_batch_saturation_set* out);

/* ---- Constants, messages, outputs ----------------------------------------------------------- */

/**
 * Reference constants and limits; each argument may be null.
 * \param tcrit    critical temperature, 304.1282 K
 * \param dcrit    critical density, 467.6 kg/m3
 * \param pcrit    critical pressure, 7377.3 kPa, rounded: at tcrit co2_tp gives it 481.08 kg/m3
 * \param tmin     lowest temperature accepted, 240 K
 * \param tmax     highest temperature accepted, 1500 K
 * \param pmin     lowest pressure accepted, 1 kPa
 * \param pmax     highest pressure accepted, 100000 kPa
 * \param tsatmin  lowest temperature of the saturation line, 240 K
 * \param psatmin  saturation pressure there, 1282.4835 kPa
 */
void co2_info(double* tcrit, double* dcrit, double* pcrit, double* tmin, double* tmax, double* pmin,
              double* pmax, double* tsatmin, double* psatmin);

/**
 * Text of a status code.
 * \param ierr  any value; a code without a text of its own (0, 306 and -402 among them) gives that
 *              of an unknown error
 * \param text  receives 255 characters, padded with blanks; no terminating zero is written, so
 *              print it with "%.255s" or give it 256 characters and terminate it
 */
void co2_error_message(const int32_t* ierr, char* text);

/** Sets every present output to +0.0. */
void zero_outputs(double* temp, double* pres, double* dens, double* svol, double* qual,
                  double* inte, double* enth, double* entr, double* cv, double* cp, double* ssnd,
                  double* visc, double* cond, double* dpdd, double* dpdt, double* dhdd,
                  double* dhdt, double* dsdd, double* dsdt);

/* ---- The parts of which the entries are made --------------------------------------------------
 *
 * For hosts that need one quantity and know their phase. None of them tests its arguments or can
 * fail: outside its range a fit extrapolates, and NaN in gives NaN out. No argument may be null.
 */

/** Density of the saturated liquid or vapour, kg/m3, at a temperature of 240 K to 304.1282 K. */
double calc_sat_liq_dens(const double* temp);
double calc_sat_vap_dens(const double* temp);

/** Saturation temperature, K, at a pressure of 1282.4835 kPa to 7377.3 kPa. */
double calc_sat_temp(const double* pres);

/** Saturation pressure, kPa, at a temperature of 240 K to 304.1282 K. */
double calc_sat_pres(const double* temp);

/**
 * Element, 1..649, that holds a state given by temperature, K, and density, kg/m3, for each region:
 * vapour and liquid below the critical temperature, supercritical from it on. Always an element of
 * the region; states outside it, NaN included, are sent to one of its outer elements.
 */
int32_t vap_index_from_td(const double* temp, const double* dens);
int32_t liq_index_from_td(const double* temp, const double* dens);
int32_t sc_index_from_td(const double* temp, const double* dens);

/**
 * The same from temperature, K, and pressure, kPa, which has to lie on the region's side of
 * saturation.
 */
int32_t vap_index_from_tp(const double* temp, const double* pres);
int32_t liq_index_from_tp(const double* temp, const double* pres);
int32_t sc_index_from_tp(const double* temp, const double* pres);

/**
 * Start values of co2_ph and co2_ps: temperature, K, with a flag that is 1 where the state may be
 * two-phase, and density, kg/m3, from enthalpy, kJ/kg, or entropy, kJ/(kg K), and pressure, kPa.
 */
void temp_from_hp(const double* enth, const double* pres, double* temp, int32_t* flag);
void dens_from_hp(const double* enth, const double* pres, double* dens);
void temp_from_sp(const double* entr, const double* pres, double* temp, int32_t* flag);
void dens_from_sp(const double* entr, const double* pres, double* dens);

/** Specific Helmholtz energy a, kJ/kg, and its derivatives in temperature (K) and density. */
typedef struct co2_helmholtz_derivatives {
  double a;    /**< a, kJ/kg */
  double a_t;  /**< (da/dT) at constant density */
  double a_d;  /**< (da/drho) at constant temperature */
  double a_tt; /**< second derivative in T */
  double a_dd; /**< second derivative in rho */
  double a_td; /**< mixed second derivative */
} co2_helmholtz_derivatives;

/**
 * Helmholtz energy and its derivatives from element `e`.
 * \param e     1..649, not tested: one of the indices above
 * \param temp  temperature, K
 * \param dens  density, kg/m3, above 0
 */
co2_helmholtz_derivatives element_derivatives(const int32_t* e, const double* temp,
                                              const double* dens);

/** Viscosity, uPa s, and thermal conductivity, W/(m K), of a single-phase state. */
void calculate_visc(const double* dens, const double* temp, double* visc);
void calculate_cond(const double* dens, const double* temp, double* cond);

/** Heat capacities, kJ/(kg K), and speed of sound, m/s, near the critical point. */
void calculate_cp(const double* dens, const double* temp, double* cp);
void calculate_cv(const double* dens, const double* temp, double* cv);
void calculate_ssnd(const double* dens, const double* temp, double* ssnd);

/* ---- Entries with fixed arguments -----------------------------------------------------------
 *
 * For callers that cannot leave out arguments, with the link names that Fortran gives to FITTP and
 * FITPH. On an error they print the message to standard output and end the process.
 */

/**
 * co2_tp with fixed arguments.
 * \param temp  temperature, K
 * \param pres  pressure, kPa
 * \param enth  enthalpy, kJ/kg; `dens` density, kg/m3; `cv`, `cp` heat capacities, kJ/(kg K);
 *              `cond` thermal conductivity, W/(m K); `visc` viscosity, Pa s
 */
void fittp_(const double* temp, const double* pres, double* enth, double* dens, double* cv,
            double* cp, double* cond, double* visc);

/**
 * co2_ph with fixed arguments. Warnings are dropped: cv and cp of a mixture are zero.
 * \param pres  pressure, kPa
 * \param enth  specific enthalpy, kJ/kg
 * \param temp  temperature, K; `dens` to `visc` as above
 * \param qual  vapour mass fraction within [0, 1]: 0 in liquid, 1 in vapour and from the critical
 *              temperature on
 */
void fitph_(const double* pres, const double* enth, double* temp, double* dens, double* cv,
            double* cp, double* cond, double* visc, double* qual);

#ifdef __cplusplus
}
#endif
#if defined(__GNUC__)
#pragma GCC visibility pop
#endif
/* NOLINTEND(modernize-*, readability-identifier-naming) */

#endif
