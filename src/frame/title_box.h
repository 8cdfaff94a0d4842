// What a run prints ahead of everything else, and what -dims prints.
#pragma once

#include <string_view>

#include "base/platform.h"

namespace zaview {

// Three lines with a leading blank: 70 equals signs, "======>" text "<======" with the text in the middle, 70 equals
// signs.
void PrintTitleBox(const Console& console, std::string_view text);

// `ahead` is a line of its own unless blank.
void PrintVersionLine(const Console& console, std::string_view ahead);

void print_dimension_list(const Console& console);

}  // namespace zaview
