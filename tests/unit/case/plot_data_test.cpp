#include "case/plot_data.h"

#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "base/rotation.h"
#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

constexpr std::array<float, 6> kModel = {1, -1, -1, 1, -1, -1};

struct Fixture {
  FakePlatform fake;
  CaseStore c;
  OutputSettings settings;
  PlotData data;

  explicit Fixture(int first = 1, int n = 8) : c(SmallCase(first, n)) {
    AddLoads(c, first, n);
    settings = SettingsFor(c);
  }
  PlotFault Set(int iqnt, int curve) {
    QuantityRequest request;
    request.iqnt = iqnt;
    request.curve = curve;
    request.point = {40.0, 3.0, 12.0};
    request.missile = {1.0F, 2.0F, 3.0F, 4.0F};
    return SetPlotData(fake.Get().console, settings, request, c, data);
  }
};

// Source, scale and sign of each quantity: exact, in the order stored x scale x sign.
TEST(PlotData, StoredTimesScaleTimesSign) {
  Fixture f;
  f.settings.units.cnvfac = kModel;
  const OutputScales& s = f.settings.units.scales;
  const CaseStore& c = f.c;
  const auto slots = [&](int first, int last, int i) {
    float sum = c.force.at(6 * (first - 1) + i, 3);
    for (int slot = first + 1; slot <= last; ++slot) sum += c.force.at(6 * (slot - 1) + i, 3);
    return sum;
  };
  // clang-format off
  const std::tuple<int, int, float> rows[] = {
      {1, 3, -(c.pmgg.at(3, 3) * s.position[2])}, {2, 5, -(c.vmg.at(5, 3) * s.velocity[4])},
      {3, 4, c.acc.at(4, 3) * s.acceleration[3]}, {6, 3, -(slots(1, 5, 3) * s.force[2])},
      {7, 5, -(slots(1, 2, 5) * s.force[4])},     {8, 1, slots(1, 1, 1) * s.force[0]},
      {9, 2, -(slots(2, 2, 2) * s.force[1])},     {10, 6, -(slots(3, 3, 6) * s.force[5])},
      {11, 4, slots(4, 4, 4) * s.force[3]},       {12, 1, slots(5, 5, 1) * s.force[0]},
      {13, 2, c.load_force[0].at(2, 3) * s.load_force}, {24, 1, c.load_moment[5].at(1, 3) * s.load_moment},
      {33, 5, c.rudder_ang.at(1, 3) * s.angle}, {33, 6, c.prop_rps.at(1, 3) * 0.3132091952673165F},
      {33, 3, c.pmgg.at(6, 3) * s.angle}};
  // clang-format on
  for (const auto& [iqnt, curve, want] : rows) {
    ASSERT_EQ(f.Set(iqnt, curve), PlotFault::none) << iqnt;
    EXPECT_EQ(f.data.y.at(0).at(2), want) << iqnt << ' ' << curve;
    EXPECT_EQ(f.data.x.at(2), c.time.at(1, 3) * s.T);
  }
}

// Made of rotations: other program, a few of its last places free.
TEST(PlotData, PointQuantities) {
  Fixture f;
  // clang-format off
  const std::tuple<bool, int, int, std::size_t, double> rows[] = {
      {false, 27, 2, 1, 37.2756094}, {true, 27, 2, 1, -37.2756094}, {false, 28, 4, 1, 5.17934561},
      {true, 28, 4, 8, 8.49500465}, {true, 32, 9, 8, -11.6032181}, {true, 31, 9, 8, -0.182794899 * 9.81},
      {false, 32, 7, 8, 0.188534215 * 9.81}, {false, 48, 1, 1, 44.1772919}, {true, 48, 1, 8, -41.4650726},
      {true, 36, 3, 8, -23.6623719}, {true, 36, 5, 8, -0.43 * 57.29578}, {false, 36, 8, 1, 1.57684},
      {true, 38, 18, 1, -0.065 * 5.620716018}};
  // clang-format on
  for (const auto& [model, iqnt, curve, step, want] : rows) {
    f.settings.units.cnvfac = model ? kModel : std::array<float, 6>{1, 1, 1, 1, 1, 1};
    ASSERT_EQ(f.Set(iqnt, curve), PlotFault::none) << iqnt;
    EXPECT_NEAR(f.data.y.at(0).at(step - 1), want, 3e-6 * std::fabs(want)) << iqnt << ' ' << curve;
  }
  EXPECT_EQ(f.fake.output, "Calculating motion for ship fixed point...\nInitial static coordinates 40 3 5.75\n")
      << "once";
}

