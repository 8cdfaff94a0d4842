// Keys of the data plot: what each changes, what it says, and where it does nothing.
#include <cmath>
#include <iterator>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "unit/views/data_plot_fields.h"
#include "unit/views/plot_view.h"
#include "views/data_plot/data_plot.h"
#include "views/frame/screen_dialogue.h"
#include "views/frame/session_keys.h"
#include "views/state/axes_limits.h"

namespace zaview {
namespace {

constexpr std::string_view kSample = "irregular_head.out";  // 300 steps of 0.25; 5 X cuts
constexpr int kPosition = 1, kVerticalForce = 13, kWaveAtCg = 25;

struct KeyCase {
  PlotKind kind;
  const char *keys, *changes;  // "name value ..": the others stay as they are; blank: not even a picture is asked for
  const char* said = "";
};

constexpr PlotKind kHistory = PlotKind::history, kTrack = PlotKind::trajectory, kLoads = PlotKind::load_dist,
                   kBars = PlotKind::histogram, kCovariance = PlotKind::autocovariance, kBand = PlotKind::interval;

// A zoomed plot, nothing else changed, at step 100.
void Renew(PlotView& v, PlotKind kind) {
  Session& s = v.session;
  s.data_plot = DataPlotState{};
  s.output.smoothing.option = 0;
  s.statistics = StatisticsState{};
  s.plot_session.run_sync_factor = 1;
  s.menus.kit.font_step = 2;
  s.run.plot_module = PlotModule::data_plot;
  s.run.plot_colours = 0;
  s.run.exit_requested = false;
  s.gks.window.bitmap_font = true;
  s.case_store.current_step = 100;
  v.Choose(kind, kind == kLoads ? kVerticalForce : kPosition, kind == kLoads ? 0 : 3);
  zaviewsetaxes(s);
  EXPECT_TRUE(TakeLimits(s.data_plot.axes, {10, 10, 50, -2, 1, 2}));
  s.run.redraw = false;
  v.fake.output.clear();
}

void ExpectAll(std::span<const KeyCase> cases, bool with_clock = false) {
  PlotView v{std::string(kSample)};
  for (const KeyCase& c : cases) {
    Renew(v, c.kind);
    v.session.plot_session.run_sync = with_clock;
    const std::vector<float> before = PlotValues(v.session);
    Press(v.session, c.keys);
    ExpectPlotValues(c.changes, before, PlotValues(v.session), c.keys);
    EXPECT_TRUE(*c.changes != '\0' || !v.session.run.redraw) << c.keys;
    EXPECT_EQ(v.fake.output, c.said) << c.keys;
  }
}

TEST(DataPlotKeys, LooksAreCycledToggledAndScaled) {
  // clang-format off
  constexpr KeyCase kCases[] = {
      {kHistory, "a", "axis 2"}, {kHistory, "a a", "axis 0"},  // upright letters are none of bitmap fonts
      {kBars, "c", "colour 0"}, {kHistory, "^c", "colour 0"}, {kHistory, "C", ""},
      {kLoads, "^c", "colour 0"},  // there is no time sync
      {kLoads, "C", ""},
      {kBars, "C", "bars 0"}, {kBars, "C C", "bars 1"}, {kBars, "C C C", "bars 2"},
      {kHistory, "e", "annot 0.154"}, {kHistory, "E", "annot 0.1272727"},
      {kHistory, "^e", "text 0.1272727"}, {kHistory, "^E ^E", "text 0.1694"},
      {kHistory, "P", "size 1.414"}, {kBand, "p", "size 0.7072136"},
      {kHistory, "g n v", "grid 1 numbers 1 values 1"},
      {kHistory, "N G", ""}, {kTrack, "N G", "times 1 ship 0"},
      {kHistory, "m", "mark 1"}, {kHistory, "m m", "mark -1"}, {kCovariance, "m m M", "mark -10 base 10"},
      {kHistory, "m M M M", "mark 1000 base 1000"}, {kHistory, "M M M M", "base 1"}, {kLoads, "m ^M", "mark 0"},
      {kHistory, "m S-m", "mark 0"},  // with caps lock
      {kHistory, "t", "thick 0.04"}, {kHistory, "t t", "thick 0.08"}, {kHistory, "t t t", "thick 0"},
      {kHistory, "T", "mode 2 texts 1101"}, {kHistory, "T T T T", "mode 0 texts 0"},
      {kHistory, "^r", "background 1"},
      {kHistory, "^p ^p ^P", "stats 2 place 1"}, {kHistory, "^p ^p ^p ^p ^p ^P ^P ^P", "stats 0 place 0"},
      {kBars, "^p", "overlay 1"}, {kBars, "^p ^p ^p ^p ^p ^p", "overlay 0"},
      {kBars, "^p ^P", "overlay 1"},  // ^P is no key of histograms, and not ^p either
      {kTrack, "l l", "scale 0.5"}, {kTrack, "L L", "scale 2"}, {kHistory, "l L j J", ""},
      {kTrack, "j", "every 23"}, {kTrack, "J J", "every 65"},  // from 299/9 = 33
      {kTrack, "j j j j j j j j j j j j J J J", "every 4"},
      // Keys that draw nothing in a kind do nothing there.
      {kBars, "n v m M ^M p P", ""}, {kCovariance, "v", ""}, {kBand, "n v m M", ""}, {kLoads, "n v", ""}, {kTrack, "v", ""},
      {kHistory, "z A-g A-q F1", ""},
      {kHistory, "^f", "smooth 1", "Data smoothing: Local least-squares fits\n"},
      {kHistory, "^f ^f ^f", "smooth 0",
       "Data smoothing: Local least-squares fits\n"
       "Data smoothing: Cubic polynomial fit to specified window (currently 11 time steps)\nData smoothing: OFF\n"},
      {kHistory, "q", "module 0"}, {kHistory, "Q", "exit 1"},
      {kHistory, "A-+", "font 3"}, {kHistory, "A-= A-= A--", "font 2"}, {kHistory, "A-- A--", "font 1"},
  };
  // clang-format on
  ExpectAll(kCases);
}

// The sample's heave runs from -2.83219 to 1.38696 (numpy on the file), time from 0 to 74.75.
TEST(DataPlotKeys, LimitsArePannedZoomedAndFitted) {
  // clang-format off
  constexpr KeyCase kCases[] = {
      {kHistory, "b", "x0 -10 dx 20 x1 70 y0 -4 dy 2 y1 4"},
      {kHistory, "Left Up", "x0 -10 x1 30 y0 0 y1 4"}, {kHistory, "Right Down Down", "x0 30 x1 70 y0 -6 y1 -2"},
      {kHistory, "f", "use 0"},
      {kHistory, "F", "x0 0 x1 74.75 y0 -2.83219 y1 1.38696"},
      {kHistory, "x", "x0 0 x1 74.75"}, {kHistory, "Y", "y0 -3"}, 
      {kHistory, "] Y", "quantity 2 x0 0 x1 74.75 y0 -2.25 dy 0.75 y1 2.25"},  // its velocity: -1.606 to 1.912
      {kHistory, "Right y", "x0 30 x1 70 y0 -1.8 dy 0.2 y1 -0.8"},  // there it stays between -1.69 and -0.96
      {kHistory, "^x ^y", "dx 20 dy 2"}, {kHistory, "^y ^y ^y ^y ^y", "dy 4"},
      {kHistory, "k", "use 1 fitted_x0 10"}, {kHistory, "k ^x", "use 1 fitted_x0 10 dx 20"},
      {kHistory, "F R", "x0 0 x1 80 y0 -3"}, {kHistory, "k F k R", "use 1 fitted_x0 0 x0 0 x1 80 y0 -3"},
      {kHistory, "X", "by_step 1 x0 41 dx 20 x1 201 fitted_x0 1"},  // step i is at 0.25 (i - 1)
      {kHistory, "X X", "by_step 0 dx 5"}, {kBars, "X", ""},
      {kTrack, "^g", "aspect 0"}, {kHistory, "^g", ""},
  };
  // clang-format on
  ExpectAll(kCases);
}

TEST(DataPlotKeys, OtherCurvesQuantitiesAndKindsAreChosen) {
  // clang-format off
  constexpr KeyCase kCases[] = {
      {kHistory, "s", "component 4"}, {kHistory, "6 s", "component 0"},
      {kBars, "6 s", "component 1"}, {kCovariance, "6 s", "component 1"}, {kBand, "6 s", "component 1"},
      {kHistory, "1", "component 1"}, {kHistory, "2", "component 2"}, {kBars, "4", "component 4"},
      {kLoads, "5 6", "component 5"}, {kHistory, "7 8 9", ""}, {kHistory, "0", "component 0"}, {kBars, "0", "component 1"},
      {kTrack, "s 4 S ] { } ^p d", ""},
      {kHistory, "d", "hidden3 1"}, {kHistory, "0 d", "component 0"},
      {kHistory, "]", "quantity 2"}, {kHistory, "S [", "quantity 1"},
      {kHistory, "}", "quantity 2 use 3"}, {kHistory, "} {", "quantity 1 use 3"},
      {kBand, "{", "statistic 4"}, {kBand, "} } } }", "statistic 1"},
      {kHistory, "^h", "kind 4"}, {kHistory, "Back", "kind 4"}, {kHistory, "^h ^h", "kind 1"},
      {kCovariance, "^h", "", "Use Options Menu (alt-o) to select plot type\n"},
      {kBars, "^H ^H", "data 2"}, {kBars, "^H ^H ^H", "data 0"}, {kHistory, "^H", ""},
      {kHistory, "i I", "wave 1 own 0"}, {kBars, "i I", ""},
  };
  // clang-format on
  ExpectAll(kCases);
}

TEST(DataPlotKeys, StepsOfLoadDistributionsAreTakenOneByOneAndInRunMode) {
  // clang-format off
  constexpr KeyCase kCases[] = {
      {kLoads, "PgUp", "step 99"}, {kLoads, "PgDn PgDn", "step 102"},
      {kLoads, "S-PgUp PgUp", "step 1"}, {kLoads, "S-PgDn PgDn", "step 300"}, {kHistory, "PgUp Space", ""},
      {kLoads, "Space", "run 1 t0 24.75"},  // the time of step 100
      {kLoads, "Space", "run 0"},           // the one before goes on till here
  };
  constexpr KeyCase kWithClock[] = {
      {kLoads, "^c ^c C", "sync 1.4142135"}, {kLoads, "C", "sync 0.7071068"}, {kLoads, "c", "colour 0"},
  };
  // clang-format on
  ExpectAll(kCases);
  ExpectAll(kWithClock, true);
}

// Every key that acts on a kind of plot asks for a picture, but for those that ask, tell, leave or change nothing here.
TEST(DataPlotKeys, AskForAPicture) {
  const struct {
    PlotKind kind;
    std::string_view idle;
  } cases[] = {
      {kHistory, "AwW3789\x1b"},   {kTrack, "AwI\b\x1b"},
      {kLoads, "Aw06789dC\b\x1b"},  // all are shown, none is selected; not in time with the clock
      {kBars, "Aw3789\x1b"},       {kCovariance, "Aw3789\b\x1b"},
  };
  PlotView v{std::string(kSample)};
  for (const auto& c : cases) {
    v.plot().kind = c.kind;
    const ViewKeys keys = DataPlotKeys(v.session);
    for (const ViewKey& row : keys.rows) {
      const int key = row.code & (kWithShift - 1);
      const bool shift = (row.code & kWithShift) != 0;
      const bool idle = key < 128 && c.idle.find(static_cast<char>(key)) != std::string_view::npos;
      if ((row.scope & keys.scope) == 0 || idle) continue;
      Renew(v, c.kind);
      v.session.gks.modifiers = (key <= 26 ? kControlKey : 0U) | (shift ? kShiftKey : 0U);
      PressKey(v.session, key);
      v.session.gks.modifiers = 0;
      EXPECT_TRUE(v.session.run.redraw) << static_cast<int>(c.kind) << ": " << row.help[0] << ' ' << row.code;
    }
  }
}

// A key drops a pending zoom, ends measuring, closes the popup, and acts.
TEST(DataPlotKeys, EndWhatTheMouseBegan) {
  PlotView v{std::string(kSample)};
  v.Show(kHistory, kPosition, 3);
  DataPlotState& plot = v.plot();
  plot.axes.zoom.pending = plot.axes.measure.on = plot.axes.popup.open = true;
  Press(v.session, "g");
  EXPECT_EQ(v.fake.output, "Zoom aborted\n");
  EXPECT_TRUE(!plot.axes.zoom.pending && !plot.axes.measure.on && !plot.axes.popup.open && plot.grid_on);
  plot.axes.measure.on = true;
  v.session.run.redraw = false;
  Press(v.session, "Esc");
  EXPECT_TRUE(!plot.axes.measure.on && v.session.run.redraw);
}

TEST(DataPlotKeys, WithOneComponentAllIsKept) {
  PlotView v{std::string(kSample)};
  v.Show(kHistory, kWaveAtCg, 0);
  Press(v.session, "s");
  EXPECT_EQ(v.plot().plot_component, 0);
  Press(v.session, "A-s");  // nothing can be selected
  EXPECT_EQ(v.fake.output.find("Curve Selection"), std::string::npos);
}

// As often larger as smaller: to scale again, to the last bit.
TEST(DataPlotKeys, AHullComesBackToScale) {
  PlotView v{std::string(kSample)};
  v.Choose(kTrack, kPosition, 0);
  Press(v.session, "L L l l l L");
  EXPECT_EQ(v.plot().geometry_scale, 1.0F);
}

std::vector<int> AllCodes(const Session& s) {
  std::vector<int> codes;
  for (const std::span<const ViewKey> rows : {DataPlotKeys(s).rows, SessionKeys()})
    for (const ViewKey& row : rows) codes.push_back(row.code);
  return codes;
}

// Every key, with and without modifiers, on every kind, with and without a case: nothing may crash, and limits and
// sizes stay numbers however often a key is pressed.
TEST(DataPlotKeys, NoKeyEndsTheProgram) {
  for (const std::string_view sample : {std::string_view(), kSample, std::string_view("impulse_responses.out")}) {
    PlotView v{std::string(sample)};
    for (int kind = 0; kind < kPlotKinds; ++kind) {
      v.Choose(static_cast<PlotKind>(kind), kind == static_cast<int>(kLoads) ? kVerticalForce : kPosition, 1);
      for (const int code : AllCodes(v.session)) {
        for (const unsigned held : {0U, kShiftKey | kControlKey}) {
          if (code == 'W') continue;
          for (int press = 0; press < 3; ++press) {
            v.session.run.plot_module = PlotModule::data_plot;
            v.session.gks.modifiers = held;
            PressKey(v.session, code & 0xFFFFF);
          }
          if (v.plot().kind != static_cast<PlotKind>(kind))
            v.Choose(static_cast<PlotKind>(kind), v.plot().quantity.iqnt, 1);
        }
      }
      for (int press = 0; press < 200; ++press) Press(v.session, "b Left Up e ^E P l");
      EXPECT_TRUE(std::isfinite(v.plot().axes.limits.x_min) && std::isfinite(v.plot().axes.limits.y_max)) << kind;
      EXPECT_LE(v.plot().text_size, 1.0F);
    }
  }
}

// ---- Questions on the text screen
struct Talk {
  const char* keys;
  std::vector<const char*> answers;
  bool (*holds)(const Session& s);
  const char* said;
};

TEST(DataPlotKeys, StepsAreAskedForOnTheTextScreen) {
  // clang-format off
  const Talk talks[] = {
      {"^s", {"20"}, [](const Session& s) { return s.output.reading.skip_initial == 20 && s.case_store.skip_effective == 20; }, ""},
      {"^S", {"5"}, [](const Session& s) { return s.output.reading.skip_terminal == 5 && s.output.reading.skip_initial == -1; }, ""},
      {"^s", {""}, [](const Session& s) { return s.output.reading.skip_initial == -1 && s.run.redraw; }, ""},
      {"^s", {"300", "x", "-1", ""}, [](const Session& s) { return s.output.reading.skip_initial == -1; },
       "ILLEGAL value - too many steps trimmed\nIllegal value\nIllegal value\n"},
      {"^t", {"10"}, [](const Session& s) { return s.case_store.first_step == 11 && s.case_store.current_step == 11; }, ""},
      {"^T", {"300", "299"}, [](const Session& s) { return s.case_store.last_step == 1; },
       "ILLEGAL value - too many steps trimmed\n"},
      {"I", {"1 9 4", "200", "301", "0"},
       [](const Session& s) { return s.data_plot.marked_steps == std::vector<int>{1, 5, 9, 200}; },
       "Returning to plot ...\n"},
      {"I", {"7", ""}, [](const Session& s) { return s.data_plot.marked_steps == std::vector<int>{7}; },
       "Returning to plot ...\n"},
      {"I", {""}, [](const Session& s) { return s.data_plot.marked_steps == std::vector<int>{3}; },
       "Returning to plot ...\n"},
  };
  // clang-format on
  for (const Talk& talk : talks) {
    PlotView v{std::string(kSample)};
    v.Choose(kTrack, kPosition, 0);
    v.plot().marked_steps = {3};
    v.session.case_store.current_step = 1;
    zaviewsetaxes(v.session);
    v.fake.output.clear();
    Press(v.session, talk.keys);
    for (const char* answer : talk.answers) {
      EXPECT_NE(v.session.gks.screen.mode, ScreenMode::plot) << talk.keys << ' ' << answer;
      v.session.gks.screen.mode = ScreenMode::plot;  // as the text screen does it when RETURN is hit
      TopScreenInput(v.session, answer);
    }
    EXPECT_EQ(v.session.gks.screen.mode, ScreenMode::plot) << talk.keys;
    EXPECT_TRUE(talk.holds(v.session)) << talk.keys << ' ' << talk.answers[0];
    EXPECT_EQ(v.fake.output, talk.said) << talk.keys;
    EXPECT_EQ(v.session.plot_session.screen_io_option, kNoQuestion);
  }
}

TEST(DataPlotKeys, PlotDataGoToAFile) {
  // clang-format off
  const struct { PlotKind kind; int iqnt; const char *begins, *said; } cases[] = {
      {kHistory, kPosition, "Time History of Position of CG", "Time history data written to file\n"},
      {kTrack, kPosition, "Trajectory for ZAVO file irregular_head.out", "Trajectory data written to file\n"},
      {kBars, kPosition, "Histogram of Position of CG", "Histogram data written to file\n"},
      {kCovariance, kPosition, "Autocovariance of Position of CG, pmgg(3)", "Autocovariance data written to file\n"},
      {PlotKind::autocorrelation, kPosition, "Autocorrelation of Position of CG",
       "Autocorrelation data written to file\n"},
  };
  // clang-format on
  for (const auto& c : cases) {
    PlotView v{std::string(kSample)};
    v.Make(c.kind, c.iqnt, 3);
    v.fake.Put("old.txt", "old");
    v.fake.output.clear();
    Press(v.session, "w");
    for (const char* answer : {"old.txt", "n", "new.txt"}) TopScreenInput(v.session, answer);
    EXPECT_EQ(v.fake.Bytes("old.txt"), "old");
    EXPECT_EQ(v.fake.Bytes("new.txt").rfind(c.begins, 0), 0U) << v.fake.Bytes("new.txt").substr(0, 80);
    EXPECT_EQ(v.fake.output, c.said);
    Press(v.session, "w");
    for (const char* answer : {"old.txt", ""}) TopScreenInput(v.session, answer);
    EXPECT_EQ(v.fake.Bytes("old.txt"), v.fake.Bytes("new.txt"));
  }
}

TEST(DataPlotKeys, AnswersThatNobodyAskedForAreTold) {
  PlotView v{std::string(kSample)};
  v.Choose(kHistory, kPosition, 3);
  v.session.run.redraw = false;
  TopScreenInput(v.session, "anything");
  EXPECT_TRUE(v.session.run.redraw);
  v.session.plot_session.screen_io_option = 9;
  TopScreenInput(v.session, "");
  v.session.plot_session.screen_io_option = kFileQuestion;
  v.session.plot_session.screen_io_step = 3;
  TopScreenInput(v.session, "name");
  EXPECT_EQ(v.fake.output,
            "TopScreenInput Logic error : screen_io_option= 9\n"
            "TopScreenInput Logic error : screen_io_step= 3\n");
}

TEST(DataPlotKeys, HelpListsTheKeysOfTheKind) {
  PlotView v{std::string(kSample)};
  // clang-format off
  const struct { PlotKind kind; const char* line; bool there; } cases[] = {
      {kHistory, " a      Toggle axis plot options", true},
      {kHistory, "^P      Toggle position of peak statitics overlay", true},
      {kBars, "^P      Toggle position of peak statitics overlay", false},
      {kBars, " m      Toggle marking of points (lines with points, points)", false},
      {kHistory, "Space bar - Start/stop run mode (plotting time steps in sequence)", false},
      {kLoads, "Space bar - Start/stop run mode (plotting time steps in sequence)", true},
      {kBand, "{/}     Plot previous/next statistic (confidence interval plots)", true},
      {kBand, "{/}     Plot previous/next quantity without reseting plot scales", false},
      {kLoads, "{/}     Plot previous/next quantity without reseting plot scales", true},
  };
  // clang-format on
  for (const auto& c : cases) {
    v.plot().kind = c.kind;
    const std::vector<std::string> lines = HelpLines(DataPlotKeys(v.session));
    EXPECT_EQ(lines[7], " Key    Function");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), c.line), c.there ? 1 : 0) << c.line;
    EXPECT_LE(lines.size(), 100U);  // of the text screen
  }
  // Keys of the session stand among those of the plot.
  std::string all, order;
  for (const std::string& line : HelpLines(DataPlotKeys(v.session))) {
    all += line + "\n";
    const std::string key = line.substr(0, line.find_first_of(" /", 1));
    for (const char* of : {" g", " h", " H", "^h", " r", " R", "^r", " s", "^s", " w", " W", "Space", "[", "Esc"})
      if (key == of) order += key + ",";
  }
  EXPECT_EQ(order, " g, h, H,^h, r, R,^r, s,^s, w, W,Space,[,Esc,");
  Press(v.session, "H");
  EXPECT_EQ(v.fake.output, all);
  Press(v.session, "h");
  EXPECT_EQ(v.session.gks.screen.mode, ScreenMode::text);
}

}  // namespace
}  // namespace zaview
