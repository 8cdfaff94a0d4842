// How long does a righting arm curve take, 2 x 30 angles in a sea of 500 components, over a hull of 5000 panels: held
// as it is, balanced in sinkage, in sinkage and trim, and with pressure that falls off by the wave number at each
// place; on one thread and on two?
#include <cmath>
#include <cstdlib>

#include <benchmark/benchmark.h>

#include "analysis/righting_arms/righting_arm_curve.h"
#include "random_sea.h"

namespace zaview {
namespace {

constexpr int kStations = 51, kWaterlines = 51;  // of a half: 2 x 2500 panels

Hull ParabolicHull() {
  HullSurface half;
  half.KSTA = kStations, half.KWL = kWaterlines;
  for (int i = 0; i < kStations; ++i)
    for (int j = 0; j < kWaterlines; ++j) {
      const double x = 0.5 - 1.0 * i / (kStations - 1), z = -0.0625 + 0.1 * j / (kWaterlines - 1);
      const double below = std::fmin(z / 0.0625, 0.0);
      half.points.push_back({x, 0.08 * (1 - 4 * x * x) * (1 - below * below), z});
    }
  HullSurface image = half;
  image.reflected = true;
  for (Vector3& p : image.points) p[1] = -p[1];
  Hull hull;
  hull.half = true;
  hull.surfaces = {half, image};
  return hull;
}

struct Case {
  HydrostaticBody body;
  IncidentWave wave;
  WaterSurface water;
  Attitude attitude;
  Case(WaveOption option) : wave(MakeSea({.most_amplitude = 0.001F})) {
    if (MakeHydrostaticBody(ParabolicHull(), {0, 0, -0.01}, body) != BodyFault::none || body.cells != 5000)
      std::abort();
    attitude.cg = {3, 1, -0.01};
    attitude.pitch = 0.01;
    WaveTableRequest request;
    request.centre_x = 3, request.centre_y = 1, request.ship_x_min = 2.5, request.ship_x_max = 3.5;
    if (!MakeWaterSurface(wave, {7.5, 1}, option, request, water)) std::abort();
  }
};

ArmCurve Curve(const Case& c, int balance, int threads) {
  ArmCurve curve;
  if (!CalcArmCurve(c.body, c.water, c.attitude, {ArmDirection::transverse, balance, 60, 30}, {}, threads, curve))
    std::abort();
  return curve;
}

bool Same(const ArmCurve& a, const ArmCurve& b) {
  for (std::size_t s = 0; s < 2; ++s) {
    if (a.side[s].size() != 31 || b.side[s].size() != 31) return false;
    for (std::size_t i = 0; i < a.side[s].size(); ++i)
      if (a.side[s][i].arm != b.side[s][i].arm) return false;
  }
  return true;
}

void RightingArms(benchmark::State& state) {
  const Case c(static_cast<WaveOption>(state.range(1)));
  const int balance = static_cast<int>(state.range(0)), threads = static_cast<int>(state.range(2));
  ArmCurve curve;
  for (auto _ : state) {
    curve = Curve(c, balance, threads);
    benchmark::DoNotOptimize(curve.side.data());
  }
  if (!Same(curve, Curve(c, balance, 3 - threads))) std::abort();
}
BENCHMARK(RightingArms)
    ->ArgNames({"balance", "wave", "threads"})
    ->ArgsProduct({{0, 1, 2}, {0}, {1, 2}})
    ->ArgsProduct({{2}, {1, 2, 3}, {1, 2}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace zaview
