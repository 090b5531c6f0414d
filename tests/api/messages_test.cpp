#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

#include "api/co2_properties.hpp"

namespace co2_properties {
namespace {

/// Text of a code without its padding, which must be blanks up to 255 characters.
std::string text_of(const std::int32_t code) {
  const std::array<char, 255> message = co2_error_message(code);
  std::string text(message.begin(), message.end());
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

const std::string unknown = "an unknown error occurred; please contact Quillfen for assistance";

// Hosts compare these texts: one of each kind letter by letter.
TEST(Messages, Texts) {
  struct Case {
    std::int32_t code;
    std::string text;
  };
  const Case cases[] = {
      {101, "CO2_TD: specified temperature below minimum value of 240 K"},
      {301, "CO2_PH: specified inputs result in temperature below minimum value of 240 K"},
      {-401,
       "CO2_PS: at least one property (CV, CP, or speed of sound) was requested that is not "
       "available for a two-phase fluid"},
      {207,
       "CO2_TP: an error occurred when solving for the density that corresponds to the specified "
       "pressure; please contact Quillfen for assistance"},
      {-302,
       "CO2_PH: enthalpy did not converge completely; it is recommended the calculated value be "
       "checked (using enth as an output argument)"},
      {804,
       "CO2_DP: specified density above its maximum value, or pressure above maximum value of "
       "100000 kPa"},
  };
  for (const Case& c : cases) EXPECT_EQ(text_of(c.code), c.text);
}

// Every code in reach: those of an entry carry its name, all others are unknown.
TEST(Messages, CodesAndTheirEntries) {
  std::set<std::int32_t> known = {101,  102,  103, 104, -101, 201, 202, 203, 204,
                                  205,  206,  207, 301, 302,  303, 304, 305, -301,
                                  -302, -303, 401, 402, 403,  404, 405, 406, -401};
  for (const std::int32_t base : {500, 600, 700, 800}) {
    for (const std::int32_t code : {1, 2, 3, 4, 5}) known.insert(base + code);
    known.insert(-base - 1);
  }
  const std::string entry[] = {"",         "CO2_TD: ", "CO2_TP: ", "CO2_PH: ", "CO2_PS: ",
                               "CO2_DU: ", "CO2_DH: ", "CO2_DS: ", "CO2_DP: "};
  std::set<std::string> texts;
  for (std::int32_t code = -900; code <= 900; ++code) {
    const std::string text = text_of(code);
    if (!known.contains(code)) {
      EXPECT_EQ(text, unknown) << code;
    } else {
      EXPECT_EQ(text.substr(0, 8), entry[std::abs(code) / 100]) << code;
      EXPECT_TRUE(texts.insert(text).second) << code << " repeats the text of another code";
    }
  }
  EXPECT_EQ(text_of(std::numeric_limits<std::int32_t>::min()), unknown);
}

}  // namespace
}  // namespace co2_properties
