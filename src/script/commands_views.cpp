// Settings that the views read: sizes, grid, backgrounds, and limits of the sensor view.
#include <algorithm>
#include <vector>

#include "base/message.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "gks/kernel/gks_control.h"
#include "gks/window/gks_window.h"
#include "script/call_arguments.h"
#include "script/command_table.h"
#include "script/setting_words.h"

namespace zaview {

namespace {

constexpr std::string_view kIllegal = "ERROR - illegal arguments for {} command";
constexpr std::string_view kMissing = "ERROR - missing or insufficient arguments for {} command";

constexpr std::string_view kBeyondPage =
    "WARNING - {} {} by {} is larger than the page has room for: drawn as {} by {}";

struct Pair {
  float first = 0, second = 0;
};

// Two numbers above 0. `name` is what the messages call the command.
int ReadPair(ScriptCall& call, std::string_view name, Pair& pair) {
  std::vector<float> values;
  if (!ParseRealList(call.words, 2, values)) return Fail(call, kScriptBadArgument, kMissing, name);
  if (!(values[0] > 0) || !(values[1] > 0)) return Fail(call, kScriptBadArgument, kIllegal, name);
  pair = {values[0], values[1]};
  return kScriptOk;
}

// A size beyond the page is kept as it was given, and drawn as large as there is room.
void TakeSize(ScriptCall& call, const Pair& size, std::string_view name, AxesLength& length) {
  length = {size.first, size.second};
  if (length.x <= kLargestArea.x && length.y <= kLargestArea.y) return;
  Say(call.console(), kBeyondPage, name, Shown{length.x}, Shown{length.y}, Shown{std::min(length.x, kLargestArea.x)},
      Shown{std::min(length.y, kLargestArea.y)});
}

int RunPlotSize(ScriptCall& call) {
  Pair size;
  const int status = ReadPair(call, "PLOT_SIZE", size);
  if (status == kScriptOk) TakeSize(call, size, "PLOT_SIZE", call.session.data_plot.axis_length);
  return status;
}

int RunHistogramSize(ScriptCall& call) {
  Pair size;
  const int status = ReadPair(call, call.command, size);
  if (status == kScriptOk) TakeSize(call, size, call.command, call.session.data_plot.histogram_length);
  return status;
}

int RunWindowSize(ScriptCall& call) {
  Pair size;
  const int status = ReadPair(call, "WINDOW_SIZE", size);
  if (status != kScriptOk) return status;
  const int width = RoundToInt(static_cast<double>(size.first));
  const int height = RoundToInt(static_cast<double>(size.second));
  if (std::min(width, height) < 1 || std::max(width, height) > kLargestWindow)
    return Fail(call, kScriptBadArgument, kIllegal, "WINDOW_SIZE");
  glResizeWindow(call.session.platform, call.session.gks, width, height);
  return kScriptOk;
}

// A yes or a no; a blank word is a yes.
template <bool DataPlotState::*flag>
int RunFlag(ScriptCall& call) {
  const std::string word = NextScriptWord(call.words, kKeyword);
  bool value = true;
  if (!IsBlank(word) && !ReadBoolean(word, value))
    return Fail(call, kScriptBadArgument, "ERROR - illegal value for {} command: {}", call.command, word);
  call.session.data_plot.*flag = value;
  return kScriptOk;
}

template <int colours>
int RunBackground(ScriptCall& call) {
  call.session.run.plot_colours = colours;
  return kScriptOk;
}

constexpr WordValue kStatWords[] = {
    {"OFF", 0}, {"NONE", 0},     {"1/3RD", 1}, {"1/3", 1}, {"3", 1},       {"SIGNIFICANT", 1}, {"SIG", 1},
    {"ON", 1},  {"1/10TH", 2},   {"1/10", 2},  {"10", 2},  {"STDEV", 3},   {"ST.DEV", 3},      {"RMS", 3},
    {"VAR", 3}, {"VARIANCE", 3}, {"MIN", 4},   {"MAX", 4}, {"MINIMUM", 4}, {"MAXIMUM", 4},     {"MINMAX", 4},
};

int RunPlotStats(ScriptCall& call) {
  return ReadWord(call, kStatWords, call.session.data_plot.show_stats);
}

constexpr WordValue kStyleWords[] = {
    {"LINED", 0}, {"CURVE", 0}, {"LINE", 0}, {"FILLED", 1}, {"FILL", 1}, {"OUTLINED", 2}, {"OUTLINE", 2},
};

int RunHistogramStyle(ScriptCall& call) {
  int style = 0;
  const int status = ReadWord(call, kStyleWords, style);
  if (status == kScriptOk) call.session.data_plot.hist_rendering = static_cast<HistogramStyle>(style);
  return status;
}

template <float SensorSettings::*field>
int RunSensor(ScriptCall& call) {
  return ReadNumber(call, call.session.sensor.*field);
}

constexpr WordValue kLegendWords[] = {
    {"OFF", 0}, {"NONE", 0}, {"NO", 0}, {"ON", 1}, {"NAMES", 1}, {"YES", 1}, {"AUTO", 2}, {"VALUES", 3},
};

int RunLegend(ScriptCall& call) {
  constexpr int kOff = 0, kAuto = 2, kValues = 3;
  int use = 0;
  if (const int status = ReadWord(call, kLegendWords, use); status != kScriptOk) return status;
  DataPlotState& plot = call.session.data_plot;
  plot.legend = use == kOff ? LegendUse::off : use == kAuto ? LegendUse::automatic : LegendUse::on;
  plot.values_in_legend = use == kValues;
  return kScriptOk;
}

int RunPictureStyle(ScriptCall& call) {
  constexpr WordValue kStyles[] = {{"CLASSIC", static_cast<int>(PictureStyle::classic)},
                                   {"REPORT", static_cast<int>(PictureStyle::report)}};
  int style = 0;
  const int status = ReadWord(call, kStyles, style);
  if (status == kScriptOk) gksSetStyle(call.session.gks, static_cast<PictureStyle>(style));
  return status;
}

constexpr Command kViews[] = {
    {{"PLOT_NUMBERS", "NUMBER_CURVES"},
     kNone,
     RunFlag<&DataPlotState::numbers_on>,
     "ON|OFF",
     "Numbers at the ends of the curves",
     "OFF"},
    {{"PLOT_LEGEND"},
     kNone,
     RunLegend,
     "OFF|NONE|NO|ON|NAMES|YES|AUTO|VALUES",
     "Names of the curves below the plot, with their values if wanted; AUTO: where there are several",
     "AUTO"},
    {{"PLOT_COLOR", "PLOT_COLORS", "PLOT_COLOUR", "PLOT_COLOURS"},
     kNone,
     RunFlag<&DataPlotState::colour_on>,
     "ON|OFF",
     "Curves in colours; else in dashes",
     "ON"},
    {{"PLOT_STATS", "STATS", "STATISTICS", "PEAK_STATS"},
     kNone,
     RunPlotStats,
     "OFF|NONE|ON|1/3RD|1/3|3|SIGNIFICANT|SIG|1/10TH|1/10|10|"
     "STDEV|ST.DEV|RMS|VAR|VARIANCE|MIN|MAX|MINIMUM|MAXIMUM|MINMAX",
     "Statistics that a plot of one curve shows: averages of the highest peaks, deviation, extremes",
     "OFF"},
    {{"HISTOGRAM_STYLE", "HIST_STYLE"},
     kNone,
     RunHistogramStyle,
     "LINED|CURVE|LINE|FILLED|FILL|OUTLINED|OUTLINE",
     "How a histogram is drawn",
     "OUTLINED"},
    {{"HISTOGRAM_PLOT_SIZE", "HISTOGRAM_AXES_SIZE", "HISTOGRAM_AXIS_SIZE", "HIST_PLOT_SIZE", "HIST_AXES_SIZE",
      "HIST_AXIS_SIZE"},
     kNone,
     RunHistogramSize,
     "width height",
     "Length of the axes of a histogram, in page units; the page is 11 by 8.5",
     "8 5.5"},
    {{"PLOT_SIZE", "AXES_SIZE", "AXIS_SIZE"},
     kNone,
     RunPlotSize,
     "width height",
     "Length of the axes of a data plot, in page units; the page is 11 by 8.5",
     "8 5.5"},
    {{"PLOT_GRID", "SHOW_GRID", "GRID"}, kNone, RunFlag<&DataPlotState::grid_on>, "yes", "Grid lines"},
    {{"MATCH_SCALES"}, kNone, RunFlag<&DataPlotState::match_scales>, "yes", "The same scales on all graphs"},
    {{"SHOW_SHIP"}, kNone, RunFlag<&DataPlotState::show_ship>, "yes", "Waterlines of the ship on a trajectory"},
    {{"WINDOW_SIZE", "WINDOW"}, kNone, RunWindowSize, "width height", "Size of the window and of pictures, in pixels"},
    {{"PICTURE_STYLE"},
     kNone,
     RunPictureStyle,
     "CLASSIC|REPORT",
     "CLASSIC: as the system has always drawn; REPORT: smooth on white, the plot fills the page, with grid and legend",
     "CLASSIC"},
    {{"REVERSE"}, kNone, RunBackground<1>, "", "Black and white exchanged in plots"},
    {{"BLACK", "BLACKBG", "BLACK_BG"}, kNone, RunBackground<2>, "", "Plots on black paper"},
    {{"WHITE", "WHITEBG", "WHITE_BG"}, kNone, RunBackground<3>, "", "Plots on white paper"},
    {{"EARTH_RADIUS", "RADIUS_EARTH", "R_EARTH"},
     kNone,
     RunSensor<&SensorSettings::earth_radius>,
     "number",
     "Radius of the earth in sensor views; negative: by gravity",
     "-1"},
    {{"MAXIXUM_SENSOR_VIEW_HEIGHT", "MAX_SENSOR_VIEW_HEIGHT", "MAX_SV_HEIGHT"},
     kNone,
     RunSensor<&SensorSettings::height_maximum>,
     "number",
     "Largest height in sensor views; negative: the ship length",
     "-1"},  // spelled so
};

}  // namespace

CommandFamily ViewSettings() {
  return kViews;
}

}  // namespace zaview
