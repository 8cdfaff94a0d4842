#include "frame/text_menu.h"

#include <array>
#include <utility>
#include <vector>

#include "analysis/crane/crane_analysis.h"
#include "analysis/crane/crane_files.h"
#include "analysis/frequency_domain/frequency_dialogue.h"
#include "analysis/motion_tests/roll_decay_report.h"
#include "analysis/righting_arms/righting_arm_dialogue.h"
#include "analysis/righting_arms/righting_arms_plot.h"
#include "analysis/sea_view/sensor_dialogue.h"
#include "analysis/sea_view/wave_dialogues.h"
#include "base/message.h"
#include "case/case_hull.h"
#include "case/quantity_catalogue.h"
#include "case/read/ensemble_match.h"
#include "case/read/read_output_file.h"
#include "case/settings/settings_dialogues.h"
#include "case/tables/history_dialogue.h"
#include "frame/export_dialogue.h"
#include "frame/ground/option_menu.h"
#include "frame/picture_dialogue.h"
#include "frame/plot_menus.h"
#include "frame/quantity_menu.h"
#include "frame/run_loop.h"
#include "gks/picture/picture_sheet.h"
#include "script/open_script_file.h"
#include "stats/tables/ensemble_dialogues.h"
#include "stats/tables/table_dialogues.h"
#include "views/state/choose_view.h"
#include "views/state/result_choice.h"

