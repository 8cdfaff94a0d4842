// The texts of numbers along axes. Pure.
#pragma once

#include <string>

namespace zaview {

// " 0.00" for what isn't larger than c in size (the step over 100, say). Else five characters with as many decimals as
// fit
// (".5000", "9.999", "-50.0", "1234"), beyond 99999 and below 0.01 a power of ten ("1.2E+5", "-7.5E-3").
[[nodiscard]] std::string dgFormatNumber(float v, float c);

}  // namespace zaview
