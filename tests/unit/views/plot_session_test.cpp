#include "views/frame/plot_session.h"

#include <string>
#include <string_view>
#include <vector>

#include "frame/ground/zaview_exit.h"
#include "plot_view.h"
#include "views/state/result_choice.h"
#include "views/state/start_plot.h"

namespace zaview {
namespace {

constexpr int kEnter = 13;
const PlotRequest kHeave{.quantity = {.iqnt = 1, .curve = 3}};

struct User : Views {
  User() : Views({"irregular_head.out"}) {}
  void Press(std::string_view keys) const {
    for (const char key : keys) FeedEvent(*windows, {.code = key == '\n' ? kEnter : key});
  }
  void Close() const { FeedEvent(*windows, {.kind = FedEvent::Kind::close}); }
};

void ExitNext(Session& session) {
  session.run.exit_requested = true;
}

// A bare RETURN says yes to the question that stood there: it may not do so where it ends the help.
TEST(PlotSession, AQuestionGoesWithItsWindow) {
  User v;
  v.fake.Put("old.txt", "old");
  v.session.dialogue = [](Session& s) {
    EXPECT_TRUE(StartPlot(s, kHeave, 0));
    s.dialogue = ExitNext;
  };
  EXPECT_TRUE(StartPlot(v.session, kHeave, 0));
  v.Press("wold.txt\n");
  v.Close();
  v.Press("h\n\n\n\n\n\n\n\nq");
  EXPECT_EQ(v.Run(), kRunOk) << v.fake.output;
  EXPECT_EQ(v.fake.Bytes("old.txt"), "old");
}

// The name was for this picture, not for the next one that the user stores.
TEST(PlotSession, APictureThatCannotBeMadeForgetsItsName) {
  User v;
  v.session.dialogue = [](Session& s) {
    EXPECT_TRUE(s.run.plot_failed);
    EXPECT_TRUE(StartPlot(s, kHeave, 0));
    EXPECT_FALSE(s.run.plot_failed);
    s.dialogue = ExitNext;
  };
  v.session.output.statistics.confidence_probability = 1.5F;
  v.session.gks.dump.waiting = true;
  v.session.gks.dump.name = "x.png";
  EXPECT_TRUE(StartPlot(v.session, {.kind = PlotKind::interval, .quantity = kHeave.quantity}, 0));
  v.Press("Wq");
  EXPECT_EQ(v.Run(), kRunOk) << v.fake.output;
  EXPECT_FALSE(v.fake.files.contains("x.png"));
  EXPECT_TRUE(v.fake.files.contains("dump0001.png"));
}

// In dump-only mode a plot of the menu has nobody to fail for: the script that comes next doesn't.
TEST(PlotSession, AFailedPictureIsForgottenByTheNextPlot) {
  User v;
  v.fake.environment["GLDUMPONLY"] = "yes";
  v.session.dialogue = [](Session& s) {
    EXPECT_TRUE(s.gks.dump.failed);
    FakePlatform::Of(s.platform.self).room = -1;
    EXPECT_TRUE(StartPlot(s, kHeave, 1));
    s.dialogue = ExitNext;
  };
  v.fake.room = 100;
  EXPECT_TRUE(StartPlot(v.session, kHeave, 0));
  EXPECT_EQ(v.Run(), kRunOk) << v.fake.output;
  EXPECT_FALSE(v.session.gks.dump.failed);
  EXPECT_TRUE(v.fake.files.contains("dump0001.gif"));
}

TEST(PlotSession, TheOptionsMenuOpensWithTheInitialPlot) {
  for (const InitialPlot initial : {InitialPlot::none, InitialPlot::history}) {
    User v;
    v.session.run.open_options_menu = true;
    v.session.run.initial_plot = initial;
    EXPECT_TRUE(StartPlot(v.session, kHeave, 0));
    EXPECT_EQ(v.Run(), kRunFailed);  // nobody leaves the view
    EXPECT_EQ(v.session.menus.m_omenu != 0, initial == InitialPlot::history);
  }
}

// ---- Run mode
struct LoadRun : PlotView {
  LoadRun() : PlotView("irregular_head.out") {
    constexpr int kBendingMoment = 13;
    SetHooks(session);
    Choose(PlotKind::load_dist, kBendingMoment, 0);
    Show();
  }
  CaseStore& store() { return session.case_store; }
  void Begin(int step) {
    store().current_step = step;
    TopKeyboard(session, ' ', 0, 0);
    EXPECT_TRUE(session.plot_session.run_on && session.gks.window.idle_on);
  }
  // The steps drawn in so many idle calls.
  std::vector<int> Idle(int calls) {
    std::vector<int> drawn;
    for (int i = 0; i < calls && session.gks.window.idle_on; ++i) {
      if (!TopIdle(session)) continue;
      Show();
      drawn.push_back(store().current_step);
    }
    return drawn;
  }
};

TEST(RunMode, EndsWithTheLastStepAndItsPicture) {
  for (const bool dumps : {false, true}) {
    LoadRun run;
    const int last = run.store().last_step;
    run.session.plot_session.run_dump = dumps;  // as a menu sets it
    run.Begin(last - 2);
    const std::vector<int> drawn = run.Idle(100);
    // Each picture is drawn until it is stored, the first one too.
    if (dumps) EXPECT_EQ(drawn, (std::vector<int>{last - 2, last - 2, last - 1, last - 1, last - 1, last, last, last}));
    else EXPECT_EQ(drawn, (std::vector<int>{last - 1, last}));
    EXPECT_FALSE(run.session.plot_session.run_on || run.session.plot_session.run_dump);
    EXPECT_FALSE(run.session.gks.window.idle_on);
    EXPECT_EQ(run.fake.files.contains("dump0003.png"), dumps);
    EXPECT_FALSE(run.fake.files.contains("dump0004.png"));
  }
}

// No key of another kind of plot could stop it.
TEST(RunMode, EndsWhereAnotherPlotIsChosen) {
  LoadRun run;
  KeepResult(run.plot(), {"Two points", {{"x", "y", {{"", {0, 1}, {1, 2}}}, {}, {}}}});
  run.Begin(100);
  TopKeyboard(run.session, 'A', 0, 0);
  EXPECT_EQ(run.plot().kind, PlotKind::result);
  EXPECT_FALSE(run.session.plot_session.run_on || run.session.gks.window.idle_on);
}

TEST(RunMode, KeepsTimeWithTheClock) {
  LoadRun run;
  constexpr float kSlower = 2;
  run.session.plot_session.run_sync = true;
  run.session.plot_session.run_sync_factor = kSlower;
  run.fake.seconds = 1000;
  run.Begin(150);
  const double step = static_cast<double>((run.store().time.at(1, 151) - run.store().time.at(1, 150)) *
                                          run.session.output.units.scales.T * kSlower);
  const struct {
    double steps;  // that have gone by
    int shown;     // 0: nothing new
  } cases[] = {{0.0, 0}, {0.9, 0}, {1.1, 151}, {1.9, 0}, {4.1, 154}, {1e6, 300}};
  for (const auto& c : cases) {
    run.fake.seconds = 1000 + c.steps * step;
    EXPECT_EQ(run.Idle(1), c.shown == 0 ? std::vector<int>{} : std::vector<int>{c.shown}) << c.steps;
  }
  EXPECT_FALSE(run.session.plot_session.run_on || run.session.gks.window.idle_on);
}

// Calls of the loop at some distance, as drawing takes its time, for 12 s of the clock: as many steps as fit into them,
// to 5 %; or every one, where none may be left out.
TEST(RunMode, LeavesStepsOutOrShowsThemAllInTime) {
  const struct {
    float factor;
    double call;  // seconds from one to the next
    bool real_time;
    double shown, last;  // pictures, steps gone on
  } cases[] = {
      {1, 0.08, true, 48, 48},    {2, 0.12, true, 24, 24}, {0.5F, 0.5, true, 24, 96},
      {0.5F, 0.5, false, 24, 24}, {4, 0.3, false, 12, 12},
  };
  for (const auto& c : cases) {
    LoadRun run;
    PlotSessionState& p = run.session.plot_session;
    p.run_sync = true;
    p.sync_real_time = c.real_time;
    p.run_sync_factor = c.factor;
    run.fake.seconds = 50;
    run.Begin(101);
    int shown = 0;
    for (int call = 1; call * c.call <= 12.0001; ++call) {
      run.fake.seconds = 50 + call * c.call;
      shown += TopIdle(run.session) ? 1 : 0;
    }
    EXPECT_NEAR(shown, c.shown, 0.05 * c.shown) << c.factor;
    EXPECT_NEAR(run.store().current_step - 101, c.last, 0.05 * c.last) << c.factor;
  }
}

// From one view to another without the text menu: there is no dialogue here that could be called.
TEST(PlotSession, AChangeOfViewPassesTheMenuBy) {
  LoadRun run;
  run.session.run.change_module = PlotModule::data_plot;
  run.session.run.plot_module = PlotModule::animation;
  run.fake.output.clear();
  TopRender(run.session, false);
  EXPECT_EQ(run.fake.output, "change_module= 1\nHit the 'h' key for HELP, Alt-o for Options menu\n");
  EXPECT_TRUE(run.session.run.view_is_new && run.session.gks.window.idle_on);
  EXPECT_EQ(run.session.run.plot_module, PlotModule::data_plot);
  EXPECT_EQ(run.session.run.change_module, PlotModule::none);
  EXPECT_FALSE(TopIdle(run.session));  // the options menu
  EXPECT_FALSE(run.session.plot_session.menu_pending || run.session.gks.window.idle_on);
  run.session.run.exit_requested = true;  // while the view is drawn
  EXPECT_THROW(TopRender(run.session, false), FakeExit);
}

}  // namespace
}  // namespace zaview
