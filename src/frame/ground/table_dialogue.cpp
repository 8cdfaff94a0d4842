#include "frame/ground/table_dialogue.h"

#include "base/message.h"
#include "frame/ground/prompts.h"

namespace zaview {
namespace {

void Finish(const Console& console, const TableQuestion& question, DataFault fault, ChosenFile& chosen) {
  if (!SayDataFault(console, fault, question.making, question.quantity)) return DiscardOutput(chosen.out);
  if (!CloseOutput(chosen.out)) return Say(console, kFileNotWritten, chosen.name, Because(chosen.out.why));
  if (chosen.out.to_console) return;
  Say(console, "{} {}", question.done, chosen.name);
  if (question.say_more) question.say_more();
}

}  // namespace

FileAnswer AskTable(const Platform& platform, const TableQuestion& question,
                    const std::function<DataFault(ChosenFile&)>& write) {
  const Console& console = platform.console;
  ChosenFile chosen;
  const FileAnswer answer = OPNFIL(platform, question.file, chosen);
  if (answer != FileAnswer::opened) return answer;
  if (question.formatted_only && chosen.unformatted) SayLine(console, kFormattedOnly);
  if (question.ask_more && !question.ask_more()) {
    DiscardOutput(chosen.out);
    return FileAnswer::aborted;
  }
  Finish(console, question, write(chosen), chosen);
  pause_for_return(console);
  return FileAnswer::opened;
}

}  // namespace zaview
