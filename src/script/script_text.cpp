#include "script/script_text.h"

#include <fmt/format.h>

#include "base/grow.h"
#include "base/text.h"

namespace zaview {

bool AddScriptLine(ScriptText& text, ScriptLine&& line) {
  text.bytes += line.text.size();
  if (text.lines.size() >= kScriptLines || text.bytes > kScriptBytes) return false;
  if (text.lines.size() == text.lines.capacity() && !Reserve(text.lines, 2 * text.lines.size() + 64)) return false;
  text.lines.push_back(std::move(line));
  return true;
}

std::string TooLongMessage() {
  return fmt::format(kScriptTooLong, kScriptLines, kScriptBytes);
}

std::string AtLine(const std::vector<std::string>& files, ScriptOrigin origin, std::string_view line) {
  const auto file = static_cast<std::size_t>(origin.file);
  const std::string_view name = file < files.size() ? std::string_view(files[file]) : std::string_view();
  return fmt::format("        at line {} of {} : {}", origin.line, name, Trim(line));
}

}  // namespace zaview