TEST(PlotData, StrideAndTrims) {
  Fixture f(371, 10);
  f.c.first_step = 373;
  f.c.last_step = 379;
  f.settings.reading.step_stride = 3;
  ASSERT_EQ(f.Set(1, 0), PlotFault::none);
  EXPECT_EQ(f.data.n, 3);  // 373 376 379
  EXPECT_EQ(f.data.labels.at(5), "pmgg(6)");
  EXPECT_EQ(f.data.y.at(1).at(1), f.c.pmgg.at(2, 376) * f.settings.units.scales.position[1]);
  ASSERT_EQ(f.Set(1, 2), PlotFault::none);
  EXPECT_EQ(f.data.y.size(), 1U);
  EXPECT_EQ(f.data.y.at(0).at(2), f.c.pmgg.at(2, 379) * f.settings.units.scales.position[1]);
  f.c.last_step = 372;
  ASSERT_EQ(f.Set(1, 2), PlotFault::none);
  EXPECT_TRUE(f.data.x.empty());
}

// One wave from ahead, growing over the first steps: elevations at the CG, at the origin and at the point, and what
// is left of the point's motion when its steady place and the wave are taken off.
TEST(PlotData, WavesAndRelativeMotion) {
  Fixture f;
  SeawayInput& sea = f.c.control.seaway;
  sea.ISEA = 1;
  sea.waves = {WaveComponentInput{0.7, 25, 2, 180}};
  sea.NWSC = 2;
  sea.WSCSTP = {1, 5};
  sea.WSCFAC = {0.5, 1};
  const double w = 0.7 * std::sqrt(100 / 9.81), k = w * w, radians = std::numbers::pi / 180;
  const auto eta = [&](int step, double x) {
    const double grown = step >= 5 ? 1 : step == 3 ? 0.75 : 0.578125;  // half way, and a quarter of the way
    return grown * 2 * std::cos(-k * x - w * static_cast<double>(f.c.time.at(1, step)) + 25 * radians);
  };
  const Rotation start = ShipToGlobal(3.0 / 57.29578, 4.0 / 57.29578, 5.0 / 57.29578);
  const Vector3 r0 = ToGlobal(start, {0.39, 0.03, 0.07});  // (40, 3, 12) from the CG
  for (const int step : {2, 3, 8}) {
    const auto at = static_cast<std::size_t>(step - 1);
    ASSERT_EQ(f.Set(25, 1), PlotFault::none);
    EXPECT_NEAR(f.data.y[0][at], eta(step, static_cast<double>(f.c.pmgg.at(1, step))), 1e-5) << step;
    ASSERT_EQ(f.Set(26, 1), PlotFault::none);
    EXPECT_NEAR(f.data.y[0][at], eta(step, 0), 1e-5) << step;
    ASSERT_EQ(f.Set(27, 0), PlotFault::none);
    const double x = static_cast<double>(f.data.y[0][at]), z = static_cast<double>(f.data.y[2][at]);
    ASSERT_EQ(f.Set(30, 0), PlotFault::none);
    EXPECT_NEAR(f.data.y[0][at], x - (1 + 100 * r0[0]) - 7.5 * 0.25 * (step - 1), 2e-4) << step;
    EXPECT_NEAR(f.data.y[2][at], z - (-1.25 + 100 * r0[2]) - eta(step, x / 100), 2e-4) << step;
    EXPECT_NEAR(f.data.y[3][at], eta(step, x / 100) - z, 2e-4) << step;
    ASSERT_EQ(f.Set(37, 19), PlotFault::none);
    EXPECT_NEAR(f.data.y[0][at], eta(step, static_cast<double>(f.c.pmgg.at(1, step))), 1e-5) << step;
  }
  EXPECT_EQ(f.fake.output,
            "Calculating incident wave at CG/Origin...\n"
            "Calculating motion for ship fixed point...\nInitial static coordinates 40 3 5.75\n");
}

