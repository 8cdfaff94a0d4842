// Text to numbers. ParseFloat and ParseDouble take exactly the reals of the file formats: sign, digits with at most
// one point, exponent with E, e, D, d and optional sign or a bare signed exponent (1.5-3); NaN, Inf, Infinity in any
// case, signed. Correctly rounded to the type; above its range is an error, below the smallest denormal is 0.
// parse_real is the scanner of the prompts, which finds the next number in any text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zaview {

[[nodiscard]] bool ParseFloat(std::string_view token, float& value);    // the whole token must be a number
[[nodiscard]] bool ParseDouble(std::string_view token, double& value);  // magnitudes above 3.4028235E38 are errors
[[nodiscard]] bool ParseInteger(std::string_view token, int& value);    // a real whose value is whole is taken too

// The next number at or behind `position` (a sign counts only ahead of a digit or a point with a digit).
// more: text follows; end: the number ends the text; none: there is no number (value and position untouched).
enum class ParseEnd : std::uint8_t { more, end, none };
[[nodiscard]] ParseEnd parse_real(std::string_view text, std::size_t& position, double& value);

// What a 4-byte value stands for: the number of its shortest text, 9.81 itself and not the 4-byte value nearest to it,
// whose error would show in the last place of what is made of it.
[[nodiscard]] double AsWritten(float value);

// Nearest integer, halves away from zero, limited to the range of int; NaN gives 0.
[[nodiscard]] int RoundToInt(double value);

}  // namespace zaview
