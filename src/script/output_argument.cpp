#include "script/output_argument.h"

#include <algorithm>

#include "base/text.h"
#include "frame/ground/file_dialogue.h"

namespace zaview {

namespace {

constexpr std::string_view kUnknownSwitch = "ERROR - unrecognized output file switch: {}";
constexpr std::string_view kNameCut = "WARNING - output file name cut at blank : {}";

struct Switches {
  bool append = false, unformatted = false;
};

int ParseSwitches(const ScriptCall& call, std::string_view text, Switches& switches) {
  while (!text.empty()) {
    text.remove_prefix(1);  // the colon
    const std::string_view word = Trim(text.substr(0, text.find(':')));
    const std::string capitals = Capitals(word);
    if (capitals == "APPEND" || capitals == "APPND") switches.append = true;
    else if (capitals == "NEW") switches.append = false;
    else if (capitals == "UNFORMATTED" || capitals == "UNFORM") switches.unformatted = true;
    else if (!capitals.empty()) return Fail(call, kScriptFailed, kUnknownSwitch, word);
    text.remove_prefix(std::min(text.find(':'), text.size()));
  }
  return kScriptOk;
}

// The name ends at the first blank, tab or colon behind its first character, in quotes as well.
std::string_view NameOf(const ScriptCall& call, std::string_view word) {
  if (IsBlank(word) || word.front() == ':') return {};
  const std::string_view name = word.substr(0, word.find_first_of(" \t:", 1));
  if (name.size() < word.size() && word[name.size()] != ':') Say(call.console(), kNameCut, name);
  return name;
}

}  // namespace

int OpenNamedOutput(const ScriptCall& call, const std::string& name, OutputFile& file) {
  if (name.size() <= kScriptFileName && OpenOutput(call.session.platform, name, OpenHow::replace, file))
    return kScriptOk;
  return Fail(call, kScriptFailed, kOutputNotOpen, name, Because(file.why));
}

int OpenOutputArgument(ScriptCall& call, OutputForms forms, OutputArgument& output, std::string_view not_open) {
  const std::string token = NextScriptWord(call.words, kFreeText);
  const std::string_view word = Trim(token);
  output.name = NameOf(call, word);
  Switches switches;
  const std::size_t colon = word.find(':', output.name.empty() ? 0 : 1);
  if (const int status = ParseSwitches(call, word.substr(std::min(colon, word.size())), switches); status != kScriptOk)
    return status;
  if (switches.unformatted && forms == OutputForms::formatted) SayLine(call.console(), kFormattedOnly);
  output.unformatted = switches.unformatted && forms == OutputForms::both;
  const bool refused = output.name.size() > kScriptFileName || (output.unformatted && output.name.empty());
  const OpenHow how = switches.append ? OpenHow::append : OpenHow::replace;
  if (refused || !OpenOutput(call.session.platform, output.name, how, output.file))
    return Fail(call, kScriptFailed, fmt::runtime(not_open), output.name, Because(output.file.why));
  return kScriptOk;
}

int FinishOutput(ScriptCall& call, OutputArgument& output, int status, std::string_view done) {
  if (status != kScriptOk) {
    DiscardOutput(output.file);
    return status;
  }
  if (!CloseOutput(output.file))
    return Fail(call, kScriptFailed, kOutputNotWritten, output.name, Because(output.file.why));
  if (!output.name.empty() && !done.empty()) Say(call.console(), "{} {}", done, output.name);
  return kScriptOk;
}

}  // namespace zaview
