#include "control/parse_modules.h"

#include <algorithm>
#include <array>

#include "base/grow.h"
#include "base/message.h"
#include "base/text.h"

namespace zaview {
namespace {

std::string ModuleName(std::string_view line) {
  line = TrimStart(WithoutComment(line));
  line.remove_prefix(1);  // the $
  return Capitals(Trim(line.substr(0, line.find(':'))));
}

bool BeginsModule(std::string_view line) {
  if (IsCommentLine(line)) return false;
  line = TrimStart(line);
  return !line.empty() && line.front() == '$';
}

// The lines of a kept module as a source of lists.
struct ModuleLines {
  const ModuleText& module;
  std::size_t next = 0;
};

ListLines::Next NextModuleLine(void* self, std::string_view& line) {
  ModuleLines& lines = *static_cast<ModuleLines*>(self);
  while (lines.next < lines.module.lines.size()) {
    const std::string& raw = lines.module.lines[lines.next++];
    if (IsCommentLine(raw)) continue;
    line = WithoutComment(raw);
    return ListLines::Next::line;
  }
  return ListLines::Next::end_of_file;
}

bool ReadYCutLoads(const ModuleText& module, ControlRecords& records) {
  ModuleLines text{module};
  const ListLines lines{&text, NextModuleLine};
  std::array<int, 4> head{};
  if (ReadIntegers(lines, head) != ListStatus::ok || head[3] < 0) return false;
  YCutLoads loads{head[0], head[1], head[2], {}};
  for (int i = 0; i < head[3]; ++i) {
    Triple cut{};
    if (ReadReals(lines, cut) != ListStatus::ok) return false;
    if (!Grow(loads.XMCY, loads.XMCY.size() + 1)) return false;
    loads.XMCY.back() = cut;
  }
  records.ycut = std::move(loads);
  return true;
}

struct ModuleRow {
  std::string_view name;
  bool (*read)(const ModuleText& module, ControlRecords& records);  // false: records untouched
};
constexpr ModuleRow kModules[] = {
    {"YCUTLOADS", ReadYCutLoads},
};

}  // namespace

ModuleStatus KeepModules(HeaderText& text, std::vector<ModuleText>& modules) {
  std::size_t bytes = 0;
  std::string_view line;
  TextEvent event = NextTextLine(text, line);
  for (; event == TextEvent::line; event = NextTextLine(text, line)) {
    bytes += line.size();
    if (bytes > kModuleBytes) return ModuleStatus::too_long;
    if (BeginsModule(line)) {
      if (!Grow(modules, modules.size() + 1)) return ModuleStatus::out_of_memory;
      modules.back().name = ModuleName(line);
      modules.back().header = line;
      continue;
    }
    if (modules.empty()) continue;
    std::vector<std::string>& kept = modules.back().lines;
    if (!Grow(kept, kept.size() + 1)) return ModuleStatus::out_of_memory;
    kept.back() = line;
  }
  return event == TextEvent::too_long ? ModuleStatus::too_long : ModuleStatus::ok;
}

void ParseModules(const Platform& platform, const std::string& /*run*/, ControlRecords& records) {
  for (const ModuleRow& row : kModules) {
    const auto last = std::find_if(records.modules.rbegin(), records.modules.rend(),
                                   [&row](const ModuleText& module) { return module.name == row.name; });
    if (last == records.modules.rend()) continue;
    if (!row.read(*last, records)) Say(platform.console, kModuleError, row.name);
  }
}

}  // namespace zaview
