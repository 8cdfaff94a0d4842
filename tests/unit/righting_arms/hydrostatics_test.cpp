#include "analysis/righting_arms/hydrostatics.h"

#include <functional>

#include "bodies.h"

namespace zaview {
namespace {

IncidentWave OneWave(double a, double k, double heading_deg, double phase_deg, double depth = 0) {
  Seaway sea;
  sea.ISEA = 1;
  sea.WDEPTH = depth;
  const double w = depth > 0 ? std::sqrt(k * std::tanh(k * depth)) : std::sqrt(k);
  sea.waves.FREQW = {static_cast<float>(w)};
  sea.waves.AMPW0 = {static_cast<float>(a)};
  sea.waves.PHASEW = {static_cast<float>(phase_deg)};
  sea.waves.HEADW = {static_cast<float>(heading_deg)};
  IncidentWave wave;
  EXPECT_TRUE(PrepareIncidentWave(sea, wave));
  return wave;
}

Hydrostatics Evaluate(const HydrostaticBody& body, const WaterSurface& water, const Attitude& attitude) {
  HydrostaticWork work;
  Hydrostatics h;
  EXPECT_EQ(EvalHydrostatics(body, water, attitude, kAllHydrostatics, work, h), HydrostaticFault::none);
  return h;
}

TEST(Hydrostatics, BargeUpright) {  // T 6, KG 6.5
  const HydrostaticBody body = BodyOf(ReadHull({HalfBargeText(10, 4)}), {0, 0, 0.065});
  EXPECT_NEAR(body.length, 1, 1e-12);
  Hydrostatics h = Evaluate(body, {}, {{0, 0, 0.005}});
  const double GM = 0.04 / 12 / 0.06 * 0.01 / 0.01, zB = -0.035;
  EXPECT_NEAR(h.force[2], 0.012, 1e-12);
  EXPECT_NEAR(h.wet.V, 0.012, 1e-12);
  EXPECT_NEAR(h.wet.B[2], zB, 1e-12);
  EXPECT_NEAR(h.GM_volume, GM + zB, 1e-10);
  EXPECT_NEAR(h.GM_pressure, GM + zB, 1e-10);
  HydrostaticWork work;
  EXPECT_EQ(EvalHydrostatics(body, {}, {}, 4, work, h), HydrostaticFault::illegal_icalc);
}

// Slopes of force and moments over sinkage, trim and heel, by differences: signs and cross terms, off the middle.
TEST(Hydrostatics, SlopesAreThoseOfTheForce) {
  const HydrostaticBody body = BodyOf(ReadHull({HalfBargeText(10, 4)}), {0.07, 0.01, 0.065});
  Attitude at;
  at.cg = {0.3, -0.2, 0.004};
  at.roll = 0.2, at.yaw = 0.7;
  const Hydrostatics h = Evaluate(body, {}, at);
  const double e = 1e-6;
  Attitude up = at, trimmed = at;
  up.cg[2] += e, trimmed.pitch += e;
  const Hydrostatics hu = Evaluate(body, {}, up), ht = Evaluate(body, {}, trimmed);
  EXPECT_NEAR((hu.force[2] - h.force[2]) / e, -h.wet.Awp, 1e-6);
  EXPECT_NEAR((hu.moment[1] - h.moment[1]) / e, h.wet.Sx, 1e-6);
  EXPECT_NEAR((hu.moment[0] - h.moment[0]) / e, -h.wet.Sy, 1e-6);
  EXPECT_NEAR((ht.force[2] - h.force[2]) / e, h.wet.Sx, 1e-6);
  EXPECT_NEAR((ht.moment[1] - h.moment[1]) / e, -(h.wet.Iyy + h.wet.V * h.wet.B[2]), 1e-6);
  at.roll = 0;
  Attitude heeled = at;
  heeled.roll = e;
  const Hydrostatics h0 = Evaluate(body, {}, at), hh = Evaluate(body, {}, heeled);
  EXPECT_NEAR((hh.force[2] - h0.force[2]) / e, -h0.wet.Sy, 1e-6);
  EXPECT_NEAR((hh.moment[0] - h0.moment[0]) / e, -(h0.wet.Ixx + h0.wet.V * h0.wet.B[2]), 1e-6);
}

// A barge in a wave along it: the pressure on its walls and bottom, integrated over x and z alone.
struct InWave {
  double Fx = 0, Fz = 0, My = 0, V = 0;
};
InWave ByIntegration(double T, double zG, bool decays, double k, const std::function<double(double)>& eta) {
  constexpr int kSteps = 4000;
  const auto head = [&](double x, double z) {
    const double e = eta(x);
    return (decays ? e * std::exp(std::min(k * (z - e), 0.0)) : e) - z;
  };
  InWave sum;
  for (int i = 0; i < kSteps; ++i) {
    const double x = -0.5 + (i + 0.5) / kSteps;
    sum.Fz += head(x, -T) * 0.2 / kSteps;
    sum.My -= x * head(x, -T) * 0.2 / kSteps;
    sum.V += (T + eta(x)) * 0.2 / kSteps;
  }
  for (const double x : {-0.5, 0.5})
    for (int i = 0; i < kSteps; ++i) {
      const double dz = (T + eta(x)) / kSteps, z = -T + (i + 0.5) * dz;
      const double Fx = (x < 0 ? 1 : -1) * head(x, z) * 0.2 * dz;
      sum.Fx += Fx;
      sum.My += (z - zG) * Fx;
    }
  return sum;
}

TEST(Hydrostatics, BargeInWavesWithAndWithoutDecay) {
  const double T = 0.06, zG = 0.005, k = 2 * std::numbers::pi / 0.9, a = 0.018;
  const IncidentWave wave = OneWave(a, k, 0, 50);
  WaveTableRequest request;
  request.ship_x_min = -0.5, request.ship_x_max = 0.5;
  for (const WaveOption option :
       {WaveOption::direct, WaveOption::table, WaveOption::table_local_decay, WaveOption::table_global_decay}) {
    WaterSurface water;
    ASSERT_TRUE(MakeWaterSurface(wave, {}, option, request, water));
    const InWave want = ByIntegration(T, zG, option >= WaveOption::table_local_decay, k,
                                      [&](double x) { return a * std::cos(k * x + 50 * kRad); });
    double error[2] = {};
    for (const int fine : {0, 1}) {
      const HydrostaticBody body = BodyOf(ReadHull({HalfBargeText(20 << fine, 8 << fine)}), {0, 0, T + zG});
      Attitude at;
      at.cg[2] = zG;
      const Hydrostatics h = Evaluate(body, water, at);
      const double within = fine == 0 ? 4 : 1;
      EXPECT_NEAR(h.force[2], want.Fz, 5e-6 * within);
      EXPECT_NEAR(h.force[0], want.Fx, 5e-6 * within);
      EXPECT_NEAR(h.moment[1], want.My, 5e-6 * within);
      EXPECT_NEAR(h.wet.V, want.V, 5e-6 * within);
      EXPECT_NEAR(h.moment[0], 0, 1e-9);
      error[fine] = h.force[2] - want.Fz;
    }
    if (option == WaveOption::direct) {
      EXPECT_NEAR(error[0] / error[1], 4, 0.3);
    }
  }
}

// Half a Wigley hull, keel at z = 0, draught 6.25: as a surface, and as elements whose nodes are shuffled and whose
// sides are not.
std::string WigleyText(bool elements) {
  constexpr int kX = 20, kZ = 10;
  std::string points, cells;
  for (int i = 0; i <= kX; ++i)
    for (int j = 0; j <= kZ; ++j) {
      const double x = 50 - 5.0 * i, z = j, below = std::fmax(0, 1 - z / 6.25);
      points += fmt::format("{} {} {}\n", x, 5 * (1 - x * x / 2500) * (1 - below * below), z);
      const int n = 1 + i * (kZ + 1) + j;
      if (i < kX && j < kZ && (i + j) % 3 == 0) cells += fmt::format("{} {} {} {}\n", n, n + 1, n + kZ + 2, n + kZ + 1);
      if (i < kX && j < kZ && (i + j) % 3 != 0) cells += fmt::format("{} {} {} {}\n", n, n + kZ + 1, n + kZ + 2, n + 1);
    }
  if (!elements) return fmt::format("{} {}\n{}", kX + 1, kZ + 1, points);
  return fmt::format("Wigley\n{} {}\n{}{}", (kX + 1) * (kZ + 1), kX * kZ, points, cells);
}

TEST(Hydrostatics, SurfaceAndElementsOfOneHull) {
  Hydrostatics of[2];
  for (const bool elements : {false, true}) {
    const Hull hull = ReadHull({WigleyText(elements), {}, {}, true, elements ? "HRL" : "SIMPLE"});
    const HydrostaticBody body = BodyOf(hull, {0, 0, 0.05});
    Attitude at;
    at.cg[2] = -0.0125, at.roll = 0.5, at.pitch = 0.02;
    of[elements] = Evaluate(body, {}, at);
  }
  EXPECT_GT(of[0].force[2], 0.002);
  for (std::size_t k = 0; k < 3; ++k) {
    EXPECT_NEAR(of[0].force[k], of[1].force[k], 1e-14);
    EXPECT_NEAR(of[0].moment[k], of[1].moment[k], 1e-14);
  }
  EXPECT_NEAR(of[0].GM_volume, of[1].GM_volume, 1e-12);
  EXPECT_NEAR(of[0].GM_pressure, of[1].GM_pressure, 1e-12);
}

// A barge, another beside it, a third on end: each part is closed towards its own centreplane.
TEST(Hydrostatics, PartsHaveTheirOwnCentreplanes) {
  HullRequest request{HalfBargeText(5, 3), {0, 7, 0}};
  request.added.resize(2);
  request.added[0].SYMINP = request.added[1].SYMINP = 1;
  request.added[0].GSHIFT = {0, 47, 0};
  request.added[1].GSHIFT = {200, 0, 3}, request.added[1].GROT = {90, 0, 30};
  const Hydrostatics h = Evaluate(BodyOf(ReadHull(request), {}), {}, {{0, 0, -1}});
  EXPECT_NEAR(h.wet.V, 0.06, 1e-12);
  EXPECT_NEAR(h.force[2], 0.06, 1e-12);
  EXPECT_NEAR(h.force[0], 0, 1e-12);
  EXPECT_NEAR(h.force[1], 0, 1e-12);
  EXPECT_NEAR(h.moment[0], 0.02 * (0.07 + 0.47 + 0.05 * -std::cos(30 * kRad)), 1e-12);
}

TEST(Hydrostatics, TooMuchForTheTables) {
  HydrostaticBody body;
  Hull hull;
  hull.surfaces.resize(MAXCMP + 1);
  EXPECT_EQ(MakeHydrostaticBody(hull, {}, body), BodyFault::too_many_surfaces);
  hull.surfaces.resize(1);
  hull.surfaces[0].KSTA = 101, hull.surfaces[0].KWL = 91;
  hull.surfaces[0].points.resize(101 * 91);
  EXPECT_EQ(MakeHydrostaticBody(hull, {}, body), BodyFault::none) << "9000 cells";
  hull.mesh.elements.resize(1);
  EXPECT_EQ(MakeHydrostaticBody(hull, {}, body), BodyFault::too_many_panels);
  hull.mesh.elements.resize(MAXFEG + 1);
  EXPECT_EQ(MakeHydrostaticBody(hull, {}, body), BodyFault::too_many_elements);
}

}  // namespace
}  // namespace zaview
