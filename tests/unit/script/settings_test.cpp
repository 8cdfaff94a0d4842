// Every command that reads files or changes a setting, by each of its words: what it sets, what it says, and that a
// refused line leaves the session as it was.
#include <vector>

#include <gtest/gtest.h>

#include "script/command_table.h"
#include "unit/script/script_run.h"

namespace zaview {
namespace {

using Values = std::vector<float>;
using Texts = std::vector<std::string>;

template <typename... T>
Values Of(T... values) {
  return {static_cast<float>(values)...};
}

// ---- What is read back
// clang-format off

Values Delimiter(const Session& s) { return Of(s.output.writing.separator); }
Values Scales(const Session& s) {
  const OutputSettings& o = s.output;
  return Of(o.units.GRAVOUT, o.units.RHOOUT, o.units.LENOUT, o.units.ANGOUT, o.units.scales.position[0],
            o.units.user_scale[0], o.units.user_scale[1], o.units.user_scale[2], o.units.user_scale[3]);
}
Values Signs(const Session& s) { return {s.output.units.cnvfac.begin(), s.output.units.cnvfac.end()}; }
Values Steps(const Session& s) {
  const CaseStore& c = s.case_store;
  return Of(c.first_step, c.last_step, c.skip_effective, s.output.reading.skip_terminal, s.output.reading.trim_initial,
            s.output.reading.trim_terminal, s.output.reading.trim_abort, s.output.reading.step_stride);
}
Values Smoothing(const Session& s) { return Of(s.output.smoothing.option, s.output.smoothing.window); }
Values Ndtf(const Session& s) { return Of(s.output.statistics.ndtf_length, s.output.statistics.ndtf_beam); }
Values Intervals(const Session& s) {
  return Of(s.output.statistics.confidence_probability, s.output.statistics.autocorrelation_rate,
            s.output.statistics.autocorrelation_cutoff, s.statistics.nmany);
}
Values Analyses(const Session& s) {
  const auto& o = s.output.statistics;
  return Of(o.extreme_hours, o.extreme_quantile, o.rainflow_bins);
}
Values Shown(const Session& s) { return Of(s.data_plot.show_stats); }
Values Histogram(const Session& s) {
  const HistogramRequest& h = s.statistics.histogram;
  return Of(h.data, h.overlay, h.counts, h.rate, s.data_plot.hist_rendering);
}
Values PlotFrame(const Session& s) {
  const DataPlotState& p = s.data_plot;
  return Of(p.axis_length.x, p.axis_length.y, p.histogram_length.x, p.histogram_length.y, s.gks.window.width,
            s.gks.window.height);
}
Values Flags(const Session& s) { return Of(s.data_plot.grid_on, s.data_plot.match_scales, s.data_plot.show_ship); }
Values Curves(const Session& s) {
  const DataPlotState& p = s.data_plot;
  return Of(p.numbers_on, p.legend, p.values_in_legend, p.colour_on);
}
Values Background(const Session& s) { return Of(s.run.plot_colours); }
Values Sensor(const Session& s) { return Of(s.sensor.earth_radius, s.sensor.height_maximum); }
Values Records(const Session& s) {
  const CaseStore& c = s.case_store;
  return Of(s.ensemble.nrec, c.first_read, c.last_read);
}
Values FirstMotion(const Session& s) {
  Values values = Records(s);
  for (const std::vector<float>& component : s.case_store.pmgg.component) values.push_back(component.front());
  return values;
}
// The last sample is 5, all others are 1.
Values LastMotion(const Session& s) { return Of(s.case_store.pmgg.component[0].back() == 5.0F); }

// The view's flags: rudders, time, title, perspective, shading, transparent body, solid hull, its wires.
Values ViewFlags(const Session& s) {
  const MotionViewState& v = s.motion_view;
  return Of(v.show_rudders, v.show_time, v.show_title, v.view.perspective, v.shading_on, v.body_transparent, v.hull_solid,
            v.hull_wire);
}
// Track, waterline, centres, mark, solid sea, its wires, horizon, events, frames, colour, stand.
Values MoreViewFlags(const Session& s) {
  const MotionViewState& v = s.motion_view;
  return Of(v.show_track, v.show_waterline, v.show_centres, v.mark_point, v.fs_solid, v.fs_wire, v.horizon, v.show_events,
            v.frame_too, v.hull_colour, v.stand);
}
Values ViewNumbers(const Session& s) {
  const MotionViewState& v = s.motion_view;
  return Of(v.fs_opacity, v.ambient, v.view.view_width, v.view.view_radius, v.view.view_azimuth, v.view.view_elevation, v.fs_grid_size,
            v.line_thickness, v.initial_step);
}
Values HullLooks(const Session& s) {
  const GeometryViewState& v = s.geometry_view;
  return Of(v.geo_3d, v.geo_plane, v.geo_component, v.geo_draw, v.geo_mirror, v.geo_colour_by, v.geo_solid, v.space_axes,
            v.geo_mark_points, v.geo_x_cuts);
}
Values HullFlags(const Session& s) {
  const GeometryViewState& v = s.geometry_view;
  return Of(v.geo_normals, v.geo_mark_cg, v.geo_load_numbers, v.geo_appendages, v.geo_appendage_labels, v.zbuffer_wire,
            v.geo_shading, v.geo_outline, v.geo_backface, v.view.perspective, v.show_title, v.grid_on, v.aspect_adjust);
}
Values HullEye(const Session& s) {
  const GeometryViewState& v = s.geometry_view;
  return Of(v.view.view_radius, v.view.view_azimuth, v.view.view_elevation, v.view.view_width, v.line_thickness, v.own_radius);
}
Values Sync(const Session& s) {
  const PlotSessionState& v = s.plot_session;
  return Of(v.run_sync, v.sync_real_time, v.run_sync_factor);
}
Values Graphs(const Session& s) {
  Values values;
  for (const MotionGraph& graph : std::span(s.motion_view.graphs).first(kScriptedGraphs)) {
    const QuantityRequest& q = graph.request;
    for (const float value : Of(graph.on, q.iqnt, q.curve, q.point[0], q.missile[3])) values.push_back(value);
  }
  return values;
}
Values GraphOptions(const Session& s) {
  Values values;
  for (const MotionGraph& g : std::span(s.motion_view.graphs).first(kScriptedGraphs))
    for (const float value : Of(g.colour, g.blank, g.scroll, g.time_bar, g.mark, g.value)) values.push_back(value);
  return values;
}
// clang-format on

// ---- Commands, as the tables of the tests say them

struct Good {
  std::string arguments;  // one of several, apart by bars
  Values values;
  const char* said = "";  // null: it doesn't matter
};
struct Refused {
  std::string arguments;
  int status;
  std::string said;  // ?: the command as typed
};

struct Setting {
  std::string words;  // apart by blanks
  Values (*read)(const Session& session);
  std::vector<Good> good;
  std::vector<Refused> refused;
  Texts before = {""};  // lines ahead of it; with one of them at least, each good line changes something
  bool needs_case = false;
};

struct SettingRun : ScriptRun {
  SettingRun(const std::string& text, bool with_case) : ScriptRun(text, with_case) {
    static const std::string whole = SampleBytes("regular_head.out"), first = SampleBytes("short_cut.out"),
                             second = SampleBytes("restarted.out");
    fake.Put("run.out", whole);
    fake.Put("a/first.out", first);
    fake.Put("a/second.out", second);
    fake.Put("m.mot", "quay\n0\n0 1 2 3 0 0 0\n1 1 2 3 0 0 0\n");
    if (with_case) session.case_store.pmgg.component[0].back() = 5;
    Run();
  }
};

std::string Filled(std::string text, const std::string& command) {
  for (std::size_t at = text.find('?'); at != std::string::npos; at = text.find('?', at + command.size()))
    text.replace(at, 1, command);
  return text;
}

void ExpectGood(const Setting& setting, const std::string& word, const Good& good, const std::string& arguments) {
  const std::string line = word + " " + arguments;
  bool changed = false;
  for (const std::string& before : setting.before) {
    const SettingRun baseline(before, true), run(before + line + "\n", true);
    ASSERT_EQ(run.status, kScriptOk) << line << "\n" << run.fake.output;
    EXPECT_EQ(setting.read(run.session), good.values) << line;
    if (good.said != nullptr && before.empty()) {
      EXPECT_EQ(Said(run.fake.output), std::string(good.said) + kEnd[0]) << line;
    }
    changed = changed || setting.read(baseline.session) != good.values;
  }
  EXPECT_TRUE(changed) << line << " : the row proves nothing";
}

void ExpectRefused(const Setting& setting, const std::string& word, const Refused& refused) {
  const std::string& before = setting.before.front();
  const std::string line = word + (refused.arguments.empty() ? "" : " " + refused.arguments);
  const SettingRun baseline(before, true);
  const SettingRun run(before + line + "\n", true);
  EXPECT_EQ(run.status, refused.status) << line << run.fake.output;
  EXPECT_EQ(setting.read(run.session), setting.read(baseline.session)) << line;
  const std::string end = Filled(refused.said, word) + "\n" + AfterFault(before.empty() ? 1 : 2, line, refused.status);
  const std::string said = Said(run.fake.output);
  const bool ends = said.size() >= end.size() && said.compare(said.size() - end.size(), end.size(), end) == 0;
  EXPECT_TRUE(ends) << said << "\nshould end:\n" << end;
}

void ExpectSetting(const Setting& setting) {
  const Texts words = SplitAt(setting.words, ' ');
  const std::string first = SplitAt(setting.good.front().arguments + '|', '|').front();
  for (const std::string& word : words) {
    ExpectGood(setting, word, setting.good.front(), first);
    for (const Refused& refused : setting.refused) ExpectRefused(setting, word, refused);
    const SettingRun alone(setting.before.front() + word + " " + first + "\n", false);
    EXPECT_EQ(alone.status, setting.needs_case ? kScriptFailed : kScriptOk) << word << alone.fake.output;
    const bool told =
        alone.fake.output.find("ERROR - " + word + " : cannot be run until an output\n   file has been read\n") !=
        std::string::npos;
    EXPECT_EQ(told, setting.needs_case) << word;
  }
  for (const Good& good : setting.good)
    for (const std::string& arguments : SplitAt(good.arguments + '|', '|'))
      ExpectGood(setting, words.front(), good, arguments);
  const Command* row = FindCommand(AllCommands(), words.front());
  if (row->preset.empty()) return;
  const SettingRun preset(words.front() + " " + std::string(row->preset), true);
  EXPECT_EQ(setting.read(preset.session), setting.read(SettingRun("", true).session)) << row->names[0];
}

void ExpectSettings(const std::vector<Setting>& settings) {
  for (const Setting& setting : settings) ExpectSetting(setting);
}

constexpr const char* kFew = "ERROR - Insufficient arguments for ? command...";
constexpr const char* kNoValue = "ERROR - Invalid value for ? command...";
constexpr const char* kNoPair = "ERROR - missing or insufficient arguments for ";

// clang-format off
TEST(Settings, Files) {
  const char* const blank = "ERROR - Blank file name for ? command";
  ExpectSettings({
      {"READ_OUTPUT_FILE READ_OUTPUT READ_FILE READ", Records, {{"run.out", Of(1, 1, 400), nullptr}, {"a/*.out", Of(1,
       201, 400), nullptr}}, {{"", 4, blank}, {"\"\"", 4, blank}, {"b*.out", 5,
       "ERROR - no file(s) found which match b*.out"}}, {"", "READ a/first.out\n"}},
      {"READ_OUTPUT_FILE_ENSEMBLE READ_FILE_ENSEMBLE READ_ENSEMBLE", Records,
       {{"run.out", Of(2, 1, 400), nullptr}},  // READ would find the files identical
       {{"", 4, blank}}, {"READ run.out\n"}},
      {"READ_OUTPUT_FILE_COMB READ_FILE_COMB READ_COMB READ_OUTPUT_FILE_COMBINE READ_FILE_COMBINE READ_COMBINE",
       Records, {{"a/second.out", Of(1, 1, 400), nullptr}}, {{"", 4, blank}, {"a/*", 4,
       "ERROR - Wild cards cannot be used with ? command"}}, {"READ a/first.out\n"}},
      {"READ_MULTI_SHIP_FILE READ_MULTI_SHIP READ_MULTI_FILE READ_OUTPUT_FILE_MULTI READ_FILE_MULTI READ_MULTI",
       Records, {{"run.out 1", Of(1, 1, 400), nullptr}}, {{"", 4, blank}, {"run.out", 5, kFew}, {"run.out 2", 5,
       "ERROR - ship 2 is not in the file (NSHIP= 1)"}}},
      {"READ_OLD_MULTI_SHIP_FILE READ_OLD_MULTI_SHIP READ_OLD_MULTI_FILE READ_OLD_MULTI", Records, {{"run.out 1 0",
       Of(1, 1, 400), nullptr}}, {{"", 4, blank}, {"run.out 1", 5, kFew}}},
      {"READ_KINO_FILES READ_KINO_FILE READ_KINO", FirstMotion, {{"m \"\" \"\" 9.81 1025 0 0 0 0 0 0", Of(1, 1, 2, 1, 2,
       3, 0, 0, 0), nullptr}}, {{"", 4, blank}, {"m \"\" \"\" 9.81 1025 0 0 0 0 0", 5, kFew}}},
      {"CLEAR_ENSEMBLE_DATA CLEAR_ENSEMBLE", Records, {{"", Of(1, 1, 400), nullptr}}, {},
       {"READ run.out\nREAD_ENSEMBLE run.out\n"}},
  });
}

TEST(Settings, Output) {
  const char* const convention = "ERROR - Unrecognized option for ? command...";
  const Values zavo{1, 1, 1, 1, 1, 1}, model{1, -1, -1, 1, -1, -1}, cfd{-1, -1, 1, -1, -1, 1};
  ExpectSettings({
      {"COMMA COMMAS", Delimiter, {{"", Of(Separator::comma)}}, {}},
      {"TAB TABS", Delimiter, {{"", Of(Separator::tab)}}, {}},
      {"SPACE SPACES", Delimiter, {{"", Of(Separator::space)}}, {}, {"TAB\n"}},
      {"SET_DELIMITER SET_DLM DELIMITER", Delimiter, {{"COMMA|commas", Of(Separator::comma)}, {"TAB|Tabs",
       Of(Separator::tab)}, {"SPACE|SPACES", Of(Separator::space)}}, {{"", 4,
       "ERROR - Invalid argument () for ? command..."}, {"Dot", 4, "ERROR - Invalid argument (Dot) for ? command..."}},
       {"", "TAB\n"}},
      {"SET_OUTPUT_SCALE SET_SCALE OUTPUT_SCALE", Scales, {{"LENOUT 100", Of(9.81F, 1025, 100, 1, 100, 0, 0, 1, 0),
       "Changing output dimensionalization:\nFactor        Old         New\n"
       "GRAVOUT      9.81        9.81  Gravity\nRHOOUT       1025        1025  Water density\n"
       "LENOUT          1         100  Reference length\nANGOUT          1           1  Angular scale factor\n"},
       {"gravout 32.2", Of(32.2F, 1025, 1, 1, 1, 1, 0, 0, 0), nullptr}, {"RHOOUT 1000", Of(9.81F, 1000, 1, 1, 1, 0, 1,
       0, 0), nullptr}, {"ANGOUT 2", Of(9.81F, 1025, 1, 2, 1, 0, 0, 0, 1), nullptr}}, {{"", 4,
       "ERROR - Invalid argument () for ? command..."}, {"L 1", 4, "ERROR - Invalid argument (L) for ? command..."},
       {"LENOUT", 5, kFew}, {"LENOUT x", 5, kFew}, {"LENOUT 0", 4, "ERROR - LENOUT must be positive"}}},
      {"SET_OUTPUT_SCALES OUTPUT_SCALES SCALE_OUTPUT", Scales, {{"1 2 3 4", Of(1, 2, 3, 4, 3, 1, 1, 1, 1), nullptr}},
       {{"1 2 3", 5, kFew}, {"1 2 3 -4", 4, "ERROR - ANGOUT must be positive"}}},
      {"COORDINATES_CONVENTION COORDS_CONVENTION COORDS", Signs, {{"MODEL|zdown", model}, {"CFD|XAFT|XDOWN", cfd},
       {"DEF|DEFAULT|zup|ZAVO", zavo}}, {{"", 4, convention}, {"UP", 4, convention}}, {"", "COORDS CFD\n"}},
  });
}

// Steps: first, last, skips, trims at start, end and of aborted runs, increment.
TEST(Settings, Steps) {
  const char* const illegal = "ERROR - Illegal number of steps specified in ? command...";
  const char* const range = "ERROR - Illegal arguments for ? command...\n        Initial time step of range ";
  ExpectSettings({
      {"SET_TRIM_STEPS TRIM_STEPS TRIM_HISTORY TRIM_HIST", Steps, {{"10 5", Of(11, 95, 0, 0, 10, 5, 200, 1),
       "10 steps trimmed from beginning of time history\n5 steps trimmed from end of time history\n"}, {"7", Of(8, 93,
       0, 0, 7, 7, 200, 1), nullptr}, {"0 0", Of(1, 100, 0, 0, 0, 0, 200, 1), nullptr}}, {{"", 5, kFew}, {"x", 5, kFew},
       {"-1", 4, illegal}, {"1 -1", 4, illegal}, {"50 50", 4, "ERROR - All steps trimmed by ? command..."}}, {"",
       "TRIM_STEPS 3\n"}},
      {"SET_TRIM_STEPS_ABORT SET_TRIM_ABORT TRIM_STEPS_ABORT TRIM_ABORT", Steps, {{"30", Of(1, 100, 0, 0, 0, 0, 30,
       1)}}, {{"", 5, kFew}, {"-1", 4, illegal}}},
      {"SET_STEPS OUTPUT_STEPS OUT_STEPS", Steps, {{"20 60", Of(20, 60, 0, 0, 0, 0, 200, 1),
       "Output set to time steps 20 to 60\n"}, {"50 0", Of(50, 100, 0, 0, 0, 0, 200, 1), nullptr}, {"50 20", Of(50, 50,
       0, 0, 0, 0, 200, 1), nullptr}, {"-7 101", Of(1, 100, 0, 0, 0, 0, 200, 1), nullptr}}, {{"", 5, kFew}, {"x", 5,
       kFew}}, {"", "SET_STEPS 2 3\nSET_STEPS 2 100\n"}, true},
      {"SET_SKIP_STEPS SKIP_STEPS", Steps, {{"10 4", Of(1, 100, 10, 4, 0, 0, 200, 1),
       "Setting # of initial and terminal time steps to skip in\nstatistical calculations to 10 and 4, respectively\n"},
       {"10", Of(1, 100, 10, 0, 0, 0, 200, 1), nullptr}, {"9999", Of(1, 100, 99, 0, 0, 0, 200, 1),
       "Setting # of initial time steps to skip in statistical calculations to 9999\n"
       "        The case ends at step 100: 99 in force\n"}}, {{"", 5, kFew}, {"-1", 4, illegal}, {"5 -1", 4, illegal}},
       {"", "SKIP_STEPS 1 2\n"}},
      {"SET_STAT_STEPS STAT_STEPS", Steps, {{"21 85", Of(1, 100, 20, 15, 0, 0, 200, 1),
       "Setting time step range for statistical calculations to: 21 through 85\n"}, {"21 185", Of(1, 100, 20, 0, 0, 0,
       200, 1),
       "Setting time step range for statistical calculations to: 21 through 185\n"
       "        The case ends at step 100, which is in force\n"}}, {{"", 5, kFew}, {"5", 5, kFew},
       {"0 5", 4, range + std::string("cannot be zero")}, {"6 5", 4,
       range + std::string("after terminal step")}, {"101 200", 4,
       "ERROR - Illegal arguments for ? command...\n        The case has steps 1 to 100"}}, {""}, true},
      {"SET_STEP_INCREMENT SET_STEP_INC STEP_INCREMENT STEP_INC", Steps, {{"2.5", Of(1, 100, 0, 0, 0, 0, 200, 3),
       "Setting output step increment to 3\n"}}, {{"", 5, kFew}, {"0.4", 4, kNoValue}, {"-3", 4, kNoValue}}},
  });
}

TEST(Settings, Data) {
  const char* const bad_word = "ERROR - Invalid argument for ? command : 7";
  const char* const no_word = "ERROR - Invalid argument for ? command :";
  const char* const negative = "ERROR - Invalid argument for ? value cannot be negative";
  ExpectSettings({
      {"PLOT_STATS STATS STATISTICS PEAK_STATS", Shown, {{"1/3RD|1/3|3|SIGNIFICANT|sig|ON", {1}}, {"1/10th|1/10|10",
       {2}}, {"STDEV|ST.DEV|RMS|VAR|VARIANCE", {3}}, {"MIN|MAX|MINIMUM|MAXIMUM|MINMAX", {4}}, {"OFF|NONE", {0}}}, {{"",
       4, no_word}, {"7", 4, bad_word}}, {"", "STATS ON\n"}},
      {"SMOOTH_DATA SMOOTHDATA SMOOTH", Smoothing, {{"on", {3, 11}}, {"1", {1, 11}}, {"2.0", {2, 11}}, {"3", {3, 11}},
       {"OFF|NONE|0", {0, 11}}}, {{"", 4, no_word}, {"7", 4, bad_word}, {"-1", 4,
       "ERROR - Invalid argument for ? command : -1"}}, {"", "SMOOTH 2\n"}},
      {"SMOOTH_NPT SMOOTH_WINDOW SMOOTHNPT SMOOTHWINDOW", Smoothing, {{"5", {0, 5}}, {"14.5", {0, 15}}}, {{"", 5, kFew},
       {"4", 4, kNoValue}}},
      {"SMOOTH_INPUT SMOOTHINPUT", LastMotion, {{"3 21|1", {0}}}, {{"", 5, kFew}, {"0", 4,
       "ERROR - Invalid argument for ? command : 0"}, {"3 4", 4, "ERROR - Invalid argument for ? command : 4"}, {"3", 4,
       "ERROR - Invalid argument for ? command : 3"}}, {""}, true},
      {"SET_LENGTH_NDTF LENGTH_NDTF SET_LEN_NDTF LEN_NDTF SET_LENGTH_RAO LENGTH_RAO SET_LEN_RAO LEN_RAO", Ndtf, {{"3", {3, 0}}, {"0", {0, 0}}}, {{"", 5, kFew}, {"-1", 4, negative}}, {"", "LEN_RAO 1\n"}},
      {"SET_BEAM_NDTF BEAM_NDTF SET_BEAM_RAO BEAM_RAO", Ndtf, {{"4", {0, 4}}}, {{"", 5, kFew}, {"-1", 4, negative}}},
      {"CONFIDENCE_PROBABILITY CONFIDENCE_PROB CONF_PROB", Intervals, {{"1", {1, 1, 0.05F, 0}}, {"0.9", {0.9F, 1, 0.05F,
       0}}}, {{"", 5, kFew}, {"0", 4, kNoValue}, {"1.01", 4, kNoValue}}},
      {"ENSEMBLE_NMANY NMANY", Intervals, {{"30", {0.95F, 1, 0.05F, 30}}, {"0", {0.95F, 1, 0.05F, 0}}}, {{"", 5, kFew},
       {"-1", 4, kNoValue}}, {"", "NMANY 2\n"}},
      {"AUTOCORRELATION_SAMPLE_RATE AUTOCORRELATION_SAMPLE AUTOC_SAMPLE_RATE AUTOC_SAMPLE", Intervals, {{"1.5", {0.95F,
       2, 0.05F, 0}}}, {{"", 5, kFew}, {"0", 4, kNoValue}}},
      {"AUTOCORRELATION_CUTOFF AUTOC_CUTOFF AC_CUTOFF", Intervals, {{"0.5", {0.95F, 1, 0.5F, 0}}}, {{"", 5, kFew}, {"0",
       4, kNoValue}, {"1", 4, kNoValue}}},
      {"EXTREME_MAXIMUM", Analyses, {{"24 0.9", {24, 0.9F, 50}}}, {{"3", 5, kFew}, {"0 0.9", 4, kNoValue}, {"2 1", 4,
       kNoValue}}, {"", "EXTREME_MAXIMUM 3 .5\n"}},
      {"RAINFLOW_BINS", Analyses, {{"20", {3, 0.99F, 20}}}, {{"", 5, kFew}, {"0", 4, kNoValue}, {"1e9", 4, kNoValue}}},
  });
}

// Histogram: data, overlay, counts, rate, style (2 by default). Plot frame: axes, histogram axes, window.
TEST(Settings, Plots) {
  const char* const bad_word = "ERROR - Invalid argument for ? command : 7";
  const char* const no_word = "ERROR - Invalid argument for ? command :";
  const char* const small = "ERROR - illegal arguments for ";
  const auto flag = [](const char* word, Values on, Values off) {
    return Setting{{word}, Flags,
                   {{"ON|yes", on}, {"", on}, {"OFF|n", off}},
                   {{"o", 4, "ERROR - illegal value for ? command: o"}},
                   {"", std::string(word) + " OFF\n", std::string(word) + " ON\n"}};
  };
  ExpectSettings({
      {"HISTOGRAM_DATA HISTOGRAM_TYPE HIST_DATA HIST_TYPE", Histogram, {{"ABSOLUTE|abs", {1, 0, 0, 1, 2}},
       {"POSITIVE|POS", {2, 0, 0, 1, 2}}, {"ALL|SIGNED|SIG", {0, 0, 0, 1, 2}}}, {{"", 4, no_word}, {"7", 4, bad_word}},
       {"", "HIST_DATA POS\n"}},
      {"HISTOGRAM_STYLE HIST_STYLE", Histogram, {{"LINED|CURVE|LINE", {0, 0, 0, 1, 0}}, {"FILLED|fill", {0, 0, 0, 1,
       1}}, {"OUTLINED|OUTLINE", {0, 0, 0, 1, 2}}}, {{"", 4, no_word}, {"7", 4, bad_word}}, {"", "HIST_STYLE FILL\n"}},
      {"HISTOGRAM_DIST_OVERLAY HISTOGRAM_DIST HISTOGRAM_OVERLAY HIST_DIST_OVERLAY HIST_DIST HIST_OVERLAY", Histogram,
       {{"UNI|UNIFORM", {0, 1, 0, 1, 2}}, {"NORM|NORMAL|GAUSSIAN|gauss", {0, 2, 0, 1, 2}},
       {"GRAMM-CHARLIER|GRAMM|GC|G-C", {0, 3, 0, 1, 2}}, {"RAYLEIGH|RAY", {0, 4, 0, 1, 2}}, {"EXPONENTIAL|EXP", {0, 5,
       0, 1, 2}}, {"OFF|NONE", {0, 0, 0, 1, 2}}}, {{"", 4, no_word}, {"7", 4, bad_word}}, {"", "HIST_DIST GC\n"}},
      {"HISTOGRAM_YAXIS HISTOGRAM_Y HIST_YAXIS HIST_Y", Histogram, {{"TOTAL|count", {0, 0, 1, 1, 2}}, {"N/NTOT|RATIO|N",
       {0, 0, 0, 1, 2}}}, {{"", 4, no_word}, {"7", 4, bad_word}}, {"", "HIST_Y COUNT\n"}},
      {"HISTOGRAM_SAMPLE_RATE HISTOGRAM_SAMPLE HIST_SAMPLE_RATE HIST_SAMPLE", Histogram, {{"2.5", {0, 0, 0, 3, 2}}},
       {{"", 5, kFew}, {"0.4", 4, kNoValue}}},
      {"HISTOGRAM_PLOT_SIZE HISTOGRAM_AXES_SIZE HISTOGRAM_AXIS_SIZE HIST_PLOT_SIZE HIST_AXES_SIZE HIST_AXIS_SIZE",
       PlotFrame, {{"4 3", {8, 5.5F, 4, 3, 500, 400}}}, {{"4", 4, kNoPair + std::string("? command")}, {"4 0", 4, small
       + std::string("? command")}}},
      {"PLOT_SIZE AXES_SIZE AXIS_SIZE", PlotFrame, {{"4 3", {4, 3, 8, 5.5F, 500, 400}}}, {{"", 4, kNoPair +
       std::string("PLOT_SIZE command")}, {"-4 3", 4, small + std::string("PLOT_SIZE command")}}},
      {"WINDOW_SIZE WINDOW", PlotFrame, {{"800.4 600", {8, 5.5F, 8, 5.5F, 800, 600}}}, {{"800", 4, kNoPair +
       std::string("WINDOW_SIZE command")}, {"0.4 600", 4, small + std::string("WINDOW_SIZE command")}, {"600 16385", 4,
       small + std::string("WINDOW_SIZE command")}}},
      flag("PLOT_GRID", {1, 0, 1}, {0, 0, 1}), flag("SHOW_GRID", {1, 0, 1}, {0, 0, 1}), flag("GRID", {1, 0, 1}, {0, 0, 1}),
      flag("MATCH_SCALES", {0, 1, 1}, {0, 0, 1}), flag("SHOW_SHIP", {0, 0, 1}, {0, 0, 0}),
      {"PLOT_NUMBERS NUMBER_CURVES", Curves, {{"", {1, 0, 0, 1}}}, {}},
      {"PLOT_LEGEND", Curves, {{"OFF|none", {0, 1, 0, 1}}, {"on|NAMES", {0, 2, 0, 1}}, {"VALUES", {0, 2, 1, 1}}},
       {{"", 4, no_word}}},
      {"PLOT_COLOR PLOT_COLORS PLOT_COLOUR PLOT_COLOURS", Curves, {{"OFF", {0, 0, 0, 0}}}, {}},
      {"REVERSE", Background, {{"", {1}}}, {}},
      {"BLACK BLACKBG BLACK_BG", Background, {{"", {2}}}, {}},
      {"WHITE WHITEBG WHITE_BG", Background, {{"", {3}}}, {}},
      {"EARTH_RADIUS RADIUS_EARTH R_EARTH", Sensor, {{"6.371e6", {6.371e6F, -1}}}, {{"", 5, kFew}, {"x", 5, kFew}}},
      {"MAXIXUM_SENSOR_VIEW_HEIGHT MAX_SENSOR_VIEW_HEIGHT MAX_SV_HEIGHT", Sensor, {{"50", {-1, 50}}}, {{"", 5, kFew}}},
  });
}

TEST(Settings, AnimationOptions) {
  const std::string words = "ANIMATE_OPTION ANIMATE_OPT KINO_OPTION KINO_OPT";
  const char* const sea = "Illegal value for KINO_OPT SEA";
  const std::string outside = "ERROR - illegal value for KINO_OPT ";
  const auto none = [](const char* name) { return std::string("ERROR parsing value for KINO_OPT ") + name; };
  ExpectSettings({
      {words, ViewFlags,
       {{"RUDDER off", {0, 1, 1, 1, 1, 0, 1, 0}}, {"time OFF|TIMELABEL maybe", {1, 0, 1, 1, 1, 0, 1, 0}},  // what is no yes is a no
        {"TITLE n", {1, 1, 0, 1, 1, 0, 1, 0}}, {"PERSPECTIVE off", {1, 1, 1, 0, 1, 0, 1, 0}},
        {"SHADING off", {1, 1, 1, 1, 0, 0, 1, 0}}, {"TRANSPARENT y", {1, 1, 1, 1, 1, 1, 1, 0}},
        {"BODY wire", {1, 1, 1, 1, 1, 0, 0, 1}}},
       {{"", 4, "ERROR - Invalid quantity for ? command:"}, {"TITLES on", 4, "ERROR - Invalid quantity for ? command: TITLES"},
        {"BODY x", 4, sea}, {"SEA", 4, sea}, {"SEA T", 4, none("SEA TRANSPARENT")}}},
      {words, ViewFlags, {{"WIRE on", {1, 1, 1, 1, 1, 0, 1, 1}}}, {}},
      {words, MoreViewFlags,
       {{"CGTRACK on", {1, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0}}, {"WATERLINE on", {0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0}},
        {"CENTRES on", {0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0}}, {"POINT_MARK on", {0, 0, 0, 1, 1, 0, 0, 0, 0, 0, 0}},
        {"SURFACE off", {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}}, {"SURFACE_WIRE on", {0, 0, 0, 0, 1, 1, 0, 0, 0, 0, 0}},
        {"HORIZON on", {0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0}}, {"EVENTS on", {0, 0, 0, 0, 1, 0, 0, 1, 0, 0, 0}},
        {"FRAME_TOO on", {0, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0}},
        {"COLOR wetness|WETNESS on", {0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0}}, {"CAMERA bridge", {0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 3}}},
       {{"CAMERA x", 4, "Illegal value for KINO_OPT CAMERA : X"}, {"COLOR red", 4, "Illegal value for KINO_OPT COLOR : RED"}}},
      {words, ViewNumbers, {{"CAMERA STERN", {0.6F, 0.3F, 30, 0, 180, 8, 0, 0, 0}}}, {}, {"KINO_OPT RADIUS 9\n"}},
      {words, [](const Session& s) { const ScenePoint& c = s.motion_view.view.view_centre; return Of(c.x, c.y, c.z); },
       {{"CENTER 1 -2 3.5", {1, -2, 3.5F}}}, {{"CENTER 1 2 x", 4, none("CENTER")}}},
      {words, ViewFlags, {{"BODY solid", {1, 1, 1, 1, 1, 0, 1, 0}}}, {}, {"KINO_OPT BODY W\n"}},
      {words, ViewNumbers, {{"SEA Solid", {1, 0.3F, 30, 0, 45, 30, 0, 0, 0}}}, {}, {"KINO_OPT SEA T 0.5\n"}},
      {words, ViewNumbers, {{"SEA T 0.25", {0.25F, 0.3F, 30, 0, 45, 30, 0, 0, 0}}, {"SEA T 1.5", {1, 0.3F, 30, 0, 45,
       30, 0, 0, 0}, "Illegal opacity value for KINO_OPT SEA TRANSPARENT; should be between 0.0 and 1.0\n"}, {"AMB 1",
       {0.6F, 1, 30, 0, 45, 30, 0, 0, 0}}, {"APER 90", {0.6F, 0.3F, 90, 0, 45, 30, 0, 0, 0}}, {"VIEW_RADIUS 7", {0.6F,
       0.3F, 30, 7, 45, 30, 0, 0, 0}}, {"RADIUS 8", {0.6F, 0.3F, 30, 8, 45, 30, 0, 0, 0}}, {"VIEW_AZIMUTH 0", {0.6F,
       0.3F, 30, 0, 0, 30, 0, 0, 0}}, {"AZIM 360", {0.6F, 0.3F, 30, 0, 360, 30, 0, 0, 0}}, {"VIEW_ELEV 90", {0.6F, 0.3F,
       30, 0, 45, 90, 0, 0, 0}}, {"ELEV -90", {0.6F, 0.3F, 30, 0, 45, -90, 0, 0, 0}}, {"GRID 5", {0.6F, 0.3F, 30, 0, 45,
       30, 5, 0, 0}}, {"GRIDSIZE 6", {0.6F, 0.3F, 30, 0, 45, 30, 6, 0, 0}}, {"GRID_SIZE 7", {0.6F, 0.3F, 30, 0, 45, 30,
       7, 0, 0}}, {"THICK 2", {0.6F, 0.3F, 30, 0, 45, 30, 0, 2, 0}}, {"INIT_STEP 900", {0.6F, 0.3F, 30, 0, 45, 30, 0, 0,
       100}}, {"STEP 9", {0.6F, 0.3F, 30, 0, 45, 30, 0, 0, 9}}}, {{"AMB 1.1", 4, outside +
       "AMBIENT; should be between 0.0 and 1.0"}, {"AMB x", 4, none("AMBIENT")}, {"APER -1", 4, outside +
       "APERTURE; should be between 0.0 and 90.0"}, {"APER x", 4, none("APERTURE")}, {"RAD 0", 4, outside +
       "RADIUS; should be > 0.0"}, {"RAD x", 4, none("RADIUS")}, {"AZIM 361", 4, outside +
       "AZIMUTH; should be between 0.0 and 360.0"}, {"AZIM x", 4, none("AZIMUTH")}, {"ELEV 91", 4, outside +
       "ELEVATION; should be between -90.0 and 90.0"}, {"ELEV x", 4, none("ELEVATION")}, {"GRID 0", 4, outside +
       "GRIDSIZE; should be > 0.0"}, {"GRID x", 4, none("GRIDSIZE")}, {"THICK -1", 4, outside +
       "THICK; should be => 0.0"}, {"THICK x", 4, none("THICK")}, {"STEP x", 4, none("STEP")}, {"AMB", 4,
       none("AMBIENT")}}},
      {words, Sync, {{"SYNC_FACTOR 2", {1, 1, 2}}, {"SYNC -4", {1, 0, 4}}, {"SYNC 0", {0, 0, 3}}}, {{"SYNC x", 4,
       none("SYNC_FACTOR")}}, {"KINO_OPT SYNC -3\n"}},
  });
}

TEST(Settings, GeometryOptions) {
  const std::string words = "GEOMETRY_OPTION GEOM_OPTION GEOM_OPT";
  const std::string illegal = "Illegal value for GEOM_OPT ", outside = "ERROR - illegal value for GEOM_OPT ";
  ExpectSettings({
      {words, HullLooks,
       {{"VIEW xy", {0, 0, 0, 0, 0, 0, 1, 0, 0, 0}}, {"VIEW YZ", {0, 2, 0, 0, 0, 0, 1, 0, 0, 0}},
        {"view 3D", {1, 1, 0, 0, 0, 0, 1, 0, 0, 0}}, {"COMPONENT 3", {0, 1, 3, 0, 0, 0, 1, 0, 0, 0}},
        {"DRAW STATIONS", {0, 1, 0, 1, 0, 0, 1, 0, 0, 0}}, {"DRAW WATERLINES", {0, 1, 0, 2, 0, 0, 1, 0, 0, 0}},
        {"MIRROR yes", {0, 1, 0, 0, 1, 0, 1, 0, 0, 0}}, {"COLOR COMPONENT", {0, 1, 0, 0, 0, 1, 1, 0, 0, 0}},
        {"COLOUR TYPE", {0, 1, 0, 0, 0, 2, 1, 0, 0, 0}}, {"SOLID OFF|WIRE ON", {0, 1, 0, 0, 0, 0, 0, 0, 0, 0}},
        {"AXES GRID", {0, 1, 0, 0, 0, 0, 1, 4, 0, 0}}, {"POINTS on", {0, 1, 0, 0, 0, 0, 1, 0, 1, 0}},
        {"LOADS on", {0, 1, 0, 0, 0, 0, 1, 0, 0, 1}}},
       {{"", 4, "ERROR - Invalid quantity for ? command:"}, {"VIEW ZX", 4, illegal + "VIEW"},
        {"MIRROR x", 4, illegal + "MIRROR"}, {"COMP 101", 4, outside + "COMPONENT; should be between 0 and 100"}}},
      {words, HullFlags,
       {{"NORMALS on", {1, 0, 0, 1, 0, 1, 1, 1, 0, 0, 1, 0, 1}}, {"CG on", {0, 1, 0, 1, 0, 1, 1, 1, 0, 0, 1, 0, 1}},
        {"NUMBERS on", {0, 0, 1, 1, 0, 1, 1, 1, 0, 0, 1, 0, 1}}, {"APPENDAGES off", {0, 0, 0, 0, 0, 1, 1, 1, 0, 0, 1, 0, 1}},
        {"APPENDAGE_LABELS on", {0, 0, 0, 1, 1, 1, 1, 1, 0, 0, 1, 0, 1}}, {"ZBUFFER off", {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 1}},
        {"SHADING off", {0, 0, 0, 1, 0, 1, 0, 1, 0, 0, 1, 0, 1}}, {"OUTLINE off", {0, 0, 0, 1, 0, 1, 1, 0, 0, 0, 1, 0, 1}},
        {"BACKFACE on", {0, 0, 0, 1, 0, 1, 1, 1, 1, 0, 1, 0, 1}}, {"PERSPECTIVE on", {0, 0, 0, 1, 0, 1, 1, 1, 0, 1, 1, 0, 1}},
        {"TITLE off", {0, 0, 0, 1, 0, 1, 1, 1, 0, 0, 0, 0, 1}}, {"GRID on", {0, 0, 0, 1, 0, 1, 1, 1, 0, 0, 1, 1, 1}},
        {"ASPECT off", {0, 0, 0, 1, 0, 1, 1, 1, 0, 0, 1, 0, 0}}},
       {}},
      {words, HullEye,
       {{"RADIUS 7", {7, 45, 30, 30, 0, 1}}, {"AZIMUTH 350", {0, 350, 30, 30, 0, 0}}, {"ELEVATION -90", {0, 45, -90, 30, 0, 0}},
        {"APERTURE 5", {0, 45, 30, 5, 0, 0}}, {"THICKNESS 0.08", {0, 45, 30, 30, 0.08F, 0}}},
       {{"RAD 0", 4, outside + "RADIUS; should be > 0.0"}, {"RAD x", 4, "ERROR parsing value for GEOM_OPT RADIUS"},
        {"AZIM 361", 4, outside + "AZIMUTH; should be between 0.0 and 360.0"}}},
  });
}

// A script has no key for it. What the user chose stays.
TEST(Settings, ChosenComponentIsFittedAnew) {
  ScriptRun run("GEOMETRY_OPTION COMPONENT 2\n");
  GeometryViewState& view = run.session.geometry_view;
  for (const LimitsUse before : {LimitsUse::fitted, LimitsUse::changed}) {
    view.space_fit.width = 800;
    view.axes.use = before;
    run.Run();
    EXPECT_EQ(view.space_fit, GeometryFit{});
    EXPECT_EQ(view.axes.use, before == LimitsUse::fitted ? LimitsUse::to_fit : before);
  }
}

// A graph: on, quantity, curve, first of the point, last of the missile data; and its looks.
TEST(Settings, AnimationGraphs) {
  const char* const index = "ERROR - Invalid graph index for ? value must be ";
  ExpectSettings({
      {"ANIMATE_GRAPH KINO_GRAPH", Graphs, {{"2 MOT 3", {0, 1, 3, 0, 0, 1, 1, 3, 0, 0, 0, 1, 3, 0, 0, 0, 1, 3, 0, 0}},
       {"1 point_mot 7 8 9 2", {1, 27, 2, 7, 0, 0, 1, 3, 0, 0, 0, 1, 3, 0, 0, 0, 1, 3, 0, 0}},
       {"4 POINT_MISS 7 8 9 1 1 2 3 4 1", {0, 1, 3, 0, 0, 0, 1, 3, 0, 0, 0, 1, 3, 0, 0, 1, 48, 1, 7, 4}}}, {{"", 5,
       index + std::string("1-4")}, {"0 MOT 3", 5, index + std::string("1-4")}, {"5 MOT 3", 5, index +
       std::string("1-4")}, {"1 ALL", 4, "ERROR - Option ALL not valid for ? command ..."}, {"1 moot", 4,
       "ERROR - Invalid quantity specifier: moot\n        the nearest quantity is MOT"}, {"1 VSF 1", 4,
       "ERROR - ? option VSF not valid for this output file"}, {"1 MOT", 4,
       "ERROR - Insufficient arguments for ? command ..."}, {"1 MOT 7", 4,
       "ERROR - Invalid curve index for ? option MOT\n        MOT has the curves 1 to 6"}, {"1 POINT_MOT 7 8 9", 5,
       "ERROR - Insufficient arguments for ? command for point motion..."}, {"1 POINT_MISS 7 8 9 1 1 2 3 4", 5,
       "ERROR - Insufficient arguments for ? command for missile data..."}, {"1 POINT_MISS 7 8 9 1 1 2 3 4 2", 4,
       "ERROR - Invalid curve index for ? option POINT_MISS\n        POINT_MISS has one curve"}}, {""}, true},
      {"KINO_GRAPH", Graphs, {{"1 off", {0, 2, 2, 0, 0, 0, 1, 3, 0, 0, 0, 1, 3, 0, 0, 0, 1, 3, 0, 0}}}, {},
       {"KINO_GRAPH 1 VEL 2\n"}, true},
      {"ANIMATE_GRAPH_OPTION ANIMATE_GRAPH_OPT KINO_GRAPH_OPTION KINO_GRAPH_OPT", GraphOptions, {{"0 COLOR DarkGreen",
       {15, 1, 0, 1, 0, 0, 15, 1, 0, 1, 0, 0, 15, 1, 0, 1, 0, 0, 15, 1, 0, 1, 0, 0}}, {"1 COL black", {0, 1, 0, 1, 0, 0,
       1, 1, 0, 1, 0, 0, 1, 1, 0, 1, 0, 0, 1, 1, 0, 1, 0, 0}}, {"2 BLANK off", {1, 1, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1,
       1, 0, 1, 0, 0, 1, 1, 0, 1, 0, 0}}, {"3 SCROLL on", {1, 1, 0, 1, 0, 0, 1, 1, 0, 1, 0, 0, 1, 1, 1, 1, 0, 0, 1, 1,
       0, 1, 0, 0}}, {"4 TIME no", {1, 1, 0, 1, 0, 0, 1, 1, 0, 1, 0, 0, 1, 1, 0, 1, 0, 0, 1, 1, 0, 0, 0, 0}},
       {"1 MARK y", {1, 1, 0, 1, 1, 0, 1, 1, 0, 1, 0, 0, 1, 1, 0, 1, 0, 0, 1, 1, 0, 1, 0, 0}}, {"1 VALUE y", {1, 1, 0,
       1, 0, 1, 1, 1, 0, 1, 0, 0, 1, 1, 0, 1, 0, 0, 1, 1, 0, 1, 0, 0}}}, {{"", 5, index + std::string("0-4")},
       {"5 COL RED", 5, index + std::string("0-4")}, {"0 COL 3", 4, "ERROR - unrecognized color= 3"}, {"1 Foo on", 4,
       "ERROR - Invalid quantity for ? command: Foo"}}},
  });
}
// clang-format on

}  // namespace
}  // namespace zaview
