// The $NAME: modules behind the numbered records. Every module is kept as raw text; the fields of those that
// module_table.h knows are read from that text. A module that can't be read is told, and does not end the reading.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "control/control_records.h"
#include "control/control_text.h"

namespace zaview {

inline constexpr std::size_t kModuleBytes = std::size_t{64} << 20;  // of raw text; more is refused: too_long

enum class ModuleStatus : std::uint8_t { ok, too_long, out_of_memory };

// Takes the lines to the end of the section; lines ahead of the first module are passed over. A line whose first
// character that is not blank is $ begins a module, whose name runs to the colon and is kept in capitals. The writer's
// comment line ahead of a module is not kept.
[[nodiscard]] ModuleStatus KeepModules(HeaderText& text, std::vector<ModuleText>& modules);

// Reads the modules kept in records.modules, a text of the run file `run`, in order, and tells which. A name behind the
// colon other than DEFAULT or DEFAULTS is a file, looked for in the working directory and in the folder of the run
// file; its text takes the place of the kept lines. Of a module that may stand once the last one stays. One that can't
// be read keeps its lines and leaves its fields at their defaults.
void ParseModules(const Platform& platform, const std::string& run, ControlRecords& records);

}  // namespace zaview
