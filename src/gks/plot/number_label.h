// The texts of numbers along axes. Pure.
#pragma once

#include <span>
#include <string>

namespace zaview {

// " 0.00" for what isn't larger than c in size (the step over 100, say). Else five characters with as many decimals as
// fit (".5000", "9.999", "-50.0", "1234"), beyond 99999 and below 0.01 a power of ten ("1.2E+5", "-7.5E-3").
[[nodiscard]] std::string dgFormatNumber(float v, float c);

struct AxisFormat {  // that all labels of an axis have in common
  int decimals = 0;
  int power = 0;  // of ten, written behind the number; 0: none
};

// So many decimals that no label is off by more than 1/100 of the step, which isn't 0. With a power of ten where a
// plain number would be longer, and longer than seven characters.
[[nodiscard]] AxisFormat dgAxisFormat(std::span<const float> values, float step);
[[nodiscard]] std::string dgAxisLabel(float value, AxisFormat format);

}  // namespace zaview
