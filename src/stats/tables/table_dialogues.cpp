#include "stats/tables/table_dialogues.h"

#include <string>

#include "base/message.h"
#include "case/quantity_catalogue.h"
#include "case/settings/settings_dialogues.h"
#include "case/settings/statistic_settings.h"
#include "frame/ground/prompts.h"
#include "frame/ground/table_dialogue.h"
#include "stats/tables/interval_table.h"

namespace zaview {
namespace {

constexpr std::string_view kProbability = "Enter probability level for the confidence interval calculation:";
constexpr std::string_view kBadProbability = "Invalid value - must be > 0.0 and < 1.0";
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

void AskStatisticsFile(const StatDialogue& dialogue, const QuantityRequest& request) {
  TableQuestion question;
  question.file.prompt = "Enter file for statistical output\n(BLANK to print to screen, QUIT to abort)";
  question.done = "Statistics written to";
  StatRequest table;
  table.statistic.number = kStatTable;
  table.quantity = request;
  AskTable(dialogue.platform, question, [&](ChosenFile& chosen) { return WRSTAT(dialogue.work(), table, chosen.out); });
}

void AskIntervalFile(const StatDialogue& dialogue, const QuantityRequest& request) {
  OutputSettings& settings = dialogue.settings;
  const Console& console = dialogue.platform.console;
  if (AskProbability(console, settings) != Answer::ok) return SayLine(console, kAborting);
  TableQuestion question;
  question.file.prompt =
      "Enter confidence interval statistics output file name:\n"
      "(BLANK to print to screen, QUIT to abort)";
  question.done =
      fmt::format("Confidence interval data of {} written to", QuantityLabel(dialogue.cases.current, request.iqnt));
  question.ask_more = [&] { return AskSeparator(console, settings) == Answer::ok; };
  StatRequest table;
  table.statistic.number = kStatTable;
  table.statistic.interval = true;
  table.quantity = request;
  const FileAnswer answer = AskTable(dialogue.platform, question, [&](ChosenFile& chosen) {
    return WriteIntervals(dialogue.work(), table, chosen.out);
  });
  if (answer != FileAnswer::opened) SayLine(console, kAborting);
}

}  // namespace zaview
