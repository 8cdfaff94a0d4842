// Where a ship would be a time later. Pure.
#pragma once

#include <array>

namespace zaview {

using Six = std::array<double, 6>;

struct MotionState {  // of one step, non-dimensional; rates and accelerations of rotation are those about the ship axes
  Six position{};     // centre of gravity in earth axes, then roll, pitch and yaw
  Six velocity{};     // earth axes; body rates
  Six acceleration{};  // earth axes; time derivatives of the body rates
};

// p + T p' + T^2 p''/2. Translations have p' and p'' as they are; Euler angles p' = E w, p'' = E dw/dt with
// E = [1 sr tp cr tp; 0 cr -sr; 0 sr/cp cr/cp], s, c, t sine, cosine and tangent, r roll, p pitch.
[[nodiscard]] Six Forecast(const MotionState& now, double T);

}  // namespace zaview
