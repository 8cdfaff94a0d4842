#include "frame/ground/quiet_console.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"

namespace zaview {

namespace {

// What a line begins with that tells of something wrong, or holds.
constexpr std::string_view kBegin[] = {"ERR",      "WRN",          "WARN",    "Error",      "LOGIC",
                                       "Logic",    "Invalid",      "Illegal", "Unrecogniz", "Interrupted",
                                       "Reported", "Initial plot", "GLGKS"};
constexpr std::string_view kHold[] = {"ERROR",        "GKSDUMP failed", "could not be read",
                                      "not combined", "not reached",    "in force"};
constexpr std::string_view kEcho = "ZAVIEW Scripting:";

bool IsFault(std::string_view line) {
  const std::string_view text = TrimStart(line);
  if (StartsWith(text, kEcho)) return false;
  return std::any_of(std::begin(kBegin), std::end(kBegin), [&](std::string_view w) { return StartsWith(text, w); }) ||
         std::any_of(std::begin(kHold), std::end(kHold), [&](std::string_view w) { return Contains(text, w); });
}

void WriteQuiet(void* self, std::string_view text) {
  QuietConsole& quiet = *static_cast<QuietConsole*>(self);
  while (!text.empty()) {
    const std::size_t size = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::string_view line = text.substr(0, size);
    text.remove_prefix(size);
    quiet.in_fault = IsFault(line) || (quiet.in_fault && line[0] == ' ');
    if (quiet.in_fault) quiet.real.write_error(quiet.real.self, line);
  }
}

}  // namespace

Console MakeQuiet(const Console& real, QuietConsole& quiet) {
  quiet.real = real;
  Console console;
  console.self = &quiet;
  console.read_line = [](void*, std::string&) { return false; };  // nothing asks while a script runs
  console.write = WriteQuiet;
  console.flush = [](void* self) {
    const Console& c = static_cast<QuietConsole*>(self)->real;
    c.flush(c.self);
  };
  console.show_progress = [](void*, std::string_view) {};
  console.remove_progress = [](void*) {};
  console.take_interrupt = [](void* self) { return TakeInterrupt(static_cast<QuietConsole*>(self)->real); };
  console.write_error = [](void* self, std::string_view text) {
    const Console& c = static_cast<QuietConsole*>(self)->real;
    c.write_error(c.self, text);
  };
  console.write_table = [](void* self, std::string_view text) {
    const Console& c = static_cast<QuietConsole*>(self)->real;
    c.write(c.self, text);
  };
  return console;
}

}  // namespace zaview
