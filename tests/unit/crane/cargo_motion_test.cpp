#include "analysis/crane/cargo_motion.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

#include <gtest/gtest.h>

#include "analysis/crane/ship_motion.h"

namespace zaview {
namespace {

constexpr double kDegree = std::numbers::pi / 180, kStep = 0.025;

// 20 t on 15 m of cable, 0.002 m2 of 2E11 N/m2, a tip that stands still at the origin.
CraneModel Hanging(bool rigid, double degrees) {
  CraneModel m;
  m.rigid = rigid;
  m.gravity = 9.81;
  m.mass = 20000;
  m.length = 15;
  m.EA = 0.002 * 2e11;
  m.start.elevation = degrees * kDegree;
  return m;
}

ShipMotion Ship(double time, double surge = 0, double velocity = 0, double acceleration = 0) {
  ShipMotion ship;
  ship.time = time;
  ship.to_next = kStep;
  ship.R = ShipToGlobal(0, 0, 0);
  ship.cg[0] = surge;
  ship.velocity[0] = velocity;
  ship.acceleration[0] = acceleration;
  return ship;
}

// visit(step, state) after each step of a ship that moves as `ship` says.
void RunCrane(const CraneModel& m, int steps, const std::function<ShipMotion(double)>& ship,
              const std::function<void(int, const CraneState&)>& visit) {
  CraneState state;
  ASSERT_EQ(StartCrane(m, ship(0), state), CraneFault::none);
  visit(0, state);
  for (int i = 0; i < steps; ++i) {
    ASSERT_EQ(AdvanceCrane(m, ship(i * kStep), ship((i + 1) * kStep), state), CraneFault::none) << i;
    visit(i + 1, state);
  }
}
const auto kStill = [](double t) { return Ship(t); };

// Mean period of x over its passages of 0.
double Period(const CraneModel& m, int steps) {
  double first = 0, last = 0, before = 0;
  int n = 0;
  RunCrane(m, steps, kStill, [&](int i, const CraneState& state) {
    const double x = state.cargo.cg[0];
    if (i > 0 && (x > 0) != (before > 0)) {
      last = (i - x / (x - before)) * kStep;
      if (n++ == 0) first = last;
    }
    before = x;
  });
  return 2 * (last - first) / (n - 1);
}

double Energy(const CraneModel& m, const CraneState& state) {
  const Vector3& v = state.cargo.velocity;
  return (v[0] * v[0] + v[1] * v[1] + v[2] * v[2]) / 2 + m.gravity * state.cargo.cg[2];
}

TEST(CargoMotion, PeriodsOfAPendulum) {
  // 2 pi sqrt(l/g) (1 + a^2/16 + 11 a^4/3072 + ..); of the elastic cable under load
  EXPECT_NEAR(Period(Hanging(true, 2), 3200), 7.770055, 5e-5);
  EXPECT_NEAR(Period(Hanging(true, 30), 3200), 7.904720, 5e-5);
  EXPECT_NEAR(Period(Hanging(false, 2), 3200), 7.77196, 2e-4);
  EXPECT_NEAR(StaticStretch(Hanging(false, 0)), 7.3575e-3, 1e-12);
}

TEST(CargoMotion, EnergyIsKeptOver1000Periods) {
  const CraneModel m = Hanging(true, 30);
  double low = 1e9, high = -1e9, start = 0, worst = 0;
  RunCrane(m, 316189, kStill, [&](int i, const CraneState& state) {
    if (i == 0) start = Energy(m, state);
    low = std::min(low, state.cargo.cg[2] * m.gravity);
    high = std::max(high, state.cargo.cg[2] * m.gravity);
    worst = std::max(worst, std::abs(Energy(m, state) - start));
  });
  EXPECT_LT(worst / (high - low), 1e-4);
}

// A body of three different inertias swings and turns widely: its energy, that of the cable with it, is kept, and its
// moment of momentum about the vertical through the tip.
TEST(CargoMotion, ABodyKeepsEnergyAndMomentOfMomentum) {
  for (const bool rigid : {true, false}) {
    CraneModel m = Hanging(rigid, 25);
    m.EA /= 100;  // a soft cable
    m.rotates = true;
    m.inertia = {{{3e4, 1e3, 0}, {1e3, 5e4, 2e3}, {0, 2e3, 2e4}}};
    ASSERT_TRUE(InvertInertia(m.inertia, m.inverse));
    m.s = {0.3, -0.2, -1.5};
    m.start.azimuth = 0.5;
    m.start.euler = {0.4, -0.6, 1};
    double energy0 = 0, momentum0 = 0;
    RunCrane(m, 1600, kStill, [&](int i, const CraneState& state) {
      const CargoState& c = state.cargo;
      const CraneSnapshot at = SnapshotOf(m, Ship(0), state);
      Vector3 Iw{};
      for (std::size_t k = 0; k < 3; ++k)
        Iw[k] = m.inertia[k][0] * c.spin[0] + m.inertia[k][1] * c.spin[1] + m.inertia[k][2] * c.spin[2];
      const double stretch = std::max(0.0, std::hypot(at.end[0], at.end[1], at.end[2]) - m.length);
      const double cable = rigid ? 0.0 : m.EA / m.length * stretch * stretch / 2 / m.mass;
      const double energy =
          Energy(m, state) + (Iw[0] * c.spin[0] + Iw[1] * c.spin[1] + Iw[2] * c.spin[2]) / 2 / m.mass + cable;
      const double momentum = ToGlobal(at.Q, Iw)[2] + m.mass * Cross(c.cg, c.velocity)[2];
      if (i == 0) {
        energy0 = energy;
        momentum0 = momentum;
      }
      EXPECT_NEAR(energy, energy0, 2e-4 * 9.81 * 15 * (1 - std::cos(25 * kDegree))) << rigid << i;
      EXPECT_NEAR(momentum, momentum0, 20) << rigid << i;  // of 1e5 and more
    });
  }
}

TEST(CargoMotion, DampedAndDrivenAsInClosedForm) {
  CraneModel m = Hanging(true, 2);
  m.z.fill(0.02);
  std::vector<double> tops;
  double before = 1, rate = 0;
  RunCrane(m, 3000, kStill, [&](int i, const CraneState& state) {
    const double x = state.cargo.cg[0];
    if (i > 1 && rate > 0 && x < before) tops.push_back(before);
    rate = x - before;
    before = x;
  });
  ASSERT_GT(tops.size(), 4U);
  EXPECT_NEAR(std::log(tops[0] / tops[3]) / 3, 2 * std::numbers::pi * 0.02 / std::sqrt(1 - 0.0004), 2e-4);

  // tip 0.1 sin(0.5 t): dX = 0.1 w^2/(w0^2 - w^2) sin(0.5 t), started as it goes on
  m = Hanging(true, 0);
  const double w0_squared = 9.81 / 15, w = 0.5, forced = 0.1 * w * w / (w0_squared - w * w);
  m.start.elevation = -1e-9;
  double largest = 0;
  CraneState state;
  const auto ship = [w](double t) {
    return Ship(t, 0.1 * std::sin(w * t), 0.1 * w * std::cos(w * t), -0.1 * w * w * std::sin(w * t));
  };
  ASSERT_EQ(StartCrane(m, ship(0), state), CraneFault::none);
  state.cargo.velocity[0] += forced * w;
  for (int i = 0; i < 4000; ++i) {
    ASSERT_EQ(AdvanceCrane(m, ship(i * kStep), ship((i + 1) * kStep), state), CraneFault::none);
    const double t = (i + 1) * kStep;
    largest = std::max(largest, std::abs(state.cargo.cg[0] - 0.1 * std::sin(w * t) - forced * std::sin(w * t)));
  }
  EXPECT_NEAR(forced, 0.0618812, 1e-7);
  EXPECT_LT(largest, 5e-6);  // of third order in the angle
}

TEST(CargoMotion, ACargoThatTurnsIsADoublePendulum) {
  // angles a of the cable, b of the cargo:
  const double m_ = 20000, l = 15, s = 2, I = 1e4, g = 9.81;
  // l a'' + s b'' + g a = 0, m s l a'' + (I + m s^2) b'' + m g s b = 0
  const double A = l * (I + m_ * s * s) - s * m_ * s * l, B = -(l * m_ * g * s + g * (I + m_ * s * s)),
               C = g * m_ * g * s;
  const double root = std::sqrt(B * B - 4 * A * C);
  const double slow = 2 * std::numbers::pi / std::sqrt((-B - root) / (2 * A));
  const double fast = 2 * std::numbers::pi / std::sqrt((-B + root) / (2 * A));
  EXPECT_NEAR(slow, 8.278471, 1e-6);
  EXPECT_NEAR(fast, 0.941361, 1e-6);
  for (const bool rigid : {true, false}) {
    for (const double period : {slow, fast}) {
      CraneModel m = Hanging(rigid, 0);
      m.rotates = true;
      m.inertia = {{{I, 0, 0}, {0, I, 0}, {0, 0, I}}};
      ASSERT_TRUE(InvertInertia(m.inertia, m.inverse));
      m.s = {0, 0, -s};
      // start in the mode: from the first equation (g - w^2 l) a = w^2 s b
      const double w2 = std::pow(2 * std::numbers::pi / period, 2);
      const double b = 0.2 * kDegree, a = w2 * s * b / (g - w2 * l);
      m.start.elevation = a;
      m.start.euler = {0, -b, 0};
      EXPECT_NEAR(Period(m, 4000), period, 0.002 * period) << rigid;
    }
  }
}

TEST(CargoMotion, ASlackCableLetsTheCargoFly) {
  // the tip falls away with 2 g for 1 s, then stays in that speed: the cargo falls free until the cable is taut again
  const CraneModel m = Hanging(true, 0);
  const auto ship = [](double t) {
    ShipMotion ship = Ship(t);
    const double fall = std::min(t, 1.0);
    ship.cg[2] = -9.81 * fall * fall - 2 * 9.81 * (t - fall);
    ship.velocity[2] = -2 * 9.81 * fall;
    ship.acceleration[2] = t < 1 - kStep / 2 ? -2 * 9.81 : 0;
    return ship;
  };
  RunCrane(m, 40, ship, [&](int i, const CraneState& state) {
    const double t = i * kStep;
    EXPECT_NEAR(state.cargo.cg[2], -15 - 9.81 * t * t / 2, 1e-3) << t;
    EXPECT_EQ(SnapshotOf(m, ship(t), state).tension[0], 0) << t;
  });
}

TEST(CargoMotion, TwoCablesShareTheLoad) {
  CraneModel m = Hanging(false, 0);
  m.cables = 2;
  m.booms[0].base = {3, 0, 0};
  m.booms[1].base = {-3, 0, 0};
  CraneState first;
  RunCrane(m, 400, kStill, [&](int i, const CraneState& state) {
    if (i == 0) first = state;
    EXPECT_NEAR(state.cargo.cg[2], first.cargo.cg[2], 1e-6);  // the rest position
    const CraneSnapshot at = SnapshotOf(m, Ship(0), state);
    EXPECT_NEAR(at.tension[0] * 2 * -at.end[2] / std::hypot(at.end[2], 3), 20000 * 9.81, 200);
  });
}

TEST(CargoMotion, ABoomThatJumpsTakesItsTipAlong) {  // by 0.3 m within a step of 200 sub-steps, and no further
  CraneModel m = Hanging(true, 0);
  m.booms[0].length = 30;
  m.commands = {{0, 0, 0, 15}, {kStep, 0.01, 0, 15}};
  m.sub_steps = 200;
  double aside = 0;
  RunCrane(m, 300, kStill, [&](int, const CraneState& state) { aside = std::max(aside, state.cargo.cg[1]); });
  EXPECT_NEAR(aside, 0.6, 0.01);  // it swings as far beyond
}

TEST(CargoMotion, WhatCannotBe) {
  CraneModel m = Hanging(false, 0);
  CraneState state;
  m.EA = 20000;  // stretches by more than half
  EXPECT_EQ(StartCrane(m, Ship(0), state), CraneFault::length);
  m.EA = 1e30;
  ASSERT_EQ(StartCrane(m, Ship(0), state), CraneFault::none);
  EXPECT_EQ(AdvanceCrane(m, Ship(0), Ship(kStep), state), CraneFault::too_stiff);
  Matrix3 inverse;
  EXPECT_FALSE(InvertInertia({{{1, 2, 0}, {2, 1, 0}, {0, 0, 1}}}, inverse));
  ASSERT_TRUE(InvertInertia({{{4, 1, 0}, {1, 3, 1}, {0, 1, 2}}}, inverse));
  EXPECT_NEAR(inverse[0][2], 1.0 / 18, 1e-14);
  EXPECT_NEAR(inverse[1][1], 8.0 / 18, 1e-14);
}

// ---- Booms

ShipMotion Rolling(double t) {  // roll and surge, their exact rates
  ShipMotion ship = Ship(t, 2 * std::sin(t), 2 * std::cos(t));
  ship.R = ShipToGlobal(0.3 * std::sin(2 * t), 0, 0);
  ship.spin = {0.6 * std::cos(2 * t), 0, 0};
  ship.spin_rate = {-1.2 * std::sin(2 * t), 0, 0};
  ship.acceleration = ToShip(ship.R, {-2 * std::sin(t), 0, 0});
  return ship;
}

TEST(CraneBoom, TipMovesWithShipAndBoom) {
  const Boom boom{{1, 2, 16}, 25, 0, 0};
  const auto tip = [&](double t) {
    return BoomTip(Rolling(t), boom, {0.4 + 0.2 * t + 0.05 * t * t, 0.2 + 0.1 * t, 0.1},
                   {0.8 - 0.1 * t + 0.02 * t * t, -0.1 + 0.04 * t, 0.04});
  };
  constexpr double t = 0.7, d = 1e-4;
  const PointMotion at = tip(t), before = tip(t - d), after = tip(t + d),
                    middle = MotionBetween(before, after, 2 * d, 0.5);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(at.velocity[i], (after.place[i] - before.place[i]) / (2 * d), 1e-6);
    EXPECT_NEAR(at.acceleration[i], (after.velocity[i] - before.velocity[i]) / (2 * d), 1e-5);
    EXPECT_NEAR(middle.place[i], at.place[i], 1e-12);
    EXPECT_NEAR(MotionBetween(tip(0), tip(0.2), 0.2, 0.5).place[i], tip(0.1).place[i], 1e-5);
  }
}

TEST(CraneBoom, FollowsCommandsWithinItsLimits) {
  const std::vector<CraneCommand> commands = {{1, 0, 0, 10}, {3, 0, 0, 14}};
  EXPECT_EQ(CommandAt(commands, 0).length, 10);
  EXPECT_EQ(CommandAt(commands, 2.5).length, 13);
  EXPECT_EQ(CommandAt(commands, 9).length, 14);

  // 8 from rest to rest, at most 2 a second, 1 a second squared: 2 s up, 2 s even, 2 s down
  const AxisLimits limits{2, 1, 0, 0};
  CraneAxis axis;
  constexpr double h = 0.001;
  for (int i = 1; i <= 7000; ++i) {
    FollowTarget(limits, 8, h, axis);
    const double t = i * h;
    const double rate = std::clamp(std::min(t, 6 - t), 0.0, 2.0);
    EXPECT_NEAR(axis.rate, rate, 0.07) << t;  // the end is crept to
    EXPECT_LE(std::abs(axis.change), 1 + 1e-9);
  }
  EXPECT_NEAR(axis.value, 8, 1e-4);
  CraneAxis stopped;
  for (int i = 0; i < 100; ++i) FollowTarget({0, 0, -1, 0.5}, i, 0.1, stopped);
  EXPECT_EQ(stopped.value, 0.5);
  EXPECT_EQ(stopped.rate, 0);
  CraneAxis outside{2, 0, 0};
  FollowTarget({1, 0, -1, 0.5}, 0, 0.1, outside);
  EXPECT_NEAR(outside.value, 1.9, 1e-12);
}

TEST(ShipMotion, DerivativesOfAPolynomial) {  // of the fourth degree: exact, wherever the places are; of one place 0
  const std::vector<double> x = {-1, -0.4, 0.1, 0.7, 2};
  const auto f = [](double t) { return 3 - t + 2 * t * t - t * t * t + 0.5 * t * t * t * t; };
  for (const double x0 : {-1.0, 0.1, 1.5}) {
    const DerivativeWeights weights = WeightsAt(x0, x);
    double first = 0, second = 0;
    for (std::size_t k = 0; k < x.size(); ++k) {
      first += weights.first[k] * f(x[k]);
      second += weights.second[k] * f(x[k]);
    }
    EXPECT_NEAR(first, -1 + 4 * x0 - 3 * x0 * x0 + 2 * x0 * x0 * x0, 1e-11) << x0;
    EXPECT_NEAR(second, 4 - 6 * x0 + 6 * x0 * x0, 1e-11) << x0;
  }
  EXPECT_EQ(WeightsAt(0, std::span(x).first(1)).first[0], 0);
}

TEST(CargoMotion, AnglesThereAndBack) {
  const Vector3 euler = {0.3, -0.4, 2.5};
  const Rotation Q = TurnOf(QuaternionOf(euler)), R = ShipToGlobal(euler[0], euler[1], euler[2]);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(EulerOf(Q)[i], euler[i], 1e-14);
    for (std::size_t j = 0; j < 3; ++j) EXPECT_NEAR(Q.r[i][j], R.r[i][j], 1e-15);
  }
}

}  // namespace
}  // namespace zaview
