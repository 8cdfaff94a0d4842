// First pass: inclusion and removal of comments.
#pragma once

#include <string>

#include "base/line_source.h"
#include "base/platform.h"
#include "script/script_text.h"

namespace zaview {

enum class IncludeStatus : unsigned char { ok, faults, too_long };

// Reads `script`, the text of the file `name`. files: the names that origins point to; the script is files[0], what it
// includes follows. Faults are said as they are met and don't stop the pass, so that every bad directive is reported.
// A name is looked for in the working directory, then in the folder of the script.
[[nodiscard]] IncludeStatus ExpandIncludes(const Platform& platform, const std::string& name, BlockStream& script,
                                           std::vector<std::string>& files, ScriptText& clean);

}  // namespace zaview
