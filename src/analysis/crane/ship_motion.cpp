#include "analysis/crane/ship_motion.h"

#include <algorithm>
#include <cmath>

#include "base/angles.h"
#include "case/ship_pose.h"
#include "control/input_scales.h"

namespace zaview {
namespace {

constexpr double kSameStep = 1e-3;      // of a step: stored times tell another duration
constexpr double kTimeRounding = 2e-7;  // of a stored time

Vector3 FromStore(const StepHistory& history, int first, int step) {
  const auto real = [&](int i) { return static_cast<double>(history.at(i, step)); };
  return {real(first), real(first + 1), real(first + 2)};
}

double Duration(double from, double to, double DTH) {
  const double stored = to - from;
  return std::abs(stored - DTH) <= kSameStep * DTH + kTimeRounding * std::abs(to) ? DTH : stored;
}

struct Rates {  // of position and Euler angles
  std::array<double, 6> first{}, second{};
};

Rates RatesFromPositions(const CaseStore& store, int step) {
  constexpr int kAside = static_cast<int>(kMostPoints) / 2;
  const int points = std::min(static_cast<int>(kMostPoints), store.last_step - store.first_step + 1);
  const int from = std::clamp(step - kAside, store.first_step, store.last_step - points + 1);
  std::array<double, kMostPoints> time{};
  const auto n = static_cast<std::size_t>(points);
  for (std::size_t k = 0; k < n; ++k) time[k] = store.time.at(1, from + static_cast<int>(k));
  const DerivativeWeights weights = WeightsAt(store.time.at(1, step), std::span(time).first(n));
  Rates rates;
  for (std::size_t i = 0; i < 6; ++i) {
    const int component = static_cast<int>(i) + 1;
    const double here = store.pmgg.at(component, step);
    for (std::size_t k = 0; k < n; ++k) {
      double apart = store.pmgg.at(component, from + static_cast<int>(k)) - here;
      if (i >= 3) apart = std::remainder(apart, kTwoPi);
      rates.first[i] += weights.first[k] * apart;
      rates.second[i] += weights.second[k] * apart;
    }
  }
  return rates;
}

// Spin and its rate in ship axes, from the Euler angles and their rates.
void TakeRates(const Vector3& euler, const Rates& rates, ShipMotion& ship) {
  const double cr = std::cos(euler[0]), sr = std::sin(euler[0]), cp = std::cos(euler[1]), sp = std::sin(euler[1]);
  const double roll = rates.first[3], pitch = rates.first[4], yaw = rates.first[5];
  const double roll2 = rates.second[3], pitch2 = rates.second[4], yaw2 = rates.second[5];
  ship.velocity = {rates.first[0], rates.first[1], rates.first[2]};
  ship.acceleration = ToShip(ship.R, {rates.second[0], rates.second[1], rates.second[2]});
  ship.spin = {roll - yaw * sp, pitch * cr + yaw * sr * cp, -pitch * sr + yaw * cr * cp};
  ship.spin_rate = {roll2 - yaw2 * sp - yaw * cp * pitch,
                    pitch2 * cr - pitch * sr * roll + yaw2 * sr * cp + yaw * (cr * roll * cp - sr * sp * pitch),
                    -pitch2 * sr - pitch * cr * roll + yaw2 * cr * cp - yaw * (sr * roll * cp + cr * sp * pitch)};
}

}  // namespace

ShipMotion ShipMotionAt(const CaseStore& store, int step) {
  const ShipPose pose = PoseAtStep(store, step);
  ShipMotion ship;
  ship.cg = pose.cg;
  ship.R = pose.R;
  ship.time = store.time.at(1, step);
  if (store.kino_input) {
    TakeRates(FromStore(store.pmgg, 4, step), RatesFromPositions(store, step), ship);
  } else {
    ship.velocity = FromStore(store.vmg, 1, step);
    ship.spin = FromStore(store.vmg, 4, step);
    ship.acceleration = FromStore(store.acc, 1, step);
    ship.spin_rate = FromStore(store.acc, 4, step);
  }
  const double DTH = store.control.DTH * InputScalesOf(store.control).time;
  if (step < store.last_step) ship.to_next = Duration(ship.time, store.time.at(1, step + 1), DTH);
  return ship;
}

DerivativeWeights WeightsAt(double x0, std::span<const double> x) {
  std::array<std::array<double, 3>, kMostPoints> c{};  // by point and order
  c[0][0] = 1;
  double c1 = 1;
  for (std::size_t i = 1; i < x.size(); ++i) {
    double c2 = 1;
    for (std::size_t j = 0; j < i; ++j) {
      const double apart = x[i] - x[j];
      c2 *= apart;
      if (j + 1 == i) {
        for (std::size_t k = 2; k > 0; --k)
          c[i][k] = c1 * (static_cast<double>(k) * c[i - 1][k - 1] - (x[i - 1] - x0) * c[i - 1][k]) / c2;
        c[i][0] = -c1 * (x[i - 1] - x0) * c[i - 1][0] / c2;
      }
      for (std::size_t k = 2; k > 0; --k)
        c[j][k] = ((x[i] - x0) * c[j][k] - static_cast<double>(k) * c[j][k - 1]) / apart;
      c[j][0] = (x[i] - x0) * c[j][0] / apart;
    }
    c1 = c2;
  }
  DerivativeWeights weights;
  for (std::size_t i = 0; i < x.size(); ++i) {
    weights.first[i] = c[i][1];
    weights.second[i] = c[i][2];
  }
  return weights;
}

}  // namespace zaview
