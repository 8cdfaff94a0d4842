#include "script/substitute_variables.h"

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "base/text.h"
#include "script/script_variables.h"

namespace zaview {

namespace {

constexpr std::string_view kEmptyBraces = "Error - empty set of script variable delimiters: {}";
constexpr std::string_view kNoBrace = "Error - missing script variable delimiter }";
constexpr std::string_view kBlankName = "ERROR blank script variable";
constexpr std::string_view kUndefined = "Undefined script variable: {}";
constexpr std::string_view kBadAssignment = "ERROR in script variable assignment:";
constexpr std::string_view kTooMany = "Limit of {} script variables exceeded";
constexpr std::string_view kEndless = "ERROR - more than {} script variables substituted in {}";

bool InQuotes(std::string_view line, std::size_t eq, char quote) {
  const auto before = std::count(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(eq), quote);
  const auto behind = std::count(line.begin() + static_cast<std::ptrdiff_t>(eq), line.end(), quote);
  return before > 0 && behind > 0 && before % 2 == 1;
}

std::string_view WithoutDoubleQuotes(std::string_view text) {
  if (text.size() < 2 || text.front() != '"' || text.back() != '"') return text;
  return text.substr(1, text.size() - 2);
}

std::string Key(std::string_view name) {  // blanks at the end of a name don't count
  name = name.substr(0, kScriptValue);
  return std::string(name.substr(0, name.find_last_not_of(' ') + 1));
}

// The table by name: a script may set and use variables a million times.
struct Variables {
  ScriptState& script;
  std::unordered_map<std::string, std::size_t> place{};

  [[nodiscard]] ScriptVariable* Find(std::string_view name) {
    const auto found = place.find(Key(name));
    return found == place.end() ? nullptr : &script.variables[found->second];
  }
};

// Replaces the first {name} of the line. False: fault tells why.
bool SubstituteOnce(Variables& variables, std::string& line, std::string& fault) {
  const std::size_t open = line.find('{');
  const std::size_t close = line.find('}');
  if (close == open + 1) fault = kEmptyBraces;
  else if (close == std::string::npos || close < open) fault = kNoBrace;
  if (!fault.empty()) return false;
  const std::string_view name = std::string_view(line).substr(open + 1, close - open - 1);
  const ScriptVariable* variable = variables.Find(name);
  if (IsBlank(name)) fault = kBlankName;
  else if (variable == nullptr) fault = fmt::format(kUndefined, name);
  if (!fault.empty()) return false;
  line.replace(open, close - open + 1, variable->value);
  line.resize(std::min(line.size(), kScriptLine));
  return true;
}

bool SubstituteLine(Variables& variables, std::string& line, int& count, std::string& fault) {
  for (int i = 0; line.find('{') != std::string::npos; ++i) {
    if (i >= kLineSubstitutions) fault = fmt::format(kEndless, kLineSubstitutions, "one line");
    else if (++count > kTextSubstitutions) fault = fmt::format(kEndless, kTextSubstitutions, "one script");
    if (!fault.empty() || !SubstituteOnce(variables, line, fault)) return false;
  }
  return true;
}

bool SetVariable(const Console& console, Variables& variables, const Assignment& assignment, std::string& fault) {
  ScriptVariable* known = variables.Find(assignment.name);
  if (known != nullptr) {
    known->value = CutScriptValue(console, assignment.name, assignment.value);
    return true;
  }
  ScriptState& script = variables.script;
  if (script.variables.size() >= kScriptVariables) {
    fault = fmt::format(kTooMany, kScriptVariables);
    return false;
  }
  variables.place.emplace(Key(assignment.name), script.variables.size());
  AddScriptVariable(console, script, assignment.name, assignment.value);
  return true;
}

// An entry of a name that stands further up gives it its value and goes: the last one wins, the first place stays.
void RemoveDuplicates(Variables& variables) {
  std::vector<ScriptVariable> kept;
  for (ScriptVariable& variable : variables.script.variables) {
    const auto [entry, is_new] = variables.place.emplace(Key(variable.name), kept.size());
    if (is_new) kept.push_back(std::move(variable));
    else kept[entry->second].value = std::move(variable.value);
  }
  variables.script.variables = std::move(kept);
}

}  // namespace

bool ParseAssignment(std::string_view line, Assignment& assignment) {
  assignment = {};
  line = TrimEnd(line);
  const std::size_t eq = line.find('=');
  if (eq == std::string_view::npos || eq == 0) return false;
  if (InQuotes(line, eq, '"') || InQuotes(line, eq, '\'')) return false;
  const std::string_view name = WithoutDoubleQuotes(Trim(line.substr(0, eq)));
  assignment.fault = name.empty();
  if (assignment.fault || name.find_first_of(" \t") != std::string_view::npos) return false;
  assignment.name = name;
  assignment.value = WithoutDoubleQuotes(Trim(line.substr(eq + 1)));
  return true;
}

bool SubstituteScriptVariables(const Console& console, ScriptState& script, ScriptText& text, PassMessage& message) {
  Variables variables{script};
  RemoveDuplicates(variables);
  ScriptText out;
  int count = 0;
  for (ScriptLine& line : text.lines) {
    std::string fault;
    Assignment assignment;
    line.text.resize(std::min(line.text.size(), kScriptLine));
    bool good = SubstituteLine(variables, line.text, count, fault);
    const bool is_assignment = good && ParseAssignment(line.text, assignment);
    if (assignment.fault) {
      message = {std::string(kBadAssignment), std::string(Trim(line.text)), line.origin, line.text};
      return false;
    }
    if (is_assignment) good = SetVariable(console, variables, assignment, fault);
    else if (good && !AddScriptLine(out, {std::string(TrimEnd(line.text)), line.origin})) fault = TooLongMessage();
    if (good && fault.empty()) continue;
    message = {fault, "", line.origin, line.text};
    return false;
  }
  text = std::move(out);
  return true;
}

}  // namespace zaview
