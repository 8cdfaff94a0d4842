// Commands that ask for a data plot. Nothing is drawn here: the interpreter stops behind them, and the run loop enters
// the view.
#include <string>
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "gks/kernel/gks_control.h"
#include "gks/picture/picture_sheet.h"
#include "gks/window/gks_window.h"
#include "script/command_table.h"
#include "script/plot_commands.h"
#include "script/selectors.h"
#include "stats/statistic_table.h"
#include "views/state/result_choice.h"
#include "views/state/start_plot.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr std::string_view kFewIrf = "ERROR - Insufficient or invalid arguments for {} command ...";
constexpr std::string_view kFewNumbers = "ERROR - Insufficient arguments for {} command ...";
constexpr std::string_view kLongName = "ERROR - name of a picture file is longer than {} characters : {}";
constexpr std::string_view kBadStatistic = "ERROR - Invalid statistical option ({}) for {}";

constexpr std::string_view kEnd = "END", kNoPage = "ERROR - {} : there is no page open";
constexpr std::string_view kOnPage = "ERROR - {} : a page is open, its pictures have no file of their own ({})";
constexpr std::string_view kBadPage =
    "ERROR - {} takes rows, columns (at most {} pictures) and a file that ends in .svg, .pdf or .png";
constexpr std::string_view kNoResult = "ERROR - {} : there is no result of an analysis";
constexpr std::string_view kNoPanel = "ERROR - {} : the result has no panel {}";

constexpr int kScriptReadFault = -1;  // what a histogram of a quantity that the case lacks ends with

template <typename Start>
int HandOver(ScriptCall& call, Start start) {
  const bool on_page = call.session.gks.sheet.open();
  const std::string word =
      on_page && RestOfLine(call.words).empty() ? std::string() : NextScriptWord(call.words, kFreeText);
  if (on_page && !word.empty()) return Fail(call, kScriptBadArgument, kOnPage, call.command, word);
  if (word.size() > kDumpName) return Fail(call, kScriptBadArgument, kLongName, kDumpName, word);
  gksReadEnvironment(call.session.platform, call.session.gks);
  gksSetDumpOption(call.session.gks, word);
  if (on_page) call.session.gks.dump.waiting = true;
  // Where there is no display, "off" still is the end of the dumping: the view is left out.
  return start() || Capitals(word) == "OFF" ? kScriptOk : kScriptFailed;
}

// An IRF case has the index of a function where others have a selector. A function that it lacks is a warning: the
// script goes on, without a plot.
int RunIrfHistory(ScriptCall& call) {
  std::vector<float> values;
  PlotRequest wanted;
  Selector selector;
  if (!ParseRealList(call.words, 1, values) || !ReadCurveOrAll(call, selector, wanted.quantity.curve))
    return Fail(call, kScriptBadArgument, kFewIrf, call.command);
  wanted.quantity.iqnt = RoundToInt(static_cast<double>(values[0]));
  if (!QuantityValid(call.session.case_store, wanted.quantity.iqnt)) {
    Say(call.console(), kBadIrf, wanted.quantity.iqnt, call.command);
    (void)NextScriptWord(call.words, kFreeText);
    return kScriptOk;
  }
  selector.word = std::to_string(wanted.quantity.iqnt);
  selector.iqnt = wanted.quantity.iqnt;
  if (const int status = CheckCurve(call, selector, wanted.quantity); status != kScriptOk) return status;
  return HandOverPlot(call, wanted);
}

int RunHistory(ScriptCall& call) {
  if (call.session.case_store.irf_case) return RunIrfHistory(call);
  PlotRequest wanted;
  Selector selector;
  const int status = ReadCurve(call, selector, wanted.quantity, kNotValid, CurveIndex::given_or_all);
  return status == kScriptOk ? HandOverPlot(call, wanted) : status;
}

int RunTrajectory(ScriptCall& call) {
  return HandOverPlot(call, {.kind = PlotKind::trajectory});
}

int RunHistogram(ScriptCall& call) {
  PlotRequest wanted{.kind = PlotKind::histogram};
  wanted.of_ensemble = Contains(call.command, "ENS") || call.session.ensemble.nrec > 1;
  Selector selector;
  if (const int status = ReadSelector(call, selector); status != kScriptOk) return status;
  if (!HasQuantity(call, selector)) return Fail(call, kScriptReadFault, kNotValid, call.command, selector.word);
  if (const int status = ReadTail(call, selector, CurveIndex::given, wanted.quantity); status != kScriptOk)
    return status;
  if (const int status = CheckCurve(call, selector, wanted.quantity); status != kScriptOk) return status;
  return HandOverPlot(call, wanted);
}

template <PlotKind kind>
int RunOneCurve(ScriptCall& call) {
  PlotRequest wanted{.kind = kind};
  Selector selector;
  if (const int status = ReadCurve(call, selector, wanted.quantity); status != kScriptOk) return status;
  return HandOverPlot(call, wanted);
}

// Mean, standard deviation, variance and significant amplitude, by their numbers.
int RunInterval(ScriptCall& call) {
  constexpr int kLastStatistic = kStatThird;
  PlotRequest wanted{.kind = PlotKind::interval, .of_ensemble = true};
  const std::string word = NextScriptWord(call.words, kKeyword);
  const StatisticName statistic = FindStatistic(word);
  if (statistic.number < kStatMean || statistic.number > kLastStatistic)
    return Fail(call, kScriptBadArgument, kBadStatistic, word, call.command);
  wanted.statistic = statistic.number;
  Selector selector;
  if (const int status = ReadCurve(call, selector, wanted.quantity); status != kScriptOk) return status;
  return HandOverPlot(call, wanted);
}

