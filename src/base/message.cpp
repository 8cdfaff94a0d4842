#include "base/message.h"

namespace zaview {

void SayLine(const Console& console, std::string_view line) {
  const std::size_t last = line.find_last_not_of(' ');
  std::string text(line.substr(0, last == std::string_view::npos ? 0 : last + 1));
  text += '\n';
  console.write(console.self, text);
  console.flush(console.self);
}

void SayLines(const Console& console, std::span<const std::string_view> lines) {
  for (const std::string_view line : lines) SayLine(console, line);
}

std::string Because(std::string_view why) {
  return why.empty() ? "" : fmt::format(" ({})", why);
}

std::string WhyNotOpened(const Files& files, const std::string& name) {
  const FileFacts facts = files.facts(files.self, name);
  if (facts.exists && !facts.plain && !facts.directory) return Because("Not a regular file");
  const FileHandle file = files.open_read(files.self, name);
  if (file == kNoFile) return Because(files.why(files.self));
  static_cast<void>(files.close(files.self, file));
  return {};
}

}  // namespace zaview
