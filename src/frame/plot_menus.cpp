#include "frame/plot_menus.h"

#include <span>
#include <string>

#include "analysis/curves/extremes_report.h"
#include "analysis/curves/rainflow_report.h"
#include "analysis/curves/spectrum_report.h"
#include "base/message.h"
#include "base/text.h"
#include "frame/ground/prompts.h"
#include "frame/ground/table_dialogue.h"
#include "frame/quantity_menu.h"
#include "stats/tables/ensemble_dialogues.h"
#include "views/state/result_choice.h"
#include "views/state/run_pictures.h"
#include "views/state/start_plot.h"

namespace zaview {

namespace {

constexpr std::string_view kRecordOrEnsemble = "Create histogram from current Record or Ensemble of all records?";
constexpr std::string_view kRecordPrompt = "Ens/Rec=>";
constexpr std::string_view kData = "Select data to use for histogram:";
constexpr std::string_view kDataLines[] = {" 0 - Use signed values", " 1 - Use absolute values",
                                           " 2 - Use positive values"};
constexpr std::string_view kRate =
    "The data sampling rate defines the frequency of points used in\n"
    "constructing the histogram (1=every point, 2=every other point, etc.)\n"
    "Enter data sampling rate (integer) =>";
constexpr std::string_view kOverlay = "Theoretical distribution overlay options:";
constexpr std::string_view kOverlayLines[] = {" 0 - no overlay",
                                              " 1 - uniform distribution",
                                              " 2 - Normal (Gaussian) distribution",
                                              " 3 - Gramm-Charlier distribution",
                                              " 4 - Rayleigh (Y>=0.0)",
                                              " 5 - Exponential (Y>=0.0)"};
constexpr std::string_view kStatistic = "Select statistic to plot:";
constexpr std::string_view kStatisticLines[] = {" 1 - Mean", " 2 - Standard deviation", " 3 - Variance",
                                                " 4 - Significant amplitude"};
constexpr std::string_view kStatisticNote =
    "NOTE: use {} or Selection Menu (Alt-s) to change statistic in plot";  // the keys { and }
constexpr std::string_view kSelect = "Select =>";
constexpr std::string_view kOutOfRange = "Index out of range - re-enter";
constexpr std::string_view kIllegal = "ERROR - illegal value";

bool AskQuantity(Session& s, QuantityTask task, QuantityRequest& request) {
  return quantity_menu(s.platform.console, s.output, task, s.case_store, request);
}

// Starts with E or R, in either case; the empty answer is the record.
bool AskOfEnsemble(Session& s, bool& of_ensemble) {
  of_ensemble = false;
  if (s.ensemble.nrec < 2) return true;
  SayLine(s.platform.console, kRecordOrEnsemble);
  for (;;) {
    std::string answer;
    if (ask_text(s.platform.console, kRecordPrompt, "Rec", answer) != Answer::ok) return false;
    const std::string word = Capitals(Trim(answer));
    of_ensemble = StartsWith(word, "E");
    if (of_ensemble || StartsWith(word, "R")) return true;
    SayLine(s.platform.console, kIllegal);
  }
}

bool AskRate(Session& s, int& rate) {
  for (;;) {
    int value = rate;
    if (ask_integer(s.platform.console, kRate, true, value) != Answer::ok) return false;
    if (value >= 1) {
      rate = value;
      return true;
    }
    SayLine(s.platform.console, kIllegal);
  }
}

// One of a list of numbered lines, asked until it is in there. first: the number of the first line; note: behind them.
bool AskListed(const Console& console, std::string_view title, std::span<const std::string_view> lines, int first,
               std::string_view note, int& value) {
  for (;;) {
    SayLine(console, title);
    for (const std::string_view line : lines) SayLine(console, line);
    if (!note.empty()) SayLine(console, note);
    int answer = value;
    if (ask_integer(console, kSelect, true, answer) != Answer::ok) return false;
    if (answer >= first && answer < first + static_cast<int>(lines.size())) {
      value = answer;
      return true;
    }
    SayLine(console, kOutOfRange);
  }
}

// Nothing is set before all is answered.
bool AskHistogram(Session& s, bool& of_ensemble) {
  const Console& console = s.platform.console;
  HistogramRequest request = s.statistics.histogram;
  int data = static_cast<int>(request.data), overlay = static_cast<int>(request.overlay);
  if (!AskOfEnsemble(s, of_ensemble) || !AskListed(console, kData, kDataLines, 0, "", data) ||
      !AskRate(s, request.rate) || !AskListed(console, kOverlay, kOverlayLines, 0, "", overlay))
    return false;
  request.data = static_cast<HistogramData>(data);
  request.overlay = static_cast<Overlay>(overlay);
  s.statistics.histogram = request;
  return true;
}

bool AskStatistic(Session& s, int& statistic) {
  return AskListed(s.platform.console, kStatistic, kStatisticLines, 1, kStatisticNote, statistic);
}

// What can't be shown has been said; the menu goes on.
void Start(Session& s, const PlotRequest& wanted, int option) {
  static_cast<void>(StartPlot(s, wanted, option));
}

using WriteCurve = DataFault (*)(const StatWork&, const QuantityRequest&, OutputFile&);

void OfOneCurve(Session& s, QuantityTask task, WriteCurve write, std::string_view done, PlotKind kind, int option) {
  PlotRequest wanted{.kind = kind};
  if (!AskQuantity(s, task, wanted.quantity)) return;
  TableQuestion question;
  question.file.prompt = "Enter file for output\n(<RETURN> for screen, PLOT to graph, QUIT to exit)";
  question.file.word = "PLOT";
  question.done = done;
  const StatWork work{s.platform, s.output, {s.case_store, s.ensemble}, s.statistics};
  const auto put = [&](ChosenFile& chosen) { return write(work, wanted.quantity, chosen.out); };
  if (AskTable(s.platform, question, put) == FileAnswer::word) Start(s, wanted, option);
}

}  // namespace

void MenuSpectrum(Session& session, int option) {
  OfOneCurve(session, QuantityTask::spectrum, WriteSpectrum, "Spectrum written to", PlotKind::spectrum, option);
}

void MenuExtremes(Session& session, int option) {
  OfOneCurve(session, QuantityTask::extremes, WriteExtremes, "Extremes written to", PlotKind::extremes, option);
}

void MenuRainflow(Session& session, int option) {
  OfOneCurve(session, QuantityTask::rainflow, WriteRainflow, "Rainflow counts written to", PlotKind::rainflow, option);
}

void MenuHistory(Session& session, int option) {
  PlotRequest wanted;
  if (AskQuantity(session, QuantityTask::history_plot, wanted.quantity)) Start(session, wanted, option);
}

void MenuHistogram(Session& session, int option) {
  PlotRequest wanted{.kind = PlotKind::histogram};
  if (AskQuantity(session, QuantityTask::histogram, wanted.quantity) && AskHistogram(session, wanted.of_ensemble))
    Start(session, wanted, option);
}

void MenuResult(Session& session, int option) {
  constexpr int kAllPanels = 0;
  static_cast<void>(StartResult(session, kAllPanels, option));
}

void MenuTrajectory(Session& session, int option) {
  Start(session, {.kind = PlotKind::trajectory}, option);
}

void MenuAnimation(Session& session, int option) {
  static_cast<void>(StartAnimation(session, {}, option));
}

void MenuLoads(Session& session, int option) {
  PlotRequest wanted{.kind = PlotKind::load_dist};
  if (AskQuantity(session, QuantityTask::load_plot, wanted.quantity)) Start(session, wanted, option);
}

void MenuIntervals(Session& session, int option) {
  PlotRequest wanted{.kind = PlotKind::interval, .of_ensemble = true, .statistic = session.data_plot.statistic};
  if (AskQuantity(session, QuantityTask::interval_plot, wanted.quantity) && AskStatistic(session, wanted.statistic))
    Start(session, wanted, option);
}

void MenuAutocorrelation(Session& session, int option) {
  const bool ensemble = session.ensemble.nrec > 1;
  PlotRequest wanted{.kind = PlotKind::autocorrelation, .of_ensemble = ensemble};
  const QuantityTask task = ensemble ? QuantityTask::ensemble_autocorrelation : QuantityTask::autocorrelation;
  if (!AskQuantity(session, task, wanted.quantity)) return;
  const StatDialogue dialogue{
      session.platform, session.output, {session.case_store, session.ensemble}, session.statistics};
  if (AskAutocorrelationFile(dialogue, wanted.quantity)) Start(session, wanted, option);
}

void MenuGeometry(Session& session, int option) {
  static_cast<void>(StartView(session, PlotModule::geometry, option));
}

}  // namespace zaview
