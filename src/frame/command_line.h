// The command line: one walk over the arguments, each option a row.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/ground/zaview_exit.h"
#include "frame/session.h"

namespace zaview {

struct OptionWords {
  std::span<const std::string_view> words;  // in capitals; some may be blank
  bool beginning = false;                   // a longer word that begins so is meant too
};
[[nodiscard]] std::vector<OptionWords> CommandLineOptions();

enum class LineEnd : std::uint8_t { go_on, stop };  // stop: the run ends with `status`

struct CommandLineResult {
  LineEnd end = LineEnd::go_on;
  int status = 0;
};

// Title box, version line and the walk; usage behind any error. Reads no output file.
[[nodiscard]] CommandLineResult ParseCommandLine(Session& session, std::span<const std::string> arguments);

}  // namespace zaview
