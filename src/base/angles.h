// Radians and degrees.
#pragma once

#include <numbers>

namespace zaview {

inline constexpr double kDegrees = 180 / std::numbers::pi;  // of one radian
inline constexpr double kRadians = std::numbers::pi / 180;  // of one degree
inline constexpr double kTwoPi = 2 * std::numbers::pi;

}  // namespace zaview
