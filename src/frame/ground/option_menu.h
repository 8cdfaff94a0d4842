// A menu of numbered items: an empty line, the title, the available items in two columns of 55 (one below five
// items), then the prompt.
#pragma once

#include <span>
#include <string_view>

#include "base/platform.h"
#include "frame/ground/prompts.h"

namespace zaview {

struct MenuItem {
  std::string_view text;
  bool available = true;
};

// Item i has number i. An answer that starts with q or Q, or the end of input, is quit. fallback < 0: none.
[[nodiscard]] Answer select_option(const Console& console, std::string_view title, std::string_view prompt,
                                   std::span<const MenuItem> items, int fallback, int& value);

}  // namespace zaview
