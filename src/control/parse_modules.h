// The $NAME: modules behind the numbered records. Every module is kept as raw text; the fields of those that the
// program needs are read from that text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "control/control_records.h"
#include "control/control_text.h"

namespace zaview {

inline constexpr std::string_view kModuleError = "ERROR parsing module {}";

inline constexpr std::size_t kModuleBytes = std::size_t{64} << 20;  // of raw text; more is refused: too_long

enum class ModuleStatus : std::uint8_t { ok, too_long, out_of_memory };

// Takes the lines to the end of the section; lines ahead of the first module are passed over. A line whose first
// character that is not blank is $ begins a module, whose name runs to the colon and is kept in capitals.
[[nodiscard]] ModuleStatus KeepModules(HeaderText& text, std::vector<ModuleText>& modules);

// Reads the fields of the modules kept in records.modules, a text of the run file `run`; of a module given more than once the last one counts. A
// module that can't be read is told and left at its defaults.
void ParseModules(const Platform& platform, const std::string& run, ControlRecords& records);

}  // namespace zaview
