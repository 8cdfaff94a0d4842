// What a script, or one command of it, ends with.
#pragma once

namespace zaview {

inline constexpr int kScriptOk = 0;
inline constexpr int kScriptCancelled = -1;  // no name was given
inline constexpr int kScriptNotRun = 1;      // it could not be opened, or its text is wrong
inline constexpr int kScriptUnknownCommand = 3;
inline constexpr int kScriptBadArgument = 4;
inline constexpr int kScriptFailed = 5;
inline constexpr int kScriptInterrupted = 6;  // by Ctrl-C

}  // namespace zaview
