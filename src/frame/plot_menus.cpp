#include "frame/plot_menus.h"

#include <array>
#include <string>

#include "base/message.h"
#include "base/text.h"
#include "frame/option_menu.h"
#include "frame/prompts.h"
#include "frame/quantity_menu.h"
#include "script/ensemble_cases.h"
#include "script/start_plot.h"
#include "stats/ensemble_dialogues.h"

namespace zaview {

namespace {

constexpr std::string_view kRecordOrEnsemble = "Create histogram from current Record or Ensemble of all records?";
constexpr std::string_view kRecordPrompt = "Ens/Rec=>";
constexpr std::string_view kData = "Select data to use for histogram:";
constexpr MenuItem kDataItems[] = {
    {" 0 - Use signed values"}, {" 1 - Use absolute values"}, {" 2 - Use positive values"}};
constexpr std::string_view kRate =
    "The data sampling rate defines the frequency of points used in\n"
    "constructing the histogram (1=every point, 2=every other point, etc.)\n"
    "Enter data sampling rate (integer) =>";
constexpr std::string_view kOverlay = "Theoretical distribution overlay options:";
constexpr MenuItem kOverlayItems[] = {{" 0 - no overlay"},
                                      {" 1 - uniform distribution"},
                                      {" 2 - Normal (Gaussian) distribution"},
                                      {" 3 - Gramm-Charlier distribution"},
                                      {" 4 - Rayleigh (Y>=0.0)"},
                                      {" 5 - Exponential (Y>=0.0)"}};
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

// Nothing is set before all is answered.
bool AskHistogram(Session& s, bool& of_ensemble) {
  const Console& console = s.platform.console;
  HistogramRequest request = s.statistics.histogram;
  int data = static_cast<int>(request.data), overlay = static_cast<int>(request.overlay);
  if (!AskOfEnsemble(s, of_ensemble) || select_option(console, kData, kSelect, kDataItems, data, data) != Answer::ok ||
      !AskRate(s, request.rate) ||
      select_option(console, kOverlay, kSelect, kOverlayItems, overlay, overlay) != Answer::ok)
    return false;
  request.data = static_cast<HistogramData>(data);
  request.overlay = static_cast<Overlay>(overlay);
  s.statistics.histogram = request;
  return true;
}

bool AskStatistic(Session& s, int& statistic) {
  const Console& console = s.platform.console;
  for (;;) {
    SayLine(console, kStatistic);
    for (const std::string_view line : kStatisticLines) SayLine(console, line);
    SayLine(console, kStatisticNote);
    int value = statistic;
    if (ask_integer(console, kSelect, true, value) != Answer::ok) return false;
    if (value >= 1 && value <= static_cast<int>(std::size(kStatisticLines))) {
      statistic = value;
      return true;
    }
    SayLine(console, kOutOfRange);
  }
}

// What can't be shown has been said; the menu goes on.
void Start(Session& s, const PlotRequest& wanted, int option) {
  static_cast<void>(StartPlot(s, wanted, option));
}

}  // namespace

void MenuHistory(Session& session, int option) {
  PlotRequest wanted;
  if (AskQuantity(session, QuantityTask::history_plot, wanted.quantity)) Start(session, wanted, option);
}

void MenuHistogram(Session& session, int option) {
  PlotRequest wanted{.kind = PlotKind::histogram};
  if (AskQuantity(session, QuantityTask::histogram, wanted.quantity) && AskHistogram(session, wanted.of_ensemble))
    Start(session, wanted, option);
}

void MenuTrajectory(Session& session, int option) {
  Start(session, {.kind = PlotKind::trajectory}, option);
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
  const EnsembleDialogue dialogue{session.platform, session.output, CasesOf(session), session.statistics};
  if (AskAutocorrelationFile(dialogue, wanted.quantity)) Start(session, wanted, option);
}

}  // namespace zaview
