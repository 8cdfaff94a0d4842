#include "waves/wave_interp.h"

#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace zaview {
namespace {

IncidentWave OneWave(int ISEA = 1) {
  Seaway seaway;
  seaway.ISEA = ISEA;
  seaway.waves = {{2.0F}, {20}, {0.01F}, {160}};
  IncidentWave wave;
  EXPECT_TRUE(PrepareIncidentWave(seaway, wave));
  return wave;
}

TEST(WaveInterp, RectangleOfTheTable) {
  WaveTableRequest ship;
  ship.centre_x = 99, ship.centre_y = 5;
  ship.ship_x_min = 2, ship.ship_x_max = 3;
  WaveTableRequest sized = ship;
  sized.NBASEX = 5, sized.NBASEY = 3;
  sized.XINTRP = 4, sized.YINTRP = 1;
  const struct {
    WaveTableRequest request;
    int nx, ny;
    double x0, y0, dx, dy;
  } cases[] = {{ship, 81, 41, 1.9, 4.4, 1.2 / 80, 1.2 / 40}, {sized, 5, 3, 97, 4.5, 1, 0.5}};
  for (const auto& c : cases) {
    WaveTable table;
    ASSERT_TRUE(SetupIncidentWaveInterpHS(OneWave(), {1.0, 1.0}, c.request, table));
    EXPECT_EQ(table.nx, c.nx);
    EXPECT_EQ(table.ny, c.ny);
    EXPECT_NEAR(table.x0, c.x0, 1e-12);
    EXPECT_NEAR(table.y0, c.y0, 1e-12);
    EXPECT_NEAR(table.dx, c.dx, 1e-12);
    EXPECT_NEAR(table.dy, c.dy, 1e-12);
  }
  for (int which = 0; which < 3; ++which) {
    WaveTableRequest bad = sized;
    if (which == 0) bad.NBASEX = 82;
    if (which == 1) bad.NBASEY = 42;
    WaveTable table;
    EXPECT_FALSE(SetupIncidentWaveInterpHS(OneWave(which == 2 ? 9 : 1), {}, bad, table)) << which;
    EXPECT_EQ(table.nx, 0);
  }
}

TEST(WaveInterp, BilinearInsideAndNothingOutside) {
  WaveTable table{2.5, 10, -1, 0.5, 2, 3, 2, {1, 2, 4, 8, 16, 32}};
  const struct {
    double x, y;
    float eta;
  } inside[] = {{10, -1, 1},       {11, -1, 4},  {10, 1, 8},          {11, 1, 32},
                {10.25, -1, 1.5F}, {10.5, 0, 9}, {10.75, 0.5, 18.75F}};  // 3 + 0.75 (24 - 3)
  std::vector<Vector3> points;
  for (const auto& c : inside) points.push_back({c.x, c.y, -3});
  std::vector<float> eta(points.size(), 7);
  ASSERT_TRUE(ElevationFromTable(table, 2.5 + 0.9e-5, points, eta));
  for (std::size_t i = 0; i < points.size(); ++i) EXPECT_FLOAT_EQ(eta[i], inside[i].eta) << i;

  const double nan = std::numeric_limits<double>::quiet_NaN();
  eta.assign(eta.size(), 7);
  for (const Vector3& outside : {Vector3{9.999, 0, 0}, Vector3{11.001, 0, 0}, Vector3{10, -1.001, 0},
                                 Vector3{10, 1.001, 0}, Vector3{nan, 0, 0}, Vector3{1e300, 0, 0}}) {
    points.back() = outside;
    EXPECT_FALSE(ElevationFromTable(table, 2.5, points, eta)) << outside[0];
  }
  points.pop_back();
  EXPECT_FALSE(ElevationFromTable(table, 2.5 + 1.1e-5, points, eta));
  EXPECT_FALSE(ElevationFromTable(table, nan, points, eta));
  EXPECT_FALSE(ElevationFromTable(WaveTable{}, 0.0, points, eta));
  EXPECT_EQ(eta, std::vector<float>(eta.size(), 7)) << "nothing is taken";
}

TEST(WaveInterp, NodesAndBorderAreTheWave) {
  const WaveMoment moment{1.5, 0.5};
  WaveTableRequest request;
  request.XINTRP = 0.7, request.YINTRP = 0.3;
  request.centre_x = 0.1, request.centre_y = 1.0 / 3;
  WaveTable table;
  ASSERT_TRUE(SetupIncidentWaveInterpHS(OneWave(), moment, request, table));
  const std::vector<Vector3> points = {
      {0.1, 1.0 / 3, 0}, {0.1 - 0.35, 1.0 / 3 - 0.15, 0}, {0.1 + 0.35, 1.0 / 3 + 0.15, 0}, {0.2345, 0.4, 0}};
  std::vector<float> direct(points.size()), taken(points.size());
  WaveOutputs out;
  out.eta = direct;
  ASSERT_EQ(EvalIncidentWave(OneWave(), moment, {}, points, out), WaveFault::none);
  ASSERT_TRUE(ElevationFromTable(table, 1.5, points, taken));
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(taken[i], direct[i], 2e-9) << i;
  EXPECT_NEAR(taken[3], direct[3], 0.005 * 16 / 8 * (0.00875 * 0.00875 + 0.0075 * 0.0075)) << "second derivatives";

  request.NBASEX = request.NBASEY = 1;
  ASSERT_TRUE(SetupIncidentWaveInterpHS(OneWave(), moment, request, table));
  EXPECT_TRUE(ElevationFromTable(table, 1.5, {&points[1], 1}, taken));
  EXPECT_FALSE(ElevationFromTable(table, 1.5, {&points[0], 1}, taken));
}

}  // namespace
}  // namespace zaview
