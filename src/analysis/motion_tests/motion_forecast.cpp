#include "analysis/motion_tests/motion_forecast.h"

#include <cmath>
#include <cstddef>

namespace zaview {
namespace {

// Rates of roll, pitch and yaw from what turns about the ship axes.
std::array<double, 3> EulerRates(double roll, double pitch, double p, double q, double r) {
  const double sr = std::sin(roll), cr = std::cos(roll), cp = std::cos(pitch), tp = std::tan(pitch);
  return {p + sr * tp * q + cr * tp * r, cr * q - sr * r, (sr * q + cr * r) / cp};
}

Six InAngles(const Six& position, const Six& rate) {
  const std::array<double, 3> euler = EulerRates(position[3], position[4], rate[3], rate[4], rate[5]);
  return {rate[0], rate[1], rate[2], euler[0], euler[1], euler[2]};
}

}  // namespace

Six Forecast(const MotionState& now, double T) {
  const Six rate = InAngles(now.position, now.velocity), change = InAngles(now.position, now.acceleration);
  Six later{};
  for (std::size_t i = 0; i < later.size(); ++i) later[i] = now.position[i] + T * rate[i] + T * T * change[i] / 2;
  return later;
}

}  // namespace zaview
