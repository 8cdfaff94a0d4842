#include "stats/tables/ensemble_dialogues.h"

#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "base/message.h"
#include "base/number_format.h"
#include "case/quantity_catalogue.h"
#include "case/settings/settings_dialogues.h"
#include "case/settings/statistic_settings.h"
#include "frame/ground/prompts.h"
#include "frame/ground/table_dialogue.h"
#include "stats/tables/autocorrelation_table.h"
#include "stats/tables/ensemble_table.h"
#include "stats/tables/rate_tables.h"
#include "stats/tables/table_dialogues.h"

namespace zaview {
namespace {

// ---- Dependence

// The cut-off, asked until it lies inside of 0 and 1.
Answer AskCutoff(const Console& console, OutputSettings& settings) {
  for (;;) {
    float cutoff = settings.statistics.autocorrelation_cutoff;
    const Answer answer =
        ask_real(console, "Enter autocorrelation value at which to assume independence:", true, cutoff);
    if (answer != Answer::ok) return answer;
    if (SetCutoff(cutoff, settings.statistics) == SettingFault::none) return answer;
    SayLine(console, "Invalid value - must be > 0.0 and < 1.0");
  }
}

// ---- Rates

struct DataRange {
  float min = 0, mean = 0, max = 0;
};

DataRange RangeOf(const EnsembleData& data) {
  DataRange range;
  bool first = true;
  for (const std::vector<float>& record : data.X)
    for (const float x : record) {
      if (first) range.min = range.max = x;
      first = false;
      range.min = std::fmin(range.min, x);
      range.max = std::fmax(range.max, x);
    }
  range.mean = MeanOfAll(data);
  return range;
}

void SayRange(const Console& console, const EnsembleData& data) {
  const DataRange range = RangeOf(data);
  SayLine(console, "Data Range:");
  Say(console, "Min = {}", Shown{range.min});
  Say(console, "Mean= {}", Shown{range.mean});
  Say(console, "Max = {}", Shown{range.max});
}

// Title, and the data with their dependence length. False: it has been said why not.
bool BeginRates(const StatDialogue& d, const QuantityRequest& request, std::string_view title,
                std::string_view calculation) {
  const Console& console = d.platform.console;
  SayLine(console, title);
  Say(console, "{} {}", calculation, QuantityLabel(d.cases.current, request.iqnt));
  if (UpdateDependence(d.work(), request) != DataFault::none) return false;
  SayRange(console, d.state.ensemble);
  return true;
}

constexpr std::string_view kDirections[] = {" 1 - Up-crossing of value, down-crossing of -value",
                                            " 2 - Up-crossing of value", " 3 - Down-crossing of value"};
constexpr std::string_view kIllegal = "Illegal value - try again or QUIT to abort";

Answer AskDirection(const Console& console, Direction& direction) {
  SayLine(console, "Exceedance crossing direction options:");
  for (const std::string_view line : kDirections) SayLine(console, line);
  for (;;) {
    int option = static_cast<int>(direction);
    const Answer answer = ask_integer(console, "Enter option=>", true, option);
    if (answer != Answer::ok) return answer;
    if (option >= 1 && option <= static_cast<int>(std::size(kDirections))) {
      direction = static_cast<Direction>(option);
      return answer;
    }
    SayLine(console, kIllegal);
  }
}

Answer AskDependence(const Console& console, int ndti, int& ndep) {
  for (;;) {
    ndep = ndti;
    const Answer answer = ask_integer(console,
                                      "Enter dependence length (in time steps) for finding independent exceedances;\n"
                                      "(Default value computed from autocorrelation function)",
                                      true, ndep);
    if (answer != Answer::ok || ndep >= 0) return answer;
    SayLine(console, kIllegal);
  }
}

using WriteRates = DataFault(const StatWork&, const ExceedanceRequest&, OutputFile&);

void AskRates(const StatDialogue& d, const QuantityRequest& quantity, std::string_view title, WriteRates* write) {
  const Console& console = d.platform.console;
  if (!BeginRates(d, quantity, title, "Exceedance calculation for")) return;
  ExceedanceRequest request;
  request.quantity = quantity;
  request.ndep_is_given = true;
  if (ask_real(console, "Enter thresold value:", false, request.threshold) != Answer::ok ||
      AskDirection(console, request.direction) != Answer::ok ||
      AskDependence(console, d.state.dependence.ndti, request.ndep) != Answer::ok)
    return;
  TableQuestion question;
  question.file.prompt = "Enter file for exceedance statistics\n(<RETURN> for screen, QUIT to exit)";
  question.done = "Exceedance statistics written to";
  AskTable(d.platform, question, [&](ChosenFile& chosen) { return write(d.work(), request, chosen.out); });
}

}  // namespace

void AskExceedances(const StatDialogue& dialogue, const QuantityRequest& request) {
  AskRates(dialogue, request, "ZAVIEW - Exceedance Rate Calculation", WriteExceedances);
}

void AskBlockExceedances(const StatDialogue& dialogue, const QuantityRequest& request) {
  AskRates(dialogue, request, "ZAVIEW - Exceedance Rate Calc (block scheme)", WriteBlockExceedances);
}

void AskEnsembleFile(const StatDialogue& dialogue, const QuantityRequest& request, bool intervals) {
  const StatDialogue& d = dialogue;
  const Console& console = d.platform.console;
  if (intervals && AskProbability(console, d.settings) != Answer::ok) return;
  TableQuestion question;
  question.file.prompt = "Enter file for statistical output\n(BLANK to print to screen, QUIT to abort)";
  question.done = "Ensemble statistics written to";
  question.ask_more = [&] { return AskSeparator(console, d.settings) == Answer::ok; };
  StatRequest table;
  table.statistic.number = kStatTable;
  table.statistic.interval = intervals;
  table.quantity = request;
  AskTable(d.platform, question, [&](ChosenFile& chosen) { return EnsembleStat(d.work(), table, chosen.out); });
}

bool AskAutocorrelationFile(const StatDialogue& dialogue, const QuantityRequest& request) {
  const StatDialogue& d = dialogue;
  const Console& console = d.platform.console;
  if (AskCutoff(console, d.settings) != Answer::ok) return false;
  if (UpdateDependence(d.work(), request) != DataFault::none) return false;
  const DependenceResult& dependence = d.state.dependence;
  Say(console, "{}{}", DependenceLine(dependence), dependence.reached ? "" : ", cutoff not reached");
  TableQuestion question;
  question.file.prompt = "Enter file for autocorrelation output\n(<RETURN> for screen, PLOT to graph, QUIT to exit)";
  question.file.word = "PLOT";
  question.done = "Autocorrelation written to";
  question.formatted_only = false;
  const auto write = [&](ChosenFile& chosen) { return EnsembleAutoCorrelation(d.work(), request, false, chosen.out); };
  return AskTable(d.platform, question, write) == FileAnswer::word;
}

void AskUpcrossings(const StatDialogue& dialogue, const QuantityRequest& request) {
  const StatDialogue& d = dialogue;
  const Console& console = d.platform.console;
  if (!BeginRates(d, request, "ZAVIEW - Upcrossing Statistics", "Upcrossing calculation for")) return;
  std::array<float, 3> thresholds{};
  if (VINPUT(console, "Enter thresold values as min,max,increment:", false, thresholds) != Answer::ok) return;
  TableQuestion question;
  question.file.prompt = "Enter file for upcrossing statistics\n(<RETURN> for screen, QUIT to exit)";
  question.done = "Upcrossing statistics written to";
  const UpcrossingRequest upcrossings{request, thresholds[0], thresholds[1], thresholds[2]};
  AskTable(d.platform, question,
           [&](ChosenFile& chosen) { return WriteUpcrossings(d.work(), upcrossings, chosen.out); });
}

}  // namespace zaview
