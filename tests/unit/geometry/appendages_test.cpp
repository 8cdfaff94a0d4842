#include "geometry/appendages.h"

#include <numbers>

#include <gtest/gtest.h>

#include "geometry/input_transform.h"

namespace zaview {
namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;

// Input is twice as long as 1, in degrees, moved by 10 along x and turned a quarter about z: ship = (10 - y, x, z) / 2.
ControlRecords Moved() {
  ControlRecords records;
  records.LENIN = 2;
  records.ANGIN = kDegrees;
  records.GSHIFT = {10, 0, 0};
  records.GROT = {0, 0, 90};
  return records;
}

void ExpectNear(const PlateCorners& got, const PlateCorners& wanted, double tolerance) {
  for (std::size_t i = 0; i < 4; ++i)
    for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(got[i][k], wanted[i][k], tolerance) << i << " " << k;
}

TEST(Appendages, StandWhereTheirRecordsPutThem) {
  ControlRecords degrees;
  degrees.ANGIN = kDegrees;
  const AppendageInput rudder{{-48, 0, 3}, {0, 0, 5}, {0.5, 0, 0}, 6, 4, 10};  // only directions of the vectors count
  ExpectNear(AppendageCorners(degrees, rudder),
             {{{-49.970, -0.347, 0}, {-46.030, 0.347, 0}, {-46.030, 0.347, 6}, {-49.970, -0.347, 6}}}, 5e-4);
  const AppendageInput keel{{0, 6, 4}, {1, 0, 0}, {0, 1, -1}, 20, std::numbers::sqrt2, 0};
  ExpectNear(AppendageCorners(degrees, keel), {{{-10, 5.5, 4.5}, {-10, 6.5, 3.5}, {10, 6.5, 3.5}, {10, 5.5, 4.5}}},
             1e-12);
  // A chord of 4 along input x at (-6, 2, 0) lies along ship y about (4, -3, 0), half as long; then turned by 90
  // degrees about ship z.
  const AppendageInput fin{{-6, 2, 0}, {0, 0, 1}, {1, 0, 0}, 2, 4, 0};
  ExpectNear(ShipAppendage(Moved(), fin, std::numbers::pi / 2),
             {{{5, -3, -0.5}, {3, -3, -0.5}, {3, -3, 0.5}, {5, -3, 0.5}}}, 1e-12);
}

TEST(Appendages, RuddersStandUprightAftOfTheCentre) {
  const ControlRecords records = Moved();  // the fins' ship x is 10 / 2 less half of their y
  struct Row {
    const char* what;
    double y;
    Vector3 span;
    bool rudder;
  };
  const Row kRows[] = {{"upright, aft", 12, {0, 0, -3}, true},
                       {"forward", 8, {0, 0, 1}, false},
                       {"within 45 degrees", 12, {0, 0.9, 1}, true},
                       {"beyond", 12, {1.1, 0, 1}, false}};
  for (const Row& row : kRows)
    EXPECT_EQ(IsRudder(records, {{0, row.y, 0}, row.span, {1, 0, 0}, 1, 1, 0}, {}), row.rudder) << row.what;
  constexpr Vector3 kPoint{1, 2, 3};
  const Vector3 there = ShipToInput(TransformOf(records), InputToShip(records, kPoint));
  for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(there[k], kPoint[k], 1e-12);
}

}  // namespace
}  // namespace zaview
