// Keys of the data plot: what each changes, what it says, and where it does nothing.
#include "views/data_plot/data_plot_keys.h"

#include <cmath>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "unit/views/plot_view.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/screen_dialogue.h"
#include "views/frame/plot_session.h"

namespace zaview {
namespace {

constexpr std::string_view kSample = "irregular_head.out";  // 300 steps of 0.25; 5 X cuts
constexpr int kPosition = 1, kVerticalForce = 13, kWaveAtCg = 25;

// "g ^e ^E A-o Left S-PgUp Space": keys as a user would write them.
void Press(Session& session, const std::string& keys) {
  const std::pair<std::string_view, int> names[] = {
      {"Left", kKeyLeft},     {"Right", kKeyRight}, {"Up", kKeyUp}, {"Down", kKeyDown}, {"PgUp", kKeyPageUp},
      {"PgDn", kKeyPageDown}, {"Space", ' '},       {"Esc", 27},    {"Back", 8},        {"F1", kKeyF1}};
  std::istringstream in(keys);
  for (std::string word; in >> word;) {
    unsigned held = 0;
    std::string_view key = word;
    if (key.size() > 2 && key[1] == '-') {
      held = key[0] == 'A' ? kAltKey : kShiftKey;
      key.remove_prefix(2);
    }
    int code = static_cast<unsigned char>(key[0]);
    if (key.size() == 2 && key[0] == '^') {
      const bool capital = key[1] >= 'A' && key[1] <= 'Z';
      held |= kControlKey | (capital ? kShiftKey : 0U);
      code = key[1] - (capital ? 'A' : 'a') + 1;
    }
    for (const auto& [name, special] : names)
      if (key == name) code = special;
    session.gks.modifiers = held;
    zaviewkeyboard(session, code);
    session.gks.modifiers = 0;
  }
}

bool Near(float a, double b) {
  return std::abs(static_cast<double>(a) - b) <= 1.0e-4 * std::max(1.0, std::abs(b));
}

bool LimitsAre(const Session& s, double x_min, double x_step, double x_max, double y_min, double y_step, double y_max) {
  const PlotLimits& l = s.data_plot.limits;
  return Near(l.x_min, x_min) && Near(l.x_step, x_step) && Near(l.x_max, x_max) && Near(l.y_min, y_min) &&
         Near(l.y_step, y_step) && Near(l.y_max, y_max);
}

struct KeyCase {
  PlotKind kind;
  const char* keys;
  bool (*holds)(const Session& s);
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
  s.motion_view = MotionViewState{};
  s.run.plot_module = 1;
  s.run.exit_requested = false;
  s.case_store.current_step = 100;
  v.Choose(kind, kind == kLoads ? kVerticalForce : kPosition, kind == kLoads ? 0 : 3);
  zaviewsetaxes(s);
  s.data_plot.limits = {10, 10, 50, -2, 1, 2};
  s.data_plot.limits_changed = true;
  s.run.redraw = false;
  v.fake.output.clear();
}

void ExpectAll(const KeyCase* cases, std::size_t n) {
  PlotView v{std::string(kSample)};
  Session& s = v.session;
  for (std::size_t i = 0; i < n; ++i) {
    const KeyCase& c = cases[i];
    Renew(v, c.kind);
    Press(s, c.keys);
    EXPECT_TRUE(c.holds(s)) << static_cast<int>(c.kind) << ": " << c.keys;
    EXPECT_EQ(v.fake.output, c.said) << c.keys;
  }
}

TEST(DataPlotKeys, LooksAreCycledToggledAndScaled) {
  // clang-format off
  const KeyCase cases[] = {
      {kHistory, "a a a", [](const Session& s) { return s.data_plot.axis_option == 3 && s.run.redraw; }},
      {kHistory, "a a a a", [](const Session& s) { return s.data_plot.axis_option == 0; }},
      {kBars, "c", [](const Session& s) { return !s.data_plot.colour_on; }},
      {kHistory, "^c", [](const Session& s) { return !s.data_plot.colour_on; }},
      {kHistory, "C", [](const Session& s) { return s.data_plot.colour_on && !s.run.redraw; }},
      {kLoads, "^c", [](const Session& s) { return !s.data_plot.colour_on; }},  // there is no time sync
      {kBars, "C", [](const Session& s) { return s.data_plot.hist_rendering == HistogramStyle::line; }},
      {kBars, "C C C", [](const Session& s) { return s.data_plot.hist_rendering == HistogramStyle::outlined; }},
      {kHistory, "e", [](const Session& s) { return Near(s.data_plot.annot_size, 0.154); }},
      {kHistory, "E", [](const Session& s) { return Near(s.data_plot.annot_size, 0.1272727); }},
      {kHistory, "^e", [](const Session& s) { return Near(s.data_plot.text_size, 0.1272727); }},
      {kHistory, "^E ^E", [](const Session& s) { return Near(s.data_plot.text_size, 0.1694); }},
      {kHistory, "P", [](const Session& s) { return Near(s.data_plot.mark_size, 1.414); }},
      {kHistory, "p", [](const Session& s) { return Near(s.data_plot.mark_size, 0.7072136); }},
      {kHistory, "g n v", [](const Session& s) {
         return s.data_plot.grid_on && s.data_plot.numbers_on && s.data_plot.values_in_legend; }},
      {kHistory, "N G", [](const Session& s) { return !s.data_plot.time_labels_on && s.data_plot.show_ship; }},
      {kTrack, "N G", [](const Session& s) { return s.data_plot.time_labels_on && !s.data_plot.show_ship; }},
      {kHistory, "m", [](const Session& s) { return s.data_plot.mark_every == 1; }},
      {kHistory, "m m M", [](const Session& s) { return s.data_plot.mark_every == -10; }},
      {kHistory, "M M M M", [](const Session& s) {
         return s.data_plot.mark_every == 0 && s.data_plot.mark_base == 1; }},
      {kHistory, "m ^M", [](const Session& s) { return s.data_plot.mark_every == 0; }},
      {kHistory, "m S-m", [](const Session& s) { return s.data_plot.mark_every == 0; }},  // with caps lock
      {kHistory, "t t", [](const Session& s) { return Near(s.data_plot.line_thickness, 0.08); }},
      {kHistory, "t t t", [](const Session& s) { return s.data_plot.line_thickness == 0.0F; }},
      {kHistory, "T T T T", [](const Session& s) { return s.data_plot.plot_text_mode == 0; }},
      {kHistory, "^r", [](const Session& s) { return s.run.plot_colours == 1 && s.run.redraw; }},
      {kHistory, "^p ^p ^P", [](const Session& s) {
         return s.data_plot.show_stats == 2 && s.data_plot.stats_at == StatsPlace::below; }},
      {kHistory, "^p ^p ^p ^p ^p ^P ^P ^P", [](const Session& s) {
         return s.data_plot.show_stats == 0 && s.data_plot.stats_at == StatsPlace::bottom; }},
      {kBars, "^p ^p ^p ^p ^p ^p", [](const Session& s) {
         return s.statistics.histogram.overlay == Overlay::none && s.data_plot.redo_hist; }},
      {kBars, "^p ^P", [](const Session& s) {  // ^P is no key of histograms, and not ^p either
         return s.statistics.histogram.overlay == Overlay::uniform && s.data_plot.show_stats == 0; }},
      {kTrack, "l l", [](const Session& s) { return Near(s.data_plot.geometry_scale, 0.5); }},
      {kTrack, "L L", [](const Session& s) { return Near(s.data_plot.geometry_scale, 2.0); }},
      {kHistory, "l L j J", [](const Session& s) {
         return s.data_plot.geometry_scale == 1.0F && s.data_plot.geometry_every == 0 && !s.run.redraw; }},
      {kTrack, "j", [](const Session& s) { return s.data_plot.geometry_every == 23; }},  // from 299/9 = 33
      {kTrack, "J J", [](const Session& s) { return s.data_plot.geometry_every == 65; }},
      {kTrack, "j j j j j j j j j j j j J J J", [](const Session& s) { return s.data_plot.geometry_every == 4; }},
      {kHistory, "z A-g A-q F1", [](const Session& s) {
         return s.run.plot_module == 1 && !s.run.redraw && !s.data_plot.grid_on; }},
      {kHistory, "^f", [](const Session& s) { return s.output.smoothing.option == 1 && s.data_plot.redo_data; },
       "Data smoothing: Local least-squares fits\n"},
      {kHistory, "^f ^f ^f", [](const Session& s) { return s.output.smoothing.option == 0; },
       "Data smoothing: Local least-squares fits\n"
       "Data smoothing: Cubic polynomial fit to specified window (currently 11 time steps)\nData smoothing: OFF\n"},
      {kHistory, "q", [](const Session& s) { return s.run.plot_module == 0 && !s.run.redraw; }},
      {kHistory, "Q", [](const Session& s) { return s.run.exit_requested; }},
      {kHistory, "A-o A-s A-Space", [](const Session& s) { return !s.run.redraw; },
       "Plot Options : this menu is not available yet\nCurve Selection : this menu is not available yet\n"},
      {kHistory, "A-+ A-= A--", [](const Session& s) { return s.plot_session.menu_font_step == 1 && !s.run.redraw; }},
      {kLoads, "A-Space", [](const Session& s) { return !s.plot_session.run_on; },
       "Time Step : this menu is not available yet\n"},
  };
  // clang-format on
  ExpectAll(cases, std::size(cases));
}

// The sample's heave runs from -2.83219 to 1.38696 (numpy on the file), time from 0 to 74.75.
TEST(DataPlotKeys, LimitsArePannedZoomedAndFitted) {
  // clang-format off
  const KeyCase cases[] = {
      {kHistory, "b", [](const Session& s) { return LimitsAre(s, -10, 20, 70, -4, 2, 4); }},
      {kHistory, "Left Up", [](const Session& s) { return LimitsAre(s, -10, 10, 30, 0, 1, 4); }},
      {kHistory, "Right Down Down", [](const Session& s) { return LimitsAre(s, 30, 10, 70, -6, 1, -2); }},
      {kHistory, "f", [](const Session& s) { return s.data_plot.rescale && !s.data_plot.limits_changed; }},
      {kHistory, "F", [](const Session& s) {
         return LimitsAre(s, 0, 10, 74.75, -2.83219, 1, 1.38696) && s.data_plot.limits_changed; }},
      {kHistory, "x", [](const Session& s) { return LimitsAre(s, 0, 10, 74.75, -2, 1, 2); }},
      {kHistory, "Y", [](const Session& s) { return LimitsAre(s, 10, 10, 50, -3, 1, 2); }},
      {kHistory, "Right y", [](const Session& s) {  // from 30 to 70 it stays between -1.69 and -0.96
         return LimitsAre(s, 30, 10, 70, -1.8, 0.2, -0.8); }},
      {kHistory, "^x ^y", [](const Session& s) { return LimitsAre(s, 10, 20, 50, -2, 2, 2); }},
      {kHistory, "^y ^y ^y ^y ^y", [](const Session& s) { return LimitsAre(s, 10, 10, 50, -2, 4, 2); }},
      {kHistory, "k", [](const Session& s) {
         return !s.data_plot.limits_changed && s.data_plot.data_limits.x_min == 10.0F; }},
      {kHistory, "F R", [](const Session& s) { return LimitsAre(s, 0, 10, 80, -3, 1, 2); }},
      {kHistory, "X", [](const Session& s) {  // step i is at 0.25 (i - 1)
         return s.data_plot.x_axis_by_index && LimitsAre(s, 41, 20, 201, -2, 1, 2); }},
      {kHistory, "X X", [](const Session& s) { return LimitsAre(s, 10, 5, 50, -2, 1, 2); }},
      {kTrack, "X", [](const Session& s) { return !s.data_plot.x_axis_by_index; }},
      {kTrack, "^g", [](const Session& s) { return !s.data_plot.keep_aspect; }},
      {kHistory, "^g", [](const Session& s) { return s.data_plot.keep_aspect && !s.run.redraw; }},
  };
  // clang-format on
  ExpectAll(cases, std::size(cases));
}

TEST(DataPlotKeys, OtherCurvesQuantitiesAndKindsAreChosen) {
  // clang-format off
  const KeyCase cases[] = {
      {kHistory, "s", [](const Session& s) { return s.data_plot.plot_component == 4 && s.data_plot.rescale; }},
      {kHistory, "6 s", [](const Session& s) { return s.data_plot.plot_component == 0; }},
      {kBars, "6 s", [](const Session& s) { return s.data_plot.plot_component == 1 && s.data_plot.redo_hist; }},
      {kCovariance, "6 s", [](const Session& s) { return s.data_plot.plot_component == 1 && s.data_plot.redo_cov; }},
      {kBand, "6 s", [](const Session& s) { return s.data_plot.plot_component == 1 && s.data_plot.redo_conf; }},
      {kHistory, "1", [](const Session& s) { return s.data_plot.plot_component == 1; }},
      {kHistory, "2", [](const Session& s) { return s.data_plot.plot_component == 2; }},
      {kBars, "4", [](const Session& s) { return s.data_plot.plot_component == 4; }},
      {kLoads, "5 6", [](const Session& s) { return s.data_plot.plot_component == 5 && s.data_plot.limits_changed; }},
      {kHistory, "8 9", [](const Session& s) { return s.data_plot.plot_component == 3 && !s.run.redraw; }},
      {kHistory, "7", [](const Session& s) { return s.data_plot.plot_component == 3 && !s.run.redraw; }},
      {kHistory, "0", [](const Session& s) { return s.data_plot.plot_component == 0; }},
      {kBars, "0", [](const Session& s) { return s.data_plot.plot_component == 1; }},
      {kTrack, "s 4 S ]", [](const Session& s) { return s.data_plot.quantity.iqnt == kPosition && !s.run.redraw; }},
      {kHistory, "d", [](const Session& s) { return s.data_plot.hidden[2] == 1 && s.data_plot.hidden[0] == 0; }},
      {kHistory, "0 d", [](const Session& s) { return !IsShown(s.data_plot, 7) || s.data_plot.hidden[2] == 0; }},
      {kHistory, "]", [](const Session& s) { return s.data_plot.quantity.iqnt == 2 && s.data_plot.rescale; }},
      {kHistory, "S [", [](const Session& s) { return s.data_plot.quantity.iqnt == kPosition; }},
      {kHistory, "}", [](const Session& s) {
         return s.data_plot.quantity.iqnt == 2 && !s.data_plot.rescale && s.data_plot.limits_changed; }},
      {kBand, "{", [](const Session& s) { return s.data_plot.statistic == 4 && s.data_plot.redo_conf; }},
      {kBand, "} } } }", [](const Session& s) { return s.data_plot.statistic == 1; }},
      {kHistory, "^h", [](const Session& s) { return s.data_plot.kind == kBars && s.data_plot.redo_hist; }},
      {kHistory, "Back", [](const Session& s) { return s.data_plot.kind == kBars; }},  // the same code
      {kHistory, "^h ^h", [](const Session& s) { return s.data_plot.kind == kHistory; }},
      {kCovariance, "^h", [](const Session& s) { return s.data_plot.kind == kCovariance; },
       "Use Options Menu (alt-o) to select plot type\n"},
      {kBars, "^H ^H ^H", [](const Session& s) { return s.statistics.histogram.data == HistogramData::signed_values; }},
      {kHistory, "^H", [](const Session& s) { return s.data_plot.kind == kHistory && !s.run.redraw; }},
      {kHistory, "} {", [](const Session& s) { return s.data_plot.quantity.iqnt == kPosition; }},
      {kTrack, "{ } ^p d", [](const Session& s) { return !s.run.redraw; }},
      {kBars, "^H ^H", [](const Session& s) { return s.statistics.histogram.data == HistogramData::positive; }},
      {kHistory, "i I", [](const Session& s) { return s.data_plot.wave_overlay && !s.data_plot.wave_own_scale; }},
      {kBars, "i I", [](const Session& s) { return !s.data_plot.wave_overlay && s.data_plot.wave_own_scale; }},
  };
  // clang-format on
  ExpectAll(cases, std::size(cases));
}

TEST(DataPlotKeys, StepsOfLoadDistributionsAreTakenOneByOneAndInRunMode) {
  // clang-format off
  const KeyCase cases[] = {
      {kLoads, "PgUp", [](const Session& s) { return s.case_store.current_step == 99 && s.run.redraw; }},
      {kLoads, "PgDn PgDn", [](const Session& s) { return s.case_store.current_step == 102; }},
      {kLoads, "S-PgUp PgUp", [](const Session& s) { return s.case_store.current_step == s.case_store.first_step; }},
      {kLoads, "S-PgDn PgDn", [](const Session& s) { return s.case_store.current_step == s.case_store.last_step; }},
      {kHistory, "PgUp Space", [](const Session& s) {
         return s.case_store.current_step == 100 && !s.plot_session.run_on; }},
      {kLoads, "C", [](const Session& s) { return s.motion_view.run_sync_factor == 1.0F && !s.run.redraw; }},
      {kLoads, "Space", [](const Session& s) {  // step 100 is at 24.75
         return s.plot_session.run_on && Near(s.plot_session.run_t0, 24.75); }},
      {kLoads, "Space", [](const Session& s) { return !s.plot_session.run_on; }},  // the one before goes on till here
  };
  // clang-format on
  ExpectAll(cases, std::size(cases));
  PlotView v{std::string(kSample)};
  v.Choose(kLoads, kVerticalForce, 0);
  zaviewsetaxes(v.session);
  v.session.motion_view.run_sync = true;
  Press(v.session, "^c ^c C");
  EXPECT_TRUE(Near(v.session.motion_view.run_sync_factor, 1.4142135));
}

// Every key that acts on a kind of plot asks for a picture, but for those that ask, tell, leave or change nothing here.
TEST(DataPlotKeys, AskForAPicture) {
  constexpr int kTelling[] = {'h', 'H', 'q', 'Q', 'w', 'W', 27, Ctrl('s'), Ctrl('t'), CtrlShift('s'), CtrlShift('t')};
  const struct {
    PlotKind kind;
    std::string_view idle;  // and these
  } cases[] = {
      {kHistory, "3789"},    {kTrack, "I\b"},
      {kLoads, "06789dC\b"},  // all are shown, none is selected; not in time with the clock
      {kBars, "3789"},       {kCovariance, "3789\b"},
  };
  PlotView v{std::string(kSample)};
  for (const auto& c : cases) {
    for (const PlotKey& row : DataPlotKeys()) {
      const int key = row.code & (kWithShift - 1);
      const bool idle = key < 128 && c.idle.find(static_cast<char>(key)) != std::string_view::npos;
      const bool telling = std::find(std::begin(kTelling), std::end(kTelling), row.code) != std::end(kTelling);
      const bool shift = (row.code & kWithShift) != 0, alt = (row.code & kWithAlt) != 0;
      if ((row.kinds & In(c.kind)) == 0 || idle || telling || alt) continue;
      Renew(v, c.kind);
      v.session.gks.modifiers = (key <= 26 ? kControlKey : 0U) | (shift ? kShiftKey : 0U);
      zaviewkeyboard(v.session, key);
      v.session.gks.modifiers = 0;
      EXPECT_TRUE(v.session.run.redraw) << static_cast<int>(c.kind) << ": " << row.help[0] << ' ' << row.code;
    }
  }
}

// A key drops a pending zoom, ends measuring, closes the popup, and acts.
TEST(DataPlotKeys, EndWhatTheMouseBegan) {
  PlotView v{std::string(kSample)};
  v.Choose(kHistory, kPosition, 3);
  v.Show();
  DataPlotState& plot = v.plot();
  plot.zoom_pending = plot.measure_on = plot.popup_open = true;
  Press(v.session, "g");
  EXPECT_EQ(v.fake.output, "Zoom aborted\n");
  EXPECT_TRUE(!plot.zoom_pending && !plot.measure_on && !plot.popup_open && plot.grid_on);
  plot.measure_on = true;
  v.session.run.redraw = false;
  Press(v.session, "Esc");
  EXPECT_TRUE(!plot.measure_on && v.session.run.redraw);
}

TEST(DataPlotKeys, WithOneComponentAllIsKept) {
  PlotView v{std::string(kSample)};
  v.Choose(kHistory, kWaveAtCg, 0);
  v.Show();
  Press(v.session, "s");
  EXPECT_EQ(v.plot().plot_component, 0);
  Press(v.session, "A-s");  // nothing can be selected
  EXPECT_EQ(v.fake.output.find("Curve Selection"), std::string::npos);
}

TEST(DataPlotKeys, TheWindowGoesToAFile) {
  PlotView v{std::string(kSample)};
  v.Choose(kHistory, kPosition, 3);
  v.Show();
  v.fake.output.clear();
  Press(v.session, "W");
  EXPECT_EQ(v.fake.output, "DumpWindow - Writing PNG file dump0001.png\n");
  EXPECT_EQ(v.fake.Bytes("dump0001.png").substr(1, 3), "PNG");
}

// Every key, with and without modifiers, on every kind, with and without a case: nothing may crash, and limits and
// sizes stay numbers however often a key is pressed.
TEST(DataPlotKeys, NoKeyEndsTheProgram) {
  for (const std::string_view sample : {std::string_view(), kSample, std::string_view("impulse_responses.out")}) {
    PlotView v{std::string(sample)};
    for (int kind = 0; kind < kPlotKinds; ++kind) {
      v.Choose(static_cast<PlotKind>(kind), kind == static_cast<int>(kLoads) ? kVerticalForce : kPosition, 1);
      for (const PlotKey& key : DataPlotKeys()) {
        for (const unsigned held : {0U, kShiftKey | kControlKey}) {
          if (key.code == 'W') continue;
          for (int press = 0; press < 3; ++press) {
            v.session.run.plot_module = 1;
            v.session.gks.modifiers = held;
            zaviewkeyboard(v.session, key.code & 0xFFFFF);
          }
          if (v.plot().kind != static_cast<PlotKind>(kind))
            v.Choose(static_cast<PlotKind>(kind), v.plot().quantity.iqnt, 1);
        }
      }
      for (int press = 0; press < 200; ++press) Press(v.session, "b Left Up e ^E P l");
      EXPECT_TRUE(std::isfinite(v.plot().limits.x_min) && std::isfinite(v.plot().limits.y_max)) << kind;
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
  const struct {
    PlotKind kind;
    int iqnt;
    const char *begins, *said;
  } cases[] = {
      {kHistory, kPosition, "Time History of Position of CG", "Time history data written to file\n"},
      {kTrack, kPosition, "Trajectory for ZAVO file irregular_head.out", "Trajectory data written to file\n"},
      {kBars, kPosition, "Histogram of Position of CG", "Histogram data written to file\n"},
      {kCovariance, kPosition, "Autocovariance of Position of CG, pmgg(3)", "Autocovariance data written to file\n"},
      {PlotKind::autocorrelation, kPosition, "Autocorrelation of Position of CG",
       "Autocorrelation data written to file\n"},
  };
  for (const auto& c : cases) {
    PlotView v{std::string(kSample)};
    v.Choose(c.kind, c.iqnt, 3);
    zaviewsetaxes(v.session);
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
            "TopScreenInput Logic error : screen_io_option=9\n"
            "TopScreenInput Logic error : screen_io_step=3\n");
}

TEST(DataPlotKeys, HelpListsTheKeysOfTheKind) {
  PlotView v{std::string(kSample)};
  const struct {
    PlotKind kind;
    const char* line;
    bool there;
  } cases[] = {
      {kHistory, " a      Toggle axis plot options", true},
      {kHistory, "^P      Toggle position of peak statitics overlay", true},
      {kBars, "^P      Toggle position of peak statitics overlay", false},
      {kHistory, "Space bar - Start/stop run mode (plotting time steps in sequence)", false},
      {kLoads, "Space bar - Start/stop run mode (plotting time steps in sequence)", true},
      {kBand, "{/}     Plot previous/next statistic (confidence interval plots)", true},
      {kBand, "{/}     Plot previous/next quantity without reseting plot scales", false},
      {kLoads, "{/}     Plot previous/next quantity without reseting plot scales", true},
  };
  for (const auto& c : cases) {
    v.plot().kind = c.kind;
    std::vector<std::string> lines;
    zaviewhelp(v.session, lines);
    EXPECT_EQ(lines[7], " Key    Function");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), c.line), c.there ? 1 : 0) << c.line;
    EXPECT_LE(lines.size(), 100U);  // of the text screen
  }
  std::string all;
  std::vector<std::string> lines;
  zaviewhelp(v.session, lines);
  for (const std::string& line : lines) all += line + "\n";
  Press(v.session, "H");
  EXPECT_EQ(v.fake.output, all);
  Press(v.session, "h");
  EXPECT_EQ(v.session.gks.screen.mode, ScreenMode::text);
}

}  // namespace
}  // namespace zaview
