#include "script/fault_status.h"

namespace zaview {

namespace {

constexpr std::string_view kNoWave = "ERROR - {} option {} needs the incident wave, which could not be made";

}  // namespace

int StatusOf(const ScriptCall& call, std::string_view word, DataFault fault, std::string_view not_valid) {
  switch (fault) {
    case DataFault::none:
      return kScriptOk;
    case DataFault::not_valid:
      return Fail(call, kScriptBadArgument, fmt::runtime(not_valid), call.command, word);
    case DataFault::no_wave:
      return Fail(call, kScriptFailed, kNoWave, call.command, word);
    case DataFault::no_memory:
      return Fail(call, kScriptFailed, kMemoryOut, call.command);
    case DataFault::said:
      break;
  }
  return kScriptFailed;
}

}  // namespace zaview
