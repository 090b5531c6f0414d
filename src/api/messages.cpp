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
