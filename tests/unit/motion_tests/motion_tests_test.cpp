// Roll decay, forced motion and forecast against closed forms.
#include <cmath>

#include <gtest/gtest.h>

#include "analysis/motion_tests/force_fit.h"
#include "analysis/motion_tests/motion_forecast.h"
#include "analysis/motion_tests/roll_decay.h"
#include "analysis/motion_tests/roll_decay_report.h"
#include "analysis/motion_tests/upright_stability.h"
#include "base/rotation.h"

namespace zaview {
namespace {

using Floats = std::vector<float>;

TEST(RollDecay, WhatIsAPeak) {
  const struct {
    const char* what;
    Floats roll;
    std::vector<std::size_t> at;
  } cases[] = {
      {"either way, the ends never", {0, 1, 2, 3, 5, 3, 2, 1, -4, 1, 2, 9}, {4, 8}},
      {"the first of a flat top", {0, 1, 5, 5, 1, 0}, {2}},
      {"of three", {0, 1, 5, 5, 5, 1, 0}, {2}},
      {"a flat top of four is none", {0, 1, 5, 5, 5, 5, 1, 0}, {}},
      {"a ripple within three steps is none", {0, 4, 3, 5, 2, 1, 0, -1, -2}, {3}},
      {"near the ends fewer are compared", {0, 5, 0, 0, 0, 0, -5, 0}, {1, 6}},
      {"a record that stands still", {2, 2, 2, 2, 2}, {}},
      {"what is no number", {0, 1, NAN, 5, 1, 0}, {}},
      {"none at all", {}, {}},
  };
  for (const auto& c : cases) {
    Floats time;
    for (std::size_t i = 0; i < c.roll.size(); ++i) time.push_back(static_cast<float>(i));
    std::vector<RollPeak> peaks;
    FindRollPeaks(time, c.roll, peaks);
    std::vector<std::size_t> at;
    for (const RollPeak& peak : peaks) at.push_back(peak.index);
    EXPECT_EQ(at, c.at) << c.what;
  }
}

// size exp(-0.02 t) cos(t + 0.3) + mean.
void Decay(float mean, std::vector<RollPeak>& peaks) {
  Floats time, roll;
  for (int i = 0; i < 300; ++i) {
    const double t = i * 2 * M_PI / 23.7;
    time.push_back(static_cast<float>(t));
    roll.push_back(static_cast<float>(mean + 8 * std::exp(-0.02 * t) * std::cos(t + 0.3)));
  }
  FindRollPeaks(time, roll, peaks);
}

TEST(RollDecay, RefinedTimesAndCycles) {
  std::vector<RollPeak> peaks;
  std::vector<RollCycle> cycles;
  Decay(0, peaks);
  ASSERT_GT(peaks.size(), 20U);
  const double times[] = {3.0103327, 5.7016911, 8.9229034};  // of this formula; the tops are at 2.822, 5.963, 9.105
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(peaks[i].time, times[i], 2e-6);
  FindRollCycles(peaks, false, cycles);
  EXPECT_EQ(cycles.size(), peaks.size() - 1);
  EXPECT_NEAR(MeanPeriods(cycles).all, 2 * M_PI, 0.02);
  EXPECT_EQ(MeanPeriods(cycles).ns, 5U);

  // With a mean of 2 the halves differ, and only the bias form finds the decay of 0.02.
  Decay(2, peaks);
  FindRollCycles(peaks, true, cycles);
  EXPECT_EQ(cycles.size(), peaks.size() - 2);
  double coefficient = 0;
  for (const RollCycle& cycle : cycles) coefficient += cycle.coefficient / static_cast<double>(cycles.size());
  EXPECT_NEAR(coefficient, 0.02, 3e-4);

  const RollPeak few[] = {{1, 4, 1}, {5, 0, 3}};
  FindRollCycles(few, false, cycles);
  ASSERT_EQ(cycles.size(), 1U);
  EXPECT_EQ(cycles[0].coefficient, 0);  // of a peak of 0
  EXPECT_EQ(cycles[0].period, 4);
  EXPECT_EQ(MeanPeriods(cycles).ns, 1U);
  FindRollCycles(few, true, cycles);
  EXPECT_TRUE(cycles.empty());
  EXPECT_EQ(MeanPeriods(cycles).all, 0);
}

// 100 x 20 x 10 m from the keel, L 100: draft 6 and KG 6.5 have GM 20^2/(12 6) + 3 - 6.5.
TEST(RollDecay, MetacentricHeightOfABarge) {
  CaseStore store;
  for (int i = 0; i < 8; ++i)
    store.hull.mesh.nodes.push_back({i & 1 ? 0.5 : -0.5, i & 2 ? 0.1 : -0.1, i & 4 ? 0.1 : 0.0});
  for (const std::array<int, 4> node :
       {std::array{1, 3, 4, 2}, {5, 6, 8, 7}, {1, 2, 6, 5}, {3, 7, 8, 4}, {1, 5, 7, 3}, {2, 4, 8, 6}})
    store.hull.mesh.elements.push_back({node, false});
  store.ships.resize(1);
  store.ships[0].centre = {0, 0, 0.065};
  double GM = 0;
  ASSERT_TRUE(GMTAtDraft(store, {0.005, 0}, GM));
  EXPECT_NEAR(GM, 2.0555556e-2, 1e-9);
  EXPECT_FALSE(GMTAtDraft(store, {0.5, 0}, GM));  // in the air
  store.hull = {};
  EXPECT_FALSE(GMTAtDraft(store, {0.005, 0}, GM));
}

TEST(RollDecay, WhichRunsAreOne) {
  CaseStore store;
  store.last_read = store.last_step = 3;
  store.pmgg.component.assign(6, Floats(3, 0.0F));
  EXPECT_FALSE(IsRollDecay(store));
  store.control.SWTCH[3] = 1;
  store.control.VMGSHP[3] = 0.1;
  EXPECT_TRUE(IsRollDecay(store));
  store.control.seaway.ISEA = 1;
  EXPECT_FALSE(IsRollDecay(store));
  store.control = {};
  store.kino_input = true;
  EXPECT_FALSE(IsRollDecay(store));
  store.pmgg.component[3][1] = 0.1F;
  EXPECT_TRUE(IsRollDecay(store));
}

TEST(ForceFit, ExactAndSingular) {
  Floats a, v;
  std::vector<double> F;
  for (int i = 0; i < 50; ++i) {
    a.push_back(std::sin(0.3F * static_cast<float>(i)));
    v.push_back(std::cos(0.2F * static_cast<float>(i)));
    F.push_back(0.5 - 2.0 * v.back() - 3.0 * a.back());
  }
  ForceFit fit;
  ASSERT_TRUE(FitForce(a, v, F, fit));
  EXPECT_NEAR(fit.A, 3, 1e-12);
  EXPECT_NEAR(fit.B, 2, 1e-12);
  EXPECT_NEAR(fit.F0, 0.5, 1e-12);
  ASSERT_TRUE(FitForce(a, v, std::vector<double>(50, 7.0), fit));
  EXPECT_NEAR(fit.A, 0, 1e-12);
  EXPECT_NEAR(fit.F0, 7, 1e-12);
  EXPECT_FALSE(FitForce(a, a, F, fit));
  EXPECT_FALSE(FitForce({a.data(), 1}, {v.data(), 1}, F, fit));
  EXPECT_FALSE(FitForce({}, {}, {}, fit));
}

// A ship that turns by body rates w for a short time T has turned by R exp([w] T).
TEST(Forecast, TurnsByBodyRates) {
  const MotionState now{{1, 2, 3, 0.3, -0.4, 0.7}, {4, 5, 6, 0.2, -0.5, 0.9}, {1, -2, 3, 0, 0, 0}};
  constexpr double T = 1e-4;
  const Six later = Forecast(now, T);
  for (std::size_t i = 0; i < 3; ++i)
    EXPECT_NEAR(later[i], now.position[i] + T * now.velocity[i] + T * T / 2 * now.acceleration[i], 1e-15);
  const Vector3 arm = {0.6, -0.3, 0.2}, w = {0.2, -0.5, 0.9}, turn = Cross(w, arm);
  const Vector3 there = ToGlobal(ShipToGlobal(later[3], later[4], later[5]), arm);
  const Vector3 expected =
      ToGlobal(ShipToGlobal(0.3, -0.4, 0.7), {arm[0] + T * turn[0], arm[1] + T * turn[1], arm[2] + T * turn[2]});
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(there[i], expected[i], 2e-8);
}

}  // namespace
}  // namespace zaview
