// What the handler of a script command gets: the session, its command word and the rest of its line.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "base/message.h"
#include "frame/session.h"
#include "script/script_status.h"
#include "script/script_words.h"

namespace zaview {

struct ScriptCall {
  Session& session;
  std::string command;  // as typed, in capitals
  WordScanner words;    // behind the command word

  [[nodiscard]] const Console& console() const { return session.platform.console; }
};

// Says why a command failed; the result is the status.
template <typename... Args>
[[nodiscard]] int Fail(const ScriptCall& call, int status, fmt::format_string<Args...> text, Args&&... args) {
  Say(call.console(), text, std::forward<Args>(args)...);
  return status;
}

inline constexpr std::string_view kMemoryOut = "ERROR - memory is out : {}";
inline constexpr std::string_view kInvalidArgument = "ERROR - Invalid argument ({}) for {} command...";
inline constexpr std::string_view kInvalidValue = "ERROR - Invalid value for {} command...";

}  // namespace zaview
