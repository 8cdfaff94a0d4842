#include "analysis/righting_arms/righting_arm_curve.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/angles.h"
#include "base/grow.h"

namespace zaview {
namespace {

constexpr int kMostIterations = 40;
constexpr int kHalvedStep = 20;         // deliberate: it breaks an oscillation between two states
constexpr double kTolerance = 1e-5;     // of the force, and of force times length
constexpr double kLeastSlope = 1e-6;    // of the force over sinkage
constexpr double kSinkageLimit = 0.01;  // of the length, a correction
constexpr double kAngleLimit = 0.01;    // radians, a correction
constexpr double kSingular = 1e-10;     // of the largest coefficient: a pivot that is none

struct State {
  double z = 0, second = 0;  // second angle: correction
};

struct Aim {
  int mode = 0;
  double force = 0, moment = 0;
  double force_tolerance = 0, moment_tolerance = 0;
};

struct Correction {
  double z = 0, second = 0;
};

struct Task {
  const HydrostaticBody& body;
  const WaterSurface& water;
  const Attitude& ship;
  const ArmSettings& settings;
  HydrostaticWork& work;
  [[nodiscard]] bool transverse() const { return settings.direction == ArmDirection::transverse; }
};

Attitude AttitudeAt(const Task& task, double angle, const State& state) {
  Attitude attitude = task.ship;
  attitude.cg[2] = state.z;
  attitude.roll += task.transverse() ? angle : state.second;
  attitude.pitch += task.transverse() ? state.second : angle;
  return attitude;
}

// About the axis of the second angle, and about the other one.
double SecondMoment(const Task& task, const Hydrostatics& h) {
  return h.moment[task.transverse() ? 1 : 0];
}
double RightingMoment(const Task& task, const Hydrostatics& h) {
  return -h.moment[task.transverse() ? 0 : 1];
}

// Of force and second moment over sinkage and second angle.
struct Slopes {
  double m[2][2];
};
Slopes SlopesOf(const Task& task, const WetSums& wet) {
  const double lift = wet.V * wet.B[2];
  if (task.transverse()) return {{{-wet.Awp, wet.Sx}, {wet.Sx, -(wet.Iyy + lift)}}};
  return {{{-wet.Awp, -wet.Sy}, {-wet.Sy, -(wet.Ixx + lift)}}};
}

// m x = rhs by elimination, the larger of the first column as pivot. False: singular.
bool Eliminate(Slopes s, std::array<double, 2> rhs, Correction& x) {
  const double largest = std::max({std::abs(s.m[0][0]), std::abs(s.m[0][1]), std::abs(s.m[1][0]), std::abs(s.m[1][1])});
  if (std::abs(s.m[1][0]) > std::abs(s.m[0][0])) {
    std::swap(s.m[0], s.m[1]);
    std::swap(rhs[0], rhs[1]);
  }
  if (!(std::abs(s.m[0][0]) > kSingular * largest)) return false;
  const double factor = s.m[1][0] / s.m[0][0];
  const double pivot = s.m[1][1] - factor * s.m[0][1];
  if (!(std::abs(pivot) > kSingular * largest)) return false;
  x.second = (rhs[1] - factor * rhs[0]) / pivot;
  x.z = (rhs[0] - s.m[0][1] * x.second) / s.m[0][0];
  return true;
}

RowFault FindCorrection(const Task& task, const Aim& aim, const Hydrostatics& h, double dF, double dM,
                        Correction& correction) {
  if (aim.mode == 2) {
    const bool solved = Eliminate(SlopesOf(task, h.wet), {-dF, -dM}, correction);
    return solved ? RowFault::none : RowFault::singular;
  }
  const double slope = -h.wet.Awp;
  if (!(std::abs(slope) >= kLeastSlope)) return RowFault::no_slope;
  correction.z = -dF / slope;
  return RowFault::none;
}

// From `state` on; `h` is of the last state evaluated, which `state` is then.
RowFault Balance(const Task& task, double angle, const Aim& aim, State& state, Hydrostatics& h) {
  const int icalc = aim.mode == 0 ? kForceOnly : kForceAndSlopes;
  for (int iter = 1;; ++iter) {
    if (EvalHydrostatics(task.body, task.water, AttitudeAt(task, angle, state), icalc, task.work, h) !=
        HydrostaticFault::none)
      return RowFault::no_memory;
    if (aim.mode == 0) return RowFault::none;
    const double dF = h.force[2] - aim.force, dM = SecondMoment(task, h) - aim.moment;
    const bool moment_met = aim.mode == 1 || std::abs(dM) <= aim.moment_tolerance;
    if (std::abs(dF) <= aim.force_tolerance && moment_met) return RowFault::none;
    if (iter == kMostIterations) return RowFault::not_converged;
    Correction correction;
    const RowFault fault = FindCorrection(task, aim, h, dF, dM, correction);
    if (fault != RowFault::none) return fault;
    const double relaxation = iter == kHalvedStep ? 0.5 : 1.0;
    const double most = kSinkageLimit * task.body.length;
    state.z += std::clamp(relaxation * correction.z, -most, most);
    state.second += std::clamp(relaxation * correction.second, -kAngleLimit, kAngleLimit);
  }
}

// Row i of a side, from the state of the last good row. False: memory is out.
bool AddRow(const Task& task, const Aim& aim, double angle_deg, State& state, ArmCurve& out,
            std::vector<ArmRow>& rows) {
  State tried = state;
  Hydrostatics h;
  RowFault fault = Balance(task, angle_deg * kRadians, aim, tried, h);
  if (fault == RowFault::no_memory) return false;
  const bool stands = fault == RowFault::none || fault == RowFault::not_converged;
  if (stands && !(h.force[2] > 0)) fault = RowFault::no_force;
  if (fault != RowFault::none) out.notes.push_back({fault, angle_deg});
  if (fault != RowFault::none && fault != RowFault::not_converged) return true;
  const double moment = RightingMoment(task, h);
  rows.push_back({angle_deg, moment, moment / h.force[2], tried.z, tried.second});
  state = tried;
  return true;
}

std::vector<WaterlineSegment> GlobalWaterline(const HydrostaticWork& work) {
  const Attitude& at = work.attitude;
  const double c = std::cos(at.yaw), s = std::sin(at.yaw);
  std::vector<WaterlineSegment> line = work.wet.waterline;
  for (WaterlineSegment& segment : line)
    for (Vector3& p : segment) p = {at.cg[0] + c * p[0] - s * p[1], at.cg[1] + s * p[0] + c * p[1], at.cg[2] + p[2]};
  return line;
}

Aim AimOf(const Task& task, const Hydrostatics& upright, const BalanceAim& still) {
  Aim aim;
  aim.mode = BalanceMode(task.settings.balance);
  const bool own = task.settings.balance < 3;
  aim.force = own ? upright.force[2] : still.force;
  aim.moment = own ? SecondMoment(task, upright) : still.moment;
  aim.force_tolerance = kTolerance * aim.force;
  aim.moment_tolerance = kTolerance * task.body.length * aim.force;
  return aim;
}

bool CalcRows(const Task& task, const Aim& aim, ArmCurve& out) {
  const State as_it_stands{task.ship.cg[2], 0};
  State upright = as_it_stands;
  if (!AddRow(task, aim, 0, upright, out, out.side[0])) return false;
  if (out.side[0].empty()) return true;
  out.side[1] = out.side[0];
  out.computed = true;
  for (std::size_t s = 0; s < 2; ++s) {
    State state = upright;
    for (int i = 1; i <= task.settings.nangle; ++i) {
      const double angle = static_cast<double>(i) / task.settings.nangle * task.settings.max_angle;
      if (!AddRow(task, aim, s == 0 ? angle : -angle, state, out, out.side[s])) return false;
    }
  }
  return true;
}

double VanishingAngle(const std::vector<ArmRow>& rows, double sign) {
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const double before = sign * rows[i - 1].arm, here = sign * rows[i].arm;
    if (before > 0 && here <= 0)
      return rows[i - 1].angle_deg + (rows[i].angle_deg - rows[i - 1].angle_deg) * before / (before - here);
  }
  return rows.back().angle_deg;
}

const ArmRow& ExtremeOf(const std::vector<ArmRow>& rows, double sign) {
  const ArmRow* best = &rows.front();
  for (const ArmRow& row : rows)
    if (sign * row.arm > sign * best->arm) best = &row;
  return *best;
}

}  // namespace

