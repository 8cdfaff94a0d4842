// Keys of the views: rows with their effect and their line of the help.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "frame/session.h"

namespace zaview {

// Codes of rows: a key as the window gives it, with Control 1 to 26, and a bit for Shift with these and with keys that
// aren't letters, and for Alt. Where there is no row for a key with Shift that without it acts.
inline constexpr int kWithShift = 1 << 20, kWithAlt = 1 << 21;
[[nodiscard]] constexpr int Ctrl(char letter) {
  return letter - 'a' + 1;
}
[[nodiscard]] constexpr int CtrlShift(char letter) {
  return Ctrl(letter) | kWithShift;
}
[[nodiscard]] constexpr int Shift(int key) {
  return key | kWithShift;
}
[[nodiscard]] constexpr int Alt(int key) {
  return key | kWithAlt;
}

inline constexpr float kRoot2 = 1.4142135F;  // a press that makes something larger or smaller does so by this factor

using KeyScope = unsigned;  // bits; what they mean is told by the table
inline constexpr KeyScope kAlways = ~0U;

struct ViewKey {
  int code = 0;
  KeyScope scope = kAlways;                 // elsewhere it does nothing
  bool (*act)(Session& session) = nullptr;  // true: the picture is to be drawn again. null: a key of all views, in the
                                            // words of this one
  std::array<std::string_view, 2> help{};
};

struct ViewKeys {                             // of one view as it stands
  std::span<const ViewKey> rows;              // in the order of the help
  KeyScope scope = kAlways;                   // rows that share no bit with it do nothing now
  std::span<const std::string_view> heading;  // of the help
  bool by_step = false;                       // a step of the case is shown: keys that change it act
  bool of_records = false;                    // records are shown: keys that skip and trim, and choose curves, act
  bool whole_help = false;                    // the help tells of rows that do nothing now as well
};

template <typename Enum>
void NextOf(Enum& value, int count) {
  value = static_cast<Enum>((static_cast<int>(value) + 1) % count);
}

}  // namespace zaview
