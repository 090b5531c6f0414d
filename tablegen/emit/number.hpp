#pragma once
// Numbers of the generated sources: how they are written and how they are read back.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace co2_properties::tablegen {

/// Hexadecimal floating literal with the exact value of `value`, for coefficients: -0x1.8p+3.
/// \throws std::domain_error for a NaN or an infinity, which have no literal
[[nodiscard]] std::string hex_literal(double value);

/// Shortest decimal literal that reads back as `value`, for edges and origins: 304.1282, 240.0.
/// \throws std::domain_error for a NaN or an infinity
[[nodiscard]] std::string decimal_literal(double value);

/// The numbers inside the outermost braces of a generated source, in file order, comments skipped:
/// edges, cells and records as they were written.
[[nodiscard]] std::vector<double> numbers_in(std::string_view source);

/// Digest of texts, such as all that a table is made from (64-bit FNV-1a, each text followed by a
/// zero byte), as sixteen hexadecimal digits.
[[nodiscard]] std::string text_digest(const std::vector<std::string>& inputs);

}  // namespace co2_properties::tablegen
