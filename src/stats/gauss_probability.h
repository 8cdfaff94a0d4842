// ka of the two-sided probability Pa of the standard normal distribution, by 500 trapezoids and false position to 1e-5
// in P. Single precision in the stated order.
#pragma once

namespace zaview {

// 0 < Pa <= 1, else false and ka 0.
[[nodiscard]] bool getGaussPDFka(float Pa, float& ka);

}  // namespace zaview
