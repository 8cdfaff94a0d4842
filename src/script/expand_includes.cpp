#include "script/expand_includes.h"

#include <algorithm>

#include "base/clean_text.h"
#include "base/message.h"
#include "base/text.h"
#include "frame/ground/input_file.h"

namespace zaview {

namespace {

constexpr std::string_view kInclude = "$INCLUDE";
constexpr std::string_view kNoName = "ERR212 - $INCLUDE directive does not specify a file name";
constexpr std::string_view kNoColon = "         or is missing a colon (:) delimiter";
constexpr std::size_t kIncludeName = 256;  // a longer name fails to open

enum class DollarKind : unsigned char { none, include, module };

struct IncludePass {
  const Platform& platform;
  std::string folder;  // of the script, with its slash; blank: the working directory
  std::vector<std::string>& files;
  ScriptText& clean;
  IncludeStatus status = IncludeStatus::ok;
};

DollarKind KindOf(std::string_view line) {
  const std::size_t first = line.find_first_not_of(" \t");
  if (first == std::string_view::npos || line[first] != '$') return DollarKind::none;
  return StartsWith(Capitals(line.substr(first)), kInclude) ? DollarKind::include : DollarKind::module;
}

// The name behind the colon, blank if there is none. In a commented line it must stand directly behind the colon,
// for the text then ends with the first word.
std::string_view NameOnLine(std::string_view line) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return {};
  std::string_view text = TrimEnd(line);
  if (line.find('!') != std::string_view::npos) {
    const std::size_t first = line.find_first_not_of(" \t");
    text = line.substr(0, line.find_first_of(" \t", first));
  }
  return colon + 1 < text.size() ? Trim(text.substr(colon + 1)) : std::string_view();
}

bool AddCleanLine(IncludePass& pass, std::string_view line, ScriptOrigin origin) {
  std::string_view text;
  if (!WithoutComment(line, text)) return true;
  if (AddScriptLine(pass.clean, {std::string(text), origin})) return true;
  pass.status = IncludeStatus::too_long;
  SayLine(pass.platform.console, TooLongMessage());
  SayLine(pass.platform.console, AtLine(pass.files, origin, line));
  return false;
}

// Lines that are no content of a module file: blank lines, comments, and lines that begin with a `$`.
bool IsContent(std::string_view line) {
  const std::string_view text = Trim(line);
  return !text.empty() && text.front() != '!' && text.front() != '$';
}

// A text that fails while it is read is no short script: nothing of it runs.
void NoteReadFault(IncludePass& pass, const BlockStream& stream, const std::string& name) {
  if (!stream.fault) return;
  Say(pass.platform.console, "ERROR - script text cannot be read to its end : {}", name);
  pass.status = IncludeStatus::faults;
}

// Inclusion is one level deep: a directive in here is text. The headers of a module file are dropped, for the module
// line of the script stands for them.
bool CopyFile(IncludePass& pass, FileHandle handle, int file, bool is_module) {
  BlockStream stream;
  StartStream(stream, pass.platform.files, handle);
  LineSource source;
  source.stream = &stream;
  std::string line;
  bool content_seen = !is_module;
  while (NextTextLine(source, line)) {
    content_seen = content_seen || IsContent(line);
    if (!content_seen && KindOf(line) != DollarKind::none) continue;
    if (!AddCleanLine(pass, line, {file, static_cast<int>(source.line_number)})) return false;
  }
  NoteReadFault(pass, stream, pass.files[static_cast<std::size_t>(file)]);
  return true;
}

FileHandle OpenIncluded(const IncludePass& pass, std::string& name) {
  const Files& files = pass.platform.files;
  if (name.size() > kIncludeName) return kNoFile;
  const FileHandle handle = files.open_read(files.self, name);
  if (handle != kNoFile || pass.folder.empty() || name.front() == '/') return handle;
  const std::string beside = pass.folder + name;
  const FileHandle second = files.open_read(files.self, beside);
  if (second != kNoFile) name = beside;
  return second;
}

bool IncludeFile(IncludePass& pass, std::string_view line, ScriptOrigin origin, bool is_module) {
  const Console& console = pass.platform.console;
  std::string name(NameOnLine(line));
  if (name.empty()) {
    if (is_module) return true;
    SayLine(console, kNoName);
    SayLine(console, kNoColon);
  } else {
    const std::string capitals = Capitals(name);
    if (capitals == "DEFAULT" || capitals == "DEFAULTS") return true;
    const FileHandle handle = OpenIncluded(pass, name);
    if (handle != kNoFile) {
      const auto known = std::find(pass.files.begin(), pass.files.end(), name);
      const auto file = static_cast<int>(known - pass.files.begin());
      if (known == pass.files.end()) pass.files.push_back(name);
      const bool good = CopyFile(pass, handle, file, is_module);
      pass.platform.files.close(pass.platform.files.self, handle);
      return good;
    }
    Say(console, "ERR212 - Error opening {} file: {}{}", is_module ? "module" : kInclude, name,
        WhyNotOpened(pass.platform.files, name));
  }
  SayLine(console, AtLine(pass.files, origin, line));
  pass.status = IncludeStatus::faults;
  return true;
}

}  // namespace

IncludeStatus ExpandIncludes(const Platform& platform, const std::string& name, BlockStream& script,
                             std::vector<std::string>& files, ScriptText& clean) {
  files.assign(1, name);
  IncludePass pass{platform, std::string(FolderOf(name)), files, clean};
  LineSource source;
  source.stream = &script;
  std::string line;
  while (NextTextLine(source, line)) {
    const ScriptOrigin origin{0, static_cast<int>(source.line_number)};
    const DollarKind kind = KindOf(line);
    if (kind != DollarKind::include && !AddCleanLine(pass, line, origin)) break;
    if (kind != DollarKind::none && !IncludeFile(pass, line, origin, kind == DollarKind::module)) break;
  }
  NoteReadFault(pass, script, name);
  return pass.status;
}

}  // namespace zaview
