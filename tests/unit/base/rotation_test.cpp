#include "base/rotation.h"

#include <gtest/gtest.h>

namespace zaview {
namespace {

constexpr double kQuarter = 1.5707963267948966;

TEST(Rotation, QuarterTurns) {
  const struct {
    double roll, pitch, yaw;
    Vector3 ship, global;
  } cases[] = {
      {kQuarter, 0, 0, {0, 1, 0}, {0, 0, 1}},         // roll lifts port (y) up
      {0, kQuarter, 0, {1, 0, 0}, {0, 0, -1}},        // pitch puts the bow down
      {0, 0, kQuarter, {1, 0, 0}, {0, 1, 0}},         // yaw turns the bow to port
      {kQuarter, 0, kQuarter, {0, 1, 0}, {0, 0, 1}},  // roll acts first
      {kQuarter, kQuarter, 0, {0, 1, 0}, {1, 0, 0}},  // then pitch
      {0, kQuarter, kQuarter, {0, 0, 1}, {0, 1, 0}},  // then yaw
  };
  for (const auto& c : cases) {
    const Rotation rotation = ShipToGlobal(c.roll, c.pitch, c.yaw);
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_NEAR(ToGlobal(rotation, c.ship)[i], c.global[i], 1e-15);
      EXPECT_NEAR(ToShip(rotation, c.global)[i], c.ship[i], 1e-15);
    }
  }
}

}  // namespace
}  // namespace zaview
