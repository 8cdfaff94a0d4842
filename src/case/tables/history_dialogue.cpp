#include "case/tables/history_dialogue.h"

#include <array>
#include <string>
#include <string_view>

#include "base/message.h"
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "case/tables/history_table.h"
#include "case/tables/kino_output.h"
#include "frame/ground/prompts.h"
#include "frame/ground/table_dialogue.h"

namespace zaview {
namespace {

constexpr std::string_view kHistoryPrompt =
    "Enter time history output file name:\n"
    "(BLANK to print to screen, QUIT to abort)";

// What is said ahead of the file's name.
std::string WrittenText(int iqnt, const CaseStore& c) {
  if (!c.time_history() || !IsKinoFile(iqnt))
    return fmt::format("Time history of {} written to", QuantityLabel(c, iqnt));
  return iqnt == kKinoMotions ? "KINO motion data written to" : "KINO seaway data written to";
}

}  // namespace

void AskHistoryFile(const Platform& platform, const OutputSettings& settings, const QuantityRequest& request,
                    CaseStore& case_store) {
  const Console& console = platform.console;
  const int iqnt = request.iqnt;
  TableQuestion question;
  question.file.prompt = iqnt == kKinoMotions  ? "Enter file name for KINO motions data:"
                         : iqnt == kKinoSeaway ? "Enter file name for KINO seaway data:"
                                               : kHistoryPrompt;
  question.file.blank_is_console = iqnt != kKinoMotions && iqnt != kKinoSeaway;
  question.done = WrittenText(iqnt, case_store);
  question.making = Making::history;
  question.quantity = QuantityLabel(case_store, iqnt);
  question.formatted_only = case_store.time_history() && IsKinoFile(iqnt);
  if (iqnt == kKinoMotions) question.say_more = [&] { SayKinoTransformation(console, settings, case_store); };
  AskTable(platform, question, [&](ChosenFile& chosen) {
    return write_time_history(console, settings, request, chosen.unformatted, case_store, chosen.out);
  });
}

void AskKinoFiles(const Platform& platform, const OutputSettings& settings, CaseStore& case_store) {
  std::string root;
  if (ask_text(platform.console, "Enter root name for KINO files", "", root) != Answer::ok)
    return SayLine(platform.console, "Option aborted ...");
  (void)write_kino_files(platform, Trim(root), settings, case_store);
}

}  // namespace zaview
