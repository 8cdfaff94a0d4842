// Runs of the animation with pictures: one a step, in order, the same ones whoever makes them and whatever happens to
// the window.
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "case/settings/step_settings.h"
#include "frame/ground/zaview_exit.h"
#include "gks/window/gks_window.h"
#include "unit/views/plot_view.h"
#include "views/frame/ordered_run.h"
#include "views/frame/plot_session.h"
#include "views/state/run_pictures.h"
#include "views/state/step_run.h"

namespace zaview {
namespace {

using Files = std::map<std::string, std::string>;

struct Shoot : Views {
  int taken = 0;
  std::vector<std::string> told;  // of each picture that was taken
  static Shoot*& Current() {
    static Shoot* current = nullptr;
    return current;
  }

  explicit Shoot(bool in_memory = true) : Views({"irregular_head.out"}) {  // 300 steps of 0.25 s
    Current() = this;
    fake.window.offscreen = in_memory;
    fake.files.clear();
    session.dialogue = [](Session& s) { s.run.exit_requested = true; };
    glResizeWindow(session.platform, session.gks, 64, 48);
    fake.program = "ffmpeg";
  }
  void Range(int first, int last, int stride = 1, int initial = 0) {
    EXPECT_EQ(SetOutputSteps(first, last, session.case_store), SettingFault::none);
    session.output.reading.step_stride = stride;
    session.motion_view.initial_step = initial;
  }
  // The pictures that are there at the end.
  Files Run(const AnimationOrder& order) {
    EXPECT_TRUE(StartAnimation(session, order, 1)) << fake.output;
    EXPECT_EQ(Views::Run(), kRunOk) << fake.output;
    return Pictures();
  }
  [[nodiscard]] Files Pictures() const {
    Files files;
    for (const auto& [name, file] : fake.files) files[name] = file.bytes;
    return files;
  }
};

const AnimationOrder kNumbered{.pictures = true};

std::vector<std::string> InOrder(const Files& files) {
  std::vector<std::string> bytes;
  for (const auto& file : files) bytes.push_back(file.second);
  return bytes;
}

TEST(MotionRun, ThereIsOnePictureAStep) {
  // clang-format off
  const struct { int first, last, stride, initial; std::size_t pictures; int ends; } cases[] = {
      {11, 20, 1, 0, 10, 20}, {101, 140, 6, 0, 7, 137}, {11, 20, 1, 18, 3, 20}, {11, 20, 1, 40, 1, 20}, {30, 30, 1, 0, 1, 30},
      {11, 20, std::numeric_limits<int>::max(), 0, 1, 11},
  };
  // clang-format on
  for (const auto& c : cases) {
    Shoot shoot;
    shoot.Range(c.first, c.last, c.stride, c.initial);
    const Files files = shoot.Run(kNumbered);
    EXPECT_EQ(files.size(), c.pictures) << c.first;
    EXPECT_EQ(files.rbegin()->first, fmt::format("dump{:04}.png", c.pictures));
    EXPECT_EQ(shoot.session.case_store.current_step, c.ends);
    EXPECT_EQ(shoot.session.run.plot_module, PlotModule::none);
    EXPECT_FALSE(shoot.session.gks.dump.failed || shoot.session.plot_session.ordered.on);
    const std::vector<std::string> pictures = InOrder(files);
    for (std::size_t i = 1; i < pictures.size(); ++i) EXPECT_NE(pictures[i], pictures[i - 1]) << i;
  }
}

TEST(MotionRun, AStepHasItsPictureWhateverTheRun) {
  Shoot all, two, shown(false), video;
  all.Range(11, 20);
  two.Range(14, 17, 3);
  shown.Range(11, 20);
  video.Range(14, 17, 3);
  const std::vector<std::string> pictures = InOrder(all.Run(kNumbered));
  EXPECT_EQ(InOrder(two.Run(kNumbered)), (std::vector<std::string>{pictures[3], pictures[6]}));
  EXPECT_EQ(InOrder(shown.Run({.pictures = true, .output = {.kind = RunPictures::named, .name = "r.png"}})), pictures);
  RunOutputOrder order;
  ASSERT_TRUE(OrderOfName("v.mp4", order));
  video.session.plot_session.run_sync_factor = 2;
  const Files files = video.Run({.pictures = true, .output = order});
  std::string both;
  for (const std::size_t i : {3U, 6U}) {
    Shoot one;
    one.Range(11 + static_cast<int>(i), 11 + static_cast<int>(i));
    one.Run(kNumbered);
    std::string rgb(64 * 48 * 3, ' ');
    EXPECT_TRUE(ReadOffscreenPicture(*one.windows, 1, 64, 48, reinterpret_cast<unsigned char*>(rgb.data())));
    both += rgb;
  }
  EXPECT_TRUE(files.size() == 1 && files.at("v.mp4") == both);
  EXPECT_EQ(video.fake.words[10], "-r");
  EXPECT_EQ(video.fake.words[11], "1");  // 3 steps of 0.25 s, half as fast: 0.67, but no less than 1
}

// The window is closed by the user behind every third picture, and opened anew.
TEST(MotionRun, AClosedWindowLosesNoStep) {
  Shoot whole(false), closed(false);
  whole.Range(11, 20);
  closed.Range(11, 20);
  const Files pictures = whole.Run(kNumbered);
  Shoot::Current() = &closed;
  closed.session.gks.hooks.take_picture = [](void* self) {
    Shoot& shoot = *Shoot::Current();
    if (shoot.taken++ % 3 == 2) FeedEvent(*shoot.windows, {.kind = FedEvent::Kind::close});
    return TakeRunPicture(*static_cast<Session*>(self));
  };
  EXPECT_EQ(closed.Run(kNumbered), pictures);
  EXPECT_EQ(closed.taken, 10);
}

// The end of the program in the middle of a run, and a disk that is full.
TEST(MotionRun, WhatIsWrittenIsWholeWhereTheRunIsCutOff) {
  Shoot whole, lost, full;
  for (Shoot* shoot : {&whole, &lost, &full}) shoot->Range(11, 20);
  const Files pictures = whole.Run(kNumbered);
  Shoot::Current() = &lost;
  lost.session.gks.hooks.take_picture = [](void* self) {
    if (Shoot::Current()->taken++ == 4) zaviewexit(*static_cast<Session*>(self), kRunFailed);
    return TakeRunPicture(*static_cast<Session*>(self));
  };
  EXPECT_TRUE(StartAnimation(lost.session, kNumbered, 1));
  EXPECT_EQ(lost.Views::Run(), kRunFailed);
  for (const auto& [name, bytes] : pictures) {
    const std::string got = lost.fake.Bytes(name);
    EXPECT_TRUE(got == bytes || got == "(no file)") << name;
  }
  EXPECT_GE(lost.fake.files.size(), 3U);
  full.fake.room = static_cast<std::int64_t>(pictures.at("dump0001.png").size() + 10);
  const Files kept = full.Run(kNumbered);
  EXPECT_EQ(kept, (Files{{"dump0001.png", pictures.at("dump0001.png")}}));
  EXPECT_TRUE(full.session.gks.dump.failed);
}

TEST(MotionRun, DumpOnlyModeMakesTheRunOfAnyAnimation) {
  Shoot shoot;
  shoot.fake.environment["GLDUMPONLY"] = "T";
  shoot.Range(21, 24);
  EXPECT_EQ(shoot.Run({}).size(), 4U);
}

TEST(MotionRun, AnEventBringsTheStepsAboutIt) {
  Shoot shoot, none;
  shoot.Range(1, 300);
  const CaseStore& store = shoot.session.case_store;
  int largest = 1;
  for (int step = 1; step <= 300; ++step)
    if (store.pmgg.at(5, step) > store.pmgg.at(5, largest)) largest = step;
  const AnimationOrder order{
      .pictures = true, .about_event = true, .event = RunEventKind::pitch_max, .seconds = 2};  // 4 steps either way
  EXPECT_EQ(shoot.Run(order).size(), 9U);
  EXPECT_EQ(store.current_step, largest + 4);
  shoot.session.plot_session.order = order;
  shoot.session.plot_session.order.pictures = false;
  EnterAnimation(shoot.session);
  EXPECT_EQ(store.current_step, largest - 4);
  // No point of this ship slams.
  EXPECT_TRUE(StartAnimation(none.session,
                             {.pictures = true, .about_event = true, .event = RunEventKind::slam, .seconds = 2}, 1));
  EXPECT_EQ(none.Views::Run(), kRunOk);
  EXPECT_TRUE(none.session.run.plot_failed && none.fake.files.empty() && !none.session.gks.dump.waiting);
  EXPECT_NE(none.fake.output.find("ERROR - there is no SLAM in the steps in use"), std::string::npos);
}

TEST(MotionRun, PlaysAsFastAsItIsSimulated) {
  Shoot shoot;
  // clang-format off
  const struct { int first, last, stride; float factor; int count; double rate; } cases[] = {
      {1, 300, 1, 1, 300, 4}, {1, 300, 2, 1, 150, 2}, {1, 300, 1, 0.5F, 300, 8}, {1, 300, 1, 0.01F, 300, 60},
      {1, 300, 1, 100, 300, 1}, {5, 5, 1, 1, 1, 1},
  };
  // clang-format on
  for (const auto& c : cases) {
    shoot.session.output.reading.step_stride = c.stride;
    shoot.session.plot_session.run_sync_factor = c.factor;
    const RunOutputOrder order = OrderOfSteps(shoot.session, {}, c.first, c.last);
    EXPECT_EQ(order.count, c.count);
    EXPECT_NEAR(order.rate, c.rate, 1e-4 * c.rate);
  }
}

}  // namespace
}  // namespace zaview