bool CalcArmCurve(const HydrostaticBody& body, const WaterSurface& water, const Attitude& attitude,
                  const ArmSettings& settings, const BalanceAim& still, int threads, ArmCurve& out) {
  out = ArmCurve{};
  HydrostaticWork work;
  work.threads = threads;
  const Task task{body, water, attitude, settings, work};
  const bool done = Guarded(
      [&] {
        if (EvalHydrostatics(body, water, attitude, kAllHydrostatics, work, out.upright) != HydrostaticFault::none)
          return false;
        out.waterline = GlobalWaterline(work);
        if (!(out.upright.force[2] > 0)) {
          out.notes.push_back({RowFault::no_force, 0});
          return true;
        }
        return CalcRows(task, AimOf(task, out.upright, still), out);
      },
      false);
  if (!done) out = ArmCurve{};
  return done;
}

ArmStatistics CalcArmStatistics(const ArmCurve& curve) {
  ArmStatistics out;
  const std::vector<ArmRow>&positive = curve.side[0], &negative = curve.side[1];
  if (positive.empty() || negative.empty()) return out;
  out.effective_arm = positive.front().arm;
  if (positive.size() > 1 && negative.size() > 1)
    out.effective_GM =
        (positive[1].arm - negative[1].arm) / ((positive[1].angle_deg - negative[1].angle_deg) * kRadians);
  const ArmRow &highest = ExtremeOf(positive, 1), &lowest = ExtremeOf(negative, -1);
  out.max_arm = highest.arm, out.max_angle_deg = highest.angle_deg;
  out.min_arm = lowest.arm, out.min_angle_deg = lowest.angle_deg;
  out.vanish_deg = VanishingAngle(positive, 1);
  out.negative_vanish_deg = VanishingAngle(negative, -1);
  return out;
}

}  // namespace zaview
