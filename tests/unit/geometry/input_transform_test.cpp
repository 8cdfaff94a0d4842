#include "geometry/input_transform.h"

#include <gtest/gtest.h>

namespace zaview {
namespace {

TEST(InputTransform, RotatesAboutTheOriginThenShifts) {
  ControlRecords r;
  r.LENIN = 100;
  r.ANGIN = 57.29578;
  r.GORIG = {1, 2, 6.25};
  r.GSHIFT = {0.5, -0.25, -1};
  r.GROT = {10, -20, 30};
  const Vector3 p = InputToShip(r, {12, -3, 7});  // expected: three plane rotations one after the other, elsewhere
  EXPECT_NEAR(p[0], 0.12017309621574734, 1e-15);
  EXPECT_NEAR(p[1], 0.005633478105994998, 1e-15);
  EXPECT_NEAR(p[2], 0.026404044307981836, 1e-15);
}

}  // namespace
}  // namespace zaview
