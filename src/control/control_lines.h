// How values stand in a control text that this program writes, shared by the records and the modules. Reals are the
// shortest text that reads back to the same double, `.0` behind a whole one, right-justified in 18 columns.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "base/list_read.h"

namespace zaview {

inline constexpr std::size_t kControlColumn = 18;  // characters of a value
inline constexpr std::size_t kControlValues = 4;   // at most, on a line

// One real as it stands in a control text, without padding.
[[nodiscard]] std::string ControlReal(double value);

// One item, real or integer, right-justified.
void AppendControlItem(const ListItem& item, std::string& text);

// A list, a_line values on a line.
void AppendControlList(std::span<const ListItem> items, std::size_t a_line, std::string& text);

// A text field as a line of its own; in quotes if the reader would take it for something else, or if it begins with one
// of `ahead`.
void AppendControlText(std::string_view value, std::string& text, std::string_view ahead = {});

}  // namespace zaview
