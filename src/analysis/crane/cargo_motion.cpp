#include "analysis/crane/cargo_motion.h"

#include <algorithm>
#include <cmath>

#include "base/vectors.h"

namespace zaview {
namespace {

constexpr double kLongest = 1.5;   // l over L0
constexpr double kResolved = 0.5;  // a sub-step times the highest frequency
constexpr double kNearTip = 0.01;  // of L0: damping is that of a cargo so far from the tip where it is nearer

using Tips = std::array<PointMotion, kMaxCables>;

Vector3 Product(const Matrix3& matrix, const Vector3& v) {
  return {Dot(matrix[0], v), Dot(matrix[1], v), Dot(matrix[2], v)};
}

struct EndMotion {
  Vector3 place{}, velocity{};
};

EndMotion EndOf(const CraneModel& m, const CargoState& cargo, const Rotation& Q) {
  if (!m.rotates) return {cargo.cg, cargo.velocity};
  return {Minus(cargo.cg, ToGlobal(Q, m.s)), Minus(cargo.velocity, ToGlobal(Q, Cross(cargo.spin, m.s)))};
}

// ---- One cable

struct Cable {
  double l = 0;
  Vector3 e{};         // down it; downward where the cargo is at the tip
  Vector3 velocity{};  // of x relative to the tip
};

Cable CableTo(const PointMotion& tip, const EndMotion& end) {
  const Vector3 r = Minus(end.place, tip.place);
  const double l = Length(r);
  return {l, l > 0 ? Times(1 / l, r) : Vector3{0, 0, -1}, Minus(end.velocity, tip.velocity)};
}

double Stiffness(const CraneModel& m, double L0) {
  return m.EA / L0;
}

double ElasticTension(const CraneModel& m, const Cable& cable, const CraneAxis& L0) {
  if (cable.l <= L0.value) return 0;
  const double k = Stiffness(m, L0.value);
  const double c = 2 * m.z[2] * std::sqrt(k * m.mass / static_cast<double>(m.cables));
  return std::max(0.0, k * (cable.l - L0.value) + c * (Dot(cable.velocity, cable.e) - L0.rate));
}

// ---- Forces and rates

struct CargoRate {
  Vector3 cg{}, velocity{};
  std::array<double, 4> turn{};
  Vector3 spin{};
  std::array<double, kMaxCables> tension{};
};

struct Loads {  // what acts on the cargo but for the tensions
  Rotation Q{};
  std::array<Cable, kMaxCables> cables{};
  Vector3 force{};   // over m, earth axes
  Vector3 moment{};  // cargo axes
};

double SwingFrequency(const CraneModel& m, double l, double L0) {
  return std::sqrt(m.gravity / std::max(l, kNearTip * L0));
}

Vector3 SwingDamping(const CraneModel& m, const CargoState& cargo, const Cable& cable, const PointMotion& tip,
                     double L0) {
  const Vector3 v = NormalTo(cable.e, Minus(cargo.velocity, tip.velocity));
  const double w = SwingFrequency(m, cable.l, L0);
  return NormalTo(cable.e, {-2 * w * m.z[0] * v[0], -2 * w * m.z[1] * v[1], 0});
}

Loads LoadsOn(const CraneModel& m, const CargoState& cargo, const Tips& tips, double L0) {
  Loads on;
  on.Q = TurnOf(cargo.turn);
  const EndMotion end = EndOf(m, cargo, on.Q);
  on.force = {0, 0, -m.gravity};
  double l = 0;
  const double share = 1 / static_cast<double>(m.cables);
  for (std::size_t b = 0; b < m.cables; ++b) {
    on.cables[b] = CableTo(tips[b], end);
    on.force = Plus(on.force, Times(share, SwingDamping(m, cargo, on.cables[b], tips[b], L0)));
    l += share * on.cables[b].l;
  }
  if (!m.rotates) return on;
  const double w = SwingFrequency(m, l, L0);
  on.moment = Cross(Product(m.inertia, cargo.spin), cargo.spin);
  for (std::size_t i = 0; i < 3; ++i) on.moment[i] -= 2 * w * m.z[3 + i] * m.inertia[i][i] * cargo.spin[i];
  return on;
}

// That which keeps l'' = L0'', by the mass that the cable feels at its end.
double RigidTension(const CraneModel& m, const CargoState& cargo, const Loads& on, const PointMotion& tip,
                    double L0_change) {
  const Cable& cable = on.cables[0];
  const Vector3 vn = NormalTo(cable.e, cable.velocity);
  double pull = Dot(cable.e, Minus(on.force, tip.acceleration)) + Dot(vn, vn) / cable.l - L0_change;
  double ease = 1 / m.mass;
  if (m.rotates) {
    const Vector3 e = ToShip(on.Q, cable.e);
    const Vector3 arm = Cross(m.s, e);
    pull -= Dot(arm, Product(m.inverse, on.moment)) + Dot(e, Cross(cargo.spin, Cross(cargo.spin, m.s)));
    ease += Dot(arm, Product(m.inverse, arm));
  }
  return cable.l > 0 ? std::max(0.0, pull / ease) : 0.0;
}

std::array<double, 4> TurnRate(const std::array<double, 4>& q, const Vector3& w) {
  return {-(q[1] * w[0] + q[2] * w[1] + q[3] * w[2]) / 2, (q[0] * w[0] + q[2] * w[2] - q[3] * w[1]) / 2,
          (q[0] * w[1] + q[3] * w[0] - q[1] * w[2]) / 2, (q[0] * w[2] + q[1] * w[1] - q[2] * w[0]) / 2};
}

CargoRate RateOf(const CraneModel& m, const CargoState& cargo, const Tips& tips, const CraneAxis& L0, bool taut) {
  Loads on = LoadsOn(m, cargo, tips, L0.value);
  CargoRate rate;
  rate.cg = cargo.velocity;
  for (std::size_t b = 0; b < m.cables; ++b) {
    double& T = rate.tension[b];
    if (!m.rigid) T = ElasticTension(m, on.cables[b], L0);
    else if (taut) T = RigidTension(m, cargo, on, tips[b], L0.change);
    const Vector3& e = on.cables[b].e;
    on.force = Plus(on.force, Times(-T / m.mass, e));
    if (m.rotates) on.moment = Plus(on.moment, Times(T, Cross(m.s, ToShip(on.Q, e))));
  }
  rate.velocity = on.force;
  if (!m.rotates) return rate;
  rate.spin = Product(m.inverse, on.moment);
  rate.turn = TurnRate(cargo.turn, cargo.spin);
  return rate;
}

// ---- One sub-step

CargoState Moved(const CargoState& from, double h, const CargoRate& rate) {
  CargoState to = from;
  for (std::size_t i = 0; i < 3; ++i) {
    to.cg[i] += h * rate.cg[i];
    to.velocity[i] += h * rate.velocity[i];
    to.spin[i] += h * rate.spin[i];
  }
  for (std::size_t i = 0; i < 4; ++i) to.turn[i] += h * rate.turn[i];
  return to;
}

CargoRate Mean(const CargoRate& k1, const CargoRate& k2, const CargoRate& k3, const CargoRate& k4) {
  CargoRate mean;
  const auto sum = [](const auto& a, const auto& b, const auto& c, const auto& d, auto& to) {
    for (std::size_t i = 0; i < to.size(); ++i) to[i] = ((a[i] + 2 * b[i]) + 2 * c[i] + d[i]) / 6;
  };
  sum(k1.cg, k2.cg, k3.cg, k4.cg, mean.cg);
  sum(k1.velocity, k2.velocity, k3.velocity, k4.velocity, mean.velocity);
  sum(k1.turn, k2.turn, k3.turn, k4.turn, mean.turn);
  sum(k1.spin, k2.spin, k3.spin, k4.spin, mean.spin);
  return mean;
}

void Normalize(std::array<double, 4>& turn) {
  const double size = std::sqrt(turn[0] * turn[0] + turn[1] * turn[1] + turn[2] * turn[2] + turn[3] * turn[3]);
  for (double& part : turn) part /= size;
}

// Puts x at L0 from the tip and takes the velocity along the cable to L0', by a blow of the cable.
void HoldAtLength(const CraneModel& m, const PointMotion& tip, const CraneAxis& L0, CargoState& cargo) {
  const Rotation Q = TurnOf(cargo.turn);
  const Cable cable = CableTo(tip, EndOf(m, cargo, Q));
  cargo.cg = Plus(cargo.cg, Times(L0.value - cable.l, cable.e));
  const double wanted = L0.rate - Dot(cable.velocity, cable.e);
  if (!m.rotates) {
    cargo.velocity = Plus(cargo.velocity, Times(wanted, cable.e));
    return;
  }
  const Vector3 arm = Cross(m.s, ToShip(Q, cable.e));
  const Vector3 turned = Product(m.inverse, arm);
  const double blow = wanted / (1 / m.mass + Dot(arm, turned));
  cargo.velocity = Plus(cargo.velocity, Times(blow / m.mass, cable.e));
  cargo.spin = Minus(cargo.spin, Times(blow, turned));
}

void KeepRigid(const CraneModel& m, const Tips& tips, CraneState& state) {
  const double T = RateOf(m, state.cargo, tips, state.length, state.taut).tension[0];
  const EndMotion end = EndOf(m, state.cargo, TurnOf(state.cargo.turn));
  state.taut = T > 0 || CableTo(tips[0], end).l >= state.length.value;
  if (state.taut) HoldAtLength(m, tips[0], state.length, state.cargo);
}

// start: L0 at the beginning of the sub-step; state.length is at its end already.
void SubStep(const CraneModel& m, const std::array<Tips, 3>& tips, double h, double start, CraneState& state) {
  const CargoState& from = state.cargo;
  CraneAxis L0 = state.length;
  L0.value = start;
  const CargoRate k1 = RateOf(m, from, tips[0], L0, state.taut);
  L0.value = (start + state.length.value) / 2;
  const CargoRate k2 = RateOf(m, Moved(from, h / 2, k1), tips[1], L0, state.taut);
  const CargoRate k3 = RateOf(m, Moved(from, h / 2, k2), tips[1], L0, state.taut);
  const CargoRate k4 = RateOf(m, Moved(from, h, k3), tips[2], state.length, state.taut);
  state.cargo = Moved(from, h, Mean(k1, k2, k3, k4));
  if (m.rotates) Normalize(state.cargo.turn);
  if (m.rigid) KeepRigid(m, tips[2], state);
}

bool LengthsGood(const CraneModel& m, const Tips& tips, const CraneState& state) {
  const double L0 = state.length.value;
  const EndMotion end = EndOf(m, state.cargo, TurnOf(state.cargo.turn));
  for (std::size_t b = 0; b < m.cables; ++b)
    if (!(CableTo(tips[b], end).l <= kLongest * L0)) return false;  // also of what is no number
  return L0 > 0 && std::isfinite(state.cargo.turn[0]);
}

// ---- One step

double ShortestLength(const CraneModel& m) {
  double shortest = m.length;
  for (const CraneCommand& command : m.commands) shortest = std::min(shortest, command.length);
  return shortest;
}

double HighestFrequency(const CraneModel& m) {
  const double L0 = ShortestLength(m);
  const double size = m.rotates ? Length(m.s) : 0.0;
  const double turning = m.inverse[0][0] + m.inverse[1][1] + m.inverse[2][2];  // over the smallest inertia, at most
  const double swing = m.gravity / L0 + m.mass * m.gravity * size * (m.rotates ? turning : 0.0);
  double square = swing;
  if (!m.rigid) {
    const double ease = 1 / m.mass + (m.rotates ? size * size * turning : 0.0);
    square = std::max(square, static_cast<double>(m.cables) * Stiffness(m, L0) * ease);
  }
  const double damped = 2 * *std::max_element(m.z.begin(), m.z.end());
  return std::sqrt(square) * std::max(1.0, damped);
}

bool CountSubSteps(const CraneModel& m, double duration, int& n) {
  const int at_least = std::max(m.sub_steps, 1);
  const double q = std::max(1.0, std::ceil(duration * HighestFrequency(m) / (kResolved * at_least)));
  if (!(q * at_least <= kMostSubSteps)) return false;
  n = at_least * static_cast<int>(q);
  return true;
}

void FollowCommands(const CraneModel& m, double time, double h, CraneState& state) {
  if (m.commands.empty()) return;
  const CraneCommand target = CommandAt(m.commands, time);
  FollowTarget(m.slew_limits, target.slew, h, state.slew);
  FollowTarget(m.luff_limits, target.luff, h, state.luff);
  FollowTarget(m.length_limits, target.length, h, state.length);
}

Tips TipsAt(const CraneModel& m, const ShipMotion& ship, const CraneState& state) {
  Tips tips;
  for (std::size_t b = 0; b < m.cables; ++b) {
    CraneAxis slew = state.slew, luff = state.luff;
    slew.value += m.booms[b].slew - m.booms[0].slew;
    luff.value += m.booms[b].luff - m.booms[0].luff;
    tips[b] = BoomTip(ship, m.booms[b], slew, luff);
  }
  return tips;
}

struct StepTips {  // at both ends of a step
  Tips from, to;
  double duration = 1;
};

// The boom's changes of rate are the mean ones of the step: a jump within a sub-step is spread over it.
StepTips TipsOver(const CraneModel& m, const ShipMotion& from, const ShipMotion& to, int n, CraneState state) {
  const double D = from.to_next, h = D / n;
  CraneState begun = state;
  for (int i = 1; i <= n && !m.commands.empty(); ++i) FollowCommands(m, from.time + i * h, h, state);
  begun.slew.change = state.slew.change = (state.slew.rate - begun.slew.rate) / D;
  begun.luff.change = state.luff.change = (state.luff.rate - begun.luff.rate) / D;
  return {TipsAt(m, from, begun), TipsAt(m, to, state), D};
}

Tips TipsBetween(const CraneModel& m, const StepTips& ends, double s) {
  Tips tips;
  for (std::size_t b = 0; b < m.cables; ++b) tips[b] = MotionBetween(ends.from[b], ends.to[b], ends.duration, s);
  return tips;
}

// How far below the middle of the tips, along e, the cables hold the cargo with so much more stretch. By halving: the
// pull rises with the depth.
double HangingDepth(const CraneModel& m, const Tips& tips, const Vector3& middle, const Vector3& e, double stretch) {
  const auto pull = [&](double depth) {
    double sum = 0;
    for (std::size_t b = 0; b < m.cables; ++b) {
      const Vector3 r = Minus(Plus(middle, Times(depth, e)), tips[b].place);
      const double l = Length(r);
      if (l > m.length) sum += Stiffness(m, m.length) * (l - m.length) * Dot(r, e) / l;
    }
    return sum;
  };
  double low = 0, high = 2 * m.length;
  const double wanted = m.mass * m.gravity;
  for (int i = 0; i < 100; ++i) {
    const double half = (low + high) / 2;
    (pull(half) < wanted ? low : high) = half;
  }
  return low + stretch;
}

Vector3 StartOfEnd(const CraneModel& m, const ShipMotion& ship, const Tips& tips) {
  const CargoStart& start = m.start;
  Vector3 middle{};
  for (std::size_t b = 0; b < m.cables; ++b)
    middle = Plus(middle, Times(1 / static_cast<double>(m.cables), tips[b].place));
  const Vector3 given = Plus(ship.cg, ToGlobal(ship.R, start.end));
  if (!start.by_swing && !m.rigid) return given;
  const double heading = std::atan2(ship.R.r[1][0], ship.R.r[0][0]) + start.azimuth;
  const double out = std::sin(start.elevation);
  Vector3 e = {out * std::cos(heading), out * std::sin(heading), -std::cos(start.elevation)};
  if (!start.by_swing) e = CableTo(tips[0], {given, {}}).e;
  if (m.rigid) return Plus(middle, Times(m.length, e));
  if (m.cables == 1) return Plus(middle, Times(m.length + StaticStretch(m) + start.stretch, e));
  return Plus(middle, Times(HangingDepth(m, tips, middle, e, start.stretch), e));
}

}  // namespace

double StaticStretch(const CraneModel& model) {
  if (model.rigid) return 0;
  return model.mass * model.gravity / (static_cast<double>(model.cables) * Stiffness(model, model.length));
}

CraneFault StartCrane(const CraneModel& model, const ShipMotion& ship, CraneState& state) {
  state = CraneState{};
  state.slew.value = model.booms[0].slew;
  state.luff.value = model.booms[0].luff;
  state.length.value = model.length;
  const Tips tips = TipsAt(model, ship, state);
  if (model.rotates) state.cargo.turn = QuaternionOf(model.start.euler);
  const Vector3 end = StartOfEnd(model, ship, tips);
  state.cargo.cg = model.rotates ? Plus(end, ToGlobal(TurnOf(state.cargo.turn), model.s)) : end;
  state.cargo.velocity = tips[0].velocity;
  return LengthsGood(model, tips, state) ? CraneFault::none : CraneFault::length;
}

CraneFault AdvanceCrane(const CraneModel& model, const ShipMotion& from, const ShipMotion& to, CraneState& state) {
  if (!(from.to_next > 0)) return CraneFault::none;
  int n = 1;
  if (!CountSubSteps(model, from.to_next, n)) return CraneFault::too_stiff;
  const double h = from.to_next / n;
  const StepTips ends = TipsOver(model, from, to, n, state);
  std::array<Tips, 3> tips;
  tips[2] = ends.from;
  for (int i = 1; i <= n; ++i) {
    tips[0] = tips[2];
    tips[1] = TipsBetween(model, ends, (i - 0.5) / n);
    tips[2] = TipsBetween(model, ends, static_cast<double>(i) / n);
    const double start = state.length.value;
    FollowCommands(model, from.time + i * h, h, state);
    if (!(state.length.value > 0)) return CraneFault::length;
    SubStep(model, tips, h, start, state);
    if (!LengthsGood(model, tips[2], state)) return CraneFault::length;
  }
  return CraneFault::none;
}

CraneSnapshot SnapshotOf(const CraneModel& model, const ShipMotion& ship, const CraneState& state) {
  const Tips tips = TipsAt(model, ship, state);
  CraneSnapshot at;
  at.Q = TurnOf(state.cargo.turn);
  at.end = EndOf(model, state.cargo, at.Q).place;
  for (std::size_t b = 0; b < model.cables; ++b) {
    at.base[b] = Plus(ship.cg, ToGlobal(ship.R, model.booms[b].base));
    at.tip[b] = tips[b].place;
  }
  at.slew = state.slew.value;
  at.luff = state.luff.value;
  at.length = state.length.value;
  at.tension = RateOf(model, state.cargo, tips, state.length, state.taut).tension;
  return at;
}

Rotation TurnOf(const std::array<double, 4>& q) {
  const double w = q[0], x = q[1], y = q[2], z = q[3];
  return {{{1 - 2 * (y * y + z * z), 2 * (x * y - w * z), 2 * (x * z + w * y)},
           {2 * (x * y + w * z), 1 - 2 * (x * x + z * z), 2 * (y * z - w * x)},
           {2 * (x * z - w * y), 2 * (y * z + w * x), 1 - 2 * (x * x + y * y)}}};
}

std::array<double, 4> QuaternionOf(const Vector3& euler) {
  const double cr = std::cos(euler[0] / 2), sr = std::sin(euler[0] / 2);
  const double cp = std::cos(euler[1] / 2), sp = std::sin(euler[1] / 2);
  const double cy = std::cos(euler[2] / 2), sy = std::sin(euler[2] / 2);
  return {cr * cp * cy + sr * sp * sy, sr * cp * cy - cr * sp * sy, cr * sp * cy + sr * cp * sy,
          cr * cp * sy - sr * sp * cy};
}

Vector3 EulerOf(const Rotation& Q) {
  return {std::atan2(Q.r[2][1], Q.r[2][2]), -std::asin(std::clamp(Q.r[2][0], -1.0, 1.0)),
          std::atan2(Q.r[1][0], Q.r[0][0])};
}

bool InvertInertia(const Matrix3& inertia, Matrix3& inverse) {
  const auto a = [&inertia](std::size_t i, std::size_t j) { return (inertia[i][j] + inertia[j][i]) / 2; };
  Matrix3 L{};  // lower triangle, L L' = a
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j <= i; ++j) {
      double left = a(i, j);
      for (std::size_t k = 0; k < j; ++k) left -= L[i][k] * L[j][k];
      if (i == j && !(left > 0 && std::isfinite(left))) return false;
      L[i][j] = i == j ? std::sqrt(left) : left / L[j][j];
    }
  }
  for (std::size_t column = 0; column < 3; ++column) {
    Vector3 y{}, x{};
    for (std::size_t i = 0; i < 3; ++i) {
      y[i] = i == column ? 1.0 : 0.0;
      for (std::size_t k = 0; k < i; ++k) y[i] -= L[i][k] * y[k];
      y[i] /= L[i][i];
    }
    for (std::size_t i = 3; i-- > 0;) {
      x[i] = y[i];
      for (std::size_t k = i + 1; k < 3; ++k) x[i] -= L[k][i] * x[k];
      x[i] /= L[i][i];
    }
    for (std::size_t i = 0; i < 3; ++i) inverse[i][column] = x[i];
  }
  return true;
}

}  // namespace zaview
