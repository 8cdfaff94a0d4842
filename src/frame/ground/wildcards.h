// Names with wild cards.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/platform.h"

namespace zaview {

// `*` or `?`, or a `[` ahead of a `]`.
[[nodiscard]] bool has_wildcards(std::string_view name);

// The same, unless a file of just that name exists.
[[nodiscard]] bool is_pattern(const Files& files, const std::string& name);

inline constexpr std::string_view kNoMatch = "ERROR - no file(s) found which match {}";
inline constexpr std::string_view kSomeUnread = "{} of {} files could not be read";

// The files whose names match, sorted by byte, without directories and dot files (unless the pattern's own last part
// begins with a dot). Wild cards act in every part of the path.
void list_matching_files(const Files& files, const std::string& pattern, std::vector<std::string>& names);

}  // namespace zaview
