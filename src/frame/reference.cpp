#include "frame/reference.h"

#include <algorithm>

#include <fmt/format.h>

#include "base/message.h"
#include "base/text.h"
#include "frame/reference_topics.h"

namespace zaview {

namespace {

constexpr std::size_t kWidth = 79;
constexpr std::size_t kWidestTerm = 26;  // of a table of two columns

// Words of a text on lines of the console, from a column on; the first line goes on behind what stands there already.
void SayWrapped(const Console& console, std::string line, std::size_t column, std::string_view text) {
  line.resize(std::max(line.size(), column), ' ');
  bool begun = false;
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find(' '));
    text = TrimStart(text.substr(word.size()));
    if (begun && line.size() + 1 + word.size() > kWidth) {
      SayLine(console, line);
      line.assign(column, ' ');
      begun = false;
    }
    if (begun) line += ' ';
    line += word;
    begun = true;
  }
  SayLine(console, line);
}

bool IsTable(const ReferencePart& part) {
  return std::all_of(part.rows.begin(), part.rows.end(),
                     [](const ReferenceRow& row) { return row.term.size() <= kWidestTerm && row.text.size() <= 1; });
}

void PrintEntry(const Console& console, const ReferenceRow& row) {
  SayWrapped(console, "", 1, row.term);
  for (const std::string& text : row.text) SayWrapped(console, "", 5, text);
}

void PrintPart(const Console& console, const ReferencePart& part) {
  SayLine(console, "");
  if (!part.title.empty()) Say(console, "{}:", part.title);
  for (const std::string& text : part.ahead) SayWrapped(console, "", 0, text);
  if (!part.ahead.empty()) SayLine(console, "");
  if (!IsTable(part)) {
    for (const ReferenceRow& row : part.rows) PrintEntry(console, row);
    return;
  }
  std::size_t widest = 0;
  for (const ReferenceRow& row : part.rows) widest = std::max(widest, row.term.size());
  for (const ReferenceRow& row : part.rows)
    SayWrapped(console, " " + row.term, widest + 3, row.text.empty() ? "" : row.text[0]);
}

bool SameWord(std::string_view a, std::string_view b) {
  return Capitals(a) == Capitals(b);
}

}  // namespace

std::vector<ReferenceTopic> Reference() {
  return {OptionTopic(),    ScriptTopic(), CommandTopic(), ArgumentTopic(),    QuantityTopic(),
          StatisticTopic(), MenuTopic(),   KeyTopic(),     EnvironmentTopic(), StatusTopic()};
}

void PrintTopicNames(const Console& console) {
  SayLine(console, " More by zaview -help TOPIC, where TOPIC is the name of a command, or one of");
  for (const ReferenceTopic& topic : Reference()) Say(console, "   {:<12} {}", topic.name, topic.meaning);
}

bool PrintTopic(const Console& console, std::string_view name) {
  const std::vector<ReferenceTopic> topics = Reference();
  for (const ReferenceTopic& topic : topics) {
    if (!SameWord(topic.name, name)) continue;
    for (const ReferencePart& part : topic.parts) PrintPart(console, part);
    return true;
  }
  const Command* command = FindCommand(AllCommands(), Capitals(name));
  if (command != nullptr && !command->meaning.empty()) {
    PrintEntry(console, CommandEntry(*command));
    return true;
  }
  Say(console, "ERROR - there is no help on {}", name);
  if (const std::string meant = CommandsMeant(AllCommands(), Capitals(name)); !meant.empty()) SayLine(console, meant);
  PrintTopicNames(console);
  return false;
}

}  // namespace zaview