namespace zaview {
namespace {

constexpr std::string_view kTitle = "ZAVO Output Options:";
constexpr std::string_view kPrompt = "Select option=>";
constexpr std::string_view kNoSmoothing = "WARNING - impulsive motion and IRF calculations are not smoothed";

// ---- When an option is offered

bool Always(const Session&) {
  return true;
}

bool TimeHistory(const Session& s) {
  return s.case_store.has_steps() && s.case_store.time_history();
}

bool Motions(const Session& s) {
  return TimeHistory(s) && s.case_store.motions_known;
}

bool Geometry(const Session& s) {
  return HasHull(s.case_store);
}

bool Animation(const Session& s) {
  return CanAnimate(s.case_store);
}

bool Trajectory(const Session& s) {
  return HasTrack(s.case_store);
}

bool HasXCuts(const Session& s) {
  return HasLoadCuts(s.case_store);
}

bool HullAndHistory(const Session& s) {
  return TimeHistory(s) && HasHull(s.case_store);
}

bool RollDecay(const Session& s) {
  return IsRollDecay(s.case_store);
}

bool SeveralRecords(const Session& s) {
  return s.ensemble.nrec > 1;
}

bool Analysed(const Session& s) {
  return HasResult(s.data_plot);
}

// ---- What an option does

StatDialogue DialogueOf(Session& s) {
  return {s.platform, s.output, {s.case_store, s.ensemble}, s.statistics};
}

// A quantity, then the work on it.
template <typename Work>
void WithQuantity(Session& s, QuantityTask task, Work work) {
  QuantityRequest request;
  if (quantity_menu(s.platform.console, s.output, task, s.case_store, request)) work(request);
}

void Exit(Session& s) {
  static_cast<void>(FinishSheet(s.platform, s.gks));
  s.run.exit_requested = true;
}

void WriteHistory(Session& s) {
  WithQuantity(s, QuantityTask::history_file,
               [&s](const QuantityRequest& request) { AskHistoryFile(s.platform, s.output, request, s.case_store); });
}

void WriteStatistics(Session& s) {
  WithQuantity(s, QuantityTask::statistics,
               [&s](const QuantityRequest& request) { AskStatisticsFile(DialogueOf(s), request); });
}

void WriteIntervalTable(Session& s) {
  WithQuantity(s, QuantityTask::intervals,
               [&s](const QuantityRequest& request) { AskIntervalFile(DialogueOf(s), request); });
}

void ReadNewFile(Session& s) {
  ReadRequest request;
  request.ensemble_mode = s.run.ensemble_mode;
  request.restart_mode = s.run.restart_mode;
  request.ship = s.run.selected_ship;
  request.vcg = s.run.selected_vcg;
  (void)read_output_file(request, s.platform, s.run, s.output, s.case_store, s.ensemble);
}

void ChangeScales(Session& s) {
  AskOutputScales(s.platform.console, s.output, s.case_store);
}

void Trim(Session& s) {
  retrim_record(s.platform.console, s.output, s.case_store, s.ensemble);
}

// The session stays open behind the script, also where a view had it wait.
void RunScriptFile(Session& s) {
  s.run.script_active = true;
  s.run.script_is_init = true;
  const int status = OpenScriptFile(s, "");
  if (s.run.plot_module != PlotModule::none) return;
  if (status != kScriptCancelled && status != kScriptNotRun) SayLine(s.platform.console, "ZAVIEW continuing...");
  EndInitScript(s.run);
}

void WriteKino(Session& s) {
  AskKinoFiles(s.platform, s.output, s.case_store);
}

void WriteNetcdf(Session& s) {
  AskNetcdf(s.platform, s.output, s.case_store);
}

void WriteVtk(Session& s) {
  AskVtk(s.platform, s.output, s.case_store);
}

void SetPictures(Session& s) {
  AskPictures(s.platform, s.gks);
}

void SetIntervalMethod(Session& s) {
  AskIntervalMethod(s.platform.console, s.output);
}

void SetSmoothing(Session& s) {
  if (!s.case_store.time_history()) SayLine(s.platform.console, kNoSmoothing);
  AskSmoothing(s.platform.console, s.output);
}

void EnsembleTable(Session& s) {
  WithQuantity(s, QuantityTask::ensemble,
               [&s](const QuantityRequest& request) { AskEnsembleFile(DialogueOf(s), request, false); });
}

void EnsembleIntervals(Session& s) {
  WithQuantity(s, QuantityTask::ensemble_intervals,
               [&s](const QuantityRequest& request) { AskEnsembleFile(DialogueOf(s), request, true); });
}

void Rates(Session& s) {
  constexpr MenuItem kItems[] = {{" 0 - Return to main menu"},
                                 {" 1 - Upcrossing statistics"},
                                 {" 2 - Exceedance rate"},
                                 {" 3 - Exceedance rate (block scheme)"}};
  int item = 0;
  if (select_option(s.platform.console, "Upcrossings and exceedances:", "Select =>", kItems, -1, item) != Answer::ok ||
      item == 0)
    return;
  constexpr void (*kAsk[])(const StatDialogue&, const QuantityRequest&) = {nullptr, AskUpcrossings, AskExceedances,
                                                                           AskBlockExceedances};
  const auto ask = kAsk[item];
  WithQuantity(s, QuantityTask::rates, [&s, ask](const QuantityRequest& request) { ask(DialogueOf(s), request); });
}

void AskRightingArms(Session& s) {
  RightingArms result;
  GZCurveMenu(s.platform, s.output, s.case_store, result);
  if (!result.steps.empty()) KeepResult(s.data_plot, RightingArmsPlot(result));
}

void AnalyzeWaves(Session& s) {
  WaveAnalysisResult result;
  AskWaveAnalysis(s.platform, s.output, s.case_store, result);
  if (!result.time.empty()) KeepResult(s.data_plot, WaveAnalysisPlot(result));
}

void WriteWaves(Session& s) {
  AskWaveField(s.platform, s.output, s.case_store);
}

void SensorView(Session& s) {
  SensorViewResult result;
  AskSensorView(s.platform, s.output, s.sensor, s.case_store, result);
  if (!result.time.empty()) KeepResult(s.data_plot, SensorViewPlot(result));
}

void Crane(Session& s) {
  CraneRun run;
  AskCrane({s.platform, s.output, s.case_store}, run);
  if (!run.steps.empty()) KeepResult(s.data_plot, CranePlot(s.output, run));
}

void WriteRollDecayTable(Session& s) {
  RollDecayResult result;
  AskRollDecay({s.platform, s.output, s.case_store}, result);
  if (!result.cycles.empty()) KeepResult(s.data_plot, RollDecayPlot(s.case_store, result));
}

void BringToFrequencies(Session& s) {
  ResultPlot plot;
  AskFrequencyDomain({s.platform, s.output, s.case_store}, plot);
  if (!plot.panels.empty()) KeepResult(s.data_plot, std::move(plot));
}

// Of a run in the frequency domain the option has another name and other work.
void Histogram(Session& s, int option) {
  if (s.case_store.time_history()) MenuHistogram(s, option);
  else BringToFrequencies(s);
}

// ---- The options, by number

struct Option {
  std::string_view text;
  bool (*offered)(const Session& session);
  void (*act)(Session& session);  // null: a plot
  void (*plot)(Session& session, int option) = nullptr;
  bool continues = false;  // behind the plot its questions come again, without the menu
};
// clang-format off
constexpr Option kOptions[] = {
    {" 0 - Exit ZAVIEW",                                        Always,         Exit              },
    {" 1 - Plot curves of time history data",                   Always,         nullptr, MenuHistory, true},
    {" 2 - Write time history file(s)",                         Always,         WriteHistory      },
    {" 3 - Histogram of time history data",                     Always,         nullptr, Histogram, true},
    {" 4 - Write statistics of time history data",              TimeHistory,    WriteStatistics   },
    {" 5 - 3-D motion animation",                               Animation,      nullptr, MenuAnimation},
    {" 6 - Plot trajectory",                                    Trajectory,     nullptr, MenuTrajectory},
    {" 7 - Plot sectional load distribution",                   HasXCuts,       nullptr, MenuLoads, true},
    {" 8 - Statistics with confidence interval",                TimeHistory,    WriteIntervalTable},
    {" 9 - Read new output file",                               Always,         ReadNewFile       },
    {"10 - Change output dimensionalization (scale) factors",   Always,         ChangeScales      },
    {"11 - Trim time record for statistics or output files",    Always,         Trim              },
    {"12 - Plot geometry",                                      Geometry,       nullptr, MenuGeometry},
    {"13 - Run script file",                                    Always,         RunScriptFile     },
    {"14 - GZ curve analysis",                                  HullAndHistory, AskRightingArms   },
    {"15 - Compute roll decay coefficients",                    RollDecay,      WriteRollDecayTable},
    {"16 - Wave celerity analysis",                             Motions,        AnalyzeWaves      },
    {"17 - Write KINO motion, seaway and command files",        Motions,        WriteKino         },
    {"18 - Set data smoothing option",                          Always,         SetSmoothing      },
    {"19 - Wave field output",                                  Motions,        WriteWaves        },
    {"20 - Ensemble statistics",                                SeveralRecords, EnsembleTable     },
    {"21 - Ensemble statistics with confidence interval",       SeveralRecords, EnsembleIntervals },
    {"22 - Plot statistics with confidence intervals",          TimeHistory,    nullptr, MenuIntervals, true},
    {"23 - Write/Plot autocorrelation",                         TimeHistory,    nullptr, MenuAutocorrelation, true},
    {"24 - Upcrossings and exceedances",                        TimeHistory,    Rates             },
    {"25 - Sensor view analysis",                               Motions,        SensorView        },
    {"26 - Crane and cargo simulation",                         Motions,        Crane             },
    {"27 - Plot result of last analysis",                       Analysed,       nullptr, MenuResult},
    {"28 - Write/Plot spectrum",                                TimeHistory,    nullptr, MenuSpectrum, true},
    {"29 - Write/Plot extremes",                                TimeHistory,    nullptr, MenuExtremes, true},
    {"30 - Write/Plot rainflow counts",                         TimeHistory,    nullptr, MenuRainflow, true},
    {"31 - Set method of confidence intervals",                 TimeHistory,    SetIntervalMethod },
    {"32 - Set style and pages of pictures",                    Always,         SetPictures       },
    {"33 - Write NetCDF file of all histories",                 TimeHistory,    WriteNetcdf       },
    {"34 - Write hull and sea for a viewer (VTK)",              Motions,        WriteVtk          },
};
// clang-format on

constexpr std::size_t kCurves = 1, kHistogram = 3, kAutocorrelation = 23;

std::string_view TextOf(const Session& s, std::size_t i) {
  if (i == kHistogram && !s.case_store.time_history()) return " 3 - Frequency domain coefficients";
  if (i == kAutocorrelation && SeveralRecords(s)) return "23 - Write/plot ensemble averaged autocorrelation";
  return kOptions[i].text;
}

// The option that is chosen; the end of input and QUIT choose to leave.
std::size_t AskOption(Session& s) {
  (void)EnsureHull(s.platform, s.case_store);
  std::vector<MenuItem> items;
  for (std::size_t i = 0; i < std::size(kOptions); ++i) items.push_back({TextOf(s, i), kOptions[i].offered(s)});
  int option = 0;
  if (select_option(s.platform.console, kTitle, kPrompt, items, -1, option) != Answer::ok) return 0;
  return static_cast<std::size_t>(option);
}

// The option whose plot was left goes on, else the user is asked. Curves and histogram are one another's where the kind
// of plot was changed in the view.
std::size_t NextOption(Session& s) {
  const int left = std::exchange(s.run.plot_suboption, 0);
  if (left <= 0 || left >= static_cast<int>(std::size(kOptions)) || !kOptions[left].continues) return AskOption(s);
  const auto option = static_cast<std::size_t>(left);
  if (option != kCurves && option != kHistogram) return option;
  return s.data_plot.kind == PlotKind::histogram ? kHistogram : kCurves;
}

}  // namespace

std::vector<std::string_view> MainMenu() {
  std::vector<std::string_view> texts;
  for (const Option& option : kOptions) texts.push_back(option.text);
  return texts;
}

void text_menu(Session& session) {
  RunState& run = session.run;
  while (run.plot_module == PlotModule::none && !run.exit_requested) {
    const std::size_t number = NextOption(session);
    const Option& option = kOptions[number];
    if (option.act != nullptr) option.act(session);
    else option.plot(session, static_cast<int>(number));
  }
}

}  // namespace zaview
