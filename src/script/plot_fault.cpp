#include "script/plot_fault.h"

#include "script/open_script_file.h"
#include "script/selectors.h"

namespace zaview {

namespace {

inline constexpr std::string_view kNoMemory = "ERROR - memory is out : {}";
inline constexpr std::string_view kNoWave = "ERROR - {} option {} needs the incident wave, which could not be made";

}  // namespace

int StatusOf(const ScriptCall& call, std::string_view word, PlotFault fault) {
  switch (fault) {
    case PlotFault::none:
      return kScriptOk;
    case PlotFault::not_valid:
      return Fail(call, kScriptBadArgument, kNotValid, call.command, word);
    case PlotFault::no_wave:
      return Fail(call, kScriptFailed, kNoWave, call.command, word);
    case PlotFault::no_memory:
      return Fail(call, kScriptFailed, kNoMemory, call.command);
    case PlotFault::logic:
      break;
  }
  return kScriptFailed;
}

int StatusOf(const ScriptCall& call, std::string_view word, TableFault fault, std::string_view not_valid) {
  switch (fault) {
    case TableFault::none:
      return kScriptOk;
    case TableFault::said:
      return kScriptFailed;
    case TableFault::not_valid:
      return Fail(call, kScriptBadArgument, fmt::runtime(not_valid), call.command, word);
    case TableFault::no_memory:
      break;
  }
  return Fail(call, kScriptFailed, kNoMemory, call.command);
}

}  // namespace zaview
