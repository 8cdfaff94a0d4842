// Keys as a user presses them.
#pragma once

#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "frame/session.h"
#include "views/frame/plot_session.h"

namespace zaview {

// "g ^e ^E A-o Left S-PgUp Space": keys as a user would write them.
inline void Press(Session& session, const std::string& keys) {
  const std::pair<std::string_view, int> names[] = {
      {"Left", kKeyLeft},     {"Right", kKeyRight}, {"Up", kKeyUp}, {"Down", kKeyDown}, {"PgUp", kKeyPageUp},
      {"PgDn", kKeyPageDown}, {"Space", ' '},       {"Esc", 27},    {"Back", 8},        {"F1", kKeyF1}};
  std::istringstream in(keys);
  for (std::string word; in >> word;) {
    unsigned held = 0;
    std::string_view key = word;
    if (key.size() > 2 && key[1] == '-') {
      held = key[0] == 'A' ? kAltKey : kShiftKey;
      key.remove_prefix(2);
    }
    int code = static_cast<unsigned char>(key[0]);
    if (key.size() == 2 && key[0] == '^') {
      const bool capital = key[1] >= 'A' && key[1] <= 'Z';
      held |= kControlKey | (capital ? kShiftKey : 0U);
      code = key[1] - (capital ? 'A' : 'a') + 1;
    }
    for (const auto& [name, special] : names)
      if (key == name) code = special;
    session.gks.modifiers = held;
    PressKey(session, code);
    session.gks.modifiers = 0;
  }
}

}  // namespace zaview
