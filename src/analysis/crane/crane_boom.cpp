#include "analysis/crane/crane_boom.h"

#include <algorithm>
#include <cmath>

#include "base/vectors.h"

namespace zaview {

void FollowTarget(const AxisLimits& limits, double target, double h, CraneAxis& axis) {
  double wanted = (target - axis.value) / h;
  if (limits.rate > 0) wanted = std::clamp(wanted, -limits.rate, limits.rate);
  double change = wanted - axis.rate;
  if (limits.acceleration > 0) {
    const double stoppable = std::sqrt(2 * limits.acceleration * std::abs(target - axis.value));
    change = std::clamp(wanted, -stoppable, stoppable) - axis.rate;
    change = std::clamp(change, -limits.acceleration * h, limits.acceleration * h);
  }
  const CraneAxis before = axis;
  axis.rate += change;
  axis.value += axis.rate * h;
  // What starts beyond a limit may come back to it.
  const double low = std::min(limits.low, before.value), high = std::max(limits.high, before.value);
  if (limits.low < limits.high && (axis.value < low || axis.value > high)) {
    axis.value = std::clamp(axis.value, low, high);
    axis.rate = 0;
  }
  axis.change = (axis.rate - before.rate) / h;
}

CraneCommand CommandAt(std::span<const CraneCommand> commands, double time) {
  const auto next =
      std::find_if(commands.begin(), commands.end(), [time](const CraneCommand& c) { return c.time > time; });
  if (next == commands.begin()) return commands.front();
  if (next == commands.end()) return commands.back();
  const CraneCommand& a = *(next - 1);
  const CraneCommand& b = *next;
  const double s = (time - a.time) / (b.time - a.time);
  const auto between = [s](double from, double to) { return from + s * (to - from); };
  return {time, between(a.slew, b.slew), between(a.luff, b.luff), between(a.length, b.length)};
}

PointMotion BoomTip(const ShipMotion& ship, const Boom& boom, const CraneAxis& slew, const CraneAxis& luff) {
  const double cs = std::cos(slew.value), ss = std::sin(slew.value);
  const double cl = std::cos(luff.value), sl = std::sin(luff.value);
  const Vector3 along = {cl * cs, cl * ss, sl};     // unit vectors: along the boom,
  const Vector3 upward = {-sl * cs, -sl * ss, cl};  // its change with luff,
  const Vector3 aside = {-ss, cs, 0};               // and with slew, over cos(luff)
  const Vector3 b = Plus(boom.base, Times(boom.length, along));
  const Vector3 b_rate = Times(boom.length, Plus(Times(luff.rate, upward), Times(cl * slew.rate, aside)));
  const Vector3 outward = {cs, ss, 0};
  Vector3 b_change = Plus(Times(-luff.rate * luff.rate, along), Times(-cl * slew.rate * slew.rate, outward));
  b_change = Plus(b_change, Times(cl * slew.change - 2 * sl * luff.rate * slew.rate, aside));
  b_change = Times(boom.length, Plus(b_change, Times(luff.change, upward)));

  const Vector3 w_b = Cross(ship.spin, b);
  Vector3 a = Plus(ship.acceleration, Cross(ship.spin_rate, b));
  a = Plus(a, Cross(ship.spin, w_b));
  a = Plus(a, Plus(Times(2, Cross(ship.spin, b_rate)), b_change));
  return {Plus(ship.cg, ToGlobal(ship.R, b)), Plus(ship.velocity, ToGlobal(ship.R, Plus(w_b, b_rate))),
          ToGlobal(ship.R, a)};
}

PointMotion MotionBetween(const PointMotion& from, const PointMotion& to, double duration, double s) {
  PointMotion point;
  for (std::size_t i = 0; i < 3; ++i) {
    // c0 + c1 s + .. + c5 s^5; c3 to c5 take up what the first three leave at s = 1.
    const double c0 = from.place[i], c1 = duration * from.velocity[i];
    const double c2 = duration * duration * from.acceleration[i] / 2;
    const double place = to.place[i] - (c0 + c1 + c2);
    const double slope = duration * to.velocity[i] - (c1 + 2 * c2);
    const double bend = duration * duration * to.acceleration[i] - 2 * c2;
    const double c3 = 10 * place - 4 * slope + bend / 2;
    const double c4 = -15 * place + 7 * slope - bend;
    const double c5 = 6 * place - 3 * slope + bend / 2;
    point.place[i] = c0 + s * (c1 + s * (c2 + s * (c3 + s * (c4 + s * c5))));
    point.velocity[i] = (c1 + s * (2 * c2 + s * (3 * c3 + s * (4 * c4 + s * 5 * c5)))) / duration;
    point.acceleration[i] = (2 * c2 + s * (6 * c3 + s * (12 * c4 + s * 20 * c5))) / (duration * duration);
  }
  return point;
}

}  // namespace zaview
