#include "analysis/righting_arms/righting_arm_curve.h"

#include "bodies.h"

namespace zaview {
namespace {

ArmCurve Curve(const HydrostaticBody& body, const WaterSurface& water, const Attitude& at, const ArmSettings& settings,
               const BalanceAim& still = {}) {
  ArmCurve curve;
  EXPECT_TRUE(CalcArmCurve(body, water, at, settings, still, 0, curve));
  return curve;
}

// Off the prism by one polygon, upright force kept, with and without a list; y: of the CG, to port.
TEST(RightingArms, BargeAgainstItsSection) {
  const struct {
    const char* what;
    Triple GSHIFT;
    Vector3 centre;
  } cases[] = {{"even", {0, 0, 0}, {0, 0, 0.065}},
               {"CG to port", {0, 0, 0}, {0, 0.003, 0.065}},
               {"the hull moved to starboard of the CG", {0, -0.3, -6.5}, {0, 0, 0}}};
  for (const auto& c : cases) {
    const double y = c.centre[1] - c.GSHIFT[1] / 100;
    const HydrostaticBody body = BodyOf(ReadHull({HalfBargeText(10, 5), c.GSHIFT}), c.centre);
    Attitude at;
    at.cg = {3, 2, 0.005};
    at.yaw = 2;
    const ArmCurve curve = Curve(body, {}, at, {ArmDirection::transverse, 1, 90, 18});
    ASSERT_EQ(curve.side[0].size(), 19U);
    const std::vector<Point2> section = {{-0.1 - y, -0.065}, {0.1 - y, -0.065}, {0.1 - y, 0.035}, {-0.1 - y, 0.035}};
    for (const std::vector<ArmRow>& side : curve.side)
      for (const ArmRow& row : side)
        EXPECT_NEAR(row.arm, PrismArm(section, 0.012, row.angle_deg * kRad), 2e-7) << c.what << row.angle_deg;
    EXPECT_NEAR(curve.side[0][0].arm, y, 1e-9) << c.what;
  }
}

TEST(RightingArms, BargeStatistics) {
  const HydrostaticBody body = BodyOf(ReadHull({HalfBargeText(10, 5)}), {0, 0, 0.065});
  Attitude at;
  at.cg[2] = 0.005;
  const ArmCurve curve = Curve(body, {}, at, {ArmDirection::transverse, 1, 90, 90});
  const ArmStatistics s = CalcArmStatistics(curve);
  const double GM = 0.04 / 12 / 0.06 - 0.035;
  EXPECT_NEAR(s.effective_arm, 0, 1e-9);
  EXPECT_NEAR(s.effective_GM, GM, 1e-5);
  EXPECT_NEAR(s.vanish_deg, 65.0948, 2e-3);
  EXPECT_NEAR(s.negative_vanish_deg, -65.0948, 2e-3);
  EXPECT_NEAR(s.max_angle_deg, 32, 2);
  EXPECT_NEAR(s.max_arm, -s.min_arm, 1e-8);
  EXPECT_EQ(s.min_angle_deg, -s.max_angle_deg);
  EXPECT_NEAR(curve.side[0][90].arm, -0.015, 1e-7);
}

TEST(RightingArms, LongitudinalAndWithTwoTargets) {
  const HydrostaticBody body = BodyOf(ReadHull({HalfBargeText(20, 5)}), {0.02, 0, 0.065});
  Attitude at;
  at.cg[2] = 0.005;
  const double GML = 1 / 0.06 / 12 - 0.035;
  const ArmCurve trim = Curve(body, {}, at, {ArmDirection::longitudinal, 2, 1, 2});
  EXPECT_NEAR(CalcArmStatistics(trim).effective_GM, GML, GML * 1e-3) << "a stable ship has a positive GML";
  EXPECT_NEAR(trim.side[0][0].arm, -0.02, 1e-9) << "a centre ahead of the buoyancy puts the bow down";
  // The force and the moment of the ship upright and even, whatever the step's own sinkage and trim are.
  at.cg[2] = 0.02, at.pitch = 0.01;
  const BalanceAim still{0.012, 0.012 * 0.02};
  const ArmCurve heel = Curve(body, {}, at, {ArmDirection::transverse, 4, 20, 4}, still);
  ASSERT_EQ(heel.side[1].size(), 5U);
  EXPECT_TRUE(heel.notes.empty());
  EXPECT_NEAR(heel.side[0][0].z_cg, 0.005, 1e-6);
  EXPECT_NEAR(heel.side[0][0].second_angle, -0.01, 1e-5);
  const double a = 20 * kRad, GM = 0.04 / 12 / 0.06 - 0.035, BM = 0.04 / 12 / 0.06;
  const auto wall_sided = [&](double t) { return std::sin(t) * (GM + BM * std::tan(t) * std::tan(t) / 2); };
  EXPECT_NEAR(heel.side[0][4].arm, wall_sided(a), 1e-5);
  EXPECT_NEAR(heel.side[1][2].arm, wall_sided(-a / 2), 1e-5);
}

TEST(RightingArms, LyingCylinder) {  // closed at its ends; a section of 72 sides is itself again after 5 degrees
  const double R = 0.05, zG = -0.012;
  const HydrostaticBody body = Revolved(8, 72, {0, 0, zG}, [&](int i, int n) {
    return std::pair{-0.4 + 0.8 * std::clamp(i - 1, 0, n - 2) / (n - 2), i == 0 || i == n ? 0.0 : R};
  });
  for (const double depth : {-0.03, 0.0, 0.04}) {
    Attitude at;
    at.cg[2] = zG - depth;
    const ArmCurve curve = Curve(body, {}, at, {ArmDirection::transverse, 1, 90, 18});
    ASSERT_EQ(curve.side[0].size(), 19U);
    for (const std::vector<ArmRow>& side : curve.side)
      for (const ArmRow& row : side) EXPECT_NEAR(row.arm, -zG * std::sin(row.angle_deg * kRad), 1e-9) << row.angle_deg;
  }
}

TEST(RightingArms, SphereInAnyHeadSea) {  // all pressure passes through its centre
  Seaway sea;
  sea.ISEA = 1;
  sea.waves.FREQW = {2.0F, 3.1F, 4.4F};
  sea.waves.AMPW0 = {0.02F, 0.01F, 0.006F};
  sea.waves.PHASEW = {10, 200, 77};
  sea.waves.HEADW = {180, 180, 180};
  IncidentWave wave;
  ASSERT_TRUE(PrepareIncidentWave(sea, wave));
  const double R = 0.1, zG = -0.02;
  double worst[2] = {};
  for (const int fine : {0, 1}) {
    const HydrostaticBody body = Revolved(16 << fine, 32 << fine, {0, 0, zG}, [&](int i, int n) {
      const double a = std::numbers::pi * i / n;
      return std::pair{-R * std::cos(a), R * std::sin(a)};
    });
    WaterSurface water;
    ASSERT_TRUE(MakeWaterSurface(wave, {1.7, 1}, WaveOption::direct, {}, water));
    Attitude at;
    at.cg = {0.4, 0, zG + 0.01};
    const ArmCurve curve = Curve(body, water, at, {ArmDirection::transverse, 1, 60, 6});
    ASSERT_EQ(curve.side[0].size(), 7U);
    for (const ArmRow& row : curve.side[0])
      worst[fine] = std::max(worst[fine], std::abs(row.arm + zG * std::sin(row.angle_deg * kRad)));
  }
  EXPECT_LT(worst[0], 1e-4);
  EXPECT_LT(worst[1], worst[0] / 3);
}

TEST(RightingArms, RowsThatFail) {
  const HydrostaticBody body = BodyOf(ReadHull({HalfBargeText(4, 2)}), {0, 0, 0.065});
  const auto fault = [&](double z_cg, const ArmSettings& settings, const BalanceAim& still) {
    Attitude at;
    at.cg[2] = z_cg;
    const ArmCurve curve = Curve(body, {}, at, settings, still);
    EXPECT_FALSE(curve.computed);
    EXPECT_TRUE(curve.side[0].empty());
    return curve.notes.empty() ? RowFault::none : curve.notes.front().fault;
  };
  EXPECT_EQ(fault(0.2, {ArmDirection::transverse, 0, 20, 2}, {}), RowFault::no_force) << "in the air";
  EXPECT_EQ(fault(-0.2, {ArmDirection::transverse, 3, 20, 2}, {0.012, 0}), RowFault::no_slope) << "sunk";
  EXPECT_EQ(fault(-0.2, {ArmDirection::transverse, 4, 20, 2}, {0.012, 0}), RowFault::singular) << "sunk";
  Attitude at;
  at.cg[2] = 0.005;
  // More than the barge can bear: it sinks a hundredth of its length at a time until it has no waterplane.
  const ArmCurve heavy = Curve(body, {}, at, {ArmDirection::transverse, 3, 20, 2}, {0.03, 0});
  EXPECT_FALSE(heavy.computed);
  EXPECT_EQ(heavy.notes.at(0).fault, RowFault::no_slope);
}

TEST(RightingArms, RowsBehindOneThatFails) {  // 10 wide, 20 deep, held where it leaves the water between 58 and 122
  const std::string side = PatchText({50, 5, -10}, {50, 5, 10}, {-50, 5, -10}, 4, 4);
  const std::string bottom = PatchText({50, 5, -10}, {50, 0, -10}, {-50, 5, -10}, 4, 2);
  const std::string bow = PatchText({50, 0, -10}, {50, 5, -10}, {50, 0, 10}, 2, 2);
  const std::string stern = PatchText({-50, 0, -10}, {-50, 5, -10}, {-50, 0, 10}, 2, 2);
  Attitude at;
  at.cg[2] = 0.095;
  const ArmCurve curve =
      Curve(BodyOf(ReadHull({side + bottom + bow + stern}), {}), {}, at, {ArmDirection::transverse, 0, 180, 18});
  EXPECT_EQ(curve.notes.size(), 14U);
  for (const std::vector<ArmRow>& rows : curve.side) {
    ASSERT_EQ(rows.size(), 12U);
    EXPECT_EQ(std::abs(rows[5].angle_deg), 50);
    EXPECT_EQ(std::abs(rows[6].angle_deg), 130);
  }
}

TEST(RightingArms, Vanishing) {
  const struct {
    const char* what;
    std::vector<double> positive, negative;  // arms at 0, 10, 20 ..
    double vanish, negative_vanish;
  } cases[] = {{"within", {0, 1, 0.5, -0.5, 1}, {0, -1, -3, 1}, 25, -27.5},
               {"exactly", {0, 1, 0}, {0, -1, 0}, 20, -20},
               {"nowhere", {0, 1, 2}, {0, -1, -2, -3}, 20, -30},
               {"never stable", {0, -1, -2}, {0, 1}, 20, -10},
               {"with a list", {1, -1}, {1, 1, -1, 1}, 5, -25}};
  for (const auto& c : cases) {
    ArmCurve curve;
    const std::vector<double>* arms[] = {&c.positive, &c.negative};
    for (std::size_t s = 0; s < 2; ++s)
      for (std::size_t i = 0; i < arms[s]->size(); ++i) {
        ArmRow row;
        row.angle_deg = (s == 0 ? 10.0 : -10.0) * static_cast<double>(i);
        row.arm = (*arms[s])[i];
        curve.side[s].push_back(row);
      }
    const ArmStatistics s = CalcArmStatistics(curve);
    EXPECT_DOUBLE_EQ(s.vanish_deg, c.vanish) << c.what;
    EXPECT_DOUBLE_EQ(s.negative_vanish_deg, c.negative_vanish) << c.what;
  }
}

}  // namespace
}  // namespace zaview
