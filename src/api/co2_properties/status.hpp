#pragma once
// What the entries report through `ierr`.

#include "co2_properties/require_cpp20.hpp"

#include <cstdint>

/// Codes of `ierr`: 0 success; negative a warning, the outputs hold a result; positive an error,
/// every output is zero. The hundreds digit names the entry: 1 `co2_td`, 2 `co2_tp`, 3 `co2_ph`,
/// 4 `co2_ps`. Texts: `co2_error_message`.
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

}  // namespace co2_properties::status
