#include "analysis/run_events.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "analysis/hull_wetness.h"
#include "case/read/read_output_file.h"
#include "case/ship_pose.h"
#include "fake_platform.h"
#include "frame/session.h"
#include "project_places.h"
#include "waves/incident_wave.h"

namespace zaview {
namespace {

using enum RunEventKind;
using Floats = std::vector<float>;

struct SampleRun {
  FakePlatform fake;
  Session session;
  CaseStore& store = session.case_store;

  explicit SampleRun(const std::string& sample) {
    session.platform = fake.Get();
    fake.Put(sample, SampleBytes(sample));
    ReadRequest request;
    request.name = sample;
    EXPECT_EQ(read_output_file(request, session.platform, session.run, session.output, store, session.ensemble),
              ReadOutcome::ok);
  }
};

TEST(RunEvents, OfEachKind) {
  const Floats time = {0, 1, 2, 3, 4, 5, 6}, still(7, 0.1F);
  const Floats roll = {0, 1, 3, 3, -2, -2, 0}, no_numbers = {NAN, 1, 3, 3, -2, -2, INFINITY};
  const Floats dips = {0.5F, -0.1F, 0.9F, 1, 0, 0.05F, -1};  // out at 11 and 14; in at 12 with 1.0, at 15 with 0.05
  const Floats deck = {0.1F, -1, 0.2F, 0.3F, 0, 0.1F, -1};
  const StepGap gap{11, 11};
  const struct {
    const char* what;
    RunHistories run;
    std::vector<RunEvent> events;
  } cases[] = {
      {"the first of equal ones", {10, time, roll, still, {}, {}, 0.1, {}}, {{roll_max, 12}, {roll_min, 14}}},
      {"what is no number", {10, time, no_numbers, {}, {}, {}, 0.1, {}}, {{roll_max, 12}, {roll_min, 14}}},
      {"pitch", {10, time, {}, roll, {}, {}, 0.1, {}}, {{pitch_max, 12}, {pitch_min, 14}}},
      {"fast enough", {10, time, {}, {}, dips, {}, 0.5, {}}, {{slam, 12}}},
      {"all of them", {10, time, {}, {}, dips, {}, 0, {}}, {{slam, 12}, {slam, 15}}},
      {"each spell once", {10, time, {}, {}, {}, deck, 0.1, {}}, {{deck_wet, 10}, {deck_wet, 12}, {deck_wet, 15}}},
      {"nothing is known of a gap", {10, time, {}, {}, dips, {}, 0, {&gap, 1}}, {{slam, 15}}},
      {"in the order of the steps",
       {10, time, roll, {}, dips, deck, 0.5, {}},
       {{deck_wet, 10}, {slam, 12}, {deck_wet, 12}, {roll_max, 12}, {roll_min, 14}, {deck_wet, 15}}},
  };
  for (const auto& c : cases) {
    std::vector<RunEvent> events;
    ASSERT_TRUE(FindEvents(c.run, events));
    EXPECT_EQ(events, c.events) << c.what;
  }
}

TEST(RunEvents, NextAndAbout) {
  const std::vector<RunEvent> events = {{slam, 5}, {roll_max, 5}, {deck_wet, 9}};
  const struct {
    int step, direction, found;  // 0: none
  } cases[] = {{1, 1, 5}, {5, 1, 9}, {9, 1, 0}, {10, -1, 9}, {9, -1, 5}, {5, -1, 0}};
  for (const auto& c : cases) {
    const RunEvent* event = NextEvent(events, c.step, c.direction);
    EXPECT_EQ(event == nullptr ? 0 : event->step, c.found) << c.step << ' ' << c.direction;
  }
  EXPECT_EQ(FirstOf(events, deck_wet), &events[2]);
  EXPECT_EQ(FirstOf(events, pitch_max), nullptr);
  EXPECT_EQ(FindRunEvent("ROLL_MIN")->kind, roll_min);
  EXPECT_EQ(FindRunEvent("ROLL"), nullptr);

  Floats time;
  for (int i = 0; i < 101; ++i) time.push_back(0.25F * static_cast<float>(i));  // steps 7 to 107
  const struct {
    int step;
    double length;
    int first, last;
  } ranges[] = {{57, 5, 47, 67},    {57, 5.3, 47, 67}, {10, 5, 7, 20},
                {107, 1, 105, 107}, {57, 0, 57, 57},   {57, 1e9, 7, 107}};
  for (const auto& c : ranges) {
    const EventSteps range = StepsAbout(time, 7, c.step, c.length);
    EXPECT_EQ(range.first, c.first) << c.step << ' ' << c.length;
    EXPECT_EQ(range.last, c.last) << c.step << ' ' << c.length;
  }
}

TEST(RunEvents, OfAFreeRollDecay) {  // from 10 degrees, period 12 s: the other way half a period later
  SampleRun run("roll_decay.out");
  const CaseStore& store = run.store;
  RunHistories histories;
  histories.first_step = store.first_step;
  histories.time = store.time.range(1, store.first_step, store.last_step);
  histories.roll = store.pmgg.range(4, store.first_step, store.last_step);
  std::vector<RunEvent> events;
  ASSERT_TRUE(FindEvents(histories, events));
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(events[0], (RunEvent{roll_max, store.first_step}));
  EXPECT_EQ(events[1].kind, roll_min);
  const float T = run.session.output.units.scales.T;
  EXPECT_NEAR((store.time.at(1, events[1].step) - store.time.at(1, store.first_step)) * T, 6, 0.26);
}

// The CG in a regular wave of 1 m, heave 0.8 m lagging 36 degrees: 0.588 m of relative motion about its depth.
TEST(RunEvents, ImmersionOfTheDeckInARegularWave) {
  SampleRun run("regular_head.out");
  CaseStore& store = run.store;
  const Console& console = run.session.platform.console;
  ASSERT_EQ(EnsureSeaway(console, store), WaveAnswer::ok);
  ++store.first_step;
  Vector3 cg = ShipCentre(store), above = cg;
  above[2] += 0.1;
  Floats deepest;
  ASSERT_EQ(DeckImmersion(console, store, std::vector<Vector3>{above, cg}, deepest), WaveAnswer::ok);
  ASSERT_EQ(deepest.size(), static_cast<std::size_t>(store.last_step - store.first_step + 1));
  const double relative = std::sqrt(1 + 0.64 - 1.6 * std::cos(36 * M_PI / 180));
  const auto [low, high] = std::minmax_element(deepest.begin(), deepest.end());
  EXPECT_NEAR((*high - *low) * 100 / 2, relative, 0.01);
  EXPECT_NEAR((*high + *low) * 100 / 2, -store.control.PMGIN[2], 0.01);
}

// ---- Wetness

// A box of 60 by 20 by 12 m about the CG, 2.2 m of freeboard.
std::vector<Vector3> BoxPoints() {
  std::vector<Vector3> points;
  for (const double x : {-0.3, -0.1, 0.2, 0.3})
    for (const double y : {-0.1, 0.1})
      for (const double z : {-0.09, -0.01, 0.01, 0.014, 0.0345}) points.push_back({x, y, z});
  return points;
}

TEST(HullWetness, FollowsTheRunBothWays) {
  SampleRun run("regular_head.out");
  CaseStore& store = run.store;
  ASSERT_EQ(EnsureSeaway(run.session.platform.console, store), WaveAnswer::ok);
  const std::vector<Vector3> points = BoxPoints();
  const int last = store.first_step + 120;
  std::vector<int> first_wet(points.size(), kNeverWet);  // by the sum of the waves at each point
  std::vector<Floats> immersion;
  for (int step = store.first_step; step <= last; ++step) {
    const ShipPose pose = PoseAtStep(store, step);
    immersion.emplace_back();
    for (std::size_t i = 0; i < points.size(); ++i) {
      const Vector3 p = ShipToEarth(pose, points[i]);
      float eta = 0;
      WaveOutputs out;
      out.eta = {&eta, 1};
      const WaveMoment moment{store.time.at(1, step), 1.0};
      ASSERT_EQ(EvalIncidentWave(store.wave, moment, {}, {&p, 1}, out), WaveFault::none);
      immersion.back().push_back(eta - static_cast<float>(p[2]));
      if (immersion.back()[i] > 0) first_wet[i] = std::min(first_wet[i], step);
    }
  }
  const float within = 0.01F * store.wave.a[0];
  HullWetness wetness;
  const auto expect = [&](int step) {
    ASSERT_TRUE(FollowWetness(store, points, step, wetness));
    for (std::size_t i = 0; i < points.size(); ++i) {
      EXPECT_NEAR(wetness.immersion[i], immersion[static_cast<std::size_t>(step - store.first_step)][i], within);
      const bool so_far = first_wet[i] <= step || wetness.first_wet[i] <= step;
      EXPECT_TRUE(!so_far || std::abs(wetness.first_wet[i] - first_wet[i]) <= 1) << i << " up to " << step;
    }
  };
  for (const int step : {store.first_step, store.first_step + 1, store.first_step + 17, last, store.first_step + 3})
    expect(step);
  EXPECT_EQ(wetness.known_to, last) << "going back forgets nothing";
  EXPECT_EQ(*std::max_element(first_wet.begin(), first_wet.end()), kNeverWet);
  EXPECT_GT(std::count_if(first_wet.begin(), first_wet.end(),
                          [&](int step) { return step > store.first_step && step <= last; }),
            3);
  ++store.serial;
  ASSERT_TRUE(FollowWetness(store, points, store.first_step, wetness));
  EXPECT_EQ(wetness.known_to, store.first_step) << "another case";
}

}  // namespace
}  // namespace zaview
