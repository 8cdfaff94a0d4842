// The time-step menu: its items, and how it follows a run that goes on.
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "gks/window/gks_window.h"
#include "script/open_script_file.h"
#include "unit/views/menu_view.h"
#include "unit/views/motion_fields.h"
#include "views/menus/option_builder.h"
#include "views/state/run_pictures.h"
#include "views/state/step_run.h"

namespace zaview {
namespace {

constexpr double kStepTakes = 0.01;  // seconds of the clock

struct StepMenu : MenuView {
  std::function<void(int)> during = [](int) {};  // a run: the number of its idle call
  int idle_calls = 0, posted = 0;
  void (*post)(void* self, int id) = nullptr;

  static StepMenu*& Current() {
    static StepMenu* current = nullptr;
    return current;
  }
  explicit StepMenu(bool of_loads = false) : MenuView({"irregular_head.out"}) {  // 300 steps of 0.25 s
    Current() = this;
    glResizeWindow(session.platform, session.gks, 64, 48);
    if (of_loads) EnterPlot({.kind = PlotKind::load_dist, .quantity = {.iqnt = 14}});
    else {
      EXPECT_TRUE(StartAnimation(session, {}, 0)) << fake.output;
      Enter();
    }
    post = std::exchange(session.platform.window.post_redisplay, [](void* self, int id) {
      StepMenu& menu = *Current();
      if (menu.Menu() != 0 && id == menu.WindowOf(menu.Menu())) ++menu.posted;
      menu.post(self, id);
    });
    session.gks.hooks.idle = [](void* self) {
      StepMenu& menu = *Current();
      menu.fake.seconds += kStepTakes;
      menu.during(++menu.idle_calls);
      return TopIdle(*static_cast<Session*>(self));
    };
    Key(' ', kAltKey);
    fake.output.clear();
  }
  [[nodiscard]] int Menu() const { return session.menus.m_tsmenu; }
  [[nodiscard]] const MenuRunBar& Bar() { return gksMenuElementAt(session.menus.kit, Menu(), 1)->run_bar; }
  [[nodiscard]] std::pair<int, int> PlaceOnBar(int button) {  // 1 to 3; 0: three quarters along the track
    const MenuPlaced bar = LayoutOf(session.menus.kit, Menu()).elements[0];
    const MenuBox box = button == 0 ? bar.inner : bar.items[static_cast<std::size_t>(button) - 1];
    return {box.x + (button == 0 ? box.width * 3 / 4 : box.width / 2), box.y + box.height / 2};
  }
  void FeedBar(int button) {
    used.insert(Find(Menu(), {})->option);
    const auto [x, y] = PlaceOnBar(button);
    FeedEvent(*windows, {FedEvent::Kind::mouse, WindowOf(Menu()), 1, 0, x, y});
    FeedEvent(*windows, {FedEvent::Kind::release, WindowOf(Menu()), 1, 0, x, y});
  }
  void FeedPress(const ItemAt& at) {  // to be told ahead of the next idle call
    const OptionPlace& place = *Find(Menu(), at);
    const MenuBox box = LayoutOf(session.menus.kit, Menu())
                            .elements[static_cast<std::size_t>(place.element) - 1]
                            .items[static_cast<std::size_t>(place.item) - 1];
    FeedEvent(*windows, {FedEvent::Kind::mouse, WindowOf(Menu()), 1, 0, box.x + 5, box.y + box.height / 2});
  }
  void PressBar(int button) {
    FeedBar(button);
    Loop();
  }
};

struct StepCase {
  const char *text, *typed, *changes, *said = "";
};

// clang-format off
constexpr StepCase kItems[] = {
    {"Step:", "100", "step 100"}, {"Step:", "up", "step 101"}, {"Step:", "301", "", "ILLEGAL value ignored\n"},
    {"Time:", "10.1", "step 41"}, {"Time:", "74.75", "step 300"}, {"Time:", "80", "", "ILLEGAL value ignored\n"},
    {"Trim steps; beg:", "20", "first 21"}, {" end", "200", "last 100 step 100"},
    {" end", "280", "", "ILLEGAL value - too many steps trimmed\n"}, {"Step:", "20", "", "ILLEGAL value ignored\n"},
    {"Trim steps; beg:", "-1", "", "ILLEGAL value ignored\n"},
    {"Sync to clock;", "", "sync 1"}, {"Sync to clock;", "", "sync 0"}, {"+", "", "factor 1.4142135"}, {"-", "", "factor 1"},
    {"  sync factor=", "0.5", "factor 0.5"}, {"  sync factor=", "0", "", "ILLEGAL value ignored\n"},
    {"Leave out steps that are late", "", "late 0"},
    {"Write image files while running", "", "dump 1"}, {"Write image files while running", "", "dump 0"},
};
// clang-format on

TEST(TimeStepMenu, EachItemSetsItsOwn) {
  StepMenu v;
  for (const StepCase& c : kItems) {
    std::vector<double> want = FieldsOf(v.session);
    TakeChanges(kMotionFields, c.changes, want);
    v.fake.output.clear();
    if (*c.typed == '\0') v.Press(v.Menu(), {"", c.text});
    else if (std::string_view(c.typed) == "up") v.Arrow(v.Menu(), {"", c.text}, true);
    else v.Type(v.Menu(), {"", c.text}, c.typed);
    ExpectFields(FieldsOf(v.session), want, c.text);
    EXPECT_EQ(v.fake.output, c.said) << c.text << " " << c.typed;
  }
  v.session.output.reading.step_stride = 7;
  v.PressBar(2);
  EXPECT_EQ(v.session.case_store.current_step, 93);
  v.PressBar(3);
  EXPECT_EQ(v.session.case_store.current_step, 100);
  v.PressBar(0);
  EXPECT_NEAR(v.session.case_store.current_step, 81, 2);  // of 21 to 100
  EXPECT_EQ(v.Bar().step, v.session.case_store.current_step);
  v.ExpectAllUsed(TimeStepOptions(v.session).blocks);
}

TEST(TimeStepMenu, SynchronizationByMenuKeyAndScriptIsTheSame) {
  StepMenu v;
  v.Press(v.Menu(), {"", "Sync to clock;"});
  v.Press(v.Menu(), {"", "+"});
  const std::vector<double> by_menu = FieldsOf(v.session);
  StepMenu keyed, scripted;
  Press(keyed.session, "^c c");
  EXPECT_EQ(FieldsOf(keyed.session), by_menu);
  scripted.fake.Put("s", "ANIMATE_OPTION SYNC 1.4142135\n");
  EXPECT_EQ(OpenScriptFile(scripted.session, "s"), kScriptOk);
  EXPECT_EQ(FieldsOf(scripted.session), by_menu);
}

// At most every 50 ms of the clock, and at the end of the run; the view is drawn at every step.
TEST(TimeStepMenu, FollowsARunWithoutHoldingItUp) {
  for (const bool of_loads : {false, true}) {
    StepMenu v(of_loads);
    v.posted = 0;
    v.PressBar(1);
    EXPECT_EQ(v.session.case_store.current_step, 300);
    EXPECT_EQ(v.idle_calls, 299);
    EXPECT_TRUE(v.Bar().step == 300 && !v.Bar().running);
    EXPECT_GE(v.posted, 50);
    EXPECT_LE(v.posted, 64);
    // Without a clock at every step.
    v.session.platform.clock.seconds = [](void*) { return -1.0; };
    v.posted = v.idle_calls = 0;
    GoToStep(v.session, 100);
    v.PressBar(1);
    EXPECT_GE(v.posted, 200);
  }
}

TEST(TimeStepMenu, IsLiveDuringARun) {
  StepMenu v;
  v.during = [&](int call) {
    const CaseStore& store = v.session.case_store;
    const bool on = v.session.plot_session.run_on;
    if (call == 10) v.FeedBar(0);  // the run goes on from there
    if (call == 12) {
      EXPECT_NEAR(store.current_step, 225, 5);
    }
    if (call == 20) Press(v.session, "b");
    if (call == 22) {
      EXPECT_TRUE(on && store.current_step < 10 && v.Bar().running);
    }
    if (call == 30) v.FeedBar(3);  // and stops there
  };
  v.PressBar(1);
  EXPECT_FALSE(v.session.plot_session.run_on || v.Bar().running);
  EXPECT_LT(v.session.case_store.current_step, 20);
  EXPECT_EQ(v.Bar().step, v.session.case_store.current_step);
  // What is being typed stays while the bar moves.
  v.during = [&](int call) {
    const int id = v.WindowOf(v.Menu());
    if (call % 5 == 0 && call / 5 <= 3) FeedEvent(*v.windows, {FedEvent::Kind::key, id, "125"[call / 5 - 1], 0});
    if (call == 40) FeedEvent(*v.windows, {FedEvent::Kind::key, id, 13, 0});
    if (call == 42) {
      EXPECT_NEAR(v.session.case_store.current_step, 126, 2);
      StopRun(v.session);
    }
  };
  v.Press(v.Menu(), {"", "Step:"});
  for (std::size_t i = v.session.menus.kit.type_in.buffer.size(); i > 0; --i) v.Key(8, 0, v.WindowOf(v.Menu()));
  v.idle_calls = 0;
  Press(v.session, "Space");
  v.Loop();
  EXPECT_EQ(v.idle_calls, 42);
}

TEST(TimeStepMenu, PicturesBeginAndEndWithinARun) {
  StepMenu v;
  GoToStep(v.session, 280);
  RefreshMenus(v.session);
  v.during = [&](int call) {
    if (call == 5 || call == 20) v.FeedPress({"", "Write image files while running"});
  };
  v.PressBar(1);
  EXPECT_EQ(v.session.case_store.current_step, 300);
  EXPECT_FALSE(v.session.plot_session.run_dump || v.session.plot_session.run_on);
  EXPECT_TRUE(v.fake.files.contains("dump0004.png") && !v.fake.files.contains("dump0010.png"));
  EXPECT_EQ(v.session.plot_session.run_output, nullptr);
}

}  // namespace
}  // namespace zaview
