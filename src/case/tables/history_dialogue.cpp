#include "case/tables/history_dialogue.h"

#include <array>
#include <string>
#include <string_view>

#include "base/message.h"
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "case/tables/history_table.h"
#include "case/tables/kino_output.h"
#include "frame/ground/file_dialogue.h"
#include "frame/ground/prompts.h"

namespace zaview {
namespace {

constexpr std::string_view kWriteFault = "ERROR writing file {}";

FileQuestion QuestionFor(int iqnt) {
  FileQuestion question;
  question.use = FileUse::output;
  question.prompt = iqnt == kKinoMotions  ? "Enter file name for KINO motions data:"
                    : iqnt == kKinoSeaway ? "Enter file name for KINO seaway data:"
                                          : "Enter time history output file name:\n"
                                            "(BLANK to print to screen, QUIT to abort)";
  question.blank_is_console = iqnt != kKinoMotions && iqnt != kKinoSeaway;
  return question;
}

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
  ChosenFile chosen;
  if (OPNFIL(platform, QuestionFor(request.iqnt), chosen) != FileAnswer::opened) return;
  if (chosen.unformatted && case_store.time_history() && IsKinoFile(request.iqnt)) SayLine(console, kFormattedOnly);
  const DataFault fault = write_time_history(console, settings, request, chosen.unformatted, case_store, chosen.out);
  const bool to_console = chosen.out.to_console;
  if (!SayDataFault(console, fault, Making::history, QuantityLabel(case_store, request.iqnt))) {
    DiscardOutput(chosen.out);
  } else if (!CloseOutput(chosen.out)) {
    Say(console, kWriteFault, chosen.name);
  } else if (!to_console) {
    Say(console, "{} {}", WrittenText(request.iqnt, case_store), chosen.name);
    if (request.iqnt == kKinoMotions) SayKinoTransformation(console, settings, case_store);
  }
  pause_for_return(console);
}

void AskKinoFiles(const Platform& platform, const OutputSettings& settings, CaseStore& case_store) {
  std::string root;
  if (ask_text(platform.console, "Enter root name for KINO files", "", root) != Answer::ok)
    return SayLine(platform.console, "Option aborted ...");
  (void)write_kino_files(platform, Trim(root), settings, case_store);
}

}  // namespace zaview
