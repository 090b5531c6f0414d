#include "numbers/platform.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "api/co2_properties.hpp"

namespace co2_properties {
namespace {

struct Message {
  std::int32_t code;
  std::string_view text;
};

constexpr Message messages[] = {
    {status::td_temp_below_min, "CO2_TD: specified temperature below minimum value of 240 K"},
    {status::td_temp_above_max, "CO2_TD: specified temperature above maximum value of 1500 K"},
    {status::td_pres_below_min,
     "CO2_TD: specified inputs result in pressure below minimum value of 1 kPa"},
    {status::td_pres_above_max,
     "CO2_TD: specified inputs result in pressure above maximum value of 100000 kPa"},
    {status::td_two_phase,
     "CO2_TD: at least one property (CV, CP, or speed of sound) was requested that is not "
     "available for a two-phase fluid"},
    {status::tp_temp_below_min, "CO2_TP: specified temperature below minimum value of 240 K"},
    {status::tp_temp_above_max, "CO2_TP: specified temperature above maximum value of 1500 K"},
    {status::tp_pres_below_min, "CO2_TP: specified pressure below minimum value of 1 kPa"},
    {status::tp_pres_above_max, "CO2_TP: specified pressure above maximum value of 100000 kPa"},
    {status::tp_saturated,
     "CO2_TP: specified temperature and pressure correspond to saturation point; state is "
     "undefined"},
    {status::tp_search_failed,
     "CO2_TP: an error occurred when searching for the specified temperature and pressure; please "
     "contact Quillfen for assistance"},
    {status::tp_not_converged,
     "CO2_TP: an error occurred when solving for the density that corresponds to the specified "
     "pressure; please contact Quillfen for assistance"},
    {status::ph_temp_below_min,
     "CO2_PH: specified inputs result in temperature below minimum value of 240 K"},
    {status::ph_temp_above_max,
     "CO2_PH: specified inputs result in temperature above maximum value of 1500 K"},
    {status::ph_pres_below_min, "CO2_PH: specified pressure below minimum value of 1 kPa"},
    {status::ph_pres_above_max, "CO2_PH: specified pressure above maximum value of 100000 kPa"},
    {status::ph_not_converged,
     "CO2_PH: an error occurred when solving for the temperature and density that corresponds to "
     "the specified inputs; please contact Quillfen for assistance"},
    {status::ph_two_phase,
     "CO2_PH: at least one property (CV, CP, or speed of sound) was requested that is not "
     "available for a two-phase fluid"},
    {status::ph_loosely_converged,
     "CO2_PH: enthalpy did not converge completely; it is recommended the calculated value be "
     "checked (using enth as an output argument)"},
    {status::ph_pres_not_converged,
     "CO2_PH: pressure did not converge completely; it is recommended the calculated value be "
     "checked (using pres as an output argument)"},
    {status::ps_two_phase,
     "CO2_PS: at least one property (CV, CP, or speed of sound) was requested that is not "
     "available for a two-phase fluid"},
    {status::ps_temp_below_min,
     "CO2_PS: specified inputs result in temperature below minimum value of 240 K"},
    {status::ps_temp_above_max,
     "CO2_PS: specified inputs result in temperature above maximum value of 1500 K"},
    {status::ps_pres_below_min, "CO2_PS: specified pressure below minimum value of 1 kPa"},
    {status::ps_pres_above_max, "CO2_PS: specified pressure above maximum value of 100000 kPa"},
    {status::ps_not_converged,
     "CO2_PS: an error occurred when searching for the specified pressure and entropy; please "
     "contact Quillfen for assistance"},
    {status::ps_solve_failed,
     "CO2_PS: an error occurred when solving for the temperature and density that corresponds to "
     "the specified inputs; please contact Quillfen for assistance"},
    {status::du_temp_below_min,
     "CO2_DU: specified inputs result in temperature below minimum value of 240 K"},
    {status::du_temp_above_max,
     "CO2_DU: specified inputs result in temperature above maximum value of 1500 K"},
    {status::du_pres_below_min,
     "CO2_DU: specified inputs result in pressure below minimum value of 1 kPa"},
    {status::du_pres_above_max,
     "CO2_DU: specified inputs result in pressure above maximum value of 100000 kPa"},
    {status::du_not_converged,
     "CO2_DU: an error occurred when solving for the temperature that corresponds to the specified "
     "density and internal energy; please contact Quillfen for assistance"},
    {status::du_two_phase,
     "CO2_DU: at least one property (CV, CP, speed of sound, viscosity, or conductivity) was "
     "requested that is not available for a two-phase fluid"},
    {status::dh_temp_below_min,
     "CO2_DH: specified inputs result in temperature below minimum value of 240 K"},
    {status::dh_temp_above_max,
     "CO2_DH: specified inputs result in temperature above maximum value of 1500 K"},
    {status::dh_pres_below_min,
     "CO2_DH: specified inputs result in pressure below minimum value of 1 kPa"},
    {status::dh_pres_above_max,
     "CO2_DH: specified inputs result in pressure above maximum value of 100000 kPa"},
    {status::dh_not_converged,
     "CO2_DH: an error occurred when solving for the temperature that corresponds to the specified "
     "density and enthalpy; please contact Quillfen for assistance"},
    {status::dh_two_phase,
     "CO2_DH: at least one property (CV, CP, speed of sound, viscosity, or conductivity) was "
     "requested that is not available for a two-phase fluid"},
    {status::ds_temp_below_min,
     "CO2_DS: specified inputs result in temperature below minimum value of 240 K"},
    {status::ds_temp_above_max,
     "CO2_DS: specified inputs result in temperature above maximum value of 1500 K"},
    {status::ds_pres_below_min,
     "CO2_DS: specified inputs result in pressure below minimum value of 1 kPa"},
    {status::ds_pres_above_max,
     "CO2_DS: specified inputs result in pressure above maximum value of 100000 kPa"},
    {status::ds_not_converged,
     "CO2_DS: an error occurred when solving for the temperature that corresponds to the specified "
     "density and entropy; please contact Quillfen for assistance"},
    {status::ds_two_phase,
     "CO2_DS: at least one property (CV, CP, speed of sound, viscosity, or conductivity) was "
     "requested that is not available for a two-phase fluid"},
    {status::dp_temp_below_min,
     "CO2_DP: specified inputs result in temperature below minimum value of 240 K"},
    {status::dp_temp_above_max,
     "CO2_DP: specified inputs result in temperature above maximum value of 1500 K"},
    {status::dp_pres_below_min,
     "CO2_DP: specified density below its minimum value, or pressure below minimum value of 1 kPa"},
    {status::dp_pres_above_max,
     "CO2_DP: specified density above its maximum value, or pressure above maximum value of 100000 "
     "kPa"},
    {status::dp_not_converged,
     "CO2_DP: an error occurred when solving for the temperature that corresponds to the specified "
     "density and pressure; please contact Quillfen for assistance"},
    {status::dp_two_phase,
     "CO2_DP: at least one property (CV, CP, speed of sound, viscosity, or conductivity) was "
     "requested that is not available for a two-phase fluid"},
    {status::hs_temp_below_min,
     "CO2_HS: specified inputs result in temperature below minimum value of 240 K"},
    {status::hs_temp_above_max,
     "CO2_HS: specified inputs result in temperature above maximum value of 1500 K"},
    {status::hs_pres_below_min,
     "CO2_HS: specified inputs result in pressure below minimum value of 1 kPa"},
    {status::hs_pres_above_max,
     "CO2_HS: specified inputs result in pressure above maximum value of 100000 kPa"},
    {status::hs_not_converged,
     "CO2_HS: no state was found for the specified inputs; they must be finite numbers"},
    {status::hs_two_phase,
     "CO2_HS: at least one property (CV, CP, speed of sound, viscosity, or conductivity) was "
     "requested that is not available for a two-phase fluid"},
    {status::pu_temp_below_min,
     "CO2_PU: specified inputs result in temperature below minimum value of 240 K"},
    {status::pu_temp_above_max,
     "CO2_PU: specified inputs result in temperature above maximum value of 1500 K"},
    {status::pu_pres_below_min, "CO2_PU: specified pressure below minimum value of 1 kPa"},
    {status::pu_pres_above_max, "CO2_PU: specified pressure above maximum value of 100000 kPa"},
    {status::pu_not_converged,
     "CO2_PU: no state was found for the specified inputs; they must be finite numbers"},
    {status::pu_two_phase,
     "CO2_PU: at least one property (CV, CP, speed of sound, viscosity, or conductivity) was "
     "requested that is not available for a two-phase fluid"},
    {status::pu_loosely_converged,
     "CO2_PU: internal energy did not converge completely; it is recommended the calculated "
     "value be checked (using inte as an output argument)"},
    {status::ts_temp_below_min, "CO2_TS: specified temperature below minimum value of 240 K"},
    {status::ts_temp_above_max, "CO2_TS: specified temperature above maximum value of 1500 K"},
    {status::ts_pres_below_min,
     "CO2_TS: specified inputs result in pressure below minimum value of 1 kPa"},
    {status::ts_pres_above_max,
     "CO2_TS: specified inputs result in pressure above maximum value of 100000 kPa"},
    {status::ts_not_converged,
     "CO2_TS: no state was found for the specified inputs; they must be finite numbers"},
    {status::ts_two_phase,
     "CO2_TS: at least one property (CV, CP, speed of sound, viscosity, or conductivity) was "
     "requested that is not available for a two-phase fluid"},
    {status::sat_t_temp_below_min, "CO2_SAT_T: specified temperature below minimum value of 240 K"},
    {status::sat_t_temp_above_max,
     "CO2_SAT_T: specified temperature above critical value of 304.1282 K"},
    {status::sat_t_not_a_number, "CO2_SAT_T: specified input is not a number"},
    {status::sat_p_pres_below_min,
     "CO2_SAT_P: specified pressure below minimum value of 1282.4835 kPa"},
    {status::sat_p_pres_above_max,
     "CO2_SAT_P: specified pressure above critical value of 7377.3 kPa"},
    {status::sat_p_not_a_number, "CO2_SAT_P: specified input is not a number"},
    {status::tx_temp_below_min, "CO2_TX: specified temperature below minimum value of 240 K"},
    {status::tx_temp_above_max, "CO2_TX: specified temperature above critical value of 304.1282 K"},
    {status::tx_not_a_number, "CO2_TX: specified input is not a number"},
    {status::tx_quality_outside, "CO2_TX: specified quality outside the range from 0 to 1"},
    {status::tx_two_phase,
     "CO2_TX: at least one property (CV, CP, speed of sound, viscosity, or conductivity) was "
     "requested that is not available for a two-phase fluid"},
    {status::px_pres_below_min, "CO2_PX: specified pressure below minimum value of 1282.4835 kPa"},
    {status::px_pres_above_max, "CO2_PX: specified pressure above critical value of 7377.3 kPa"},
    {status::px_not_a_number, "CO2_PX: specified input is not a number"},
    {status::px_quality_outside, "CO2_PX: specified quality outside the range from 0 to 1"},
    {status::px_two_phase,
     "CO2_PX: at least one property (CV, CP, speed of sound, viscosity, or conductivity) was "
     "requested that is not available for a two-phase fluid"},
};

constexpr std::string_view unknown_error =
    "an unknown error occurred; please contact Quillfen for assistance";

constexpr std::size_t width = 255;
static_assert(std::all_of(std::begin(messages), std::end(messages),
                          [](const Message& message) { return message.text.size() <= width; }));

constexpr std::string_view text_of(const std::int32_t code) noexcept {
  for (const Message& message : messages) {
    if (message.code == code) return message.text;
  }
  return unknown_error;
}

}  // namespace

std::array<char, width> co2_error_message(const std::int32_t& ierr) noexcept {
  std::array<char, width> result;
  const std::string_view text = text_of(ierr);
  std::fill(std::copy(text.begin(), text.end(), result.begin()), result.end(), ' ');
  return result;
}

}  // namespace co2_properties
