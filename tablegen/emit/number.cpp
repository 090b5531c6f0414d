#include "tablegen/emit/number.hpp"

#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace co2_properties::tablegen {
namespace {

void require_finite(const double value) {
  if (!std::isfinite(value)) throw std::domain_error("a table holds finite numbers only");
}

bool starts_number(const char c) { return (c >= '0' && c <= '9') || c == '-' || c == '.'; }

}  // namespace

std::string hex_literal(const double value) {
  require_finite(value);
  std::array<char, 40> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%a", value);
  return buffer.data();
}

std::string decimal_literal(const double value) {
  require_finite(value);
  std::array<char, 40> buffer{};
  char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  std::string text(buffer.data(), end);
  if (text.find_first_of(".e") == std::string::npos) text += ".0";
  return text;
}

std::vector<double> numbers_in(const std::string_view source) {
  std::vector<double> numbers;
  int depth = 0;  // 1 inside the namespaces, above that inside an initialiser
  std::size_t i = 0;
  while (i < source.size()) {
    const char c = source[i];
    if (c == '/' && i + 1 < source.size() && source[i + 1] == '/') {
      i = source.find('\n', i);
      if (i == std::string_view::npos) break;
    } else if (c == '=' && source.find('{', i) == i + 2) {
      ++depth;
      i += 3;
    } else if (depth > 0 && c == '{') {
      ++depth;
      ++i;
    } else if (depth > 0 && c == '}') {
      --depth;
      ++i;
    } else if (depth > 0 && starts_number(c)) {
      std::size_t used = 0;
      numbers.push_back(std::stod(std::string(source.substr(i, 48)), &used));
      i += used;
    } else {
      // A name is skipped whole, so that its digits are not taken for a number.
      do {
        ++i;
      } while (
          i < source.size() &&
          (std::isalnum(static_cast<unsigned char>(source[i - 1])) != 0 || source[i - 1] == '_') &&
          (std::isalnum(static_cast<unsigned char>(source[i])) != 0 || source[i] == '_'));
    }
  }
  return numbers;
}

std::string text_digest(const std::vector<std::string>& inputs) {
  constexpr std::uint64_t prime = 0x100000001b3;
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const std::string& text : inputs) {
    for (const char c : text + '\0') {
      hash = (hash ^ static_cast<unsigned char>(c)) * prime;
    }
  }
  std::array<char, 20> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%016llx", static_cast<unsigned long long>(hash));
  return buffer.data();
}

}  // namespace co2_properties::tablegen
