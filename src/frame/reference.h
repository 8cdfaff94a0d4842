// The reference of everything a user can name, made from the tables of the program: what -help tells of a topic, the
// page docs/reference.md, the manual page and the completion of the shell are all made of these topics.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/platform.h"

namespace zaview {

struct ReferenceRow {
  std::string term;
  std::vector<std::string> text;  // paragraphs
};

struct ReferencePart {
  std::string title;  // may be blank
  std::vector<std::string> ahead;
  std::vector<ReferenceRow> rows;
};

struct ReferenceTopic {
  std::string name;  // what -help is asked for, in small letters
  std::string meaning;
  std::vector<ReferencePart> parts;
};

[[nodiscard]] std::vector<ReferenceTopic> Reference();

// The names of the topics, and how to ask for one.
void PrintTopicNames(const Console& console);

// A topic, or the entry of a command by any of its names, in any case. False: there is none, which is said.
[[nodiscard]] bool PrintTopic(const Console& console, std::string_view name);

}  // namespace zaview
