#include "case/point_motion.h"

#include <cmath>

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

constexpr std::array<double, 3> kPoint{40.0, 3.0, 12.0};

// Expected values: the formulas in double by another program from the same 4-byte histories.
TEST(PointMotion, PositionVelocityAcceleration) {
  FakePlatform fake;
  CaseStore c = SmallCase(1, 8);
  const OutputSettings settings = SettingsFor(c);
  ASSERT_TRUE(NodePointMot(fake.Get().console, settings, kPoint, c));
  EXPECT_EQ(fake.output, "Calculating motion for ship fixed point...\nInitial static coordinates 40 3 5.75\n");
  const float at_1[] = {0.51636672F,     0.372756094F, 0.193568155F, -0.157478139F, 0.0503447689F,
                        -0.00334949675F, 0.202491209F, 0.293199241F, 0.125837982F};
  const float at_8[] = {0.571712971F, 0.460036457F, 0.236623719F, -0.0585409403F, 0.239024282F,
                        0.11403133F,  0.188534215F, 0.34739849F,  0.182794899F};
  for (int i = 1; i <= 9; ++i) {
    EXPECT_NEAR(c.point_motion.at(i, 1), at_1[i - 1], 1e-7F) << i;
    EXPECT_NEAR(c.point_motion.at(i, 8), at_8[i - 1], 1e-7F) << i;
  }
}

TEST(PointMotion, TheSamePointIsNotCalculatedAgain) {
  FakePlatform fake;
  CaseStore c = SmallCase(371, 3);
  const OutputSettings settings = SettingsFor(c);
  ASSERT_TRUE(NodePointMot(fake.Get().console, settings, kPoint, c));
  fake.output.clear();
  ASSERT_TRUE(NodePointMot(fake.Get().console, settings, kPoint, c));
  EXPECT_EQ(fake.output, "");
  ASSERT_TRUE(NodePointMot(fake.Get().console, settings, {40.0, 3.0, 12.5}, c));
  EXPECT_NE(fake.output, "");
}

// The CG itself moves as the ship does, whatever the rotations.
TEST(PointMotion, TheCentreOfGravityIsPmgg) {
  FakePlatform fake;
  CaseStore c = SmallCase(1, 4);
  ASSERT_TRUE(NodePointMot(fake.Get().console, SettingsFor(c), {1.0, 0.0, 5.0}, c));
  for (int i = 1; i <= 3; ++i) {
    EXPECT_NEAR(c.point_motion.at(i, 4), c.pmgg.at(i, 4), 1e-7F);
    EXPECT_NEAR(c.point_motion.at(i + 3, 4), c.vmg.at(i, 4), 1e-7F);
  }
}

}  // namespace
}  // namespace zaview
