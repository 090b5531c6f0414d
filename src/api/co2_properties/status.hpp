#pragma once
// What the entries report through `ierr`.

#include "co2_properties/require_cpp20.hpp"

#include <cstdint>

/// Codes of `ierr`: 0 success; negative a warning, the outputs hold a result; positive an error,
/// every output is zero. The hundreds name the entry: 1 `co2_td`, 2 `co2_tp`, 3 `co2_ph`, 4
/// `co2_ps`, 5 `co2_du`, 6 `co2_dh`, 7 `co2_ds`, 8 `co2_dp`, 9 `co2_hs`, 10 `co2_pu`, 11 `co2_ts`,
/// 12 `co2_sat_t`, 13 `co2_sat_p`, 14 `co2_tx`, 15 `co2_px`. Texts: `co2_error_message`.
namespace co2_properties::status {

inline constexpr std::int32_t success = 0;              ///< the outputs hold the state
inline constexpr std::int32_t td_temp_below_min = 101;  ///< below 240 K
inline constexpr std::int32_t td_temp_above_max = 102;  ///< above 1500 K
inline constexpr std::int32_t td_pres_below_min = 103;  ///< below 1 kPa, or the lowest density
inline constexpr std::int32_t td_pres_above_max = 104;  ///< above 100000 kPa
inline constexpr std::int32_t td_two_phase = -101;      ///< an output has no value in two phases

inline constexpr std::int32_t tp_temp_below_min = 201;  ///< below 240 K
inline constexpr std::int32_t tp_temp_above_max = 202;  ///< above 1500 K
inline constexpr std::int32_t tp_pres_below_min = 203;  ///< below 1 kPa
inline constexpr std::int32_t tp_pres_above_max = 204;  ///< above 100000 kPa
inline constexpr std::int32_t tp_saturated = 205;       ///< on the saturation line: undefined
inline constexpr std::int32_t tp_search_failed = 206;   ///< reserved, never reported
inline constexpr std::int32_t tp_not_converged = 207;   ///< no density found

inline constexpr std::int32_t ph_temp_below_min = 301;       ///< the result is below 240 K
inline constexpr std::int32_t ph_temp_above_max = 302;       ///< the result is above 1500 K
inline constexpr std::int32_t ph_pres_below_min = 303;       ///< below 1 kPa
inline constexpr std::int32_t ph_pres_above_max = 304;       ///< above 100000 kPa
inline constexpr std::int32_t ph_not_converged = 305;        ///< no state found
inline constexpr std::int32_t ph_two_phase = -301;           ///< as td_two_phase
inline constexpr std::int32_t ph_loosely_converged = -302;   ///< near the critical temperature
inline constexpr std::int32_t ph_pres_not_converged = -303;  ///< reserved, never reported

inline constexpr std::int32_t ps_temp_below_min = 401;      ///< the result is below 240 K
inline constexpr std::int32_t ps_temp_above_max = 402;      ///< the result is above 1500 K
inline constexpr std::int32_t ps_pres_below_min = 403;      ///< below 1 kPa
inline constexpr std::int32_t ps_pres_above_max = 404;      ///< above 100000 kPa
inline constexpr std::int32_t ps_not_converged = 405;       ///< no state found
inline constexpr std::int32_t ps_solve_failed = 406;        ///< reserved, never reported
inline constexpr std::int32_t ps_two_phase = -401;          ///< as td_two_phase
inline constexpr std::int32_t ps_loosely_converged = -402;  ///< as ph's; it has no text of its own

inline constexpr std::int32_t du_temp_below_min = 501;  ///< the result is below 240 K
inline constexpr std::int32_t du_temp_above_max = 502;  ///< the result is above 1500 K
inline constexpr std::int32_t du_pres_below_min = 503;  ///< below 1 kPa, or the lowest density
inline constexpr std::int32_t du_pres_above_max = 504;  ///< above 100000 kPa
inline constexpr std::int32_t du_not_converged = 505;   ///< no state found
inline constexpr std::int32_t du_two_phase = -501;      ///< as td_two_phase

inline constexpr std::int32_t dh_temp_below_min = 601;  ///< the result is below 240 K
inline constexpr std::int32_t dh_temp_above_max = 602;  ///< the result is above 1500 K
inline constexpr std::int32_t dh_pres_below_min = 603;  ///< below 1 kPa, or the lowest density
inline constexpr std::int32_t dh_pres_above_max = 604;  ///< above 100000 kPa
inline constexpr std::int32_t dh_not_converged = 605;   ///< no state found
inline constexpr std::int32_t dh_two_phase = -601;      ///< as td_two_phase

inline constexpr std::int32_t ds_temp_below_min = 701;  ///< the result is below 240 K
inline constexpr std::int32_t ds_temp_above_max = 702;  ///< the result is above 1500 K
inline constexpr std::int32_t ds_pres_below_min = 703;  ///< below 1 kPa, or the lowest density
inline constexpr std::int32_t ds_pres_above_max = 704;  ///< above 100000 kPa
inline constexpr std::int32_t ds_not_converged = 705;   ///< no state found
inline constexpr std::int32_t ds_two_phase = -701;      ///< as td_two_phase

inline constexpr std::int32_t dp_temp_below_min = 801;  ///< the result is below 240 K
inline constexpr std::int32_t dp_temp_above_max = 802;  ///< the result is above 1500 K
inline constexpr std::int32_t dp_pres_below_min = 803;  ///< below 1 kPa, or the lowest density
inline constexpr std::int32_t dp_pres_above_max = 804;  ///< above 100000 kPa
inline constexpr std::int32_t dp_not_converged = 805;   ///< no state found
inline constexpr std::int32_t dp_two_phase = -801;      ///< as td_two_phase

inline constexpr std::int32_t hs_temp_below_min = 901;  ///< the result is below 240 K
inline constexpr std::int32_t hs_temp_above_max = 902;  ///< the result is above 1500 K
inline constexpr std::int32_t hs_pres_below_min = 903;  ///< the result is below 1 kPa
inline constexpr std::int32_t hs_pres_above_max = 904;  ///< the result is above 100000 kPa
inline constexpr std::int32_t hs_not_converged = 905;   ///< not finite, or no state found
inline constexpr std::int32_t hs_two_phase = -901;      ///< as td_two_phase

inline constexpr std::int32_t pu_temp_below_min = 1001;      ///< the result is below 240 K
inline constexpr std::int32_t pu_temp_above_max = 1002;      ///< the result is above 1500 K
inline constexpr std::int32_t pu_pres_below_min = 1003;      ///< below 1 kPa
inline constexpr std::int32_t pu_pres_above_max = 1004;      ///< above 100000 kPa
inline constexpr std::int32_t pu_not_converged = 1005;       ///< not finite, or no state found
inline constexpr std::int32_t pu_two_phase = -1001;          ///< as td_two_phase
inline constexpr std::int32_t pu_loosely_converged = -1002;  ///< near the critical temperature

inline constexpr std::int32_t ts_temp_below_min = 1101;  ///< below 240 K
inline constexpr std::int32_t ts_temp_above_max = 1102;  ///< above 1500 K
inline constexpr std::int32_t ts_pres_below_min = 1103;  ///< the result is below 1 kPa
inline constexpr std::int32_t ts_pres_above_max = 1104;  ///< the result is above 100000 kPa
inline constexpr std::int32_t ts_not_converged = 1105;   ///< not finite, or no state found
inline constexpr std::int32_t ts_two_phase = -1101;      ///< as td_two_phase

inline constexpr std::int32_t sat_t_temp_below_min = 1201;  ///< below 240 K
inline constexpr std::int32_t sat_t_temp_above_max = 1202;  ///< above the critical temperature
inline constexpr std::int32_t sat_t_not_a_number = 1205;    ///< NaN

inline constexpr std::int32_t sat_p_pres_below_min = 1303;  ///< below that of saturation at 240 K
inline constexpr std::int32_t sat_p_pres_above_max = 1304;  ///< above the critical pressure
inline constexpr std::int32_t sat_p_not_a_number = 1305;    ///< NaN

inline constexpr std::int32_t tx_temp_below_min = 1401;   ///< below 240 K
inline constexpr std::int32_t tx_temp_above_max = 1402;   ///< above the critical temperature
inline constexpr std::int32_t tx_not_a_number = 1405;     ///< an input is NaN
inline constexpr std::int32_t tx_quality_outside = 1406;  ///< below 0 or above 1
inline constexpr std::int32_t tx_two_phase = -1401;       ///< as td_two_phase

inline constexpr std::int32_t px_pres_below_min = 1503;   ///< below that of saturation at 240 K
inline constexpr std::int32_t px_pres_above_max = 1504;   ///< above the critical pressure
inline constexpr std::int32_t px_not_a_number = 1505;     ///< an input is NaN
inline constexpr std::int32_t px_quality_outside = 1506;  ///< below 0 or above 1
inline constexpr std::int32_t px_two_phase = -1501;       ///< as td_two_phase

}  // namespace co2_properties::status
