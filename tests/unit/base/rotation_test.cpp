#include "base/rotation.h"

#include <cmath>

#include <gtest/gtest.h>

namespace zaview {
namespace {

constexpr double kQuarter = 1.5707963267948966;

struct TurnCase {
  double roll, pitch, yaw;
  Vector3 ship, global;
};

void ExpectNear(const Vector3& got, const Vector3& expected) {
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(got[i], expected[i], 1e-15);
}

TEST(Rotation, QuarterTurns) {
  const TurnCase cases[] = {
      {kQuarter, 0,        0,        {0, 1, 0}, {0, 0, 1} }, // roll lifts port (y) up
      {0,        kQuarter, 0,        {1, 0, 0}, {0, 0, -1}}, // pitch puts the bow down
      {0,        0,        kQuarter, {1, 0, 0}, {0, 1, 0} }, // yaw turns the bow to port
      {kQuarter, 0,        kQuarter, {0, 1, 0}, {0, 0, 1} }, // roll acts first
      {kQuarter, kQuarter, 0,        {0, 1, 0}, {1, 0, 0} }, // then pitch
      {0,        kQuarter, kQuarter, {0, 0, 1}, {0, 1, 0} }, // then yaw
  };
  for (const TurnCase& c : cases) {
    const Rotation rotation = ShipToGlobal(c.roll, c.pitch, c.yaw);
    ExpectNear(ToGlobal(rotation, c.ship), c.global);
    ExpectNear(ToShip(rotation, c.global), c.ship);
  }
}

TEST(Rotation, SmallAnglesAreCrossProduct) {  // R v = v + a x v to first order
  const double roll = 1e-7, pitch = -2e-7, yaw = 3e-7;
  const Vector3 v = {1.0, -2.0, 0.5};
  const Vector3 turned = Cross({roll, pitch, yaw}, v);
  const Vector3 got = ToGlobal(ShipToGlobal(roll, pitch, yaw), v);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(got[i] - v[i], turned[i], 1e-12);
}

}  // namespace
}  // namespace zaview
