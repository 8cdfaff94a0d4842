#include "case/ship_pose.h"

#include <gtest/gtest.h>

#include "small_case.h"

namespace zaview {
namespace {

void ExpectNear(const Vector3& got, const Vector3& expected, double tolerance) {
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(got[i], expected[i], tolerance) << i;
}

// Places were made elsewhere from three plane rotations, roll first, yaw last.
TEST(ShipPose, AtAStepAndAtTheStart) {
  CaseStore c = SmallCase(3, 2);  // pmgg 0.1 + 0.05 i + 0.01 s; CG at 0.01, 0, -0.0125
  const Vector3 r = FromCentre(c, {0.31, -0.2, 0.0875});
  ExpectNear(r, {0.3, -0.2, 0.1}, 1e-15);
  const ShipPose pose = PoseAtStep(c, 4);
  ExpectNear(pose.cg, {0.19, 0.24, 0.29}, 1e-7);
  ExpectNear(ShipToEarth(pose, r), {0.545045907483, 0.161888423879, 0.201450662027}, 2e-7);
  ExpectNear(EarthToShip(pose, ShipToEarth(pose, r)), r, 1e-15);
  ExpectNear(ShipToEarth(PoseAtStart(c), r), {0.332206006406, -0.157553041885, 0.0557510567921},
             1e-9);  // PMGIN 1 2 -1.25 m, 3 4 5 degrees; L 100 m
  EXPECT_NEAR(StillWater(c), -0.0125 + 0.0125, 1e-15);
  c.control.PMGIN[2] = 2;
  EXPECT_NEAR(StillWater(c), -0.0325, 1e-15);  // the CG is 2 m above the water
  c.ships.clear();
  ExpectNear(FromCentre(c, {1, 2, 3}), {1, 2, 3}, 0);
}

}  // namespace
}  // namespace zaview
