#pragma once
// Text from a pattern and values.

#include <array>
#include <cstdio>
#include <string>

namespace co2_properties::tablegen {

/// What std::printf would print, at most 400 characters of it.
template <class... Values>
[[nodiscard]] std::string format(const char* pattern, const Values... values) {
  std::array<char, 400> buffer{};
  std::snprintf(buffer.data(), buffer.size(), pattern, values...);
  return buffer.data();
}

}  // namespace co2_properties::tablegen
