// Keys and clicks of the animation: what each changes and says, and where its limits are.
#include <cmath>
#include <iterator>
#include <string_view>
#include <vector>

#include "unit/views/motion_fields.h"
#include "unit/views/plot_view.h"
#include "views/frame/session_keys.h"
#include "views/motion/motion_overlay.h"
#include "views/motion/motion_view.h"
#include "views/state/motion_settings.h"
#include "views/state/popup.h"
#include "views/state/step_run.h"

namespace zaview {
namespace {

constexpr std::string_view kSample = "irregular_head.out";  // 300 steps of 0.25 s, no hull

struct KeyCase {
  const char *keys, *changes;  // "name value ..", the others stay; blank: no picture is asked for either
  const char* said = "";
};

struct Animation : PlotView {
  Animation() : PlotView(std::string(kSample), 400, 300) {
    SetHooks(session);
    Renew();
  }
  // At step 100, nothing set.
  void Renew() {
    StopRun(session);
    session.motion_view = {};
    session.plot_session = {};
    session.run.exit_requested = false;
    session.run.plot_colours = 0;
    session.run.plot_module = PlotModule::animation;
    session.output.reading.step_stride = 1;
    session.case_store.current_step = 100;
    session.run.redraw = false;
    fake.output.clear();
  }
  void Expect(const KeyCase& c, std::vector<double> want) {
    TakeChanges(kMotionFields, c.changes, want);
    const std::vector<double> got = FieldsOf(session);
    for (std::size_t i = 0; i < want.size(); ++i)
      EXPECT_NEAR(got[i], want[i], 1.0e-5 * std::max(1.0, std::abs(want[i])))
          << c.keys << ": " << kMotionFields[i].name;
    EXPECT_TRUE(*c.changes != '\0' || !session.run.redraw) << c.keys;
    EXPECT_EQ(fake.output, c.said) << c.keys;
  }
  void ExpectAll(std::span<const KeyCase> cases, int stride = 1) {
    for (const KeyCase& c : cases) {
      Renew();
      session.output.reading.step_stride = stride;
      const std::vector<double> before = FieldsOf(session);
      Press(session, c.keys);
      Expect(c, before);
    }
  }
};

TEST(MotionKeys, EyeTurnsShiftsAndZooms) {
  // clang-format off
  constexpr KeyCase kCases[] = {
      {"Left", "azimuth 40"}, {"Right", "azimuth 50"}, {"Up", "elevation 35"}, {"Down", "elevation 25"},
      {"Left Left Left Left Left Left Left Left Left Left", "azimuth 355"},
      {"Up Up Up Up Up Up Up Up Up Up Up Up Up Up", "elevation 90"}, {"5 Up", "azimuth 270 elevation 90"},
      {"3 Down Down Down Down Down Down Down Down Down Down Down Down Down Down Down Down Down Down Down Down",
       "azimuth 90 elevation -90"},
      {"B", "radius 1.414"}, {"-", "radius 1.414"}, {"+", "radius 0.7072136"}, {"= B", "radius 1"},
      {"- - - - - - - - - - - - - - - - - - - - - -", "radius 1000"},
      {"+ + + + + + + + + + + + + + + + + + + + + +", "radius 0.001"},
      {"x", "x -0.1"}, {"X X", "x 0.2"}, {"y", "y -0.1"}, {"Y", "y 0.1"}, {"z Z Z", "z 0.1"}, {"- X 1", "azimuth 0 elevation 8"},
      {"{", "aperture 25"}, {"{ { { { { { {", "aperture 5"}, {"}", "aperture 35"},
      {"} } } } } } } } } } } } } }", "aperture 90"},
      {"2", "azimuth 180 elevation 8"}, {"4", "azimuth 270 elevation 8"}, {"6", "azimuth 150 elevation 20"},
      {"^p", "perspective 0"}, {"^p 4 } s 0", "", "View point goes along with: ship and its heading\n"},
      {"s s", "stand 2", "View point goes along with: ship and its heading\nView point goes along with: nothing\n"},
      {"s s s s", "stand 0", "View point goes along with: ship and its heading\nView point goes along with: nothing\n"
                             "View point goes along with: bridge\nView point goes along with: ship\n"},
  };
  // clang-format on
  Animation a;
  for (const KeyCase& c : kCases) {
    a.Renew();
    const std::vector<double> before = FieldsOf(a.session);
    Press(a.session, c.keys);
    a.session.run.redraw = false;  // of a way there and back
    a.Expect(c, before);
  }
  a.Renew();
  a.session.motion_view.view.view_radius = 12.5;
  Press(a.session, "v");
  EXPECT_EQ(a.fake.output, "View Radius= 12.5 Azimuth= 45 Elevation= 30\n");
}

TEST(MotionKeys, LooksAreToggledAndKeptWithinLimits) {
  // clang-format off
  constexpr KeyCase kCases[] = {
      {"a", "ambient 0.2"}, {"a a", "ambient 0.1"}, {"a a a", "ambient 0.1"}, {"A", "ambient 0.4"},
      {"A A A A A A A A", "ambient 0.9"},
      {"o", "opacity 0.5", "Opacity= 0.5\n"}, {"O", "opacity 0.7", "Opacity= 0.7\n"},
      {"o o o o o o", "opacity 0.1", "Opacity= 0.5\nOpacity= 0.4\nOpacity= 0.3\nOpacity= 0.2\nOpacity= 0.1\nOpacity= 0.1\n"},
      {"O O O O O", "opacity 1", "Opacity= 0.7\nOpacity= 0.8\nOpacity= 0.9\nOpacity= 1\nOpacity= 1\n"},
      {"g", "grid 0.7071068"}, {"G G", "grid 2"}, {"e", "text 0.1272727"}, {"E E", "text 0.1694"},
      {"t", "thick 0.04"}, {"t t", "thick 0.08"}, {"t t t t", "thick 0.04"},
      {"^b r ^t l k i u w", "solid 0 rudders 0 track 1 waterline 1 centres 1 events 1 horizon 1 colour 1"},
      {"w w ^l ^s T", "shading 0 sea 0 title 0"}, {"^r", "background 1"},
      {"S j D F1 Back 7 ^S ^T A-s", ""},
      {"q", "module 0"}, {"Q", "exit 1"},
  };
  // clang-format on
  Animation a;
  a.ExpectAll(kCases);
  a.Renew();
  Press(a.session, "R");
  EXPECT_TRUE(a.session.run.redraw);
  // As far as the tenths of 4 bytes, to the last bit.
  Press(a.session, "a a a a");
  EXPECT_EQ(a.session.motion_view.ambient, 0.1F);
}

TEST(MotionKeys, StepsAndRuns) {
  // clang-format off
  constexpr KeyCase kCases[] = {
      {"[", "step 99"}, {"] ]", "step 102"}, {"PgUp", "step 99"}, {"PgDn", "step 101"}, {"S-PgUp [", "step 1"},
      {"b", "step 1"}, {"S-PgDn", "step 300"},
      {"Space", "run 1 t0 24.75"}, {"Space b", "run 1 step 1 t0 0"}, {"Space Space", "t0 24.75"},
      {"Space ]", "step 101 t0 24.75"}, {"Space PgUp", "step 99 t0 24.75"}, {"Space q", "module 0 t0 24.75"},
      {"Space ^b Left", "run 1 solid 0 azimuth 40 t0 24.75"},
      {"S-PgDn Space", "step 300"},  // nothing behind it
      {"c", "factor 1.4142135", "Time sync factor= 1.414214\n"}, {"C C", "factor 0.5", "Time sync factor= 0.7071068\nTime sync factor= 0.5\n"},
      {"^c", "sync 1", "Time sync now ON\n"}, {"^c ^c", "", "Time sync now ON\nTime sync now OFF\n"},
      {"End", "run 1 dump 1"}, {"Space End", "run 1 dump 1 t0 24.75"}, {"End Space", ""},
  };
  constexpr KeyCase kBySeven[] = {{"]", "step 107"}, {"PgUp", "step 93"}, {"S-PgDn [", "step 293"}, {"S-PgDn ]", "step 300"}};
  // clang-format on
  Animation a;
  for (const KeyCase& c : kCases) {
    a.Renew();
    const std::vector<double> before = FieldsOf(a.session);
    Press(a.session, c.keys);
    a.session.run.redraw = false;
    a.Expect(c, before);
  }
  a.ExpectAll(kBySeven, 7);
}

TEST(MotionKeys, AFactorOfTheClockCountsAnewAtOnceAndHasLimits) {
  Animation a;
  a.session.plot_session.run_sync = true;
  Press(a.session, "Space");
  a.fake.seconds = 500;
  Press(a.session, "c");
  EXPECT_EQ(a.session.plot_session.run_clock0, 500);
  for (int i = 0; i < 100; ++i) Press(a.session, "c");
  EXPECT_EQ(a.session.plot_session.run_sync_factor, 1.0e4F);
  for (int i = 0; i < 100; ++i) Press(a.session, "C");
  EXPECT_EQ(a.session.plot_session.run_sync_factor, 1.0e-4F);
}

// One picture at most where a clock doesn't go.
TEST(MotionKeys, WithoutAClockThereIsNoSynchronization) {
  Animation a;
  a.session.plot_session.run_sync = true;
  a.fake.seconds = -1;
  Press(a.session, "Space");
  EXPECT_EQ(a.fake.output, "WARNING: Wallclock time not available - time synchronization disabled\n");
  EXPECT_TRUE(a.session.plot_session.run_on && !a.session.plot_session.run_sync);
}

TEST(MotionKeys, ClicksRunAndOpenThePopup) {
  Animation a;
  Session& s = a.session;
  gksBeginPicture(s.platform.window, s.gks);
  KinoRender(s);
  const auto click = [&](unsigned held, float x, float y, int button = 1) {
    s.gks.modifiers = held;
    KinoMouse(s, button, x, y);
    s.gks.modifiers = 0;
  };
  click(0, 5, 4);
  EXPECT_TRUE(s.plot_session.run_on);
  click(0, 5, 4);
  click(0, 5, 4, 3);
  click(kShiftKey, 5, 4);
  EXPECT_FALSE(s.plot_session.run_on);
  constexpr ViewAsk kAsks[] = {ViewAsk::help, ViewAsk::options_menu, ViewAsk::time_step_menu};  // upwards
  for (std::size_t i = 0; i < std::size(kAsks); ++i) {
    click(i == 0 ? kAltKey : kControlKey, 3, 3, i == 1 ? 3 : 1);
    EXPECT_TRUE(s.motion_view.popup.open);
    const PopupBox box = PopupBoxOf(s.motion_view.popup, kMotionPopup, DrawOf(s));
    click(0, box.left + 0.1F, box.bottom + box.pitch * (0.5F + static_cast<float>(i)));
    EXPECT_EQ(s.plot_session.ask, kAsks[i]) << i;
    EXPECT_FALSE(s.motion_view.popup.open || s.plot_session.run_on);
  }
  s.plot_session.ask = ViewAsk::none;
  click(kControlKey, 3, 3);
  click(0, 9, 8);  // beside it
  EXPECT_TRUE(s.plot_session.ask == ViewAsk::none && !s.motion_view.popup.open);
  click(kControlKey, 3, 3);
  s.run.redraw = false;
  Press(s, "v");
  EXPECT_TRUE(!s.motion_view.popup.open && s.run.redraw);
}

TEST(MotionKeys, HelpIsInTheOrderOfTheTable) {
  Animation a;
  const std::vector<std::string> lines = HelpLines(MotionKeys(a.session));
  ASSERT_GT(lines.size(), 40U);
  EXPECT_LE(lines.size(), 100U);  // of the text screen
  EXPECT_EQ(lines[1], "LEFT mouse click starts/stops animation");
  EXPECT_EQ(lines[3], " Key    Function");
  EXPECT_EQ(lines.back(), "Shift+Pg up/dn  - Plot first/last time step");
  std::string order;
  for (const std::string& line : lines)
    for (const char* of : {" a/A", " b ", " h/H", " q ", " W ", "-/+", "Arrows", "Space", "End"})
      if (line.rfind(of, 0) == 0) order += std::string(of) + ",";
  EXPECT_EQ(order, " a/A, b , h/H, q , W ,-/+,Arrows,Space,End,");
  for (const char* absent : {"^S ", "^T ", "Alt+s"})
    for (const std::string& line : lines) EXPECT_NE(line.rfind(absent, 0), 0U) << line;
}

TEST(MotionSettings, AnotherCaseTakesWhatItHas) {
  Animation a;
  Session& s = a.session;
  MotionViewState& view = s.motion_view;
  TakeCase(s.platform, view, s.case_store);
  view.view.view_radius = 77;
  view.fs_grid_size = 5;
  view.ambient = 0.7F;
  view.mark_point = true;
  for (const auto& [graph, quantity] : {std::pair{0, 1}, {1, 13}}) {  // positions; a load at cuts
    view.graphs[static_cast<std::size_t>(graph)].on = true;
    view.graphs[static_cast<std::size_t>(graph)].request.iqnt = quantity;
  }
  TakeCase(s.platform, view, s.case_store);
  EXPECT_TRUE(view.view.view_radius == 77 && view.graphs[1].on);
  a.Read("regular_head.out");
  TakeCase(s.platform, view, s.case_store);
  EXPECT_TRUE(view.view.view_radius == 0 && view.fs_grid_size == 0 && view.ambient == 0.7F);
  EXPECT_TRUE(view.graphs[0].on && !view.graphs[1].on && !view.mark_point) << a.fake.output;
  EXPECT_NE(a.fake.output.find("Graph 2 is switched off : this case has no "), std::string::npos) << a.fake.output;
  EXPECT_NE(a.fake.output.find("The marked point is switched off"), std::string::npos);
}

}  // namespace
}  // namespace zaview
