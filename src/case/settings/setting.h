// What a verb that changes a setting answers; anything but none leaves the setting as it was. Who asks says it in its
// own words.
#pragma once

#include <cstdint>

namespace zaview {

enum class SettingFault : std::uint8_t {
  none,
  illegal,      // out of the range of the setting
  no_steps,     // the case has none
  all_trimmed,  // no step would be left
  outside       // a range without a step in use
};

}  // namespace zaview
