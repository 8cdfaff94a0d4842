#include "stats/tables/table_dialogues.h"

#include <string>

#include "base/message.h"
#include "case/quantity_catalogue.h"
#include "case/settings/settings_dialogues.h"
#include "case/settings/statistic_settings.h"
#include "frame/ground/prompts.h"
#include "stats/tables/interval_table.h"

namespace zaview {
namespace {

constexpr std::string_view kProbability = "Enter probability level for the confidence interval calculation:";
constexpr std::string_view kBadProbability = "Invalid value - must be > 0.0 and < 1.0";
constexpr std::string_view kWriteFault = "ERROR writing file {}";
constexpr std::string_view kAborting = "Aborting output";

}  // namespace

Answer AskProbability(const Console& console, OutputSettings& settings) {
  for (;;) {
    float probability = settings.statistics.confidence_probability;
    const Answer answer = ask_real(console, kProbability, true, probability);
    if (answer != Answer::ok) return answer;
    // Deliberate: 1 is for scripts.
    if (probability < 1.0F && SetProbability(probability, settings.statistics) == SettingFault::none) return answer;
    SayLine(console, kBadProbability);
  }
}

bool AskTableFile(const Platform& platform, std::string_view prompt, ChosenFile& chosen) {
  FileQuestion question;
  question.use = FileUse::output;
  question.prompt = prompt;
  question.blank_is_console = true;
  if (OPNFIL(platform, question, chosen) != FileAnswer::opened) return false;
  if (chosen.unformatted) SayLine(platform.console, kFormattedOnly);
  return true;
}

void FinishTable(const Platform& platform, DataFault fault, std::string_view done, ChosenFile& chosen) {
  const Console& console = platform.console;
  const bool to_console = chosen.out.to_console;
  if (!SayDataFault(console, fault, Making::table, "the quantity")) {
    DiscardOutput(chosen.out);
  } else if (!CloseOutput(chosen.out)) {
    Say(console, kWriteFault, chosen.name);
  } else if (!to_console) {
    Say(console, "{} {}", done, chosen.name);
  }
  pause_for_return(console);
}

void AskStatisticsFile(const StatDialogue& dialogue, const QuantityRequest& request) {
  const Platform& platform = dialogue.platform;
  ChosenFile chosen;
  if (!AskTableFile(platform, "Enter file for statistical output\n(BLANK to print to screen, QUIT to abort)", chosen))
    return;
  StatRequest table;
  table.statistic.number = kStatTable;
  table.quantity = request;
  const DataFault fault = WRSTAT(dialogue.work(), table, chosen.out);
  FinishTable(platform, fault, "Statistics written to", chosen);
}

void AskIntervalFile(const StatDialogue& dialogue, const QuantityRequest& request) {
  const Platform& platform = dialogue.platform;
  OutputSettings& settings = dialogue.settings;
  const Console& console = platform.console;
  ChosenFile chosen;
  if (AskProbability(console, settings) != Answer::ok) return SayLine(console, kAborting);
  if (!AskTableFile(platform,
                    "Enter confidence interval statistics output file name:\n"
                    "(BLANK to print to screen, QUIT to abort)",
                    chosen))
    return SayLine(console, kAborting);
  if (AskSeparator(console, settings) != Answer::ok) {
    DiscardOutput(chosen.out);
    return SayLine(console, kAborting);
  }
  StatRequest table;
  table.statistic.number = kStatTable;
  table.statistic.interval = true;
  table.quantity = request;
  const DataFault fault = WriteIntervals(dialogue.work(), table, chosen.out);
  FinishTable(
      platform, fault,
      fmt::format("Confidence interval data of {} written to", QuantityLabel(dialogue.cases.current, request.iqnt)),
      chosen);
}

}  // namespace zaview
