// The options that are known by name, and the $OPTIONS: module as it is read and written. Other names are kept and
// written back as they stand.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "control/control_records.h"
#include "control/options_lookup.h"

namespace zaview {

enum class OptionKind : std::uint8_t { integer, real, text };

struct OptionRow {
  OptionNames names;
  OptionKind kind = OptionKind::integer;
  std::string_view comment;  // the writer's line ahead of it
  // Of integer options that can't be everything: what they choose, and from where to where they go.
  std::string_view subject{};
  int low = std::numeric_limits<int>::min(), high = std::numeric_limits<int>::max();
};

[[nodiscard]] const OptionRow* FindOptionRow(std::string_view name);  // by either spelling, capitals; null: unknown

// Whether the values of all known options are what they must be.
[[nodiscard]] bool OptionsAreGood(const ModuleText& module);

// The lines of the module, behind its $ line: known options after their comment as NAME and value. A value that is more
// than one item is written as it stands.
void WriteOptions(const ModuleText& module, std::string& text);

// The number of options outside of their range; each is told.
[[nodiscard]] int CheckOptions(const Console& console, const ControlRecords& records);

}  // namespace zaview
