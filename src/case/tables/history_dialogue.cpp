#include "case/tables/history_dialogue.h"

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

struct KinoWords {
  std::string_view prompt, written;  // ahead of the file's name
};
constexpr KinoWords kKinoMotionsWords = {"Enter file name for KINO motions data:", "KINO motion data written to"};
constexpr KinoWords kKinoSeawayWords = {"Enter file name for KINO seaway data:", "KINO seaway data written to"};

}  // namespace

void AskHistoryFile(const Platform& platform, const OutputSettings& settings, const QuantityRequest& request,
                    CaseStore& case_store) {
  const Console& console = platform.console;
  const int iqnt = request.iqnt;
  const bool kino = case_store.time_history() && IsKinoFile(iqnt);  // an impulsive run has numbers of its own
  const bool motions = kino && iqnt == kKinoMotions;
  const KinoWords& words = motions ? kKinoMotionsWords : kKinoSeawayWords;
  TableQuestion question;
  question.file.prompt = kino ? words.prompt : kHistoryPrompt;
  question.file.blank_is_console = !kino;
  question.making = Making::history;
  question.quantity = QuantityLabel(case_store, iqnt);
  question.done = kino ? std::string(words.written) : fmt::format("Time history of {} written to", question.quantity);
  question.formatted_only = kino;
  if (motions) question.say_more = [&] { SayKinoTransformation(console, settings, case_store); };
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
