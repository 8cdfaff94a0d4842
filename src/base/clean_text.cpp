#include "base/clean_text.h"

#include <utility>

#include "base/grow.h"
#include "base/text.h"

namespace zaview {

namespace {

template <typename Line>
bool Append(std::vector<Line>& lines, Line&& line) {
  if (lines.size() == lines.capacity() && !Reserve(lines, 2 * lines.size() + 16)) return false;
  lines.push_back(std::forward<Line>(line));
  return true;
}

CleanFault CopyLines(LineSource& source, std::vector<std::string>* full, std::vector<CleanLine>& clean) {
  std::size_t lines = 0;
  std::size_t bytes = 0;
  std::string line;
  while (NextTextLine(source, line)) {
    bytes += line.size();
    if (++lines > kCleanLines || bytes > kCleanBytes) return CleanFault::too_long;
    std::string_view text;
    if (WithoutComment(line, text) &&
        !Append(clean, CleanLine{std::string(text), static_cast<int>(source.line_number)}))
      return CleanFault::too_long;
    if (full != nullptr && !Append(*full, std::string(line))) return CleanFault::too_long;
  }
  return source.stream->fault ? CleanFault::read_error : CleanFault::none;
}

}  // namespace

bool NextTextLine(LineSource& source, std::string& line) {
  std::string_view raw;
  if (!NextRawLine(source, raw) || StartsWith(raw, "END_OF_FILE")) return false;
  line = raw.substr(0, kCleanLine);
  return true;
}

bool WithoutComment(std::string_view line, std::string_view& text) {
  const std::size_t comment = line.find('!');
  text = line.substr(0, comment);
  return comment != 0;
}

CleanFault CopyCleanText(const Files& files, const std::string& name, std::vector<std::string>* full,
                         std::vector<CleanLine>& clean) {
  const FileHandle file = files.open_read(files.self, name);
  if (file == kNoFile) return CleanFault::cannot_open;
  BlockStream stream;
  StartStream(stream, files, file);
  LineSource source;
  source.stream = &stream;
  const CleanFault fault = CopyLines(source, full, clean);
  files.close(files.self, file);
  return fault;
}

}  // namespace zaview