// 875 m from the start, with the ship at its steady place: the places in store are good to 5e-5 m there only.
TEST(PlotData, RelativeMotionFarOut) {
  Fixture f(468, 3);
  f.c.pmgg.component[0] = {8.766F, 8.7851F, 8.8039F};
  ASSERT_EQ(f.Set(30, 1), PlotFault::none);
  const Vector3 r0 = ToGlobal(ShipToGlobal(3.0 / 57.29578, 4.0 / 57.29578, 5.0 / 57.29578), {0.39, 0.03, 0.07});
  for (int s = 0; s < 3; ++s) {
    const auto angle = [&](int i) { return static_cast<double>(f.c.pmgg.at(i, 468 + s)); };
    const Vector3 r = ToGlobal(ShipToGlobal(angle(4), angle(5), angle(6)), {0.39, 0.03, 0.07});
    const double want = 100 * (angle(1) + r[0] - r0[0]) - 1 - 7.5 * 0.25 * (467 + s);
    EXPECT_NEAR(static_cast<double>(f.data.y[0][static_cast<std::size_t>(s)]), want, 2e-6) << s;
  }
}

TEST(PlotData, Refusals) {
  Fixture f;
  // clang-format off
  const std::tuple<int, int, PlotFault, std::string> rows[] = {
      {0, 1, PlotFault::logic, "LOGIC ERROR in SetPlotData: iqnt= 0\n"},
      {99, 1, PlotFault::logic, "LOGIC ERROR in SetPlotData: iqnt= 99\n"},
      {1, 7, PlotFault::not_valid, ""}, {1, -1, PlotFault::not_valid, ""}, {15, 0, PlotFault::not_valid, ""}};
  // clang-format on
  for (const auto& [iqnt, curve, fault, words] : rows) {
    f.fake.output.clear();
    EXPECT_EQ(f.Set(iqnt, curve), fault) << iqnt;
    EXPECT_EQ(f.fake.output, words);
  }
}

TEST(StatPoints, CountFileStepsWhateverTheStride) {
  // clang-format off
  const struct { int first_step, last_step, skip, terminal, stride, first, n; } rows[] = {
      {1, 3000, 300, 0, 1, 300, 2700},                          // positions 301 .. 3000
      {1, 10, 3, 2, 1, 3, 5},           {1, 10, 3, 2, 3, 1, 2}, // points 1 4 7 10, of these 4 <= step <= 8
      {371, 700, 165, 0, 7, 24, 24},                            // 539 .. 700
      {1, 10, -1, 0, 1, 0, 10},         {1, 10, 10, 0, 1, 0, 0},
      {1, 10, 0, 2000000000, 1, 0, 0},  {1, 0, 0, 0, 1, 0, 0}};
  // clang-format on
  for (const auto& row : rows) {
    CaseStore c;
    c.first_step = row.first_step;
    c.last_step = row.last_step;
    c.skip_effective = row.skip;
    OutputSettings settings;
    settings.reading.skip_terminal = row.terminal;
    settings.reading.step_stride = row.stride;
    const StatRange range = StatPoints(c, settings);
    EXPECT_EQ(range.first, row.first) << row.skip << ' ' << row.stride;
    EXPECT_EQ(range.n, row.n) << row.skip << ' ' << row.stride;
  }
}

}  // namespace
}  // namespace zaview