int RunLoads(ScriptCall& call) {
  PlotRequest wanted{.kind = PlotKind::load_dist};
  Selector selector;
  int step = 0;
  if (const int status = ReadLoadAndStep(call, selector, step); status != kScriptOk) return status;
  wanted.quantity.iqnt = selector.iqnt;
  GoToStep(call.session, step);
  return HandOverPlot(call, wanted);
}

// panel: 0 for all of them, one below the other.
int RunResult(ScriptCall& call) {
  std::vector<float> values;
  if (!ParseRealList(call.words, 1, values)) return Fail(call, kScriptBadArgument, kFewNumbers, call.command);
  const int panel = RoundToInt(static_cast<double>(values[0]));
  return HandOver(call, [&] {
    const int panels = PanelCount(call.session.data_plot);
    if (panels == 0) Say(call.console(), kNoResult, call.command);
    else if (panel < 0 || panel > panels) Say(call.console(), kNoPanel, call.command, panel);
    else return StartResult(call.session, panel, kFromScript);
    call.session.gks.dump.waiting = false;
    call.session.gks.dump.name.clear();
    return false;
  });
}

// The plots behind it, as long as the page has room for them, are its pictures.
int RunPage(ScriptCall& call) {
  GksState& gks = call.session.gks;
  if (Capitals(PeekScriptWord(call.words, kKeyword)) == kEnd) {
    (void)NextScriptWord(call.words, kKeyword);
    if (!gks.sheet.open()) return Fail(call, kScriptBadArgument, kNoPage, call.command);
    return FinishSheet(call.session.platform, gks) ? kScriptOk : kScriptFailed;
  }
  std::vector<float> sides;
  if (!ParseRealList(call.words, 2, sides)) return Fail(call, kScriptBadArgument, kFewNumbers, call.command);
  const std::string name = NextScriptWord(call.words, kFreeText);
  const bool finished = FinishSheet(call.session.platform, gks);
  if (!BeginSheet(gks, StepCount(sides[0]), StepCount(sides[1]), name))
    return Fail(call, kScriptBadArgument, kBadPage, call.command, kMostCells);
  return finished ? kScriptOk : kScriptFailed;
}

constexpr Needs D = kNeedsCase, R = kNeedsMotion, G = kNeedsGraphics, E = kNeedsEnsemble;

constexpr Command kPlots[] = {
    {{"PLOT_HISTORY"}, D | G | kShortWords, RunHistory, "sel curves picture", "Time history of one curve or of all"},
    {{"PLOT_TRAJECTORY"}, D | R | G, RunTrajectory, "picture", "Track of the ship"},
    {{"PLOT_HISTOGRAM", "PLOT_ENSEMBLE_HISTOGRAM"},
     D | R | G,
     RunHistogram,
     "sel tail picture",
     "Histogram of the current record; of the ensemble with ENSEMBLE, or where there are several records"},
    {{"PLOT_AUTOCORRELATION", "PLOT_AUTOCORELATION", "PLOT_AUTOC"},
     D | R | G,
     RunOneCurve<PlotKind::autocorrelation>,
     "sel tail picture",
     "Autocorrelation of the current record, with its envelope and the cut-off"},
    {{"PLOT_AUTOCOVARIANCE", "PLOT_AUTOCOV"},
     D | R | G,
     RunOneCurve<PlotKind::autocovariance>,
     "sel tail picture",
     "The same in the square of the unit"},
    {{"PLOT_SPECTRUM"},
     D | R | G,
     RunOneCurve<PlotKind::spectrum>,
     "sel tail picture",
     "Spectral density of the record or the ensemble, with heights, periods and bandwidth"},
    {{"PLOT_EXTREMES"},
     D | R | G,
     RunOneCurve<PlotKind::extremes>,
     "sel tail picture",
     "Peaks and extremes of blocks on the paper of the distributions that are fitted to them"},
    {{"PLOT_RAINFLOW"},
     D | R | G,
     RunOneCurve<PlotKind::rainflow>,
     "sel tail picture",
     "Cycles of the current record by their range"},
    {{"PLOT_CONFIDENCE_INTERVAL", "PLOT_CONFIDENCE", "PLOT_CONF", "PLOT_CI"},
     E | R | G,
     RunInterval,
     "interval sel tail picture",
     "A statistic of each record and of the ensemble, with confidence intervals"},
    {{"PLOT_LOAD_DISTRIBUTION", "PLOT_LOAD_DIST", "PLOT_LOADDIST"},
     D | R | G,
     RunLoads,
     "load step picture",
     "Sectional loads along the ship at one step, within their range over all steps"},
    {{"PLOT_PAGE"},
     G,
     RunPage,
     "rows columns page",
     "The plots that follow without a picture's name stand on one page, row by row; its file (.svg, .pdf, .png) is "
     "written when it is full, at PLOT_PAGE END, or at the end of the script"},
    {{"PLOT_RESULT", "PLOT_ANALYSIS"},
     G,
     RunResult,
     "panel picture",
     "The picture of the last analysis: panel 1, 2 .., or 0 for all of them"},
};

}  // namespace

int HandOverPlot(ScriptCall& call, const PlotRequest& wanted) {
  return HandOver(call, [&] { return StartPlot(call.session, wanted, kFromScript); });
}

int HandOverView(ScriptCall& call, PlotModule view) {
  return HandOver(call, [&] { return StartView(call.session, view, kFromScript); });
}

CommandFamily PlotCommands() {
  return kPlots;
}

}  // namespace zaview
