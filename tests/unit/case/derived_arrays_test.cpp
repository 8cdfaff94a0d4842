#include "case/derived_arrays.h"

#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "case/ship_pose.h"
#include "case/smooth_stored.h"
#include "case/smoothing.h"
#include "small_case.h"

namespace zaview {
namespace {

// Expected values: the formulas in double by another program from the same 4-byte histories.
TEST(DerivedArrays, FollowTheFormulasAtBothEnds) {
  CaseStore c = SmallCase(1, 8);
  // clang-format off
  const struct { Derived what; StepHistory CaseStore::*history; int step, first; std::array<float, 6> want; } rows[] = {
      {Derived::motion, &CaseStore::motion, 1, 1,
       {0.149999991F, 0.189999998F, 0.272499979F, 0.257640123F, 0.290186852F, 0.322733521F}},
      {Derived::motion, &CaseStore::motion, 8, 1,
       {0.0887500048F, 0.25999999F, 0.342500001F, 0.327640116F, 0.360186845F, 0.392733514F}},
      {Derived::vmgshp, &CaseStore::vmgshp, 1, 1, {-0.119906865F, 0.00283109606F, -0.0146399578F, 0.1F, 0.17F, 0.24F}},
      {Derived::vmgg, &CaseStore::vmgg, 8, 1, {0.03F, 0.1F, 0.17F, 0.29865101F, 0.32113722F, 0.325235993F}},
      {Derived::accg, &CaseStore::accg, 1, 1,
       {0.243637323F, 0.277995318F, 0.135773495F, 0.122850552F, 0.140805423F, 0.036831677F}},
      {Derived::force_ship, &CaseStore::force_ship, 8, 25,
       {0.00246686791F, 0.00307277916F, 0.00390033214F, 0.0027096034F, 0.00335495686F, 0.00426289951F}},
      {Derived::maneuver, &CaseStore::maneuver, 1, 1, {0.117046997F, 3.08036375F, 0.41F, 0.101F, 0.201F, 2.001F}},
  };
  // clang-format on
  for (const auto& row : rows) {
    ASSERT_TRUE(EnsureDerived(c, row.what));
    for (int i = 0; i < 6; ++i) {
      const float want = row.want[static_cast<std::size_t>(i)];
      EXPECT_NEAR((c.*row.history).at(row.first + i, row.step), want, 2e-6F * std::fabs(want))
          << static_cast<int>(row.what) << ' ' << row.step << ' ' << i;
    }
  }
  DropDerived(c);
  for (std::vector<float>& column : c.vmg.component) column[0] = 0.0F;  // a ship at rest has no slip
  ASSERT_TRUE(EnsureDerived(c, Derived::vmgg) && EnsureDerived(c, Derived::maneuver));
  EXPECT_EQ(c.vmgg.at(1, 1), 0.0F);
  EXPECT_EQ(c.maneuver.at(2, 1), 0.0F);
}

// A part that begins at step 371 counts its steady advance from step 1 of the whole run; over a long run a 4-byte U DTH
// would be wrong in the fourth place.
TEST(DerivedArrays, SteadyAdvanceCountsAllStepsWithoutDrift) {
  for (const auto& [first, n] : {std::pair{371, 2}, {1, 200000}}) {
    CaseStore c = SmallCase(first, n);
    const int last = first + n - 1;
    const double advance = 0.01 + 0.01875 * (last - 1);
    c.pmgg.component[0].back() = static_cast<float>(advance);
    ASSERT_TRUE(EnsureDerived(c, Derived::motion));
    EXPECT_NEAR(c.motion.at(1, last), c.pmgg.at(1, last) - advance, 1e-9);
  }
}

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
  ExpectNear(ShipToEarth(PoseAtStart(c), r), {0.332206006406, -0.157553041885, 0.0557510567921},
             1e-9);  // PMGIN 1 2 -1.25 m, 3 4 5 degrees; L 100 m
  EXPECT_NEAR(StillWater(c), -0.0125 + 0.0125, 1e-15);
  c.control.PMGIN[2] = 2;
  EXPECT_NEAR(StillWater(c), -0.0325, 1e-15);  // the CG is 2 m above the water
  c.ships.clear();
  ExpectNear(FromCentre(c, {1, 2, 3}), {1, 2, 3}, 0);
}

// Expected values by numpy.polyfit over each window.
TEST(Smoothing, LeastSquaresFits) {
  constexpr float kSamples[] = {0.5F, -1.25F, 3, 2, 8, -4, 0.75F, 1, 6, -2.5F, 3.5F, 7};
  // clang-format off
  const struct { int option, width; std::vector<double> fits; } cases[] = {
      {1, 99, {0.264285714, -0.107142857, 0.985714286, 5.19285714, 2.87857143, 0.8, -1.86428571, 3.35714286, 2.03571429,
               1.35714286, 3.12857143, 6.54285714}},
      {1, 1, {-0.0625, 0.4375, 1.3125, 2.5625}}, {1, 1, {0.5, -1.25, 3.0}}, {1, 1, {0.5}},
      {3, 11, {-0.482517483, 1.21153846, 2.11247086, 2.4020979, 2.26223776, 1.87470862, 1.42249417, 0.730769231,
               0.554195804, 1.26515152, 3.23601399, 6.83916084}},
      {3, 6, {0.75, -1.51785714, 1.57142857, 5.39285714, 2.54365079, 0.325396825, -0.861111111, 3.08730159, 1.73412698,
              1.03174603, 1.8234127, 7.31746032}},
      {3, 50, {-0.6996337, 1.32009657, 2.32958708, 2.57398157, 2.2984238, 1.7480575, 1.16802642, 0.803474303, 0.8995449,
               1.70138195, 3.4541292, 6.4029304}},
      {3, 3, {0.5, -1.25, 3.0, 2.0}}, {3, 0, {0.5, -1.25, 3.0}}};
  // clang-format on
  for (const auto& c : cases) {
    std::vector<float> output(c.fits.size());
    ASSERT_EQ(TimeDataFilter(c.option, c.width, std::span(kSamples).first(output.size()), output), FilterStatus::ok);
    for (std::size_t i = 0; i < output.size(); ++i)
      EXPECT_NEAR(output[i], c.fits[i], 1e-6) << c.option << ' ' << c.width << ' ' << i;
  }
}

TEST(Smoothing, ConstantsStayAndOddInput) {
  const std::vector<float> constant(300, 0.1F);
  std::vector<float> smooth(300), samples(20, 1), output(20, 5);
  for (const int option : {1, 3})
    for (const int width : {5, 11, 12, 101}) {
      EXPECT_EQ(TimeDataFilter(option, width, constant, smooth), FilterStatus::ok);
      EXPECT_EQ(smooth, constant) << option << ' ' << width;
    }
  EXPECT_EQ(TimeDataFilter(2, 11, samples, output), FilterStatus::bad_option);
  EXPECT_EQ(output[0], 5);
  samples[10] = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(TimeDataFilter(1, 5, samples, output), FilterStatus::ok);
  for (std::size_t i = 0; i < 20; ++i) EXPECT_EQ(std::isnan(output[i]), i >= 8 && i <= 12) << i;
}

// Half a minute of work for each curve: what is not smoothed when the user stops it stays, and no further curve begins.
TEST(Smoothing, EndsWithAnInterrupt) {
  static int looks = 0;  // the record of the console takes no state of a test
  static std::string said;
  looks = 0;
  Console console;
  console.write = [](void*, std::string_view text) { said += text; };
  console.flush = [](void*) {};
  console.take_interrupt = [](void*) { return ++looks == 2; };
  constexpr int kSteps = 100'000;
  CaseStore c;
  c.pmgg.component.assign(2, std::vector<float>(kSteps));
  for (std::size_t i = 0; i < kSteps; ++i) c.pmgg.component[0][i] = c.pmgg.component[1][i] = i % 2 == 0 ? 1.0F : -1.0F;
  const StepHistory before = c.pmgg;
  EXPECT_FALSE(SmoothStored(console, 3, kSteps, c));
  EXPECT_EQ(looks, 2);
  EXPECT_EQ(c.pmgg.component, before.component);
  EXPECT_EQ(said,
            "Smoothing interrupted\nWARNING - only a part of the stored data is smoothed: read the file again to have "
            "all as it was\n");
  EXPECT_TRUE(SmoothStored(console, 3, 11, c));  // looked for in vain
  EXPECT_NE(c.pmgg.component[1], before.component[1]);
}

}  // namespace
}  // namespace zaview
