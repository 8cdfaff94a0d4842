#include "control/module_io.h"

#include <algorithm>

#include "base/grow.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "control/control_text.h"

namespace zaview {
namespace {

constexpr std::string_view kContinued = "(CONT)";

struct ModuleLines {
  const std::vector<std::string>& lines;
  std::size_t next = 0;
};

bool NextDataLine(ModuleLines& text, std::string_view& line) {
  while (text.next < text.lines.size()) {
    const std::string& raw = text.lines[text.next++];
    if (IsCommentLine(raw)) continue;
    line = WithoutComment(raw);
    return true;
  }
  return false;
}

ListLines::Next NextListLine(void* self, std::string_view& line) {
  return NextDataLine(*static_cast<ModuleLines*>(self), line) ? ListLines::Next::line : ListLines::Next::end_of_file;
}

bool NoLineLeft(const ModuleLines& text) {
  return std::all_of(text.lines.begin() + static_cast<std::ptrdiff_t>(text.next), text.lines.end(),
                     [](const std::string& line) { return IsCommentLine(line); });
}

bool NothingLeft(const ModuleLines& text) {
  return std::all_of(text.lines.begin() + static_cast<std::ptrdiff_t>(text.next), text.lines.end(),
                     [](const std::string& line) { return IsBlank(WithoutComment(line)); });
}

ModuleFault ReadListField(const ModuleField& field, ModuleLines& text, ModuleState& state) {
  const std::int64_t count = field.count == nullptr ? 1 : field.count(state);
  if (count < 0) return ModuleFault::dimension;
  for (std::int64_t i = 0; i < count; ++i) {
    FieldList fields;
    if (!field.list(state, static_cast<std::size_t>(i), fields)) return ModuleFault::fatal;
    fields.SetToZero();
    const ListStatus status = ReadList({&text, NextListLine}, fields.items());
    if (status == ListStatus::end_of_file) return ModuleFault::end_of_file;
    if (status != ListStatus::ok) return ModuleFault::bad_data;
  }
  return ModuleFault::none;
}

ModuleFault ReadField(const ModuleField& field, ModuleLines& text, ModuleState& state) {
  if (field.text == nullptr) return ReadListField(field, text, state);
  if (field.count != nullptr && field.count(state) <= 0) return ModuleFault::none;
  std::string_view line;
  if (!NextDataLine(text, line)) return ModuleFault::end_of_file;
  *field.text(state) = TextField(line, kNameLength);
  return ModuleFault::none;
}

// The number that a comment line announces; 0 if it is another comment.
int AnnouncedSet(std::string_view line, std::string_view prefix) {
  const std::string capitals = Capitals(TrimStart(line.substr(1)));
  std::string_view rest = capitals;
  if (!StartsWith(rest, prefix)) return 0;
  rest.remove_prefix(prefix.size());
  const std::string_view digits = rest.substr(0, std::min(rest.find_first_not_of("0123456789"), rest.size()));
  int number = 0;
  if (!ParseInteger(digits, number)) return 0;
  return StartsWith(TrimStart(rest.substr(digits.size())), kContinued) ? 0 : number;
}

}  // namespace

ModuleFault ReadModule(std::span<const ModuleField> fields, ModuleText& module, ModuleState& state, int& set) {
  ModuleLines text{module.lines};
  for (const ModuleField& field : fields) {
    set = field.set;
    const bool missing = field.text != nullptr ? NoLineLeft(text) : NothingLeft(text);  // a blank line is a blank text
    if (field.may_be_missing && missing) break;
    const ModuleFault fault = ReadField(field, text, state);
    if (fault != ModuleFault::none) return fault;
  }
  module.rest = text.next;
  return ModuleFault::none;
}

void WriteModule(const ModuleForm& form, const ModuleText& module, ModuleState& state, std::string& text) {
  if (form.length != nullptr) state.count = static_cast<int>(form.length(state));
  for (const ModuleField& field : form.fields) {
    const std::int64_t count = field.count == nullptr ? 1 : field.count(state);
    if (count <= 0) continue;
    text += field.comment;
    text += '\n';
    if (field.text != nullptr) AppendControlText(*field.text(state), text);
    for (std::int64_t i = 0; field.list != nullptr && i < count; ++i) {
      FieldList fields;
      if (!field.list(state, static_cast<std::size_t>(i), fields)) return;
      AppendControlList(fields.items(), field.a_line, text);
    }
  }
  for (std::size_t i = module.rest; i < module.lines.size(); ++i) {
    text += module.lines[i];
    text += '\n';
  }
}

bool SplitDataSets(const ModuleText& module, std::string_view prefix, std::vector<ModuleDataSet>& sets) {
  sets.clear();
  if (!Grow(sets, 1)) return false;
  for (const std::string& line : module.lines) {
    if (IsCommentLine(line)) {
      const int number = AnnouncedSet(line, prefix);
      if (number < 1 || (number == 1 && sets.size() == 1 && sets[0].lines.empty())) continue;
      if (!Grow(sets, sets.size() + 1)) return false;
      sets.back().number = number;
      continue;
    }
    const std::string_view data = WithoutComment(line);
    if (IsBlank(data)) continue;
    std::vector<std::string_view>& lines = sets.back().lines;
    if (!Grow(lines, lines.size() + 1)) return false;
    lines.back() = data;
  }
  return true;
}

}  // namespace zaview
