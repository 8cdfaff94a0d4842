#include "control/options_lookup.h"

#include <algorithm>

#include "base/number_parse.h"
#include "base/text.h"
#include "control/control_text.h"

namespace zaview {
namespace {

constexpr int kNotSet = -1;

}  // namespace

void SplitOption(std::string_view line, std::string_view& name, std::string_view& value) {
  line = Trim(line);
  const std::size_t end = std::min(line.find_first_of(" \t:="), line.size());
  name = line.substr(0, end);
  value = TrimStart(line.substr(end));
  if (!value.empty() && (value.front() == ':' || value.front() == '=')) value = TrimStart(value.substr(1));
}

std::string_view FirstOptionItem(std::string_view value) {
  return value.substr(0, std::min(value.find_first_of(" \t,"), value.size()));
}

bool FindOption(const ControlRecords& records, OptionNames names, std::string& value) {
  const auto module = std::find_if(records.modules.rbegin(), records.modules.rend(),
                                   [](const ModuleText& text) { return text.name == "OPTIONS"; });
  if (module == records.modules.rend()) return false;
  for (auto line = module->lines.rbegin(); line != module->lines.rend(); ++line) {
    if (IsCommentLine(*line)) continue;
    std::string_view name;
    std::string_view rest;
    SplitOption(WithoutComment(*line), name, rest);
    const std::string capitals = Capitals(name);
    if (capitals.empty() || (capitals != names.name && capitals != names.other)) continue;
    value = TextField(rest, kNameLength);
    return true;
  }
  return false;
}

double RealOption(const ControlRecords& records, OptionNames names) {
  std::string text;
  double value = kNotSet;
  if (!FindOption(records, names, text) || !ParseDouble(FirstOptionItem(text), value)) return kNotSet;
  return value;
}

int IntegerOption(const ControlRecords& records, OptionNames names) {
  std::string text;
  int value = kNotSet;
  if (!FindOption(records, names, text) || !ParseInteger(FirstOptionItem(text), value)) return kNotSet;
  return value;
}

}  // namespace zaview
